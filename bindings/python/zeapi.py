"""The printer utility library ZEAPI1TD for Python; needs nothing but the standard library.

    import zeapi

    library = zeapi.load()
    printer = zeapi.ZeDestination(flags=zeapi.ZE_FLAG_PJL, language=zeapi.ZE_LANGUAGE_PCL, copies=2)
    library.send_file("page.pcl", "Laser", printer)

The header zeapi.h is the reference. Every call, record, enumeration and constant has its name there,
and every call is there as it is in C: library.ZeDatSendFile(b"page.pcl", b"Laser", printer, 0). The
methods with names in lower case are for everyday use:

- A result that is neither 0 nor a default (48) raises Error, which has its code and words.
- Texts are given as str, bytes or a path and come back as str, in the 8-bit encoding of the file
  system. Texts within records stay bytes; decode() turns them into str.
- Paths are Windows paths on every host, those that come back with a backslash.
- What the library hands out is copied and released. Lists come as generators, which release them when
  they end or are closed.
- What a callback raises is raised by the method when its call is over; until then it is not called
  again.
- The methods of a process make one call at a time, as the library wants it; the calls in capitals
  leave that to the caller.
"""

import contextlib
import ctypes
import os
import struct
import sys
import threading
from ctypes import (
    POINTER,
    byref,
    c_char,
    c_char_p,
    c_double,
    c_int16,
    c_int32,
    c_uint8,
    c_uint16,
    c_uint32,
    c_void_p,
)
from enum import IntEnum, IntFlag
from typing import NamedTuple

_WINDOWS = sys.platform == "win32"
_NAME = "ZEAPI1TD.dll" if _WINDOWS else "libzeapi.so.9"
_DLL = ctypes.WinDLL if _WINDOWS else ctypes.CDLL
_CALLBACK = ctypes.WINFUNCTYPE if _WINDOWS else ctypes.CFUNCTYPE

ZE_MAX_NAME = 260
ZE_API_VERSION = 930
ZE_DAT_READ = 2
ZE_DAT_LETTERS = "AFGPST"


class ZeResult(IntEnum):
    """Result codes. One code space serves all calls; each call names the ones it gives."""

    ZE_OK = 0
    ZE_INVALID_ARGUMENT = 1
    ZE_FILE_NOT_FOUND = 2
    ZE_OPEN_FAILED = 3
    ZE_CLOSE_FAILED = 4
    ZE_ACCESS_DENIED = 5
    ZE_READ_FAILED = 6
    ZE_WRITE_FAILED = 7
    ZE_SEEK_FAILED = 8
    ZE_UNEXPECTED_END = 9
    ZE_OUT_OF_MEMORY = 11
    ZE_PRINTER_WRITE_FAILED = 14
    ZE_NOT_DOS_DISK = 16
    ZE_DISK_FULL = 20
    ZE_UNUSABLE = 26
    ZE_BAD_FORMAT = 27
    ZE_DRIVE_LOCKED = 28
    ZE_BAD_HEADER = 29
    ZE_SHARING_VIOLATION = 31
    ZE_UNSUPPORTED = 32
    ZE_COPY_FAILED = 36
    ZE_NO_BACKUP_NAME = 37
    ZE_MACRO_TOO_LARGE = 37
    ZE_KEY_NOT_FOUND = 41
    ZE_BUFFER_TOO_SMALL = 42
    ZE_BAD_CHECKSUM = 43
    ZE_UNKNOWN_TYPE = 44
    ZE_SECTION_NOT_FOUND = 45
    ZE_FIXUP_FAILED = 46
    ZE_DEFAULT_USED = 48


class ZeDestinationFlags(IntFlag):
    """Bits of ZeDestination.flags. Other bits are not read."""

    ZE_FLAG_PJL = 0x08
    ZE_FLAG_BRACKET_K = 0x10


class ZeLanguage(IntEnum):
    """Printer languages, ZeDestination.language."""

    ZE_LANGUAGE_NONE = 0
    ZE_LANGUAGE_DEFAULT = 1
    ZE_LANGUAGE_PPDS = 2
    ZE_LANGUAGE_POSTSCRIPT = 3
    ZE_LANGUAGE_GL = 4
    ZE_LANGUAGE_PCL = 5
    ZE_LANGUAGE_PCLXL = 6


class ZeDevice(IntEnum):
    """Where a printer stores resources: `device` and `target` arguments."""

    ZE_DEVICE_RAM = 1
    ZE_DEVICE_FLASH1 = 2
    ZE_DEVICE_FLASH2 = 3
    ZE_DEVICE_DISK1 = 4
    ZE_DEVICE_DISK2 = 5


class ZeResourceRequest(IntEnum):
    """Requests of ZeGenResource()."""

    ZE_RESOURCE_TARGET_RAM = 1
    ZE_RESOURCE_TARGET_DEVICE = 2
    ZE_RESOURCE_FORMAT_DEVICE = 3
    ZE_RESOURCE_PRINT_DIRECTORY = 4


class ZeFontKind(IntEnum):
    """What a font file is good for, ZeFontInfo.kind. 0: not a font file."""

    ZE_FONT_KIND_METRICS = 2
    ZE_FONT_KIND_DOWNLOADABLE = 3
    ZE_FONT_KIND_TYPE1_METRICS = 4
    ZE_FONT_KIND_TRUETYPE = 5


class ZeFontFormat(IntEnum):
    """Font formats, ZeFontInfo.format. 0: none of them."""

    ZE_FONT_TYPE1 = 2
    ZE_FONT_DLF = 6
    ZE_FONT_PCL_RESOLUTION = 8
    ZE_FONT_PCL_BITMAP = 9
    ZE_FONT_PCL_OLD_BITMAP = 11
    ZE_FONT_PCL_BITMAP_13 = 13
    ZE_FONT_PCL_BITMAP_15 = 15
    ZE_FONT_PCL_BOUND = 17
    ZE_FONT_PCL_UNBOUND = 18
    ZE_FONT_PCL_TRUETYPE = 20
    ZE_FONT_HOST_TRUETYPE = 21
    ZE_FONT_TFM = 22
    ZE_FONT_FMF = 23
    ZE_FONT_PFM = 25
    ZE_FONT_CARTRIDGE = 28


class ZeFontConversion(IntEnum):
    """Conversions of ZeFonConvert()."""

    ZE_CONVERT_AFM_TO_PFM = 1
    ZE_CONVERT_AFM_TO_PFM_AND_PSM = 2
    ZE_CONVERT_PFM_TO_AFM = 3
    ZE_CONVERT_DLF_TO_PBM = 4
    ZE_CONVERT_PCL_TO_PFM = 5
    ZE_CONVERT_TFM_TO_PFM = 6
    ZE_CONVERT_TFM_TO_PFM_NAMED = 16
    ZE_CONVERT_PCL_TO_PFM_NAMED = 17


