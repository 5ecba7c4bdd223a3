// What the output queue writes to the debug log.
#pragma once

#include "base/log.h"

namespace zeapi::queue_log {

inline constexpr char kModule[] = ".\\ZeQue";

inline constexpr LogEvent kOpenEnter{946, "+GenQueOpen"};
inline constexpr LogEvent kUseBidi{1050, "bidi handle: use velbce"};
inline constexpr LogEvent kNoBceOpen{1059, "GetProcAddress (BceOpen) FAILED!"};
inline constexpr LogEvent kNoBceClose{1064, "GetProcAddress (BceClose) FAILED!"};
inline constexpr LogEvent kNoBceStartDoc{1069, "GetProcAddress (BceStartDoc) FAILED!"};
inline constexpr LogEvent kNoBceEndDoc{1074, "GetProcAddress (BceEndDoc) FAILED!"};
inline constexpr LogEvent kNoBceWrite{1079, "GetProcAddress (BceWrite) FAILED!"};
inline constexpr LogEvent kNoBceGetPrtInfo{1084, "GetProcAddress (BceGetPrtInfo) FAILED!"};
inline constexpr LogEvent kStartDocFailed{1153, "BceStartDoc FAILED!"};
inline constexpr LogEvent kBceOpenFailed{1174, "BceOpen FAILED!"};
inline constexpr LogEvent kNoLibrary{1194, "LoadLibrary (Bce) FAILED!"};
inline constexpr LogEvent kTrySpooler{1201, "Attempt to use Win32 Printer"};
inline constexpr LogEvent kStartDocPrinterFailed{1217, "StartDocPrinter FAILED!"};
inline constexpr LogEvent kNoPrinter{1228, "OpenPrinter FAILED!"};
inline constexpr LogEvent kUseFile{1232, "Default: use file i/o"};
inline constexpr LogEvent kOpenLeave{1360, "-GenQueOpen"};

inline constexpr LogEvent kCloseEnter{1391, "+GenQueClose"};
inline constexpr LogEvent kBceEndDoc{1394, "BceEndDoc"};
inline constexpr LogEvent kBceClose{1396, "BceClose"};
inline constexpr LogEvent kFreeBidi{1400, "free velbce.dll"};
inline constexpr LogEvent kEndDocPrinter{1417, "EndDocPrinter"};
inline constexpr LogEvent kClosePrinter{1419, "ClosePrinter"};
inline constexpr LogEvent kFileClose{1424, "fclose"};
inline constexpr LogEvent kCloseLeave{1509, "-GenQueClose"};

inline constexpr LogEvent kWriteEnter{1569, "+GenQueWrite"};
inline constexpr LogEvent kPrinterWrite{1584, "WritePrinter"};
inline constexpr LogEvent kPrinterWriteFailed{1590, "WritePrinter FAILED!"};
inline constexpr LogEvent kFileWrite{1597, "fwrite"};
inline constexpr LogEvent kFileWriteFailed{1600, "fwrite FAILED!"};
inline constexpr LogEvent kWriteLeave{1761, "-GenQueWrite"};

inline void Write(const LogEvent& event) { ZeLog(kModule, event.line, event.message); }

}  // namespace zeapi::queue_log
