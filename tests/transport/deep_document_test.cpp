// Documents nested 100,000 levels deep through every operation that walks them, failures included:
// each walk keeps its levels on a stack of its own, and a failure carries one prefix per level.
// Components named like the root count as top-level wherever they stand, so some answers grow
// with the square of the depth: those fail within the operation's memory budget with error 7.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;
using testing::Loads;
using testing::Occurrences;

constexpr int kDepth = 100000;

std::string Repeat(const std::string& text, int times) {
  std::string out;
  for (int i = 0; i < times; ++i) out += text;
  return out;
}

// "<TALVEN>", then `open` and `close` around `inner` at every level.
std::string Nested(const std::string& open, const std::string& close, int levels = kDepth, const std::string& inner = "") {
  return "<TALVEN>" + Repeat(open, levels) + inner + Repeat(close, levels) + "</TALVEN>";
}
std::string RootNamedText(int levels) {
  return Nested("<COMPONENT><TALVEN STATUS=\"NEW\">", "</TALVEN></COMPONENT>", levels);
}

// Components, each inside the one before (handles 1 to levels), with a property V = level or none.
void BuildChain(Transport& t, enComponentStatus status, const char* name = "N", int levels = kDepth, bool properties = true) {
  for (Long level = 1; level <= levels; ++level) {
    t.AddComponent(level - 1, name, status);
    if (properties) t.AddCompProperty(level, "V", std::to_string(level));
  }
}

TEST(DeepDocument, GenerateUpdateResetDelete) {
  Transport transport;
  BuildChain(transport, csNormal);
  EXPECT_EQ(Occurrences(transport.GenerateTransportDoc(tmFull), "<COMPONENT>"), std::size_t{kDepth});
  std::string returned = transport.GenerateTransportDoc(tmMedium);
  EXPECT_EQ(Occurrences(returned, "<COMPONENT>"), std::size_t{kDepth});
  const std::string shortened = transport.GenerateTransportDoc(tmShort);  // one pass takes the deepest only
  EXPECT_EQ(Occurrences(shortened, "<COMPONENT>"), std::size_t{kDepth - 1});
  EXPECT_NE(shortened.find(">99999</V></PROPERTIES></N></COMPONENT>"), std::string::npos);

  returned.replace(returned.find(">100000<"), 8, ">last<");
  EXPECT_EQ(transport.UpdateDocument(returned), 1);
  EXPECT_EQ(xml::Text(testing::Internals(transport).NodeOf(kDepth)), "last");

  EXPECT_EQ(transport.DeleteComponent(1), vbTrue);
  EXPECT_EQ(transport.GetComponentStatus(kDepth), csDeleted);
  EXPECT_EQ(Occurrences(transport.GenerateTransportDoc(tmShort), "STATUS=\"DELETED\""), std::size_t{kDepth});
  transport.ResetStatus();
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort), "<TALVEN></TALVEN>");
  EXPECT_EQ(transport.GetComponentStatus(kDepth), csDeleted);

  Transport modified;
  BuildChain(modified, csModified);
  modified.ResetStatus();
  EXPECT_EQ(modified.GetComponentStatus(kDepth), csNormal);
}

TEST(DeepDocument, LoadMergeAndReadBack) {
  const std::string text = Nested("<COMPONENT><N STATUS=\"NEW\"><PROPERTIES><V>x</V></PROPERTIES>", "</N></COMPONENT>");
  Transport t;
  t.TransportDoc(text);
  EXPECT_EQ(t.MergeDocument(text, kDepth), 1);
  EXPECT_EQ(testing::PropertiesOf(t, 2 * kDepth), "1 V=x//csNormal;");
  EXPECT_NE(t.GetComponentXML(1).size(), 0u);
  EXPECT_EQ(t.UpdateDocument(text), 1);
  EXPECT_EQ(t.DeleteComponent(1, vbTrue), vbTrue);
  EXPECT_TRUE(Loads(t.TransportDoc()));
  EXPECT_TRUE(Loads(t.GenerateTransportDoc(tmShort)));
}

