"""Byte streams and log lines of jobs, as the library has to make them."""

PJL, BRACKET_K = 0x08, 0x10
PCL = 5

INVALID_ARGUMENT, OPEN_FAILED, PRINTER_WRITE_FAILED, UNUSABLE = 1, 3, 14, 26

UNIVERSAL_EXIT = b"\x1b%-12345X"
ENTER_PCL = b"@PJL ENTER LANGUAGE = PCL\n"
CLEAR_DISPLAY = b'@PJL RDYMSG DISPLAY = ""\n'
RESET = b"@PJL RESET\n"
BLOCK = 2048


def ready(text):
    return b'@PJL RDYMSG DISPLAY = "' + text + b'"\n'


def string_job(name, data):
    """The writes of ZeDatSendString to a PJL printer that speaks PCL."""
    return [UNIVERSAL_EXIT, ready(name), ENTER_PCL, data,
            UNIVERSAL_EXIT, CLEAR_DISPLAY, UNIVERSAL_EXIT]


def file_job(name, data, copies):
    """The writes of ZeDatSendFile to a PJL printer that speaks PCL.

    The end of the file shows only when a read goes beyond it, so that after a whole last block there
    is a write of nothing.
    """
    blocks = [data[at:at + BLOCK] for at in range(0, len(data) + 1, BLOCK)]
    return [UNIVERSAL_EXIT, ready(name), ENTER_PCL, b"@PJL SET COPIES = %d\n" % copies, *blocks,
            UNIVERSAL_EXIT, CLEAR_DISPLAY, RESET, UNIVERSAL_EXIT]


def format_job(device):
    """The writes of ZeGenResource, format, to a PJL printer that speaks PCL; without a job name."""
    return [UNIVERSAL_EXIT, ENTER_PCL, UNIVERSAL_EXIT, b"@PJL LFORMAT DEVICE = " + device + b"\n",
            UNIVERSAL_EXIT, CLEAR_DISPLAY, UNIVERSAL_EXIT]


_LOG_LINES = {
    "+GenQueOpen": 946,
    "bidi handle: use velbce": 1050,
    "GetProcAddress (BceOpen) FAILED!": 1059,
    "GetProcAddress (BceClose) FAILED!": 1064,
    "GetProcAddress (BceStartDoc) FAILED!": 1069,
    "GetProcAddress (BceEndDoc) FAILED!": 1074,
    "GetProcAddress (BceWrite) FAILED!": 1079,
    "GetProcAddress (BceGetPrtInfo) FAILED!": 1084,
    "BceStartDoc FAILED!": 1153,
    "BceOpen FAILED!": 1174,
    "LoadLibrary (Bce) FAILED!": 1194,
    "Attempt to use Win32 Printer": 1201,
    "StartDocPrinter FAILED!": 1217,
    "OpenPrinter FAILED!": 1228,
    "Default: use file i/o": 1232,
    "-GenQueOpen": 1360,
    "+GenQueClose": 1391,
    "BceEndDoc": 1394,
    "BceClose": 1396,
    "free velbce.dll": 1400,
    "EndDocPrinter": 1417,
    "ClosePrinter": 1419,
    "fclose": 1424,
    "-GenQueClose": 1509,
    "+GenQueWrite": 1569,
    "WritePrinter": 1584,
    "WritePrinter FAILED!": 1590,
    "fwrite": 1597,
    "-GenQueWrite": 1761,
}


def log(*messages):
    return [f".\\ZeQue ({_LOG_LINES[message]}): {message}" for message in messages]


_OPEN = {
    "velbce": ("bidi handle: use velbce",),
    "spooler": ("Attempt to use Win32 Printer",),
    "file": ("Attempt to use Win32 Printer", "OpenPrinter FAILED!", "Default: use file i/o"),
}
_WRITE = {"velbce": (), "spooler": ("WritePrinter",), "file": ("fwrite",)}
_CLOSE = {
    "velbce": ("BceEndDoc", "BceClose", "free velbce.dll"),
    "spooler": ("EndDocPrinter", "ClosePrinter"),
    "file": ("fclose",),
}


def open_log(*steps):
    return log("+GenQueOpen", *steps, "-GenQueOpen")


def job_log(back_end, writes):
    """The log of a job that this back end took, or that ended with the last of these writes."""
    return [*open_log(*_OPEN[back_end]),
            *log("+GenQueWrite", *_WRITE[back_end], "-GenQueWrite") * writes,
            *log("+GenQueClose", *_CLOSE[back_end], "-GenQueClose")]
