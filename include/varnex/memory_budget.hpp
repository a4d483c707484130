// The memory that one operation may build.
//
// Some documents ask for answers far larger than themselves (a component named like the root
// counts as top-level wherever it stands, so each level repeats everything below it). Rather than
// take whatever the system grants, every operation may build at most this many bytes of text and
// components beyond the document it starts from; past that it fails with error 7 "Out of memory"
// under its name, as a 32-bit process did once its address space was spent. Answers that fit are
// unaffected.
#pragma once

#include <cstdint>

namespace varnex {

// The default budget: 2 GB.
inline constexpr std::uint64_t kDefaultOperationMemoryBudget = std::uint64_t{2} << 30;

// Sets the budget of every later operation, in bytes (for all threads); 0 restores the default.
void SetOperationMemoryBudget(std::uint64_t bytes);
// The budget in force.
std::uint64_t OperationMemoryBudget();

}  // namespace varnex
