// The walk through a PCL XL stream: one session, in it at most one page. Operators of streams stand
// outside the page. Each operator is listed; what the page holds goes to a page body.
#pragma once

#include "pclxl/xl_reader.h"

namespace zeapi {

// Handles the operator or embedded data whose tag was just read: a session and a page to their end,
// anything else alone. Returns a code of the reader.
XlResult XlDispatch(std::uint8_t tag, XlReaderState* state);

// For people: writes "\nERROR. (code = 2, op = 0x43, pos = 3)\n\n" with the number of operators met
// to the listing, then skips to the end of the stream. Codes 0 and 1 are not reported.
void XlReportError(XlResult code, XlReaderState* state);

}  // namespace zeapi
