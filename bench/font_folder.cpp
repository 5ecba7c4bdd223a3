#include "font_folder.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>

namespace zeapi::bench {
namespace {

namespace fs = std::filesystem;

// The sizes of files are about those of real ones.
constexpr std::size_t kOutlines = 40000;
constexpr std::size_t kBitmaps = 15000;

std::string Noise(std::size_t size) {
  static std::mt19937 random;
  std::string noise(size, '\0');
  for (char& c : noise) c = static_cast<char>(random());
  return noise;
}

void Put(std::string* bytes, std::size_t offset, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i)
    (*bytes)[offset + static_cast<std::size_t>(i)] = static_cast<char>(value >> 8 * i);
}

std::string Type1(const std::string& name) {
  return "%!PS-AdobeFont-1.0: " + name + "\n11 dict begin\n/FontInfo 9 dict dup begin\n" +
         "/version (1.0) readonly def\n/FullName (" + name + ") readonly def\nend readonly def\n" +
         "/FontName /" + name + " def\n/Encoding StandardEncoding def\n/PaintType 0 def\n" +
         "currentfile eexec\n";
}

std::string Pfb(const std::string& name) {
  const std::string text = Type1(name);
  std::string head("\x80\x01\0\0\0\0", 6);
  Put(&head, 2, static_cast<std::uint32_t>(text.size()), 4);
  std::string tail("\x80\x02\0\0\0\0", 6);
  Put(&tail, 2, kOutlines, 4);
  return head + text + tail + Noise(kOutlines) + "\x80\x03";
}

std::string Pfa(const std::string& name) { return Type1(name) + std::string(2 * kOutlines, '7'); }

std::string Afm(const std::string& name) {
  std::string text = "StartFontMetrics 4.1\nFontName " + name + "\nStartCharMetrics 228\n";
  for (int code = 32; code < 260; ++code) {
    text += "C " + std::to_string(code < 256 ? code : -1) + " ; WX 500 ; N A ; B 14 0 650 700 ;\n";
  }
  text += "EndCharMetrics\nStartKernData\nStartKernPairs 500\n";
  for (int pair = 0; pair < 500; ++pair) text += "KPX A V -" + std::to_string(pair % 120) + "\n";
  return text + "EndKernPairs\nEndKernData\nEndFontMetrics\n";
}

std::string Pfm(const std::string& name) {
  std::string bytes(1200, '\0');
  Put(&bytes, 2, 1200, 4);
  Put(&bytes, 105, 200, 4);
  return bytes.replace(200, name.size(), name);
}

std::string Pcm(const std::string& name) {
  constexpr std::uint32_t kEntries = 96;
  std::string bytes(kEntries, '\0');
  Put(&bytes, 4, kEntries + 3 * 1200, 4);
  Put(&bytes, 8, 16, 4);
  Put(&bytes, 12, kEntries, 4);
  bytes.replace(16, name.size(), name);
  for (int font = 0; font < 3; ++font) bytes += Pfm(name);
  return bytes;
}

std::string Dlf(const std::string& name) {
  std::string record(36, '\0');
  std::string text = name;
  text.resize(24, ' ');
  return std::string(
             "\x1B=\x3C\0"
             "1\1",
             6) +
         record + text + Noise(kBitmaps);
}

std::string Fmf(const std::string& name) {
  std::string bytes(184, '\0');
  return bytes.replace(52, name.size(), name);
}

// The size is the descriptor's, with the most significant byte first.
std::string Pcl(const std::string& name, char headerFormat, char size) {
  std::string descriptor(64, '\0');
  descriptor[1] = size;
  descriptor[2] = headerFormat;
  descriptor[3] = 1;
  descriptor[14] = 1;
  descriptor[15] = 0x15;
  descriptor[19] = static_cast<char>(200);
  descriptor.replace(48, name.size(), name);
  return "\x1B)s64W" + descriptor + Noise(kBitmaps);
}

class Writer {
 public:
  explicit Writer(std::string folder) : folder_(std::move(folder)) {}

  void Write(const std::string& name, const std::string& bytes) {
    paths_.push_back(folder_ + "/" + name);
    std::ofstream file(paths_.back(), std::ios::binary);
    file << bytes;
    if (!file.flush()) throw std::runtime_error("cannot write " + paths_.back());
  }
  const std::vector<std::string>& paths() const { return paths_; }

 private:
  std::string folder_;
  std::vector<std::string> paths_;
};

}  // namespace

std::vector<std::string> WriteMixedFonts(const std::string& folder, int count) {
  fs::create_directories(folder);
  Writer writer(folder);
  for (int set = 0; set < count / 10; ++set) {
    const std::string number = std::to_string(100000 + set);
    writer.Write("t" + number + ".pfb", Pfb("Outline" + number));
    writer.Write("t" + number + ".afm", Afm("Afm" + number));
    writer.Write("t" + number + ".pfm", Pfm("Metrics" + number));
    writer.Write("a" + number + ".pfa", Pfa("Text" + number));
    writer.Write("d" + number + ".dlf", Dlf("Dlf" + number));
    writer.Write("f" + number + ".fmf", Fmf("Fmf" + number));
    writer.Write("c" + number + ".pcm", Pcm("Cartridge" + number));
    writer.Write("b" + number + ".sfp", Pcl("Bitmap" + number, 0, 64));
    writer.Write("s" + number + ".sfs", Pcl("Scaled" + number, 11, 88));
    writer.Write("h" + number + ".ttf", Noise(kOutlines));
  }
  return writer.paths();
}

int CopyHostType1(const std::string& folder) {
  fs::create_directories(folder);
  int count = 0;
  for (const char* place : {"/usr/share/fonts", "/usr/share/texmf/fonts/type1"}) {
    std::error_code none;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(place, none)) {
      if (entry.path().extension() != ".pfb" || !entry.is_regular_file()) continue;
      fs::copy_file(entry.path(), folder + "/" + std::to_string(count++) + ".pfb");
    }
  }
  return count;
}

}  // namespace zeapi::bench
