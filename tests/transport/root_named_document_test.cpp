// A document whose components are named like the root, nested 100,000 levels deep. Every such
// component counts as top-level wherever it stands, so loading, merging and the reduced forms ask
// for answers that grow with the square of the depth: each operation fails within its memory
// budget with error 7 under its names, and the document stays usable.
#include <gtest/gtest.h>

#include <string>

#include "runtime/xml.hpp"
#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

constexpr int kLevels = 100000;

std::string RootNamedText(int levels) {
  std::string text = "<TALVEN>";
  for (int i = 0; i < levels; ++i) text += "<COMPONENT><TALVEN STATUS=\"NEW\">";
  for (int i = 0; i < levels; ++i) text += "</TALVEN></COMPONENT>";
  return text + "</TALVEN>";
}

// The same tree built by hand: the answers of the later operations grow as the load's would.
void BuildRootNamedChain(Transport& t, int levels) {
  for (Long level = 1; level <= levels; ++level) t.AddComponent(level - 1, "TALVEN", csNew);
}

bool Loads(Transport& t) {
  pugi::xml_document parsed;
  return xml::LoadText(parsed, t.TransportDoc());
}

TEST(RootNamedDocument, AnswersThatFitAreUnchanged) {
  // 200 levels: every level's wrapper is taken once more for each level above it.
  Transport t;
  t.TransportDoc(RootNamedText(200));
  EXPECT_EQ(t.CountCompChildren(0), 200 * 201 / 2);
  const std::string shortened = t.GenerateTransportDoc(tmShort);
  EXPECT_GT(shortened.size(), t.TransportDoc().size());
}

TEST(RootNamedDocument, MergingItsOwnTextAddsATriangleOfComponents) {
  // d levels: the merge takes each level's component once for itself and once more for every
  // root-named level above it, d*(d+1)/2 in all, each a new top-level component.
  for (const int levels : {1, 2, 5, 8}) {
    SCOPED_TRACE(levels);
    Transport t;
    BuildRootNamedChain(t, levels);
    const Long before = t.CountCompChildren(0);
    ASSERT_EQ(before, levels);
    t.MergeDocument(t.TransportDoc(), 0);
    EXPECT_EQ(t.CountCompChildren(0) - before, levels * (levels + 1) / 2);
    EXPECT_TRUE(Loads(t));
  }
}

TEST(RootNamedDocument, LoadingAndMergingFailWithOutOfMemory) {
  const std::string text = RootNamedText(kLevels);
  Transport t;
  EXPECT_AUTOMATION_ERROR(t.TransportDoc(text), errOutOfMemory, "GetTransportDoc: MergeTransportIn: Out of memory");
  EXPECT_TRUE(Loads(t));
  Transport other;
  EXPECT_AUTOMATION_ERROR(other.MergeDocument(text, 0), errOutOfMemory,
                          "MergeDocument: MergeTransportIn: Out of memory");
  EXPECT_TRUE(Loads(other));
}

TEST(RootNamedDocument, EveryLaterOperationAnswersOrFailsWithOutOfMemory) {
  Transport t;
  BuildRootNamedChain(t, kLevels);
 
  const std::string full = t.TransportDoc();  // the tree as it stands: linear in the depth
  EXPECT_EQ(ErrorOf([&] { t.GenerateTransportDoc(tmShort); }).number(), errOutOfMemory);
  EXPECT_EQ(ErrorOf([&] { t.GenerateTransportDoc(tmMedium); }).number(), errOutOfMemory);
  EXPECT_EQ(ErrorOf([&] { t.MergeDocument(full, 1); }).number(), errOutOfMemory);
  EXPECT_EQ(ErrorOf([&] { t.UpdateDocument(full); }).number(), errOutOfMemory);
  // Reset walks the tree once; deletion marks it once.
  EXPECT_GE(t.ResetStatus(), 0);
  EXPECT_EQ(t.DeleteComponent(1), vbTrue);
  EXPECT_TRUE(Loads(t));
}

}  // namespace
}  // namespace varnex
