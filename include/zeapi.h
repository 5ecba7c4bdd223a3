/**
 * @file zeapi.h
 * @brief Printer utility library ZEAPI1TD: the one public header, for C and C++.
 *
 * The library downloads fonts, macros, demos, files and strings to laser printers, reads the files
 * that describe them and reports about them. Interface version 9.30.
 *
 * Conventions, once for every call:
 *
 * - **Calling.** Exports have plain names and the Windows standard calling convention
 * (`ZEAPI_CALL`; empty on other hosts). 8-bit and 16-bit arguments are passed widened to 32 bits;
 * only the low bits count. No exception leaves a call.
 * - **Results.** Unless said otherwise a call returns one of the `ZE_...` codes, 0 for success.
 *   Arguments are checked first and in the order of the text; the first fault returns
 *   ZE_INVALID_ARGUMENT and nothing has been opened, sent or changed.
 * - **Strings** are zero-terminated 8-bit strings. A file or printer name has at most
 *   ZE_MAX_NAME characters.
 * - **Paths** are Windows paths on every host: `\` and `/` separate, case is ignored, `X:` is a
 *   drive. On other hosts `x:\` stands for the folder `$ZEAPI_DRIVES/x/`, out of which no
 *   `..` leads; without that variable no drive exists.
 * - **Records** are packed to one byte, but for those of ZeParseOptionInfo() and ZeJobAccount. Offsets are given for 4-byte pointers.
 * - **Memory** that a call hands out belongs to the caller, who gives it back with the release call
 *   named there. The library keeps no pointer to caller memory after a call has returned.
 * - **Threads.** The library takes no locks and shares some state between calls; a process makes
 * one call at a time.
 * - **Jobs.** A call with a `printerName` and a ZeDestination sends one complete job. A non-zero
 *   `bidiHandle` sends it through `VELBCE.DLL`; otherwise the system's print spooler is asked for a
 *   printer of that name, and where it has none the name is opened as a file that receives the
 * job's exact bytes.
 * - **Log.** Each step of a job is appended to `c:\zeapiw32.log`. When that file cannot be written
 *   the lines are dropped and nothing else changes.
 */
#ifndef ZEAPI_H_
#define ZEAPI_H_

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#define ZEAPI_CALL __stdcall
#define ZEAPI_EXPORT /* the module definition file names the exports */
#else
#define ZEAPI_CALL
#define ZEAPI_EXPORT __attribute__((visibility("default")))
#endif

#if defined(__cplusplus)
#define ZEAPI_NOEXCEPT noexcept
#define ZEAPI_STATIC_ASSERT(condition, text) static_assert(condition, text)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define ZEAPI_NOEXCEPT
#define ZEAPI_STATIC_ASSERT(condition, text) _Static_assert(condition, text)
#else
#define ZEAPI_NOEXCEPT
#define ZEAPI_STATIC_ASSERT(condition, text) extern int zeapi_no_static_assert
#endif