class ZeFontFlags(IntFlag):
    """Bits of ZeFontInfo.flags; all others are 0."""

    ZE_FONT_BINARY = 0x01
    ZE_FONT_STANDARD = 0x02
    ZE_FONT_PROPORTIONAL = 0x04
    ZE_FONT_BIT_3 = 0x08
    ZE_FONT_BIT_5 = 0x20


class ZeMacroFlags(IntFlag):
    """Bits of ZeMacroInfo.macroFlags. Other bits are not read."""

    ZE_MACRO_DEMO = 0x01
    ZE_MACRO_FIX_UP = 0x02
    ZE_MACRO_CHAIN = 0x04
    ZE_MACRO_FIX_UP_LIMIT = 0x08


class ZeFixupOptions(IntFlag):
    """What the fixup of a PCL macro drops besides PJL lines, universal exits, bracket-K blocks and
    "ESC & n" data: ZeMacroInfo.fixupLimit. Always dropped are the parameters F and P of "ESC &
    l", M of "ESC & b", X with the values 6, 7 and 10 of "ESC & f", and F with 0 and 1 of "ESC *
    c".
    """

    ZE_FIXUP_RESET = 0x001
    ZE_FIXUP_FORM_FEED = 0x002
    ZE_FIXUP_PAPER_SIZE = 0x004
    ZE_FIXUP_PAPER_SOURCE = 0x008
    ZE_FIXUP_DUPLEX = 0x010
    ZE_FIXUP_ORIENTATION = 0x020
    ZE_FIXUP_JOB_SEPARATION = 0x040
    ZE_FIXUP_COPIES = 0x080
    ZE_FIXUP_PERFORATION = 0x100
    ZE_FIXUP_FLUSH = 0x200
    ZE_FIXUP_OUTPUT_BIN = 0x400
    ZE_FIXUP_MACRO_CONTROL = 0x800
    ZE_FIXUP_DEFAULT = 0x33F


class ZeMacroMode(IntEnum):
    """Modes of ZeMacDownload()."""

    ZE_MACRO_PRINT_ONCE = 1
    ZE_MACRO_STORE = 2
    ZE_MACRO_RAW = 3


class ZeMacroWrap(IntEnum):
    """`wrap` argument of ZeMacDownload()."""

    ZE_MACRO_UNWRAPPED = 0
    ZE_MACRO_WRAPPED = 29


class ZeDemoMethod(IntEnum):
    """How ZeDemDownload() stores a demo, ZeDemoInfo.method."""

    ZE_DEMO_POSTSCRIPT = 1
    ZE_DEMO_PJL_FILE = 2
    ZE_DEMO_BRACKET_D = 3
    ZE_DEMO_PJL_DEMO_FILE = 4
    ZE_DEMO_NOTHING = 5


class ZeFoundKind(IntEnum):
    """What a search was for, ZeFoundFile.kind."""

    ZE_FOUND_FONT = 1
    ZE_FOUND_DEMO = 2
    ZE_FOUND_MACRO = 3


class ZeIniMode(IntEnum):
    """Modes of ZeIniOpen2()."""

    ZE_INI_READ = 1
    ZE_INI_UPDATE = 7
    ZE_INI_CREATE = 8
    ZE_INI_APPEND = 9


class ZeQsfList(IntEnum):
    """Lists of ZeQsfIniGetSection()."""

    ZE_QSF_REQUIRED = 1
    ZE_QSF_OPTIONAL = 2
    ZE_QSF_EXCLUDE = 3
    ZE_QSF_ORDER = 4


class ZeDatCode(IntEnum):
    """Results of the calls on printer data files."""

    ZE_DAT_OK = 0
    ZE_DAT_INVALID = -1
    ZE_DAT_FAILED = -2
    ZE_DAT_BAD_HANDLE = -3
    ZE_DAT_OPEN_FAILED = -5
    ZE_DAT_NOT_FOUND = -7
    ZE_DAT_END_OF_FILE = -10


class ZeDatFileKind(IntEnum):
    """Kinds of files that ZeDatQueryFiles() lists; any other value lists all."""

    ZE_DAT_CONFIGURATION_FILES = 1
    ZE_DAT_SETUP_FILES = 2


class ZeWebTopic(IntEnum):
    """Topics of web links."""

    ZE_WEB_DRIVERS = 1
    ZE_WEB_FIRMWARE = 2
    ZE_WEB_HOMEPAGE = 3
    ZE_WEB_QUORVIEW = 4
    ZE_WEB_REGISTRATION = 5
    ZE_WEB_SUPPLIES = 6
    ZE_WEB_TECHSUPPORT = 7
    ZE_WEB_PUBLICATIONS = 8


# The enumerators also stand by themselves, as in C.
for _enumeration in (
    ZeResult,
    ZeDestinationFlags,
    ZeLanguage,
    ZeDevice,
    ZeResourceRequest,
    ZeFontKind,
    ZeFontFormat,
    ZeFontConversion,
    ZeFontFlags,
    ZeMacroFlags,
    ZeFixupOptions,
    ZeMacroMode,
    ZeMacroWrap,
    ZeDemoMethod,
    ZeFoundKind,
    ZeIniMode,
    ZeQsfList,
    ZeDatCode,
    ZeDatFileKind,
    ZeWebTopic,
):
    globals().update(_enumeration.__members__)


def encode(text):
    """A text as the library takes it; bytes stay as they are."""
    text = os.fspath(text)
    if isinstance(text, str):
        text = text.encode("mbcs") if _WINDOWS else os.fsencode(text)
    if b"\0" in text:
        raise ValueError("a text for the library cannot hold a zero byte")
    return text


def decode(text):
    """A text of the library, such as a field of a record, as str."""
    return text.decode("mbcs", "replace") if _WINDOWS else os.fsdecode(text)


class _Record(ctypes.Structure):
    """A record; the texts that it is made of may be str."""

    def __init__(self, *values, **fields):
        super().__init__(
            *values,
            **{name: encode(text) if isinstance(text, str) else text for name, text in fields.items()},
        )

    def _copy(self):
        return type(self).from_buffer_copy(self)


class _Packed(_Record):
    _pack_ = 1
    _layout_ = "ms"


