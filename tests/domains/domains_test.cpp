// Domains, their items and item properties: numbering, counts, reading back, and the one key
// space in which lookups leave their keys behind.
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

constexpr const char* kDuplicateKey = "This key is already associated with an element of this collection";

TEST(Domains, NumberingCountsAndReadingBack) {
  Transport transport;
  EXPECT_EQ(transport.CountDomains(), 0);
  EXPECT_EQ(transport.AddDomain("Colour", "C1", "Colours"), 1);
  EXPECT_EQ(transport.AddDomain("Size"), 2);
  EXPECT_EQ(transport.CountDomains(), 2);
  EXPECT_EQ(transport.CountDomItems(2), 0);

  // Item numbers restart in every domain; property numbers in every item.
  EXPECT_EQ(transport.AddDomainItem(1), 1);
  EXPECT_EQ(transport.AddDomainItem(1), 2);
  EXPECT_EQ(transport.AddDomainItem(2), 1);
  EXPECT_EQ(transport.AddDomainProperty(1, 2, "Code", "R"), 1);
  EXPECT_EQ(transport.AddDomainProperty(1, 2, "Shade", "  dark red "), 2);
  EXPECT_EQ(transport.AddDomainProperty(2, 1, "Code", "XL"), 1);
  EXPECT_EQ(transport.CountDomItems(1), 2);
  EXPECT_EQ(transport.CountDomItemProperties(1, 2), 2);
  EXPECT_EQ(transport.CountDomItemProperties(1, 1), 0);
  EXPECT_EQ(transport.CountDomItemProperties(7, 7), 0);

  std::string code = "x", desc = "y";
  EXPECT_EQ(transport.GetDomain(1, code, desc), "COLOUR");
  EXPECT_EQ(code, "C1");
  EXPECT_EQ(desc, "Colours");
  EXPECT_EQ(transport.GetDomain(2, code, desc), "SIZE");
  EXPECT_EQ(code, "");
  EXPECT_EQ(desc, "");

  std::string value;
  EXPECT_EQ(transport.GetDomItemProperty(1, 2, 2, value), "SHADE");
  EXPECT_EQ(value, "  dark red ");
  EXPECT_EQ(transport.FindDomItemPropByName(1, 2, "shade"), 2);
  EXPECT_EQ(transport.FindDomainByName("sIZE"), 2);

  EXPECT_EQ(transport.TransportDoc(),
            "<TALVEN><DOMAIN><COLOUR CODE=\"C1\" DESC=\"Colours\"><ITEM/><ITEM><CODE>R</CODE>"
            "<SHADE>  dark red </SHADE></ITEM></COLOUR><SIZE><ITEM><CODE>XL</CODE></ITEM></SIZE>"
            "</DOMAIN><PROPERTY_DOMAINS/></TALVEN>");
}

TEST(Domains, NamesDifferingOnlyInCaseAreOneDomain) {
  Transport transport;
  EXPECT_EQ(transport.AddDomain("colour"), 1);
  const std::string before = transport.TransportDoc();
  EXPECT_EQ(transport.AddDomain("COLOUR", "code"), 0);
  EXPECT_EQ(transport.TransportDoc(), before);
  EXPECT_EQ(transport.CountDomains(), 1);
  EXPECT_EQ(transport.AddDomain("Size"), 2);  // the refused name used no handle
}

TEST(Domains, ResetStartsAgain) {
  Transport transport;
  transport.AddDomain("A");
  transport.AddDomainItem(1);
  transport.AddDomainProperty(1, 1, "P", "v");
  transport.TransportDoc("<TALVEN/>");
  EXPECT_EQ(transport.CountDomains(), 0);
  EXPECT_EQ(transport.CountDomItems(1), 0);
  EXPECT_EQ(transport.DomainExists("A"), vbFalse);
  EXPECT_EQ(transport.AddDomain("B"), 1);
  transport.RootName("OTHER");
  EXPECT_EQ(transport.AddDomain("B"), 1);
  EXPECT_EQ(transport.TransportDoc(), "<OTHER><DOMAIN><B/></DOMAIN><PROPERTY_DOMAINS/></OTHER>");
}