/** Holds the stated offset in the 32-bit product; wider pointers shift what follows them. */
#define ZEAPI_ASSERT_OFFSET(record, field, offset)                               \
  ZEAPI_STATIC_ASSERT(sizeof(void*) != 4 || offsetof(record, field) == (offset), \
                      #record "." #field " moved")
#define ZEAPI_ASSERT_SIZE(record, size) \
  ZEAPI_STATIC_ASSERT(sizeof(void*) != 4 || sizeof(record) == (size), #record " changed size")

#if defined(__cplusplus)
extern "C" {
#endif

/** Longest file or printer name, in characters without the terminator. */
#define ZE_MAX_NAME 260

/** Interface version that ZeGenQueryApiInfo() reports: 9.30. */
#define ZE_API_VERSION 930

/** Result codes. One code space serves all calls; each call names the ones it gives. */
enum ZeResult {
  ZE_OK = 0,                    /**< Success. */
  ZE_INVALID_ARGUMENT = 1,      /**< Null pointer, name too long, or a value out of its range. */
  ZE_FILE_NOT_FOUND = 2,        /**< The named input file does not exist. */
  ZE_OPEN_FAILED = 3,           /**< A file, or the printer by every way there is, did not open. */
  ZE_CLOSE_FAILED = 4,          /**< Closing a file failed. */
  ZE_ACCESS_DENIED = 5,         /**< The system refused access to a file. */
  ZE_READ_FAILED = 6,           /**< Reading the input file failed. */
  ZE_WRITE_FAILED = 7,          /**< A file took fewer bytes than were written. */
  ZE_SEEK_FAILED = 8,           /**< A file could not be positioned. */
  ZE_UNEXPECTED_END = 9,        /**< An archive ends where more was to come. */
  ZE_OUT_OF_MEMORY = 11,        /**< Memory could not be had. */
  ZE_PRINTER_WRITE_FAILED = 14, /**< The spooler or the bidirectional DLL refused data. */
  ZE_NOT_DOS_DISK = 16,         /**< The disk's format is not known to the system. */
  ZE_DISK_FULL = 20,            /**< No room is left on the disk. */
  ZE_UNUSABLE = 26,             /**< The bidirectional DLL, a path or a work file cannot be used. */
  ZE_BAD_FORMAT = 27,           /**< Not a file or name that this operation can work on. */
  ZE_DRIVE_LOCKED = 28,         /**< The drive is locked or lacks a needed ability. */
  ZE_BAD_HEADER = 29,           /**< The head of a file is not one of its kind. */
  ZE_SHARING_VIOLATION = 31,    /**< Somebody else has the file open. */
  ZE_UNSUPPORTED = 32,          /**< Not supported; a remark, not a failure, from font queries. */
  ZE_COPY_FAILED = 36,          /**< Copying failed for a reason without a code of its own. */
  ZE_NO_BACKUP_NAME = 37,       /**< All 998 backup names are taken. */
  ZE_MACRO_TOO_LARGE = 37,      /**< A PPDS macro of 65536 bytes or more. */
  ZE_KEY_NOT_FOUND = 41,        /**< The section has no such key. */
  ZE_BUFFER_TOO_SMALL = 42,     /**< The answer does not fit the caller's buffer. */
  ZE_BAD_CHECKSUM = 43,         /**< A file's checksum is not the one that it states. */
  ZE_UNKNOWN_TYPE = 44,      /**< A file of another type than asked; a printer without a number. */
  ZE_SECTION_NOT_FOUND = 45, /**< The file has no such section. */
  ZE_FIXUP_FAILED = 46,      /**< Not a PCL XL job that can be stored as a stream. */
  ZE_DEFAULT_USED = 48       /**< A remark: nothing was found and the default was copied. */
};

/** Bits of ZeDestination::flags. Other bits are not read. */
enum ZeDestinationFlags {
  ZE_FLAG_PJL = 0x08,      /**< The printer understands Printer Job Language. */
  ZE_FLAG_BRACKET_K = 0x10 /**< The printer takes the bracket-K escape commands ("ESC [ K"). */
};

/** Printer languages, ZeDestination::language. */
enum ZeLanguage {
  ZE_LANGUAGE_NONE = 0,
  ZE_LANGUAGE_DEFAULT = 1,
  ZE_LANGUAGE_PPDS = 2,
  ZE_LANGUAGE_POSTSCRIPT = 3,
  ZE_LANGUAGE_GL = 4,
  ZE_LANGUAGE_PCL = 5,
  ZE_LANGUAGE_PCLXL = 6
};

/** Where a printer stores resources: `device` and `target` arguments. */
enum ZeDevice {
  ZE_DEVICE_RAM = 1,
  ZE_DEVICE_FLASH1 = 2,
  ZE_DEVICE_FLASH2 = 3,
  ZE_DEVICE_DISK1 = 4,
  ZE_DEVICE_DISK2 = 5
};

/** Requests of ZeGenResource(). */
enum ZeResourceRequest {
  ZE_RESOURCE_TARGET_RAM = 1,     /**< Downloads go to working memory from now on. */
  ZE_RESOURCE_TARGET_DEVICE = 2,  /**< Downloads go to the given device from now on. */
  ZE_RESOURCE_FORMAT_DEVICE = 3,  /**< Formats the given device: everything on it is lost. */
  ZE_RESOURCE_PRINT_DIRECTORY = 4 /**< Prints the list of stored resources. */
};

/** What a font file is good for, ZeFontInfo::kind. 0: not a font file. */
enum ZeFontKind {
  ZE_FONT_KIND_METRICS = 2,       /**< Describes a font, is not itself downloaded. */
  ZE_FONT_KIND_DOWNLOADABLE = 3,  /**< Can be downloaded as it is. */
  ZE_FONT_KIND_TYPE1_METRICS = 4, /**< AFM metrics of a Type 1 outline beside them. */
  ZE_FONT_KIND_TRUETYPE = 5       /**< A TrueType file. */
};

/** Font formats, ZeFontInfo::format. 0: none of them. */
enum ZeFontFormat {
  ZE_FONT_TYPE1 = 2,           /**< Type 1 outline or its AFM metrics: PFA, PFB, AFM. */
  ZE_FONT_DLF = 6,             /**< DLF download font. */
  ZE_FONT_PCL_RESOLUTION = 8,  /**< PCL bitmap that names its resolution (header format 20). */
  ZE_FONT_PCL_BITMAP = 9,      /**< PCL bitmap (header format 0). */
  ZE_FONT_PCL_OLD_BITMAP = 11, /**< PCL bitmap of older layouts (header formats 5, 9, 12). */
  ZE_FONT_PCL_BITMAP_13 = 13,  /**< A PCL bitmap; never given by ZeFonQueryInfo(). */
  ZE_FONT_PCL_BITMAP_15 = 15,  /**< A PCL bitmap; never given by ZeFonQueryInfo(). */
  ZE_FONT_PCL_BOUND = 17,      /**< PCL scalable, bound Intellifont (header format 10). */
  ZE_FONT_PCL_UNBOUND = 18,    /**< PCL scalable, unbound Intellifont (header format 11). */
  ZE_FONT_PCL_TRUETYPE = 20,   /**< PCL scalable TrueType (header format 15). */
  ZE_FONT_HOST_TRUETYPE = 21,  /**< TrueType font of the host: TTF, FOT. */
  ZE_FONT_TFM = 22,            /**< Intellifont metrics: TFM. */
  ZE_FONT_FMF = 23,            /**< Metrics of a DLF font: FMF. */
  ZE_FONT_PFM = 25,            /**< Windows printer font metrics: PFM, PSM, PBM. */
  ZE_FONT_CARTRIDGE = 28       /**< Metrics of a font cartridge: PCM. */
};

/** Conversions of ZeFonConvert(). */
enum ZeFontConversion {
  ZE_CONVERT_AFM_TO_PFM = 1,         /**< Type 1 metrics to Windows metrics. */
  ZE_CONVERT_AFM_TO_PFM_AND_PSM = 2, /**< The same, for two devices. */
  ZE_CONVERT_PFM_TO_AFM = 3,         /**< Windows metrics to Type 1 metrics. */
  ZE_CONVERT_DLF_TO_PBM = 4,         /**< DLF font to Windows metrics. */
  ZE_CONVERT_PCL_TO_PFM = 5,         /**< PCL soft font to Windows metrics. */
  ZE_CONVERT_TFM_TO_PFM = 6,         /**< Intellifont metrics to Windows metrics. */
  ZE_CONVERT_TFM_TO_PFM_NAMED = 16,  /**< The same, with the stored name of the font. */
  ZE_CONVERT_PCL_TO_PFM_NAMED = 17   /**< PCL soft font, with its stored name. */
};

/** Bits of ZeFontInfo::flags; all others are 0. */
enum ZeFontFlags {
  ZE_FONT_BINARY = 0x01,       /**< A binary file; PFA and AFM are text. */
  ZE_FONT_STANDARD = 0x02,     /**< Every file whose extension is not refused, but for a PFB whose
                                    encoding is not StandardEncoding. */
  ZE_FONT_PROPORTIONAL = 0x04, /**< PCL soft fonts: bit 0 of the spacing byte. */
  ZE_FONT_BIT_3 = 0x08, /**< DLF, FMF, PFM, PSM, PBM, PFA, PFB, AFM and formats 17, 18, 20. */
  ZE_FONT_BIT_5 = 0x20  /**< FMF, PFM, PSM, PBM, PFA, PFB and formats 17, 18, 20. */
};

/** Bits of ZeMacroInfo::macroFlags. Other bits are not read. */
enum ZeMacroFlags {
  ZE_MACRO_DEMO = 0x01,   /**< PostScript: the stored file's name gets ".demo", the printer's own
                               extension of names is off while it is written, and a stored overlay
                               that was fixed up shows its page. */
  ZE_MACRO_FIX_UP = 0x02, /**< Send what the fixup makes of the file (ZeFixupOptions). */
  ZE_MACRO_CHAIN = 0x04,  /**< PCL: the new macro first calls the macro `chainId`. */
  ZE_MACRO_FIX_UP_LIMIT = 0x08 /**< As ZE_MACRO_FIX_UP, with the caller's `fixupLimit`; the call
                                    then sets ZE_MACRO_FIX_UP in the caller's record. */
};

/**
 * What the fixup of a PCL macro drops besides PJL lines, universal exits, bracket-K blocks and
 * "ESC & n" data: ZeMacroInfo::fixupLimit. Always dropped are the parameters F and P of "ESC & l",
 * M of "ESC & b", X with the values 6, 7 and 10 of "ESC & f", and F with 0 and 1 of "ESC * c".
 */
enum ZeFixupOptions {
  ZE_FIXUP_RESET = 0x001,          /**< "ESC E". */
  ZE_FIXUP_FORM_FEED = 0x002,      /**< Form feeds outside HP-GL/2. */
  ZE_FIXUP_PAPER_SIZE = 0x004,     /**< "ESC & l" A. */
  ZE_FIXUP_PAPER_SOURCE = 0x008,   /**< "ESC & l" H. */
  ZE_FIXUP_DUPLEX = 0x010,         /**< "ESC & l" S, "ESC & a" G. */
  ZE_FIXUP_ORIENTATION = 0x020,    /**< "ESC & l" O. */
  ZE_FIXUP_JOB_SEPARATION = 0x040, /**< "ESC & l" T with the value 1. */
  ZE_FIXUP_COPIES = 0x080,         /**< "ESC & l" X. */
  ZE_FIXUP_PERFORATION = 0x100,    /**< "ESC & l" L. */
  ZE_FIXUP_FLUSH = 0x200,          /**< "ESC & r" F. */
  ZE_FIXUP_OUTPUT_BIN = 0x400,     /**< "ESC & l" G. */
  ZE_FIXUP_MACRO_CONTROL = 0x800,  /**< "ESC & f" X with the values 0 and 1. */
  ZE_FIXUP_DEFAULT = 0x33F         /**< In force unless ZE_MACRO_FIX_UP_LIMIT is set. */
};

/** Modes of ZeMacDownload(). */
enum ZeMacroMode {
  ZE_MACRO_PRINT_ONCE = 1, /**< Print one page with the macro as its overlay. */
  ZE_MACRO_STORE = 2,      /**< Store it. */
  ZE_MACRO_RAW = 3         /**< Send the file as it is; a PCL macro is made permanent. */
};

/** `wrap` argument of ZeMacDownload(). */
enum ZeMacroWrap {
  ZE_MACRO_UNWRAPPED = 0, /**< The file brings its own definition commands. */
  ZE_MACRO_WRAPPED = 29   /**< The call adds those of the language; not for PCL XL. */
};

/** How ZeDemDownload() stores a demo, ZeDemoInfo::method. */
enum ZeDemoMethod {
  ZE_DEMO_POSTSCRIPT = 1,    /**< A file, written through the PostScript interpreter. */
  ZE_DEMO_PJL_FILE = 2,      /**< A file, written with the PJL file commands. */
  ZE_DEMO_BRACKET_D = 3,     /**< A block with a bracket-D header ("ESC [ D"). */
  ZE_DEMO_PJL_DEMO_FILE = 4, /**< A file, written with the PJL demo-file commands. */
  ZE_DEMO_NOTHING = 5        /**< Nothing is sent but the frame of the job. */
};

#pragma pack(push, 1)

/**
 * Where and how a job goes; 48 bytes. The caller fills it, the library only reads
 * it, but that ZeDemDownload() sets `language`.
 * Fields named `reserved` are not read and may carry anything.
 */
typedef struct ZeDestination {
  uint32_t flags;           /**< 0: ZE_FLAG_... bits. */
  uint32_t deviceClass;     /**< 4: 2 asks for the initial-conditions sequence before the command
                                 that makes a device the download target. */
  int32_t language;         /**< 8: ZE_LANGUAGE_... of the job. */
  uint32_t fontQueryOption; /**< 12: query option used by font download. */
  uint32_t reserved16;      /**< 16 */
  uint16_t copies;          /**< 20: copies of ZeDatSendFile() and, for bracket-K printers, of every
                                 job that selects its language, in PCL, PCL XL or none; 0 means one. */
  uint16_t resourceId;      /**< 22: PCL font ID, or macro ID below 32768. */
  uint16_t ppdsFontCode;    /**< 24: first parameter of a PPDS font download. */
  uint16_t ppdsFontSlot;    /**< 26: second parameter of a PPDS font download. */
  uint8_t reserved28[11];   /**< 28 */
  uint16_t bidiPort;        /**< 39: port word for `VELBCE.DLL`. */
  uint16_t bidiHandle;      /**< 41: handle word for `VELBCE.DLL`; non-zero selects it. */
  const char* jobName;      /**< 43: document name and PJL ready message (its first 20 characters);
                                 null: "Vantrel Job" for the spooler, no ready message. */
  uint8_t channel;          /**< 47: when non-zero, the channel character of the bracket-K language
                                 selection; it stays in force for later jobs in that language. */
} ZeDestination;
ZEAPI_ASSERT_OFFSET(ZeDestination, flags, 0);
ZEAPI_ASSERT_OFFSET(ZeDestination, deviceClass, 4);
ZEAPI_ASSERT_OFFSET(ZeDestination, language, 8);
ZEAPI_ASSERT_OFFSET(ZeDestination, fontQueryOption, 12);
ZEAPI_ASSERT_OFFSET(ZeDestination, reserved16, 16);
ZEAPI_ASSERT_OFFSET(ZeDestination, copies, 20);
ZEAPI_ASSERT_OFFSET(ZeDestination, resourceId, 22);
ZEAPI_ASSERT_OFFSET(ZeDestination, ppdsFontCode, 24);
ZEAPI_ASSERT_OFFSET(ZeDestination, ppdsFontSlot, 26);
ZEAPI_ASSERT_OFFSET(ZeDestination, reserved28, 28);
ZEAPI_ASSERT_OFFSET(ZeDestination, bidiPort, 39);
ZEAPI_ASSERT_OFFSET(ZeDestination, bidiHandle, 41);
ZEAPI_ASSERT_OFFSET(ZeDestination, jobName, 43);
ZEAPI_ASSERT_OFFSET(ZeDestination, channel, 47);
ZEAPI_ASSERT_SIZE(ZeDestination, 48);

/** A printer macro or overlay; 40 bytes. Fields named `reserved` are not read. */
typedef struct ZeMacroInfo {
  uint32_t macroFlags;   /**< 0: ZE_MACRO_DEMO to ZE_MACRO_FIX_UP_LIMIT. */
  char macroName[24];    /**< 4: name of macro, procedure, file or stream, at most 23 characters;
                              empty: the file's name in upper case. */
  uint16_t chainId;      /**< 28: PCL macro that the new one calls first. */
  int32_t macroDevice;   /**< 30: ZE_DEVICE_..., where it is stored. */
  uint8_t reserved34[2]; /**< 34 */
  uint32_t fixupLimit;   /**< 36: ZE_FIXUP_... bits in force with ZE_MACRO_FIX_UP_LIMIT. */
} ZeMacroInfo;
ZEAPI_ASSERT_OFFSET(ZeMacroInfo, macroFlags, 0);
ZEAPI_ASSERT_OFFSET(ZeMacroInfo, macroName, 4);
ZEAPI_ASSERT_OFFSET(ZeMacroInfo, chainId, 28);
ZEAPI_ASSERT_OFFSET(ZeMacroInfo, macroDevice, 30);
ZEAPI_ASSERT_OFFSET(ZeMacroInfo, reserved34, 34);
ZEAPI_ASSERT_OFFSET(ZeMacroInfo, fixupLimit, 36);
ZEAPI_ASSERT_SIZE(ZeMacroInfo, 40);

/**
 * What ZeGenQueryApiInfo() answers: 64 words, 128 bytes. Word 0 is ZE_API_VERSION, word 1 the word
 * size of the library in bits (32, a constant of the interface on every host), words 2 and 3 are 2,
 * words 11, 12, 16, 17, 20, 23, 26 and 28 are 1, all others 0.
 */
typedef struct ZeApiInfo {
  uint16_t words[64]; /**< 0 */
} ZeApiInfo;
ZEAPI_STATIC_ASSERT(sizeof(ZeApiInfo) == 128, "ZeApiInfo changed size");

/** One font of a cartridge. The entry and its name are memory of their own. */
typedef struct ZeCartridgeFont {
  char* name;                   /**< 0: face name, " (It)" and " (Bd)" appended; 91 bytes. */
  struct ZeCartridgeFont* next; /**< 4: the next one in the order of the file, or null. */
} ZeCartridgeFont;
ZEAPI_ASSERT_OFFSET(ZeCartridgeFont, name, 0);
ZEAPI_ASSERT_OFFSET(ZeCartridgeFont, next, 4);
ZEAPI_ASSERT_SIZE(ZeCartridgeFont, 8);

/** What a font cartridge holds. The structure and its name are memory of their own. */
typedef struct ZeCartridge {
  char* name;             /**< 0: name of the cartridge; 80 bytes. */
  ZeCartridgeFont* fonts; /**< 4: first of its fonts, or null. */
} ZeCartridge;
ZEAPI_ASSERT_OFFSET(ZeCartridge, name, 0);
ZEAPI_ASSERT_OFFSET(ZeCartridge, fonts, 4);
ZEAPI_ASSERT_SIZE(ZeCartridge, 8);

/**
 * What ZeFonQueryInfo() tells about a font file; 714 bytes. Texts are terminated; longer ones are
 * cut to their field. A companion file's path that does not fit its field counts as missing.
 */
typedef struct ZeFontInfo {
  uint32_t flags;          /**< 0: ZE_FONT_BINARY to ZE_FONT_BIT_5. */
  uint32_t kind;           /**< 4: ZE_FONT_KIND_... */
  uint32_t format;         /**< 8: ZE_FONT_TYPE1 to ZE_FONT_CARTRIDGE. */
  uint16_t xResolution;    /**< 12: dots per inch; ZE_FONT_PCL_RESOLUTION only. */
  uint16_t yResolution;    /**< 14: dots per inch; ZE_FONT_PCL_RESOLUTION only. */
  uint32_t fileSize;       /**< 16: bytes. */
  uint32_t printerMemory;  /**< 20: estimate of the printer memory that it takes, bytes. */
  char description[80];    /**< 24: readable description in one line. */
  char detail[80];         /**< 104: PCL: vendor, typeface and font number; AFM: menu name and
                                style of the INF companion. */
  char symbolSet[6];       /**< 184: PCL symbol set code such as "8U"; empty when unbound. */
  char companionFile[260]; /**< 190: companion that download or conversion needs. */
  char metricsFile[260];   /**< 450: metrics file that belongs to the font: Windows metrics, the DLF
                                of an FMF, the TFM of a scalable PCL font that a search found. */
  ZeCartridge* cartridge;  /**< 710: PCM files only, otherwise null. */
} ZeFontInfo;
ZEAPI_ASSERT_OFFSET(ZeFontInfo, flags, 0);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, kind, 4);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, format, 8);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, xResolution, 12);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, yResolution, 14);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, fileSize, 16);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, printerMemory, 20);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, description, 24);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, detail, 104);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, symbolSet, 184);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, companionFile, 190);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, metricsFile, 450);
ZEAPI_ASSERT_OFFSET(ZeFontInfo, cartridge, 710);
ZEAPI_ASSERT_SIZE(ZeFontInfo, 714);

