// Extracts an archive below the current directory: archive_extractor ARCHIVE. Ends with the result.

#include "zeapi.h"

int main(int count, char** arguments) {
  return count == 2 ? static_cast<int>(ZeZipExplode(arguments[1], nullptr, nullptr)) : 255;
}
