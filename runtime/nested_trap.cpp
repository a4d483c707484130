#include "runtime/nested_trap.hpp"

#include <string>

namespace varnex {

AutomationError RethrownAtDepth(const Trap& trap, const AutomationError& error, std::size_t depth) {
  if (depth == 0) return error;
  // The translation of error 424 replaces the whole description at every level: one level's
  // text is all that remains.
  if (!trap.invalid_handle.empty() && error.number() == errObjectRequired) return trap.Rethrown(error);
  std::string description;
  description.reserve(depth * (trap.name.size() + 2) + error.description().size());
  for (std::size_t level = 0; level < depth; ++level) {
    description += trap.name;
    description += ": ";
  }
  description += error.description();
  return AutomationError(error.number(), trap.source.empty() ? error.source() : std::string(trap.source),
                         std::move(description));
}

}  // namespace varnex
