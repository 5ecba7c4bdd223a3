// The senders of font downloads, one a road from a font file to an open queue. None sends anything
// of the font after a write that failed.
#pragma once

#include "download/font_id.h"

namespace zeapi {

// PCL bitmap fonts, and DLF fonts with the PPDS form of the ID: the ID command, the file as it is
// and, with the PCL form, the make-permanent command. A job in PCL XL is checked first: the file has
// to begin with a PCL font header. Returns 0, 2 (file does not open), 3 (no font header), 6, 7, 11
// or 14.
Result SendPclFont(const char* path, FontIdForm form, GenQueContext* ctx);

// Like SendPclFont with the PCL form, for scalable fonts, but the ID command is three writes and a
// file that does not open gives 3.
Result SendScalableFont(const char* path, GenQueContext* ctx);

// Type 1 fonts for PostScript: an exit-server header that ends with a zero byte, the font, "%!" and
// the end of transmission. A segmented file (PFB) loses its segment headers and has its binary
// segments turned into hexadecimal text; where its segments break off, the job ends as if the font
// did. Returns 0, 3 (file does not open), 6, 7, 11 or 14.
Result SendType1Font(const char* path, bool segmented, GenQueContext* ctx);

// Type 1 fonts for PPDS: the alternate ID command and so many bytes of the file in blocks. Returns
// 0, 2 (file does not open), 6 (it is shorter, or its size is not known), 11, or 14 (a block was
// refused). A refused ID command shows in `ctx->error` alone.
Result SendPpdsBlocks(const char* path, std::uint32_t fileSize, GenQueContext* ctx);

}  // namespace zeapi
