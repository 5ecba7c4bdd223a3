// One harmless call of each export: what it is called with, what it answers, and the stack bytes
// that it removes in the 32-bit library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <vector>

#include "zeapi.h"

struct ExportCall {
  const char* name;
  unsigned stackBytes;
  unsigned prototypeBytes;           // what the header's prototype comes to
  std::uintptr_t answer;             // already masked
  std::uintptr_t answerMask;         // the bits that the result type has; 0 for void
  std::vector<std::uint32_t> words;  // the arguments as the 32-bit stack holds them
  std::function<std::uintptr_t(const void* entry)> call;  // through the header's prototype
};

// Every export has one row in this table.
const std::vector<ExportCall>& ExportCalls();

// The answer of an export that returns nothing.
struct Nothing {};

namespace export_call {

template <typename Value>
std::uintptr_t ToWord(Value value) {
  if constexpr (std::is_same_v<Value, Nothing> || std::is_same_v<Value, std::nullptr_t>)
    return 0;
  else if constexpr (std::is_pointer_v<Value>)
    return reinterpret_cast<std::uintptr_t>(value);
  else
    return static_cast<std::uintptr_t>(value);
}

template <typename Function>
struct Prototype;

template <typename Result, typename... Parameters>
struct Prototype<Result(ZEAPI_CALL*)(Parameters...) noexcept> {
  static constexpr unsigned kStackBytes =
      (0U + ... + static_cast<unsigned>((sizeof(Parameters) + 3) / 4 * 4));

  static constexpr std::uintptr_t AnswerMask() {
    if constexpr (std::is_void_v<Result>)
      return 0;
    else if constexpr (sizeof(Result) < sizeof(std::uintptr_t))
      return (std::uintptr_t{1} << (8 * sizeof(Result))) - 1;
    else
      return ~std::uintptr_t{0};
  }

  static std::uintptr_t Call(const void* entry, Parameters... arguments) {
    const auto function = reinterpret_cast<Result(ZEAPI_CALL*)(Parameters...)>(
        reinterpret_cast<std::uintptr_t>(entry));
    if constexpr (std::is_void_v<Result>) {
      function(arguments...);
      return 0;
    } else {
      return ToWord(function(arguments...)) & AnswerMask();
    }
  }
};

template <typename Function, typename Answer, typename... Arguments>
ExportCall Make(const char* name, unsigned stackBytes, Answer answer, Arguments... arguments) {
  using Proto = Prototype<Function>;
  return {name,
          stackBytes,
          Proto::kStackBytes,
          ToWord(answer) & Proto::AnswerMask(),
          Proto::AnswerMask(),
          {static_cast<std::uint32_t>(ToWord(arguments))...},
          [=](const void* entry) { return Proto::Call(entry, arguments...); }};
}

}  // namespace export_call

#define EXPORT_CALL(name, stackBytes, answer, ...) \
  export_call::Make<decltype(&::name)>(#name, stackBytes, answer, __VA_ARGS__)
