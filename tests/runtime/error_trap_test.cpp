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

TEST(ErrorTrap, SwallowIgnoreAndClassErrors) {
  EXPECT_EQ(Swallow(0, []() -> int { throw AutomationError::Runtime(errSubscriptOutOfRange); }), 0);
  EXPECT_EQ(Swallow(0, [] { return 5; }), 5);
  bool reached = false;
  IgnoreErrors([&] {
    reached = true;
    throw AutomationError::Runtime(errTypeMismatch);
  });
  EXPECT_TRUE(reached);
  const auto class_error = AutomationError::Class("Transport", "Invalid XML supplied.");
  EXPECT_EQ(class_error.number(), -2147220991);
  EXPECT_STREQ(class_error.what(), "Invalid XML supplied.");
}

}  // namespace
}  // namespace varnex
