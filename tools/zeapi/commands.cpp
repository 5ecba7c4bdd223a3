#include "commands.h"

namespace tool {
namespace {

constexpr AddFamily kFamilies[] = {
    AddInfo, AddSend,  AddString, AddFont, AddMacro, AddDemo,    AddPclXl, AddResource, AddFile,
    AddIni,  AddPanel, AddQsf,    AddData, AddUrl,   AddArchive, AddJob,   AddRecord,
};

}  // namespace

void AddCommands(CLI::App& program, Session& session) {
  for (const AddFamily add : kFamilies) add(program, session);
}

}  // namespace tool
