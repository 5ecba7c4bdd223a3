#include "archive/archive_status.h"

namespace zeapi {
namespace {

struct Row {
  int first;
  int last;
  Result result;
};

constexpr Row kRows[] = {
    {0, 1, ZE_OK},
    {2, 3, ZE_BAD_FORMAT},
    {4, 8, ZE_OUT_OF_MEMORY},
    {kArchiveCannotOpen, kArchiveCannotOpen, ZE_OPEN_FAILED},
    {kArchiveBadParameter, kArchiveBadParameter, ZE_INVALID_ARGUMENT},
    {kArchiveNothingFound, kArchiveNothingFound, ZE_FILE_NOT_FOUND},
    {kArchiveCannotCreate, kArchiveCannotCreate, ZE_SHARING_VIOLATION},
    {kArchiveDiskFull, kArchiveDiskFull, ZE_DISK_FULL},
    {kArchiveUnexpectedEnd, kArchiveUnexpectedEnd, ZE_UNEXPECTED_END},
};

}  // namespace

Result ResultOf(ArchiveStatus status) {
  for (const Row& row : kRows) {
    if (row.first <= status && status <= row.last) return row.result;
  }
  return ZE_COPY_FAILED;
}

}  // namespace zeapi
