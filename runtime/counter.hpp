// Counters that are Longs: advancing one past 2,147,483,647 is error 6 "Overflow", as the
// platform's Long arithmetic raised it, and leaves the counter where it was.
#pragma once

#include <limits>

#include "varnex/automation_error.hpp"

namespace varnex {

inline Long Advance(Long& counter) {
  if (counter == std::numeric_limits<Long>::max()) throw AutomationError::Runtime(errOverflow);
  return ++counter;
}

}  // namespace varnex