/** A demonstration page to be stored; 37 bytes. Fields named `reserved` are not read. */
typedef struct ZeDemoInfo {
  uint8_t options;      /**< 0: bit 0 goes to the bracket-D header. */
  uint8_t reserved1[3]; /**< 1 */
  int32_t method;       /**< 4: ZE_DEMO_... */
  char name[24];        /**< 8: stored name, at most 23 characters; empty: the file's name in upper
                             case. */
  uint8_t slot;         /**< 32: goes to the bracket-D header. */
  int32_t device;       /**< 33: ZE_DEVICE_FLASH1 to ZE_DEVICE_DISK2. */
} ZeDemoInfo;
ZEAPI_ASSERT_OFFSET(ZeDemoInfo, options, 0);
ZEAPI_ASSERT_OFFSET(ZeDemoInfo, reserved1, 1);
ZEAPI_ASSERT_OFFSET(ZeDemoInfo, method, 4);
ZEAPI_ASSERT_OFFSET(ZeDemoInfo, name, 8);
ZEAPI_ASSERT_OFFSET(ZeDemoInfo, slot, 32);
ZEAPI_ASSERT_OFFSET(ZeDemoInfo, device, 33);
ZEAPI_ASSERT_SIZE(ZeDemoInfo, 37);

/** What a search was for, ZeFoundFile::kind. */
enum ZeFoundKind {
  ZE_FOUND_FONT = 1, /**< `info` is a ZeFontInfo. */
  ZE_FOUND_DEMO = 2, /**< `info` is null. */
  ZE_FOUND_MACRO = 3 /**< `info` is a ZeMacroInfo. */
};

/**
 * A file that a search found; 277 bytes. The list runs from the file found last to the first one
 * and belongs to the caller, who gives it back as a whole with ZeFonFindFree().
 */
typedef struct ZeFoundFile {
  char path[260];           /**< 0: full path of the file. */
  void* info;               /**< 260: the record that `kind` tells, or null. */
  struct ZeFoundFile* next; /**< 264: the file found before this one, or null. */
  uint32_t kind;            /**< 268: ZE_FOUND_... */
  uint8_t rootLength;       /**< 272: macros and demos: length of the searched folder's part of
                                 `path` with its separator, its low 8 bits. Fonts: 0. */
  uint32_t size;            /**< 273: size of the file in bytes. */
} ZeFoundFile;
ZEAPI_ASSERT_OFFSET(ZeFoundFile, path, 0);
ZEAPI_ASSERT_OFFSET(ZeFoundFile, info, 260);
ZEAPI_ASSERT_OFFSET(ZeFoundFile, next, 264);
ZEAPI_ASSERT_OFFSET(ZeFoundFile, kind, 268);
ZEAPI_ASSERT_OFFSET(ZeFoundFile, rootLength, 272);
ZEAPI_ASSERT_OFFSET(ZeFoundFile, size, 273);
ZEAPI_ASSERT_SIZE(ZeFoundFile, 277);

/** Accounting of one job. A field's name tells the elements it comes from, below element 2 of the
 * record; what the printer means by them is the printer's own. Texts are zero-terminated. */
typedef struct ZeJobAccountJob {
  int32_t value1_1;  /**< 0. */
  int32_t value1_2;  /**< 4. */
  int32_t value1_3;  /**< 8. */
  int32_t value1_4;  /**< 12. */
  int32_t value1_5;  /**< 16. */
  int32_t value1_6;  /**< 20. */
  char text1_7[10];  /**< 24. */
  int32_t value1_8;  /**< 34. */
  int32_t value1_9;  /**< 38. */
  int32_t value1_10; /**< 42. */
  char text1_11[16]; /**< 46. */
  char text2_1[41];  /**< 62. */
  char text2_2[21];  /**< 103. */
  char text2_3[21];  /**< 124. */
  int32_t value2_4;  /**< 145. */
  int32_t value2_5;  /**< 149. */
  int32_t value2_6;  /**< 153. */
  int32_t value2_7;  /**< 157. */
  int32_t value2_8;  /**< 161. */
  int32_t value2_9;  /**< 165. */
  int32_t value2_10; /**< 169. */
} ZeJobAccountJob;
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_1, 0);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_2, 4);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_3, 8);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_4, 12);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_5, 16);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_6, 20);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, text1_7, 24);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_8, 34);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_9, 38);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value1_10, 42);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, text1_11, 46);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, text2_1, 62);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, text2_2, 103);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, text2_3, 124);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value2_4, 145);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value2_5, 149);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value2_6, 153);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value2_7, 157);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value2_8, 161);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value2_9, 165);
ZEAPI_ASSERT_OFFSET(ZeJobAccountJob, value2_10, 169);
ZEAPI_ASSERT_SIZE(ZeJobAccountJob, 173);

/** Running totals of the printer, from the elements below element 3 of the record. */
typedef struct ZeJobAccountTotals {
  int32_t value1_1; /**< 0. */
  int32_t value2_1; /**< 4. */
  int32_t value2_2; /**< 8. */
  int32_t value2_3; /**< 12. */
  int32_t value2_4; /**< 16. */
  int32_t value2_5; /**< 20. */
  char text2_6[16]; /**< 24. */
  int32_t value2_7; /**< 40. */
  char text2_8[10]; /**< 44. */
  int32_t value3_1; /**< 54. */
  int32_t value3_2; /**< 58. */
  int32_t value3_3; /**< 62. */
  int32_t value3_4; /**< 66. */
  int32_t value3_5; /**< 70. */
} ZeJobAccountTotals;
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value1_1, 0);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value2_1, 4);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value2_2, 8);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value2_3, 12);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value2_4, 16);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value2_5, 20);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, text2_6, 24);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value2_7, 40);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, text2_8, 44);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value3_1, 54);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value3_2, 58);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value3_3, 62);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value3_4, 66);
ZEAPI_ASSERT_OFFSET(ZeJobAccountTotals, value3_5, 70);
ZEAPI_ASSERT_SIZE(ZeJobAccountTotals, 74);

#pragma pack(pop)

/* Pointers and 32-bit numbers alone need no packing, and aligned they can be used everywhere. */

/** One installed option: an entry of ZeOptionInfo::items. What the printer means by the elements is the
 * printer's own. */
typedef struct ZeOptionItem {
  int32_t value1; /**< 0: element 1. */
  int32_t value5; /**< 4: element 5. */
  char* text6;    /**< 8: element 6; empty when the element is, null when there is none. */
} ZeOptionItem;
ZEAPI_ASSERT_OFFSET(ZeOptionItem, value1, 0);
ZEAPI_ASSERT_OFFSET(ZeOptionItem, value5, 4);
ZEAPI_ASSERT_OFFSET(ZeOptionItem, text6, 8);
ZEAPI_ASSERT_SIZE(ZeOptionItem, 12);

/** One group of options: an entry of ZeOptionInfo::groups. */
typedef struct ZeOptionGroup {
  char* text1;         /**< 0: element 1; null when it is empty or not there. */
  char* text2;         /**< 4: element 2; null when it is empty or not there. */
  uint32_t valueCount; /**< 8: number of `values`. */
  int32_t* values;     /**< 12: element 1 of each child of element 3. */
} ZeOptionGroup;
ZEAPI_ASSERT_OFFSET(ZeOptionGroup, text1, 0);
ZEAPI_ASSERT_OFFSET(ZeOptionGroup, text2, 4);
ZEAPI_ASSERT_OFFSET(ZeOptionGroup, valueCount, 8);
ZEAPI_ASSERT_OFFSET(ZeOptionGroup, values, 12);
ZEAPI_ASSERT_SIZE(ZeOptionGroup, 16);

/** What ZeParseOptionInfo() makes of an option record. */
typedef struct ZeOptionInfo {
  uint32_t itemCount;    /**< 0: number of `items`. */
  ZeOptionItem* items;   /**< 4: null when there are none. */
  uint32_t groupCount;   /**< 8: number of `groups`. */
  ZeOptionGroup* groups; /**< 12: null when there are none. */
} ZeOptionInfo;
ZEAPI_ASSERT_OFFSET(ZeOptionInfo, itemCount, 0);
ZEAPI_ASSERT_OFFSET(ZeOptionInfo, items, 4);
ZEAPI_ASSERT_OFFSET(ZeOptionInfo, groupCount, 8);
ZEAPI_ASSERT_OFFSET(ZeOptionInfo, groups, 12);
ZEAPI_ASSERT_SIZE(ZeOptionInfo, 16);

/** What ZeParseJobAccountingAlert() makes of a job accounting record. */
typedef struct ZeJobAccount {
  ZeJobAccountJob* job;       /**< 0: null when the record has none. */
  ZeJobAccountTotals* totals; /**< 4: null when the record has none. */
} ZeJobAccount;
ZEAPI_ASSERT_OFFSET(ZeJobAccount, job, 0);
ZEAPI_ASSERT_OFFSET(ZeJobAccount, totals, 4);
ZEAPI_ASSERT_SIZE(ZeJobAccount, 8);

/**
 * Called by ZeZipExplode() after each file that it has extracted; the result is ignored.
 * @param name            the file's path from the current directory, components separated by `/`; valid
 *                        during the call.
 * @param compressedSize  bytes of the member in the archive, as the archive's directory states them.
 * @param percentage      `compressedSize` in per cent of all compressed sizes that this process has read
 *                        from directories of archives so far, rounded half up; 0 of nothing. That sum
 *                        is never reset, so the same archive gives less the next time.
 */
typedef uint32_t(ZEAPI_CALL* ZeZipProgress)(const char* name, uint32_t compressedSize,
                                            uint32_t percentage);

/**
 * Called by ZeFilModify() for each line.
 * @param line   the line with its newline, in a buffer of 2048 bytes: it may be rewritten in place
 * or emptied. The buffer is valid during the call only.
 * @param value  the caller's own value.
 * @return ignored.
 */
typedef uint32_t(ZEAPI_CALL* ZeModifyCallback)(char* line, uint32_t value);

/**
 * Called by ZeFonFind2() for each file that it looks at and for each font that it lists.
 * @param font     null for a file; for a font its record, which is valid during the call only.
 * @param percent  how many of the files are done.
 */
typedef void(ZEAPI_CALL* ZeFontProgress)(const ZeFontInfo* font, uint32_t percent);

/** @name General */
/** @{ */

/**
 * Fills the 128-byte capability record (ZeApiInfo). A null pointer is ignored.
 * @param info  receives the record, or null.
 */
ZEAPI_EXPORT void ZEAPI_CALL ZeGenQueryApiInfo(void* info) ZEAPI_NOEXCEPT;

/**
 * Releases a block that a call of this library handed out as plain memory. Null is ignored.
 * @param block  what a call named this one to release, or null.
 */
ZEAPI_EXPORT void ZEAPI_CALL ZeMemFree(void* block) ZEAPI_NOEXCEPT;

/**
 * Checks its arguments and nothing else: adapters are not enumerated and `buffer` is not written.
 * @param a       not used.
 * @param b       not used.
 * @param buffer  not null; left alone.
 * @param size    size of `buffer` in bytes, at least 1024; the low 16 bits count.
 * @return ZE_OK; ZE_INVALID_ARGUMENT for a null or smaller buffer.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeGenQueryAdapters(uint32_t a, uint32_t b, void* buffer,
                                                    uint32_t size) ZEAPI_NOEXCEPT;

/**
 * Like ZeGenQueryAdapters(), for queues.
 * @param a       not used.
 * @param b       not used.
 * @param buffer  not null; left alone.
 * @param size    as of ZeGenQueryAdapters().
 * @return as ZeGenQueryAdapters().
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeGenQueryQueues(uint32_t a, uint32_t b, void* buffer,
                                                  uint32_t size) ZEAPI_NOEXCEPT;

/**
 * Asks `VELBCE.DLL` how a printer is connected.
 * @param printer  printer value as that DLL knows it.
 * @return a type mask, not a result code: 2048, 32, 4 or 2; 0 when the DLL or its entry point is
 *         not there or it names none of these.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeNetGetType(uint32_t printer) ZEAPI_NOEXCEPT;

/**
 * Sends one storage request to a printer as a job of its own.
 * @param request      ZE_RESOURCE_...
 * @param printerName  printer or path, at most 259 characters (this call alone refuses 260).
 * @param destination  where and how the job goes. Copies are not used.
 * @param device       ZE_DEVICE_...; checked for every request, used by requests 2 and 3.
 * @return ZE_OK, ZE_INVALID_ARGUMENT, ZE_OPEN_FAILED, ZE_WRITE_FAILED, ZE_OUT_OF_MEMORY,
 *         ZE_PRINTER_WRITE_FAILED or ZE_UNUSABLE.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeGenResource(int32_t request, const char* printerName,
                                               const ZeDestination* destination,
                                               int32_t device) ZEAPI_NOEXCEPT;
/** @} */

