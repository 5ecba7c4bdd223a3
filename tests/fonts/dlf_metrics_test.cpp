// DLF fonts as Windows metrics.
#include "fonts/dlf_metrics.h"

#include "support/metrics.h"

namespace zeapi::testing {
namespace {

class DlfMetricsTest : public FontTest {
 protected:
  static std::uint32_t Convert(const DlfFile& font) {
    WriteFile("font.dlf", font.File());
    return ZeFonConvert("font.dlf", "out.pbm", nullptr, 0, 4);
  }
  static MetricsView MetricsOf(const DlfFile& font) {
    EXPECT_EQ(Convert(font), ZE_OK);
    const MetricsView view(ReadFile("out.pbm"));
    EXPECT_TRUE(view.IsWellFormed());
    return view;
  }
};

TEST_F(DlfMetricsTest, FixedPitch) {
  const DlfFile font;
  const MetricsView pbm = MetricsOf(font);
  EXPECT_EQ(pbm.Device(), "Velquist LaserPrinter");
  EXPECT_EQ(pbm.Face(), "Courier");
  EXPECT_EQ(pbm.U16(66), 0x80U);
  EXPECT_EQ(pbm.U16(68), 12U);
  EXPECT_EQ(pbm.U16(86), 30U);  // ten to the inch
  EXPECT_EQ(pbm.U16(88), 50U);
  EXPECT_EQ(pbm.U16(91), 30U);
  EXPECT_EQ(pbm.U16(93), 30U);
  EXPECT_EQ(pbm.U8(85), 255U);
  EXPECT_EQ(pbm.U8(90), 0x30U);
  EXPECT_FALSE(pbm.HasWidthTable());
  EXPECT_EQ(pbm.U32(pbm.DriverInfo() + 4), font.File().size() + 320);
  EXPECT_EQ(pbm.U32(pbm.DriverInfo() + 8), 0U);
  EXPECT_EQ(pbm.ExtendedField(2), 240);
}

TEST_F(DlfMetricsTest, ProportionalHasAWidthTable) {
  DlfFile font;
  font.flags = 2;
  font.codePage = 1004;
  font.points = 1000;
  const MetricsView pbm = MetricsOf(font);
  EXPECT_EQ(pbm.U8(85), 0U);
  EXPECT_EQ(pbm.U8(90), 0x01U);
  EXPECT_TRUE(pbm.HasWidthTable());
  EXPECT_EQ(pbm.Width(32), 30U);
  EXPECT_EQ(pbm.Width(255), 30U);
  EXPECT_EQ(pbm.Width(256), 0U);
  font.divisor = 0;
  EXPECT_EQ(MetricsOf(font).Width(65), 20U);  // half of 10 points
}

TEST_F(DlfMetricsTest, ReferencedFixedPitchHasNoSizeOfItsOwn) {
  DlfFile font;
  font.referenced = true;
  font.divisor = 6000;
  const MetricsView pbm = MetricsOf(font);
  EXPECT_EQ(pbm.U16(68), 12U);
  EXPECT_EQ(pbm.U16(86), 25U);
}

TEST_F(DlfMetricsTest, StyleOfTheNameIsAppendedInOrder) {
  struct Row {
    const char* name;
    const char* face;
    unsigned italic;
    unsigned weight;
  };
  for (const Row& row : {Row{"Courier Italic", "Courier Italic", 1, 400},
                         Row{"Courier Bold", "Courier Bold", 0, 700},
                         Row{"Courier Bold Italic", "Courier Italic Bold", 1, 700},
                         Row{"Boldface", "Boldface", 0, 400}, Row{"Bold", "Bold", 0, 400}}) {
    DlfFile font;
    font.name = row.name;
    const MetricsView pbm = MetricsOf(font);
    EXPECT_EQ(pbm.Face(), row.face);
    EXPECT_EQ(pbm.U8(80), row.italic) << row.name;
    EXPECT_EQ(pbm.U16(83), row.weight) << row.name;
  }
}

TEST_F(DlfMetricsTest, WithoutANameNothingIsWritten) {
  DlfFile font;
  font.name = "";
  EXPECT_EQ(Convert(font), ZE_OK);
  EXPECT_FALSE(std::filesystem::exists("out.pbm"));
}

TEST_F(DlfMetricsTest, ExtremeNumbersAreLimited) {
  DlfFile font;
  font.points = 0xFFFFFFFF;
  font.divisor = 0xFFFFFFFF;
  const MetricsView pbm = MetricsOf(font);
  EXPECT_EQ(pbm.U16(68), 65535U);
  EXPECT_EQ(pbm.U16(86), 65535U);
  font.divisor = 1;
  EXPECT_EQ(MetricsOf(font).U16(86), 0U);
  EXPECT_EQ(MetricsOf(font).Width(65), 0U);
}

TEST_F(DlfMetricsTest, RefusesWhatIsNoDlfFont) {
  const std::string file = DlfFile{}.File();
  for (std::size_t length = 0; length < 6 + 34; ++length) {
    WriteFile("font.dlf", file.substr(0, length));
    ASSERT_EQ(ZeFonConvert("font.dlf", "out.pbm", nullptr, 0, 4), ZE_BAD_FORMAT) << length;
  }
}

}  // namespace
}  // namespace zeapi::testing
