// A document nested 100,000 levels deep goes through every exchange operation, failures and
// their per-level descriptions included.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Failure;
using testing::Occurrences;

constexpr Long kDepth = 100000;

// A chain of components N, each inside the one before, handles 1 to kDepth; every one has a
// property V holding its level.
void BuildChain(Transport& transport, enComponentStatus status = csNormal) {
  Long parent = 0;
  for (Long level = 1; level <= kDepth; ++level) {
    parent = transport.AddComponent(parent, "N", status);
    testing::AddProperty(transport, parent, "V", std::to_string(level));
  }
}

std::string PropertyOf(Transport& transport, Long handle) {
  return xml::Text(transport.impl().NodeOf(handle).child("PROPERTIES").first_child());
}

TEST(DeepDocument, GeneratesEveryMode) {
  Transport transport;
  BuildChain(transport);
  EXPECT_EQ(Occurrences(transport.GenerateTransportDoc(tmFull), "<COMPONENT>"), std::size_t{kDepth});
  EXPECT_EQ(Occurrences(transport.GenerateTransportDoc(tmMedium), "<COMPONENT>"), std::size_t{kDepth});
  // One pass takes the deepest component only.
  const std::string shortened = transport.GenerateTransportDoc(tmShort);
  EXPECT_EQ(Occurrences(shortened, "<COMPONENT>"), std::size_t{kDepth - 1});
  EXPECT_EQ(shortened.find(">100000<"), std::string::npos);
  EXPECT_NE(shortened.find(">99999<"), std::string::npos);
}

TEST(DeepDocument, UpdatesDeletesAndResets) {
  Transport transport;
  BuildChain(transport, csModified);
  std::string returned = transport.GenerateTransportDoc(tmMedium);
  for (const std::string level : {"1", "50000", "100000"}) {
    const std::string old_value = ">" + level + "</V>";
    returned.replace(returned.find(old_value), old_value.size(), ">changed " + level + "</V>");
  }
  EXPECT_EQ(transport.UpdateDocument(returned), 1);
  EXPECT_EQ(PropertyOf(transport, 1), "changed 1");
  EXPECT_EQ(PropertyOf(transport, 50000), "changed 50000");
  EXPECT_EQ(PropertyOf(transport, kDepth), "changed 100000");
  EXPECT_EQ(PropertyOf(transport, kDepth - 1), "99999");

  transport.ResetStatus();
  EXPECT_EQ(transport.GetComponentStatus(kDepth), csNormal);
  EXPECT_EQ(Occurrences(transport.GenerateTransportDoc(tmShort), "<COMPONENT>"), std::size_t{kDepth - 1});

  EXPECT_EQ(transport.DeleteComponent(1), vbTrue);
  EXPECT_EQ(transport.GetComponentStatus(kDepth), csDeleted);
  EXPECT_EQ(Occurrences(transport.GenerateTransportDoc(tmShort), "STATUS=\"DELETED\""), std::size_t{kDepth});

  transport.ResetStatus();
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort), "<TALVEN></TALVEN>");
  EXPECT_EQ(transport.GetComponentStatus(kDepth), csDeleted);
}

TEST(DeepDocument, FailuresCarryOnePrefixPerLevel) {
  Transport transport;
  BuildChain(transport);
  // An empty wrapper under the deepest component.
  EXPECT_EQ(Failure([&] { transport.AddComponent(kDepth, ""); }).number(), errXml);

  // Root, kDepth components, then the missing one.
  const AutomationError trim = Failure([&] { transport.GenerateTransportDoc(tmShort); });
  EXPECT_EQ(trim.number(), errObjectNotSet);
  EXPECT_EQ(trim.description().rfind("GenerateTransportDoc: GetModifiedXML: TrimDocument: ", 0), 0u);
  EXPECT_EQ(Occurrences(trim.description(), "TrimDocument: "), std::size_t{kDepth + 2});

  // The returned chain is one level deeper than the own one.
  std::string returned = transport.GenerateTransportDoc(tmMedium);
  const std::string empty = "<COMPONENT/>";
  returned.replace(returned.find(empty), empty.size(), "<COMPONENT><N/></COMPONENT>");
  returned.replace(returned.find("<N/>"), 4, "<N><COMPONENT><N/></COMPONENT></N>");
  const AutomationError update = Failure([&] { transport.UpdateDocument(returned); });
  EXPECT_EQ(update.number(), errObjectNotSet);
  EXPECT_EQ(Occurrences(update.description(), "RecurseCopyProperties: "), std::size_t{kDepth + 1});

  // The deletion walk reaches the root through the empty wrapper and comes back to handle 1.
  const AutomationError deletion = Failure([&] { transport.DeleteComponent(1); });
  EXPECT_EQ(deletion.number(), errOutOfStackSpace);
  EXPECT_EQ(deletion.description().rfind("DeleteComponent: RecurseDeleteComponent: ", 0), 0u);
  EXPECT_EQ(Occurrences(deletion.description(), "RecurseDeleteComponent: "), std::size_t{kDepth + 2});
}

}  // namespace
}  // namespace varnex
