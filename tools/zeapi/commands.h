// The commands of the program, one family a file in commands/. Each function adds its family to the
// command line; the table in commands.cpp names them all.
#pragma once

#include "session.h"

namespace tool {

using AddFamily = void (*)(CLI::App& program, Session& session);

void AddInfo(CLI::App& program, Session& session);
void AddSend(CLI::App& program, Session& session);
void AddString(CLI::App& program, Session& session);
void AddFont(CLI::App& program, Session& session);
void AddMacro(CLI::App& program, Session& session);
void AddDemo(CLI::App& program, Session& session);
void AddResource(CLI::App& program, Session& session);
void AddFile(CLI::App& program, Session& session);
void AddIni(CLI::App& program, Session& session);
void AddPanel(CLI::App& program, Session& session);
void AddQsf(CLI::App& program, Session& session);
void AddData(CLI::App& program, Session& session);
void AddUrl(CLI::App& program, Session& session);
void AddJob(CLI::App& program, Session& session);
void AddArchive(CLI::App& program, Session& session);
void AddRecord(CLI::App& program, Session& session);
void AddPclXl(CLI::App& program, Session& session);

// Adds every family, in the order in which --help lists them.
void AddCommands(CLI::App& program, Session& session);

}  // namespace tool
