#include "job/job_reader.h"

#include <charconv>

#include "job/pcl_commands.h"

namespace tool {
namespace {

constexpr char kEsc = '\x1B';
constexpr char kFormFeed = '\f';
constexpr std::string_view kUniversalExit = "\x1B%-12345X";
constexpr std::string_view kPjlPrefix = "@PJL";

// A value of more characters is no value: no printer has a use for it.
constexpr std::size_t kLongestValue = 32;

bool IsBetween(int byte, int first, int last) { return byte >= first && byte <= last; }

bool IsDigit(int byte) { return IsBetween(byte, '0', '9'); }

// The characters after ESC that begin a command with a value.
bool IsParameterised(int byte) { return IsBetween(byte, '!', '/'); }

bool IsGroup(int byte) { return IsBetween(byte, '`', '~'); }

// The character that ends a command, or that ends this part and lets another follow.
bool EndsCommand(int byte) { return IsBetween(byte, '@', '^'); }

bool EndsPart(int byte) { return IsBetween(byte, '`', '~'); }

bool IsText(int byte) { return IsBetween(byte, ' ', '~') || IsBetween(byte, '\b', '\r'); }

bool BeginsPjl(const Bytes& job, std::size_t at) {
  if (!job.StartsWith(at, kPjlPrefix)) return false;
  const int next = job.At(at + kPjlPrefix.size());
  return next == -1 || next == ' ' || next == '\t' || next == '\r' || next == '\n';
}

std::size_t ValueLength(const Bytes& job, std::size_t at) {
  const std::size_t start = at;
  const std::size_t limit = start + kLongestValue;
  if (job.At(at) == '+' || job.At(at) == '-') ++at;
  while (at < limit && IsDigit(job.At(at))) ++at;
  if (job.At(at) == '.') {
    ++at;
    while (at < limit && IsDigit(job.At(at))) ++at;
  }
  return at - start;
}

// Whether a combined command goes on here.
bool BeginsPart(const Bytes& job, std::size_t at) {
  return ValueLength(job, at) > 0 || EndsCommand(job.At(at)) || EndsPart(job.At(at));
}

// The bytes that a value announces: its whole part, within 32 bits.
std::uint32_t CountOf(const std::string& value) {
  std::uint32_t count = 0;
  const char* first = value.data();
  const char* last = first + value.size();
  if (first != last && *first == '+') ++first;
  const auto [end, error] = std::from_chars(first, last, count);
  return error == std::errc::result_out_of_range ? UINT32_MAX : count;
}

// The words of a PJL line in upper case; "=" is a word.
std::string Words(std::string_view line, std::size_t count) {
  std::string words;
  bool blank = true;
  std::size_t taken = 0;
  for (const char c : line) {
    if (c == ' ' || c == '\t') {
      blank = true;
      continue;
    }
    if (blank || c == '=' || (!words.empty() && words.back() == '=')) {
      if (taken++ == count) break;
      if (!words.empty()) words += ' ';
    }
    blank = false;
    words += IsBetween(c, 'a', 'z') ? static_cast<char>(c - 'a' + 'A') : c;
  }
  return words;
}

// PJL commands after which the bytes of a file follow, and what ends the file.
struct FileCommand {
  std::string_view words;
  std::string_view end;
};

constexpr FileCommand kFileCommands[] = {
    {"@PJL LWRITEFILE", "@PJL END DATA"},
    {"@PJL LOPENDEMOFILE", "\x1BM@PJL LCLOSEDEMOFILE"},
};

// Languages that show themselves by their first bytes.
struct Signature {
  std::string_view bytes;
  const char* language;
};

constexpr Signature kSignatures[] = {{"%!", "POSTSCRIPT"}, {") HP-PCL XL;", "PCLXL"}};

}  // namespace

std::optional<JobEvent> JobReader::Next() {
  if (at_ >= job_.Size()) return std::nullopt;
  if (auto event = ReadAnnounced()) return event;
  if (!pclGroup_.empty() && BeginsPart(job_, at_)) return ReadPclPart(at_, true);
  pclGroup_.clear();
  if (lineStart_ && BeginsPjl(job_, at_)) return ReadPjlLine();
  if (auto event = ReadForeignLanguage()) return event;
  if (job_.At(at_) == kEsc) return ReadEscape();
  dataStart_ = false;
  if (job_.At(at_) == kFormFeed) return Take(JobEventKind::kFormFeed, 1);
  return ReadRun();
}

// The bytes of a payload or of a file.
std::optional<JobEvent> JobReader::ReadAnnounced() {
  if (!fileEnd_.empty()) {
    const std::size_t length = job_.Find(at_, fileEnd_) - at_;
    fileEnd_ = {};
    if (length > 0) return Take(JobEventKind::kPayload, length, "file");
  }
  if (announced_ == 0) return std::nullopt;
  const std::size_t length = std::min(announced_, job_.Size() - at_);
  JobEvent event = Take(JobEventKind::kPayload, length, announcedName_);
  event.missing = announced_ - length;
  announced_ = 0;
  return event;
}

// All up to the next universal exit, in a language other than PCL.
std::optional<JobEvent> JobReader::ReadForeignLanguage() {
  if (dataStart_ && foreign_.empty()) {
    for (const Signature& signature : kSignatures) {
      if (job_.StartsWith(at_, signature.bytes)) foreign_ = signature.language;
    }
  }
  if (foreign_.empty()) return std::nullopt;
  const std::string language = std::move(foreign_);
  foreign_.clear();
  const std::size_t length = job_.Find(at_, kUniversalExit) - at_;
  if (length == 0) return std::nullopt;
  return Take(JobEventKind::kLanguageData, length, language);
}

JobEvent JobReader::ReadPjlLine() {
  std::size_t end = at_;
  while (end < job_.Size() && job_.At(end) != '\n' && job_.At(end) != kEsc) ++end;
  std::string line = job_.Text(at_, end - at_);
  if (job_.At(end) == '\n') ++end;
  while (!line.empty() && line.back() == '\r') line.pop_back();
  FollowPjl(line);
  return Take(JobEventKind::kPjl, end - at_, std::move(line));
}

// What a PJL line says about the bytes after it.
void JobReader::FollowPjl(const std::string& line) {
  constexpr std::string_view kEnter = "@PJL ENTER LANGUAGE = ";
  const std::string words = Words(line, 5);
  if (words.starts_with(kEnter)) {
    const std::string language = words.substr(kEnter.size());
    // The commands of these two are read; those of any other language are not.
    foreign_ = language == "PCL" || language == "PPDS" ? "" : language;
  }
  for (const FileCommand& command : kFileCommands) {
    if (Words(line, 2) == command.words) fileEnd_ = command.end;
  }
}

JobEvent JobReader::ReadEscape() {
  if (job_.StartsWith(at_, kUniversalExit)) {
    dataStart_ = true;
    return Take(JobEventKind::kUniversalExit, kUniversalExit.size());
  }
  dataStart_ = false;
  const int first = job_.At(at_ + 1);
  if (IsParameterised(first)) return ReadPcl();
  if (!IsBetween(first, '0', '~')) return Take(JobEventKind::kDamaged, 1);
  if (first != '[' || !IsBetween(job_.At(at_ + 2), 'A', 'z'))
    return Take(JobEventKind::kEscape, 2, job_.Text(at_ + 1, 1));
  if (job_.At(at_ + 2) != 'K') return Take(JobEventKind::kEscape, 3, job_.Text(at_ + 1, 2));
  return ReadBracketK();
}

// ESC, one or two characters that name the group, and the first part.
JobEvent JobReader::ReadPcl() {
  const std::size_t groupLength = IsGroup(job_.At(at_ + 2)) ? 2 : 1;
  pclGroup_ = job_.Text(at_ + 1, groupLength);
  return ReadPclPart(at_ + 1 + groupLength, false);
}

// A value, from `start`, and the character that says what it is for.
JobEvent JobReader::ReadPclPart(std::size_t start, bool continued) {
  const std::string group = std::move(pclGroup_);
  pclGroup_.clear();
  const std::size_t valueLength = ValueLength(job_, start);
  const std::size_t end = start + valueLength;
  const int last = job_.At(end);
  if (!EndsCommand(last) && !EndsPart(last)) return Take(JobEventKind::kDamaged, end - at_);
  const char letter = static_cast<char>(last >= '`' ? last - 'a' + 'A' : last);
  JobEvent event = Take(JobEventKind::kPcl, end + 1 - at_, group + letter);
  event.value = job_.Text(start, valueLength);
  event.continued = continued;
  if (const PclCommand* command = FindPclCommand(event.text);
      command != nullptr && !command->payload.empty())
    Announce(CountOf(event.value), std::string(command->payload));
  if (EndsPart(last)) pclGroup_ = group;
  return event;
}

JobEvent JobReader::ReadBracketK() {
  constexpr std::size_t kHeader = 5;  // ESC [ K and the count, low byte first
  if (job_.At(at_ + 4) < 0) return Take(JobEventKind::kDamaged, job_.Size() - at_);
  const auto low = static_cast<std::size_t>(job_.At(at_ + 3));
  const auto high = static_cast<std::size_t>(job_.At(at_ + 4));
  const std::size_t announced = kHeader + low + high * 256;
  const std::size_t length = std::min(announced, job_.Size() - at_);
  JobEvent event = Take(JobEventKind::kBracketK, length);
  event.missing = announced - length;
  return event;
}

// Text or data up to the next command.
JobEvent JobReader::ReadRun() {
  bool isText = true;
  std::size_t end = at_;
  do {
    isText = isText && IsText(job_.At(end));
    ++end;
  } while (end < job_.Size() && job_.At(end) != kEsc && job_.At(end) != kFormFeed &&
           !(job_.At(end - 1) == '\n' && BeginsPjl(job_, end)));
  JobEvent event = Take(isText ? JobEventKind::kText : JobEventKind::kData, end - at_);
  lineStart_ = job_.At(end - 1) == '\n';
  return event;
}

void JobReader::Announce(std::size_t length, std::string what) {
  announced_ = length;
  announcedName_ = std::move(what);
}

JobEvent JobReader::Take(JobEventKind kind, std::size_t length, std::string text) {
  JobEvent event;
  event.kind = kind;
  event.offset = at_;
  event.length = length;
  event.text = std::move(text);
  at_ += length;
  lineStart_ = true;
  return event;
}

}  // namespace tool