class ZeDestination(_Packed):
    """Where and how a job goes; 48 bytes. The caller fills it, the library only reads it, but that
    ZeDemDownload() sets `language`. Fields named `reserved` are not read and may carry anything.
    """

    _fields_ = [
        ("flags", c_uint32),
        ("deviceClass", c_uint32),
        ("language", c_int32),
        ("fontQueryOption", c_uint32),
        ("reserved16", c_uint32),
        ("copies", c_uint16),
        ("resourceId", c_uint16),
        ("ppdsFontCode", c_uint16),
        ("ppdsFontSlot", c_uint16),
        ("reserved28", c_uint8 * 11),
        ("bidiPort", c_uint16),
        ("bidiHandle", c_uint16),
        ("jobName", c_char_p),
        ("channel", c_uint8),
    ]


class ZeMacroInfo(_Packed):
    """A printer macro or overlay; 40 bytes. Fields named `reserved` are not read."""

    _fields_ = [
        ("macroFlags", c_uint32),
        ("macroName", c_char * 24),
        ("chainId", c_uint16),
        ("macroDevice", c_int32),
        ("reserved34", c_uint8 * 2),
        ("fixupLimit", c_uint32),
    ]


class ZeApiInfo(_Packed):
    """What ZeGenQueryApiInfo() answers: 64 words, 128 bytes. Word 0 is ZE_API_VERSION, word 1 the
    word size of the library in bits (32, a constant of the interface on every host), words 2 and
    3 are 2, words 11, 12, 16, 17, 20, 23, 26 and 28 are 1, all others 0.
    """

    _fields_ = [
        ("words", c_uint16 * 64),
    ]


class ZeCartridgeFont(_Packed):
    """One font of a cartridge. The entry and its name are memory of their own."""


ZeCartridgeFont._fields_ = [
    ("name", c_void_p),
    ("next", POINTER(ZeCartridgeFont)),
]


class ZeCartridge(_Packed):
    """What a font cartridge holds. The structure and its name are memory of their own."""

    _fields_ = [
        ("name", c_void_p),
        ("fonts", POINTER(ZeCartridgeFont)),
    ]


class ZeFontInfo(_Packed):
    """What ZeFonQueryInfo() tells about a font file; 714 bytes. Texts are terminated; longer ones
    are cut to their field. A companion file's path that does not fit its field counts as
    missing.
    """

    _fields_ = [
        ("flags", c_uint32),
        ("kind", c_uint32),
        ("format", c_uint32),
        ("xResolution", c_uint16),
        ("yResolution", c_uint16),
        ("fileSize", c_uint32),
        ("printerMemory", c_uint32),
        ("description", c_char * 80),
        ("detail", c_char * 80),
        ("symbolSet", c_char * 6),
        ("companionFile", c_char * 260),
        ("metricsFile", c_char * 260),
        ("cartridge", POINTER(ZeCartridge)),
    ]


class ZeDemoInfo(_Packed):
    """A demonstration page to be stored; 37 bytes. Fields named `reserved` are not read."""

    _fields_ = [
        ("options", c_uint8),
        ("reserved1", c_uint8 * 3),
        ("method", c_int32),
        ("name", c_char * 24),
        ("slot", c_uint8),
        ("device", c_int32),
    ]


class ZeFoundFile(_Packed):
    """A file that a search found; 277 bytes. The list runs from the file found last to the first
    one and belongs to the caller, who gives it back as a whole with ZeFonFindFree().
    """


ZeFoundFile._fields_ = [
    ("path", c_char * 260),
    ("info", c_void_p),
    ("next", POINTER(ZeFoundFile)),
    ("kind", c_uint32),
    ("rootLength", c_uint8),
    ("size", c_uint32),
]


class ZeJobAccountJob(_Packed):
    """Accounting of one job. A field's name tells the elements it comes from, below element 2 of
    the record; what the printer means by them is the printer's own. Texts are zero-terminated.
    """

    _fields_ = [
        ("value1_1", c_int32),
        ("value1_2", c_int32),
        ("value1_3", c_int32),
        ("value1_4", c_int32),
        ("value1_5", c_int32),
        ("value1_6", c_int32),
        ("text1_7", c_char * 10),
        ("value1_8", c_int32),
        ("value1_9", c_int32),
        ("value1_10", c_int32),
        ("text1_11", c_char * 16),
        ("text2_1", c_char * 41),
        ("text2_2", c_char * 21),
        ("text2_3", c_char * 21),
        ("value2_4", c_int32),
        ("value2_5", c_int32),
        ("value2_6", c_int32),
        ("value2_7", c_int32),
        ("value2_8", c_int32),
        ("value2_9", c_int32),
        ("value2_10", c_int32),
    ]


class ZeJobAccountTotals(_Packed):
    """Running totals of the printer, from the elements below element 3 of the record."""

    _fields_ = [
        ("value1_1", c_int32),
        ("value2_1", c_int32),
        ("value2_2", c_int32),
        ("value2_3", c_int32),
        ("value2_4", c_int32),
        ("value2_5", c_int32),
        ("text2_6", c_char * 16),
        ("value2_7", c_int32),
        ("text2_8", c_char * 10),
        ("value3_1", c_int32),
        ("value3_2", c_int32),
        ("value3_3", c_int32),
        ("value3_4", c_int32),
        ("value3_5", c_int32),
    ]


class ZeOptionItem(_Record):
    """One installed option: an entry of ZeOptionInfo.items. What the printer means by the elements
    is the printer's own.
    """

    _fields_ = [
        ("value1", c_int32),
        ("value5", c_int32),
        ("text6", c_char_p),
    ]


class ZeOptionGroup(_Record):
    """One group of options: an entry of ZeOptionInfo.groups."""

    _fields_ = [
        ("text1", c_char_p),
        ("text2", c_char_p),
        ("valueCount", c_uint32),
        ("values", POINTER(c_int32)),
    ]


class ZeOptionInfo(_Record):
    """What ZeParseOptionInfo() makes of an option record."""

    _fields_ = [
        ("itemCount", c_uint32),
        ("items", POINTER(ZeOptionItem)),
        ("groupCount", c_uint32),
        ("groups", POINTER(ZeOptionGroup)),
    ]


class ZeJobAccount(_Record):
    """What ZeParseJobAccountingAlert() makes of a job accounting record."""

    _fields_ = [
        ("job", POINTER(ZeJobAccountJob)),
        ("totals", POINTER(ZeJobAccountTotals)),
    ]


