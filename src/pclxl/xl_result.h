// What the PCL XL reader can say. Its callers fold these codes into results of the interface.
#pragma once

namespace zeapi {

enum XlResult : int {
  kXlOk = 0,
  kXlEnd = 1,            // end of the file, or an escape byte between tokens
  kXlNotAllowed = 2,     // an operator where it may not stand; a session without a page
  kXlIllegalByte = 3,    // a byte, identifier or array type that is not read; too many attributes
  kXlNoMemory = 4,       // for the elements of an array
  kXlBinding = 46,       // the header does not begin with ")"
  kXlName = 47,          // the header names neither "HP-PCL XL" nor "PCL XL"
  kXlVersion = 48,       // protocol class or revision is not 1
  kXlSeparator = 49,     // a separator of the header is missing
  kXlSecondPage = 51,    // more than one page
  kXlStreamInPage = 52,  // a stream operator in the page
  kXlFile = 53,          // a work file did not open, or could not be read, written or closed
  kXlLength = 54,  // an array's count in an unknown type; a page that is too long or cut short
};

}  // namespace zeapi
