#include "export_call.h"

namespace {

char buffer[1024];
ZeApiInfo info;

}  // namespace

// A new export gets one line here, in alphabetical order.
const std::vector<ExportCall>& ExportCalls() {
  static const std::vector<ExportCall> calls = {
      // clang-format off
      //          export           bytes  answers              called with
      EXPORT_CALL(ZeDatSendFile,      16, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, 0U),
      EXPORT_CALL(ZeDatSendString,    16, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, 0U),
      EXPORT_CALL(ZeDemDownload,      16, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, nullptr),
      EXPORT_CALL(ZeDemFind,          16, nullptr,             nullptr, nullptr, 0U, 0U),
      EXPORT_CALL(ZeFilBackup,         8, ZE_BAD_FORMAT,       "no such file", buffer),
      EXPORT_CALL(ZeFilChecksum,      16, ZE_INVALID_ARGUMENT, nullptr, 0, 0U, nullptr),
      EXPORT_CALL(ZeFilCopy,           8, ZE_FILE_NOT_FOUND,   "no such file", "copy"),
      EXPORT_CALL(ZeFilExists,         4, 0U,                  "no such file"),
      EXPORT_CALL(ZeFilMakePath,       8, ZE_UNUSABLE,         "", buffer),
      EXPORT_CALL(ZeFilModify,        12, ZE_INVALID_ARGUMENT, "no such file", 0U, nullptr),
      EXPORT_CALL(ZeFilQuerySize,      4, 0U,                  "no such file"),
      EXPORT_CALL(ZeFonConvert,       20, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, 0U, 0U),
      EXPORT_CALL(ZeFonDownload,      16, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, 0),
      EXPORT_CALL(ZeFonFind,          24, nullptr,             nullptr, nullptr, 0U, 0U, 0U, 0U),
      EXPORT_CALL(ZeFonFind2,         28, nullptr,             nullptr, nullptr, 0U, 0U, 0U, 0U, nullptr),
      EXPORT_CALL(ZeFonFindFree,       4, Nothing{},           nullptr),
      EXPORT_CALL(ZeFonQueryInfo,     16, ZE_INVALID_ARGUMENT, nullptr, nullptr, 0U, 0U),
      EXPORT_CALL(ZeFreeJobAccount,    4, Nothing{},           nullptr),
      EXPORT_CALL(ZeFreeOptionInfo,    4, Nothing{},           nullptr),
      EXPORT_CALL(ZeGenQueryAdapters, 16, ZE_OK,               0U, 0U, buffer, 1024U),
      EXPORT_CALL(ZeGenQueryApiInfo,   4, Nothing{},           &info),
      EXPORT_CALL(ZeGenQueryQueues,   16, ZE_OK,               0U, 0U, buffer, 1024U),
      EXPORT_CALL(ZeGenResource,      16, ZE_INVALID_ARGUMENT, 0, nullptr, nullptr, 0),
      EXPORT_CALL(ZeMacActivate,      12, ZE_INVALID_ARGUMENT, nullptr, nullptr, 0U),
      EXPORT_CALL(ZeMacCreate,        16, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, nullptr),
      EXPORT_CALL(ZeMacDelete,         8, ZE_INVALID_ARGUMENT, nullptr, nullptr),
      EXPORT_CALL(ZeMacDownload,      24, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, nullptr, 0, 0U),
      EXPORT_CALL(ZeMacFind,          20, nullptr,             nullptr, nullptr, 0U, 0U, 0U),
      EXPORT_CALL(ZeMacValidate,      12, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr),
      EXPORT_CALL(ZeMemFree,           4, Nothing{},           nullptr),
      EXPORT_CALL(ZeNetGetType,        4, 0U,                  1U),
      EXPORT_CALL(ZeParseJobAccountingAlert, 4, nullptr,       nullptr),
      EXPORT_CALL(ZeParseOptionInfo,   4, nullptr,             nullptr),
      EXPORT_CALL(ZeStrCpyFile,        8, buffer,              buffer, "c:\\folder\\name"),
      EXPORT_CALL(ZeStrCpyPath,        8, buffer,              buffer, "c:\\folder\\name"),
      EXPORT_CALL(ZeZipExplode,       12, ZE_FILE_NOT_FOUND,   "no such archive", nullptr, nullptr),
      EXPORT_CALL(ZeZipImplode,       12, ZE_UNSUPPORTED,      "no such archive", nullptr, nullptr),
      // clang-format on
  };
  return calls;
}
