#include "fonts/pfm_writer.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <tuple>

#include "base/byte_writer.h"
#include "fonts/pfm_layout.h"
#include "platform/files.h"

namespace zeapi {
namespace {

constexpr std::uint16_t kExtensionSize = 30;
constexpr std::uint16_t kExtendedMetricsSize = 52;
constexpr std::uint16_t kDriverInfoSize = 22;
constexpr std::size_t kMostKernPairs = 65535;
constexpr int kDefaultPoints = 12;

// Relative to the extension.
constexpr std::size_t kExtendedMetrics = 2;
constexpr std::size_t kExtentTable = 6;
constexpr std::size_t kPairKernTable = 14;
constexpr std::size_t kDriverInfo = 22;

class PfmFile {
 public:
  explicit PfmFile(const WindowsMetrics& metrics) : metrics_(metrics) {}

  std::vector<std::uint8_t> Write() {
    Header();
    if (metrics_.hasWidths) {
      Table(metrics_.widths);
      out_.U16Le(0);
    }
    const std::size_t extension = out_.position();
    out_.U16Le(kExtensionSize);
    out_.PadTo(extension + kExtensionSize);
    // The names come before the tables: readers want the face name in the first 2048 bytes.
    Here(extension + kExtendedMetrics);
    ExtendedMetrics();
    Here(kPfmDeviceOffset);
    out_.Text(metrics_.device);
    Here(kPfmFaceOffset);
    out_.Text(metrics_.face);
    Here(extension + kDriverInfo);
    DriverInfo();
    if (metrics_.hasExtents) {
      Here(extension + kExtentTable);
      Table(metrics_.extents);
    }
    if (!metrics_.kernPairs.empty()) {
      Here(extension + kPairKernTable);
      KernPairs();
    }
    out_.PadTo(kPfmShortestFile);
    Here(kPfmSizeOffset);
    return out_.Take();
  }

 private:
  // Stores the offset of what comes next.
  void Here(std::size_t field) { out_.PatchU32Le(field, out_.position()); }

  void Header() {
    const WindowsMetrics& m = metrics_;
    out_.U16Le(0x0100);  // version
    out_.U32Le(0);       // size
    out_.TextField(m.copyright, kPfmCopyrightSize);
    out_.U16Le(m.type);
    out_.U16Le(m.points);
    out_.U16Le(m.verticalResolution);
    out_.U16Le(m.horizontalResolution);
    out_.U16Le(m.ascent);
    out_.U16Le(m.internalLeading);
    out_.U16Le(m.externalLeading);
    out_.U8(m.italic ? 1 : 0);
    out_.U8(0);  // underlined
    out_.U8(0);  // struck out
    out_.U16Le(m.weight);
    out_.U8(m.characterSet);
    out_.U16Le(m.pixelWidth);
    out_.U16Le(m.pixelHeight);
    out_.U8(static_cast<std::uint8_t>(m.family | (m.fixedPitch ? 0 : 1)));
    out_.U16Le(m.averageWidth);
    out_.U16Le(m.maximumWidth);
    out_.U8(m.first);
    out_.U8(m.last);
    out_.U8(static_cast<std::uint8_t>(m.defaultCharacter - m.first));
    out_.U8(static_cast<std::uint8_t>(m.breakCharacter - m.first));
    out_.U16Le(0);  // bytes of a bitmap's row
    out_.U32Le(0);  // device
    out_.U32Le(0);  // face
    out_.U32Le(0);  // bits
    out_.U32Le(0);
  }

  void Table(const std::array<std::uint16_t, 256>& table) {
    for (unsigned code = metrics_.first; code <= metrics_.last; ++code) out_.U16Le(table[code]);
  }

  void ExtendedMetrics() {
    const ExtendedTextMetrics& e = metrics_.extended;
    out_.U16Le(kExtendedMetricsSize);
    for (const std::int16_t value : {e.pointSize,
                                     e.orientation,
                                     e.masterHeight,
                                     e.minScale,
                                     e.maxScale,
                                     e.masterUnits,
                                     e.capHeight,
                                     e.xHeight,
                                     e.lowerCaseAscent,
                                     e.lowerCaseDescent,
                                     e.slant,
                                     e.superScript,
                                     e.subScript,
                                     e.superScriptSize,
                                     e.subScriptSize,
                                     e.underlineOffset,
                                     e.underlineWidth,
                                     e.doubleUpperOffset,
                                     e.doubleLowerOffset,
                                     e.doubleUpperWidth,
                                     e.doubleLowerWidth,
                                     e.strikeOutOffset,
                                     e.strikeOutWidth}) {
      out_.S16Le(value);
    }
    out_.U16Le(static_cast<std::uint16_t>(KernPairCount()));
    out_.U16Le(0);  // tracks
  }