/** @name Data jobs */
/** @{ */

/**
 * Sends a file to a printer as a complete job. A bracket-K printer gets its language selection
 * first, a PJL printer the PJL header with copies; a printer with neither gets the data once per
 * copy.
 * @param fileName     at most ZE_MAX_NAME characters.
 * @param printerName  printer or path, at most ZE_MAX_NAME characters.
 * @param destination  where and how the job goes.
 * @param append       when the job goes to a file: non-zero appends to it, 0 replaces it.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (also for a language outside 0..6); ZE_FILE_NOT_FOUND;
 *         ZE_OPEN_FAILED (file or printer); ZE_READ_FAILED; ZE_WRITE_FAILED; ZE_OUT_OF_MEMORY;
 *         ZE_PRINTER_WRITE_FAILED; ZE_UNUSABLE.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeDatSendFile(const char* fileName, const char* printerName,
                                               const ZeDestination* destination,
                                               uint32_t append) ZEAPI_NOEXCEPT;

/**
 * Sends a short string to a printer as a complete job. The first character of `text` says what
 * follows:
 * - `%`: the name of a file; the call becomes ZeDatSendFile().
 * - `$`: text in which `\n` is a line feed, `\xHH` the byte HH and `\` before any other character
 *   that character. A zero byte ends the data; an escape cut off by the end of the text is dropped.
 * - anything else: the whole text is pairs of hexadecimal digits.
 *
 * Copies and the bracket-K bit are not used, and the trailer does not reset the printer.
 * @param text         at most 2147483645 characters.
 * @param printerName  printer or path, at most ZE_MAX_NAME characters.
 * @param destination  where and how the job goes.
 * @param append       as of ZeDatSendFile().
 * @return as ZeDatSendFile(); ZE_INVALID_ARGUMENT also for an odd number of digits or a pair that
 *         is not hexadecimal, in which case nothing is sent.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeDatSendString(const char* text, const char* printerName,
                                                 const ZeDestination* destination,
                                                 uint32_t append) ZEAPI_NOEXCEPT;
/** @} */

/** @name Fonts */
/** @{ */

/**
 * Turns the metrics of one font file into another metrics format. The input is read whole before the
 * output is created; an output that failed halfway stays as it is.
 *
 * | conversion | input | output | default name |
 * |---|---|---|---|
 * | 1 | AFM, with the INF beside it | Windows metrics for the PostScript device | .PFM |
 * | 2 | the same | the same, and a second file for the PCL 5 device | .PFM and .PSM |
 * | 3 | Windows metrics | AFM text, widths in Adobe's standard encoding or the font's codes | .AFM |
 * | 4 | DLF font | Windows metrics for the "Velquist LaserPrinter" device | .PBM |
 * | 5 | PCL soft font, with its characters | Windows metrics for the "PCL / HP LaserJet" device | .PFM |
 * | 17 | the same | the same, with the font's stored name and symbol set | .PFM |
 * | 6 | Intellifont metrics (TFM) | Windows metrics for the "PCL5 / HP LaserJet III" device | .PFM |
 * | 16 | the same | the same, with the stored name of the PCL font in `fontFile` | .PFM |
 *
 * Conversions 5, 16 and 17 rewrite the diagnostic file `c:\apifonts.txt`. A DLF font without a name
 * gives no file and ZE_OK.
 * @param fontFile    at most ZE_MAX_NAME characters.
 * @param outputFile  at most ZE_MAX_NAME characters; null or empty: the font file with the default
 *                    extension. In conversions 1 and 2 a name without "." is a folder for a file of
 *                    that name, and conversion 2 gives the name its two extensions.
 * @param option1     conversions 6 and 16: what ZeFonQueryInfo() tells about the PCL font; its
 *                    `printerMemory`, `symbolSet` and the path that `option2` names are read.
 * @param option2     conversions 6 and 16: which path names the TFM file; 2 `companionFile`, 4
 *                    `metricsFile`.
 * @param conversion  ZeFontConversion.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (no font file, a name too long; then, for a file that exists, an
 *         unknown conversion, or no record or path for 6 and 16); ZE_FILE_NOT_FOUND (the font file or
 *         the INF); ZE_OPEN_FAILED (an input cannot be opened or is no regular file, the output cannot
 *         be created; conversion 16: the font file does not begin as a PCL soft font);
 *         ZE_WRITE_FAILED (AFM); ZE_OUT_OF_MEMORY; ZE_BAD_FORMAT: the input is not what the
 *         conversion wants, or is damaged; ZE_COPY_FAILED: Windows metrics could not be written whole.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFonConvert(const char* fontFile, const char* outputFile,
                                              const ZeFontInfo* option1, uint32_t option2,
                                              uint32_t conversion) ZEAPI_NOEXCEPT;

/**
 * Looks at one font file and tells what it is. The kind is decided by the extension: the first
 * three characters after the last dot of the whole path, in any case. CFG, FF, TYP, TXT, ME, BAT,
 * CMD, COM and EXE are refused; an extension that is not of a known kind means a PCL soft font
 * (font header behind ESC ")s", digits, "W"), whose parse rewrites the diagnostic file
 * `c:\apifonts.txt`. Formats read: PFA, PFB, AFM with INF, PFM, PSM, PBM, PCM, DLF, FMF; TFM, FOT
 * and TTF are told by their names alone.
 * @param fontFile  at most ZE_MAX_NAME characters.
 * @param info      cleared first, then filled; on failure it holds what was known by then. The
 *                  `cartridge` of a PCM file belongs to the caller, who releases each font's name
 *                  and each font, then the cartridge's name and the cartridge, with ZeMemFree().
 * @param queryOption  which companion files must be there; any value but 2, 4 and 5 asks for none.
 *        2: DLF: the FMF. PFA, PFB: the AFM. 4: PFA, PFB: the PFM, or the INF and the AFM. AFM: the
 *        INF. 5: as 4, but what is missing is no failure.
 * @param includeMetricFiles  0: AFM, FMF, PFM, PSM, PBM, PCM and TFM are refused unopened.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (null argument, name too long or without an extension);
 *         ZE_FILE_NOT_FOUND; ZE_OPEN_FAILED; ZE_OUT_OF_MEMORY; ZE_BAD_FORMAT (not a font file, a
 *         refused one, or any FOT file, for which the record is filled all the same);
 *         ZE_UNSUPPORTED: the record is filled but a companion file is missing (an AFM file always
 *         needs its PFB; one whose INF is missing is not read and its record stays empty).
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFonQueryInfo(const char* fontFile, ZeFontInfo* info,
                                                uint32_t queryOption,
                                                uint32_t includeMetricFiles) ZEAPI_NOEXCEPT;

/**
 * Sends a font file to a printer as a complete job, into working memory or a storage device. The
 * font's format, as ZeFonQueryInfo() tells it, and the destination's language decide how:
 * - PCL soft fonts (8, 9, 11, 13, 15, 17, 18, 20): the PCL command that gives the font its ID
 *   (`resourceId`), the file as it is, the command that makes the font permanent. With the language
 *   ZE_LANGUAGE_PCLXL the file has to begin with ESC ")s", at most 5 characters and "W".
 * - DLF: the PPDS font ID command and the file as it is; with ZE_LANGUAGE_PCLXL the same check, which
 *   such fonts do not pass.
 * - Type 1 (PFA, PFB) with ZE_LANGUAGE_PPDS: the PPDS font ID command and the file in blocks of at
 *   most 2048 bytes, each with `ppdsFontCode` and `ppdsFontSlot` in its header.
 * - Type 1 with any other language: for PostScript, behind an exit-server header that needs a
 *   printer whose password is 0. The binary segments of a PFB are sent as hexadecimal text; where a
 *   segment is damaged the font ends, and the job ends as it should and reports success.
 * - TrueType (TTF): nothing between the job's beginning and end; ZE_BAD_FORMAT.
 *
 * A bracket-K printer gets its language selection, a PJL printer its header and trailer, one that
 * takes both gets both. A job that goes to a file is appended to it.
 * @param fontFile  at most ZE_MAX_NAME characters.
 * @param printerName  printer or path, at most ZE_MAX_NAME characters.
 * @param destination  `fontQueryOption` is passed to ZeFonQueryInfo(); companion files that it asks
 *        for may be missing.
 * @param target  ZE_DEVICE_...; all but ZE_DEVICE_RAM are named to the printer before the font, and
 *        working memory after it.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (also for a language outside 1..6, a target outside 1..5, or a
 *         font without an extension); ZE_FILE_NOT_FOUND; ZE_OPEN_FAILED (font or printer, or a font
 *         that fails the check of ZE_LANGUAGE_PCLXL; a font that vanishes between query and
 *         download gives ZE_FILE_NOT_FOUND if it is PCL, DLF or goes to PPDS, else this);
 *         ZE_READ_FAILED; ZE_WRITE_FAILED; ZE_OUT_OF_MEMORY; ZE_PRINTER_WRITE_FAILED (also for a
 *         PPDS block that a file refuses, unless the job's end finds ZE_WRITE_FAILED); ZE_UNUSABLE;
 *         ZE_BAD_FORMAT (also for a file that is not a downloadable font).
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFonDownload(const char* fontFile, const char* printerName,
                                               const ZeDestination* destination,
                                               int32_t target) ZEAPI_NOEXCEPT;

/**
 * Lists the fonts of a folder, each with its record, the one found last first. Files whose names
 * begin with "." are left out, and so is a font whose description another listed font has.
 * A text file `GLUE.TXT` in the folder comes first when `typeFilter` is 10, 12, 14, 16, 17, 18, 20,
 * 26 or 27: it names cartridges and PCL fonts with their symbol sets, metrics files and printer
 * memory. A scalable PCL font (formats 17, 18, 20) finds its metrics in the file that GLUE.TXT
 * names, or else beside it under the first three characters of its name and "0000S.TFM"; without
 * them `queryOption` 2 leaves it out and 4 takes a PFM file of its name or leaves it out.
 * @param directory   at most ZE_MAX_NAME characters.
 * @param count       in: how many fonts are wanted at most, 0 for 32767; out: how many were listed.
 * @param typeFilter  1 to 28. 10: formats 8, 9, 11, 13, 15, 17, 18, 20. 12: 11, 17. 14: 9, 13, 17.
 *        16: as 10 without 11. 26: all. 27: as 16 with 25 and 28, but no Windows metrics for the
 *        device "PostScript" or "Postscript" and none with an SFS file of their name. Any other: that
 *        format.
 * @param kindFilter  1 to 6: fonts of that kind; 5 and 6: of any.
 * @param queryOption as of ZeFonQueryInfo(); a font whose query does not give ZE_OK is left out.
 *        Metric files are included unless `kindFilter` is 3.
 * @param recurse     not 0: folders within are searched too. Their fonts are not listed, but each
 *        such search takes `count` for its limit, begins it anew and leaves it to the outer one.
 * @return the list, for ZeFonFindFree(); null when it is empty or an argument is bad (`count` is
 *         then left alone). Out of memory: what was listed so far.
 */
ZEAPI_EXPORT ZeFoundFile* ZEAPI_CALL ZeFonFind(const char* directory, uint16_t* count,
                                               uint32_t typeFilter, uint32_t kindFilter,
                                               uint32_t queryOption,
                                               uint32_t recurse) ZEAPI_NOEXCEPT;

