// The per-operation memory budget: the outermost trap of an operation opens it, and the places
// where answers grow (text being written, components being added) charge what they build.
#pragma once

#include <algorithm>
#include <cstdint>

#include "varnex/memory_budget.hpp"

namespace varnex::budget {

struct State {
  int depth = 0;            // traps open on this thread
  std::uint64_t spent = 0;  // bytes charged since the outermost one opened
};
inline thread_local State state;

// Raises error 7: the operation has spent its budget.
[[noreturn]] void Exceeded();

// Charges bytes to the running operation; error 7 once its total passes the budget. Outside
// every operation nothing is counted.
inline void Charge(std::uint64_t bytes) {
  if (state.depth == 0) return;
  state.spent += bytes;
  if (state.spent > OperationMemoryBudget()) Exceeded();
}

// What the running operation may still build; outside every operation nothing is counted, and
// there is no limit.
inline std::uint64_t Left() {
  if (state.depth == 0) return UINT64_MAX;
  return OperationMemoryBudget() - std::min(state.spent, OperationMemoryBudget());
}

// Error 7 unless the running operation can still build `count` items of `cost` bytes each;
// charges nothing (the items are charged as they are built).
inline void Require(std::uint64_t count, std::uint64_t cost) {
  if (state.depth == 0) return;
  if (cost != 0 && count > Left() / cost) Exceeded();
}

// Opens the budget for the outermost operation; nested operations share it.
class Scope {
 public:
  Scope() {
    if (state.depth++ == 0) state.spent = 0;
  }
  ~Scope() { --state.depth; }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
};

// What one added component or collection costs: its wrapper and name elements with their names
// and status, and its entries in the handle and child indexes.
inline constexpr std::uint64_t kComponentCost = 256;

}  // namespace varnex::budget
