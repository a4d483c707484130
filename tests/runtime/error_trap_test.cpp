// The error trap that every operation runs under.
#include <gtest/gtest.h>

#include "runtime/trap.hpp"
#include "support/errors.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

TEST(ErrorTrap, PrefixesKeepNumberAndSourceAndNest) {
  const auto error = ErrorOf([] {
    Trap{"Outer"}.Run([] { Trap{"Inner"}.Run([]() -> int { throw AutomationError(77, "Src", "went wrong"); }); });
  });
  EXPECT_EQ(error.number(), 77);
  EXPECT_EQ(error.source(), "Src");
  EXPECT_EQ(error.description(), "Outer: Inner: went wrong");
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
  EXPECT_EQ(error.source(), "Transport");
  EXPECT_EQ(error.description(), "AddCompPrototypeProperty: Invalid Handle.");
}

}  // namespace
}  // namespace varnex
