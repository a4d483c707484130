// The error trap that every operation runs under, and the memory budget it keeps per operation.
#include <gtest/gtest.h>

#include <tuple>

#include "runtime/memory_budget.hpp"
#include "runtime/trap.hpp"
#include "support/errors.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

TEST(ErrorTrap, PrefixesKeepNumberAndSourceAndNest) {
  const auto error = ErrorOf([] {
    Trap{"Outer"}.Run([] { Trap{"Inner"}.Run([]() -> int { throw AutomationError(77, "Src", "went wrong"); }); });
  });
  EXPECT_EQ(std::tuple(error.number(), error.source(), error.description()),
            std::tuple(Long{77}, std::string("Src"), std::string("Outer: Inner: went wrong")));
}

TEST(ErrorTrap, TranslatesObjectRequiredOnlyWhereAskedAndCanReplaceTheSource) {
  const auto raise = [](Long number) { return [number] { throw AutomationError::Runtime(number); }; };
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { Trap{"AddComponent", kInvalidHandle}.Run(raise(errObjectRequired)); }, "AddComponent: Invalid Handle"},
      // The translation replaces inner prefixes.
      {[&] { Trap{"GetCompChild", kInvalidHandle}.Run([&] { Trap{"Inner"}.Run(raise(errObjectRequired)); }); },
       "GetCompChild: Invalid Handle"},
      {[&] { Trap{"ChiildOfCollection"}.Run(raise(errObjectRequired)); }, "ChiildOfCollection: Object required"},
      {[&] { Trap{"AddComponent", kInvalidHandle}.Run(raise(errObjectNotSet)); },
       "AddComponent: Object variable or With block variable not set"}};
  for (const auto& [run, description] : cases) EXPECT_EQ(ErrorOf(run).description(), description);
  const auto error = ErrorOf([&] { Trap{"AddCompPrototypeProperty", "Invalid Handle.", "Transport"}.Run(raise(424)); });
  EXPECT_EQ(error.source() + "|" + error.description(), "Transport|AddCompPrototypeProperty: Invalid Handle.");
}

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
