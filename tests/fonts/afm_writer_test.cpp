// Windows metrics as AFM files.
#include "fonts/afm_writer.h"

#include "fonts/windows_characters.h"
#include "support/byte_order.h"
#include "support/metrics.h"

namespace zeapi::testing {
namespace {

class AfmWriterTest : public FontTest {
 protected:
  // The AFM file of a font.
  static std::string AfmOf(const PostScriptPfm& font) { return AfmOf(font.File()); }
  static std::string AfmOf(const std::string& file) {
    WriteFile("font.pfm", file);
    EXPECT_EQ(ZeFonConvert("font.pfm", "out.afm", nullptr, 0, 3), ZE_OK);
    std::string text = ReadFile("out.afm");
    std::erase(text, '\r');
    return text;
  }
  static std::uint32_t Convert(const std::string& file) {
    WriteFile("font.pfm", file);
    return ZeFonConvert("font.pfm", "out.afm", nullptr, 0, 3);
  }
  // The value of a keyword's line, with the blank before it.
  static std::string Line(const std::string& text, const std::string& keyword) {
    const std::size_t at = text.find("\n" + keyword);
    if (at == std::string::npos) return "no " + keyword;
    const std::size_t value = at + 1 + keyword.size();
    return text.substr(value, text.find('\n', value) - value);
  }
  // Codes 60 to 98; a code with a standard code has its line, whatever its width.
  static std::string StandardFont() {
    return "StartFontMetrics 2.0\n"
           "Comment (c) Nobody\n"
           "FontName Test-Bold\n"
           "EncodingScheme AdobeStandardEncoding\n"
           "FullName Test Bold\n"
           "FamilyName Test\n"
           "Weight Medium\n"
           "IsFixedPitch false\n"
           "FontBBox -100 -222 910 705\n"
           "CapHeight 662\n"
           "XHeight 450\n"
           "Descender 217\n"
           "Ascender 683\n"
           "StartCharMetrics 39\n"
           "C  60 ; WX  564 ; N less ;\n"
           "C  61 ; WX  0 ; N equal ;\n"
           "C  62 ; WX  0 ; N greater ;\n"
           "C  63 ; WX  0 ; N question ;\n"
           "C  64 ; WX  921 ; N at ;\n"
           "C  65 ; WX  722 ; N A ;\n"
           "C  66 ; WX  667 ; N B ;\n"
           "C  67 ; WX  0 ; N C ;\nC  68 ; WX  0 ; N D ;\nC  69 ; WX  0 ; N E ;\n"
           "C  70 ; WX  0 ; N F ;\nC  71 ; WX  0 ; N G ;\nC  72 ; WX  0 ; N H ;\n"
           "C  73 ; WX  0 ; N I ;\nC  74 ; WX  0 ; N J ;\nC  75 ; WX  0 ; N K ;\n"
           "C  76 ; WX  0 ; N L ;\nC  77 ; WX  0 ; N M ;\nC  78 ; WX  0 ; N N ;\n"
           "C  79 ; WX  0 ; N O ;\nC  80 ; WX  0 ; N P ;\nC  81 ; WX  0 ; N Q ;\n"
           "C  82 ; WX  0 ; N R ;\nC  83 ; WX  0 ; N S ;\nC  84 ; WX  0 ; N T ;\n"
           "C  85 ; WX  0 ; N U ;\nC  86 ; WX  0 ; N V ;\nC  87 ; WX  0 ; N W ;\n"
           "C  88 ; WX  0 ; N X ;\nC  89 ; WX  0 ; N Y ;\nC  90 ; WX  0 ; N Z ;\n"
           "C  91 ; WX  0 ; N bracketleft ;\n"
           "C  92 ; WX  0 ; N backslash ;\n"
           "C  93 ; WX  0 ; N bracketright ;\n"
           "C  94 ; WX  0 ; N asciicircum ;\n"
           "C  95 ; WX  0 ; N underscore ;\n"
           "C  97 ; WX  0 ; N a ;\n"
           "C  98 ; WX  0 ; N b ;\n"
           "C  193 ; WX  333 ; N grave ;\n"
           "EndCharMetrics\n"
           "StartKernData\n"
           "StartKernPairs 2\n"
           "KPX A B -40\n"
           "KPX B grave 15\n"
           "EndKernPairs\n"
           "EndKernData\n"
           "EndFontMetrics\n";
  }
  static std::string Characters(const std::string& text) {
    const std::size_t start = text.find("StartCharMetrics");
    return text.substr(start, text.find("EndCharMetrics") - start);
  }
};

TEST_F(AfmWriterTest, WritesAWholeStandardFont) {
  PostScriptPfm font;
  font.first = 60;
  font.last = 98;
  font.widths = {{60, 564}, {64, 921}, {65, 722}, {66, 667}, {96, 333}};
  font.hasKerning = true;
  font.pairs = {{65, 66, -40}, {66, 65, 0}, {66, 96, 15}};
  EXPECT_BYTES(AfmOf(font), StandardFont());
}

TEST_F(AfmWriterTest, WritesAWholeFontWithItsOwnEncoding) {
  PostScriptPfm font;
  font.charSet = 2;
  font.first = 33;
  font.last = 36;
  font.widths = {{33, 250}, {36, 1000}};
  EXPECT_BYTES(AfmOf(font),
               "StartFontMetrics 2.0\n"
               "Comment (c) Nobody\n"
               "FontName Test-Bold\n"
               "EncodingScheme FontSpecific\n"
               "FullName Test Bold\n"
               "FamilyName Test\n"
               "Weight Medium\n"
               "IsFixedPitch false\n"
               "FontBBox -100 -222 910 705\n"
               "CapHeight 662\n"
               "XHeight 450\n"
               "Descender 217\n"
               "Ascender 683\n"
               "StartCharMetrics 4\n"
               "C  33 ; WX  250 ;\n"
               "C  36 ; WX  1000 ;\n"
               "EndCharMetrics\n"
               "EndFontMetrics\n");
}

// The pairs are named as in a standard font, though the characters have no names here.
TEST_F(AfmWriterTest, KeepsNamingThePairsOfAFontWithItsOwnEncoding) {
  PostScriptPfm font;
  font.charSet = 2;
  font.widths = {{65, 250}, {150, 300}};
  font.hasKerning = true;
  font.pairs = {{65, 150, -40}, {150, 128, 3}};
  const std::string text = AfmOf(font);
  EXPECT_BYTES(text.substr(text.find("StartCharMetrics")),
               "StartCharMetrics 224\nC  65 ; WX  250 ;\nC  150 ; WX  300 ;\nEndCharMetrics\n"
               "StartKernData\nStartKernPairs 2\nKPX A endash -40\nKPX endash W80 3\n"
               "EndKernPairs\nEndKernData\nEndFontMetrics\n");
}

TEST_F(AfmWriterTest, NamesTheWeight) {
  const std::pair<std::uint16_t, const char*> rows[] = {
      {0, " Medium"},   {1, " Light"},    {300, " Light"}, {324, " Light"}, {325, " Medium"},
      {400, " Medium"}, {475, " Medium"}, {476, " Bold"},  {700, " Bold"},  {65535, " Bold"}};
  for (const auto& [weight, name] : rows) {
    PostScriptPfm font;
    font.weight = weight;
    EXPECT_EQ(Line(AfmOf(font), "Weight"), name) << weight;
  }
}

TEST_F(AfmWriterTest, FixedPitchIsAClearBitOrAnAverageThatIsTheMaximum) {
  PostScriptPfm font;
  EXPECT_EQ(Line(AfmOf(font), "IsFixedPitch"), " false");
  font.pitchAndFamily = 0x30;
  EXPECT_EQ(Line(AfmOf(font), "IsFixedPitch"), " true");
  EXPECT_EQ(Line(AfmOf(font), "FontBBox"), " -20 -222 910 705");
  font.pitchAndFamily = 0x31;
  font.averageWidth = font.maximumWidth;
  EXPECT_EQ(Line(AfmOf(font), "IsFixedPitch"), " true");
}

TEST_F(AfmWriterTest, NumbersAreUnsignedAsStored) {
  PostScriptPfm font;
  font.maximumWidth = 65535;
  font.ascent = 65535;
  font.lowerCaseDescent = 65535;
  font.lowerCaseAscent = 65534;
  const std::string text = AfmOf(font);
  EXPECT_EQ(Line(text, "FontBBox"), " -100 -65540 65545 65540");
  EXPECT_EQ(Line(text, "Descender"), " 65535");
  EXPECT_EQ(Line(text, "Ascender"), " 65534");
}

TEST_F(AfmWriterTest, LaterCodeTakesAStandardCodeOver) {
  PostScriptPfm font;
  font.widths = {{0x5E, 469}, {0x88, 333}, {0x7E, 541}, {0x98, 334}};
  const std::string characters = Characters(AfmOf(font));
  EXPECT_NE(characters.find("C  94 ; WX  333 ; N asciicircum ;\n"), std::string::npos);
  EXPECT_NE(characters.find("C  126 ; WX  334 ; N asciitilde ;\n"), std::string::npos);
  EXPECT_NE(characters.find("C  -1 ; WX  469 ; N asciicircum ;\n"), std::string::npos);
  EXPECT_NE(characters.find("C  -1 ; WX  541 ; N asciitilde ;\n"), std::string::npos);
}

// The space is compared with only where it is the only character.
TEST_F(AfmWriterTest, KeepsComparingWithASpaceOfNoWidth) {
  PostScriptPfm font;
  font.widths = {{32, 250}, {0x8A, 250}, {0x83, 250}, {0x8D, 0}};
  const std::string characters = Characters(AfmOf(font));
  // Class 2, as wide as the space: kept. Class 0: dropped.
  EXPECT_NE(characters.find("C  -1 ; WX  250 ; N Scaron ;\n"), std::string::npos);
  EXPECT_EQ(characters.find("W83"), std::string::npos);
  font.first = font.last = 32;
  EXPECT_EQ(Characters(AfmOf(font)), "StartCharMetrics 1\nC  32 ; WX  250 ; N space ;\n");
}

struct KeepRow {
  std::uint8_t code;
  unsigned keepClass;
};

TEST_F(AfmWriterTest, DropsByKeepClass) {
  for (const KeepRow row :
       {KeepRow{0x81, 0}, KeepRow{0xC0, 1}, KeepRow{0x8A, 2}, KeepRow{0x92, 3}}) {
    ASSERT_EQ(KeepClassOf(row.code), row.keepClass);
    ASSERT_EQ(StandardCodeOf(row.code), 0);
    PostScriptPfm font;
    font.first = font.last = row.code;
    font.widths = {{row.code, 0}};
    // As wide as the space, which counts as 0: even classes go.
    EXPECT_EQ(Line(AfmOf(font), "StartCharMetrics"), row.keepClass % 2 == 0 ? " 0" : " 1");
    font.widths = {{row.code, 100}};
    EXPECT_EQ(Line(AfmOf(font), "StartCharMetrics"), row.keepClass == 0 ? " 0" : " 1");
  }
}

TEST_F(AfmWriterTest, FirstAboveLastHasNoCharacters) {
  PostScriptPfm font;
  font.first = 40;
  font.last = 33;
  EXPECT_EQ(Characters(AfmOf(font)), "StartCharMetrics -6\n");
}

TEST_F(AfmWriterTest, WithoutAnExtentTableAllAreAsWideAsTheAverage) {
  PostScriptPfm font;
  font.charSet = 255;
  font.first = 65;
  font.last = 66;
  font.hasExtents = false;
  font.averageWidth = 600;
  EXPECT_EQ(Characters(AfmOf(font)), "StartCharMetrics 2\nC  65 ; WX  600 ;\nC  66 ; WX  600 ;\n");
}

TEST_F(AfmWriterTest, WidthsOfNothing) {
  PostScriptPfm font;
  font.charSet = 2;  // an encoding of its own: only what has a width has a line
  EXPECT_EQ(Characters(AfmOf(font)), "StartCharMetrics 224\n");
  font.charSet = 0;
  font.first = 65;
  font.last = 66;
  EXPECT_EQ(Characters(AfmOf(font)),
            "StartCharMetrics 2\nC  65 ; WX  0 ; N A ;\nC  66 ; WX  0 ; N B ;\n");
  font.first = font.last = 0xC0;  // without a standard code, and kept by its class
  EXPECT_EQ(Characters(AfmOf(font)), "StartCharMetrics 1\n");
}

TEST_F(AfmWriterTest, NamesWithoutEndEndWithTheFile) {
  const PostScriptPfm font;
  std::string file = font.File() + "Endless";
  file.replace(2, 4, Le32(static_cast<std::uint32_t>(file.size())));
  const std::string place = Le32(static_cast<std::uint32_t>(file.size() - 7));
  std::string name = file;
  EXPECT_EQ(Line(AfmOf(name.replace(139, 4, place)), "FontName"), " Endless");
  std::string face = file;
  EXPECT_EQ(Line(AfmOf(face.replace(105, 4, place)), "FamilyName"), " Endless");
}

// The hyphens become blanks where the name lies in the file, behind the line of the font name.
TEST_F(AfmWriterTest, KeepsTheBlanksOfTheFullNameInAFaceThatSharesItsBytes) {
  PostScriptPfm font;
  font.face = "Old-Test-Bold";
  const std::string file = font.File();
  const auto number = [&](std::size_t at) { return MetricsView(file).U32(at); };
  const auto names = [&](std::uint32_t face, std::uint32_t name) {
    std::string changed = file;
    const std::string text = AfmOf(changed.replace(105, 4, Le32(face)).replace(139, 4, Le32(name)));
    return Line(text, "FontName") + Line(text, "FullName") + Line(text, "FamilyName");
  };
  const std::uint32_t face = number(105);
  const std::uint32_t name = number(139);
  EXPECT_EQ(names(face, name), " Test-Bold Test Bold Old-Test-Bold");
  EXPECT_EQ(names(name, name), " Test-Bold Test Bold Test Bold");
  EXPECT_EQ(names(name + 2, name), " Test-Bold Test Bold st Bold");
  EXPECT_EQ(names(face, face), " Old-Test-Bold Old Test Bold Old Test Bold");
  EXPECT_EQ(names(face, face + 4), " Test-Bold Test Bold Old-Test Bold");
}

TEST_F(AfmWriterTest, WithoutAPairTableThereIsNoKerningSection) {
  PostScriptPfm font;
  EXPECT_EQ(AfmOf(font).find("Kern"), std::string::npos);
  font.hasKerning = true;
  EXPECT_NE(AfmOf(font).find("StartKernData\nStartKernPairs 0\nEndKernPairs\nEndKernData\n"),
            std::string::npos);
}

TEST_F(AfmWriterTest, ReadsTablesBeyondTheFirst4096Bytes) {
  PostScriptPfm font;
  font.hasKerning = true;
  font.gap = 5000;
  for (int i = 0; i < 2000; ++i)
    font.pairs.push_back({static_cast<std::uint8_t>(33 + i % 90),
                          static_cast<std::uint8_t>(33 + i / 90),
                          static_cast<std::int16_t>(-i - 1)});
  const std::string text = AfmOf(font);
  EXPECT_EQ(Line(text, "StartKernPairs"), " 2000");
  EXPECT_NE(text.find(" -2000\nEndKernPairs"), std::string::npos);
}

TEST_F(AfmWriterTest, FontWithoutNamesHasEmptyLines) {
  PostScriptPfm font;
  std::string file = font.File();
  file.replace(139, 4, Le32(0));
  EXPECT_NE(AfmOf(file).find("\nFontName \nEncodingScheme"), std::string::npos);
}

// The layout that is 32 bytes longer than it says need not have a face.
TEST_F(AfmWriterTest, LongerLayoutHasNoFamilyWithoutAFace) {
  PostScriptPfm font;
  std::string file = font.File();
  file.replace(105, 4, Le32(0));
  file.replace(117, 2, Le16(0));
  file += std::string(32, '\0');
  const std::string text = AfmOf(file);
  EXPECT_EQ(text.find("FamilyName"), std::string::npos);
  EXPECT_NE(text.find("FullName Test Bold\nWeight"), std::string::npos);
}

TEST_F(AfmWriterTest, RefusesOffsetsThatLeadOutOfTheFile) {
  PostScriptPfm font;
  font.hasKerning = true;
  font.pairs = {{65, 66, 1}};
  const std::string file = font.File();
  const auto size = static_cast<std::uint32_t>(file.size());
  for (const std::size_t field : {119U, 123U, 131U, 139U}) {
    for (const std::uint32_t offset : {size, size + 1000, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
      std::string bad = file;
      bad.replace(field, 4, Le32(offset));
      EXPECT_EQ(Convert(bad), ZE_BAD_FORMAT) << field << " " << offset;
    }
  }
  // One byte too few for what must be there.
  for (const auto& [field, length] :
       {std::pair<std::size_t, std::uint32_t>{119, 22}, {123, 448}, {131, 6}}) {
    std::string bad = file;
    if (field == 131) bad.replace(bad.size() - 6, 2, Le16(1));
    bad.replace(field, 4, Le32(size - length));
    EXPECT_EQ(Convert(bad), ZE_OK) << field;
    bad.replace(field, 4, Le32(size - length + 1));
    EXPECT_EQ(Convert(bad), ZE_BAD_FORMAT) << field;
  }
}

TEST_F(AfmWriterTest, RefusesPairsBeyondTheFile) {
  PostScriptPfm font;
  font.hasKerning = true;
  font.pairs = {{65, 66, 1}};
  std::string file = font.File();
  file.replace(file.size() - 6, 2, Le16(2));
  EXPECT_EQ(Convert(file), ZE_BAD_FORMAT);
}

TEST_F(AfmWriterTest, RefusesEveryBeginning) {
  PostScriptPfm font;
  font.hasKerning = true;
  font.pairs = {{65, 66, 1}};
  const std::string file = font.File();
  for (std::size_t length = 0; length < file.size(); ++length) {
    std::string part = file.substr(0, length);
    ASSERT_EQ(Convert(part), ZE_BAD_FORMAT) << length;
    // The same with its size made true.
    if (length < 256) continue;
    part.replace(2, 4, Le32(static_cast<std::uint32_t>(length)));
    ASSERT_EQ(Convert(part), ZE_BAD_FORMAT) << length;
  }
}

}  // namespace
}  // namespace zeapi::testing
