// Type 1 font metrics: an AFM file and the INF file that accompanies it.
#pragma once

#include <cstdint>
#include <cstdio>

#include "base/c_heap.h"
#include "base/result.h"

namespace zeapi {

// Metrics of one character, in thousandths of the point size.
struct AfmCharacter {
  bool present;
  std::int16_t width;
  std::int16_t box[4];  // left, bottom, right, top
};

struct AfmKernPair {
  std::uint8_t first;  // Windows codes, or the font's where it has an encoding of its own
  std::uint8_t second;
  std::int16_t amount;
};

// What is known about a font after its files were read. Measures in thousandths of the point size,
// those under the baseline negative, as the file has them.
struct AfmMetrics {
  int firstCharacter;
  int lastCharacter;
  int weight;          // 250, 400 or 700
  char fontFile[261];  // path of the AFM file
  char fontName[80];
  char fullName[80];
  char symbolSet[6];
  bool standardEncoding;  // also when the file names no encoding
  bool fixedPitch;
  int italicAngle;  // tenths of a degree
  int box[4];       // of the font: left, bottom, right, top
  int underlinePosition;
  int underlineThickness;
  int capHeight;
  int ascender;
  int descender;

  AfmCharacter byWindowsCode[256];  // by glyph name
  AfmCharacter byFontCode[256];     // by the font's own encoding
  AfmKernPair* kernPairs;           // released by AfmMetricsFree
  std::uint32_t kernPairCount;

  // From the INF file.
  char menuName[80];
  char style;  // first letter of VPStyle, 0 when there is none
  bool serif;
  bool pi;
  int pclTypeface;
  int pclStyle;
  int pclStrokeWeight;
};

struct AfmMetricsFree {
  void operator()(AfmMetrics* metrics) const {
    std::free(metrics->kernPairs);
    std::free(metrics);
  }
};
using AfmMetricsPtr = std::unique_ptr<AfmMetrics, AfmMetricsFree>;

// A record of the font in this file with nothing read yet; null when there is no memory.
AfmMetricsPtr NewAfmMetrics(const char* fontFile);

// Reads an AFM file opened as text up to "EndFontMetrics" or its end. What it does not know it
// skips. Returns 0; 11 when there is no memory for the kerning pairs; 27 when a read fails.
Result ReadAfm(std::FILE* stream, AfmMetrics* metrics);

// Like ReadAfm, but skips the characters and kerning pairs too, which are most of a file.
Result ReadAfmHeader(std::FILE* stream, AfmMetrics* metrics);

// Reads an INF file opened as text. The first menu name and style count. Returns 0, or 27 when a
// read fails.
Result ReadInf(std::FILE* stream, AfmMetrics* metrics);

}  // namespace zeapi
