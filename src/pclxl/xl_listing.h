// A readable listing of what the reader reads: the header line, each operator with its attributes,
// embedded data in hexadecimal. The library is quiet: it lists only for a caller that hands the
// reader a sink.
#pragma once

#include <string_view>

#include "pclxl/xl_reader.h"

namespace zeapi {

// Where the listing goes.
class XlListingSink {
 public:
  virtual ~XlListingSink() = default;
  virtual void Text(std::string_view text) = 0;
};

// Does nothing without a sink.
inline void XlListText(XlListingSink* listing, std::string_view text) {
  if (listing != nullptr) listing->Text(text);
}

// Lists the attributes and the operator, then releases the attributes.
void XlListOperator(XlReaderState* state, const char* name);

// Reads and lists a block of embedded data whose length takes 4 bytes or 1; passes over it when
// quiet. Returns 0 or 1 (cut short).
XlResult XlListEmbeddedData(unsigned lengthBytes, XlReaderState* state);

}  // namespace zeapi
