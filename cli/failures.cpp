#include "cli/failures.hpp"

#include <cstdint>
#include <iostream>

#include <fmt/format.h>

namespace varnex::cli {

std::string DescribeAutomationError(const AutomationError& error) {
  const Long number = error.number();
  const std::string shown =
      number < 0 ? fmt::format("0x{:08X}", static_cast<std::uint32_t>(number)) : std::to_string(number);
  return fmt::format("error {} ({}): {}", shown, error.source(), error.description());
}

void Warn(const std::string& text) { std::cerr << "varnex: warning: " << text << std::endl; }

}  // namespace varnex::cli
