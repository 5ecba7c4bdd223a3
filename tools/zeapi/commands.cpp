#include "commands.h"

namespace tool {
namespace {

constexpr AddFamily kFamilies[] = {
    AddInfo,     AddSend, AddString, AddFont,  AddMacro,  AddDemo,
    AddResource, AddFile, AddJob,    AddPclXl, AddRecord,
};

}  // namespace

void AddCommands(CLI::App& program, Session& session) {
  for (const AddFamily add : kFamilies) add(program, session);
}

}  // namespace tool
