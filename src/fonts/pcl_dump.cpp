#include "fonts/pcl_dump.h"

#include <cstdio>

#include "base/byte_reader.h"
#include "base/stream.h"
#include "files/regular_file.h"

namespace zeapi {
namespace {

constexpr char kDumpFile[] = "c:\\apifonts.txt";

// The listing shows 16-bit fields as a little-endian machine finds them in the file, their bytes
// exchanged, and cuts the bit fields out of these.
class Dump {
 public:
  Dump(std::FILE* file, const PclRawDescriptor& raw) : file_(file), reader_(raw) {}

  void Character(const char* label) { std::fprintf(file_, "%s%c\n", label, reader_.U8()); }
  void Word(const char* label) { std::fprintf(file_, "%s%d\n", label, reader_.U16Le()); }
  void Number(const char* label, unsigned value) {
    std::fprintf(file_, "%s%d\n", label, static_cast<int>(value));
  }
  void Bits(const char* label, unsigned word, unsigned lowest, unsigned count) {
    Number(label, word >> lowest & ((1U << count) - 1));
  }
  void Name(const char* label) {
    char name[17] = {};
    for (int i = 0; i < 16; ++i) name[i] = static_cast<char>(reader_.U8());
    std::fprintf(file_, "%s%s\n", label, name);
  }
  ByteReader& reader() { return reader_; }

 private:
  std::FILE* file_;
  ByteReader reader_;
};

}  // namespace

void DumpPclDescriptor(const PclRawDescriptor& raw) {
  const Stream file(OpenRegularFile(kDumpFile, "w"));
  if (file == nullptr) return;
  Dump dump(file.get(), raw);
  dump.Word("usFontDescSize:        ");
  dump.Character("ubDescFormat:          ");
  dump.Character("ubFontType:            ");
  const unsigned style = dump.reader().U16Le();
  dump.Bits("Style.uiPosture:               ", style, 0, 2);
  dump.Bits("Style.uiWidth:                 ", style, 2, 3);
  dump.Bits("Style.uiStructur:              ", style, 5, 5);
  dump.Bits("Style.uiReserved:              ", style, 10, 5);
  dump.Bits("Style.uiUnused:                ", style, 15, 1);
  dump.Word("usBaseline:            ");
  dump.Word("usCellWidth:           ");
  dump.Word("usCellHeight:          ");
  dump.Character("ubOrientation:         ");
  dump.Character("ubSpacing:                     ");
  dump.Word("usSymbolSet:           ");
  dump.Word("usPitch:                       ");
  dump.Word("usHeight:                      ");
  dump.Word("usXHeight:                     ");
  dump.Character("bWidthType:            ");
  dump.Character("ubStyleLSB:            ");
  dump.Character("bStrokeWeight:         ");
  const unsigned typeface = dump.reader().U16Le();
  dump.Bits("usTypeface.uiNumber:   ", typeface, 0, 9);
  dump.Bits("usTypeface.uiVersion:  ", typeface, 9, 2);
  dump.Bits("usTypeface.uiVendor:   ", typeface, 11, 4);
  dump.Bits("usTypeface.uiUnused:   ", typeface, 15, 1);
  dump.Character("ubSerifStyle:          ");
  dump.Character("ubQuality:                     ");
  dump.Character("bPlacement:            ");
  dump.Character("bUnderlineDistance:");
  dump.Character("ubUnderlineHeight:     ");
  dump.Word("usLineSpacing:         ");
  dump.Word("usTextWidth:           ");
  dump.Word("usFirstCode:           ");
  dump.Word("usLastCode:            ");
  dump.Character("ubPitchExtended:       ");
  dump.Character("ubHeightExtended:      ");
  dump.Word("usCapHeight:           ");
  dump.Number("FontNumber.uiVendor:   ", dump.reader().U8() & 0x7FU);
  dump.Number("FontNumber.uiNumber:   ", dump.reader().U24Be());
  dump.Name("szFontName:            ");
}

}  // namespace zeapi
