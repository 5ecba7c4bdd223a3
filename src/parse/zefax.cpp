#include "parse/zefax.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>

#include "parse/job_account_fields.h"
#include "parse/parse_log.h"
#include "parse/zeparse.h"

namespace zeapi {
namespace {

// `record`, or a new one when there is none yet: several roots fill one. Null when there is no memory.
template <typename Record>
Record* MadeIfMissing(Record* record) {
  return record != nullptr ? record : static_cast<Record*>(std::calloc(1, sizeof(Record)));
}

class AccountReader {
 public:
  explicit AccountReader(ZeAlertParser& parser) : parser_(parser) {}

  void ReadRoot(ZeJobAccount* account) {
    const AlertElement root = parser_.ReadElement();
    if (parser_.CutShort()) return;
    parse_log::Root(parse_log::kAccount, root.id, root.type);
    if (root.id != 1) return parser_.Skip(root);
    Children([&](std::int32_t number, const AlertElement& element) {
      parse_log::Child(parse_log::kAccount, element.id, element.type, number);
      if (element.type != kAlertContainer) return Skip(element);
      switch (element.id) {
        case 1:
          return Children([&](std::int32_t, const AlertElement& child) { return Skip(child); });
        case 2:
          account->job = MadeIfMissing(account->job);
          return ReadGroups(account->job, kJobAccountJobFields);
        case 3:
          account->totals = MadeIfMissing(account->totals);
          return ReadGroups(account->totals, kJobAccountTotalsFields);
        default:
          return Skip(element);
      }
    });
  }

 private:
  template <typename Visit>
  bool Children(Visit visit) {
    ForEachAlertChild(parser_, parser_.EnterContainer(), visit,
                      [&] { parse_log::BytesLeft(parse_log::kAccount, parser_.BytesLeft()); });
    return true;
  }

  bool Skip(const AlertElement& element) {
    parser_.Skip(element);
    return true;
  }

  bool ReadGroups(void* record, std::span<const JobAccountField> fields) {
    if (record == nullptr) return false;
    return Children([&](std::int32_t, const AlertElement& group) {
      const bool known = std::any_of(fields.begin(), fields.end(),
                                     [&](const auto& field) { return field.group == group.id; });
      if (!known || group.type != kAlertContainer) return Skip(group);
      return Children([&](std::int32_t, const AlertElement& element) {
        const auto field = std::find_if(fields.begin(), fields.end(), [&](const auto& candidate) {
          return candidate.group == group.id && candidate.element == element.id;
        });
        if (field == fields.end()) return Skip(element);
        return ReadField(static_cast<std::uint8_t*>(record), *field, element);
      });
    });
  }

  bool ReadField(std::uint8_t* record, const JobAccountField& field, const AlertElement& element) {
    if (field.textSize == 0 && element.type == kAlertInteger) {
      const std::int32_t value = parser_.ReadInteger();
      if (parser_.CutShort()) return false;
      std::memcpy(record + field.offset, &value, sizeof value);
      return true;
    }
    if (field.textSize != 0 && element.type == kAlertText) {
      const auto bytes = parser_.ReadBytes();
      if (parser_.CutShort()) return false;
      const auto kept = bytes.first(std::min(bytes.size(), field.textSize - 1));
      std::fill_n(std::copy(kept.begin(), kept.end(), record + field.offset),
                  field.textSize - kept.size(), std::uint8_t{0});
      return true;
    }
    return Skip(element);
  }

  ZeAlertParser& parser_;
};

}  // namespace

void FreeJobAccount(ZeJobAccount* account) {
  if (account == nullptr) return;
  std::free(account->job);
  std::free(account->totals);
  std::free(account);
}

JobAccountPtr ParseJobAccount(const void* buffer) {
  ZeAlertParser parser(buffer);
  JobAccountPtr account(static_cast<ZeJobAccount*>(std::calloc(1, sizeof(ZeJobAccount))));
  if (account == nullptr) return nullptr;
  while (!parser.Ended()) {
    const int before = parser.BytesLeft();
    AccountReader(parser).ReadRoot(account.get());
    if (parser.BytesLeft() == before) parser.CutShortHere();
  }
  return account;
}

}  // namespace zeapi
