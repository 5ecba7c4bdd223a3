#include "fonts/convert.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "base/stream.h"
#include "files/file_utilities.h"
#include "files/regular_file.h"
#include "fonts/afm_reader.h"
#include "fonts/afm_writer.h"
#include "fonts/dlf_metrics.h"
#include "fonts/font_stream.h"
#include "fonts/intellifont_metrics.h"
#include "fonts/pcl_metrics.h"
#include "fonts/pcl_naming.h"
#include "fonts/pfm_reader.h"
#include "fonts/replace_extension.h"
#include "fonts/type1_metrics.h"
#include "platform/files.h"

namespace zeapi {
namespace {

struct Conversion {
  const char* fontFile;
  const char* outputFile;  // empty: the default name
  const ZeFontInfo* option1;
  std::uint32_t option2;
  std::uint32_t number;
};

std::string OutputName(const Conversion& conversion, const char* extension) {
  if (conversion.outputFile[0] != '\0') return conversion.outputFile;
  return ReplaceExtension(conversion.fontFile, extension).text;
}

// Of conversions 1 and 2: a name without a dot is a folder for the file. A name of a file is that of
// the one file there is, and gives those of two their stem.
std::string Type1OutputName(const Conversion& conversion, const char* extension) {
  const std::string_view output = conversion.outputFile;
  const bool isFile = output.find('.') != std::string_view::npos;
  if (isFile && conversion.number == ZE_CONVERT_AFM_TO_PFM_AND_PSM)
    return ReplaceExtension(output, extension).text;
  if (output.empty() || isFile) return OutputName(conversion, extension);
  const std::string name = ReplaceExtension(conversion.fontFile, extension).text;
  const std::size_t lastMark = name.find_last_of("\\/:");
  const std::string file = lastMark == std::string::npos ? name : name.substr(lastMark + 1);
  const bool needsMark = std::string_view("\\/:").find(output.back()) == std::string_view::npos;
  return std::string(output) + (needsMark ? "\\" : "") + file;
}

Result ReadType1(const char* fontFile, AfmMetricsPtr* metrics) {
  const PathText infFile = ReplaceExtension(fontFile, "INF");
  if (!FilExists(infFile.text)) return ZE_FILE_NOT_FOUND;
  const Stream afm(OpenRegularFile(fontFile, "r"));
  const Stream inf(OpenRegularFile(infFile.text, "r"));
  if (afm == nullptr || inf == nullptr) return ZE_OPEN_FAILED;
  *metrics = NewAfmMetrics(fontFile);
  if (*metrics == nullptr) return ZE_OUT_OF_MEMORY;
  const Result afmRead = ReadAfm(afm.get(), metrics->get());
  return afmRead != ZE_OK ? afmRead : ReadInf(inf.get(), metrics->get());
}

Result ConvertType1(const Conversion& conversion) {
  AfmMetricsPtr afm;
  const Result read = ReadType1(conversion.fontFile, &afm);
  if (read != ZE_OK) return read;
  WindowsMetrics metrics;
  const Result described = DescribeType1(*afm, &metrics);
  if (described != ZE_OK) return described;
  const Result written = WritePfm(Type1OutputName(conversion, "PFM").c_str(), metrics);
  if (written != ZE_OK || conversion.number == ZE_CONVERT_AFM_TO_PFM) return written;
  AdjustToPclDevice(*afm, &metrics);
  return WritePfm(Type1OutputName(conversion, "PSM").c_str(), metrics);
}

Result ConvertPfm(const Conversion& conversion) {
  PfmMetrics metrics;
  Stream input(OpenRegularFile(conversion.fontFile, "rb"));
  if (input == nullptr || !ReadPfmMetrics(input.get(), &metrics)) return ZE_BAD_FORMAT;
  input.reset();
  Stream output(platform::OpenStream(OutputName(conversion, "AFM").c_str(), "w"));
  if (output == nullptr) return ZE_OPEN_FAILED;
  const bool written = WriteAfm(metrics, output.get()) && std::ferror(output.get()) == 0;
  const bool closed = std::fclose(output.release()) == 0;
  return written && closed ? ZE_OK : ZE_WRITE_FAILED;
}

Result ConvertDlf(const Conversion& conversion) {
  Stream input(OpenRegularFile(conversion.fontFile, "rb"));
  if (input == nullptr) return ZE_OPEN_FAILED;
  DlfFont font;
  const std::uint32_t fileSize = StreamSize(input.get());
  if (fileSize == 0 || !ReadDlfFont(input.get(), &font)) return ZE_BAD_FORMAT;
  input.reset();
  WindowsMetrics metrics;
  // A font without a name leaves no trace.
  if (!DescribeDlf(font, fileSize, &metrics)) return ZE_OK;
  return WritePfm(OutputName(conversion, "PBM").c_str(), metrics);
}

Result ConvertPcl(const Conversion& conversion) {
  Stream input(OpenRegularFile(conversion.fontFile, "rb"));
  if (input == nullptr) return ZE_OPEN_FAILED;
  PclSoftFont softFont;
  if (!ReadPclSoftFont(input.get(), &softFont)) return ZE_BAD_FORMAT;
  input.reset();
  WindowsMetrics metrics;
  if (!DescribePclSoftFont(softFont, &metrics)) return ZE_BAD_FORMAT;
  if (conversion.number == ZE_CONVERT_PCL_TO_PFM_NAMED) {
    metrics.shortName = ShortFontName(softFont.font.raw).text;
    metrics.symbolSet = SymbolSetCode(softFont.font.descriptor.symbolSet).text;
  }
  return WritePfm(OutputName(conversion, "PFM").c_str(), metrics);
}

// A text of a caller's record, which may lack its terminator.
template <std::size_t size>
std::string_view FieldText(const char (&field)[size]) {
  return {field, strnlen(field, size)};
}

Result ConvertIntellifont(const Conversion& conversion) {
  const ZeFontInfo* font = conversion.option1;
  if (font == nullptr || (conversion.option2 != 2 && conversion.option2 != 4))
    return ZE_INVALID_ARGUMENT;
  ShortName shortName = {};
  if (conversion.number == ZE_CONVERT_TFM_TO_PFM_NAMED) {
    const Stream pcl = OpenPclFont(conversion.fontFile);
    if (pcl == nullptr) return ZE_OPEN_FAILED;
    PclFont pclFont;
    if (!ReadPclFont(pcl.get(), &pclFont)) return ZE_BAD_FORMAT;
    shortName = ShortFontName(pclFont.raw);
  }
  const std::string metricsFile(
      FieldText(conversion.option2 == 2 ? font->companionFile : font->metricsFile));
  const std::string_view symbolSet = FieldText(font->symbolSet);
  IntellifontMetrics intellifont;
  Stream input(OpenRegularFile(metricsFile.c_str(), "rb"));
  if (input == nullptr || !ReadIntellifont(input.get(), symbolSet, &intellifont))
    return ZE_BAD_FORMAT;
  input.reset();
  WindowsMetrics metrics;
  if (!DescribeIntellifont(intellifont, {font->printerMemory, symbolSet, shortName.text}, &metrics))
    return ZE_BAD_FORMAT;
  return WritePfm(OutputName(conversion, "PFM").c_str(), metrics);
}

}  // namespace

Result FonConvert(const char* fontFile, const char* outputFile, const ZeFontInfo* option1,
                  std::uint32_t option2, std::uint32_t conversion) {
  const char* output = outputFile != nullptr ? outputFile : "";
  if (fontFile == nullptr || std::strlen(fontFile) > ZE_MAX_NAME) return ZE_INVALID_ARGUMENT;
  if (std::strlen(output) > ZE_MAX_NAME) return ZE_INVALID_ARGUMENT;
  if (!FilExists(fontFile)) return ZE_FILE_NOT_FOUND;
  const Conversion call = {fontFile, output, option1, option2, conversion};
  switch (conversion) {
    case ZE_CONVERT_AFM_TO_PFM:
    case ZE_CONVERT_AFM_TO_PFM_AND_PSM:
      return ConvertType1(call);
    case ZE_CONVERT_PFM_TO_AFM:
      return ConvertPfm(call);
    case ZE_CONVERT_DLF_TO_PBM:
      return ConvertDlf(call);
    case ZE_CONVERT_PCL_TO_PFM:
    case ZE_CONVERT_PCL_TO_PFM_NAMED:
      return ConvertPcl(call);
    case ZE_CONVERT_TFM_TO_PFM:
    case ZE_CONVERT_TFM_TO_PFM_NAMED:
      return ConvertIntellifont(call);
    default:
      return ZE_INVALID_ARGUMENT;
  }
}

}  // namespace zeapi