class ZeDatRecord(_Packed):
    """A record: a printer setting or command. Texts are zero-terminated within their fields."""

    _fields_ = [
        ("szKey", c_char * 6),
        ("szDescr", c_char * 102),
        ("szEmulation", c_char * 6),
        ("szCommand", c_char * 102),
        ("szVarFormat", c_char * 6),
        ("dVarRangeLo", c_double),
        ("dVarRangeHi", c_double),
        ("dVarIncrement", c_double),
        ("szDuration", c_char * 2),
    ]


class ZeDatCounts(_Packed):
    """Numbers of records, in the order of ZE_DAT_LETTERS. They begin again at 0 after 65535."""

    _fields_ = [
        ("first", c_uint16 * 6),
        ("second", c_uint16 * 6),
    ]


class ZeDatFileInfo(_Packed):
    """A listed file."""


ZeDatFileInfo._fields_ = [
    ("path", c_char * 260),
    ("description", c_char * 48),
    ("next", POINTER(ZeDatFileInfo)),
]


ZeZipProgress = _CALLBACK(c_uint32, c_char_p, c_uint32, c_uint32)
ZeModifyCallback = _CALLBACK(c_uint32, POINTER(c_char), c_uint32)
ZeFontProgress = _CALLBACK(None, POINTER(ZeFontInfo), c_uint32)


class _Buffer(c_void_p):
    """Memory that a call writes to, which bytes must not be."""

    @classmethod
    def from_param(cls, value):
        if isinstance(value, (bytes, str)):
            raise TypeError("a text cannot be written to; use ctypes.create_string_buffer()")
        return c_void_p.from_param(value)


# The result and the arguments of each call.
PROTOTYPES = {
    "ZeGenQueryApiInfo": (None, POINTER(ZeApiInfo)),
    "ZeMemFree": (None, c_void_p),
    "ZeGenQueryAdapters": (c_uint32, c_uint32, c_uint32, _Buffer, c_uint32),
    "ZeGenQueryQueues": (c_uint32, c_uint32, c_uint32, _Buffer, c_uint32),
    "ZeNetGetType": (c_uint32, c_uint32),
    "ZeGenResource": (c_uint32, c_int32, c_char_p, POINTER(ZeDestination), c_int32),
    "ZeDatSendFile": (c_uint32, c_char_p, c_char_p, POINTER(ZeDestination), c_uint32),
    "ZeDatSendString": (c_uint32, c_char_p, c_char_p, POINTER(ZeDestination), c_uint32),
    "ZeFonConvert": (c_uint32, c_char_p, c_char_p, POINTER(ZeFontInfo), c_uint32, c_uint32),
    "ZeFonQueryInfo": (c_uint32, c_char_p, POINTER(ZeFontInfo), c_uint32, c_uint32),
    "ZeFonDownload": (c_uint32, c_char_p, c_char_p, POINTER(ZeDestination), c_int32),
    "ZeFonFind": (
        POINTER(ZeFoundFile),
        c_char_p,
        POINTER(c_uint16),
        c_uint32,
        c_uint32,
        c_uint32,
        c_uint32,
    ),
    "ZeFonFind2": (
        POINTER(ZeFoundFile),
        c_char_p,
        POINTER(c_uint16),
        c_uint32,
        c_uint32,
        c_uint32,
        c_uint32,
        ZeFontProgress,
    ),
    "ZeFonFindFree": (None, POINTER(ZeFoundFile)),
    "ZeIniOpen": (c_void_p, c_char_p),
    "ZeIniOpen2": (c_void_p, c_char_p, c_uint32),
    "ZeIniClose": (c_uint32, c_void_p),
    "ZeIniRead": (c_char_p, c_void_p, c_char_p, c_char_p),
    "ZeIniRead2": (
        c_uint32,
        c_void_p,
        c_char_p,
        c_char_p,
        c_char_p,
        _Buffer,
        c_uint32,
        POINTER(c_uint32),
    ),
    "ZeIniWrite": (c_uint32, c_void_p, c_char_p, c_char_p, c_char_p),
    "ZeIniWriteAll": (c_uint32, c_void_p, c_char_p, c_char_p, c_char_p),
    "ZeIniDelete": (c_uint32, c_void_p, c_char_p, c_char_p, c_char_p),
    "ZeOpcRegisterCfg": (c_void_p, c_int32, c_char_p),
    "ZeOpcUnregisterCfg": (c_uint32, c_void_p),
    "ZeOpcGetFileName": (c_uint32, c_int32, _Buffer),
    "ZeOpcGetSpinControlLimits": (
        None,
        c_void_p,
        c_int32,
        POINTER(c_int32),
        POINTER(c_int32),
        POINTER(c_int32),
    ),
    "ZeOpcGetTextListing": (c_int16, c_void_p, c_int32, c_int32, POINTER(c_uint16), c_int32),
    "ZeOpcGetMaxEditLength": (c_int16, c_void_p, c_int32),
    "ZeOpcGetPageDefaults": (c_int16, c_void_p, c_int32, _Buffer, c_int32),
    "ZeOpcGetPageOmVars": (c_int16, c_void_p, c_int32, _Buffer, c_int32),
    "ZeQsfOpen": (c_uint32, c_char_p, c_uint32, POINTER(c_void_p)),
    "ZeQsfGetVariables": (c_uint32, c_void_p, c_uint32, POINTER(c_void_p), POINTER(c_uint16)),
    "ZeQsfClose": (None, c_void_p),
    "ZeQsfIniGetSection": (
        c_uint32,
        c_void_p,
        c_uint32,
        c_uint32,
        POINTER(POINTER(c_uint16)),
        POINTER(c_uint16),
    ),
    "ZeDatOpenFile": (c_int16, c_char_p, c_uint32, c_int32),
    "ZeDatCloseFile": (c_int16, c_int32),
    "ZeDatGetFirstKey": (c_int16, c_int32, POINTER(ZeDatRecord)),
    "ZeDatGetNextKey": (c_int16, c_int32, POINTER(ZeDatRecord)),
    "ZeDatQueryCount": (c_int16, c_char_p, POINTER(ZeDatRecord), c_int32),
    "ZeDatQueryCounts": (c_int16, c_char_p, POINTER(ZeDatCounts), c_int32),
    "ZeDatQueryFiles": (POINTER(ZeDatFileInfo), c_char_p, c_uint32, POINTER(c_uint16)),
    "ZeDatQueryFilesFree": (None, POINTER(ZeDatFileInfo)),
    "ZeWebGetURL": (c_uint32, c_int32, c_int32, c_int32, _Buffer, c_uint32, c_void_p),
    "ZeWebGetCGIURL": (c_uint32, c_uint32, c_uint32, c_uint32, c_uint32, _Buffer, c_uint32),
    "ZeMacCreate": (c_uint32, c_char_p, c_char_p, POINTER(ZeDestination), POINTER(ZeMacroInfo)),
    "ZeMacDownload": (
        c_uint32,
        c_char_p,
        c_char_p,
        POINTER(ZeDestination),
        POINTER(ZeMacroInfo),
        c_int32,
        c_uint32,
    ),
    "ZeMacActivate": (c_uint32, c_char_p, POINTER(ZeDestination), c_uint32),
    "ZeMacDelete": (c_uint32, c_char_p, POINTER(ZeDestination)),
    "ZeMacValidate": (c_uint32, c_char_p, POINTER(ZeDestination), POINTER(ZeMacroInfo)),
    "ZeMacFind": (POINTER(ZeFoundFile), c_char_p, POINTER(c_int16), c_uint32, c_uint32, c_uint32),
    "ZeDemDownload": (c_uint32, c_char_p, c_char_p, POINTER(ZeDestination), POINTER(ZeDemoInfo)),
    "ZeDemFind": (POINTER(ZeFoundFile), c_char_p, POINTER(c_int16), c_uint32, c_uint32),
    "ZeFilExists": (c_uint32, c_char_p),
    "ZeFilQuerySize": (c_uint32, c_char_p),
    "ZeFilCopy": (c_uint32, c_char_p, c_char_p),
    "ZeFilBackup": (c_uint32, c_char_p, _Buffer),
    "ZeFilModify": (c_uint32, c_char_p, c_uint32, ZeModifyCallback),
    "ZeFilMakePath": (c_uint32, c_char_p, _Buffer),
    "ZeFilChecksum": (c_uint32, c_char_p, c_int32, c_uint32, POINTER(c_uint16)),
    "ZeStrCpyFile": (c_char_p, _Buffer, c_char_p),
    "ZeStrCpyPath": (c_char_p, _Buffer, c_char_p),
    "ZeZipExplode": (c_uint32, c_char_p, c_char_p, ZeZipProgress),
    "ZeZipImplode": (c_uint32, c_char_p, c_char_p, ZeZipProgress),
    "ZeParseOptionInfo": (POINTER(ZeOptionInfo), c_char_p),
    "ZeFreeOptionInfo": (None, POINTER(ZeOptionInfo)),
    "ZeParseJobAccountingAlert": (POINTER(ZeJobAccount), c_char_p),
    "ZeFreeJobAccount": (None, POINTER(ZeJobAccount)),
}

