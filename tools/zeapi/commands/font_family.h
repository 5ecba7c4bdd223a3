// Parts of the command family "font".
#pragma once

#include "session.h"

namespace tool {

void AddFontList(CLI::App& family, Session& session);
void AddFontConvert(CLI::App& family, Session& session);

}  // namespace tool
