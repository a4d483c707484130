// Loading whole documents through TransportDoc, and reading back what the library wrote.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

TEST(Load, TakesTheRootNameAndMergesUnderTheRoot) {
  Transport transport;
  transport.AddComponent(0, "Old");
  transport.TransportDoc(
      "<SURVEY><PROPERTY_DOMAINS><STATE>States</STATE></PROPERTY_DOMAINS>"
      "<COMPONENT><SITE STATUS=\"NEW\"/></COMPONENT><COLLECTION><LIST/></COLLECTION></SURVEY>");
  EXPECT_EQ(transport.RootName(), "SURVEY");
  EXPECT_EQ(transport.CountCompChildren(0), 2);
  EXPECT_EQ(transport.GetComponentStatus(1), csNew);
  EXPECT_EQ(transport.FindPropDomainByPropName("State"), 3);
  EXPECT_EQ(transport.AddComponent(2, "Member"), 4);
  EXPECT_EQ(transport.TransportDoc(),
            "<SURVEY><DOMAIN/><PROPERTY_DOMAINS><STATE>States</STATE></PROPERTY_DOMAINS>"
            "<COMPONENT><SITE STATUS=\"NEW\"/></COMPONENT><COLLECTION><LIST><COMPONENT><MEMBER/></COMPONENT>"
            "</LIST></COLLECTION></SURVEY>");
}

TEST(Load, FailuresOfTheMergeCarryTheLoadPrefix) {
  Transport transport;
  const auto error = ErrorOf([&] {
    transport.TransportDoc("<SURVEY><COMPONENT><A/></COMPONENT><COMPONENT><B><COLLECTION/></B></COMPONENT></SURVEY>");
  });
  EXPECT_EQ(error.number(), errObjectNotSet);
  EXPECT_EQ(error.description(),
            "GetTransportDoc: MergeTransportIn: RecurseComponents: RecurseComponents: "
            "Object variable or With block variable not set");
  // What was merged before the failure stays, under the new root.
  EXPECT_EQ(transport.TransportDoc(),
            "<SURVEY><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><A/></COMPONENT><COMPONENT><B/></COMPONENT></SURVEY>");
}

// Handles of the whole tree in the order the child index gives them, depth first.
std::vector<Long> HandlesDepthFirst(Transport& transport) {
  std::vector<Long> handles;
  std::vector<Long> pending{0};
  while (!pending.empty()) {
    const Long parent = pending.back();
    pending.pop_back();
    if (parent != 0) handles.push_back(parent);
    std::string name;
    enComponentStatus status = csNormal;
    enComponentType type = ctComponent;
    for (Long k = transport.CountCompChildren(parent); k >= 1; --k) {
      pending.push_back(transport.GetCompChild(parent, k, name, status, type));
    }
  }
  return handles;
}

// A document with every kind of content, built in the order in which a reload lays it out:
// attachments and the prototype before the properties, properties before sub-components, and
// the links after all components.
void BuildSample(Transport& transport) {
  transport.RootName("SURVEY");
  const Long colour = transport.AddDomain("Colour", "C<1>", "Colours & \"shades\"");
  const Long red = transport.AddDomainItem(colour);
  transport.AddDomainProperty(colour, red, "Code", "R&D <x>");
  transport.AddDomainProperty(colour, red, "Label", "  deep red\t");
  transport.AddDomainItem(colour);
  transport.AddDomain("Empty");

  const Long site = transport.AddComponent(0, "Site", csNew);
  transport.AddCompAttribute(site, "ID", "7");
  transport.AddCompAttribute(site, "Note", "a \"quoted\" <value> & 'more'");
  transport.AddCompAttachment(site, "<NOTE kind='x'><P>text <B>bold</B> tail</P><EMPTY/><!--c--></NOTE>", vbTrue);
  transport.AddCompAttachment(site, "<MEMO>plain &amp; simple</MEMO>", vbFalse);
  transport.AddCompProperty(site, "Name", "  North  ", csModified, "South <&>");
  transport.AddCompProperty(site, "Text", "line one\n\tline two", csNew);
  transport.AddCompProperty(site, "Blank", "   ");
  transport.AddCompProperty(site, "Empty", "");
  transport.AddCompProperty(site, "Gone", "x", csDeleted, "y");
  const Long visits = transport.AddCollection(site, "Visits");
  transport.AddCompPrototypeProperty(visits, "Day", "Monday");
  transport.AddCompPrototypeProperty(visits, "Note", "");
  const Long first = transport.AddComponent(visits, "Visit", csDeleted);
  transport.AddCompProperty(first, "Day", "Tuesday");
  const Long second = transport.AddComponent(visits, "Visit", csModified);
  transport.AddComponent(second, "Detail");
  transport.AddCollection(0, "Other");

  transport.AddPropDomain("Colour", "Colour");
  transport.AddPropDomain("Label", "mixed Case");
}