/**
 * Like ZeFonFind(), but first counts the files of the folder (with `recurse` also of those within)
 * and then tells how far the search is.
 * @param directory    as of ZeFonFind().
 * @param count        as of ZeFonFind().
 * @param typeFilter   as of ZeFonFind().
 * @param kindFilter   as of ZeFonFind().
 * @param queryOption  as of ZeFonFind().
 * @param recurse      as of ZeFonFind().
 * @param progress     may be null.
 * @return as ZeFonFind().
 */
ZEAPI_EXPORT ZeFoundFile* ZEAPI_CALL ZeFonFind2(const char* directory, uint16_t* count,
                                                uint32_t typeFilter, uint32_t kindFilter,
                                                uint32_t queryOption, uint32_t recurse,
                                                ZeFontProgress progress) ZEAPI_NOEXCEPT;

/**
 * Releases a list that ZeFonFind(), ZeFonFind2(), ZeDemFind() or ZeMacFind() handed out: every node
 * with its record, and the cartridge of a font's record.
 * @param first  the list's first node, or null.
 */
ZEAPI_EXPORT void ZEAPI_CALL ZeFonFindFree(ZeFoundFile* first) ZEAPI_NOEXCEPT;
/** @} */

/** @name INI files
 *
 * A file is loaded whole when it is opened, answered and edited in memory, and written back to the
 * same name by ZeIniClose() if an edit was asked for. In between it is not held open. It is never
 * read or written through the profile calls of the system.
 *
 * A line `[name]` heads a section, a line with a `=` is a key and its value (all that follows the
 * first `=`, taken literally). Trailing blanks of lines and of keys are dropped on loading; tabs and
 * leading blanks are kept. A line comes in pieces of 1019 characters, its line feed included, and each
 * is taken as a line. Section names, keys and values are the same in either case of "a" to "z",
 * whatever the locale. Of several sections or keys of one name the first counts.
 *
 * A handle is used by one thread at a time. A null handle is answered as stated with each call.
 */
/** @{ */

/** Modes of ZeIniOpen2(). */
enum ZeIniMode {
  ZE_INI_READ = 1, /**< Existing file; empty lines and comments (`;` first, no `=`) are dropped. */
  ZE_INI_UPDATE = 7, /**< Existing file that can be written; every line is kept. */
  ZE_INI_CREATE = 8, /**< Makes the file or empties it at once. */
  ZE_INI_APPEND = 9  /**< Like ZE_INI_UPDATE, but makes the file when it is missing. */
};

/**
 * Opens a file like ZeIniOpen2() with ZE_INI_READ, unless it has no lines to keep.
 * @param name  at most ZE_MAX_NAME characters.
 * @return a handle for ZeIniClose(), or null.
 */
ZEAPI_EXPORT void* ZEAPI_CALL ZeIniOpen(const char* name) ZEAPI_NOEXCEPT;

/**
 * Loads a file.
 * @param name  at most ZE_MAX_NAME characters.
 * @param mode  of ZeIniMode; any other value gives null and touches no file.
 * @return a handle for ZeIniClose(); null when the file does not open (what is no regular file never
 *         does) or cannot be read to its end, when the name is null or too long, or when memory runs out.
 */
ZEAPI_EXPORT void* ZEAPI_CALL ZeIniOpen2(const char* name, uint32_t mode) ZEAPI_NOEXCEPT;

/**
 * Ends a handle. The file is written when one of ZeIniWrite(), ZeIniWriteAll() and ZeIniDelete() was
 * called, even if it changed nothing; what ZE_INI_READ dropped is then lost from it. Its lines then all
 * end as the host's do: CR LF on Windows, a line feed elsewhere.
 * @param handle  of ZeIniOpen() or ZeIniOpen2().
 * @return 1; 0 when the file cannot be opened for writing (the handle is gone all the same) and for
 *         a null handle.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeIniClose(void* handle) ZEAPI_NOEXCEPT;

/**
 * Looks up a value or goes through lines. With a key: its value. With a null key: the next line that
 * is no header, as it stands, an empty one as an empty string. The search begins below the section's
 * header, or with a null `section` behind the line that the last successful call on this handle
 * returned; it ends with the next header, which with a key is itself looked at for a `=`. After a
 * failure there is no line to go on from.
 * @param handle   of ZeIniOpen() or ZeIniOpen2().
 * @param section  its name without brackets, or null.
 * @param key      null for the next line.
 * @return text inside the image, valid until that line is rewritten or deleted or the handle is
 *         closed, not to be freed; an empty string when there is nothing (and for a null handle).
 */
ZEAPI_EXPORT const char* ZEAPI_CALL ZeIniRead(void* handle, const char* section,
                                              const char* key) ZEAPI_NOEXCEPT;

/**
 * Copies a value.
 * @param handle    of ZeIniOpen() or ZeIniOpen2().
 * @param section   its name without brackets.
 * @param key       whose value is wanted.
 * @param fallback  null, or what is copied when the file has no such key or section; may be empty.
 * @param buffer    receives the value and its terminator.
 * @param size      bytes of `buffer`.
 * @param count     receives the characters stored, without the terminator.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (null handle, section, key, buffer or count, or size 0;
 *         `count` is left alone); ZE_KEY_NOT_FOUND; ZE_SECTION_NOT_FOUND; ZE_DEFAULT_USED;
 *         ZE_BUFFER_TOO_SMALL: the buffer holds `size` characters of the value or default and no
 *         terminator. When memory runs out: ZE_OK, the count 0 and nothing stored.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeIniRead2(void* handle, const char* section, const char* key,
                                            const char* fallback, char* buffer, uint32_t size,
                                            uint32_t* count) ZEAPI_NOEXCEPT;

/**
 * Sets a key. Only the section's lines up to the first empty one are looked at: a key found there gets
 * the new line `key=value` in its place, otherwise that line is added behind them. A missing section
 * is appended to the file, behind an empty line unless it is the file's first.
 * @param handle   of ZeIniOpen() or ZeIniOpen2().
 * @param section  its name without brackets.
 * @param key      what stands before the `=`.
 * @param value    what stands behind it; may be empty.
 * @return 1; 0 when memory runs out or an argument is null.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeIniWrite(void* handle, const char* section, const char* key,
                                            const char* value) ZEAPI_NOEXCEPT;

/**
 * Like ZeIniWrite(), but for keys that have several values: adds a line `key=value` unless there is one
 * with this key and value.
 * @param handle   of ZeIniOpen() or ZeIniOpen2().
 * @param section  as of ZeIniWrite().
 * @param key      as of ZeIniWrite().
 * @param value    as of ZeIniWrite().
 * @return as ZeIniWrite().
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeIniWriteAll(void* handle, const char* section, const char* key,
                                               const char* value) ZEAPI_NOEXCEPT;

/**
 * Removes the first line of a section that has the key and, unless `value` is null, the value. Here a
 * line is cut at each run of `=`: its first piece that is not empty is the key (a line without `=` is
 * all key), the next one the value.
 * @param handle   of ZeIniOpen() or ZeIniOpen2().
 * @param section  its name without brackets.
 * @param key      null removes the section's header alone; its lines then belong to the section above.
 * @param value    null for any.
 * @return 1, also when nothing was removed; 0 when memory runs out and for a null handle or section.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeIniDelete(void* handle, const char* section, const char* key,
                                             const char* value) ZEAPI_NOEXCEPT;
/** @} */

/** @name Panel configuration
 *
 * The file `opcNNN.cfg` (an INI file) describes the dialogs of one printer model's operator panel. A
 * control is named by its key: its identifier in decimal, or where `[Format]` has a `Style` of 2 or more
 * in four lower-case hexadecimal digits (`001a`), then `-` and the sub-index unless that is 0. Values
 * longer than 3999 characters are cut; empty entries of lists are passed over. Identifiers, pages and
 * sizes have 16 bits; a sub-index keeps its 32 and is written without a sign.
 *
 * Queries that give a list return with a null buffer the bytes that it takes. A buffer that is too
 * small gets that number in its first 16-bit word, if it has room for one, and the call returns -1.
 * A null handle is answered like a file that says nothing.
 */
/** @{ */

/**
 * Loads the file of a panel, or adds a use to the one that is loaded. The process has five places; a
 * panel whose file does not open keeps its place.
 * @param panel      identifier; a negative one is formatted as an unsigned 32-bit number.
 * @param directory  where the file is; null: the current directory; empty: the root of the drive. 260
 *                   characters count.
 * @return a handle for the calls below and those on INI files, or null.
 */
ZEAPI_EXPORT void* ZEAPI_CALL ZeOpcRegisterCfg(int32_t panel, const char* directory) ZEAPI_NOEXCEPT;

/**
 * Ends one use; with the last the file is closed and the handle is gone.
 * @param handle  of ZeOpcRegisterCfg().
 * @return 1; 0 for a handle that is not registered and when closing failed.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeOpcUnregisterCfg(void* handle) ZEAPI_NOEXCEPT;

/**
 * Formats `opc%03u.cfg`.
 * @param panel   identifier, as of ZeOpcRegisterCfg().
 * @param buffer  room for 18 bytes.
 * @return 1.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeOpcGetFileName(int32_t panel, char* buffer) ZEAPI_NOEXCEPT;

/**
 * Reads `[Spin Limits]`: numbers between `;`. The first is the minimum, the second the maximum, the next
 * the third value; behind a minimum of -1 the second is the third value and the maximum is 0.
 * @param handle   of ZeOpcRegisterCfg(); null is a file that says nothing.
 * @param control  identifier of the control (low 16 bits).
 * @param minimum  receives the minimum.
 * @param maximum  receives the maximum.
 * @param third    left alone when the file has no such number. Null pointers are passed over.
 */
ZEAPI_EXPORT void ZEAPI_CALL ZeOpcGetSpinControlLimits(void* handle, int32_t control,
                                                       int32_t* minimum, int32_t* maximum,
                                                       int32_t* third) ZEAPI_NOEXCEPT;

/**
 * Reads `[Combos]`: decimal 16-bit text identifiers between `;`.
 * @param handle    of ZeOpcRegisterCfg(); null is a file that says nothing.
 * @param control   identifier of the control (low 16 bits).
 * @param subIndex  part of the key unless 0.
 * @param texts     receives them, in `size` bytes; nothing is stored beyond.
 * @param size      bytes of `texts` (low 16 bits).
 * @return their number; for null `texts` the bytes needed; -1; -2 when there is no list; -3 when memory
 *         runs out.
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeOpcGetTextListing(void* handle, int32_t control, int32_t subIndex,
                                                    uint16_t* texts, int32_t size) ZEAPI_NOEXCEPT;

/**
 * @param handle   of ZeOpcRegisterCfg(); null is a file that says nothing.
 * @param control  identifier of the control (low 16 bits).
 * @return the number in `[Edit Lengths]`, 0 when there is none.
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeOpcGetMaxEditLength(void* handle, int32_t control) ZEAPI_NOEXCEPT;

/**
 * Reads the defaults of a page's controls. `[Dialogs]` names the page's own section by the page number; there
 * `NumCtrls` is their number and `Defaults` has the control (hexadecimal) and its value (decimal) in turn
 * between `;`.
 * @param handle  of ZeOpcRegisterCfg(); null is a file that says nothing.
 * @param page  number of the page (low 16 bits).
 * @param records  receives for each control its identifier (16 bits) and its value (32 bits), 6 bytes
 *                 without padding, both low byte first; what the file leaves out is left alone.
 * @param size  bytes of `records` (low 16 bits).
 * @return `NumCtrls`; for null `records` the bytes needed; -1; -2 when the page has no section's name
 *         and when memory runs out.
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeOpcGetPageDefaults(void* handle, int32_t page, void* records,
                                                     int32_t size) ZEAPI_NOEXCEPT;

/**
 * Like ZeOpcGetPageDefaults(), for the option variables that a page sets: `NumOMVAR` and `OMVAR`,
 * hexadecimal identifiers between blanks.
 * @param handle  of ZeOpcRegisterCfg(); null is a file that says nothing.
 * @param page  number of the page (low 16 bits).
 * @param variables  receives 2 bytes for each, high byte first: all that the file lists, as far as the room
 *                   goes.
 * @param size  bytes of `variables` (low 16 bits).
 * @return the number stored; for null `variables` the bytes that `NumOMVAR` of them take; -1; -2.
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeOpcGetPageOmVars(void* handle, int32_t page, void* variables,
                                                   int32_t size) ZEAPI_NOEXCEPT;
/** @} */

