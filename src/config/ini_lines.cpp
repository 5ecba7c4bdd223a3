#include "config/ini_lines.h"

#include <algorithm>
#include <new>

namespace zeapi {
namespace {

// Blocks grow with the file: few of them, and a small file has a small one. Threefold, so that together they are
// less than twice the last one until they grow no more: of more than that glibc returns pages, to fault them in
// for the next file.
constexpr std::size_t kFirstBlock = 16384;
constexpr std::size_t kGrowth = 3;
constexpr std::size_t kLargestBlock = std::size_t{4} << 20;

std::uint32_t LengthOf(std::string_view text) {
  if (text.size() >= UINT32_MAX) throw std::bad_alloc();
  return static_cast<std::uint32_t>(text.size());
}

void Store(std::string_view text, char* room) { *std::copy(text.begin(), text.end(), room) = '\0'; }

char* NewText(std::string_view text) {
  auto room = std::make_unique_for_overwrite<char[]>(std::size_t{LengthOf(text)} + 1);
  Store(text, room.get());
  return room.release();
}

}  // namespace

IniLines::~IniLines() {
  if (!mustRelease_) return;
  for (IniLine* line = first(); line != nullptr;) {
    IniLine* next = line->next;
    Release(line);
    line = next;
  }
}

void* IniLines::Reserve(std::size_t size) {
  size = (size + alignof(IniLine) - 1) / alignof(IniLine) * alignof(IniLine);
  if (blockSize_ - used_ < size) {
    const std::size_t next =
        blockSize_ == 0 ? kFirstBlock : std::min(kGrowth * blockSize_, kLargestBlock);
    blocks_.push_back(std::make_unique_for_overwrite<char[]>(next));
    blockSize_ = next;
    used_ = 0;
  }
  char* room = blocks_.back().get() + used_;
  used_ += size;
  return room;
}

void IniLines::Link(IniLine* before, IniLine* line) {
  line->next = before->next;
  before->next = line;
  if (last_ == before) last_ = line;
}

void IniLines::Load(std::string_view text) {
  void* room = Reserve(sizeof(IniLine) + text.size() + 1);
  char* place = static_cast<char*>(room) + sizeof(IniLine);
  Store(text, place);
  Link(last_, new (room) IniLine{place, nullptr, LengthOf(text), false, false});
}

IniLine* IniLines::Insert(IniLine* before, std::string_view text) {
  mustRelease_ = true;
  auto line = std::make_unique<IniLine>();
  *line = {NewText(text), nullptr, LengthOf(text), true, true};
  Link(before, line.get());
  return line.release();
}

void IniLines::RemoveBehind(IniLine* before) {
  IniLine* line = before->next;
  before->next = line->next;
  if (last_ == line) last_ = before;
  Release(line);
}

void IniLines::Rewrite(IniLine* line, std::string_view text) {
  if (line->length < text.size()) {
    mustRelease_ = true;
    char* room = NewText(text);
    if (line->ownsText) delete[] line->text;
    line->text = room;
    line->ownsText = true;
  } else {
    Store(text, line->text);
  }
  line->length = LengthOf(text);
}

void IniLines::Release(IniLine* line) {
  if (line->ownsText) delete[] line->text;
  if (line->ownsSelf) delete line;
}

}  // namespace zeapi
