// Trimming, the NUL check of text arguments and number formatting.
#include "runtime/text.hpp"

#include "varnex/automation_error.hpp"

namespace varnex {

std::string_view TrimBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(' ');
  return text.substr(first, last - first + 1);
}

void RefuseNul(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) throw AutomationError::Runtime(errInvalidProcedureCall);
}

std::string FormatLong(Long value) { return std::to_string(value); }

}  // namespace varnex
