#include "fonts/typeface_table.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "base/text.h"

namespace zeapi {
namespace {

// By typeface number: the letter of the family, a comma, the face name.
constexpr std::string_view kTypefaces[] = {
    "M,LinePrinter",
    "M,Pica",
    "M,Elite",
    "M,Courier",
    "W,Helv",
    "R,Tms Rmn",
    "M,Letter Gothic",
    "S,Script",
    "M,Prestige Elite",
    "R,Caslon",
    "M,Orator",
    "M,Presentations",
    "W,Helv Condensed",
    "R,Serifa",
    "W,Futura",
    "R,Palatino",
    "R,ITC Souvenir",
    "W,Optima",
    "R,ITC Garamond",
    "D,Cooper Black",
    "S,Coronet",
    "D,Broadway",
    "R,Bodoni Condensed",
    "R,Century Schoolbook",
    "D,University Roman",
    "W,Helv Outline",
    "W,Futura Condensed",
    "R,ITC Korinna",
    "",
    "D,Cloister Black",
    "R,ITC Galliard",
    "W,ITC Avant Garde",
    "S,Brush Script",
    "W,Blippo",
    "D,Hobo",
    "R,Windsor",
    "W,Helv Compressed",
    "W,Helv Extra Comp",
    "W,Peignot",
    "R,Baskerville",
    "R,ITC Garamond Cond",
    "W,News Gothic",
    "R,Goudy",
    "S,ITC Zapf Chancery",
    "R,Clarendon",
    "D,ITC Zapf Dingbats",
    "R,Bitstream Cooper",
    "R,ITC Bookman",
    "",
    "",
    "",
    "W,Gill Sans",
    "W,Univers",
    "R,Bodoni",
    "R,Rockwell",
    "R,Melior",
    "R,ITC Tiffany",
    "R,ITC Clearface",
    "D,Amelia",
    "S,Park Avenue",
    "D,Handel Gothic",
    "D,Dom Casual",
    "R,ITC Benguiat",
    "R,ITC Cheltenham",
    "R,Century Expanded",
    "W,Franklin Gothic",
    "W,Franklin Gothic Condensed",
    "W,Franklin Gothic Ex Cond",
    "R,Plantin",
    "R,Trump Mediaeval",
    "D,Futura Black",
    "",
    "",
    "W,Uncial",
    "",
    "",
    "",
    "",
    "R,ITC Lubalin Graph",
    "W,Eurostile",
    "",
    "",
    "",
    "",
    "",
    "W,Univers Cond",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "",
    "R,Bitstream Charter",
    "R,Symbol A Prop Serif",
    "M,Symbol A Mono Sans Serif",
    "R,Bitstream Amerigo",
};
static_assert(std::size(kTypefaces) == 140);

FontFamily FamilyOf(char letter) {
  switch (AsciiUpper(letter)) {
    case 'D':
      return kFamilyDecorative;
    case 'M':
      return kFamilyModern;
    case 'R':
      return kFamilyRoman;
    case 'S':
      return kFamilyScript;
    case 'W':
      return kFamilySwiss;
    default:
      return kFamilyDontCare;
  }
}

}  // namespace

FontFamily TypefaceFace(unsigned number, char* face, std::size_t size) {
  const std::string_view entry = number < std::size(kTypefaces) ? kTypefaces[number] : "";
  const bool empty = entry.size() < 3;
  const std::string_view name = empty ? "" : entry.substr(2, size - 1);
  *std::copy(name.begin(), name.end(), face) = '\0';
  return empty ? kFamilyDontCare : FamilyOf(entry.front());
}

}  // namespace zeapi
