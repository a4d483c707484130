// The small automation variant and its conversions.
#include "varnex/variant.hpp"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "runtime/text.hpp"
#include "varnex/automation_error.hpp"

namespace varnex {
namespace {

[[noreturn]] void Raise(Long number) { throw AutomationError::Runtime(number); }

std::string_view TrimWhite(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(" \t");
  return text.substr(first, last - first + 1);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// "&H..." and "&O...": a value that fits 16 bits reads as an Integer, one that fits 32 bits as a
// Long, so "&HFFFF" and "&HFFFFFFFF" are both -1.
std::optional<double> ParseRadix(std::string_view digits, int radix) {
  if (digits.empty()) return std::nullopt;
  std::uint64_t value = 0;
  for (char c : digits) {
    const int digit = HexDigit(c);
    if (digit < 0 || digit >= radix) return std::nullopt;
    value = value * static_cast<unsigned>(radix) + static_cast<unsigned>(digit);
    if (value > 0xFFFFFFFFull) return std::numeric_limits<double>::infinity();
  }
  if (value <= 0xFFFF) return static_cast<double>(static_cast<std::int16_t>(value));
  return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

// The number that a text spells, as the runtime reads numbers from text: blanks around it, an
// optional sign, digits with an optional decimal point, an optional exponent (E or D), or the
// &H / &O forms. Nothing for any other text, "" included.
std::optional<double> ParseNumber(std::string_view text) {
  text = TrimWhite(text);
  if (text.size() >= 2 && text[0] == '&') {
    if (text[1] == 'H' || text[1] == 'h') return ParseRadix(text.substr(2), 16);
    if (text[1] == 'O' || text[1] == 'o') return ParseRadix(text.substr(2), 8);
    return std::nullopt;
  }
  std::string normal;
  normal.reserve(text.size());
  std::size_t i = 0;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
    if (text[i] == '-') normal += '-';
    ++i;
  }
  std::size_t mantissa_digits = 0;
  while (i < text.size() && IsDigit(text[i])) normal += text[i++], ++mantissa_digits;
  if (i < text.size() && text[i] == '.') {
    normal += text[i++];
    while (i < text.size() && IsDigit(text[i])) normal += text[i++], ++mantissa_digits;
  }
  if (mantissa_digits == 0) return std::nullopt;
  bool negative_exponent = false;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E' || text[i] == 'd' || text[i] == 'D')) {
    normal += 'e';
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
      negative_exponent = text[i] == '-';
      normal += text[i++];
    }
    std::size_t exponent_digits = 0;
    while (i < text.size() && IsDigit(text[i])) normal += text[i++], ++exponent_digits;
    if (exponent_digits == 0) return std::nullopt;
  }
  if (i != text.size()) return std::nullopt;

  double value = 0;
  const auto [end, error] = std::from_chars(normal.data(), normal.data() + normal.size(), value);
  if (error == std::errc::result_out_of_range) {
    // Too small to hold is zero, too large is beyond every Long.
    if (negative_exponent) return 0.0;
    return normal[0] == '-' ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
  }
  if (error != std::errc() || end != normal.data() + normal.size()) return std::nullopt;
  return value;
}

// CLng of a number: rounded half to even; beyond a Long is an overflow.
Long RoundToLong(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) Raise(errOverflow);
  return static_cast<Long>(rounded);
}

}  // namespace

Variant::Variant() = default;
Variant::Variant(Long value) : value_(value) {}
Variant::Variant(std::string value) : value_(std::move(value)) {}
Variant::Variant(const char* value) : value_(std::string(value)) {}
Variant::Variant(std::shared_ptr<Object> object) : value_(std::move(object)) {}

Variant Variant::FromBoolean(Boolean value) {
  Variant result;
  result.value_ = BooleanValue{value != 0 ? vbTrue : vbFalse};
  return result;
}

VbVarType Variant::VarType() const {
  switch (value_.index()) {
    case 1: return vbLong;
    case 2: return vbString;
    case 3: return vbBoolean;
    case 4: return vbObject;
    default: return vbEmpty;
  }
}

bool Variant::IsEmpty() const { return value_.index() == 0; }

Long Variant::AsLong() const {
  switch (value_.index()) {
    case 0: return 0;
    case 1: return std::get<Long>(value_);
    case 2: {
      const std::optional<double> number = ParseNumber(std::get<std::string>(value_));
      if (!number) Raise(errTypeMismatch);
      return RoundToLong(*number);
    }
    case 3: return std::get<BooleanValue>(value_).value;
    default: Raise(errTypeMismatch);
  }
}

Boolean Variant::AsBoolean() const {
  switch (value_.index()) {
    case 0: return vbFalse;
    case 1: return std::get<Long>(value_) != 0 ? vbTrue : vbFalse;
    case 2: {
      const std::string_view text = TrimWhite(std::get<std::string>(value_));
      if (EqualsIgnoreCase(text, "TRUE")) return vbTrue;
      if (EqualsIgnoreCase(text, "FALSE")) return vbFalse;
      const std::optional<double> number = ParseNumber(text);
      if (!number) Raise(errTypeMismatch);
      return *number != 0 ? vbTrue : vbFalse;
    }
    case 3: return std::get<BooleanValue>(value_).value;
    default: Raise(errTypeMismatch);
  }
}

std::string Variant::AsString() const {
  switch (value_.index()) {
    case 0: return {};
    case 1: return FormatLong(std::get<Long>(value_));
    case 2: return std::get<std::string>(value_);
    case 3: return std::get<BooleanValue>(value_).value != 0 ? "True" : "False";
    default: Raise(errTypeMismatch);
  }
}

std::shared_ptr<Object> Variant::AsObject() const {
  switch (value_.index()) {
    case 0: return nullptr;
    case 4: return std::get<std::shared_ptr<Object>>(value_);
    default: Raise(errTypeMismatch);
  }
}

bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }

}  // namespace varnex