/** @name QSF files
 *
 * Lists of printer option variables. A binary QSF file has a header of 74 bytes, low bytes first: magic
 * "QS" at 0; checksum (ZeFilChecksum() without word 2) at 2; file type at 4; flags A and B at 5 and 6;
 * offset and count of block 1 at 44 and 48, of block 2 at 50 and 54, of block 5 at 56 and 60. A block
 * ends where the next one starts, the last one with the file.
 */
/** @{ */

/**
 * Opens a binary QSF file and checks its header.
 * @param path    at most ZE_MAX_NAME characters; null and longer ones do not open.
 * @param type    the type that the file must have (low 8 bits).
 * @param handle  receives a handle for ZeQsfClose(), null on failure.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (null `handle`); ZE_OPEN_FAILED (also for what is no regular file
 *         and for fewer than 74 bytes);
 *         ZE_OUT_OF_MEMORY; then in this order ZE_UNKNOWN_TYPE, ZE_BAD_HEADER (magic, a flag above 1, or flag
 *         A alone with an empty block 1), ZE_READ_FAILED, ZE_BAD_CHECKSUM.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeQsfOpen(const char* path, uint32_t type,
                                           void** handle) ZEAPI_NOEXCEPT;

/**
 * Reads a block of variables.
 * @param handle  of ZeQsfOpen().
 * @param block      1, 2 or 5.
 * @param variables  receives the block, to be released with ZeMemFree(), null when there is none. When
 *                   both flags are 1 it begins with the length of what follows the prefix (32 bits, low byte
 *                   first) and the count (16 bits, high byte first).
 * @param count      receives the number of variables that the header states.
 * @return ZE_OK (with count 0 and no block when the header states 0); ZE_INVALID_ARGUMENT;
 *         ZE_READ_FAILED; ZE_SEEK_FAILED; ZE_OUT_OF_MEMORY; ZE_BAD_FORMAT: the block does not lie within
 *         the file.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeQsfGetVariables(void* handle, uint32_t block, void** variables,
                                                   uint16_t* count) ZEAPI_NOEXCEPT;

/**
 * Closes the file. A null handle is allowed.
 * @param handle  of ZeQsfOpen(), or null.
 */
ZEAPI_EXPORT void ZEAPI_CALL ZeQsfClose(void* handle) ZEAPI_NOEXCEPT;

/** Lists of ZeQsfIniGetSection(). */
enum ZeQsfList {
  ZE_QSF_REQUIRED = 1,
  ZE_QSF_OPTIONAL = 2,
  ZE_QSF_EXCLUDE = 3, /**< Falls back to `[DEFAULTEXCLUDE]`. */
  ZE_QSF_ORDER = 4    /**< Falls back to `[DEFAULTORDER]`. */
};

/**
 * Reads a list of variables from an INI file: section `012REQUIRED` for model 12, with the keys `NUMVARS`,
 * `NUMENTRIES` and `OMVARS1`, `OMVARS2`, ... of hexadecimal identifiers between blanks, in which every other
 * character is passed over.
 * @param ini        handle of an INI file.
 * @param kind       of ZeQsfList.
 * @param model      low 8 bits count.
 * @param variables  receives an array of 16-bit values, high byte first, to be released with
 *                   ZeMemFree(); null on failure.
 * @param count      receives their number, 0 on failure.
 * @return ZE_OK; ZE_INVALID_ARGUMENT; ZE_OUT_OF_MEMORY; ZE_BAD_FORMAT: a number is 0 or too large, an
 *         entry is empty, or there are not exactly `NUMVARS` variables; or a code of ZeIniRead2().
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeQsfIniGetSection(void* ini, uint32_t kind, uint32_t model,
                                                    uint16_t** variables,
                                                    uint16_t* count) ZEAPI_NOEXCEPT;
/** @} */

/** @name Printer data files
 *
 * Text files of printer commands, one record a line, its fields in the order of ZeDatRecord between any
 * mix of `,` `;` `:` blanks and characters that are not printable ASCII. Texts stand in double quotes and are
 * cut to their field; numbers have at most 24 characters and end at `,` `;` `:` or the line's end, not at a
 * blank. Empty lines and lines that begin with `#` are passed over. Every record ends with a line feed. These
 * calls return ZE_DAT_... codes.
 */
/** @{ */

/** Results of the calls on printer data files. */
enum ZeDatCode {
  ZE_DAT_OK = 0,
  ZE_DAT_INVALID = -1,     /**< Bad path or mode, or no such file. */
  ZE_DAT_FAILED = -2,      /**< No place or memory; closing failed; a record has a bad format. */
  ZE_DAT_BAD_HANDLE = -3,  /**< Not the handle of an open file; a null pointer. */
  ZE_DAT_OPEN_FAILED = -5, /**< The file did not open. */
  ZE_DAT_NOT_FOUND = -7,   /**< No such record, or none to go on from. */
  ZE_DAT_END_OF_FILE = -10 /**< There is no further record. */
};

/** The one mode in which data files open. */
#define ZE_DAT_READ 2

/** The letters of keys that ZeDatQueryCounts() counts. */
#define ZE_DAT_LETTERS "AFGPST"

#pragma pack(push, 1)
/** A record: a printer setting or command. Texts are zero-terminated within their fields. */
typedef struct ZeDatRecord {
  char szKey[6];        /**< What searches compare; counted by its letters (ZeDatCounts). */
  char szDescr[102];    /**< Readable description. */
  char szEmulation[6];  /**< Printer language that it belongs to. */
  char szCommand[102];  /**< What is sent to the printer. */
  char szVarFormat[6];  /**< Format of the command's variable part. */
  double dVarRangeLo;   /**< Smallest value of that part. */
  double dVarRangeHi;   /**< Largest value. */
  double dVarIncrement; /**< Step between values. */
  char szDuration[2];   /**< How long it lasts. */
} ZeDatRecord;

/** Numbers of records, in the order of ZE_DAT_LETTERS. They begin again at 0 after 65535. */
typedef struct ZeDatCounts {
  uint16_t first[6];  /**< By the first letter of the key, in either case. */
  uint16_t second[6]; /**< Of keys that begin with S, by the second letter. */
} ZeDatCounts;

/** A listed file. */
typedef struct ZeDatFileInfo {
  char path[260];             /**< The directory and the name of the file. */
  char description[48];       /**< What follows `#!`. */
  struct ZeDatFileInfo* next; /**< Null at the end. */
} ZeDatFileInfo;
#pragma pack(pop)

ZEAPI_ASSERT_SIZE(ZeDatRecord, 248);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, szKey, 0);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, szDescr, 6);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, szEmulation, 108);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, szCommand, 114);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, szVarFormat, 216);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, dVarRangeLo, 222);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, dVarRangeHi, 230);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, dVarIncrement, 238);
ZEAPI_ASSERT_OFFSET(ZeDatRecord, szDuration, 246);
ZEAPI_ASSERT_SIZE(ZeDatCounts, 24);
ZEAPI_ASSERT_OFFSET(ZeDatCounts, first, 0);
ZEAPI_ASSERT_OFFSET(ZeDatCounts, second, 12);
ZEAPI_ASSERT_SIZE(ZeDatFileInfo, 312);
ZEAPI_ASSERT_OFFSET(ZeDatFileInfo, path, 0);
ZEAPI_ASSERT_OFFSET(ZeDatFileInfo, description, 260);
ZEAPI_ASSERT_OFFSET(ZeDatFileInfo, next, 308);

/**
 * Opens a data file. At most four are open in the process.
 * @param path      at most ZE_MAX_NAME characters.
 * @param reserved  not used.
 * @param mode      ZE_DAT_READ.
 * @return a handle from 0 to 3; ZE_DAT_INVALID; ZE_DAT_FAILED (no place, no memory);
 *         ZE_DAT_OPEN_FAILED.
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeDatOpenFile(const char* path, uint32_t reserved,
                                              int32_t mode) ZEAPI_NOEXCEPT;

/**
 * @param handle  of ZeDatOpenFile().
 * @return ZE_DAT_OK; ZE_DAT_FAILED (no handle at all, or closing failed); ZE_DAT_BAD_HANDLE.
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeDatCloseFile(int32_t handle) ZEAPI_NOEXCEPT;

/**
 * Finds the first record of the file whose key begins with `record->szKey`, in the same case; an empty key
 * finds the first record.
 * @param handle  of ZeDatOpenFile().
 * @param record  receives it; left alone on failure. A key without a terminator has six characters.
 * @return ZE_DAT_OK; ZE_DAT_BAD_HANDLE; ZE_DAT_NOT_FOUND; ZE_DAT_FAILED (a record before it has a bad
 *         format). After a failure other than ZE_DAT_BAD_HANDLE there is no record to go on from.
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeDatGetFirstKey(int32_t handle,
                                                 ZeDatRecord* record) ZEAPI_NOEXCEPT;

/**
 * Reads the record behind the last one that was found, whatever its key.
 * @param handle  of ZeDatOpenFile().
 * @param record  receives it; left alone on failure.
 * @return ZE_DAT_OK; ZE_DAT_BAD_HANDLE; ZE_DAT_NOT_FOUND (none was found before);
 *         ZE_DAT_END_OF_FILE, also when asked again; ZE_DAT_FAILED.
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeDatGetNextKey(int32_t handle, ZeDatRecord* record) ZEAPI_NOEXCEPT;

/**
 * Counts the run of records from the first match of a key on whose keys begin with its first five
 * characters.
 * @param path  at most ZE_MAX_NAME characters.
 * @param key   a ZeDatRecord whose `szKey` is the key; it is overwritten with the last record read. No
 *              record begins with a key of more than five characters.
 * @param mode  ZE_DAT_READ.
 * @return the number; ZE_DAT_BAD_HANDLE (null key); ZE_DAT_OPEN_FAILED (the file does not open for any
 *         reason); ZE_DAT_FAILED (closing). The number is stored in 16 bits: one above 32767 looks like a
 *         code, and 65536 like 0. Where there may be so many, count with ZeDatGetFirstKey() and
 *         ZeDatGetNextKey().
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeDatQueryCount(const char* path, char* key,
                                                int32_t mode) ZEAPI_NOEXCEPT;

/**
 * Counts the records of a file by the letters of their keys, up to the first that has a bad format.
 * @param path    at most ZE_MAX_NAME characters.
 * @param counts  cleared, then filled.
 * @param mode    ZE_DAT_READ.
 * @return ZE_DAT_OK; ZE_DAT_BAD_HANDLE (null `counts`); ZE_DAT_OPEN_FAILED; ZE_DAT_FAILED (closing).
 */
ZEAPI_EXPORT int16_t ZEAPI_CALL ZeDatQueryCounts(const char* path, ZeDatCounts* counts,
                                                 int32_t mode) ZEAPI_NOEXCEPT;

/** Kinds of files that ZeDatQueryFiles() lists; any other value lists all. */
enum ZeDatFileKind {
  ZE_DAT_CONFIGURATION_FILES = 1, /**< `*.CFG` */
  ZE_DAT_SETUP_FILES = 2          /**< `*.PSS` */
};

/**
 * Lists the files of a directory whose first line holds `#!` and a description behind it.
 * @param directory  empty for the current one.
 * @param kind       of ZeDatFileKind.
 * @param count      receives their number, 65535 for more.
 * @return a list for ZeDatQueryFilesFree(); null when it is empty or an argument is null. When memory
 *         runs out, what was found so far.
 */
ZEAPI_EXPORT ZeDatFileInfo* ZEAPI_CALL ZeDatQueryFiles(const char* directory, uint32_t kind,
                                                       uint16_t* count) ZEAPI_NOEXCEPT;

/**
 * Releases a list of ZeDatQueryFiles(), which may be null.
 * @param list  its first node, or null.
 */