# Why a call failed.
_WORDS = {
    ZeResult.ZE_INVALID_ARGUMENT: "an argument is not valid",
    ZeResult.ZE_FILE_NOT_FOUND: "the file does not exist",
    ZeResult.ZE_OPEN_FAILED: "the file or the printer cannot be opened",
    ZeResult.ZE_CLOSE_FAILED: "the file cannot be closed",
    ZeResult.ZE_ACCESS_DENIED: "access to the file is denied",
    ZeResult.ZE_READ_FAILED: "the file cannot be read",
    ZeResult.ZE_WRITE_FAILED: "the file cannot be written",
    ZeResult.ZE_SEEK_FAILED: "the file cannot be positioned",
    ZeResult.ZE_UNEXPECTED_END: "the archive ends unexpectedly",
    ZeResult.ZE_OUT_OF_MEMORY: "memory is short",
    ZeResult.ZE_PRINTER_WRITE_FAILED: "the printer refused the data",
    ZeResult.ZE_NOT_DOS_DISK: "the format of the disk is not known",
    ZeResult.ZE_DISK_FULL: "the disk is full",
    ZeResult.ZE_UNUSABLE: "the path, a work file or VELBCE.DLL cannot be used",
    ZeResult.ZE_BAD_FORMAT: "this cannot be done with such a file or name",
    ZeResult.ZE_DRIVE_LOCKED: "the drive is locked",
    ZeResult.ZE_BAD_HEADER: "the head of the file is not one of its kind",
    ZeResult.ZE_SHARING_VIOLATION: "somebody else has the file open",
    ZeResult.ZE_UNSUPPORTED: "this is not supported, or a file that belongs to it is missing",
    ZeResult.ZE_COPY_FAILED: "copying failed",
    ZeResult.ZE_NO_BACKUP_NAME: "all 998 backup names are taken, or a PPDS macro is too large",
    ZeResult.ZE_KEY_NOT_FOUND: "there is no such key",
    ZeResult.ZE_BUFFER_TOO_SMALL: "the answer is too long",
    ZeResult.ZE_BAD_CHECKSUM: "the file is damaged: its checksum differs",
    ZeResult.ZE_UNKNOWN_TYPE: "the file or printer is of another type",
    ZeResult.ZE_SECTION_NOT_FOUND: "there is no such section",
    ZeResult.ZE_FIXUP_FAILED: "the file is no PCL XL job that can be stored",
    ZeResult.ZE_DEFAULT_USED: "nothing was found and the default was used",
    ZeDatCode.ZE_DAT_INVALID: "there is no such data file",
    ZeDatCode.ZE_DAT_FAILED: "the data file is damaged, or no place or memory is left for it",
    ZeDatCode.ZE_DAT_BAD_HANDLE: "the data file is not open",
    ZeDatCode.ZE_DAT_OPEN_FAILED: "the data file cannot be opened",
    ZeDatCode.ZE_DAT_NOT_FOUND: "there is no such record",
    ZeDatCode.ZE_DAT_END_OF_FILE: "there is no further record",
}


class Error(Exception):
    """A call gave another result than 0: `call`, `code` (ZeResult or ZeDatCode), `words`.

    `record` is what the call told all the same, or None. Where a call tells only that it failed, the
    code is the one that its cause has elsewhere.
    """

    def __init__(self, call, code, record=None):
        self.call = call
        try:
            self.code = ZeResult(code) if code >= 0 else ZeDatCode(code)
        except ValueError:
            self.code = code
        self.words = _WORDS.get(self.code, "an unknown result")
        self.record = record
        super().__init__(f"{call}: {self.words} ({int(code)})")


class FoundFile(NamedTuple):
    """A file that a search found; `info` is its ZeFontInfo, its ZeMacroInfo or None."""

    path: str
    size: int
    root_length: int
    info: object


class Cartridge(NamedTuple):
    """A font cartridge and the names of its fonts."""

    name: str
    fonts: list


class DataFile(NamedTuple):
    """A printer data file and its description."""

    path: str
    description: str


class OptionItem(NamedTuple):
    """An installed option, see ZeOptionItem."""

    value1: int
    value5: int
    text6: object


