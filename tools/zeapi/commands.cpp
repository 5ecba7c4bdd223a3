#include "commands.h"

namespace tool {
namespace {

constexpr AddFamily kFamilies[] = {
    AddInfo, AddSend, AddString, AddResource, AddFile, AddJob, AddArchive,
};

}  // namespace

void AddCommands(CLI::App& program, Session& session) {
  for (const AddFamily add : kFamilies) add(program, session);
}

}  // namespace tool
