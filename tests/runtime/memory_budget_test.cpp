#include "runtime/memory_budget.hpp"

#include <gtest/gtest.h>

#include "runtime/trap.hpp"
#include "support/errors.hpp"

namespace varnex {
namespace {

// Restores the default budget when a test ends.
struct BudgetGuard {
  ~BudgetGuard() { SetOperationMemoryBudget(0); }
};

TEST(MemoryBudget, AnOperationFailsWithOutOfMemoryOncePastItsBudget) {
  BudgetGuard guard;
  SetOperationMemoryBudget(1000);
  EXPECT_EQ(OperationMemoryBudget(), 1000u);
  Trap{"Outer"}.Run([] { budget::Charge(1000); });  // exactly the budget fits
  EXPECT_AUTOMATION_ERROR(Trap{"Outer"}.Run([] {
    budget::Charge(600);
    Trap{"Inner"}.Run([] { budget::Charge(401); });  // nested operations share the outer budget
  }),
                          errOutOfMemory, "Outer: Inner: Out of memory");
  // Each operation starts afresh; outside every operation nothing is counted.
  Trap{"Next"}.Run([] { budget::Charge(900); });
  budget::Charge(std::uint64_t{1} << 40);
  SetOperationMemoryBudget(0);
  EXPECT_EQ(OperationMemoryBudget(), kDefaultOperationMemoryBudget);
}

}  // namespace
}  // namespace varnex
