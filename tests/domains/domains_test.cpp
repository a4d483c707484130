// Domains, their items and item properties, and the links from property names to domains:
// numbering, counts, reading back, and the key spaces in which lookups leave their keys behind.
#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

using Longs = std::vector<Long>;
const std::string kDuplicate = "This key is already associated with an element of this collection";

TEST(Domains, NumberingCountsAndReadingBack) {
  Transport t;
  // "colour" is the name taken already (0, no handle used); item numbers restart in every domain.
  EXPECT_EQ((Longs{t.AddDomain("Colour", "C1", "Colours"), t.AddDomain("colour"), t.AddDomain("Size"),
                   t.AddDomainItem(1), t.AddDomainItem(1), t.AddDomainItem(2), t.AddDomainProperty(1, 2, "Code", "R"),
                   t.AddDomainProperty(1, 2, "Shade", " dark red"), t.CountDomains(), t.CountDomItems(1),
                   t.CountDomItemProperties(1, 2), t.FindDomItemPropByName(1, 2, "shade"), t.FindDomainByName("sIZE")}),
            (Longs{1, 0, 2, 1, 2, 1, 1, 2, 2, 2, 2, 2, 2}));
  std::string code = "x", desc = "y", value;
  EXPECT_EQ(t.GetDomain(1, code, desc) + "|" + code + "|" + desc, "COLOUR|C1|Colours");
  EXPECT_EQ(t.GetDomain(2, code, desc) + "|" + code + "|" + desc, "SIZE||");
  EXPECT_EQ(t.GetDomItemProperty(1, 2, 2, value) + "|" + value, "SHADE| dark red");
  EXPECT_EQ(t.TransportDoc(),
            "<TALVEN><DOMAIN><COLOUR CODE=\"C1\" DESC=\"Colours\"><ITEM/><ITEM><CODE>R</CODE><SHADE> dark red</SHADE>"
            "</ITEM></COLOUR><SIZE><ITEM/></SIZE></DOMAIN><PROPERTY_DOMAINS/></TALVEN>");
  t.RootName("TALVEN");
  EXPECT_EQ((Longs{t.CountDomains(), t.AddDomain("Size")}), (Longs{0, 1})) << "a new document numbers afresh";
}

TEST(Domains, LookupsLeaveTheirKeysBehind) {
  Transport t;
  // Handles and names share the key space; under "1" stands an element, which is no number.
  EXPECT_EQ((Longs{t.FindDomainByName("Unknown"), t.DomainExists("UNKNOWN"), t.AddDomain("unknown"), t.DomainExists("1"),
                   t.AddDomain("Colour"), t.DomainExists("1")}),
            (Longs{0, vbTrue, 0, vbFalse, 1, vbTrue}));

  // A property name looked up, or used once already, fails after its element and count are in.
  t.AddDomainItem(1);
  EXPECT_EQ(t.FindDomItemPropByName(1, 1, "shade"), 0);
  EXPECT_AUTOMATION_ERROR(t.AddDomainProperty(1, 1, "Shade", "dark"), errDuplicateKey, "AddDomainProperty: " + kDuplicate);
  EXPECT_EQ(t.AddDomainProperty(1, 1, "Code", "R"), 2);
  EXPECT_AUTOMATION_ERROR(t.AddDomainProperty(1, 1, "code", "G"), errDuplicateKey, "AddDomainProperty: " + kDuplicate);
  std::string value, code, desc;
  EXPECT_EQ(std::to_string(t.CountDomItemProperties(1, 1)) + t.GetDomItemProperty(1, 1, 3, value) + value, "3CODEG");

  // An unknown handle's key stays behind, so domain 3 collides once the counter reaches it, after
  // its element went in.
  EXPECT_THROW(t.GetDomain(3, code, desc), AutomationError);
  EXPECT_EQ(t.AddDomain("Size"), 2);
  EXPECT_AUTOMATION_ERROR(t.AddDomain("Shape"), errDuplicateKey, "AddDomain: " + kDuplicate);
  EXPECT_EQ((Longs{t.AddDomain("Height"), t.CountDomains()}), (Longs{4, 3}));
  EXPECT_NE(t.TransportDoc().find("<SIZE/><SHAPE/><HEIGHT/>"), std::string::npos);
}

TEST(Domains, DicKeyExistsAnswersForAnyDictionary) {
  Transport t;
  Dictionary text(TextCompare), binary;
  text.Add("Key", Variant());
  binary.Add("Key", Variant());
  EXPECT_EQ((Longs{t.DicKeyExists(&text, "KEY"), t.DicKeyExists(&binary, "KEY"), t.DicKeyExists(nullptr, "Key")}),
            (Longs{vbTrue, vbFalse, vbFalse}));
}

TEST(PropertyDomains, HandlesInterleaveWithComponentHandles) {
  Transport t;
  // Names and handles have keys of their own: "1" names no link.
  EXPECT_EQ((Longs{t.AddPropDomain("State", "States"), t.AddComponent(0, "A"), t.AddComponent(0, "B"),
                   t.AddCollection(2, "C"), t.AddPropDomain("Colour", "Colour"), t.AddPropDomain("COLOUR", "Other"),
                   t.CountPropDomains(), t.AddComponent(4, "D"), t.FindPropDomainByPropName("state"),
                   t.FindPropDomainByPropName("1"), t.CountCompChildren(0)}),
            (Longs{1, 2, 3, 4, 5, 0, 2, 6, 1, 0, 2}));
  std::string domain = "kept";
  EXPECT_EQ(t.GetPropDomain(5, domain) + "|" + domain, "COLOUR|Colour");
  // A link is no component, and a component no link.
  EXPECT_THROW(t.GetComponentStatus(5), AutomationError);
  EXPECT_THROW(t.GetPropDomain(2, domain), AutomationError);
}

TEST(PropertyDomains, KeysLeftBehindTakeNamesAndHandles) {
  Transport t;
  EXPECT_EQ((Longs{t.FindPropDomainByPropName("Size"), t.AddPropDomain("size", "Sizes")}), (Longs{0, 0}));
  // Handle 1 looked up before it is issued: the link collides after its element went in.
  std::string domain;
  ErrorOf([&] { t.GetPropDomain(1, domain); });
  EXPECT_EQ(ErrorOf([&] { t.AddPropDomain("State", "States"); }).number(), errDuplicateKey);
  EXPECT_EQ((Longs{t.CountPropDomains(), t.AddComponent(0, "A")}), (Longs{0, 2}));
  EXPECT_EQ(t.TransportDoc(), "<TALVEN><DOMAIN/><PROPERTY_DOMAINS><STATE>States</STATE></PROPERTY_DOMAINS>"
                              "<COMPONENT><A/></COMPONENT></TALVEN>");
}

}  // namespace
}  // namespace varnex
