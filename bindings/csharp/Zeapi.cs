// The printer utility library ZEAPI1TD for .NET: every call, record and enumeration of zeapi.h under
// its name there. That header is the reference; a null pointer is IntPtr.Zero or null.
//
// The library has 32 bits, so the application runs as x86. Texts go and come in the system's 8-bit
// encoding; one that cannot be written in it throws. The library keeps no delegate after a call.
using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Zeapi
{
    /// <summary>
    /// Result codes. One code space serves all calls; each call names the ones it gives.
    /// </summary>
    public enum ZeResult : uint
    {
        /// <summary>Success.</summary>
        ZE_OK = 0,
        /// <summary>Null pointer, name too long, or a value out of its range.</summary>
        ZE_INVALID_ARGUMENT = 1,
        /// <summary>The named input file does not exist.</summary>
        ZE_FILE_NOT_FOUND = 2,
        /// <summary>A file, or the printer by every way there is, did not open.</summary>
        ZE_OPEN_FAILED = 3,
        /// <summary>Closing a file failed.</summary>
        ZE_CLOSE_FAILED = 4,
        /// <summary>The system refused access to a file.</summary>
        ZE_ACCESS_DENIED = 5,
        /// <summary>Reading the input file failed.</summary>
        ZE_READ_FAILED = 6,
        /// <summary>A file took fewer bytes than were written.</summary>
        ZE_WRITE_FAILED = 7,
        /// <summary>A file could not be positioned.</summary>
        ZE_SEEK_FAILED = 8,
        /// <summary>An archive ends where more was to come.</summary>
        ZE_UNEXPECTED_END = 9,
        /// <summary>Memory could not be had.</summary>
        ZE_OUT_OF_MEMORY = 11,
        /// <summary>The spooler or the bidirectional DLL refused data.</summary>
        ZE_PRINTER_WRITE_FAILED = 14,
        /// <summary>The disk's format is not known to the system.</summary>
        ZE_NOT_DOS_DISK = 16,
        /// <summary>No room is left on the disk.</summary>
        ZE_DISK_FULL = 20,
        /// <summary>The bidirectional DLL, a path or a work file cannot be used.</summary>
        ZE_UNUSABLE = 26,
        /// <summary>Not a file or name that this operation can work on.</summary>
        ZE_BAD_FORMAT = 27,
        /// <summary>The drive is locked or lacks a needed ability.</summary>
        ZE_DRIVE_LOCKED = 28,
        /// <summary>The head of a file is not one of its kind.</summary>
        ZE_BAD_HEADER = 29,
        /// <summary>Somebody else has the file open.</summary>
        ZE_SHARING_VIOLATION = 31,
        /// <summary>Not supported; a remark, not a failure, from font queries.</summary>
        ZE_UNSUPPORTED = 32,
        /// <summary>Copying failed for a reason without a code of its own.</summary>
        ZE_COPY_FAILED = 36,
        /// <summary>All 998 backup names are taken.</summary>
        ZE_NO_BACKUP_NAME = 37,
        /// <summary>A PPDS macro of 65536 bytes or more.</summary>
        ZE_MACRO_TOO_LARGE = 37,
        /// <summary>The section has no such key.</summary>
        ZE_KEY_NOT_FOUND = 41,
        /// <summary>The answer does not fit the caller's buffer.</summary>
        ZE_BUFFER_TOO_SMALL = 42,
        /// <summary>A file's checksum is not the one that it states.</summary>
        ZE_BAD_CHECKSUM = 43,
        /// <summary>A file of another type than asked; a printer without a number.</summary>
        ZE_UNKNOWN_TYPE = 44,
        /// <summary>The file has no such section.</summary>
        ZE_SECTION_NOT_FOUND = 45,
        /// <summary>Not a PCL XL job that can be stored as a stream.</summary>
        ZE_FIXUP_FAILED = 46,
        /// <summary>A remark: nothing was found and the default was copied.</summary>
        ZE_DEFAULT_USED = 48,
    }

    /// <summary>Bits of ZeDestination.flags. Other bits are not read.</summary>
    [Flags]
    public enum ZeDestinationFlags : uint
    {
        /// <summary>The printer understands Printer Job Language.</summary>
        ZE_FLAG_PJL = 0x08,
        /// <summary>The printer takes the bracket-K escape commands ("ESC [ K").</summary>
        ZE_FLAG_BRACKET_K = 0x10,
    }

    /// <summary>Printer languages, ZeDestination.language.</summary>
    public enum ZeLanguage : int
    {
        ZE_LANGUAGE_NONE = 0,
        ZE_LANGUAGE_DEFAULT = 1,
        ZE_LANGUAGE_PPDS = 2,
        ZE_LANGUAGE_POSTSCRIPT = 3,
        ZE_LANGUAGE_GL = 4,
        ZE_LANGUAGE_PCL = 5,
        ZE_LANGUAGE_PCLXL = 6,
    }

    /// <summary>Where a printer stores resources: device and target arguments.</summary>
    public enum ZeDevice : int
    {
        ZE_DEVICE_RAM = 1,
        ZE_DEVICE_FLASH1 = 2,
        ZE_DEVICE_FLASH2 = 3,
        ZE_DEVICE_DISK1 = 4,
        ZE_DEVICE_DISK2 = 5,
    }

    /// <summary>Requests of ZeGenResource().</summary>
    public enum ZeResourceRequest : int
    {
        /// <summary>Downloads go to working memory from now on.</summary>
        ZE_RESOURCE_TARGET_RAM = 1,
        /// <summary>Downloads go to the given device from now on.</summary>
        ZE_RESOURCE_TARGET_DEVICE = 2,
        /// <summary>Formats the given device: everything on it is lost.</summary>
        ZE_RESOURCE_FORMAT_DEVICE = 3,
        /// <summary>Prints the list of stored resources.</summary>
        ZE_RESOURCE_PRINT_DIRECTORY = 4,
    }

    /// <summary>What a font file is good for, ZeFontInfo.kind. 0: not a font file.</summary>
    public enum ZeFontKind : uint
    {
        /// <summary>Describes a font, is not itself downloaded.</summary>
        ZE_FONT_KIND_METRICS = 2,
        /// <summary>Can be downloaded as it is.</summary>
        ZE_FONT_KIND_DOWNLOADABLE = 3,
        /// <summary>AFM metrics of a Type 1 outline beside them.</summary>
        ZE_FONT_KIND_TYPE1_METRICS = 4,
        /// <summary>A TrueType file.</summary>
        ZE_FONT_KIND_TRUETYPE = 5,
    }

    /// <summary>Font formats, ZeFontInfo.format. 0: none of them.</summary>
    public enum ZeFontFormat : uint
    {
        /// <summary>Type 1 outline or its AFM metrics: PFA, PFB, AFM.</summary>
        ZE_FONT_TYPE1 = 2,
        /// <summary>DLF download font.</summary>
        ZE_FONT_DLF = 6,
        /// <summary>PCL bitmap that names its resolution (header format 20).</summary>
        ZE_FONT_PCL_RESOLUTION = 8,
        /// <summary>PCL bitmap (header format 0).</summary>
        ZE_FONT_PCL_BITMAP = 9,
        /// <summary>PCL bitmap of older layouts (header formats 5, 9, 12).</summary>
        ZE_FONT_PCL_OLD_BITMAP = 11,
        /// <summary>A PCL bitmap; never given by ZeFonQueryInfo().</summary>
        ZE_FONT_PCL_BITMAP_13 = 13,
        /// <summary>A PCL bitmap; never given by ZeFonQueryInfo().</summary>
        ZE_FONT_PCL_BITMAP_15 = 15,
        /// <summary>PCL scalable, bound Intellifont (header format 10).</summary>
        ZE_FONT_PCL_BOUND = 17,
        /// <summary>PCL scalable, unbound Intellifont (header format 11).</summary>
        ZE_FONT_PCL_UNBOUND = 18,
        /// <summary>PCL scalable TrueType (header format 15).</summary>
        ZE_FONT_PCL_TRUETYPE = 20,
        /// <summary>TrueType font of the host: TTF, FOT.</summary>
        ZE_FONT_HOST_TRUETYPE = 21,
        /// <summary>Intellifont metrics: TFM.</summary>
        ZE_FONT_TFM = 22,
        /// <summary>Metrics of a DLF font: FMF.</summary>
        ZE_FONT_FMF = 23,
        /// <summary>Windows printer font metrics: PFM, PSM, PBM.</summary>
        ZE_FONT_PFM = 25,
        /// <summary>Metrics of a font cartridge: PCM.</summary>
        ZE_FONT_CARTRIDGE = 28,
    }

    /// <summary>Conversions of ZeFonConvert().</summary>
    public enum ZeFontConversion : uint
    {
        /// <summary>Type 1 metrics to Windows metrics.</summary>
        ZE_CONVERT_AFM_TO_PFM = 1,
        /// <summary>The same, for two devices.</summary>
        ZE_CONVERT_AFM_TO_PFM_AND_PSM = 2,
        /// <summary>Windows metrics to Type 1 metrics.</summary>
        ZE_CONVERT_PFM_TO_AFM = 3,
        /// <summary>DLF font to Windows metrics.</summary>
        ZE_CONVERT_DLF_TO_PBM = 4,
        /// <summary>PCL soft font to Windows metrics.</summary>
        ZE_CONVERT_PCL_TO_PFM = 5,
        /// <summary>Intellifont metrics to Windows metrics.</summary>
        ZE_CONVERT_TFM_TO_PFM = 6,
        /// <summary>The same, with the stored name of the font.</summary>
        ZE_CONVERT_TFM_TO_PFM_NAMED = 16,
        /// <summary>PCL soft font, with its stored name.</summary>
        ZE_CONVERT_PCL_TO_PFM_NAMED = 17,
    }

    /// <summary>Bits of ZeFontInfo.flags; all others are 0.</summary>
    [Flags]
    public enum ZeFontFlags : uint
    {
        /// <summary>A binary file; PFA and AFM are text.</summary>
        ZE_FONT_BINARY = 0x01,
        /// <summary>
        /// Every file whose extension is not refused, but for a PFB whose encoding is not
        /// StandardEncoding.
        /// </summary>
        ZE_FONT_STANDARD = 0x02,
        /// <summary>PCL soft fonts: bit 0 of the spacing byte.</summary>
        ZE_FONT_PROPORTIONAL = 0x04,
        /// <summary>DLF, FMF, PFM, PSM, PBM, PFA, PFB, AFM and formats 17, 18, 20.</summary>
        ZE_FONT_BIT_3 = 0x08,
        /// <summary>FMF, PFM, PSM, PBM, PFA, PFB and formats 17, 18, 20.</summary>
        ZE_FONT_BIT_5 = 0x20,
    }

    /// <summary>Bits of ZeMacroInfo.macroFlags. Other bits are not read.</summary>
    [Flags]
    public enum ZeMacroFlags : uint
    {
        /// <summary>
        /// PostScript: the stored file's name gets ".demo", the printer's own extension of names is
        /// off while it is written, and a stored overlay that was fixed up shows its page.
        /// </summary>
        ZE_MACRO_DEMO = 0x01,
        /// <summary>Send what the fixup makes of the file (ZeFixupOptions).</summary>
        ZE_MACRO_FIX_UP = 0x02,
        /// <summary>PCL: the new macro first calls the macro chainId.</summary>
        ZE_MACRO_CHAIN = 0x04,
        /// <summary>
        /// As ZE_MACRO_FIX_UP, with the caller's fixupLimit; the call then sets ZE_MACRO_FIX_UP in
        /// the caller's record.
        /// </summary>
        ZE_MACRO_FIX_UP_LIMIT = 0x08,
    }

    /// <summary>
    /// What the fixup of a PCL macro drops besides PJL lines, universal exits, bracket-K blocks and
    /// "ESC &amp; n" data: ZeMacroInfo.fixupLimit. Always dropped are the parameters F and P of
    /// "ESC &amp; l", M of "ESC &amp; b", X with the values 6, 7 and 10 of "ESC &amp; f", and F
    /// with 0 and 1 of "ESC * c".
    /// </summary>
    [Flags]
    public enum ZeFixupOptions : uint
    {
        /// <summary>"ESC E".</summary>
        ZE_FIXUP_RESET = 0x001,
        /// <summary>Form feeds outside HP-GL/2.</summary>
        ZE_FIXUP_FORM_FEED = 0x002,
        /// <summary>"ESC &amp; l" A.</summary>
        ZE_FIXUP_PAPER_SIZE = 0x004,
        /// <summary>"ESC &amp; l" H.</summary>
        ZE_FIXUP_PAPER_SOURCE = 0x008,
        /// <summary>"ESC &amp; l" S, "ESC &amp; a" G.</summary>
        ZE_FIXUP_DUPLEX = 0x010,
        /// <summary>"ESC &amp; l" O.</summary>
        ZE_FIXUP_ORIENTATION = 0x020,
        /// <summary>"ESC &amp; l" T with the value 1.</summary>
        ZE_FIXUP_JOB_SEPARATION = 0x040,
        /// <summary>"ESC &amp; l" X.</summary>
        ZE_FIXUP_COPIES = 0x080,
        /// <summary>"ESC &amp; l" L.</summary>
        ZE_FIXUP_PERFORATION = 0x100,
        /// <summary>"ESC &amp; r" F.</summary>
        ZE_FIXUP_FLUSH = 0x200,
        /// <summary>"ESC &amp; l" G.</summary>
        ZE_FIXUP_OUTPUT_BIN = 0x400,
        /// <summary>"ESC &amp; f" X with the values 0 and 1.</summary>
        ZE_FIXUP_MACRO_CONTROL = 0x800,
        /// <summary>In force unless ZE_MACRO_FIX_UP_LIMIT is set.</summary>
        ZE_FIXUP_DEFAULT = 0x33F,
    }

    /// <summary>Modes of ZeMacDownload().</summary>
    public enum ZeMacroMode : int
    {
        /// <summary>Print one page with the macro as its overlay.</summary>
        ZE_MACRO_PRINT_ONCE = 1,
        /// <summary>Store it.</summary>
        ZE_MACRO_STORE = 2,
        /// <summary>Send the file as it is; a PCL macro is made permanent.</summary>
        ZE_MACRO_RAW = 3,
    }

    /// <summary>wrap argument of ZeMacDownload().</summary>
    public enum ZeMacroWrap : uint
    {
        /// <summary>The file brings its own definition commands.</summary>
        ZE_MACRO_UNWRAPPED = 0,
        /// <summary>The call adds those of the language; not for PCL XL.</summary>
        ZE_MACRO_WRAPPED = 29,
    }

    /// <summary>How ZeDemDownload() stores a demo, ZeDemoInfo.method.</summary>
    public enum ZeDemoMethod : int
    {
        /// <summary>A file, written through the PostScript interpreter.</summary>
        ZE_DEMO_POSTSCRIPT = 1,
        /// <summary>A file, written with the PJL file commands.</summary>
        ZE_DEMO_PJL_FILE = 2,
        /// <summary>A block with a bracket-D header ("ESC [ D").</summary>
        ZE_DEMO_BRACKET_D = 3,
        /// <summary>A file, written with the PJL demo-file commands.</summary>
        ZE_DEMO_PJL_DEMO_FILE = 4,
        /// <summary>Nothing is sent but the frame of the job.</summary>
        ZE_DEMO_NOTHING = 5,
    }

    /// <summary>What a search was for, ZeFoundFile.kind.</summary>
    public enum ZeFoundKind : uint
    {
        /// <summary>info is a ZeFontInfo.</summary>
        ZE_FOUND_FONT = 1,
        /// <summary>info is null.</summary>
        ZE_FOUND_DEMO = 2,
        /// <summary>info is a ZeMacroInfo.</summary>
        ZE_FOUND_MACRO = 3,
    }

    /// <summary>Modes of ZeIniOpen2().</summary>
    public enum ZeIniMode : uint
    {
        /// <summary>Existing file; empty lines and comments (; first, no =) are dropped.</summary>
        ZE_INI_READ = 1,
        /// <summary>Existing file that can be written; every line is kept.</summary>
        ZE_INI_UPDATE = 7,
        /// <summary>Makes the file or empties it at once.</summary>
        ZE_INI_CREATE = 8,
        /// <summary>Like ZE_INI_UPDATE, but makes the file when it is missing.</summary>
        ZE_INI_APPEND = 9,
    }

    /// <summary>Lists of ZeQsfIniGetSection().</summary>
    public enum ZeQsfList : uint
    {
        ZE_QSF_REQUIRED = 1,
        ZE_QSF_OPTIONAL = 2,
        /// <summary>Falls back to [DEFAULTEXCLUDE].</summary>
        ZE_QSF_EXCLUDE = 3,
        /// <summary>Falls back to [DEFAULTORDER].</summary>
        ZE_QSF_ORDER = 4,
    }

    /// <summary>Results of the calls on printer data files.</summary>
    public enum ZeDatCode : int
    {
        ZE_DAT_OK = 0,
        /// <summary>Bad path or mode, or no such file.</summary>
        ZE_DAT_INVALID = -1,
        /// <summary>No place or memory; closing failed; a record has a bad format.</summary>
        ZE_DAT_FAILED = -2,
        /// <summary>Not the handle of an open file; a null pointer.</summary>
        ZE_DAT_BAD_HANDLE = -3,
        /// <summary>The file did not open.</summary>
        ZE_DAT_OPEN_FAILED = -5,
        /// <summary>No such record, or none to go on from.</summary>
        ZE_DAT_NOT_FOUND = -7,
        /// <summary>There is no further record.</summary>
        ZE_DAT_END_OF_FILE = -10,
    }

    /// <summary>Kinds of files that ZeDatQueryFiles() lists; any other value lists all.</summary>
    public enum ZeDatFileKind : uint
    {
        /// <summary>*.CFG</summary>
        ZE_DAT_CONFIGURATION_FILES = 1,
        /// <summary>*.PSS</summary>
        ZE_DAT_SETUP_FILES = 2,
    }

    /// <summary>Topics of web links.</summary>
    public enum ZeWebTopic : int
    {
        ZE_WEB_DRIVERS = 1,
        ZE_WEB_FIRMWARE = 2,
        ZE_WEB_HOMEPAGE = 3,
        ZE_WEB_QUORVIEW = 4,
        ZE_WEB_REGISTRATION = 5,
        ZE_WEB_SUPPLIES = 6,
        ZE_WEB_TECHSUPPORT = 7,
        ZE_WEB_PUBLICATIONS = 8,
    }

    /// <summary>
    /// Where and how a job goes; 48 bytes. The caller fills it, the library only reads it, but that
    /// ZeDemDownload() sets language. Fields named reserved are not read and may carry anything.
    /// </summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeDestination
    {
        /// <summary>ZE_FLAG_... bits.</summary>
        public ZeDestinationFlags flags;
        /// <summary>
        /// 2 asks for the initial-conditions sequence before the command that makes a device the
        /// download target.
        /// </summary>
        public uint deviceClass;
        /// <summary>ZE_LANGUAGE_... of the job.</summary>
        public ZeLanguage language;
        /// <summary>Query option used by font download.</summary>
        public uint fontQueryOption;
        public uint reserved16;
        /// <summary>Copies of data jobs; 0 means one.</summary>
        public ushort copies;
        /// <summary>PCL font ID, or macro ID below 32768.</summary>
        public ushort resourceId;
        /// <summary>First parameter of a PPDS font download.</summary>
        public ushort ppdsFontCode;
        /// <summary>Second parameter of a PPDS font download.</summary>
        public ushort ppdsFontSlot;
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 11)]
        public byte[] reserved28;
        /// <summary>Port word for VELBCE.DLL.</summary>
        public ushort bidiPort;
        /// <summary>Handle word for VELBCE.DLL; non-zero selects it.</summary>
        public ushort bidiHandle;
        /// <summary>
        /// Document name and PJL ready message (its first 20 characters); null: "Vantrel Job" for
        /// the spooler, no ready message.
        /// </summary>
        [MarshalAs(UnmanagedType.LPStr)]
        public string jobName;
        /// <summary>
        /// When non-zero, the channel character of the bracket-K language selection; it stays in
        /// force for later jobs in that language.
        /// </summary>
        public byte channel;
    }

    /// <summary>A printer macro or overlay; 40 bytes. Fields named reserved are not read.</summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeMacroInfo
    {
        /// <summary>ZE_MACRO_DEMO to ZE_MACRO_FIX_UP_LIMIT.</summary>
        public ZeMacroFlags macroFlags;
        /// <summary>
        /// Name of macro, procedure, file or stream, at most 23 characters; empty: the file's name
        /// in upper case.
        /// </summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 24)]
        public string macroName;
        /// <summary>PCL macro that the new one calls first.</summary>
        public ushort chainId;
        /// <summary>ZE_DEVICE_..., where it is stored.</summary>
        public ZeDevice macroDevice;
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 2)]
        public byte[] reserved34;
        /// <summary>ZE_FIXUP_... bits in force with ZE_MACRO_FIX_UP_LIMIT.</summary>
        public ZeFixupOptions fixupLimit;
    }

    /// <summary>
    /// What ZeGenQueryApiInfo() answers: 64 words, 128 bytes. Word 0 is ZE_API_VERSION, word 1 the
    /// word size of the library in bits (32, a constant of the interface on every host), words 2
    /// and 3 are 2, words 11, 12, 16, 17, 20, 23, 26 and 28 are 1, all others 0.
    /// </summary>
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeApiInfo
    {
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 64)]
        public ushort[] words;
    }

    /// <summary>One font of a cartridge. The entry and its name are memory of their own.</summary>
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeCartridgeFont
    {
        /// <summary>Face name, " (It)" and " (Bd)" appended; 91 bytes.</summary>
        public IntPtr name;
        /// <summary>The next one in the order of the file, or null.</summary>
        public IntPtr next;
    }

    /// <summary>
    /// What a font cartridge holds. The structure and its name are memory of their own.
    /// </summary>
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeCartridge
    {
        /// <summary>Name of the cartridge; 80 bytes.</summary>
        public IntPtr name;
        /// <summary>First of its fonts, or null.</summary>
        public IntPtr fonts;
    }

    /// <summary>
    /// What ZeFonQueryInfo() tells about a font file; 714 bytes. Texts are terminated; longer ones
    /// are cut to their field. A companion file's path that does not fit its field counts as
    /// missing.
    /// </summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeFontInfo
    {
        /// <summary>ZE_FONT_BINARY to ZE_FONT_BIT_5.</summary>
        public ZeFontFlags flags;
        /// <summary>ZE_FONT_KIND_...</summary>
        public ZeFontKind kind;
        /// <summary>ZE_FONT_TYPE1 to ZE_FONT_CARTRIDGE.</summary>
        public ZeFontFormat format;
        /// <summary>Dots per inch; ZE_FONT_PCL_RESOLUTION only.</summary>
        public ushort xResolution;
        /// <summary>Dots per inch; ZE_FONT_PCL_RESOLUTION only.</summary>
        public ushort yResolution;
        /// <summary>Bytes.</summary>
        public uint fileSize;
        /// <summary>Estimate of the printer memory that it takes, bytes.</summary>
        public uint printerMemory;
        /// <summary>Readable description in one line.</summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 80)]
        public string description;
        /// <summary>
        /// PCL: vendor, typeface and font number; AFM: menu name and style of the INF companion.
        /// </summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 80)]
        public string detail;
        /// <summary>PCL symbol set code such as "8U"; empty when unbound.</summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 6)]
        public string symbolSet;
        /// <summary>Companion that download or conversion needs.</summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 260)]
        public string companionFile;
        /// <summary>Windows metrics file that belongs to the font.</summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 260)]
        public string metricsFile;
        /// <summary>PCM files only, otherwise null.</summary>
        public IntPtr cartridge;
    }

    /// <summary>
    /// A demonstration page to be stored; 37 bytes. Fields named reserved are not read.
    /// </summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeDemoInfo
    {
        /// <summary>Bit 0 goes to the bracket-D header.</summary>
        public byte options;
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 3)]
        public byte[] reserved1;
        /// <summary>ZE_DEMO_...</summary>
        public ZeDemoMethod method;
        /// <summary>
        /// Stored name, at most 23 characters; empty: the file's name in upper case.
        /// </summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 24)]
        public string name;
        /// <summary>Goes to the bracket-D header.</summary>
        public byte slot;
        /// <summary>ZE_DEVICE_FLASH1 to ZE_DEVICE_DISK2.</summary>
        public ZeDevice device;
    }

    /// <summary>
    /// A file that a search found; 277 bytes. The list runs from the file found last to the first
    /// one and belongs to the caller, who gives it back as a whole with ZeFonFindFree().
    /// </summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeFoundFile
    {
        /// <summary>Full path of the file.</summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 260)]
        public string path;
        /// <summary>The record that kind tells, or null.</summary>
        public IntPtr info;
        /// <summary>The file found before this one, or null.</summary>
        public IntPtr next;
        /// <summary>ZE_FOUND_...</summary>
        public ZeFoundKind kind;
        /// <summary>
        /// Macros and demos: length of the searched folder's part of path with its separator, its
        /// low 8 bits. Fonts: 0.
        /// </summary>
        public byte rootLength;
        /// <summary>Size of the file in bytes.</summary>
        public uint size;
    }

    /// <summary>
    /// Accounting of one job. A field's name tells the elements it comes from, below element 2 of
    /// the record; what the printer means by them is the printer's own. Texts are zero-terminated.
    /// </summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeJobAccountJob
    {
        public int value1_1;
        public int value1_2;
        public int value1_3;
        public int value1_4;
        public int value1_5;
        public int value1_6;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 10)]
        public string text1_7;
        public int value1_8;
        public int value1_9;
        public int value1_10;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 16)]
        public string text1_11;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 41)]
        public string text2_1;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 21)]
        public string text2_2;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 21)]
        public string text2_3;
        public int value2_4;
        public int value2_5;
        public int value2_6;
        public int value2_7;
        public int value2_8;
        public int value2_9;
        public int value2_10;
    }

    /// <summary>
    /// Running totals of the printer, from the elements below element 3 of the record.
    /// </summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeJobAccountTotals
    {
        public int value1_1;
        public int value2_1;
        public int value2_2;
        public int value2_3;
        public int value2_4;
        public int value2_5;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 16)]
        public string text2_6;
        public int value2_7;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 10)]
        public string text2_8;
        public int value3_1;
        public int value3_2;
        public int value3_3;
        public int value3_4;
        public int value3_5;
    }

    /// <summary>
    /// One installed option: an entry of ZeOptionInfo.items. What the printer means by the elements
    /// is the printer's own.
    /// </summary>
    [StructLayout(LayoutKind.Sequential, CharSet = CharSet.Ansi)]
    public struct ZeOptionItem
    {
        /// <summary>Element 1.</summary>
        public int value1;
        /// <summary>Element 5.</summary>
        public int value5;
        /// <summary>Element 6; empty when the element is, null when there is none.</summary>
        public IntPtr text6;
    }

    /// <summary>One group of options: an entry of ZeOptionInfo.groups.</summary>
    [StructLayout(LayoutKind.Sequential, CharSet = CharSet.Ansi)]
    public struct ZeOptionGroup
    {
        /// <summary>Element 1; null when it is empty or not there.</summary>
        public IntPtr text1;
        /// <summary>Element 2; null when it is empty or not there.</summary>
        public IntPtr text2;
        /// <summary>Number of values.</summary>
        public uint valueCount;
        /// <summary>Element 1 of each child of element 3.</summary>
        public IntPtr values;
    }

    /// <summary>What ZeParseOptionInfo() makes of an option record.</summary>
    [StructLayout(LayoutKind.Sequential, CharSet = CharSet.Ansi)]
    public struct ZeOptionInfo
    {
        /// <summary>Number of items.</summary>
        public uint itemCount;
        /// <summary>Null when there are none.</summary>
        public IntPtr items;
        /// <summary>Number of groups.</summary>
        public uint groupCount;
        /// <summary>Null when there are none.</summary>
        public IntPtr groups;
    }

    /// <summary>What ZeParseJobAccountingAlert() makes of a job accounting record.</summary>
    [StructLayout(LayoutKind.Sequential, CharSet = CharSet.Ansi)]
    public struct ZeJobAccount
    {
        /// <summary>Null when the record has none.</summary>
        public IntPtr job;
        /// <summary>Null when the record has none.</summary>
        public IntPtr totals;
    }

    /// <summary>
    /// A record: a printer setting or command. Texts are zero-terminated within their fields. A key of
    /// six characters, which has no terminator, cannot be asked for here: five of them get through.
    /// </summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeDatRecord
    {
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 6)]
        public string szKey;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 102)]
        public string szDescr;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 6)]
        public string szEmulation;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 102)]
        public string szCommand;
        /// <summary>Format of the command's variable part.</summary>
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 6)]
        public string szVarFormat;
        public double dVarRangeLo;
        public double dVarRangeHi;
        public double dVarIncrement;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 2)]
        public string szDuration;
    }

    /// <summary>
    /// Numbers of records, in the order of ZE_DAT_LETTERS. They begin again at 0 after 65535.
    /// </summary>
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeDatCounts
    {
        /// <summary>By the first letter of the key, in either case.</summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 6)]
        public ushort[] first;
        /// <summary>Of keys that begin with S, by the second letter.</summary>
        [MarshalAs(UnmanagedType.ByValArray, SizeConst = 6)]
        public ushort[] second;
    }

    /// <summary>A listed file.</summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    [StructLayout(LayoutKind.Sequential, Pack = 1, CharSet = CharSet.Ansi)]
    public struct ZeDatFileInfo
    {
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 260)]
        public string path;
        [MarshalAs(UnmanagedType.ByValTStr, SizeConst = 48)]
        public string description;
        /// <summary>Null at the end.</summary>
        public IntPtr next;
    }

    /// <summary>Told of each file that ZeZipExplode has extracted; the result is ignored.</summary>
    [UnmanagedFunctionPointer(CallingConvention.StdCall, CharSet = CharSet.Ansi)]
    public delegate uint ZeZipProgress(string name, uint compressedSize, uint percentage);

    /// <summary>
    /// Gets each line of ZeFilModify with its newline, in a buffer of 2048 bytes to be rewritten; the
    /// result is ignored.
    /// </summary>
    [UnmanagedFunctionPointer(CallingConvention.StdCall, CharSet = CharSet.Ansi)]
    public delegate uint ZeModifyCallback(IntPtr line, uint value);

    /// <summary>Told of each file (null) and each font (a ZeFontInfo) of ZeFonFind2.</summary>
    [UnmanagedFunctionPointer(CallingConvention.StdCall, CharSet = CharSet.Ansi)]
    public delegate void ZeFontProgress(IntPtr font, uint percent);

    /// <summary>The calls.</summary>
    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    public static class Native
    {
        /// <summary>Longest file or printer name, in characters without the terminator.</summary>
        public const int ZE_MAX_NAME = 260;
        /// <summary>Interface version that ZeGenQueryApiInfo reports: 9.30.</summary>
        public const int ZE_API_VERSION = 930;
        /// <summary>The one mode in which data files open.</summary>
        public const int ZE_DAT_READ = 2;
        /// <summary>The letters of keys that ZeDatQueryCounts counts.</summary>
        public const string ZE_DAT_LETTERS = "AFGPST";

        private const string Dll = "ZEAPI1TD";
        private const CallingConvention StdCall = CallingConvention.StdCall;
        private const CharSet Ansi = CharSet.Ansi;

        // General

        /// <summary>Fills the record about the library.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern void ZeGenQueryApiInfo(out ZeApiInfo info);

        /// <summary>Releases memory that a call handed out as such.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern void ZeMemFree(IntPtr block);

        /// <summary>Checks its arguments and nothing else.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeGenQueryAdapters(
            uint a, uint b, [Out] byte[] buffer, uint size);

        /// <summary>Checks its arguments and nothing else.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeGenQueryQueues(
            uint a, uint b, [Out] byte[] buffer, uint size);

        /// <summary>How a printer is connected: 2048, 32, 4, 2, or 0 for none of these.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeNetGetType(uint printer);

        /// <summary>Sends a storage request.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeGenResource(
            ZeResourceRequest request, string printerName,
            [In] ref ZeDestination destination, ZeDevice device);

        // Data jobs

        /// <summary>Sends a file as a complete job.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeDatSendFile(
            string fileName, string printerName, [In] ref ZeDestination destination,
            uint append);

        /// <summary>Sends "%file", "$text with escapes" or hexadecimal digits.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeDatSendString(
            string text, string printerName, [In] ref ZeDestination destination,
            uint append);

        // Fonts

        /// <summary>Converts metrics; option1 is null or a ZeFontInfo.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeFonConvert(
            string fontFile, string outputFile, IntPtr option1, uint option2,
            ZeFontConversion conversion);

        /// <summary>
        /// Tells what a font file is; a cartridge's parts are released with ZeMemFree.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeFonQueryInfo(
            string fontFile, ref ZeFontInfo info, uint queryOption,
            uint includeMetricFiles);

        /// <summary>Sends a font as a complete job.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeFonDownload(
            string fontFile, string printerName, [In] ref ZeDestination destination,
            ZeDevice target);

        /// <summary>Lists the fonts of a folder: ZeFoundFile nodes, for ZeFonFindFree.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeFonFind(
            string directory, ref ushort count, uint typeFilter, uint kindFilter,
            uint queryOption, uint recurse);

        /// <summary>Like ZeFonFind, and tells how far it is; progress may be null.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeFonFind2(
            string directory, ref ushort count, uint typeFilter, uint kindFilter,
            uint queryOption, uint recurse, ZeFontProgress progress);

        /// <summary>Releases a list of found files.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern void ZeFonFindFree(IntPtr first);

        // INI files

        /// <summary>Loads a file to read; null when that fails or it is empty.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeIniOpen(string name);

        /// <summary>Loads a file; null when that fails.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeIniOpen2(string name, ZeIniMode mode);

        /// <summary>Ends a handle and writes what was edited; 0 when that fails.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeIniClose(IntPtr handle);

        /// <summary>A value or a line: text of the library's own, not to be freed.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeIniRead(IntPtr handle, string section, string key);

        /// <summary>Copies a value; count has its length.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeIniRead2(
            IntPtr handle, string section, string key, string fallback,
            [Out] byte[] buffer, uint size, ref uint count);

        /// <summary>Sets a key; 0 when that fails.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeIniWrite(
            IntPtr handle, string section, string key, string value);

        /// <summary>Adds a line unless it is there; 0 when that fails.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeIniWriteAll(
            IntPtr handle, string section, string key, string value);

        /// <summary>Removes a line; 0 when that fails. Key and value may be null.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeIniDelete(
            IntPtr handle, string section, string key, string value);

        // Panel configuration

        /// <summary>Loads a panel's file; null when that fails.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeOpcRegisterCfg(int panel, string directory);

        /// <summary>Ends a use of it; 0 when that fails.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeOpcUnregisterCfg(IntPtr handle);

        /// <summary>Formats the file's name; room for 18 characters.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeOpcGetFileName(int panel, StringBuilder buffer);

        /// <summary>Limits of a spin control; third may be left alone.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern void ZeOpcGetSpinControlLimits(
            IntPtr handle, int control, ref int minimum, ref int maximum,
            ref int third);

        /// <summary>
        /// Text identifiers of a list control; null texts asks for the bytes needed.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeOpcGetTextListing(
            IntPtr handle, int control, int subIndex, [Out] ushort[] texts, int size);

        /// <summary>The longest text of an edit control.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeOpcGetMaxEditLength(IntPtr handle, int control);

        /// <summary>
        /// Controls of a page, 6 bytes each; null records asks for the bytes needed.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeOpcGetPageDefaults(
            IntPtr handle, int page, [Out] byte[] records, int size);

        /// <summary>Variables of a page, high byte first; null asks for the bytes needed.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeOpcGetPageOmVars(
            IntPtr handle, int page, [Out] byte[] variables, int size);

        // QSF files

        /// <summary>Opens a binary QSF file.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeQsfOpen(string path, uint type, out IntPtr handle);

        /// <summary>Reads block 1, 2 or 5, for ZeMemFree.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeQsfGetVariables(
            IntPtr handle, uint block, out IntPtr variables, ref ushort count);

        /// <summary>Closes the file.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern void ZeQsfClose(IntPtr handle);

        /// <summary>
        /// Reads a list from an INI file, for ZeMemFree; numbers have the high byte first.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeQsfIniGetSection(
            IntPtr ini, ZeQsfList kind, uint model, out IntPtr variables,
            ref ushort count);

        // Printer data files

        /// <summary>Opens a data file; a handle from 0 to 3, or a ZeDatCode.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeDatOpenFile(string path, uint reserved, int mode);

        /// <summary>Closes it; a ZeDatCode.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeDatCloseFile(int handle);

        /// <summary>
        /// Finds the first record whose key begins with record.szKey; a ZeDatCode.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeDatGetFirstKey(int handle, ref ZeDatRecord record);

        /// <summary>Reads the next record; a ZeDatCode.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeDatGetNextKey(int handle, ref ZeDatRecord record);

        /// <summary>Counts the run of records from key.szKey on.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeDatQueryCount(string path, ref ZeDatRecord key, int mode);

        /// <summary>Counts records by the letters of their keys; a ZeDatCode.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern short ZeDatQueryCounts(string path, ref ZeDatCounts counts, int mode);

        /// <summary>Lists data files: ZeDatFileInfo nodes, for ZeDatQueryFilesFree.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeDatQueryFiles(
            string directory, ZeDatFileKind kind, ref ushort count);

        /// <summary>Releases a list of data files.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern void ZeDatQueryFilesFree(IntPtr list);

        // Web links

        /// <summary>Address of a support topic.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeWebGetURL(
            int printer, ZeWebTopic topic, int language, StringBuilder buffer,
            uint size, IntPtr ini);

        /// <summary>Address of a support topic, with a query.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeWebGetCGIURL(
            uint family, uint model, ZeWebTopic topic, uint language,
            StringBuilder buffer, uint size);

        // Macros and demos

        /// <summary>Sends a macro's definition, without the frame of a job.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeMacCreate(
            string macroFile, string printerName, [In] ref ZeDestination destination,
            ref ZeMacroInfo macro);

        /// <summary>Sends a macro as a complete job.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeMacDownload(
            string macroFile, string printerName, [In] ref ZeDestination destination,
            ref ZeMacroInfo macro, ZeMacroMode mode, ZeMacroWrap wrap);

        /// <summary>Switches a stored macro on or off as automatic overlay.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeMacActivate(
            string printerName, [In] ref ZeDestination destination, uint enable);

        /// <summary>Deletes a stored macro.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeMacDelete(
            string printerName, [In] ref ZeDestination destination);

        /// <summary>Checks whether a file may be stored as a macro.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeMacValidate(
            string macroFile, [In] ref ZeDestination destination,
            ref ZeMacroInfo macro);

        /// <summary>Lists the macros of a folder: ZeFoundFile nodes, for ZeFonFindFree.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeMacFind(
            string directory, ref short count, ZeLanguage kind, uint value,
            uint recurse);

        /// <summary>Stores a demo; destination.language is overwritten.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeDemDownload(
            string demoFile, string printerName, ref ZeDestination destination,
            [In] ref ZeDemoInfo demo);

        /// <summary>Lists the demos of a folder: ZeFoundFile nodes, for ZeFonFindFree.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeDemFind(
            string directory, ref short count, uint value, uint recurse);

        // Files

        /// <summary>1 when the path exists and can be read, else 0.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeFilExists(string path);

        /// <summary>The size of the first file that matches; 0 for none.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern uint ZeFilQuerySize(string path);

        /// <summary>Copies a file over whatever the destination holds.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeFilCopy(string source, string destination);

        /// <summary>Copies a file to a free backup name; room for ZE_MAX_NAME characters.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeFilBackup(string source, StringBuilder backupName);

        /// <summary>Rewrites a text file line by line.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeFilModify(
            string path, uint value, ZeModifyCallback callback);

        /// <summary>Makes every missing folder of a path; created may be null.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeFilMakePath(string path, StringBuilder created);

        /// <summary>The 16-bit checksum of a file.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeFilChecksum(
            string path, int handle, uint skip, ref ushort result);

        /// <summary>
        /// Copies the file name of a path, in upper case; room for it. The result is a place that is gone
        /// when the call is over.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeStrCpyFile(StringBuilder destination, string path);

        /// <summary>
        /// Copies what stands before the file name; room for it. The result is a place that is gone when
        /// the call is over.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeStrCpyPath(StringBuilder destination, string path);

        // Archives

        /// <summary>
        /// Extracts an archive below the current folder; pattern and progress may be null.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeZipExplode(
            string archive, string pattern, ZeZipProgress progress);

        /// <summary>Is not supported: checks its arguments.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern ZeResult ZeZipImplode(
            string archive, string pattern, ZeZipProgress progress);

        // Printer records

        /// <summary>Reads a whole option record: a ZeOptionInfo, for ZeFreeOptionInfo.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeParseOptionInfo(byte[] buffer);

        /// <summary>Releases it.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern void ZeFreeOptionInfo(IntPtr info);

        /// <summary>
        /// Reads a whole job accounting record: a ZeJobAccount, for ZeFreeJobAccount.
        /// </summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern IntPtr ZeParseJobAccountingAlert(byte[] buffer);

        /// <summary>Releases it.</summary>
        [DllImport(Dll, CallingConvention = StdCall, CharSet = Ansi, ExactSpelling = true)]
        public static extern void ZeFreeJobAccount(IntPtr account);
    }
}
