// Component properties: adding, numbering, finding, reading, and the marks a change leaves.
#include <gtest/gtest.h>

#include "runtime/xml.hpp"
#include "support/errors.hpp"
#include "transport/transport_impl.hpp"
#include "varnex/transport.hpp"

namespace varnex {
namespace {

struct Property {
  std::string name, value = "unchanged", original = "unchanged";
  enComponentStatus status = static_cast<enComponentStatus>(-7);
};

Property Read(Transport& t, Long handle, Long k) {
  Property p;
  p.name = t.GetCompProperty(handle, k, p.value, p.status, p.original);
  return p;
}

std::string Xml(Transport& t, Long handle) { return xml::Serialize(t.impl().NodeOf(handle)); }

TEST(AddingProperties, WritesUpperCasedPreservingElementsWithTheGivenMarks) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  EXPECT_EQ(t.AddCompProperty(h, "Name", " x "), 1);
  t.AddCompProperty(h, "a", "1", csDeleted, "old");
  t.AddCompProperty(h, "a", "", static_cast<enComponentStatus>(7));
  EXPECT_EQ(Xml(t, h),
            "<SITE><PROPERTIES><NAME xml:space=\"preserve\"> x </NAME>"
            "<A xml:space=\"preserve\" STATUS=\"DELETED\" ORIGINAL=\"old\">1</A>"
            "<A xml:space=\"preserve\"/></PROPERTIES></SITE>");
  EXPECT_EQ(t.CountCompProperties(h), 3);
  EXPECT_EQ(t.FindCompPropertyByName(h, "name"), 1);
  EXPECT_EQ(t.FindCompPropertyByName(h, "A"), 2) << "the first of two equal names";
  EXPECT_EQ(t.FindCompPropertyByName(h, "b"), 0);
  const Property a = Read(t, h, 2);
  EXPECT_EQ(a.name, "A");
  EXPECT_EQ(a.value, "1");
  EXPECT_EQ(a.original, "old");
  EXPECT_EQ(a.status, csDeleted);
  EXPECT_EQ(Read(t, h, 1).original, "");
}

TEST(PropertyNumbers, CountEveryChildNodeOfTheList) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  t.AddCompProperty(h, "a", "1");
  pugi::xml_node list = t.impl().NodeOf(h).first_child();
  list.append_child(pugi::node_pcdata).set_value("loose");
  t.impl().document->Touch();
  t.AddCompProperty(h, "b", "", csNew);
  EXPECT_EQ(t.CountCompProperties(h), 3);
  EXPECT_EQ(t.FindCompPropertyByName(h, "B"), 3);
  EXPECT_EQ(t.FindCompPropertyByName(h, ""), 2) << "a text node's name is empty";
  const Property loose = Read(t, h, 2);
  EXPECT_EQ(loose.name, "");
  EXPECT_EQ(loose.value, "loose");
  EXPECT_EQ(t.GetCompPropStatus(h, 2), -1);
  EXPECT_EQ(Read(t, h, 3).status, csNew);
  EXPECT_EQ(t.GetCompPropStatus(h, 3), csNormal) << "an empty value reads as normal";
  t.ModifyCompProperty(h, 3, "set");
  EXPECT_EQ(t.GetCompPropStatus(h, 3), csModified) << "the NEW mark is replaced in place";
  EXPECT_EQ(t.ModifyCompProperty(h, 2, "tight"), vbTrue);
  EXPECT_EQ(Xml(t, h),
            "<SITE STATUS=\"MODIFIED\"><PROPERTIES><A xml:space=\"preserve\">1</A>tight"
            "<B xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"\">set</B></PROPERTIES></SITE>");
}

TEST(ModifyingProperties, ANormalComponentBecomesModifiedAndKeepsTheFirstOriginal) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  t.AddCompProperty(h, "a", "one");
  t.AddCompProperty(h, "b", "two");
  EXPECT_EQ(t.ModifyCompProperty(h, 1, "one"), vbTrue);
  EXPECT_EQ(t.GetComponentStatus(h), csNormal) << "the same value changes nothing";
  EXPECT_EQ(t.ModifyCompProperty(h, 1, "ONE"), vbTrue);
  t.ModifyCompProperty(h, 1, "three");
  t.ModifyCompProperty(h, 1, "one");  // back to the original: still modified
  t.ModifyCompProperty(h, 2, "2");    // component modified already: "STATUS" goes first
  EXPECT_EQ(Xml(t, h),
            "<SITE STATUS=\"MODIFIED\"><PROPERTIES>"
            "<A xml:space=\"preserve\" ORIGINAL=\"one\" STATUS=\"MODIFIED\">one</A>"
            "<B xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"two\">2</B></PROPERTIES></SITE>");
  const Property b = Read(t, h, 2);
  EXPECT_EQ(b.status, csModified);
  EXPECT_EQ(b.original, "two");
}

