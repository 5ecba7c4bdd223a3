#include "pclxl/list_stream.h"

#include <array>
#include <memory>
#include <string_view>

#include "pclxl/xl_operators.h"
#include "pclxl/xl_walk.h"

namespace zeapi {
namespace {

constexpr std::string_view kUniversalExit = "\x1B%-12345X";
constexpr std::string_view kJobLine = "@PJL";

// Goes past these bytes if they are next.
bool Take(std::string_view bytes, XlInput* input) {
  const std::uint64_t begin = input->Position();
  for (const char byte : bytes) {
    if (input->Read() == static_cast<unsigned char>(byte)) continue;
    input->SetPosition(begin);
    return false;
  }
  return true;
}

void SkipLine(XlInput* input) {
  for (int byte = 0; byte != '\n' && byte != XlInput::kEnd;) byte = input->Read();
}

// A zero byte at the very start goes with the three bytes after it.
void SkipJobControl(XlInput* input) {
  if (Take(std::string_view("\0", 1), input)) input->Skip(3);
  for (;;) {
    if (Take(kJobLine, input)) {
      SkipLine(input);
    } else if (!Take(kUniversalExit, input)) {
      return;
    }
  }
}

XlResult WalkSession(XlReaderState* state) {
  const XlResult result = XlReadToOperator(state);
  if (result != kXlOk) return result;
  if (state->currentTag != kXlBeginSession) return kXlNotAllowed;
  return XlDispatch(kXlBeginSession, state);
}

}  // namespace

XlListed XlListStream(std::FILE* file, XlListingSink* sink) {
  std::rewind(file);
  XlInput input(file);
  const auto state = std::make_unique<XlReaderState>(&input);
  state->listing = sink;
  SkipJobControl(&input);
  XlListed listed;
  listed.header = XlReadStreamHeader(state.get());
  listed.walk = WalkSession(state.get());
  listed.operatorCount = static_cast<std::int32_t>(state->operatorCount);
  if (input.Failed()) listed.walk = kXlFile;
  XlReportError(listed.walk, state.get());
  return listed;
}

}  // namespace zeapi
