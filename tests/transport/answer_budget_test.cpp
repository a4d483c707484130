// The reduced forms count every wrapper they take against the operation's memory budget as
// "<COMPONENT></COMPONENT>" (23 bytes), whatever text it really takes: wrappers written shorter
// than that (empty ones in an attachment) make an answer fail that its text alone would fit.
#include <gtest/gtest.h>

#include <string>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

// Restores the default budget when a test ends.
struct BudgetGuard {
  ~BudgetGuard() { SetOperationMemoryBudget(0); }
};

TEST(AnswerBudget, ReducedFormsCountEveryWrapperTakenAtItsFullTags) {
  BudgetGuard guard;
  constexpr int kEmpty = 200;
  Transport t;
  const Long order = t.AddComponent(0, "ORDER");
  std::string note = "<NOTE persist=\"true\">";
  for (int i = 0; i < kEmpty; ++i) note += i % 2 ? "<COMPONENT/>" : "<collection/>";
  note += "</NOTE>";
  t.AddCompAttachment(order, note, vbTrue);
  constexpr std::uint64_t kTaken = kEmpty + 1;  // the order's own wrapper as well
  for (const enTransportMode mode : {tmShort, tmMedium}) {
    SCOPED_TRACE(mode);
    const std::string answer = t.GenerateTransportDoc(mode);
    ASSERT_NE(answer.find("<collection/>"), std::string::npos);
    ASSERT_LT(answer.size(), kTaken * 23 - 1);  // the text alone fits either budget below
    SetOperationMemoryBudget(kTaken * 23);
    EXPECT_EQ(t.GenerateTransportDoc(mode), answer);
    SetOperationMemoryBudget(kTaken * 23 - 1);
    EXPECT_EQ(ErrorOf([&] { t.GenerateTransportDoc(mode); }).number(), errOutOfMemory);
    SetOperationMemoryBudget(0);
  }
}

}  // namespace
}  // namespace varnex
