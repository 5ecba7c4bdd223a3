#include "config/text_pieces.h"

#include <algorithm>

namespace zeapi {

bool TakePiece(std::string_view* rest, char separator, std::string_view* piece) {
  const std::size_t begin = std::min(rest->find_first_not_of(separator), rest->size());
  rest->remove_prefix(begin);
  *piece = rest->substr(0, rest->find(separator));
  rest->remove_prefix(piece->size());
  return !piece->empty();
}

}  // namespace zeapi
