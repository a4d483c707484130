// Traps for walks that run over a tree with an explicit stack of levels instead of by recursion.
//
// A recursive operation raises a failure through the trap of every level it is nested in, so the
// description collects the operation's prefix once per level ("RecurseCopyProperties: " three
// times for a failure three levels deep). A walk that keeps its levels on a stack of its own keeps
// the current depth and raises the failure as all those traps together would have.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

#include "runtime/trap.hpp"

namespace varnex {

// The error as `depth` nested levels of the same trap raise it again.
AutomationError RethrownAtDepth(const Trap& trap, const AutomationError& error, std::size_t depth);

// Runs a walk; a failure is raised as the levels down to `depth` (read when the failure arrives)
// would have raised it.
template <typename Body>
decltype(auto) RunNested(const Trap& trap, const std::size_t& depth, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const AutomationError& error) {
    throw RethrownAtDepth(trap, error, depth);
  } catch (const std::bad_alloc&) {
    throw RethrownAtDepth(trap, AutomationError::Runtime(errOutOfMemory), depth);
  }
}

}  // namespace varnex
