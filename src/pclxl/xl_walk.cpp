#include "pclxl/xl_walk.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>

#include "pclxl/page_body.h"
#include "pclxl/xl_listing.h"
#include "pclxl/xl_operators.h"

namespace zeapi {
namespace {

XlResult HandleOperator(std::uint8_t tag, XlReaderState* state) {
  if (tag == kXlEmbeddedData) return XlListEmbeddedData(4, state);
  if (tag == kXlEmbeddedDataByte) return XlListEmbeddedData(1, state);
  XlListOperator(state, XlOperatorName(tag));
  return kXlOk;
}

// Why an operator may not stand in the page; 0 when it may.
XlResult RefusalInPage(std::uint8_t tag) {
  if (tag == kXlBeginPage) return kXlSecondPage;
  if (tag >= kXlBeginStream && tag <= kXlExecStream) return kXlStreamInPage;
  return XlAllowedInPage(tag) ? kXlOk : kXlNotAllowed;
}

// Extents follow each other without a gap, so small ones are handed on together.
constexpr std::size_t kHandedOn = 2048;

// Hands what the input holds from `begin` to `end` to the page body and goes back to where the
// input was.
XlResult Gather(std::uint64_t begin, std::uint64_t end, XlReaderState* state) {
  if (state->pageBody == nullptr || begin == end) return kXlOk;
  const std::uint64_t position = state->input->Position();
  if (!state->input->SetPosition(end)) return kXlFile;
  const XlResult result = state->pageBody->Append(begin, state->input);
  if (result != kXlOk) return result;
  return state->input->SetPosition(position) ? kXlOk : kXlFile;
}

// Passes over operators that lie in memory as a whole, have no arrays and may stand in the page, up
// to what is handed on together: when nothing is listed nobody asks for their attributes.
void PassOperators(XlReaderState* state) {
  if (state->attributeCount != 0) return;  // embedded data leaves them for the next operator
  const std::span<const std::uint8_t> atHand = state->input->AtHand();
  const auto bytes = atHand.first(std::min(atHand.size(), kHandedOn));
  std::size_t passed = 0;
  std::int32_t attributes = 0;
  for (std::size_t next = 0; next < bytes.size();) {
    const std::uint8_t byte = bytes[next];
    const XlByteFacts facts = kXlBytes[byte];
    if (facts.kind == XlClass::kOperator) {
      if (byte == kXlEndPage || RefusalInPage(byte) != kXlOk) break;
      passed = ++next;
      attributes = 0;
      state->currentTag = byte;
      ++state->operatorCount;
    } else if (facts.kind == XlClass::kAttributeId) {
      if (++attributes > kXlMostAttributes) break;
      next += facts.size;
    } else if (facts.kind == XlClass::kValue || facts.kind == XlClass::kWhiteSpace) {
      next += facts.size;
    } else {
      break;
    }
  }
  if (passed == 0) return;
  state->attributes[0].Clear();  // a value without an identifier goes with its operator
  state->input->Skip(passed);
}

XlResult WalkOperator(XlReaderState* state) {
  XlResult result = XlReadToOperator(state);
  if (result != kXlOk) return result;
  result = RefusalInPage(state->currentTag);
  return result == kXlOk ? HandleOperator(state->currentTag, state) : result;
}

// Each operator is one extent of the input, from the first byte of its attributes (and of white
// space before them) to its own, and so is each block of embedded data. EndPage belongs to no body.
XlResult WalkPage(XlReaderState* state) {
  std::uint64_t begin = state->input->Position();
  for (;;) {
    if (state->listing == nullptr) PassOperators(state);
    const std::uint64_t end = state->input->Position();
    const XlResult walked = WalkOperator(state);
    const bool ended = walked != kXlOk || state->currentTag == kXlEndPage;
    const std::uint64_t now = state->input->Position();
    if (!ended && now - begin < kHandedOn) continue;
    const XlResult gathered = Gather(begin, ended ? end : now, state);
    if (gathered != kXlOk || walked != kXlOk) return gathered != kXlOk ? gathered : walked;
    if (ended) return kXlOk;
    begin = now;
  }
}

XlResult HandlePage(XlReaderState* state) {
  if (state->pageSeen) return kXlSecondPage;
  state->pageSeen = true;
  XlListOperator(state, XlOperatorName(kXlBeginPage));
  if (state->pageBody == nullptr) return WalkPage(state);
  XlResult result = state->pageBody->Begin();
  if (result != kXlOk) return result;
  result = WalkPage(state);
  const XlResult ended = state->pageBody->End();
  return ended != kXlOk ? ended : result;
}

XlResult HandleSession(XlReaderState* state) {
  XlListOperator(state, XlOperatorName(kXlBeginSession));
  for (;;) {
    XlResult result = XlReadToOperator(state);
    if (result != kXlOk) return result;
    const std::uint8_t tag = state->currentTag;
    if (!XlAllowedInSession(tag)) return kXlNotAllowed;
    result = tag == kXlBeginPage ? HandlePage(state) : HandleOperator(tag, state);
    if (result != kXlOk || tag == kXlEndSession) return result;
  }
}

}  // namespace

XlResult XlDispatch(std::uint8_t tag, XlReaderState* state) {
  if (tag == kXlBeginSession) return HandleSession(state);
  if (tag == kXlBeginPage) return HandlePage(state);
  return HandleOperator(tag, state);
}

void XlReportError(XlResult code, XlReaderState* state) {
  if (code == kXlOk || code == kXlEnd) return;
  std::array<char, 80> text = {};
  std::snprintf(text.data(), text.size(), "\nERROR. (code = %d, op = 0x%02x, pos = %d)\n\n", code,
                state->currentTag, static_cast<std::int32_t>(state->operatorCount));
  XlListText(state->listing, text.data());
  XlReleaseAttributes(state);

  XlListingSink* const listing = state->listing;
  state->listing = nullptr;
  state->recovering = true;
  XlResult result = XlReadToOperator(state);
  while (result != kXlEnd) {
    const bool isData =
        state->currentTag == kXlEmbeddedData || state->currentTag == kXlEmbeddedDataByte;
    if (result == kXlOk && isData && XlDispatch(state->currentTag, state) != kXlOk) break;
    result = XlReadToOperator(state);
  }
  state->recovering = false;
  state->listing = listing;
}

}  // namespace zeapi
