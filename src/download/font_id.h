// Commands to the printer that give a downloaded font its ID.
#pragma once

#include "output/ZeQue.h"

namespace zeapi {

enum class FontIdForm {
  kPcl,            // ESC "*c", the decimal ID, "D"
  kPpds,           // ESC "=", in the form that the ID's size asks for
  kPpdsAlternate,  // ESC "=", the form of Type 1 fonts
};

// Writes the font ID command with the destination's `resourceId`. False when a write of the job
// has failed.
bool FontIdCommand(FontIdForm form, GenQueContext* ctx);

// Writes the PCL command that makes the font permanent.
void MakeFontPermanent(GenQueContext* ctx);

}  // namespace zeapi
