#include "pclxl/xl_fixup.h"

#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <span>

#include "base/stream.h"
#include "files/regular_file.h"
#include "pclxl/page_body.h"
#include "pclxl/stored_stream.h"
#include "pclxl/work_files.h"
#include "pclxl/xl_operators.h"
#include "pclxl/xl_reader.h"
#include "pclxl/xl_walk.h"

namespace zeapi {
namespace {

// How a job opened its session: what stands between its header and the end of BeginSession.
class SessionOpening {
 public:
  // Reads it again, from `begin` to where the input is. Returns 0 or 53.
  XlResult Read(std::uint64_t begin, XlInput* input) {
    const std::uint64_t length = input->Position() - begin;
    if (length > bytes_.size()) return kXlFile;
    size_ = static_cast<std::size_t>(length);
    const bool read =
        input->SetPosition(begin) && input->Read(std::span(bytes_).first(size_)) == size_;
    return read ? kXlOk : kXlFile;
  }

  std::span<const std::uint8_t> bytes() const { return std::span(bytes_).first(size_); }

 private:
  std::array<std::uint8_t, kXlLongestOpening> bytes_ = {};
  std::size_t size_ = 0;
};

XlResult WalkStream(XlReaderState* state, SessionOpening* opening) {
  XlReadStreamHeader(state);  // whatever it says
  const std::uint64_t begin = state->input->Position();
  XlResult result = XlReadToOperator(state);
  if (result != kXlOk) return result;
  if (state->currentTag != kXlBeginSession) return kXlNotAllowed;
  result = opening->Read(begin, state->input);
  return result == kXlOk ? XlDispatch(kXlBeginSession, state) : result;
}

}  // namespace

XlResult XlFixupStream(std::string_view streamName, bool execute) {
  if (streamName.size() > kXlLongestName) return kXlFile;
  std::unique_ptr<XlReaderState> state;
  try {
    state = std::make_unique<XlReaderState>(nullptr);
  } catch (const std::bad_alloc&) {
    return kXlOk;
  }

  Stream in(OpenRegularFile(kXlInputFile, "rb"));
  Stream out(OpenRegularFile(kXlOutputFile, "wb"));
  if (in == nullptr || out == nullptr) return kXlFile;
  XlInput input(in.get());
  XlPageBody body;
  // A session without a page has an empty one, whatever an earlier run left.
  if (body.Begin() != kXlOk || body.End() != kXlOk) return kXlFile;
  state->input = &input;
  state->pageBody = &body;
  SessionOpening opening;
  const XlResult walked = WalkStream(state.get(), &opening);
  state.reset();
  if (input.Failed()) return kXlFile;
  if (walked != kXlOk) return walked;

  if (std::fclose(in.release()) != 0) return kXlFile;
  if (XlWriteStoredStream(streamName, opening.bytes(), body.size(), execute, out.get()) != kXlOk)
    return kXlFile;
  return std::fclose(out.release()) == 0 ? kXlOk : kXlFile;
}

}  // namespace zeapi
