// Builders of the job's frame. Each command is one write of the queue. The builders report failure
// only through the context's `error`; where one stops at a failed write it has closed the queue.
#pragma once

#include <array>

#include "base/compiler.h"
#include "output/ZeQue.h"

namespace zeapi {

// Writes the formatted text, without its terminator, as one write. Texts are cut at 1023 bytes; no
// command of the library comes near.
ZEAPI_PRINTF_LIKE(2, 3)
void WriteCommand(GenQueContext* ctx, const char* format, ...);

// Writes a binary sequence as one write.
template <std::size_t size>
void WriteSequence(GenQueContext* ctx, const std::array<std::uint8_t, size>& sequence) {
  GenQueWrite(sequence.data(), static_cast<std::uint32_t>(size), ctx);
}

// Whether the destination's printer takes PJL, and whether it takes bracket-K sequences.
bool TakesPjl(const GenQueContext& ctx);
bool TakesBracketK(const GenQueContext& ctx);

// The universal exit, whatever the printer takes.
void WriteUniversalExit(GenQueContext* ctx);

// Name of a storage device, ZE_DEVICE_..., as commands spell it; "" for any other number.
const char* DeviceName(std::int32_t device);

// The frame of a job for a printer that takes PJL; nothing for any other.
//
// Header: universal exit, ready message with the job's name, switch to the job's language; with copies
// also the copies command, which follows the switch on purpose.
void PjlJobHeader(GenQueContext* ctx, bool withCopies);

// How the download of a resource begins: language selection of bracket-K printers, then the header
// without copies. A printer that takes both command sets gets both. False when a write failed.
bool StartResourceJob(GenQueContext* ctx);

// Trailer: universal exit, empty ready message, optionally a reset, universal exit.
void PjlJobTrailer(GenQueContext* ctx, bool withReset);

// One storage request, ZE_RESOURCE_..., on the context's `device`. Requests 1 and 2 send the
// bracket-K form to bracket-K printers only and may send both forms; 3 and 4 send exactly one form
// to everybody.
void PjlResourceCommand(int kind, GenQueContext* ctx);

// Language selection of bracket-K printers, and the PCL copies sequence. A non-zero `channel` of
// the destination stays in force for later jobs in the same language.
void LanguageSelect(GenQueContext* ctx);

// Undoes every `channel` that has stayed in force. For tests; nothing in the library calls it.
void ResetLanguageSelectForTesting();

}  // namespace zeapi