  void DriverInfo() {
    if (!metrics_.postScriptName.empty()) {
      out_.Text(metrics_.postScriptName);
      return;
    }
    const std::uint32_t selection = out_.position() + kDriverInfoSize;
    out_.U16Le(kDriverInfoSize);
    out_.U16Le(1);  // version
    out_.U32Le(metrics_.printerMemory);
    out_.U32Le(metrics_.selection.empty() ? 0 : selection);
    out_.U16Le(metrics_.translationClass);
    out_.U32Le(
        0);  // a translation table of the font's own: its offset, length, first and last code
    out_.U16Le(0);
    out_.U8(0);
    out_.U8(0);
    if (!metrics_.selection.empty()) out_.Text(metrics_.selection);
    if (!metrics_.shortName.empty()) {
      out_.Text(metrics_.shortName);
      out_.Text(metrics_.symbolSet);
    }
  }

  std::size_t KernPairCount() const { return std::min(metrics_.kernPairs.size(), kMostKernPairs); }

  // Drivers search the pairs by the word that the two codes make, the first code in its low byte.
  void KernPairs() {
    std::vector<AfmKernPair> pairs = metrics_.kernPairs;
    pairs.resize(KernPairCount());
    const auto key = [](const AfmKernPair& pair) {
      return std::tuple(pair.second, pair.first, pair.amount);
    };
    std::sort(pairs.begin(), pairs.end(),
              [&](const AfmKernPair& a, const AfmKernPair& b) { return key(a) < key(b); });
    out_.U16Le(static_cast<std::uint16_t>(pairs.size()));
    for (const AfmKernPair& pair : pairs) {
      out_.U8(pair.first);
      out_.U8(pair.second);
      out_.S16Le(pair.amount);
    }
  }

  const WindowsMetrics& metrics_;
  ByteWriter out_;
};

template <typename Number>
Number Clamped(std::int64_t value) {
  using Limits = std::numeric_limits<Number>;
  return static_cast<Number>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

}  // namespace

std::uint16_t ToU16(std::int64_t value) { return Clamped<std::uint16_t>(value); }
std::int16_t ToS16(std::int64_t value) { return Clamped<std::int16_t>(value); }

int DotsAtDefaultSize(int units, int masterUnits) {
  constexpr std::int64_t kDots = kDefaultPoints * kMetricsResolution / 72;
  const std::int64_t scaled = std::int64_t{units} * kDots * 2;
  return static_cast<int>((scaled + (scaled < 0 ? -masterUnits : masterUnits)) /
                          (std::int64_t{masterUnits} * 2));
}

void SetDefaultSize(WindowsMetrics* metrics) {
  const int em = metrics->extended.masterUnits;
  metrics->points = kDefaultPoints;
  metrics->hasExtents = true;
  metrics->extended.masterHeight = metrics->extended.masterUnits;
  // A quarter of a point to 999.75 points.
  metrics->extended.minScale = 1;
  metrics->extended.maxScale = 4165;
  for (unsigned code = 0; code < 256; ++code) {
    metrics->widths[code] = ToU16(DotsAtDefaultSize(metrics->extents[code], em));
  }
  SetWidthSummary(metrics->widths, metrics);
  SetPixelWidth(metrics->maximumWidth, metrics);
}

void SetPixelWidth(std::uint16_t fixedWidth, WindowsMetrics* metrics) {
  metrics->pixelWidth = metrics->fixedPitch ? fixedWidth : std::uint16_t{0};
  metrics->hasWidths = metrics->pixelWidth == 0;
}

void SetWidthSummary(const std::array<std::uint16_t, 256>& table, WindowsMetrics* metrics) {
  std::uint32_t sum = 0;
  std::uint32_t count = 0;
  metrics->maximumWidth = 0;
  for (unsigned code = metrics->first; code <= metrics->last; ++code) {
    if (table[code] == 0) continue;
    sum += table[code];
    ++count;
    metrics->maximumWidth = std::max(metrics->maximumWidth, table[code]);
  }
  // Cut off: equal to the maximum only where all are, for so readers know a fixed-pitch font.
  metrics->averageWidth = count == 0 ? std::uint16_t{0} : static_cast<std::uint16_t>(sum / count);
}

std::vector<std::uint8_t> PfmBytes(const WindowsMetrics& metrics) {
  return PfmFile(metrics).Write();
}

Result WritePfm(const char* path, const WindowsMetrics& metrics) {
  const std::vector<std::uint8_t> bytes = PfmBytes(metrics);
  std::FILE* stream = platform::OpenStream(path, "wb");
  if (stream == nullptr) return ZE_OPEN_FAILED;
  const bool written = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
  const bool closed = std::fclose(stream) == 0;
  return written && closed ? ZE_OK : ZE_COPY_FAILED;
}

}  // namespace zeapi
