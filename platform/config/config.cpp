#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <system_error>

#include "ZorConfig.h"

namespace ZORMV {
namespace {

constexpr long kOk = 0;

// std::tolower would follow the host's locale.
constexpr char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::optional<bool> ParseSwitch(std::string_view text) {
  struct Word {
    std::string_view spelling;
    bool value;
  };
  constexpr std::array<Word, 8> kWords = {{{"1", true},
                                           {"true", true},
                                           {"on", true},
                                           {"yes", true},
                                           {"0", false},
                                           {"false", false},
                                           {"off", false},
                                           {"no", false}}};
  for (const Word& word : kWords) {
    if (std::ranges::equal(text, word.spelling, {}, ToLower)) return word.value;
  }
  return std::nullopt;
}

std::optional<int> ParseNumber(std::string_view text) {
  int value = 0;
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, value);
  if (error != std::errc{} || end != last) return std::nullopt;
  return value;
}

template <class Value>
long Query(const char* variable, std::optional<Value> (*parse)(std::string_view), Value* out) {
  const char* const text = std::getenv(variable);
  const bool is_set = text != nullptr && *text != '\0';
  const std::optional<Value> parsed = is_set ? parse(text) : Value{};
  if (out != nullptr) *out = parsed.value_or(Value{});
  return parsed ? kOk : kZorConfigMalformed;
}

}  // namespace

long ZorGetStaticGPU(bool* enabled) noexcept { return Query("ZOR_GPU", ParseSwitch, enabled); }

long ZorGetStaticEfficiency(int* level) noexcept {
  return Query("ZOR_EFFICIENCY", ParseNumber, level);
}

long ZorGetStaticTBB(int* threads) noexcept { return Query("ZOR_TBB", ParseNumber, threads); }

}  // namespace ZORMV
