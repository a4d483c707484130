#include "runtime/memory_budget.hpp"

#include <atomic>

#include "varnex/automation_error.hpp"

namespace varnex {
namespace {

std::atomic<std::uint64_t> operation_budget{kDefaultOperationMemoryBudget};

}  // namespace

void SetOperationMemoryBudget(std::uint64_t bytes) {
  operation_budget.store(bytes == 0 ? kDefaultOperationMemoryBudget : bytes, std::memory_order_relaxed);
}

std::uint64_t OperationMemoryBudget() { return operation_budget.load(std::memory_order_relaxed); }

namespace budget {

void Exceeded() { throw AutomationError::Runtime(errOutOfMemory); }

}  // namespace budget
}  // namespace varnex
