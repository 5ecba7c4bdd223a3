"""Byte streams and log lines of jobs, as the library has to make them."""

PJL, BRACKET_K = 0x08, 0x10
PPDS, POSTSCRIPT, PCL = 2, 3, 5

INVALID_ARGUMENT, OPEN_FAILED, PRINTER_WRITE_FAILED, UNUSABLE = 1, 3, 14, 26

UNIVERSAL_EXIT = b"\x1b%-12345X"
ENTER_PPDS = b"@PJL ENTER LANGUAGE = PPDS\n"
ENTER_POSTSCRIPT = b"@PJL ENTER LANGUAGE = POSTSCRIPT\n"
ENTER_PCL = b"@PJL ENTER LANGUAGE = PCL\n"
CLEAR_DISPLAY = b'@PJL RDYMSG DISPLAY = ""\n'
RESET = b"@PJL RESET\n"
BLOCK = 2048
# With the zero byte at its end.
EXIT_SERVER = (b"%% BeginExitServer 0\n% Adobe Type 1 download\r\n\r\n"
               b" serverdict begin   0   exitserver  \n%% EndExitServer\n\0")
END_OF_TRANSMISSION = b"%!\x04"


def ready(text):
    return b'@PJL RDYMSG DISPLAY = "' + text + b'"\n'


def string_job(name, data):
    """The writes of ZeDatSendString to a PJL printer that speaks PCL."""
    return [UNIVERSAL_EXIT, ready(name), ENTER_PCL, data,
            UNIVERSAL_EXIT, CLEAR_DISPLAY, UNIVERSAL_EXIT]


def stream(data):
    """The writes of a file as it is.

    The end of the file shows only when a read goes beyond it, so that after a whole last block there
    is a write of nothing.
    """
    return [data[at:at + BLOCK] for at in range(0, len(data) + 1, BLOCK)]


def file_job(name, data, copies):
    """The writes of ZeDatSendFile to a PJL printer that speaks PCL."""
    return [UNIVERSAL_EXIT, ready(name), ENTER_PCL, b"@PJL SET COPIES = %d\n" % copies,
            *stream(data), UNIVERSAL_EXIT, CLEAR_DISPLAY, RESET, UNIVERSAL_EXIT]


def format_job(device):
    """The writes of ZeGenResource, format, to a PJL printer that speaks PCL; without a job name."""
    return [UNIVERSAL_EXIT, ENTER_PCL, UNIVERSAL_EXIT, b"@PJL LFORMAT DEVICE = " + device + b"\n",
            UNIVERSAL_EXIT, CLEAR_DISPLAY, UNIVERSAL_EXIT]


def font_job(name, enter_language, device, font_writes):
    """The writes of ZeFonDownload into a storage device of a PJL printer."""
    return [UNIVERSAL_EXIT, ready(name), enter_language,
            UNIVERSAL_EXIT, b"@PJL SET LDOWNLOADTARGET = " + device + b"\n", *font_writes,
            UNIVERSAL_EXIT, b"@PJL SET LDOWNLOADTARGET = ram\n",
            UNIVERSAL_EXIT, CLEAR_DISPLAY, UNIVERSAL_EXIT]


def pcl_font(number, data):
    """The writes of a PCL soft font that is a bitmap."""
    return [b"\x1b*c%dD" % number, *stream(data), b"\x1b*c5F"]


def pfb_segments(data):
    """Type and body of each segment of a PFB up to its end."""
    segments = []
    while data[1] != 3:
        length = int.from_bytes(data[2:6], "little")
        segments.append((data[1], data[6:6 + length]))
        data = data[6 + length:]
    return segments


def postscript_font(data):
    """The writes of a PFB for a PostScript printer."""
    writes = [EXIT_SERVER]
    for kind, body in pfb_segments(data):
        pieces = [body[at:at + 1024] for at in range(0, len(body), 1024)]
        writes += [piece.hex().upper().encode() if kind == 2 else piece for piece in pieces]
    return [*writes, END_OF_TRANSMISSION]


def ppds_font(number, code, slot, data):
    """The writes of a Type 1 font for a PPDS printer."""
    writes = [b"\x1b=\x04\0\x41\x0e" + number.to_bytes(2, "big")]
    for at in range(0, len(data), BLOCK):
        block = data[at:at + BLOCK]
        last = at + BLOCK >= len(data)
        writes += [b"\x1b=" + (len(block) + 8).to_bytes(2, "little") + b"\x41\x01\x01"
                   + (code - 256).to_bytes(2, "big") + slot.to_bytes(2, "big")
                   + (b"\x01" if last else b"\x02"), block]
    return writes


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
