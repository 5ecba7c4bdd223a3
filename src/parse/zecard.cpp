#include "parse/zecard.h"

#include <cstdlib>
#include <cstring>
#include <span>

#include "base/c_heap.h"
#include "parse/parse_log.h"
#include "parse/zeparse.h"

namespace zeapi {
namespace {

template <typename T>
T* NewZeroed(std::size_t count) {
  return static_cast<T*>(std::calloc(count, sizeof(T)));
}

char* NewText(std::span<const std::uint8_t> bytes) {
  char* text = NewZeroed<char>(bytes.size() + 1);
  if (text != nullptr && !bytes.empty()) std::memcpy(text, bytes.data(), bytes.size());
  return text;
}

void FreeItems(ZeOptionInfo* info) {
  for (std::uint32_t i = info->itemCount; i > 0; --i) std::free(info->items[i - 1].text6);
  std::free(info->items);
  info->items = nullptr;
  info->itemCount = 0;
}

void FreeValues(ZeOptionGroup* group) {
  std::free(group->values);
  group->values = nullptr;
  group->valueCount = 0;
}

void FreeGroups(ZeOptionInfo* info) {
  for (std::uint32_t i = 0; i < info->groupCount; ++i) {
    std::free(info->groups[i].text1);
    std::free(info->groups[i].text2);
    FreeValues(&info->groups[i]);
  }
  std::free(info->groups);
  info->groups = nullptr;
  info->groupCount = 0;
}

// Room for the entries of a container's children; null for none and when there is no memory.
template <typename T>
T* NewEntries(std::int32_t childCount) {
  return childCount != 0 ? NewZeroed<T>(static_cast<std::size_t>(childCount)) : nullptr;
}

class OptionReader {
 public:
  explicit OptionReader(ZeAlertParser& parser) : parser_(parser) {}

  void ReadRoot(ZeOptionInfo* info) {
    const AlertElement root = parser_.ReadElement();
    if (parser_.CutShort()) return;
    parse_log::Root(parse_log::kOptions, root.id, root.type);
    if (root.id != 1) return parser_.Skip(root);
    Children([&](std::int32_t number, const AlertElement& element) {
      parse_log::Child(parse_log::kOptions, element.id, element.type, number);
      if (element.type != kAlertContainer) return Skip(element);
      if (element.id == 1) return ReadItems(info);
      if (element.id == 3) return ReadGroups(info);
      return Skip(element);
    });
  }

 private:
  // Walks the children of the container at hand. Always true: what goes wrong in there has cut the
  // record short already.
  template <typename Visit>
  bool Children(std::int32_t count, Visit visit) {
    ForEachAlertChild(parser_, count, visit,
                      [&] { parse_log::BytesLeft(parse_log::kOptions, parser_.BytesLeft()); });
    return true;
  }
  template <typename Visit>
  bool Children(Visit visit) {
    return Children(parser_.EnterContainer(), visit);
  }

  bool Skip(const AlertElement& element) {
    parser_.Skip(element);
    return true;
  }

  bool ReadItems(ZeOptionInfo* info) {
    const std::int32_t count = parser_.EnterContainer();
    if (parser_.CutShort()) return false;
    FreeItems(info);
    info->items = NewEntries<ZeOptionItem>(count);
    if (info->items == nullptr) return count == 0;
    info->itemCount = static_cast<std::uint32_t>(count);
    return Children(count, [&](std::int32_t number, const AlertElement& element) {
      if (element.type != kAlertContainer) return Skip(element);
      return ReadItem(&info->items[number - 1]);
    });
  }

  bool ReadItem(ZeOptionItem* item) {
    return Children([&](std::int32_t, const AlertElement& element) {
      if (element.id == 1 && element.type == kAlertInteger) return TakeInteger(&item->value1);
      if (element.id == 5 && element.type == kAlertInteger) return TakeInteger(&item->value5);
      if (element.id == 6 && element.type == kAlertText)
        return TakeText(&item->text6, EmptyText::kText);
      return Skip(element);
    });
  }

  bool ReadGroups(ZeOptionInfo* info) {
    const std::int32_t count = parser_.EnterContainer();
    if (parser_.CutShort()) return false;
    FreeGroups(info);
    info->groups = NewEntries<ZeOptionGroup>(count);
    if (info->groups == nullptr) return count == 0;
    info->groupCount = static_cast<std::uint32_t>(count);
    return Children(count, [&](std::int32_t number, const AlertElement& element) {
      if (element.type != kAlertContainer) return Skip(element);
      return ReadGroup(&info->groups[number - 1]);
    });
  }

  bool ReadGroup(ZeOptionGroup* group) {
    return Children([&](std::int32_t, const AlertElement& element) {
      if (element.id == 3 && element.type == kAlertContainer) return ReadValues(group);
      if (element.id == 1 && element.type == kAlertText)
        return TakeText(&group->text1, EmptyText::kNull);
      if (element.id == 2 && element.type == kAlertText)
        return TakeText(&group->text2, EmptyText::kNull);
      return Skip(element);
    });
  }

  bool ReadValues(ZeOptionGroup* group) {
    const std::int32_t count = parser_.EnterContainer();
    if (parser_.CutShort()) return false;
    FreeValues(group);
    group->values = NewEntries<std::int32_t>(count);
    if (group->values == nullptr) return count == 0;
    group->valueCount = static_cast<std::uint32_t>(count);
    return Children(count, [&](std::int32_t number, const AlertElement& value) {
      if (value.type != kAlertContainer) return Skip(value);
      return Children([&](std::int32_t, const AlertElement& element) {
        if (element.id != 1 || element.type != kAlertInteger) return Skip(element);
        return TakeInteger(&group->values[number - 1]);
      });
    });
  }

  // What was read before is replaced by a number or text that is there whole.
  bool TakeInteger(std::int32_t* value) {
    const std::int32_t read = parser_.ReadInteger();
    if (parser_.CutShort()) return false;
    *value = read;
    return true;
  }

  enum class EmptyText { kText, kNull };
  bool TakeText(char** text, EmptyText empty) {
    const auto bytes = parser_.ReadBytes();
    if (parser_.CutShort()) return false;
    std::free(*text);
    const bool isNull = bytes.empty() && empty == EmptyText::kNull;
    *text = isNull ? nullptr : NewText(bytes);
    return isNull || *text != nullptr;
  }

  ZeAlertParser& parser_;
};

}  // namespace

void FreeOptionInfo(ZeOptionInfo* info) {
  if (info == nullptr) return;
  FreeItems(info);
  FreeGroups(info);
  std::free(info);
}

OptionInfoPtr ParseOptionInfo(const void* buffer) {
  ZeAlertParser parser(buffer);
  OptionInfoPtr info(NewZeroed<ZeOptionInfo>(1));
  if (info != nullptr && !parser.Ended()) OptionReader(parser).ReadRoot(info.get());
  return info;
}

}  // namespace zeapi
