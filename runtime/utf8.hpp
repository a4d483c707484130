// UTF-8 decoding and encoding, one code point at a time: the one decoder of the library.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace varnex {

// Code points stop below this; a malformed byte decodes as this plus the byte.
inline constexpr char32_t kMalformedUtf8 = 0x110000;

// One step through UTF-8 text: a well-formed sequence, or a single byte that is not one.
struct Utf8Unit {
  char32_t code_point;  // for a malformed byte: kMalformedUtf8 + the byte, distinct from any code point
  std::size_t length;
  bool well_formed() const { return code_point < kMalformedUtf8; }
};

// Whether the three-byte forms of U+D800 to U+DFFF decode. Text proper never holds them; text
// carried over from UTF-16 does, to keep a lone surrogate exactly as it came.
enum class Surrogates { Refused, Kept };

// Decodes the unit at text[i]. Well-formed means shortest form, nothing above U+10FFFF and, unless
// kept, no surrogates; anything else (an over-long form, a lone surrogate, a cut-off sequence) is
// malformed.
Utf8Unit DecodeUtf8(std::string_view text, std::size_t i, Surrogates surrogates = Surrogates::Refused);

// Appends the code point's UTF-8 form.
void AppendUtf8(std::string& out, char32_t cp);

}  // namespace varnex