TEST(Domains, LookupsLeaveTheirKeysBehind) {
  Transport transport;
  // An unknown name looked up once counts as a domain from then on.
  EXPECT_EQ(transport.FindDomainByName("Unknown"), 0);
  EXPECT_EQ(transport.DomainExists("UNKNOWN"), vbTrue);
  EXPECT_EQ(transport.AddDomain("unknown"), 0);
  EXPECT_EQ(transport.CountDomains(), 0);

  // Handles and names share the key space.
  EXPECT_EQ(transport.DomainExists("1"), vbFalse);
  EXPECT_EQ(transport.AddDomain("Colour"), 1);
  EXPECT_EQ(transport.DomainExists("1"), vbTrue);
  // Under "1" stands domain 1's element, which is no number.
  EXPECT_AUTOMATION_ERROR(transport.FindDomainByName("1"), errTypeMismatch, "FindDomainByName: Type mismatch");

  // An unknown property name looked up makes a later property of that name a duplicate, after
  // its element and the raised count are in place.
  transport.AddDomainItem(1);
  EXPECT_EQ(transport.FindDomItemPropByName(1, 1, "shade"), 0);
  EXPECT_AUTOMATION_ERROR(transport.AddDomainProperty(1, 1, "Shade", "dark"), errDuplicateKey,
                          std::string("AddDomainProperty: ") + kDuplicateKey);
  EXPECT_EQ(transport.CountDomItemProperties(1, 1), 1);
  std::string value;
  EXPECT_EQ(transport.GetDomItemProperty(1, 1, 1, value), "SHADE");
  EXPECT_EQ(value, "dark");
  EXPECT_EQ(transport.FindDomItemPropByName(1, 1, "SHADE"), 0);

  // The same for a second property of one name on one item.
  EXPECT_EQ(transport.AddDomainProperty(1, 1, "Code", "R"), 2);
  EXPECT_AUTOMATION_ERROR(transport.AddDomainProperty(1, 1, "code", "G"), errDuplicateKey,
                          std::string("AddDomainProperty: ") + kDuplicateKey);
  EXPECT_EQ(transport.CountDomItemProperties(1, 1), 3);
  EXPECT_EQ(transport.FindDomItemPropByName(1, 1, "Code"), 2);
  EXPECT_EQ(transport.GetDomItemProperty(1, 1, 3, value), "CODE");
  EXPECT_EQ(value, "G");
}

TEST(Domains, UnknownHandlesFailUnderEachPrefix) {
  Transport transport;
  transport.AddDomain("Colour");
  std::string code = "kept", desc = "kept", value = "kept";
  const struct {
    const char* prefix;
    std::function<void()> call;
  } cases[] = {
      {"GetDomain", [&] { transport.GetDomain(3, code, desc); }},
      {"AddDomainItem", [&] { transport.AddDomainItem(4); }},
      {"AddDomainProperty", [&] { transport.AddDomainProperty(1, 1, "P", "v"); }},
      {"GetDomItemProperty", [&] { transport.GetDomItemProperty(1, 1, 1, value); }},
      {"GetDomItemProperty", [&] { transport.GetDomItemProperty(0, 0, 0, value); }},
  };
  for (const auto& c : cases) {
    const auto error = ErrorOf(c.call);
    EXPECT_EQ(error.number(), errObjectRequired);
    EXPECT_EQ(error.source(), kRuntimeSource);
    EXPECT_EQ(error.description(), std::string(c.prefix) + ": Object required");
  }
  EXPECT_EQ(code, "kept");
  EXPECT_EQ(desc, "kept");
  EXPECT_EQ(value, "kept");
  // Nothing was added by the failures that came before any element existed.
  EXPECT_EQ(transport.TransportDoc(), "<TALVEN><DOMAIN><COLOUR/></DOMAIN><PROPERTY_DOMAINS/></TALVEN>");

  // The lookups of handles 3 and 4 left their keys: domain 2 is made, then domain 3 collides
  // after its element is appended and the counter has moved on, and so does domain 4.
  EXPECT_EQ(transport.AddDomain("Size"), 2);
  EXPECT_AUTOMATION_ERROR(transport.AddDomain("Shape"), errDuplicateKey, std::string("AddDomain: ") + kDuplicateKey);
  ErrorOf([&] { transport.AddDomain("Weight"); });
  EXPECT_EQ(transport.AddDomain("Height"), 5);
  EXPECT_EQ(transport.CountDomains(), 3);
  EXPECT_EQ(transport.DomainExists("Shape"), vbFalse);
  EXPECT_EQ(transport.TransportDoc(),
            "<TALVEN><DOMAIN><COLOUR/><SIZE/><SHAPE/><WEIGHT/><HEIGHT/></DOMAIN><PROPERTY_DOMAINS/></TALVEN>");
}

TEST(Domains, InvalidNamesFailAtElementCreation) {
  Transport transport;
  for (const char* name : {"", "1abc", "two words"}) {
    const auto error = ErrorOf([&] { transport.AddDomain(name); });
    EXPECT_EQ(error.number(), errXml);
    EXPECT_EQ(error.description().rfind("AddDomain: ", 0), 0u) << error.description();
  }
  EXPECT_EQ(transport.AddDomain("Colour"), 1);  // no handle was used up
  transport.AddDomainItem(1);
  const auto error = ErrorOf([&] { transport.AddDomainProperty(1, 1, "", "v"); });
  EXPECT_EQ(error.number(), errXml);
  EXPECT_EQ(transport.CountDomItemProperties(1, 1), 0);
  // A name that is taken is refused before its text is checked: "1" is domain 1's handle key.
  EXPECT_EQ(transport.AddDomain("1"), 0);
}

TEST(Domains, DicKeyExistsAnswersForAnyDictionary) {
  Transport transport;
  Dictionary text(TextCompare);
  text.Add("Key", Variant(Long{1}));
  Dictionary binary;
  binary.Add("Key", Variant());
  EXPECT_EQ(transport.DicKeyExists(&text, "KEY"), vbTrue);
  EXPECT_EQ(transport.DicKeyExists(&binary, "KEY"), vbFalse);
  EXPECT_EQ(transport.DicKeyExists(&binary, "Key"), vbTrue);
  EXPECT_EQ(transport.DicKeyExists(nullptr, "Key"), vbFalse);  // no dictionary: False, no error
}

}  // namespace
}  // namespace varnex
