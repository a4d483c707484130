// Loading whole documents through TransportDoc, and reading back what the library wrote.
#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

TEST(Load, MergesUnderTheRootAndCarriesTheLoadPrefix) {
  Transport transport;
  transport.TransportDoc(
      "<SURVEY><PROPERTY_DOMAINS><STATE>s</STATE></PROPERTY_DOMAINS><COLLECTION><L/></COLLECTION></SURVEY>");
  EXPECT_EQ(transport.FindPropDomainByPropName("State"), 2);
  EXPECT_EQ(transport.AddComponent(1, "M"), 3);
  EXPECT_AUTOMATION_ERROR(transport.TransportDoc("<SURVEY><COMPONENT><A/></COMPONENT><COMPONENT><B><COLLECTION/></B>"
                                                 "</COMPONENT></SURVEY>"),
                          errObjectNotSet,
                          "GetTransportDoc: MergeTransportIn: RecurseComponents: RecurseComponents: "
                          "Object variable or With block variable not set");
  EXPECT_EQ(transport.TransportDoc(),
            "<SURVEY><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><A/></COMPONENT><COMPONENT><B/></COMPONENT></SURVEY>");
}

// Every kind of content, built in the order in which a reload lays it out: attachments and the
// prototype before the properties, properties before sub-components, links after components.
TEST(Load, ReadsBackWhatItWroteWithTheSameHandles) {
  Transport original;
  original.RootName("SURVEY");
  original.AddDomain("Colour", "C<1>", "Colours & \"shades\"");
  original.AddDomainItem(1);
  original.AddDomainProperty(1, 1, "Code", "R&D <x>  ");
  const Long site = original.AddComponent(0, "Site", csNew);
  original.AddCompAttribute(site, "Note", "a \"quoted\" <value> & 'more'");
  original.AddCompAttachment(site, "<NOTE kind='x'><P>text <B>bold</B> tail</P><EMPTY/><!--c--></NOTE>", vbTrue);
  original.AddCompAttachment(site, "<MEMO>plain</MEMO>");
  original.AddCompProperty(site, "Name", "  North  ", csModified, "South <&>");
  original.AddCompProperty(site, "Text", "line one\n\tline two", csNew);
  original.AddCompProperty(site, "Blank", "   ");
  original.AddCompProperty(site, "Empty", "", csDeleted, "y");
  const Long visits = original.AddCollection(site, "Visits");
  original.AddCompPrototypeProperty(visits, "Day", "Monday");
  original.AddComponent(original.AddComponent(visits, "Visit", csDeleted), "Detail");
  original.AddPropDomain("Colour", "mixed Case");
  const std::string text = original.TransportDoc();

  Transport loaded;
  loaded.TransportDoc(text);
  EXPECT_EQ(loaded.TransportDoc(), text);
  std::string name, value, before;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
  EXPECT_EQ(loaded.GetCompChild(visits + 1, 1, name, status, type), visits + 2);
  EXPECT_EQ(loaded.FindPropDomainByPropName("colour"), visits + 3);
  EXPECT_EQ(loaded.GetCompProperty(site, 1, value, status, before) + "|" + value + "|" + before,
            "NAME|  North  |South <&>");
  EXPECT_EQ(loaded.GetCompProperty(site, 3, value, status, before) + "|" + value, "BLANK|   ");
  EXPECT_EQ(loaded.GetDomItemProperty(1, 1, 1, value) + "|" + value, "CODE|R&D <x>  ");
}

TEST(Load, AReloadPutsEachThingInTheOrderTheMergeTakesIt) {
  Transport original;
  original.AddPropDomain("State", "States");  // handle 1, before any component
  const Long site = original.AddComponent(0, "Site");
  original.AddComponent(site, "Child");
  original.AddCompProperty(site, "Name", "x");          // after a sub-component
  original.AddCompAttachment(site, "<NOTE/>", vbTrue);  // after the properties
  Transport loaded;
  loaded.TransportDoc(original.TransportDoc());
  const std::string reloaded =
      "<TALVEN><DOMAIN/><PROPERTY_DOMAINS><STATE>States</STATE></PROPERTY_DOMAINS><COMPONENT><SITE><ATTACHMENTS>"
      "<NOTE persist=\"true\"/></ATTACHMENTS><COMPONENT><CHILD/></COMPONENT><PROPERTIES><NAME xml:space=\"preserve\">"
      "x</NAME></PROPERTIES></SITE></COMPONENT></TALVEN>";
  EXPECT_EQ(loaded.TransportDoc(), reloaded);
  EXPECT_EQ(loaded.FindChildCompByName(1, "Child"), 2);
  EXPECT_EQ(loaded.FindPropDomainByPropName("State"), 3);
  loaded.TransportDoc(reloaded);
  EXPECT_EQ(loaded.TransportDoc(), reloaded);  // and stays so
}

}  // namespace
}  // namespace varnex
