#include "runtime/utf8.hpp"

namespace varnex {
namespace {

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

}  // namespace

// The bounds of the second byte carry the rules against over-long forms, surrogates and code
// points above U+10FFFF.
Utf8Unit DecodeUtf8(std::string_view text, std::size_t i, Surrogates surrogates) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[i + k]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80) return {lead, 1};
  const Utf8Unit malformed{kMalformedUtf8 + lead, 1};
  std::size_t length;
  unsigned char low = 0x80, high = 0xBF;
  char32_t cp;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    cp = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    cp = lead & 0x0F;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED && surrogates == Surrogates::Refused) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    cp = lead & 0x07;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return malformed;
  }
  if (text.size() - i < length) return malformed;
  if (byte(1) < low || byte(1) > high) return malformed;
  for (std::size_t k = 1; k < length; ++k) {
    if (!IsContinuation(byte(k))) return malformed;
    cp = (cp << 6) | (byte(k) & 0x3F);
  }
  return {cp, length};
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

}  // namespace varnex
