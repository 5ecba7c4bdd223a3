#include "support/bidi_double.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "platform/module.h"
#include "support/outside_library.h"
#include "zeapi.h"

namespace zeapi::testing {
namespace {

using Word = std::uint32_t;

std::string Numbers(std::initializer_list<Word> numbers) {
  std::string text;
  for (const Word number : numbers) text += ' ' + std::to_string(number);
  return text;
}

Word Record(const std::string& name, const std::string& arguments) {
  Bidi().calls.push_back(name + arguments);
  return Bidi().failing.count(name) != 0 ? 1 : 0;
}

Word ZEAPI_CALL BceOpen(Word port, Word handle, Word zero) {
  const OutsideLibrary outside;
  return Record("BceOpen", Numbers({port, handle, zero}));
}

Word ZEAPI_CALL BceClose(Word port, Word handle) {
  const OutsideLibrary outside;
  return Record("BceClose", Numbers({port, handle}));
}

Word ZEAPI_CALL BceStartDoc(Word handle, Word zero, const void* info) {
  const OutsideLibrary outside;
  Word size = 0;
  std::memcpy(&size, info, sizeof(size));
  Bidi().documentInfo.assign(static_cast<const char*>(info), size);
  return Record("BceStartDoc", Numbers({handle, zero}));
}

Word ZEAPI_CALL BceEndDoc(Word handle, Word zero) {
  const OutsideLibrary outside;
  return Record("BceEndDoc", Numbers({handle, zero}));
}

Word ZEAPI_CALL BceWrite(Word port, Word handle, Word zero, const void* data, Word* count,
                         Word one) {
  const OutsideLibrary outside;
  const Word failed = Record("BceWrite", Numbers({port, handle, zero}) + " (" +
                                             std::to_string(*count) + ")" + Numbers({one}));
  ++Bidi().writes;
  if (failed != 0 || Bidi().writes == Bidi().failingWrite) {
    *count = 0;
    return 5;
  }
  Bidi().data.append(static_cast<const char*>(data), *count);
  *count -= std::min(*count, Bidi().reportedShort);
  return 0;
}

Word ZEAPI_CALL BceGetPrtInfo(Word printer, void* info, Word zero) {
  const OutsideLibrary outside;
  auto* block = static_cast<std::uint8_t*>(info);
  const auto& answer = Bidi().printerInfo;
  Bidi().infoWasZero =
      std::all_of(block, block + answer.size(), [](std::uint8_t byte) { return byte == 0; });
  std::copy(answer.begin(), answer.end(), block);
  return Record("BceGetPrtInfo", Numbers({printer, zero}));
}

struct Entry {
  std::string_view name;
  platform::EntryPoint function;
};

template <typename Function>
Entry MakeEntry(std::string_view name, Function function) {
  return {name, reinterpret_cast<platform::EntryPoint>(function)};
}

}  // namespace

BidiDouble& Bidi() {
  static BidiDouble bidi;
  return bidi;
}

void ResetBidi() { Bidi() = BidiDouble{}; }

}  // namespace zeapi::testing

namespace zeapi::platform {

using namespace testing;

Module ModuleLoad(const char* name) {
  const OutsideLibrary outside;
  Bidi().calls.push_back(std::string("load ") + name);
  if (!Bidi().present) return nullptr;
  ++Bidi().loaded;
  return &Bidi();
}

EntryPoint ModuleFind(Module, const char* entryPoint) {
  const OutsideLibrary outside;
  const Entry entries[] = {
      MakeEntry("BceOpen", BceOpen),         MakeEntry("BceClose", BceClose),
      MakeEntry("BceStartDoc", BceStartDoc), MakeEntry("BceEndDoc", BceEndDoc),
      MakeEntry("BceWrite", BceWrite),       MakeEntry("BceGetPrtInfo", BceGetPrtInfo),
  };
  for (const Entry& entry : entries) {
    if (entry.name == entryPoint && Bidi().missing.count(entryPoint) == 0) return entry.function;
  }
  return nullptr;
}

void ModuleFree(Module) {
  const OutsideLibrary outside;
  Bidi().calls.push_back("free");
  --Bidi().loaded;
}

}  // namespace zeapi::platform