class OptionGroup(NamedTuple):
    """A group of options, see ZeOptionGroup."""

    text1: object
    text2: object
    values: list


# The library is one for the process, however often it is loaded. Callbacks may call it again.
_LOCK = threading.RLock()

# How many files a search lists where nobody says.
_MOST = 32767


def _limit(limit, most):
    if limit is not None and limit < 0:
        raise ValueError("a limit is not negative")
    return min(limit, most) if limit else _MOST


def _optional(text):
    return None if text is None else encode(text)


def _decoded(text):
    return None if text is None else decode(text)


@contextlib.contextmanager
def _callback(kind, function):
    """A callback of a kind that calls a function; none for None."""
    caught = []

    def guarded(*arguments):
        if not caught:
            try:
                function(*arguments)
            except BaseException as error:  # nothing may pass through the library
                caught.append(error)
        return 0

    try:
        yield kind(guarded) if function else kind()
    finally:
        if caught:
            raise caught[0]


def _nodes(first):
    """The nodes of a list."""
    while first:
        yield first.contents
        first = first.contents.next


def load(path=None):
    """Loads the library: from `path`, or from where the environment variable ZEAPI_LIBRARY says, or
    by its usual name from where the system looks for libraries. On Windows it has the word size of
    this Python: 32 bits for the ZEAPI1TD.dll that applications share."""
    path = path or os.environ.get("ZEAPI_LIBRARY")
    if path:
        return Library(os.fspath(path))
    return Library(_NAME)


