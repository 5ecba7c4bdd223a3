// An INI file and a sequence of calls on it, compared with a list of lines that is searched from its beginning.
//
// Input: a line of numbers (mode), a line for each call up to an empty one, the content of the file. A call is a
// letter (w ZeIniWrite, a ZeIniWriteAll, d ZeIniDelete, r ZeIniRead, g ZeIniRead2 with the size of its
// buffer as the third text and a default as the fourth) and its texts, each after a "|"; a missing text is null where it may be.

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>

#include "support/ini_model.h"
#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "support/text_reference.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr char kPath[] = "c:\\file.ini";
constexpr std::uint32_t kModes[] = {ZE_INI_READ, ZE_INI_UPDATE, ZE_INI_CREATE, ZE_INI_APPEND};

using Text = std::optional<std::string>;

// A call's texts, and pointers to them.
struct Texts {
  explicit Texts(std::string_view line) {
    for (Text& text : texts) {
      const std::size_t bar = line.find('|');
      if (bar == line.npos) return;
      line.remove_prefix(bar + 1);
      text = std::string(UpToZero(line.substr(0, line.find('|'))));
    }
  }
  const char* pointer(int i) const { return texts[i] ? texts[i]->c_str() : nullptr; }
  const std::string* string(int i) const { return texts[i] ? &*texts[i] : nullptr; }
  // For an argument that must be there.
  const std::string& sure(int i) {
    if (!texts[i]) texts[i] = "";
    return *texts[i];
  }

  Text texts[4];
};

class Session {
 public:
  Session(void* handle, testing::IniModel* model) : handle_(handle), model_(model) {}

  bool modified() const { return modified_; }

  void Call(std::string_view line) {
    Texts texts(line);
    switch (line.front()) {
      case 'w':
      case 'a':
        return Write(texts, line.front() == 'a');
      case 'd':
        modified_ = true;
        texts.sure(0);
        Check(ZeIniDelete(handle_, texts.pointer(0), texts.pointer(1), texts.pointer(2)) == 1,
              "a delete is done");
        return model_->Delete(texts.sure(0), texts.string(1), texts.string(2));
      case 'r':
        Check(ZeIniRead(handle_, texts.pointer(0), texts.pointer(1)) ==
                  model_->Read(texts.string(0), texts.string(1)),
              "ZeIniRead gives the line or value that comes next");
        return;
      default:
        return Read2(texts);
    }
  }

 private:
  void Write(Texts& texts, bool all) {
    modified_ = true;
    const auto call = all ? ZeIniWriteAll : ZeIniWrite;
    Check(call(handle_, texts.sure(0).c_str(), texts.sure(1).c_str(), texts.sure(2).c_str()) == 1,
          "a write is done");
    model_->Write(texts.sure(0), texts.sure(1), texts.sure(2), all);
  }

  void Read2(Texts& texts) {
    auto [expected, value] = model_->Read2(texts.sure(0), texts.sure(1));
    if (expected != ZE_OK && texts.texts[3]) {
      expected = ZE_DEFAULT_USED;
      value = *texts.texts[3];
    }
    const std::uint32_t size = Numbers(texts.sure(2)).Below(2000) + 1;
    const auto buffer = std::make_unique<char[]>(size);
    std::uint32_t count = 0;
    const std::uint32_t code = ZeIniRead2(handle_, texts.pointer(0), texts.pointer(1),
                                          texts.pointer(3), buffer.get(), size, &count);
    const bool given = expected == ZE_OK || expected == ZE_DEFAULT_USED;
    if (given && value.size() >= size) {
      Check(code == ZE_BUFFER_TOO_SMALL, "a buffer without room for the terminator is too small");
      Check(count == size, "a full buffer is counted whole");
      Check(value.substr(0, size) == std::string_view(buffer.get(), size),
            "a full buffer holds the beginning of the value");
      return;
    }
    Check(code == expected, "a value, its default and what is not there have their codes");
    if (!given) return;
    Check(count < size && buffer[count] == '\0', "a whole value is terminated");
    Check(value == buffer.get(), "the value is that of the first such key");
  }

  void* handle_;
  testing::IniModel* model_;
  bool modified_ = false;
};

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  const std::uint32_t mode = kModes[Numbers(input.Line()).Below(std::size(kModes))];
  std::vector<std::string> calls;
  for (std::string_view line = input.Line(); !line.empty(); line = input.Line()) {
    calls.emplace_back(line);
  }
  const std::filesystem::path file = drives.Folder("c") / "file.ini";
  WriteWhole(file, input.Rest());

  const int descriptors = OpenDescriptors();
  void* handle = ZeIniOpen2(kPath, mode);
  Check(handle != nullptr, "any file can be opened");
  zeapi::testing::IniModel model;
  if (mode != ZE_INI_CREATE) model.Load(TextOf(input.Rest()), mode == ZE_INI_READ);
  Session session(handle, &model);
  for (const std::string& call : calls) session.Call(call);
  Check(ZeIniClose(handle) == 1, "the file can be written back");
  Check(descriptors == OpenDescriptors(), "every file is closed");
  const std::string unchanged = mode == ZE_INI_CREATE ? "" : std::string(input.Rest());
  Check(ReadWhole(file) == (session.modified() ? model.Text() : unchanged),
        "the file holds the lines of the image, or what it held");
  return 0;
}
