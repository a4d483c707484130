// Component properties: adding, numbering, finding, reading (walked with the range, which reads
// each through GetCompProperty), and the marks a change leaves.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::PropertiesOf;
using testing::Xml;

TEST(AddingProperties, WritesUpperCasedPreservingElementsWithTheGivenMarks) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  EXPECT_EQ(t.AddCompProperty(h, "Name", " x "), 1);
  t.AddCompProperty(h, "a", "1", csDeleted, "old");
  t.AddCompProperty(h, "a", "", static_cast<enComponentStatus>(7));
  EXPECT_EQ(Xml(t, h),
            "<SITE><PROPERTIES><NAME xml:space=\"preserve\"> x </NAME>"
            "<A xml:space=\"preserve\" STATUS=\"DELETED\" ORIGINAL=\"old\">1</A><A xml:space=\"preserve\"/></PROPERTIES></SITE>");
  EXPECT_EQ(t.FindCompPropertyByName(h, "name"), 1);
  EXPECT_EQ(t.FindCompPropertyByName(h, "A"), 2) << "the first of two equal names";
  EXPECT_EQ(t.FindCompPropertyByName(h, "b"), 0);
  EXPECT_EQ(PropertiesOf(t, h), "1 NAME= x //csNormal;2 A=1/old/csDeleted;3 A=//csNormal;");
}

TEST(PropertyNumbers, CountEveryChildNodeOfTheList) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  t.AddCompProperty(h, "a", "1");
  testing::Internals(t).NodeOf(h).first_child().append_child(pugi::node_pcdata).set_value("loose");
  t.AddCompProperty(h, "b", "", csNew);
  EXPECT_EQ(t.FindCompPropertyByName(h, "B"), 3);
  EXPECT_EQ(t.FindCompPropertyByName(h, ""), 2) << "a text node's name is empty";
  EXPECT_EQ(PropertiesOf(t, h), "1 A=1//csNormal;2 =loose//csNormal;3 B=//csNew;");
  EXPECT_EQ(t.GetCompPropStatus(h, 2), -1);
  EXPECT_EQ(t.GetCompPropStatus(h, 3), csNormal) << "an empty value reads as normal";
  t.ModifyCompProperty(h, 3, "set");
  EXPECT_EQ(t.GetCompPropStatus(h, 3), csModified) << "the NEW mark is replaced in place";
  EXPECT_EQ(t.ModifyCompProperty(h, 2, "tight"), vbTrue);
  EXPECT_EQ(Xml(t, h),
            "<SITE STATUS=\"MODIFIED\"><PROPERTIES><A xml:space=\"preserve\">1</A>tight"
            "<B xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"\">set</B></PROPERTIES></SITE>");
}

TEST(ModifyingProperties, FollowTheComponentsStatus) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  t.AddCompProperty(h, "a", "one");
  t.AddCompProperty(h, "b", "two");
  EXPECT_EQ(t.ModifyCompProperty(h, 1, "one"), vbTrue);
  EXPECT_EQ(t.GetComponentStatus(h), csNormal) << "the same value changes nothing";
  EXPECT_EQ(t.ModifyCompProperty(h, 1, "ONE"), vbTrue);
  t.ModifyCompProperty(h, 1, "one");  // back to the original: still modified
  t.ModifyCompProperty(h, 2, "2");    // the component is modified already: "STATUS" goes first
  EXPECT_EQ(Xml(t, h),
            "<SITE STATUS=\"MODIFIED\"><PROPERTIES><A xml:space=\"preserve\" ORIGINAL=\"one\" STATUS=\"MODIFIED\">one</A>"
            "<B xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"two\">2</B></PROPERTIES></SITE>");
  EXPECT_EQ(PropertiesOf(t, h), "1 A=one/one/csModified;2 B=2/two/csModified;");

  const Long fresh = t.AddComponent(0, "fresh", csNew);
  const Long gone = t.AddComponent(0, "gone", csDeleted);
  t.AddCompProperty(fresh, "a", "1");
  t.AddCompProperty(gone, "a", "1");
  EXPECT_EQ(t.ModifyCompProperty(fresh, 1, "2"), vbTrue);
  EXPECT_EQ(Xml(t, fresh), "<FRESH STATUS=\"NEW\"><PROPERTIES><A xml:space=\"preserve\">2</A></PROPERTIES></FRESH>");
  EXPECT_EQ(t.ModifyCompProperty(gone, 1, "2"), vbFalse);
  EXPECT_EQ(Xml(t, gone), "<GONE STATUS=\"DELETED\"><PROPERTIES><A xml:space=\"preserve\">1</A></PROPERTIES></GONE>");
}

TEST(PropertyFailures, CarryTheOperationsNamesAndKeepEarlierWrites) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  const Long bare = t.AddComponent(0, "bare");
  EXPECT_THROW(t.AddCompProperty(h, "two words", "1"), AutomationError);
  EXPECT_EQ(Xml(t, h), "<SITE><PROPERTIES/></SITE>") << "the list created first stays";
  EXPECT_EQ(t.CountCompProperties(99), 0);
  EXPECT_EQ(t.FindCompPropertyByName(bare, "a"), 0) << "no child nodes at all";
  t.AddComponent(bare, "child");
  EXPECT_AUTOMATION_ERROR(t.FindCompPropertyByName(bare, "a"), errObjectNotSet,
                          "FindCompPropertyByName: Object variable or With block variable not set");

  // A lower-case list takes additions but is neither indexed nor searched.
  const Long lower = t.AddComponent(0, "lower");
  testing::Internals(t).document->AppendElement(testing::Internals(t).NodeOf(lower), "properties");
  t.AddCompProperty(lower, "a", "1");
  EXPECT_EQ(Xml(t, lower), "<LOWER><properties><A xml:space=\"preserve\">1</A></properties></LOWER>");
  EXPECT_EQ(t.CountCompProperties(lower), 0);
  EXPECT_AUTOMATION_ERROR(t.FindCompPropertyByName(lower, "a"), errObjectNotSet,
                          "FindCompPropertyByName: Object variable or With block variable not set");

  // A second list under one component makes the index fail to rebuild; only the count swallows it.
  testing::Internals(t).document->AppendElement(testing::Internals(t).NodeOf(h), "PROPERTIES");
  t.AddCompProperty(h, "a", "1");
  EXPECT_EQ(t.CountCompProperties(h), 0);
  const std::string duplicate = "This key is already associated with an element of this collection";
  std::string value, original;
  enComponentStatus status;
  EXPECT_AUTOMATION_ERROR(t.GetCompProperty(h, 1, value, status, original), errDuplicateKey,
                          "GetCompProperty: CheckAndRebuildPropIndexes: " + duplicate);
  EXPECT_AUTOMATION_ERROR(t.GetCompPropStatus(h, 1), errDuplicateKey,
                          "GetCompPropStatus: GetCompProperty: CheckAndRebuildPropIndexes: " + duplicate);
  EXPECT_AUTOMATION_ERROR(t.GetCompAttribute(h, "ID"), errDuplicateKey,
                          "GetCompAttribute: Error Rebuilding Indexes: CheckAndRebuildPropIndexes: " + duplicate);
}

}  // namespace
}  // namespace varnex
