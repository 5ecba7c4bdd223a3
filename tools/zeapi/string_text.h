// What a person types as a command string, and the hexadecimal digits that the library takes. The
// digits carry every byte, zero and a leading "%" or "$" too.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace tool {

// Says what is wrong with a typed string.
class BadText : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The bytes that pairs of hexadecimal digits spell; blanks between pairs are allowed.
std::string BytesOfHex(std::string_view text);

// The bytes of text with the escapes \n \r \t \f \e \\ and \xHH.
std::string BytesOfEscapes(std::string_view text);

// Two digits a byte, upper case.
std::string HexOfBytes(std::string_view bytes);

}  // namespace tool