TEST(ModifyingProperties, NewComponentsTakeValuesOnlyAndDeletedOnesRefuse) {
  Transport t;
  const Long fresh = t.AddComponent(0, "fresh", csNew);
  const Long gone = t.AddComponent(0, "gone", csDeleted);
  t.AddCompProperty(fresh, "a", "1");
  t.AddCompProperty(gone, "a", "1");
  EXPECT_EQ(t.ModifyCompProperty(fresh, 1, "2"), vbTrue);
  EXPECT_EQ(Xml(t, fresh), "<FRESH STATUS=\"NEW\"><PROPERTIES><A xml:space=\"preserve\">2</A></PROPERTIES></FRESH>");
  EXPECT_EQ(t.ModifyCompProperty(gone, 1, "2"), vbFalse);
  EXPECT_EQ(Xml(t, gone), "<GONE STATUS=\"DELETED\"><PROPERTIES><A xml:space=\"preserve\">1</A></PROPERTIES></GONE>");
}

TEST(ModifyingProperties, EmptyingAndRefillingValuesKeepsTheNumbering) {
  Transport t;
  const Long h = t.AddComponent(0, "site", csNew);
  t.AddCompProperty(h, "a", "1");
  t.AddCompProperty(h, "b", "2");
  EXPECT_EQ(Read(t, h, 2).name, "B");
  t.ModifyCompProperty(h, 1, "");
  EXPECT_EQ(Read(t, h, 1).value, "");
  t.AddCompProperty(h, "c", "3");
  t.ModifyCompProperty(h, 1, "x");
  EXPECT_EQ(t.CountCompProperties(h), 3);
  EXPECT_EQ(Read(t, h, 1).value, "x");
  EXPECT_EQ(Read(t, h, 3).name, "C");
}

TEST(PropertyFailures, CarryTheOperationsNamesAndKeepEarlierWrites) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  const Long bare = t.AddComponent(0, "bare");
  EXPECT_AUTOMATION_ERROR(t.AddCompProperty(99, "a", "1"), errObjectRequired, "AddCompProperty: Invalid Handle");
  EXPECT_AUTOMATION_ERROR(t.AddCompProperty(h, "two words", "1"), errXml,
                          "AddCompProperty: The name 'TWO WORDS' is not a valid XML element name.");
  EXPECT_EQ(Xml(t, h), "<SITE><PROPERTIES/></SITE>") << "the list created first stays";
  EXPECT_EQ(t.CountCompProperties(99), 0);
  Property p;
  EXPECT_AUTOMATION_ERROR(t.GetCompProperty(h, 1, p.value, p.status, p.original), errObjectRequired,
                          "GetCompProperty: Invalid Handle");
  EXPECT_EQ(p.value, "unchanged");
  EXPECT_AUTOMATION_ERROR(t.GetCompPropStatus(99, 1), errObjectRequired, "GetCompPropStatus: Invalid Handle");
  EXPECT_AUTOMATION_ERROR(t.ModifyCompProperty(h, 1, "x"), errObjectRequired, "ModifyCompProperty: Object required");
  EXPECT_AUTOMATION_ERROR(t.FindCompPropertyByName(99, "a"), errObjectRequired, "FindCompPropertyByName: Invalid Handle");
  EXPECT_EQ(t.FindCompPropertyByName(bare, "a"), 0) << "no child nodes at all";
  t.AddComponent(bare, "child");
  EXPECT_AUTOMATION_ERROR(t.FindCompPropertyByName(bare, "a"), errObjectNotSet,
                          "FindCompPropertyByName: Object variable or With block variable not set");
}

TEST(PropertyFailures, ALowerCaseListTakesAdditionsButIsNeitherIndexedNorSearched) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  t.impl().document->AppendElement(t.impl().NodeOf(h), "properties");
  t.AddCompProperty(h, "a", "1");
  EXPECT_EQ(Xml(t, h), "<SITE><properties><A xml:space=\"preserve\">1</A></properties></SITE>");
  EXPECT_EQ(t.CountCompProperties(h), 0);
  EXPECT_AUTOMATION_ERROR(t.FindCompPropertyByName(h, "a"), errObjectNotSet,
                          "FindCompPropertyByName: Object variable or With block variable not set");
}

TEST(PropertyFailures, ARebuildFailureIsSwallowedOnlyByTheCount) {
  Transport t;
  const Long h = t.AddComponent(0, "site");
  t.AddCompProperty(h, "a", "1");
  t.impl().document->AppendElement(t.impl().NodeOf(h), "PROPERTIES");  // a second list
  t.AddCompProperty(h, "b", "2");
  EXPECT_EQ(t.CountCompProperties(h), 0);
  Property p;
  EXPECT_AUTOMATION_ERROR(t.GetCompProperty(h, 1, p.value, p.status, p.original), errDuplicateKey,
                          "GetCompProperty: CheckAndRebuildPropIndexes: This key is already associated with an "
                          "element of this collection");
  EXPECT_AUTOMATION_ERROR(t.GetCompPropStatus(h, 1), errDuplicateKey,
                          "GetCompPropStatus: GetCompProperty: CheckAndRebuildPropIndexes: This key is already "
                          "associated with an element of this collection");
}

}  // namespace
}  // namespace varnex