ZEAPI_EXPORT void ZEAPI_CALL ZeDatQueryFilesFree(ZeDatFileInfo* list) ZEAPI_NOEXCEPT;
/** @} */

/** @name Web links
 *
 * Addresses of support topics, on the site that the library was built for. Nothing is connected. Every
 * failure empties the buffer, if it has a size.
 */
/** @{ */

/** Topics of web links. */
enum ZeWebTopic {
  ZE_WEB_DRIVERS = 1,
  ZE_WEB_FIRMWARE = 2,
  ZE_WEB_HOMEPAGE = 3,
  ZE_WEB_QUORVIEW = 4,
  ZE_WEB_REGISTRATION = 5,
  ZE_WEB_SUPPLIES = 6,
  ZE_WEB_TECHSUPPORT = 7,
  ZE_WEB_PUBLICATIONS = 8
};

/**
 * Builds base `/` topic `/` language `/` printer.
 * @param printer   the caller's printer code, -1 for none.
 * @param topic     of ZeWebTopic.
 * @param language  a number, written in decimal.
 * @param buffer  receives the address.
 * @param size      bytes of `buffer`; the address and its terminator must fit.
 * @param ini       null, or an INI file that may override each part: `[AREA_PREFIX]` and `[AREA]` by the
 *                  topic in upper case, `[LANGUAGE]` and `[PRINTER]` by the number. An empty segment is
 *                  left out.
 * @return ZE_OK; ZE_DEFAULT_USED (the last part that was looked up was not in the file);
 *         ZE_INVALID_ARGUMENT (null `buffer`, no such topic, `size` 0 with an INI file); ZE_OUT_OF_MEMORY;
 *         ZE_BUFFER_TOO_SMALL; ZE_UNKNOWN_TYPE (no such printer).
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeWebGetURL(int32_t printer, int32_t topic, int32_t language,
                                             char* buffer, uint32_t size, void* ini) ZEAPI_NOEXCEPT;

/**
 * Builds an address with a query: topic, language code, printer, the user's language and the operating system.
 * @param family, model  of the printer, written as three decimal digits each.
 * @param topic          of ZeWebTopic.
 * @param language       Windows language identifier (low 16 bits) of the language code.
 * @param buffer         receives the address.
 * @param size           bytes of `buffer`: one more than the address and its terminator take.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (also `size` 0); ZE_BUFFER_TOO_SMALL.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeWebGetCGIURL(uint32_t family, uint32_t model, uint32_t topic,
                                                uint32_t language, char* buffer,
                                                uint32_t size) ZEAPI_NOEXCEPT;

/** @} */

/** @name Macros and overlays */
/** @{ */

/**
 * Sends a macro file as a macro definition, without any frame: PCL between the commands that start
 * and stop the definition, PPDS behind a definition header, PostScript with the comment
 * "%%Velquist Overlay: NAME" behind its "%!PS" line when it is fixed up, PCL XL as a stored stream
 * when it is fixed up.
 *
 * The fixup of a PCL XL file makes the work files `in.str`, `temp.str` and `out.str` anew in the
 * current directory and leaves them there. With ZE_MACRO_FIX_UP and PCL XL neither these nor the
 * `fixup.str` of ZeMacValidate() may be the macro file or the file that stands for a printer:
 * ZE_OPEN_FAILED, for the former before anything is opened for the job, for the latter after it
 * was opened and so emptied.
 * @param macroFile    must not be the text of `printerName`, whatever its case.
 * @param printerName  printer or path, at most ZE_MAX_NAME characters.
 * @param destination  `language` 1 to 6; `resourceId` is the macro's ID, in any range.
 * @param macro        may get ZE_MACRO_FIX_UP set; see ZE_MACRO_FIX_UP_LIMIT.
 * @return ZE_OK; ZE_INVALID_ARGUMENT; ZE_FILE_NOT_FOUND; ZE_BAD_FORMAT (the extension is that of a
 *         system file: BAT, CMD, COM, DLL, DRV, EXE, HLP, INI, SYS, by its first three characters);
 *         ZE_OPEN_FAILED (file, printer, `in.str` or `out.str`); ZE_READ_FAILED; ZE_WRITE_FAILED;
 *         ZE_OUT_OF_MEMORY; ZE_PRINTER_WRITE_FAILED; ZE_UNUSABLE; ZE_MACRO_TOO_LARGE;
 *         ZE_FIXUP_FAILED (a PCL XL file that cannot be fixed up, that cannot be read, or whose work files
 *         cannot be written whole). After a failed payload no stop command follows.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeMacCreate(const char* macroFile, const char* printerName,
                                             const ZeDestination* destination,
                                             ZeMacroInfo* macro) ZEAPI_NOEXCEPT;

/**
 * Sends a macro file as a complete job: for one page (ZE_MACRO_PRINT_ONCE), to be stored
 * (ZE_MACRO_STORE), or as it is (ZE_MACRO_RAW). A PostScript file is stored as a procedure in
 * working memory, as a file on a device. The fixup of a PCL XL file makes the work files of
 * ZeMacCreate(), which are refused in the same way. ZE_MACRO_RAW fixes nothing up and refuses none.
 * @param macroFile    as of ZeMacCreate().
 * @param printerName  printer or path, at most ZE_MAX_NAME characters.
 * @param destination  `language` 1 to 6; `resourceId` below 32768 unless `mode` is ZE_MACRO_RAW.
 * @param macro        `macroDevice` ZE_DEVICE_RAM to ZE_DEVICE_DISK2; may get ZE_MACRO_FIX_UP set.
 * @param mode         ZE_MACRO_PRINT_ONCE to ZE_MACRO_RAW.
 * @param wrap         ZE_MACRO_UNWRAPPED or ZE_MACRO_WRAPPED; the latter not for ZE_LANGUAGE_PCLXL.
 * @return as ZeMacCreate(). The job is ended properly after a payload that failed; printing once
 *         in languages that have no overlay (1 and 4) gives ZE_INVALID_ARGUMENT after the job.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeMacDownload(const char* macroFile, const char* printerName,
                                               const ZeDestination* destination, ZeMacroInfo* macro,
                                               int32_t mode, uint32_t wrap) ZEAPI_NOEXCEPT;

/**
 * Switches a stored PCL or PPDS macro on or off as automatic overlay, without any frame. Of the
 * PPDS command only the first four bytes are sent. PostScript and PCL XL send nothing.
 * @param printerName  printer or path, at most ZE_MAX_NAME characters.
 * @param destination  `resourceId`, below 32768, is the macro's ID.
 * @param enable       0 switches off.
 * @return ZE_OK, also when a write failed; ZE_INVALID_ARGUMENT (also for languages but 2, 3, 5 and
 *         6, after the printer was opened); ZE_OPEN_FAILED; ZE_OUT_OF_MEMORY; ZE_UNUSABLE.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeMacActivate(const char* printerName,
                                               const ZeDestination* destination,
                                               uint32_t enable) ZEAPI_NOEXCEPT;

/**
 * Like ZeMacActivate(), but deletes a PCL macro with a command of exactly 8 bytes: an ID of one
 * digit is followed by a zero byte, one of three or more digits cuts the command. PPDS and
 * PostScript send nothing; PCL XL gives ZE_INVALID_ARGUMENT.
 * @param printerName  printer or path, at most ZE_MAX_NAME characters.
 * @param destination  as of ZeMacActivate().
 * @return as ZeMacActivate().
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeMacDelete(const char* printerName,
                                             const ZeDestination* destination) ZEAPI_NOEXCEPT;

/**
 * Checks on the host whether a file may be stored as a macro.
 *
 * PCL XL: without ZE_MACRO_FIX_UP the file has to be a stored-stream file; none is recognised, so
 * the result is ZE_FIXUP_FAILED or, for a file shorter than its header of 17 bytes, ZE_READ_FAILED. With it the
 * fixed-up stream is written to `fixup.str` in the current directory, by way of the work files
 * of ZeMacCreate(); then none of the four may be the file: ZE_OPEN_FAILED.
 *
 * Any other language: the PCL fixup of the file is written to `fixup.mac` in the current directory,
 * with the options `fixupLimit` when ZE_MACRO_FIX_UP_LIMIT is set and ZE_FIXUP_DEFAULT otherwise.
 * The file may be stored when in what was written, binary data apart,
 * - no "ESC & f" sequence has the parameter X with the value 0 or 1 (start and stop of a
 *   definition), as its last parameter or before it,
 * - there is no universal exit and no bracket-K header,
 * - no escape sequence, and no binary data that one announced, is cut off by the end of the file,
 * - HP-GL/2 is left again.
 *
 * Values are whole numbers; a fraction does not count, and a missing number is 0.
 * @param macroFile    at most ZE_MAX_NAME characters.
 * @param destination  only `language` is read.
 * @param macro        not changed, but for the name found in a PCL XL file.
 * @return ZE_OK: it may be stored; ZE_INVALID_ARGUMENT (null, name too long); ZE_FILE_NOT_FOUND;
 *         ZE_BAD_FORMAT (system file, or it may not be stored); ZE_OPEN_FAILED (also of the work
 *         file, and for that file itself); ZE_CLOSE_FAILED; ZE_READ_FAILED; ZE_WRITE_FAILED;
 *         ZE_OUT_OF_MEMORY; ZE_FIXUP_FAILED.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeMacValidate(const char* macroFile,
                                               const ZeDestination* destination,
                                               ZeMacroInfo* macro) ZEAPI_NOEXCEPT;

/**
 * Lists the files of a folder that may be stored as macros of a language, like ZeDemFind(): those
 * for which ZeMacValidate() gives ZE_OK. Each node has the 40-byte record of that call, a
 * ZeMacroInfo. PCL XL finds nothing, as validation recognises none; other languages are checked
 * with no ZE_FIXUP_... option in force. The work file `fixup.mac` is written for each file and is
 * itself never listed.
 * @param directory  as of ZeDemFind().
 * @param count      as of ZeDemFind().
 * @param kind       ZE_LANGUAGE_DEFAULT to ZE_LANGUAGE_PCLXL.
 * @param value      not used.
 * @param recurse    as of ZeDemFind().
 * @return as ZeDemFind().
 */
ZEAPI_EXPORT ZeFoundFile* ZEAPI_CALL ZeMacFind(const char* directory, int16_t* count, uint32_t kind,
                                               uint32_t value, uint32_t recurse) ZEAPI_NOEXCEPT;
/** @} */

/** @name Demos */
/** @{ */

/**
 * Stores a demonstration page on a printer as a complete job.
 * @param demoFile  must not be the text of `printerName`, whatever its case.
 * @param printerName  printer or path, at most ZE_MAX_NAME characters.
 * @param destination  its `language` is overwritten once the printer is open: methods 2 to 4 make
 *        it ZE_LANGUAGE_PCL, method 1 ZE_LANGUAGE_POSTSCRIPT.
 * @param demo  name, method and place of the demo.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (also for a device or method out of range);
 *         ZE_FILE_NOT_FOUND; ZE_BAD_FORMAT (system file, see ZeMacCreate()); ZE_OPEN_FAILED;
 *         ZE_READ_FAILED; ZE_WRITE_FAILED; ZE_OUT_OF_MEMORY; ZE_PRINTER_WRITE_FAILED; ZE_UNUSABLE.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeDemDownload(const char* demoFile, const char* printerName,
                                               ZeDestination* destination,
                                               const ZeDemoInfo* demo) ZEAPI_NOEXCEPT;

/**
 * Lists the files of a folder that may be demos: all but system files (see ZeMacCreate()) and those
 * whose names begin with ".". The one found last comes first. They are not opened.
 * @param directory  at most ZE_MAX_NAME characters.
 * @param count      in: how many are wanted at most, 0 for 32767; out: how many were found.
 * @param value      not used.
 * @param recurse    not 0: folders within are searched too. What they hold is not listed, but each
 *        such search takes `count` for its limit, begins it anew and leaves it to the outer one.
 * @return the list, for ZeFonFindFree(); null when it is empty, an argument is bad (`count` is then
 *         left alone) or memory ran out.
 */
