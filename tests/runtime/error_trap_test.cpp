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

TEST(ErrorTrap, TranslatesObjectRequiredOnlyWhereAsked) {
  const auto unknown = [] { throw AutomationError::Runtime(errObjectRequired); };
  const auto translated = ErrorOf([&] { Trap{"AddComponent", kInvalidHandle}.Run(unknown); });
  EXPECT_EQ(translated.number(), errObjectRequired);
  EXPECT_EQ(translated.description(), "AddComponent: Invalid Handle");

  const auto nested = ErrorOf([&] {
    Trap{"GetCompChild", kInvalidHandle}.Run([&] { Trap{"CheckAndRebuildChildIndexes"}.Run(unknown); });
  });
  EXPECT_EQ(nested.description(), "GetCompChild: Invalid Handle") << "the translation replaces inner prefixes";

  const auto plain = ErrorOf([&] { Trap{"ChiildOfCollection"}.Run(unknown); });
  EXPECT_EQ(plain.description(), "ChiildOfCollection: Object required");

  const auto other = ErrorOf([] {
    Trap{"AddComponent", kInvalidHandle}.Run([] { throw AutomationError::Runtime(errObjectNotSet); });
  });
  EXPECT_EQ(other.description(), "AddComponent: Object variable or With block variable not set");
}

TEST(ErrorTrap, CanReplaceTheSource) {
  const auto error = ErrorOf([] {
    Trap{"AddCompPrototypeProperty", "Invalid Handle.", "Transport"}.Run(
        [] { throw AutomationError::Runtime(errObjectRequired); });
  });
  EXPECT_EQ(error.source(), "Transport");
  EXPECT_EQ(error.description(), "AddCompPrototypeProperty: Invalid Handle.");
}

TEST(ErrorTrap, SwallowAndIgnoreAnswerWithoutRaising) {
  EXPECT_EQ(Swallow(0, []() -> int { throw AutomationError::Runtime(errSubscriptOutOfRange); }), 0);
  EXPECT_EQ(Swallow(0, [] { return 5; }), 5);
  bool reached = false;
  IgnoreErrors([&] {
    reached = true;
    throw AutomationError::Runtime(errTypeMismatch);
  });
  EXPECT_TRUE(reached);
}

TEST(RuntimeErrors, ClassErrorsCarryTheirNumberAndText) {
  const auto class_error = AutomationError::Class("Transport", "Invalid XML supplied.");
  EXPECT_EQ(class_error.number(), -2147220991);
  EXPECT_STREQ(class_error.what(), "Invalid XML supplied.");
}

}  // namespace
}  // namespace varnex