TEST(DeepDocument, FailuresCarryOnePrefixPerLevel) {
  Transport merging;
  EXPECT_AUTOMATION_ERROR(merging.MergeDocument(Nested("<COMPONENT><C>", "</C></COMPONENT>", kDepth, "<COMPONENT/>"), 0),
                          errObjectNotSet,
                          "MergeDocument: MergeTransportIn: " + Repeat("RecurseComponents: ", kDepth + 1) +
                              "Object variable or With block variable not set");

  Transport transport;
  BuildChain(transport, csNormal);
  EXPECT_EQ(ErrorOf([&] { transport.AddComponent(kDepth, ""); }).number(), errXml);  // leaves a wrapper
  // The root, kDepth components, then the missing one.
  const AutomationError trim = ErrorOf([&] { transport.GenerateTransportDoc(tmShort); });
  EXPECT_EQ(trim.description().rfind("GenerateTransportDoc: GetModifiedXML: TrimDocument: ", 0), 0u);
  EXPECT_EQ(Occurrences(trim.description(), "TrimDocument: "), std::size_t{kDepth + 2});

  // One level deeper than the own chain.
  std::string returned = transport.GenerateTransportDoc(tmMedium);
  returned.replace(returned.find("<COMPONENT/>"), 12, "<COMPONENT><N><COMPONENT><N/></COMPONENT></N></COMPONENT>");
  const AutomationError update = ErrorOf([&] { transport.UpdateDocument(returned); });
  EXPECT_EQ(update.number(), errObjectNotSet);
  EXPECT_EQ(Occurrences(update.description(), "RecurseCopyProperties: "), std::size_t{kDepth + 1});

  // The deletion walk reaches the root through the empty wrapper and comes back to handle 1.
  const AutomationError deletion = ErrorOf([&] { transport.DeleteComponent(1); });
  EXPECT_EQ(deletion.number(), errOutOfStackSpace);
  EXPECT_EQ(Occurrences(deletion.description(), "RecurseDeleteComponent: "), std::size_t{kDepth + 2});
}

TEST(RootNamedDocument, MergingOrLoadingItsTextAddsATriangleOfComponents) {
  // d levels: the merge takes each level's component once for itself and once more for every
  // root-named level above it, d*(d+1)/2 in all, each a new top-level component.
  for (const int levels : {1, 2, 5, 8, 200}) {
    SCOPED_TRACE(levels);
    Transport t, loaded;
    BuildChain(t, csNew, "TALVEN", levels, false);
    ASSERT_EQ(t.CountCompChildren(0), levels);
    t.MergeDocument(t.TransportDoc(), 0);
    EXPECT_EQ(t.CountCompChildren(0) - levels, levels * (levels + 1) / 2);
    EXPECT_TRUE(Loads(t.TransportDoc()));
    loaded.TransportDoc(RootNamedText(levels));
    EXPECT_EQ(loaded.CountCompChildren(0), levels * (levels + 1) / 2);
  }
  // Answers that fit are unchanged: the short form, taking the same wrappers, outgrows the document.
  Transport t;
  t.TransportDoc(RootNamedText(200));
  EXPECT_GT(t.GenerateTransportDoc(tmShort).size(), t.TransportDoc().size());
}

TEST(RootNamedDocument, LoadingAndMergingFailWithOutOfMemory) {
  const std::string text = RootNamedText(kDepth);
  Transport t, other;
  EXPECT_AUTOMATION_ERROR(t.TransportDoc(text), errOutOfMemory, "GetTransportDoc: MergeTransportIn: Out of memory");
  EXPECT_AUTOMATION_ERROR(other.MergeDocument(text, 0), errOutOfMemory, "MergeDocument: MergeTransportIn: Out of memory");
  EXPECT_TRUE(Loads(t.TransportDoc()) && Loads(other.TransportDoc()));
}

TEST(RootNamedDocument, EveryLaterOperationAnswersOrFailsWithOutOfMemory) {
  Transport t;
  BuildChain(t, csNew, "TALVEN", kDepth, false);
  const std::string full = t.TransportDoc();  // the tree as it stands: linear in the depth
  EXPECT_EQ(ErrorOf([&] { t.GenerateTransportDoc(tmShort); }).number(), errOutOfMemory);
  EXPECT_EQ(ErrorOf([&] { t.GenerateTransportDoc(tmMedium); }).number(), errOutOfMemory);
  EXPECT_EQ(ErrorOf([&] { t.MergeDocument(full, 1); }).number(), errOutOfMemory);
  EXPECT_EQ(ErrorOf([&] { t.UpdateDocument(full); }).number(), errOutOfMemory);
  // Reset walks the tree once; deletion marks it once.
  EXPECT_GE(t.ResetStatus(), 0);
  EXPECT_EQ(t.DeleteComponent(1), vbTrue);
  EXPECT_TRUE(Loads(t.TransportDoc()));
}

}  // namespace
}  // namespace varnex
