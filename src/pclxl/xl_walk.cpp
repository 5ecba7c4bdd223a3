#include "pclxl/xl_walk.h"

#include <array>
#include <cstdio>

#include "pclxl/page_body.h"
#include "pclxl/xl_listing.h"
#include "pclxl/xl_operators.h"

namespace zeapi {
namespace {

XlResult HandleSession(XlReaderState* state) {
  XlListOperator(state, XlOperatorName(kXlBeginSession));
  for (;;) {
    XlResult result = XlReadToOperator(state);
    if (result != kXlOk) return result;
    const std::uint8_t tag = state->currentTag;
    if (!XlAllowedInSession(tag)) return kXlNotAllowed;
    result = XlDispatch(tag, state);
    if (result != kXlOk || tag == kXlEndSession) return result;
  }
}

// Why an operator may not stand in the page; 0 when it may.
XlResult RefusalInPage(std::uint8_t tag) {
  if (tag == kXlBeginPage) return kXlSecondPage;
  if (tag >= kXlBeginStream && tag <= kXlExecStream) return kXlStreamInPage;
  return XlAllowedInPage(tag) ? kXlOk : kXlNotAllowed;
}

// Each operator is one extent of the input, from the first byte of its attributes (and of white
// space before them) to its own, and so is each block of embedded data. EndPage belongs to no body.
XlResult WalkPage(XlReaderState* state) {
  for (;;) {
    const std::uint64_t begin = state->input->Position();
    XlResult result = XlReadToOperator(state);
    if (result != kXlOk) return result;
    const std::uint8_t tag = state->currentTag;
    result = RefusalInPage(tag);
    if (result == kXlOk) result = XlDispatch(tag, state);
    if (result != kXlOk || tag == kXlEndPage) return result;
    if (state->pageBody == nullptr) continue;
    result = state->pageBody->Append(begin, state->input);
    if (result != kXlOk) return result;
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
  return result != kXlOk ? result : ended;
}

}  // namespace

XlResult XlDispatch(std::uint8_t tag, XlReaderState* state) {
  if (tag == kXlEmbeddedData) return XlListEmbeddedData(4, state);
  if (tag == kXlEmbeddedDataByte) return XlListEmbeddedData(1, state);
  if (tag == kXlBeginSession) return HandleSession(state);
  if (tag == kXlBeginPage) return HandlePage(state);
  XlListOperator(state, XlOperatorName(tag));
  return kXlOk;
}

void XlReportError(XlResult code, XlReaderState* state) {
  if (code == kXlOk || code == kXlEnd) return;
  std::array<char, 80> text = {};
  std::snprintf(text.data(), text.size(), "\nERROR. (code = %d, op = 0x%02x, pos = %d)\n\n", code,
                state->currentTag, state->operatorCount);
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