class Library:
    """The library. Its calls are attributes under their own names; see the head of this module."""

    def __init__(self, path):
        library = _DLL(path)
        for name, (result, *arguments) in PROTOTYPES.items():
            function = getattr(library, name)
            function.restype = result
            function.argtypes = arguments
            setattr(self, name, function)

    def _value(self, name, *arguments):
        """What a call returns."""
        with _LOCK:
            return getattr(self, name)(*arguments)

    def _do(self, name, *arguments):
        """Makes a call whose result has to be 0."""
        code = self._value(name, *arguments)
        if code:
            raise Error(name, code)

    # General

    def api_info(self):
        """The 64 words about the library; the first one is its interface version."""
        info = ZeApiInfo()
        self._value("ZeGenQueryApiInfo", byref(info))
        return tuple(info.words)

    def resource(self, request, printer, destination, device=ZeDevice.ZE_DEVICE_RAM):
        """Sends a storage request (ZeResourceRequest) as a job of its own."""
        self._do("ZeGenResource", request, encode(printer), byref(destination), device)

    # Data jobs

    def send_file(self, file, printer, destination=None, append=False):
        """Sends a file as a complete job."""
        destination = destination or ZeDestination()
        self._do("ZeDatSendFile", encode(file), encode(printer), byref(destination), append)

    def send_string(self, text, printer, destination=None, append=False):
        """Sends a string: "%file", "$text with escapes" or hexadecimal digits."""
        destination = destination or ZeDestination()
        self._do("ZeDatSendString", encode(text), encode(printer), byref(destination), append)

    def send_bytes(self, data, printer, destination=None, append=False):
        """Sends bytes as they are, as send_string() would."""
        self.send_string(bytes(data).hex(), printer, destination, append)

    # Fonts

    def _query_font(self, file, option, metrics):
        info = ZeFontInfo()
        code = self._value("ZeFonQueryInfo", encode(file), byref(info), option, metrics)
        cartridge = self._take_cartridge(info)
        if code:
            raise Error("ZeFonQueryInfo", code, info)
        return info, cartridge

    def _take_cartridge(self, info):
        if not info.cartridge:
            return None
        with _LOCK:
            head = info.cartridge.contents
            name = decode(ctypes.string_at(head.name)) if head.name else ""
            fonts = []
            for font in list(_nodes(head.fonts)):
                fonts.append(decode(ctypes.string_at(font.name)) if font.name else "")
                self.ZeMemFree(font.name)
                self.ZeMemFree(byref(font))
            self.ZeMemFree(head.name)
            self.ZeMemFree(info.cartridge)
        info.cartridge = None
        return Cartridge(name, fonts)

    def query_font(self, file, option=0, metrics=True):
        """What a font file is, a ZeFontInfo. An Error has what was known by then in `record`."""
        return self._query_font(file, option, metrics)[0]

    def query_cartridge(self, file):
        """What a cartridge's metrics file lists, a Cartridge; None for other fonts."""
        return self._query_font(file, 0, True)[1]

    def convert_font(self, file, conversion, output=None, info=None, path=0):
        """Turns the metrics of a font file into another format (ZeFontConversion)."""
        info = byref(info) if info else None
        self._do("ZeFonConvert", encode(file), _optional(output), info, path, conversion)

    def download_font(self, file, printer, destination, target=ZeDevice.ZE_DEVICE_RAM):
        """Sends a font file as a complete job."""
        self._do("ZeFonDownload", encode(file), encode(printer), byref(destination), target)

    def find_fonts(
        self, directory, types=26, kinds=5, option=0, recurse=False, limit=None, progress=None
    ):
        """Yields the fonts of a folder. `progress` is called with the record of a font, or None, and
        how many per cent of the files are done."""

        def search(name, directory, count):
            def tell(font, percent):
                progress(self._without_cartridge(font.contents) if font else None, percent)

            arguments = (directory, count, types, kinds, option, recurse)
            first = None
            try:
                with _callback(ZeFontProgress, progress and tell) as callback:
                    first = self._value(name, *arguments, callback)
                return first
            except BaseException:
                self._value("ZeFonFindFree", first)
                raise

        return self._found("ZeFonFind2", search, directory, c_uint16(_limit(limit, 0xFFFF)), recurse)

    @staticmethod
    def _without_cartridge(font):
        copy = font._copy()
        copy.cartridge = None  # the library's own
        return copy

    def _found(self, name, search, directory, count, recurse):
        """Yields what a search finds and releases it."""
        limit = count.value
        first = search(name, encode(directory), byref(count))
        # A search that refuses its arguments finds nothing too, but does not count.
        if not first and not recurse and count.value == limit:
            raise Error(name, ZeResult.ZE_INVALID_ARGUMENT)
        try:
            for node in _nodes(first):
                info = None
                if node.info and node.kind == ZeFoundKind.ZE_FOUND_FONT:
                    info = ctypes.cast(node.info, POINTER(ZeFontInfo)).contents
                    info = self._without_cartridge(info)
                elif node.info and node.kind == ZeFoundKind.ZE_FOUND_MACRO:
                    info = ctypes.cast(node.info, POINTER(ZeMacroInfo)).contents._copy()
                yield FoundFile(decode(node.path), node.size, node.rootLength, info)
        finally:
            self._value("ZeFonFindFree", first)

    # Macros and demos

    def create_macro(self, file, printer, destination, macro):
        """Sends a macro's definition without the frame of a job."""
        self._do("ZeMacCreate", encode(file), encode(printer), byref(destination), byref(macro))

    def download_macro(
        self,
        file,
        printer,
        destination,
        macro,
        mode=ZeMacroMode.ZE_MACRO_STORE,
        wrap=ZeMacroWrap.ZE_MACRO_WRAPPED,
    ):
        """Sends a macro as a complete job."""
        records = byref(destination), byref(macro)
        self._do("ZeMacDownload", encode(file), encode(printer), *records, mode, wrap)

    def activate_macro(self, printer, destination, enable=True):
        """Switches a stored macro on or off as automatic overlay."""
        self._do("ZeMacActivate", encode(printer), byref(destination), enable)

    def delete_macro(self, printer, destination):
        """Deletes a stored macro."""
        self._do("ZeMacDelete", encode(printer), byref(destination))

    def validate_macro(self, file, destination, macro):
        """Raises an Error unless a file may be stored as a macro."""
        self._do("ZeMacValidate", encode(file), byref(destination), byref(macro))

    def find_macros(self, directory, language, recurse=False, limit=None):
        """Yields the files of a folder that may be macros of a language."""

        def search(name, directory, count):
            return self._value(name, directory, count, language, 0, recurse)

        return self._found("ZeMacFind", search, directory, c_int16(_limit(limit, 0x7FFF)), recurse)

    def download_demo(self, file, printer, destination, demo):
        """Stores a demonstration page on a printer; `destination.language` is overwritten."""
        self._do("ZeDemDownload", encode(file), encode(printer), byref(destination), byref(demo))

    def find_demos(self, directory, recurse=False, limit=None):
        """Yields the files of a folder that may be demos."""

        def search(name, directory, count):
            return self._value(name, directory, count, 0, recurse)

        return self._found("ZeDemFind", search, directory, c_int16(_limit(limit, 0x7FFF)), recurse)

    # INI files and panels

    def open_ini(self, file, mode=ZeIniMode.ZE_INI_READ):
        """Loads an INI file; use it with `with`, or close it."""
        handle = self._value("ZeIniOpen2", encode(file), mode)
        if not handle:
            raise Error("ZeIniOpen2", ZeResult.ZE_OPEN_FAILED)
        return Ini(self, handle)

    def open_panel(self, panel, directory=None):
        """Loads the configuration of an operator panel; use it with `with`, or close it."""
        handle = self._value("ZeOpcRegisterCfg", panel, _optional(directory))
        if not handle:
            raise Error("ZeOpcRegisterCfg", ZeResult.ZE_OPEN_FAILED)
        return Panel(self, handle)

    # Printer data files

    def data_records(self, file, key=""):
        """Yields the records (ZeDatRecord) of a data file from the first one on whose key begins with
        `key`. The file is open until the generator ends or is closed; four can be open at a time."""
        handle = self._value("ZeDatOpenFile", encode(file), 0, ZE_DAT_READ)
        if handle < 0:
            raise Error("ZeDatOpenFile", handle)
        try:
            record = ZeDatRecord(szKey=encode(key))
            name = "ZeDatGetFirstKey"
            while True:
                code = self._value(name, handle, byref(record))
                if code in (ZeDatCode.ZE_DAT_NOT_FOUND, ZeDatCode.ZE_DAT_END_OF_FILE):
                    return
                if code:
                    raise Error(name, code)
                yield record._copy()
                name = "ZeDatGetNextKey"
        finally:
            self._value("ZeDatCloseFile", handle)

    def data_counts(self, file):
        """Numbers of records by the letters of their keys, a ZeDatCounts."""
        counts = ZeDatCounts()
        self._do("ZeDatQueryCounts", encode(file), byref(counts), ZE_DAT_READ)
        return counts

    def data_files(self, directory="", kind=0):
        """Yields the data files of a folder, each a DataFile."""
        first = self._value("ZeDatQueryFiles", encode(directory), kind, byref(c_uint16()))
        try:
            for node in _nodes(first):
                yield DataFile(decode(node.path), decode(node.description))
        finally:
            self._value("ZeDatQueryFilesFree", first)

    # Web links

    def web_url(self, printer, topic, language, ini=None):
        """The address of a support topic (ZeWebTopic); parts may come from an Ini."""
        buffer = ctypes.create_string_buffer(8192)
        arguments = (printer, topic, language, buffer, len(buffer), ini.handle if ini else None)
        code = self._value("ZeWebGetURL", *arguments)
        if code not in (ZeResult.ZE_OK, ZeResult.ZE_DEFAULT_USED):
            raise Error("ZeWebGetURL", code)
        return decode(buffer.value)

    def web_query_url(self, family, model, topic, language):
        """The address of a support topic with a query."""
        buffer = ctypes.create_string_buffer(8192)
        self._do("ZeWebGetCGIURL", family, model, topic, language, buffer, len(buffer))
        return decode(buffer.value)

    # Files

    def copy_file(self, source, destination):
        """Copies a file over whatever the destination holds."""
        self._do("ZeFilCopy", encode(source), encode(destination))

    def backup_file(self, source):
        """Copies a file to the first free name of base.001 to base.998; returns that name."""
        name = ctypes.create_string_buffer(ZE_MAX_NAME + 1)
        self._do("ZeFilBackup", encode(source), name)
        return decode(name.value)

    def modify_file(self, file, function):
        """Rewrites a text file: `function` gets each line as bytes and returns the new one, at most
        2047 bytes, or None to leave it. When it raises, that line and the rest stay as they are."""

        def rewrite(line, _):
            new = function(ctypes.string_at(line))
            if new is None:
                return
            if len(new) > 2047 or b"\0" in new:
                raise ValueError("a line has at most 2047 bytes and no zero byte")
            ctypes.memmove(line, new + b"\0", len(new) + 1)

        with _callback(ZeModifyCallback, rewrite) as callback:
            self._do("ZeFilModify", encode(file), 0, callback)

    def make_path(self, path):
        """Makes every missing folder of a path that begins with a drive or a server."""
        self._do("ZeFilMakePath", encode(path), None)

    def checksum(self, file, skip=0):
        """The 16-bit checksum of a file."""
        if not os.fspath(file):
            raise Error("ZeFilChecksum", ZeResult.ZE_INVALID_ARGUMENT)
        result = c_uint16()
        self._do("ZeFilChecksum", encode(file), 0, skip, byref(result))
        return result.value

    # Archives

    def extract(self, archive, pattern=None, progress=None):
        """Extracts a ZIP archive below the current folder. `progress` is called with each file's name,
        its packed size and per cent; with it, the first member that is not perfect ends the call."""

        def tell(name, size, percent):
            progress(decode(name), size, percent)

        with _callback(ZeZipProgress, progress and tell) as callback:
            self._do("ZeZipExplode", encode(archive), _optional(pattern), callback)

    # Printer records

    @staticmethod
    def _whole(name, record):
        """The library reads as many bytes as a record's first two say: they have to be there."""
        record = bytes(record)
        if len(record) < 2 or len(record) < 2 + int.from_bytes(record[:2], "big"):
            raise Error(name, ZeResult.ZE_BAD_FORMAT)
        return record

    def parse_options(self, record):
        """The options in a printer's record: a list of OptionItem and one of OptionGroup."""
        name = "ZeParseOptionInfo"
        info = self._value(name, self._whole(name, record))
        if not info:
            raise Error(name, ZeResult.ZE_OUT_OF_MEMORY)
        try:
            lists = info.contents
            items = [
                OptionItem(item.value1, item.value5, _decoded(item.text6))
                for item in lists.items[: lists.itemCount]
            ]
            groups = [
                OptionGroup(
                    _decoded(group.text1), _decoded(group.text2), group.values[: group.valueCount]
                )
                for group in lists.groups[: lists.groupCount]
            ]
            return items, groups
        finally:
            self._value("ZeFreeOptionInfo", info)

    def parse_job_account(self, record):
        """A printer's record of a job: a ZeJobAccountJob and a ZeJobAccountTotals; each may be None."""
        name = "ZeParseJobAccountingAlert"
        account = self._value(name, self._whole(name, record))
        if not account:
            raise Error(name, ZeResult.ZE_OUT_OF_MEMORY)
        try:
            parts = account.contents.job, account.contents.totals
            return tuple(part.contents._copy() if part else None for part in parts)
        finally:
            self._value("ZeFreeJobAccount", account)


