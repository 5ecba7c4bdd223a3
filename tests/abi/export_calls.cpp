#include "export_call.h"

namespace {

char buffer[1024];
ZeApiInfo info;

// For an export that answers with an empty string of the library's own: where it is cannot be known.
ExportCall EmptyText(ExportCall row) {
  row.answerMask = 0;
  row.call = [call = row.call](const void* entry) -> std::uintptr_t {
    return *reinterpret_cast<const char*>(call(entry)) == '\0' ? 0 : 1;
  };
  return row;
}

}  // namespace

// A new export gets one line here, in alphabetical order.
const std::vector<ExportCall>& ExportCalls() {
  static const std::vector<ExportCall> calls = {
      // clang-format off
      //          export           bytes  answers              called with
      EXPORT_CALL(ZeDatCloseFile,      4, ZE_DAT_BAD_HANDLE,   3),
      EXPORT_CALL(ZeDatGetFirstKey,    8, ZE_DAT_BAD_HANDLE,   0, nullptr),
      EXPORT_CALL(ZeDatGetNextKey,     8, ZE_DAT_BAD_HANDLE,   0, nullptr),
      EXPORT_CALL(ZeDatOpenFile,      12, ZE_DAT_INVALID,      "no such file", 0U, 2),
      EXPORT_CALL(ZeDatQueryCount,    12, ZE_DAT_OPEN_FAILED,  "no such file", buffer, 2),
      EXPORT_CALL(ZeDatQueryCounts,   12, ZE_DAT_BAD_HANDLE,   "no such file", nullptr, 2),
      EXPORT_CALL(ZeDatQueryFiles,    12, nullptr,             nullptr, 1U, nullptr),
      EXPORT_CALL(ZeDatQueryFilesFree, 4, Nothing{},           nullptr),
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
      EXPORT_CALL(ZeIniClose,          4, 0U,                  nullptr),
      EXPORT_CALL(ZeIniDelete,        16, 0U,                  nullptr, "s", "k", "v"),
      EXPORT_CALL(ZeIniOpen,           4, nullptr,             "no such file"),
      EXPORT_CALL(ZeIniOpen2,          8, nullptr,             "no such file", 7U),
      EmptyText(EXPORT_CALL(ZeIniRead, 12, nullptr,   nullptr, "s", "k")),
      EXPORT_CALL(ZeIniRead2,         28, ZE_INVALID_ARGUMENT, nullptr, "s", "k", nullptr, buffer, 9U, nullptr),
      EXPORT_CALL(ZeIniWrite,         16, 0U,                  nullptr, "s", "k", "v"),
      EXPORT_CALL(ZeIniWriteAll,      16, 0U,                  nullptr, "s", "k", "v"),
      EXPORT_CALL(ZeMacActivate,      12, ZE_INVALID_ARGUMENT, nullptr, nullptr, 0U),
      EXPORT_CALL(ZeMacCreate,        16, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, nullptr),
      EXPORT_CALL(ZeMacDelete,         8, ZE_INVALID_ARGUMENT, nullptr, nullptr),
      EXPORT_CALL(ZeMacDownload,      24, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr, nullptr, 0, 0U),
      EXPORT_CALL(ZeMacFind,          20, nullptr,             nullptr, nullptr, 0U, 0U, 0U),
      EXPORT_CALL(ZeMacValidate,      12, ZE_INVALID_ARGUMENT, nullptr, nullptr, nullptr),
      EXPORT_CALL(ZeMemFree,           4, Nothing{},           nullptr),
      EXPORT_CALL(ZeNetGetType,        4, 0U,                  1U),
      EXPORT_CALL(ZeOpcGetFileName,    8, 1U,                  7, buffer),
      EXPORT_CALL(ZeOpcGetMaxEditLength, 8, 0,                 nullptr, 7),
      EXPORT_CALL(ZeOpcGetPageDefaults, 16, -2,                nullptr, 1, buffer, 1024),
      EXPORT_CALL(ZeOpcGetPageOmVars, 16, -2,                  nullptr, 1, buffer, 1024),
      EXPORT_CALL(ZeOpcGetSpinControlLimits, 20, Nothing{},    nullptr, 1, nullptr, nullptr, nullptr),
      EXPORT_CALL(ZeOpcGetTextListing, 20, -2,                 nullptr, 1, 0, nullptr, 0),
      EXPORT_CALL(ZeOpcRegisterCfg,    8, nullptr,             7, "no such folder"),
      EXPORT_CALL(ZeOpcUnregisterCfg,  4, 0U,                  nullptr),
      EXPORT_CALL(ZeQsfClose,          4, Nothing{},           nullptr),
      EXPORT_CALL(ZeQsfGetVariables,  16, ZE_INVALID_ARGUMENT, nullptr, 1U, nullptr, nullptr),
      EXPORT_CALL(ZeQsfIniGetSection, 20, ZE_INVALID_ARGUMENT, nullptr, 1U, 1U, nullptr, nullptr),
      EXPORT_CALL(ZeQsfOpen,          12, ZE_INVALID_ARGUMENT, "no such file", 1U, nullptr),
      EXPORT_CALL(ZeParseJobAccountingAlert, 4, nullptr,       nullptr),
      EXPORT_CALL(ZeParseOptionInfo,   4, nullptr,             nullptr),
      EXPORT_CALL(ZeStrCpyFile,        8, buffer,              buffer, "c:\\folder\\name"),
      EXPORT_CALL(ZeStrCpyPath,        8, buffer,              buffer, "c:\\folder\\name"),
      EXPORT_CALL(ZeWebGetCGIURL,     24, ZE_INVALID_ARGUMENT, 1U, 2U, 0U, 0x409U, buffer, 1024U),
      EXPORT_CALL(ZeWebGetURL,        24, ZE_UNKNOWN_TYPE,     2, 1, 0, buffer, 1024U, nullptr),
      EXPORT_CALL(ZeZipExplode,       12, ZE_FILE_NOT_FOUND,   "no such archive", nullptr, nullptr),
      EXPORT_CALL(ZeZipImplode,       12, ZE_UNSUPPORTED,      "no such archive", nullptr, nullptr),
      // clang-format on
  };
  return calls;
}