ZEAPI_EXPORT ZeFoundFile* ZEAPI_CALL ZeDemFind(const char* directory, int16_t* count,
                                               uint32_t value, uint32_t recurse) ZEAPI_NOEXCEPT;
/** @} */

/** @name Files */
/** @{ */

/**
 * @param path  file or folder.
 * @return 1 when the path exists and can be read, else 0.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFilExists(const char* path) ZEAPI_NOEXCEPT;

/**
 * @param path  may hold the wildcards `*` and `?` in its last component.
 * @return the size in bytes (its low 32 bits) of the first entry that matches; 0 for none.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFilQuerySize(const char* path) ZEAPI_NOEXCEPT;

/**
 * Copies a file over whatever the destination holds.
 * @param source       the file; a folder, pipe or device gives ZE_ACCESS_DENIED.
 * @param destination  the copy.
 * @return ZE_OK; ZE_INVALID_ARGUMENT; ZE_FILE_NOT_FOUND (file or folder); ZE_ACCESS_DENIED;
 *         ZE_NOT_DOS_DISK; ZE_DISK_FULL; ZE_BAD_FORMAT (bad name); ZE_DRIVE_LOCKED;
 *         ZE_SHARING_VIOLATION; ZE_COPY_FAILED for any other reason.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFilCopy(const char* source,
                                           const char* destination) ZEAPI_NOEXCEPT;

/**
 * Copies a file to the first free name of `base.001` to `base.998` beside it (the number replaces
 * the extension).
 * @param source      the file, at most ZE_MAX_NAME characters.
 * @param backupName  receives the chosen name; room for ZE_MAX_NAME + 1 bytes.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (null `backupName`); ZE_BAD_FORMAT when the source is not
 *         there or a backup name would be longer than ZE_MAX_NAME; ZE_NO_BACKUP_NAME; or a code
 *         of ZeFilCopy().
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFilBackup(const char* source, char* backupName) ZEAPI_NOEXCEPT;

/**
 * Rewrites a text file line by line through a callback. What is written back has the line ends of the
 * host: CR LF on Windows, LF elsewhere. Lines longer than 2047 characters come in pieces. An emptied
 * line is dropped. A zero byte ends its line, line feed included, and byte 1A ends the file: what
 * follows is lost. The file is replaced only after every line went well.
 * @param path      the file; nothing but a regular one opens.
 * @param value     handed to the callback.
 * @param callback  is handed each line.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (null `path` or callback); ZE_OPEN_FAILED; ZE_CLOSE_FAILED;
 *         ZE_READ_FAILED; ZE_WRITE_FAILED; ZE_OUT_OF_MEMORY; ZE_UNUSABLE (no temporary file); or a
 *         code of ZeFilCopy().
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFilModify(const char* path, uint32_t value,
                                             ZeModifyCallback callback) ZEAPI_NOEXCEPT;

/**
 * Creates every missing directory of a path; the last component is a directory too.
 * @param path     begins with a drive (`c:\a\b`) or a server (`\\server\share\a`); its last
 *                 component has a name before its last dot; at most ZE_MAX_NAME characters.
 * @param created  null, or receives the directories that were made, each after a `\`; room for as
 *                 many bytes as `path` has.
 * @return ZE_OK; ZE_UNUSABLE for any other path, for a component that is a regular file and for a
 *         directory that cannot be made. Directories made before a failure stay.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFilMakePath(const char* path, char* created) ZEAPI_NOEXCEPT;

/**
 * Computes the 16-bit checksum of a file: the sum of its little-endian words, negated. The last
 * byte of a file of odd length counts as a word whose high byte is that of the word before (0 when
 * there is none).
 * @param path    file to open, nothing but a regular one; null or empty: `handle` is used.
 * @param handle  open file handle (`_lopen`; elsewhere a file descriptor), read from its start. It
 *                is closed when `path` is empty but not null.
 * @param skip    1-based number of a word to leave out, 0 for none (low 16 bits). In files longer
 *                than 65535 words the skip repeats every 65536 words.
 * @param result  receives the checksum.
 * @return ZE_OK; ZE_INVALID_ARGUMENT (no path and no handle, or null `result`); ZE_OPEN_FAILED;
 *         ZE_CLOSE_FAILED; ZE_READ_FAILED. `result` is left alone by the first two failures.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeFilChecksum(const char* path, int32_t handle, uint32_t skip,
                                               uint16_t* result) ZEAPI_NOEXCEPT;

/**
 * Copies the file name of a path (what follows the last `\`, `/` or `:`) in upper case (a to z).
 * @param destination  room for the name and its terminator; a null path empties it.
 * @param path         the path, or null.
 * @return `destination`; an empty string when it is null.
 */
ZEAPI_EXPORT char* ZEAPI_CALL ZeStrCpyFile(char* destination, const char* path) ZEAPI_NOEXCEPT;

/**
 * Like ZeStrCpyFile(), for what stands before the file name, final separator included.
 * @param destination  as of ZeStrCpyFile().
 * @param path         as of ZeStrCpyFile().
 * @return as ZeStrCpyFile().
 */
ZEAPI_EXPORT char* ZEAPI_CALL ZeStrCpyPath(char* destination, const char* path) ZEAPI_NOEXCEPT;
/** @} */

/** @name Archives */
/** @{ */

/**
 * Extracts the members of a ZIP archive below the current directory, over whatever files are there.
 *
 * Packing methods: 0 Stored, 1 Shrink, 2 to 5 Reduce, 6 Implode, 8 Deflate. Members packed in another
 * way, encrypted ones, and those that need more than version 2.0 of the format are passed over, which
 * is no failure. Members that need host system 2 (up to version 4.2) are passed over too, unless the
 * next line of standard input begins with `y` or `Y`. Nobody is waited for: a terminal, a pipe that holds
 * nothing at that moment and a closed input are a no. What stands there is taken byte by byte up to the
 * end of the line, and not read ahead; 4096 bytes make a line at the latest. Files already extracted
 * stay, whatever happens later. Files get the member's date and time, taken as UTC.
 *
 * A member's name becomes a path in this way:
 * - `/` and `\` separate folders, which are made; `:` becomes `_`; `;` ends the name; what stands from
 *   `<` to `>` and from `[` to `]`, or to the end of the name, is left out; character 22 takes the next
 *   one as it is; other characters stay when they are 32 to 126 or 128 to 254. A name that ends in a
 *   separator is a folder.
 * - Then a component `..` and an empty component at the start are dropped (a warning), and so are `.`
 *   and other empty ones. A `:` that character 22 has kept becomes `_`, and a separator that it has
 *   kept separates. Each blank or dot at the end of a component becomes `_`. A component that Windows
 *   takes for a device (CON, PRN, AUX, NUL, CONIN$, CONOUT$, CLOCK$, and COM or LPT with a digit or a
 *   raised 1, 2 or 3, in any case and with any extension) gets a `_` in front.
 * - Symbolic links, junctions and the like below the current directory are not followed: a folder of
 *   that name cannot be used and a file of that name is not written. So nothing outside the current
 *   directory is touched; on Windows, as long as nobody turns a folder that is being filled into a link.
 *   Nor is the archive itself written over, under whatever name.
 * - Names keep their case; where the host tells cases apart, names that differ in case are two files.
 *
 * @param archive   the archive. If there is no such file, or the name is that of a folder, `.zip` is
 *                  appended. Nothing but a plain file is opened.
 * @param pattern   null or empty for every member, or which names to take, as they are before anything
 *                  is dropped: `*` any run of characters, `?` one character, `[...]` one of a set, with `!`
 *                  or `^` at its start one outside it, `-` for ranges, `\` to take a character as it is.
 *                  Letters outside sets match in either case. At most ZE_MAX_NAME characters.
 * @param progress  null, or told of each file. With it the first member that is not perfect ends the
 *                  call, be it that its header, its name, its folder or its file is of no use, or that its
 *                  data is damaged; that member is not told, and its result alone is the call's (ZE_OK
 *                  for a wrong CRC), whatever came before it. Without it only a full disk ends the call,
 *                  and members that lie over each other until 8192 times the archive has come out.
 * @return ZE_OK, also with warnings (members passed over, a CRC that does not match, something before
 *         the archive, nothing in it); ZE_INVALID_ARGUMENT; ZE_FILE_NOT_FOUND (no archive, one of several
 *         disks, or no member that matches the pattern in a directory that was read to its end);
 *         ZE_OPEN_FAILED; ZE_BAD_FORMAT (no archive, its records do not fit together, lie before its
 *         start or over each other, packed data is not valid, or a name cannot be a path);
 *         ZE_UNEXPECTED_END (a member's header or data, or the directory's entries as far as they are
 *         needed, reach beyond its end);
 *         ZE_OUT_OF_MEMORY; ZE_SHARING_VIOLATION (a file cannot be created, or is the archive);
 *         ZE_DISK_FULL. Of several the last in this order of the engine counts: warnings, bad format,
 *         memory, nothing found, file not created, disk full, unexpected end.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeZipExplode(const char* archive, const char* pattern,
                                              ZeZipProgress progress) ZEAPI_NOEXCEPT;

/**
 * Would pack files into an archive; the library does not. Arguments are those of ZeZipExplode().
 * @param archive   as of ZeZipExplode().
 * @param pattern   as of ZeZipExplode().
 * @param progress  as of ZeZipExplode().
 * @return ZE_INVALID_ARGUMENT for arguments that ZeZipExplode() refuses, else ZE_UNSUPPORTED. Nothing is
 *         opened or changed.
 */
ZEAPI_EXPORT uint32_t ZEAPI_CALL ZeZipImplode(const char* archive, const char* pattern,
                                              ZeZipProgress progress) ZEAPI_NOEXCEPT;

/** @} */

/**
 * @name Printer records
 *
 * Printers send binary records of their options and of finished jobs; the caller hands them over as they
 * came. All numbers in a record are big-endian. It begins with the number of bytes that follow (16
 * bits) and its version (16 bits); then come three keys, each two bytes and a text up to `}`, pairs
 * of a name and a length in bytes such as `ID:1,DT:1`, which declare the headers of every element (ID,
 * DT), of containers (DT 0: NE children, LD bytes) and of data (DT 1 integer, 2 text: LD, DA);
 * then the tree of elements. A number of 1 byte is signed, of 2 or 4 bytes unsigned; other lengths count
 * as 0. Elements that are not known are skipped. A key ends at a
 * name that is not known. A text longer than its field is cut to fit. A record ends where it is cut
 * or breaks its own rules (a length beyond the record, more children than bytes), and what was read
 * so far is the result. Each step is logged.
 */
/** @{ */

/**
 * Reads an option record.
 * @param buffer  the record; as many bytes as its first two say, and these two.
 * @return a record to release with ZeFreeOptionInfo(), empty when there are no options in it; null for
 *         a null buffer and when there is no memory. When memory runs out on the way, what was read until
 *         then: lists have as many entries as their counts say, texts may be null.
 */
ZEAPI_EXPORT ZeOptionInfo* ZEAPI_CALL ZeParseOptionInfo(const void* buffer) ZEAPI_NOEXCEPT;

/**
 * Releases what ZeParseOptionInfo() returned. Null is ignored.
 * @param info  the record, or null.
 */
ZEAPI_EXPORT void ZEAPI_CALL ZeFreeOptionInfo(ZeOptionInfo* info) ZEAPI_NOEXCEPT;

/**
 * Reads a job accounting record. Where it has several root elements, all of them fill one result.
 * @param buffer  as for ZeParseOptionInfo().
 * @return a record to release with ZeFreeJobAccount(); null for a null buffer and when there is no
 *         memory. When memory runs out on the way, what was read until then.
 */
ZEAPI_EXPORT ZeJobAccount* ZEAPI_CALL ZeParseJobAccountingAlert(const void* buffer) ZEAPI_NOEXCEPT;

/**
 * Releases what ZeParseJobAccountingAlert() returned. Null is ignored.
 * @param account  the record, or null.
 */
ZEAPI_EXPORT void ZEAPI_CALL ZeFreeJobAccount(ZeJobAccount* account) ZEAPI_NOEXCEPT;
/** @} */

#if defined(__cplusplus)
}
#endif

#endif /* ZEAPI_H_ */
