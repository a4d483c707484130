// Upper-casing and case-insensitive comparison of UTF-8 text.
//
// ASCII is handled eight bytes at a time; other code points go through a compiled-in table of
// simple upper-case mappings (runtime/ucase_table.inc), so the result is the same on every
// platform and never depends on a locale. A byte that does not start a well-formed UTF-8 sequence
// is kept as it is and compared as itself.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "runtime/text.hpp"
#include "runtime/utf8.hpp"

namespace varnex {
namespace {

// Maps first, first + stride, ... up to last to code point + delta.
struct UpperRange {
  char32_t first;
  char32_t last;
  std::uint8_t stride;
  std::int32_t delta;
};

constexpr UpperRange kUpperRanges[] = {
#include "runtime/ucase_table.inc"
};

char32_t UpperCodePoint(char32_t cp) {
  if (cp < 0x80) return (cp >= 'a' && cp <= 'z') ? cp - 0x20 : cp;
  const auto* range = std::lower_bound(std::begin(kUpperRanges), std::end(kUpperRanges), cp,
                                       [](const UpperRange& r, char32_t c) { return r.last < c; });
  if (range == std::end(kUpperRanges) || cp < range->first) return cp;
  if ((cp - range->first) % range->stride != 0) return cp;
  return static_cast<char32_t>(static_cast<std::int32_t>(cp) + range->delta);
}

// Eight bytes read and written without alignment requirements.
constexpr std::uint64_t kHighBits = 0x8080808080808080ULL;
constexpr std::uint64_t kEachByte = 0x0101010101010101ULL;

std::uint64_t Load8(const char* p) {
  std::uint64_t word;
  std::memcpy(&word, p, sizeof word);
  return word;
}

// Upper-cases eight ASCII bytes at once: the high bit of a byte ends up set exactly when the byte
// lies in 'a'..'z' (no carry crosses a byte because every byte is below 0x80), and shifting that
// bit down to 0x20 gives the amount to subtract.
std::uint64_t UpperAscii8(std::uint64_t word) {
  const std::uint64_t at_least_a = word + kEachByte * (0x80 - 'a');
  const std::uint64_t above_z = word + kEachByte * (0x80 - 'z' - 1);
  const std::uint64_t lower = at_least_a & ~above_z & kHighBits;
  return word - (lower >> 2);
}

char UpperAscii(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 0x20) : c; }

// The unit at text[i], upper-cased; ASCII bytes need no decoding.
Utf8Unit UpperUnitAt(std::string_view text, std::size_t i) {
  const auto c = static_cast<unsigned char>(text[i]);
  if (c < 0x80) return {static_cast<char32_t>(UpperAscii(static_cast<char>(c))), 1};
  Utf8Unit unit = DecodeUtf8(text, i);
  if (unit.code_point < kMalformedUtf8) unit.code_point = UpperCodePoint(unit.code_point);
  return unit;
}

}  // namespace

std::string UCase(std::string_view text) {
  const std::size_t size = text.size();
  std::string out(size, '\0');
  char* dest = out.data();
  std::size_t i = 0;
  for (; i + 8 <= size; i += 8) {
    const std::uint64_t word = Load8(text.data() + i);
    if (word & kHighBits) break;
    const std::uint64_t upper = UpperAscii8(word);
    std::memcpy(dest + i, &upper, sizeof upper);
  }
  for (; i < size && !(text[i] & 0x80); ++i) dest[i] = UpperAscii(text[i]);
  if (i == size) return out;

  // Past the ASCII prefix the length may change (U+0131 becomes "I", U+0250 takes a third byte).
  out.resize(i);
  out.reserve(size + size / 4);
  while (i < size) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c < 0x80) {
      out += UpperAscii(static_cast<char>(c));
      ++i;
      continue;
    }
    const Utf8Unit unit = DecodeUtf8(text, i);
    const char32_t upper = unit.code_point < kMalformedUtf8 ? UpperCodePoint(unit.code_point)
                                                        : unit.code_point;
    if (upper == unit.code_point) {
      out.append(text.data() + i, unit.length);
    } else {
      AppendUtf8(out, upper);
    }
    i += unit.length;
  }
  return out;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
  // Both texts advance in step while they are ASCII: compare eight bytes at a time, then bytes.
  const std::size_t common = std::min(a.size(), b.size());
  std::size_t i = 0;
  for (; i + 8 <= common; i += 8) {
    const std::uint64_t wa = Load8(a.data() + i);
    const std::uint64_t wb = Load8(b.data() + i);
    if ((wa | wb) & kHighBits) break;
    if (wa != wb && UpperAscii8(wa) != UpperAscii8(wb)) return false;
  }
  for (; i < common; ++i) {
    const char ca = a[i];
    const char cb = b[i];
    if ((ca | cb) & 0x80) break;
    if (ca != cb && UpperAscii(ca) != UpperAscii(cb)) return false;
  }
  if (i == common) return a.size() == b.size();

  // From the first non-ASCII byte on, compare upper-cased units. Equal unit sequences are exactly
  // equal upper-cased texts, because decoding the upper-cased text gives back the same units.
  std::size_t j = i;
  while (i < a.size() && j < b.size()) {
    const Utf8Unit ua = UpperUnitAt(a, i);
    const Utf8Unit ub = UpperUnitAt(b, j);
    if (ua.code_point != ub.code_point) return false;
    i += ua.length;
    j += ub.length;
  }
  return i == a.size() && j == b.size();
}

}  // namespace varnex
