// Free attributes and attachments of components, and prototypes: default properties kept on
// collections.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Xml;

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
  EXPECT_THROW(t.GetCompAttribute(h, "id"), AutomationError) << "attribute names compare exactly";
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
  EXPECT_EQ(testing::ErrorOf([&] { t.GetCompAttachment(kept, "two words"); }).number(), errXml);  // an XPath step
}

TEST(Prototypes, CollectionsKeepDefaultsInOrderComponentsRefuseThemRepeatedNamesFailOnReading) {
  Transport t;
  const Long visits = t.AddCollection(0, "visits");
  const Long visit = t.AddComponent(visits, "visit");
  const auto text = [&] { return xml::Serialize(testing::Internals(t).NodeOf(visits)); };
  EXPECT_THROW(t.AddCompPrototypeProperty(visits, "two words"), AutomationError);
  EXPECT_EQ(text(), "<VISITS><COMPONENT><VISIT/></COMPONENT><PROTOTYPE/></VISITS>") << "the list made first stays";
  EXPECT_EQ(t.AddCompPrototypeProperty(visits, "Colour", "red"), vbTrue);
  t.AddCompPrototypeProperty(visits, "size");
  EXPECT_EQ(text(), "<VISITS><COMPONENT><VISIT/></COMPONENT><PROTOTYPE><COLOUR>red</COLOUR><SIZE/></PROTOTYPE></VISITS>");
  Dictionary defaults = t.GetCompPrototypeProperties(visits);
  EXPECT_EQ(defaults.Keys(), (std::vector<std::string>{"COLOUR", "SIZE"}));
  EXPECT_EQ(defaults.Item("COLOUR").AsString(), "red");
  EXPECT_FALSE(defaults.Exists("colour")) << "keys compare exactly";
  EXPECT_EQ(t.GetCompPrototypeProperties(visit).Count(), 0);
  t.AddCompPrototypeProperty(visits, "colour", "blue");
  EXPECT_AUTOMATION_ERROR_FROM(t.GetCompPrototypeProperties(visits), errDuplicateKey, "Transport",
                               "GetCompPrototypeProperties: This key is already associated with an element of this collection");
}

}  // namespace
}  // namespace varnex
