#include "strings.hpp"

#include <new>

#include "runtime/utf8.hpp"

namespace varnex::server {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

void AppendUtf16(std::u16string& out, char32_t c) {
  if (c < 0x10000) {
    out += static_cast<char16_t>(c);
  } else {
    c -= 0x10000;
    out += static_cast<char16_t>(0xD800 | (c >> 10));
    out += static_cast<char16_t>(0xDC00 | (c & 0x3FF));
  }
}

}  // namespace

std::string Utf8FromUtf16(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[i + 1] - 0xDC00);
      ++i;
    }
    AppendUtf8(out, c);
  }
  return out;
}

std::u16string Utf16FromUtf8(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  // A malformed byte becomes U+FFFD; a lone surrogate that came from UTF-16 goes back as it was.
  for (std::size_t i = 0; i < text.size();) {
    const Utf8Unit unit = DecodeUtf8(text, i, Surrogates::Kept);
    AppendUtf16(out, unit.well_formed() ? unit.code_point : kReplacement);
    i += unit.length;
  }
  return out;
}

std::string ToUtf8(BSTR text) {
  if (text == nullptr) return {};
  return Utf8FromUtf16({reinterpret_cast<const char16_t*>(text), SysStringLen(text)});
}

BSTR ToBstr(std::string_view text) {
  const std::u16string wide = Utf16FromUtf8(text);
  BSTR result = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(wide.data()), static_cast<UINT>(wide.size()));
  if (result == nullptr) throw std::bad_alloc();
  return result;
}

void StoreBstr(BSTR* target, std::string_view text) {
  BSTR fresh = ToBstr(text);
  SysFreeString(*target);
  *target = fresh;
}

}  // namespace varnex::server
