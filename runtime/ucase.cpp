// Upper-casing and case-insensitive comparison.
#include "runtime/text.hpp"

namespace varnex {

std::string UCase(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return out;
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
  return UCase(a) == UCase(b);
}

}  // namespace varnex
