// The names of the public enumerations' members.
#include <array>
#include <string_view>

#include "runtime/text.hpp"
#include "varnex/types.hpp"

namespace varnex {
namespace {

// The name at the value's position, or the value in decimal when it names no member.
template <std::size_t N>
std::string NameOf(Long value, const std::array<std::string_view, N>& names) {
  if (value >= 0 && static_cast<std::size_t>(value) < N) return std::string(names[static_cast<std::size_t>(value)]);
  return FormatLong(value);
}

}  // namespace

std::string to_string(enComponentStatus value) {
  return NameOf(value, std::array<std::string_view, 4>{"csNormal", "csModified", "csNew", "csDeleted"});
}

std::string to_string(enComponentType value) {
  return NameOf(value, std::array<std::string_view, 2>{"ctComponent", "ctcollection"});
}

std::string to_string(enTransportMode value) {
  return NameOf(value, std::array<std::string_view, 3>{"tmFull", "tmShort", "tmMedium"});
}

std::string to_string(enOutputComponentMode value) {
  return NameOf(value, std::array<std::string_view, 2>{"ocmFull", "ocmChanges"});
}

}  // namespace varnex
