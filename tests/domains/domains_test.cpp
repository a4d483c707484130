// Domains, their items and item properties, and the links from property names to domains:
// numbering, counts, reading back, and the key spaces in which lookups leave their keys behind.
#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

const std::string kDuplicate = "This key is already associated with an element of this collection";

TEST(Domains, NumberingCountsAndReadingBack) {
  Transport transport;
  EXPECT_EQ(transport.AddDomain("Colour", "C1", "Colours"), 1);
  EXPECT_EQ(transport.AddDomain("colour"), 0);  // one name whatever its case; no handle used
  EXPECT_EQ(transport.AddDomain("Size"), 2);
  EXPECT_EQ(transport.AddDomainItem(1), 1);
  EXPECT_EQ(transport.AddDomainItem(1), 2);
  EXPECT_EQ(transport.AddDomainItem(2), 1);  // item numbers restart in every domain
  EXPECT_EQ(transport.AddDomainProperty(1, 2, "Code", "R"), 1);
  EXPECT_EQ(transport.AddDomainProperty(1, 2, "Shade", " dark red"), 2);
  EXPECT_EQ(transport.CountDomains(), 2);
  EXPECT_EQ(transport.CountDomItems(1), 2);
  EXPECT_EQ(transport.CountDomItemProperties(1, 2), 2);
  EXPECT_EQ(transport.FindDomItemPropByName(1, 2, "shade"), 2);
  EXPECT_EQ(transport.FindDomainByName("sIZE"), 2);
  std::string code = "x", desc = "y", value;
  EXPECT_EQ(transport.GetDomain(1, code, desc) + "|" + code + "|" + desc, "COLOUR|C1|Colours");
  EXPECT_EQ(transport.GetDomain(2, code, desc) + "|" + code + "|" + desc, "SIZE||");
  EXPECT_EQ(transport.GetDomItemProperty(1, 2, 2, value) + "|" + value, "SHADE| dark red");
  EXPECT_EQ(transport.TransportDoc(),
            "<TALVEN><DOMAIN><COLOUR CODE=\"C1\" DESC=\"Colours\"><ITEM/><ITEM><CODE>R</CODE><SHADE> dark red</SHADE>"
            "</ITEM></COLOUR><SIZE><ITEM/></SIZE></DOMAIN><PROPERTY_DOMAINS/></TALVEN>");
  transport.RootName("TALVEN");
  EXPECT_EQ(transport.CountDomains(), 0);
  EXPECT_EQ(transport.AddDomain("Size"), 1);
}

TEST(Domains, LookupsLeaveTheirKeysBehind) {
  Transport transport;
  EXPECT_EQ(transport.FindDomainByName("Unknown"), 0);
  EXPECT_EQ(transport.DomainExists("UNKNOWN"), vbTrue);
  EXPECT_EQ(transport.AddDomain("unknown"), 0);
  // Handles and names share the key space; under "1" stands an element, which is no number.
  EXPECT_EQ(transport.DomainExists("1"), vbFalse);
  EXPECT_EQ(transport.AddDomain("Colour"), 1);
  EXPECT_EQ(transport.DomainExists("1"), vbTrue);

  // A property name looked up, or used once already, fails after its element and count are in.
  transport.AddDomainItem(1);
  EXPECT_EQ(transport.FindDomItemPropByName(1, 1, "shade"), 0);
  EXPECT_AUTOMATION_ERROR(transport.AddDomainProperty(1, 1, "Shade", "dark"), errDuplicateKey,
                          "AddDomainProperty: " + kDuplicate);
  EXPECT_EQ(transport.AddDomainProperty(1, 1, "Code", "R"), 2);
  EXPECT_AUTOMATION_ERROR(transport.AddDomainProperty(1, 1, "code", "G"), errDuplicateKey,
                          "AddDomainProperty: " + kDuplicate);
  EXPECT_EQ(transport.CountDomItemProperties(1, 1), 3);
  std::string value, code, desc;
  EXPECT_EQ(transport.GetDomItemProperty(1, 1, 3, value) + value, "CODEG");

  // An unknown handle's key stays behind, so domain 3 collides once the counter reaches it, after
  // its element went in.
  EXPECT_THROW(transport.GetDomain(3, code, desc), AutomationError);
  EXPECT_EQ(transport.AddDomain("Size"), 2);
  EXPECT_AUTOMATION_ERROR(transport.AddDomain("Shape"), errDuplicateKey, "AddDomain: " + kDuplicate);
  EXPECT_EQ(transport.AddDomain("Height"), 4);
  EXPECT_EQ(transport.CountDomains(), 3);
  EXPECT_NE(transport.TransportDoc().find("<SIZE/><SHAPE/><HEIGHT/>"), std::string::npos);
}

TEST(Domains, DicKeyExistsAnswersForAnyDictionary) {
  Transport transport;
  Dictionary text(TextCompare), binary;
  text.Add("Key", Variant());
  binary.Add("Key", Variant());
  EXPECT_EQ(transport.DicKeyExists(&text, "KEY"), vbTrue);
  EXPECT_EQ(transport.DicKeyExists(&binary, "KEY"), vbFalse);
  EXPECT_EQ(transport.DicKeyExists(nullptr, "Key"), vbFalse);
}

TEST(PropertyDomains, HandlesInterleaveWithComponentHandles) {
  Transport transport;
  EXPECT_EQ(transport.AddPropDomain("State", "States"), 1);
  EXPECT_EQ(transport.AddComponent(0, "A"), 2);
  EXPECT_EQ(transport.AddComponent(0, "B"), 3);
  EXPECT_EQ(transport.AddCollection(2, "C"), 4);
  EXPECT_EQ(transport.AddPropDomain("Colour", "Colour"), 5);
  EXPECT_EQ(transport.AddPropDomain("COLOUR", "Other"), 0);
  EXPECT_EQ(transport.CountPropDomains(), 2);
  EXPECT_EQ(transport.AddComponent(4, "D"), 6);
  EXPECT_EQ(transport.FindPropDomainByPropName("state"), 1);
  EXPECT_EQ(transport.FindPropDomainByPropName("1"), 0) << "names and handles have keys of their own";

  std::string domain = "kept";
  EXPECT_EQ(transport.GetPropDomain(5, domain), "COLOUR");
  EXPECT_EQ(domain, "Colour");
  // A link is no component, and a component no link.
  EXPECT_THROW(transport.GetComponentStatus(5), AutomationError);
  EXPECT_THROW(transport.GetPropDomain(2, domain), AutomationError);
  EXPECT_EQ(transport.CountCompChildren(0), 2);
}

TEST(PropertyDomains, KeysLeftBehindTakeNamesAndHandles) {
  Transport transport;
  EXPECT_EQ(transport.FindPropDomainByPropName("Size"), 0);
  EXPECT_EQ(transport.AddPropDomain("size", "Sizes"), 0);
  // Handle 1 looked up before it is issued: the link collides after its element went in.
  std::string domain;
  ErrorOf([&] { transport.GetPropDomain(1, domain); });
  EXPECT_EQ(ErrorOf([&] { transport.AddPropDomain("State", "States"); }).number(), errDuplicateKey);
  EXPECT_EQ(transport.CountPropDomains(), 0);
  EXPECT_EQ(transport.AddComponent(0, "A"), 2);
  EXPECT_EQ(transport.TransportDoc(), "<TALVEN><DOMAIN/><PROPERTY_DOMAINS><STATE>States</STATE></PROPERTY_DOMAINS>"
                                      "<COMPONENT><A/></COMPONENT></TALVEN>");
}

}  // namespace
}  // namespace varnex
