// The reader of AFM and INF files.
#include "fonts/afm_reader.h"

#include "base/stream.h"
#include "fonts/afm_glyph_names.h"
#include "fonts/afm_number.h"
#include "support/scratch.h"

namespace zeapi::testing {
namespace {

class AfmReaderTest : public ScratchTest {
 protected:
  void SetUp() override {
    ScratchTest::SetUp();
    metrics_ = NewAfmMetrics("font.afm");
    ASSERT_NE(metrics_, nullptr);
  }
  const AfmMetrics& Afm(const std::string& text) {
    EXPECT_EQ(Read(text, ReadAfm), ZE_OK);
    return *metrics_;
  }
  const AfmMetrics& HeaderOf(const std::string& text) {
    EXPECT_EQ(Read(text, ReadAfmHeader), ZE_OK);
    return *metrics_;
  }
  const AfmMetrics& Inf(const std::string& text) {
    EXPECT_EQ(Read(text, ReadInf), ZE_OK);
    return *metrics_;
  }

 private:
  Result Read(const std::string& text, Result (*reader)(std::FILE*, AfmMetrics*)) {
    metrics_ = NewAfmMetrics("font.afm");
    WriteFile("text", text);
    const Stream stream(std::fopen("text", "r"));
    return reader(stream.get(), metrics_.get());
  }