class Ini:
    """An INI file that is loaded; closing writes it when it was edited."""

    _CLOSE = "ZeIniClose"

    def __init__(self, library, handle):
        self._library = library
        self._handle = handle

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    @property
    def handle(self):
        """The handle, for the calls themselves."""
        if not self._handle:
            raise ValueError("the file is closed")
        return self._handle

    def close(self):
        """Ends the handle; once is enough."""
        handle, self._handle = self._handle, None
        if handle and not self._library._value(self._CLOSE, handle):
            raise Error(self._CLOSE, ZeResult.ZE_OPEN_FAILED)

    def read(self, section, key, fallback=None):
        """A value; the fallback, if there is one, where the file has no such key."""
        name = "ZeIniRead2"
        texts = encode(section), encode(key), _optional(fallback)
        size = 256
        while True:
            buffer = ctypes.create_string_buffer(size)
            count = c_uint32()
            code = self._library._value(name, self.handle, *texts, buffer, size, byref(count))
            if code in (ZeResult.ZE_OK, ZeResult.ZE_DEFAULT_USED):
                return decode(buffer.raw[: count.value])
            if code != ZeResult.ZE_BUFFER_TOO_SMALL:
                raise Error(name, code)
            size *= 2

    def lines(self, section):
        """Yields the lines of a section up to the first empty one."""
        line = self._library._value("ZeIniRead", self.handle, encode(section), None)
        while line:
            yield decode(line)
            line = self._library._value("ZeIniRead", self.handle, None, None)

    def _edit(self, name, *texts):
        if not self._library._value(name, self.handle, *texts):
            raise Error(name, ZeResult.ZE_OUT_OF_MEMORY)

    def write(self, section, key, value):
        """Sets a key."""
        self._edit("ZeIniWrite", encode(section), encode(key), encode(value))

    def add(self, section, key, value):
        """Adds a line for the key unless there is one with this value."""
        self._edit("ZeIniWriteAll", encode(section), encode(key), encode(value))

    def delete(self, section, key=None, value=None):
        """Removes a line; without a key, the header of the section."""
        self._edit("ZeIniDelete", encode(section), _optional(key), _optional(value))

    def qsf_list(self, kind, model):
        """A list of option variables (ZeQsfList) for a model."""
        variables, count = POINTER(c_uint16)(), c_uint16()
        library = self._library
        results = byref(variables), byref(count)
        library._do("ZeQsfIniGetSection", self.handle, kind, model, *results)
        try:
            return _numbers(">H", ctypes.string_at(variables, 2 * count.value))
        finally:
            library._value("ZeMemFree", variables)


class Panel(Ini):
    """The configuration of an operator panel, an INI file with questions of its own."""

    _CLOSE = "ZeOpcUnregisterCfg"

    def spin_limits(self, control):
        """Minimum, maximum and third value; 0 where the file has none."""
        limits = c_int32(), c_int32(), c_int32()
        references = [byref(limit) for limit in limits]
        self._library._value("ZeOpcGetSpinControlLimits", self.handle, control, *references)
        return tuple(limit.value for limit in limits)

    def max_edit_length(self, control):
        """The longest text of an edit control, 0 where the file has none."""
        return self._library._value("ZeOpcGetMaxEditLength", self.handle, control)

    def _list(self, name, unit, *arguments):
        """The bytes of a list whose entries have `unit` bytes; nothing where there is none."""
        needed = self._library._value(name, self.handle, *arguments, None, 0)
        if needed in (0, -2):
            return b""
        count, buffer = needed, (c_uint16 * (max(needed, 0) // 2))()
        if needed > 0:
            count = self._library._value(name, self.handle, *arguments, buffer, needed)
        if count < 0:
            code = ZeResult.ZE_OUT_OF_MEMORY if count == -3 else ZeResult.ZE_BUFFER_TOO_SMALL
            raise Error(name, code)
        return bytes(buffer)[: count * unit]

    def texts(self, control, sub_index=0):
        """The text identifiers of a list control."""
        return _numbers("=H", self._list("ZeOpcGetTextListing", 2, control, sub_index))

    def page_defaults(self, page):
        """The controls of a page, each its identifier and its default."""
        return list(struct.iter_unpack("<Hi", self._list("ZeOpcGetPageDefaults", 6, page)))

    def page_variables(self, page):
        """The option variables that a page sets."""
        return _numbers(">H", self._list("ZeOpcGetPageOmVars", 2, page))


def _numbers(layout, data):
    return [value for (value,) in struct.iter_unpack(layout, data)]
