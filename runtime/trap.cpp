#include "runtime/trap.hpp"

#include <string>

namespace varnex {

AutomationError Trap::Rethrown(const AutomationError& error) const {
  std::string description(name);
  description += ": ";
  if (!invalid_handle.empty() && error.number() == errObjectRequired) {
    description += invalid_handle;
  } else {
    description += error.description();
  }
  return AutomationError(error.number(), source.empty() ? error.source() : std::string(source),
                         std::move(description));
}

}  // namespace varnex