  AfmMetricsPtr metrics_;
};

TEST_F(AfmReaderTest, RecordStartsWithItsDefaults) {
  const AfmMetrics& metrics = Afm("");
  EXPECT_EQ(metrics.firstCharacter, 32);
  EXPECT_EQ(metrics.lastCharacter, 255);
  EXPECT_EQ(metrics.weight, 400);
  EXPECT_STREQ(metrics.fontFile, "font.afm");
  EXPECT_STREQ(metrics.fontName, "");
  EXPECT_STREQ(metrics.fullName, "");
  EXPECT_STREQ(metrics.symbolSet, "9U");
  EXPECT_EQ(metrics.kernPairCount, 0U);
}

TEST_F(AfmReaderTest, HeaderAloneIsReadUpToTheEnd) {
  const AfmMetrics& metrics = HeaderOf(
      "FontName First\nStartCharMetrics 1\nC 65 ; WX 600 ; N A ;\nFontName Inside\n"
      "EndCharMetrics\nStartKernData\nStartKernPairs 1\nKPX A V -80\nEndKernPairs\n"
      "EndKernData\nFontName Last\nEndFontMetrics\nFontName Behind\n");
  EXPECT_STREQ(metrics.fontName, "Last");
  EXPECT_FALSE(metrics.byFontCode[65].present);
  EXPECT_EQ(metrics.kernPairCount, 0U);
}

// The stream is read in blocks of 4096 bytes.
TEST_F(AfmReaderTest, LinesAcrossTheEndOfABlock) {
  for (std::size_t before = 4070; before < 4100; ++before) {
    const std::string text = std::string(before, '\n') + "FontName Courier\r\nWeight Bold\r";
    const AfmMetrics& metrics = Afm(text);
    EXPECT_STREQ(metrics.fontName, "Courier") << before;
    EXPECT_EQ(metrics.weight, 700) << before;
  }
}

TEST_F(AfmReaderTest, Header) {
  const AfmMetrics& metrics =
      Afm("StartFontMetrics 4.1\n"
          "Comment FontName Other\n"
          "EncodingScheme AdobeStandardEncoding\n"
          "FontName Times-BoldItalic\n"
          "Weight Bold\n"
          "ItalicAngle -15.5\n"
          "IsFixedPitch true\n"
          "FontBBox -200 -218.5 996 921\n"
          "UnderlinePosition -100\n"
          "UnderlineThickness 50\n"
          "CapHeight 669\n"
          "XHeight 462\n"
          "Ascender 699\n"
          "Descender -205\n"
          "EndFontMetrics\n");
  EXPECT_STREQ(metrics.fontName, "Times-BoldItalic");
  EXPECT_TRUE(metrics.standardEncoding);
  EXPECT_EQ(metrics.weight, 700);
  EXPECT_EQ(metrics.italicAngle, -155);
  EXPECT_TRUE(metrics.fixedPitch);
  EXPECT_EQ(metrics.box[0], -200);
  EXPECT_EQ(metrics.box[1], -218);
  EXPECT_EQ(metrics.box[2], 996);
  EXPECT_EQ(metrics.box[3], 921);
  EXPECT_EQ(metrics.underlinePosition, -100);
  EXPECT_EQ(metrics.underlineThickness, 50);
  EXPECT_EQ(metrics.capHeight, 669);
  EXPECT_EQ(metrics.ascender, 699);
  EXPECT_EQ(metrics.descender, -205);
}

TEST_F(AfmReaderTest, OtherValuesOfTheHeader) {
  const AfmMetrics& metrics =
      Afm("EncodingScheme FontSpecific\nIsFixedPitch false\nWeight Extra Light\n");
  EXPECT_FALSE(metrics.standardEncoding);
  EXPECT_FALSE(metrics.fixedPitch);
  EXPECT_EQ(metrics.weight, 250);
  EXPECT_EQ(Afm("Weight Extra Bold\n").weight, 700);
  EXPECT_EQ(Afm("Weight Roman\n").weight, 400);
}

TEST_F(AfmReaderTest, KeywordsBeginTheirLineAndAreWhole) {
  EXPECT_STREQ(Afm(" FontName Courier\n").fontName, "");
  EXPECT_STREQ(Afm("FontNames Courier\n").fontName, "");
  EXPECT_STREQ(Afm("fontname Courier\n").fontName, "");
  EXPECT_STREQ(Afm("FontName\n").fontName, "");
  EXPECT_STREQ(Afm("FontName\tCourier  x\n").fontName, "Courier");
  EXPECT_STREQ(Afm("FontName Courier").fontName, "Courier");
}

TEST_F(AfmReaderTest, LinesEndInAnyWay) {
  for (const char* end : {"\n", "\r\n", "\r"}) {
    const AfmMetrics& metrics =
        Afm(std::string("FontName Courier") + end + "CapHeight 562" + end + end + "Ascender 629");
    EXPECT_STREQ(metrics.fontName, "Courier");
    EXPECT_EQ(metrics.capHeight, 562);
    EXPECT_EQ(metrics.ascender, 629);
  }
}

TEST_F(AfmReaderTest, EndFontMetricsEndsTheReading) {
  EXPECT_STREQ(Afm("EndFontMetrics\nFontName Late\n").fontName, "");
  EXPECT_STREQ(Afm("StartCharMetrics 1\nEndFontMetrics\nEndCharMetrics\nFontName Late\n").fontName,
               "");
}

TEST_F(AfmReaderTest, NamesWithoutEndAreCut) {
  const std::string text = "FontName " + std::string(5000, 'n') + "\nCapHeight 5\n";
  EXPECT_EQ(Afm(text).fontName, std::string(79, 'n'));
  EXPECT_EQ(Afm(text).capHeight, 5);
}

TEST_F(AfmReaderTest, RestOfALongLineIsNoLineOfItsOwn) {
  for (std::size_t length = 1020; length < 1030; ++length) {
    EXPECT_STREQ(Afm(std::string(length, 'x') + "FontName Courier\n").fontName, "") << length;
  }
}

TEST_F(AfmReaderTest, Characters) {
  const AfmMetrics& metrics =
      Afm("StartCharMetrics 3\n"
          "C 32 ; WX 250 ; N space ; B 0 0 0 0 ;\n"
          "C 102 ; WX 333.7 ; N f ; B 20 -7 383 683 ; L i fi ; L l fl ;\n"
          "C -1 ; WX 722 ; N Adieresis ; B 15 0 706 835 ;\n"
          "EndCharMetrics\n");
  EXPECT_TRUE(metrics.byWindowsCode[32].present);
  EXPECT_EQ(metrics.byWindowsCode[32].width, 250);
  EXPECT_EQ(metrics.byWindowsCode[102].width, 333);
  EXPECT_EQ(metrics.byWindowsCode[102].box[0], 20);
  EXPECT_EQ(metrics.byWindowsCode[102].box[1], -7);
  EXPECT_EQ(metrics.byWindowsCode[102].box[2], 383);
  EXPECT_EQ(metrics.byWindowsCode[102].box[3], 683);
  EXPECT_EQ(metrics.byWindowsCode[0xC4].width, 722);
  EXPECT_FALSE(metrics.byWindowsCode[103].present);
  EXPECT_EQ(metrics.byFontCode[102].width, 333);
  EXPECT_FALSE(metrics.byFontCode[0xC4].present);
}

TEST_F(AfmReaderTest, ItemsComeInAnyOrderAndSpacing) {
  const AfmMetrics& metrics =
      Afm("StartCharMetrics 2\nC 65;N A;B 1 2 3 4;WX 600\nCH <42> ; N B ; WX 5\n");
  EXPECT_EQ(metrics.byWindowsCode[65].width, 600);
  EXPECT_EQ(metrics.byWindowsCode[65].box[3], 4);
  EXPECT_EQ(metrics.byFontCode[65].width, 600);
  EXPECT_EQ(metrics.byWindowsCode[0x42].width, 5);
  EXPECT_EQ(metrics.byFontCode[0x42].width, 5);
}

TEST_F(AfmReaderTest, CodesMayBeHexadecimal) {
  const AfmMetrics& metrics =
      Afm("EncodingScheme FontSpecific\nStartCharMetrics 5\nCH <fF> ; WX 1 ; N last ;\n"
          "CH 10 ; WX 2 ; N bare ;\nCH <> ; WX 3 ;\nCH <100> ; WX 4 ;\nCH <-1> ; WX 5 ;\n"
          "EndCharMetrics\nStartKernData\nStartKernPairs 1\nKPX last bare 7\n");
  EXPECT_EQ(metrics.byFontCode[0xFF].width, 1);
  EXPECT_EQ(metrics.byFontCode[0x10].width, 2);
  EXPECT_FALSE(metrics.byFontCode[0].present);
  EXPECT_FALSE(metrics.byFontCode[1].present);
  ASSERT_EQ(metrics.kernPairCount, 1U);
  EXPECT_EQ(metrics.kernPairs[0].first, 0xFF);
  EXPECT_EQ(metrics.kernPairs[0].second, 0x10);
}

// So the names cannot grow with the file.
TEST_F(AfmReaderTest, CodeHasTheFirstOfItsNames) {
  const AfmMetrics& metrics =
      Afm("EncodingScheme FontSpecific\nStartCharMetrics 2\nC 33 ; WX 1 ; N one ;\n"
          "C 33 ; WX 2 ; N two ;\nEndCharMetrics\nStartKernData\nStartKernPairs 2\n"
          "KPX one one 7\nKPX two two 8\n");
  EXPECT_EQ(metrics.byFontCode[33].width, 2);
  ASSERT_EQ(metrics.kernPairCount, 1U);
  EXPECT_EQ(metrics.kernPairs[0].amount, 7);
}

TEST_F(AfmReaderTest, UnknownGlyphsAndCodesAreSkipped) {
  const AfmMetrics& metrics =
      Afm("StartCharMetrics 3\nC 256 ; WX 1 ; N alpha ;\nC 97 ; WX 2 ; N alpha ;\nC\nC ;;; N\n");
  for (const AfmCharacter& character : metrics.byWindowsCode) EXPECT_FALSE(character.present);
  EXPECT_EQ(metrics.byFontCode[97].width, 2);
}

TEST_F(AfmReaderTest, CharacterLinesCountOnlyInTheirSection) {
  EXPECT_FALSE(Afm("C 32 ; WX 250 ; N space ;\n").byWindowsCode[32].present);
  EXPECT_FALSE(Afm("StartCharMetrics 0\nEndCharMetrics\nC 32 ; WX 250 ; N space ;\n")
                   .byWindowsCode[32]
                   .present);
}

TEST_F(AfmReaderTest, KerningPairs) {
  const AfmMetrics& metrics =
      Afm("StartKernData\nStartKernPairs 9999\n"
          "KPX A y -92\nKPX Adieresis V 12.9\nKPX A alpha 5\nKPX alpha A 5\nKPX A\nKPX\n"
          "EndKernPairs\nKPX A B 1\nEndKernData\nKPX A B 1\n");
  ASSERT_EQ(metrics.kernPairCount, 2U);
  EXPECT_EQ(metrics.kernPairs[0].first, 'A');
  EXPECT_EQ(metrics.kernPairs[0].second, 'y');
  EXPECT_EQ(metrics.kernPairs[0].amount, -92);
  EXPECT_EQ(metrics.kernPairs[1].first, 0xC4);
  EXPECT_EQ(metrics.kernPairs[1].amount, 12);
}

TEST_F(AfmReaderTest, ManyKerningPairsAreKeptInOrder) {
  std::string text = "StartKernData\nStartKernPairs\n";
  for (int i = 0; i < 3000; ++i) text += "KPX A B " + std::to_string(i) + "\n";
  const AfmMetrics& metrics = Afm(text);
  ASSERT_EQ(metrics.kernPairCount, 3000U);
  for (int i = 0; i < 3000; ++i) ASSERT_EQ(metrics.kernPairs[i].amount, i);
}

TEST_F(AfmReaderTest, KerningPairsBeyondWhatMetricsCanCountAreLeftOut) {
  std::string text = "StartKernData\nStartKernPairs\n";
  for (int i = 0; i < 65540; ++i) text += "KPX A B 1\n";
  EXPECT_EQ(Afm(text).kernPairCount, 65535U);
}

TEST_F(AfmReaderTest, EveryBeginningIsReadAsFarAsItGoes) {
  const std::string text =
      "StartFontMetrics 2.0\nFontName Courier\nFontBBox 1 2 3 4\nStartCharMetrics 1\n"
      "C 32 ; WX 600 ; N space ; B 0 0 0 0 ;\nEndCharMetrics\nStartKernData\nStartKernPairs 1\n"
      "KPX A y -92\nEndKernPairs\nEndKernData\nEndFontMetrics\n";
  for (std::size_t length = 0; length <= text.size(); ++length) Afm(text.substr(0, length));
}

TEST_F(AfmReaderTest, Inf) {
  const AfmMetrics& metrics =
      Inf("MSMenuName (Times New) (x)\nVPStyle (T)\nSerif true\nPi true\nPCLTypefaceID 4101\n"
          "PCLStyle 1\nPCLStrokeWeight -3\n");
  EXPECT_STREQ(metrics.menuName, "Times New");
  EXPECT_EQ(metrics.style, 'T');
  EXPECT_TRUE(metrics.serif);
  EXPECT_TRUE(metrics.pi);
  EXPECT_EQ(metrics.pclTypeface, 4101);
  EXPECT_EQ(metrics.pclStyle, 1);
  EXPECT_EQ(metrics.pclStrokeWeight, -3);
}

TEST_F(AfmReaderTest, InfWithoutParentheses) {
  EXPECT_STREQ(Inf("MSMenuName Times\n").menuName, "");
  EXPECT_STREQ(Inf("MSMenuName (Times\n").menuName, "");
  EXPECT_STREQ(Inf("MSMenuName )(\n").menuName, "");
  EXPECT_EQ(Inf("VPStyle B\n").style, '\0');
  EXPECT_EQ(Inf("VPStyle (\n").style, '\0');
}

TEST_F(AfmReaderTest, FirstMenuNameAndStyleCount) {
  const AfmMetrics& metrics = Inf("MSMenuName (One)\nMSMenuName (Two)\nVPStyle (B)\nVPStyle (I)\n");
  EXPECT_STREQ(metrics.menuName, "One");
  EXPECT_EQ(metrics.style, 'B');
}

// --- Glyph names

TEST(AfmGlyphNames, KeepsCircumflexAndTildeAtTheirAsciiCodes) {
  EXPECT_EQ(WindowsCodeOfGlyph("circumflex"), 94);
  EXPECT_EQ(WindowsCodeOfGlyph("tilde"), 126);
  EXPECT_EQ(WindowsCodeOfGlyph("asciicircum"), -1);
  EXPECT_EQ(WindowsCodeOfGlyph("asciitilde"), -1);
}

TEST(AfmGlyphNames, EndsOfTheRanges) {
  EXPECT_EQ(WindowsCodeOfGlyph("space"), 32);
  EXPECT_EQ(WindowsCodeOfGlyph("quotesingle"), 39);
  EXPECT_EQ(WindowsCodeOfGlyph("zero"), 48);
  EXPECT_EQ(WindowsCodeOfGlyph("A"), 65);
  EXPECT_EQ(WindowsCodeOfGlyph("grave"), 96);
  EXPECT_EQ(WindowsCodeOfGlyph("z"), 122);
  EXPECT_EQ(WindowsCodeOfGlyph("quotesinglbase"), 130);
  EXPECT_EQ(WindowsCodeOfGlyph("OE"), 140);
  EXPECT_EQ(WindowsCodeOfGlyph("quoteleft"), 145);
  EXPECT_EQ(WindowsCodeOfGlyph("oe"), 156);
  EXPECT_EQ(WindowsCodeOfGlyph("Ydieresis"), 159);
  EXPECT_EQ(WindowsCodeOfGlyph("spacerequired"), 160);
  EXPECT_EQ(WindowsCodeOfGlyph("exclamdown"), 161);
  EXPECT_EQ(WindowsCodeOfGlyph("hyphensyllable"), 173);
  EXPECT_EQ(WindowsCodeOfGlyph("overline"), 175);
  EXPECT_EQ(WindowsCodeOfGlyph("micro"), 181);
  EXPECT_EQ(WindowsCodeOfGlyph("Agrave"), 192);
  EXPECT_EQ(WindowsCodeOfGlyph("multiply"), 215);
  EXPECT_EQ(WindowsCodeOfGlyph("ydieresis"), 255);
  EXPECT_EQ(WindowsCodeOfGlyph(""), -1);
}

TEST(AfmNumber, Tenths) {
  EXPECT_EQ(TenthsOf("12"), 120);
  EXPECT_EQ(TenthsOf("-15.57"), -155);
  EXPECT_EQ(TenthsOf("+0.9 x"), 9);
  EXPECT_EQ(TenthsOf(".5"), 5);
  EXPECT_EQ(TenthsOf("-"), 0);
  EXPECT_EQ(TenthsOf(""), 0);
  EXPECT_EQ(TenthsOf("x"), 0);
  EXPECT_EQ(TenthsOf("7."), 70);
  EXPECT_EQ(TenthsOf("99999999999999999999.9"), 327670);
  EXPECT_EQ(TenthsOf("-99999999999999999999.9"), -327670);
  EXPECT_EQ(WholeOf("-250.9"), -250);
}

}  // namespace
}  // namespace zeapi::testing
