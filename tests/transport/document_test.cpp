// The Transport object, the root name, and the whole document as text: loading it and reading back
// what the library wrote.
#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "transport/node_status.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

constexpr const char* kEmpty = "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/></TALVEN>";

TEST(TransportDocument, ANewRootNameOrLoadedTextDiscardsEverything) {
  Transport transport;
  const Long site = transport.AddComponent(0, "site");
  transport.RootName("Survey");
  EXPECT_EQ(transport.RootName(), "Survey");
  EXPECT_EQ(transport.TransportDoc(), "<Survey><DOMAIN/><PROPERTY_DOMAINS/></Survey>");
  EXPECT_AUTOMATION_ERROR(transport.GetComponentStatus(site), errObjectRequired, "GetComponentStatus: Invalid Handle");
  EXPECT_EQ(transport.AddComponent(0, "again"), 1) << "handles start again at 1";

  // Loading takes the root name from the text's first node...
  transport.TransportDoc("<SURVEY><DOMAIN/><PROPERTY_DOMAINS/></SURVEY>");
  EXPECT_EQ(transport.RootName(), "SURVEY");
  EXPECT_EQ(transport.AddComponent(0, "new"), 1);
  transport.TransportDoc("<?xml version=\"1.0\"?><SURVEY/>");
  EXPECT_EQ(transport.RootName(), "xml") << "the first node names the root, even a declaration";
  // ... and text that does not parse leaves an empty TALVEN.
  transport.AddComponent(0, "old");
  EXPECT_AUTOMATION_ERROR(transport.TransportDoc("<A><B></A>"), errObjectNotSet,
                          "GetTransportDoc: Object variable or With block variable not set");
  EXPECT_EQ(transport.RootName(), "TALVEN");
  EXPECT_EQ(transport.TransportDoc(), kEmpty);
}

TEST(TransportDocument, AnInvalidRootNameLeavesNoRoot) {
  Transport transport;
  EXPECT_AUTOMATION_ERROR(transport.RootName("1st"), errXml,
                          "LetRootName: The name '1st' is not a valid XML element name.");
  EXPECT_EQ(transport.RootName(), "1st");
  EXPECT_EQ(transport.TransportDoc(), "");
  EXPECT_AUTOMATION_ERROR(transport.AddComponent(0, "a"), errObjectRequired, "AddComponent: Invalid Handle");

  // The reset stops where the root is made: what its later steps would clear keeps its value.
  Transport linked;
  linked.AddPropDomain("COLOUR", "COLOURS");
  linked.AddPropDomain("SHAPE", "SHAPES");
  EXPECT_THROW(linked.RootName("a b"), AutomationError);
  EXPECT_EQ(linked.CountPropDomains(), 2);
  EXPECT_EQ(linked.CountDomains(), 0);
  linked.RootName("GOOD");
  EXPECT_EQ(linked.CountPropDomains(), 0);

  // Loaded text that starts with a comment fails on the root name the same way.
  EXPECT_AUTOMATION_ERROR(transport.TransportDoc("<!--note--><A/>"), errXml,
                          "GetTransportDoc: LetRootName: The name '' is not a valid XML element name.");
}

TEST(TransportDocument, MovingHandsOverTheDocumentAndLeavesANewOne) {
  Transport first;
  const Long site = first.AddComponent(0, "SITE", csNew);
  Transport second = std::move(first);
  EXPECT_EQ(second.GetComponentStatus(site), csNew);
  EXPECT_EQ(second.MergeDocument("<TALVEN><COMPONENT><VISIT/></COMPONENT></TALVEN>", site), 1)
      << "operations that call back into the object reach the new owner";
  EXPECT_EQ(second.CountCompChildren(site), 1);
  EXPECT_EQ(first.TransportDoc(), kEmpty);  // NOLINT(bugprone-use-after-move): left as new
  EXPECT_EQ(first.AddComponent(0, "again"), 1);
  first = std::move(second);
  EXPECT_EQ(first.CountCompChildren(site), 1);
  EXPECT_EQ(second.CountCompChildren(0), 0);  // NOLINT(bugprone-use-after-move)
}

TEST(NodeStatus, ReadsTrimmedTextWithoutRegardToCase) {
  pugi::xml_document document;
  pugi::xml_node node = document.append_child("N");
  EXPECT_EQ(GetNodeStatus(pugi::xml_node()), csNormal);
  EXPECT_EQ(GetNodeStatus(node), csNormal);
  const std::pair<const char*, enComponentStatus> cases[] = {
      {"NEW", csNew},          {"  modified ", csModified}, {"Deleted", csDeleted}, {"", csNormal},
      {"\tNEW", csNormal},     {"REMOVED", csNormal},       {"NEW NEW", csNormal},
  };
  for (const auto& [text, status] : cases) {
    SetAttribute(node, "STATUS", text);
    EXPECT_EQ(GetNodeStatus(node), status) << '"' << text << '"';
  }
  node.remove_attribute("STATUS");
  node.append_attribute("status") = "NEW";
  EXPECT_EQ(GetNodeStatus(node), csNormal) << "the attribute name itself is exact";
}

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
