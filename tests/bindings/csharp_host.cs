// Prints what the run time makes of the structures of Zeapi.cs ("Record[.field] number"), and then what
// calls answer, for csharp_run_test.py to look at.
using System;
using System.IO;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Text;
using Zeapi;

static class Host
{
    static void PrintStructures()
    {
        foreach (Type type in typeof(Native).Assembly.GetTypes())
        {
            if (type.Namespace != "Zeapi" || !type.IsValueType || type.IsEnum)
            {
                continue;
            }
            Console.WriteLine("{0} {1}", type.Name, Marshal.SizeOf(type));
            foreach (FieldInfo field in type.GetFields(BindingFlags.Public | BindingFlags.Instance))
            {
                IntPtr offset = Marshal.OffsetOf(type, field.Name);
                Console.WriteLine("{0}.{1} {2}", type.Name, field.Name, offset);
            }
        }
    }

    static void SendString()
    {
        var printer = new ZeDestination
        {
            flags = ZeDestinationFlags.ZE_FLAG_PJL,
            language = ZeLanguage.ZE_LANGUAGE_PCL,
            jobName = "First"
        };
        Console.WriteLine("send: {0}", Native.ZeDatSendString("1b45", "out", ref printer, 0));
        Console.WriteLine("no file: {0}", Native.ZeDatSendFile("none", "out", ref printer, 0));
    }

    static void QueryFont()
    {
        var info = new ZeFontInfo();
        ZeResult result = Native.ZeFonQueryInfo("a.sfp", ref info, 0, 1);
        Console.WriteLine("font: {0} {1} {2}", result, info.format, info.symbolSet);
    }

    static void FindFonts()
    {
        ushort count = 0;
        int files = 0;
        IntPtr first = Native.ZeFonFind2(".", ref count, 26, 5, 0, 0, (font, percent) => ++files);
        var found = (ZeFoundFile)Marshal.PtrToStructure(first, typeof(ZeFoundFile));
        var info = (ZeFontInfo)Marshal.PtrToStructure(found.info, typeof(ZeFontInfo));
        Console.WriteLine("found: {0} {1} {2} {3}", count, found.size, info.format, files > 0);
        Native.ZeFonFindFree(first);
    }

    static void Ini()
    {
        IntPtr ini = Native.ZeIniOpen2("a.ini", ZeIniMode.ZE_INI_CREATE);
        Native.ZeIniWrite(ini, "One", "key", "value");
        var buffer = new byte[10];
        uint length = 0;
        ZeResult result = Native.ZeIniRead2(ini, "One", "key", null, buffer, 10, ref length);
        string line = Marshal.PtrToStringAnsi(Native.ZeIniRead(ini, "One", null));
        string value = Encoding.ASCII.GetString(buffer, 0, (int)length);
        Console.WriteLine("ini: {0} {1} {2} {3}", result, value, line, Native.ZeIniClose(ini));
    }

    static void DataFile()
    {
        short handle = Native.ZeDatOpenFile("a.dat", 0, Native.ZE_DAT_READ);
        var record = new ZeDatRecord { szKey = "SA" };
        short code = Native.ZeDatGetFirstKey(handle, ref record);
        Console.WriteLine("record: {0} {1} {2}", code, record.szKey, record.dVarRangeHi == 2.5);
        Console.WriteLine("next: {0}", (ZeDatCode)Native.ZeDatGetNextKey(handle, ref record));
        Console.WriteLine("close: {0}", Native.ZeDatCloseFile(handle));
    }

    static void Files()
    {
        ushort checksum = 0;
        Native.ZeFilChecksum("a.ini", 0, 0, ref checksum);
        ZeModifyCallback replace = (line, value) =>
        {
            Marshal.WriteByte(line, (byte)'X');
            return 0;
        };
        Console.WriteLine("modify: {0} {1}", checksum, Native.ZeFilModify("lines", 0, replace));
        var name = new StringBuilder(Native.ZE_MAX_NAME);
        Native.ZeStrCpyFile(name, @"c:\a\page.pcl");
        Console.WriteLine("name: {0}", name);
    }

    static void Extract()
    {
        string told = "";
        ZeZipProgress progress = (name, size, percent) =>
        {
            told += name;
            return 0;
        };
        Console.WriteLine("extract: {0} {1}", Native.ZeZipExplode("a.zip", null, progress), told);
    }

    static void ParseOptions()
    {
        byte[] record = File.ReadAllBytes("record");
        IntPtr pointer = Native.ZeParseOptionInfo(record);
        var info = (ZeOptionInfo)Marshal.PtrToStructure(pointer, typeof(ZeOptionInfo));
        var item = (ZeOptionItem)Marshal.PtrToStructure(info.items, typeof(ZeOptionItem));
        string text = Marshal.PtrToStringAnsi(item.text6);
        Console.WriteLine("options: {0} {1} {2} {3}", info.itemCount, item.value1, item.value5, text);
        Native.ZeFreeOptionInfo(pointer);
    }

    static void Main()
    {
        PrintStructures();
        Console.WriteLine("calls:");
        ZeApiInfo api;
        Native.ZeGenQueryApiInfo(out api);
        Console.WriteLine("version: {0}", api.words[0]);
        SendString();
        QueryFont();
        FindFonts();
        Ini();
        DataFile();
        Files();
        Extract();
        ParseOptions();
    }
}