TEST(Load, ReadsBackWhatItWroteWithTheSameHandles) {
  Transport original;
  BuildSample(original);
  const std::string text = original.TransportDoc();

  Transport loaded;
  loaded.TransportDoc(text);
  EXPECT_EQ(loaded.TransportDoc(), text);
  EXPECT_EQ(loaded.RootName(), "SURVEY");
  EXPECT_EQ(HandlesDepthFirst(loaded), HandlesDepthFirst(original));
  EXPECT_EQ(loaded.FindPropDomainByPropName("label"), original.FindPropDomainByPropName("label"));
  EXPECT_EQ(loaded.CountPropDomains(), 2);

  // Values come back exactly, white space included.
  std::string value, original_value;
  enComponentStatus status = csNormal;
  EXPECT_EQ(loaded.GetCompProperty(1, 1, value, status, original_value), "NAME");
  EXPECT_EQ(value, "  North  ");
  EXPECT_EQ(status, csModified);
  EXPECT_EQ(original_value, "South <&>");
  EXPECT_EQ(loaded.GetCompProperty(1, 2, value, status, original_value), "TEXT");
  EXPECT_EQ(value, "line one\n\tline two");
  EXPECT_EQ(loaded.GetCompProperty(1, 3, value, status, original_value), "BLANK");
  EXPECT_EQ(value, "   ");
  EXPECT_EQ(loaded.CountCompProperties(1), 5);
  std::string code, desc;
  EXPECT_EQ(loaded.GetDomain(1, code, desc), "COLOUR");
  EXPECT_EQ(code, "C<1>");
  EXPECT_EQ(desc, "Colours & \"shades\"");
  EXPECT_EQ(loaded.GetDomItemProperty(1, 1, 2, value), "LABEL");
  EXPECT_EQ(value, "  deep red\t");
  EXPECT_EQ(loaded.CountDomItems(1), 2);
  EXPECT_EQ(loaded.CountDomains(), 2);
}

TEST(Load, AReloadPutsEachThingInTheOrderTheMergeTakesIt) {
  Transport original;
  const Long link = original.AddPropDomain("State", "States");  // handle 1, before any component
  const Long site = original.AddComponent(0, "Site");
  const Long child = original.AddComponent(site, "Child");
  original.AddCompProperty(site, "Name", "x");          // after a sub-component
  original.AddCompAttachment(site, "<NOTE/>", vbTrue);  // after the properties
  EXPECT_EQ(link, 1);
  EXPECT_EQ(child, 3);
  EXPECT_EQ(original.TransportDoc(),
            "<TALVEN><DOMAIN/><PROPERTY_DOMAINS><STATE>States</STATE></PROPERTY_DOMAINS><COMPONENT><SITE>"
            "<COMPONENT><CHILD/></COMPONENT><PROPERTIES><NAME xml:space=\"preserve\">x</NAME></PROPERTIES>"
            "<ATTACHMENTS><NOTE persist=\"true\"/></ATTACHMENTS></SITE></COMPONENT></TALVEN>");

  Transport loaded;
  loaded.TransportDoc(original.TransportDoc());
  const std::string reloaded =
      "<TALVEN><DOMAIN/><PROPERTY_DOMAINS><STATE>States</STATE></PROPERTY_DOMAINS><COMPONENT><SITE>"
      "<ATTACHMENTS><NOTE persist=\"true\"/></ATTACHMENTS><COMPONENT><CHILD/></COMPONENT>"
      "<PROPERTIES><NAME xml:space=\"preserve\">x</NAME></PROPERTIES></SITE></COMPONENT></TALVEN>";
  EXPECT_EQ(loaded.TransportDoc(), reloaded);
  // Components are numbered in document order, the link after them.
  EXPECT_EQ(loaded.FindChildCompByName(1, "Child"), 2);
  EXPECT_EQ(loaded.FindPropDomainByPropName("State"), 3);

  // The layout of a reload is stable.
  Transport again;
  again.TransportDoc(reloaded);
  EXPECT_EQ(again.TransportDoc(), reloaded);
}

}  // namespace
}  // namespace varnex
