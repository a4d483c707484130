// Free attributes and attachments of components.
#include <gtest/gtest.h>

#include "runtime/xml.hpp"
#include "support/errors.hpp"
#include "support/internals.hpp"
#include "varnex/transport.hpp"

namespace varnex {
namespace {

std::string Xml(Transport& t, Long handle) { return xml::Serialize(testing::Internals(t).NodeOf(handle)); }

TEST(FreeAttributes, AreSetReplacedAndReadWithoutMarkingAChange) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  EXPECT_EQ(t.AddCompAttribute(h, "ID", "7"), vbTrue);
  EXPECT_EQ(t.AddCompAttribute(h, "ID", "8"), vbTrue);
  t.AddCompAttribute(h, "note", "");
  EXPECT_EQ(t.GetCompAttribute(h, "ID"), "8");
  EXPECT_EQ(t.GetCompAttribute(h, "note"), "");
  EXPECT_EQ(Xml(t, h), "<SITE ID=\"8\" note=\"\"/>");
  EXPECT_EQ(t.GetComponentStatus(h), csNormal);

  EXPECT_AUTOMATION_ERROR(t.GetCompAttribute(h, "id"), errInvalidUseOfNull, "GetCompAttribute: Invalid use of Null");
  EXPECT_AUTOMATION_ERROR_FROM(t.GetCompAttribute(99, "ID"), errClass, "Transport", "GetCompAttribute: Invalid Handle");
  EXPECT_AUTOMATION_ERROR_FROM(t.AddCompAttribute(99, "ID", "1"), errClass, "Transport",
                               "AddCompAttribute: Invalid Handle");
  EXPECT_AUTOMATION_ERROR(t.AddCompAttribute(h, "a b", "1"), errXml,
                          "AddCompAttribute: The name 'a b' is not a valid XML attribute name.");
  t.AddCompProperty(h, "a", "1");
  testing::Internals(t).document->AppendElement(testing::Internals(t).NodeOf(h), "PROPERTIES");  // the index cannot be rebuilt
  t.AddCompProperty(h, "b", "2");
  EXPECT_AUTOMATION_ERROR(t.GetCompAttribute(h, "ID"), errDuplicateKey,
                          "GetCompAttribute: Error Rebuilding Indexes: CheckAndRebuildPropIndexes: This key is "
                          "already associated with an element of this collection");
}

TEST(Attachments, AreKeptAsGivenAndFoundByExactName) {
  Transport t;
  const Long kept = t.AddComponent(0, "kept");
  const Long plain = t.AddComponent(0, "plain");
  const Long odd = t.AddComponent(0, "odd");
  EXPECT_EQ(t.AddCompAttachment(kept, "<NOTE>hi <b>there</b></NOTE>", vbTrue), vbTrue);
  t.AddCompAttachment(kept, "<NOTE/>");
  t.AddCompAttachment(plain, "<NOTE persist=\"no\"/>");
  EXPECT_EQ(t.GetCompAttachment(kept, "NOTE"), "<NOTE persist=\"true\">hi <b>there</b></NOTE>");
  EXPECT_EQ(t.GetCompAttachment(kept, "NOTE[2]"), "<NOTE/>");
  EXPECT_EQ(t.GetCompAttachment(kept, "NOTE/@persist"), "persist=\"true\"");
  Transport::Impl& impl = testing::Internals(t);
  EXPECT_TRUE(impl.NodeHasPersistantAttachments(impl.NodeOf(kept)));
  EXPECT_FALSE(impl.NodeHasPersistantAttachments(impl.NodeOf(plain)));
  EXPECT_FALSE(impl.NodeHasPersistantAttachments(impl.NodeOf(odd)));

  t.AddCompAttachment(odd, "<!--c--><B/>");
  t.AddCompAttachment(odd, "<C/>", 1);  // any non-zero value asks for persistence
  EXPECT_EQ(Xml(t, odd), "<ODD><ATTACHMENTS><!--c--><C persist=\"true\"/></ATTACHMENTS></ODD>");
  EXPECT_TRUE(impl.NodeHasPersistantAttachments(impl.NodeOf(odd)));
}

TEST(Attachments, Failures) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  EXPECT_AUTOMATION_ERROR_FROM(t.AddCompAttachment(h, "<open>"), errClass, "Transport",
                               "AddCompAttachment: Invalid XML supplied.");
  EXPECT_EQ(Xml(t, h), "<SITE><ATTACHMENTS/></SITE>") << "the list created first stays";
  EXPECT_AUTOMATION_ERROR(t.AddCompAttachment(99, "<A/>"), errObjectRequired, "AddCompAttachment: Object required");
  t.AddCompAttachment(h, "<NOTE/>");
  EXPECT_AUTOMATION_ERROR_FROM(t.GetCompAttachment(h, "note"), errClass, "Transport",
                               "GetCompAttachment: Attachment not found.");
  EXPECT_AUTOMATION_ERROR(t.GetCompAttachment(99, "NOTE"), errObjectRequired, "GetCompAttachment: Object required");
  EXPECT_EQ(testing::ErrorOf([&] { t.GetCompAttachment(h, "two words"); }).number(), errXml);
}

}  // namespace
}  // namespace varnex
