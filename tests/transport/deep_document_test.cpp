// A document nested 100,000 levels deep through every exchange operation, failures included.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;
using testing::Occurrences;

constexpr Long kDepth = 100000;

// Components N, each inside the one before (handles 1 to kDepth), each with a property V = level.
void BuildChain(Transport& transport, enComponentStatus status) {
  for (Long level = 1; level <= kDepth; ++level) {
    transport.AddComponent(level - 1, "N", status);
    transport.AddCompProperty(level, "V", std::to_string(level));
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

TEST(DeepDocument, FailuresCarryOnePrefixPerLevel) {
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

}  // namespace
}  // namespace varnex
