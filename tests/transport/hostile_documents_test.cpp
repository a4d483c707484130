// Documents a host may receive from the other side of an exchange: invalid names of every kind,
// invalid UTF-8, entity definitions, very many attributes, very deep trees. Every operation
// answers or raises an automation error, and the document's text always loads again.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/xml.hpp"
#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

bool Loads(const std::string& text) {
  pugi::xml_document parsed;
  return xml::LoadText(parsed, text);
}

TEST(HostileDocuments, InvalidNamesOfEveryClassAreRefusedByTheXmlLayer) {
  const std::vector<std::string> names{
      "",         " ",        "1st",         "-x",          ".x",           "a b",          "a\tb",
      "a<b",      "a>b",      "a&b",         "a\"b",        "a'b",          "a/b",          "a=b",
      "\xC0\x80", "a\xC3",    "\xED\xA0\x80", "a\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xFF",   "\xE2\x80\xA8",
      "a\xCC",    "\xCC\x80x"};  // over-long, truncated, lone surrogates, beyond U+10FFFF, a bare combining mark
  for (const std::string& name : names) {
    Transport t;
    const Long site = t.AddComponent(0, "Site");
    EXPECT_EQ(ErrorOf([&] { t.AddComponent(site, name); }).number(), errXml) << name;
    EXPECT_EQ(ErrorOf([&] { t.AddCollection(site, name); }).number(), errXml) << name;
    EXPECT_NE(ErrorOf([&] { t.AddCompProperty(site, name, "v"); }).number(), 0) << name;
    EXPECT_NE(ErrorOf([&] { t.AddDomain(name); }).number(), 0) << name;
    EXPECT_NE(ErrorOf([&] { t.RootName(name); }).number(), 0) << name;
    const std::string text = t.TransportDoc();  // an invalid root name leaves no document at all
    EXPECT_TRUE(text.empty() || Loads(text)) << name;
  }
}

TEST(HostileDocuments, InvalidUtf8InValuesIsKeptAsGivenAndReloads) {
  const std::vector<std::string> values{"\xC0\x80", "over\xE0\x80\x80long", "\xED\xA0\x80", "cut\xE2\x82",
                                        "\xF0\x9F\x98", "\xFE\xFF", "\x80"};
  for (const std::string& value : values) {
    Transport t;
    const Long site = t.AddComponent(0, "Site");
    t.AddCompProperty(site, "P", value, csNew, value);
    t.AddCompAttribute(site, "A", value);
    Transport reloaded;
    reloaded.TransportDoc(t.TransportDoc());
    std::string read, original;
    enComponentStatus status;
    reloaded.GetCompProperty(1, 1, read, status, original);
    EXPECT_EQ(read, value);
    EXPECT_EQ(original, value);
    EXPECT_EQ(reloaded.GetCompAttribute(1, "A"), value);
  }
}

TEST(HostileDocuments, EntitiesAreNeverExpandedOrFetched) {
  std::string laughs = "<!DOCTYPE TALVEN [<!ENTITY lol \"lol\">";
  for (int i = 1; i <= 9; ++i) {
    laughs += "<!ENTITY lol" + std::to_string(i) + " \"";
    for (int j = 0; j < 10; ++j) laughs += i == 1 ? "&lol;" : "&lol" + std::to_string(i - 1) + ";";
    laughs += "\">";
  }
  laughs += "]><TALVEN><COMPONENT><S><PROPERTIES><P>&lol9;</P></PROPERTIES></S></COMPONENT></TALVEN>";
  const std::string external =
      "<!DOCTYPE TALVEN [<!ENTITY x SYSTEM \"file:///etc/passwd\">]>"
      "<TALVEN><COMPONENT><S><PROPERTIES><P>&x;</P></PROPERTIES></S></COMPONENT></TALVEN>";
  for (const std::string& text : {laughs, external}) {
    // Loading takes the root name from the first node, here the document type: no valid name.
    Transport t;
    EXPECT_EQ(ErrorOf([&] { t.TransportDoc(text); }).number(), errXml);
    t.RootName("TALVEN");
    EXPECT_EQ(t.MergeDocument(text, 0), 1);
    std::string value, original;
    enComponentStatus status;
    ASSERT_EQ(t.CountCompChildren(0), 1);
    t.GetCompProperty(1, 1, value, status, original);
    EXPECT_LT(value.size(), 16u) << value;  // the reference stays a reference
    EXPECT_EQ(value.find("root:"), std::string::npos);
    EXPECT_EQ(t.UpdateDocument(text), 1);
    EXPECT_EQ(ErrorOf([&] { t.AddCompAttachment(1, text); }).number(), errXml);
    EXPECT_TRUE(Loads(t.TransportDoc()));
  }
}

TEST(HostileDocuments, TenThousandAttributesOnOneElement) {
  std::string text = "<TALVEN><COMPONENT><S";
  for (int i = 0; i < 10000; ++i) text += " A" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
  text += "><PROPERTIES><P>v</P></PROPERTIES></S></COMPONENT></TALVEN>";
  Transport t;
  t.TransportDoc(text);
  EXPECT_EQ(t.GetCompAttribute(1, "A9999"), "9999");
  t.ModifyCompProperty(1, 1, "w");
  EXPECT_NE(t.GenerateTransportDoc(tmShort).find(" A9999=\"9999\""), std::string::npos);
  EXPECT_EQ(t.MergeDocument(text, 0), 1);
  EXPECT_EQ(t.UpdateDocument(text), 1);
  EXPECT_EQ(t.GetCompAttribute(2, "A0"), "0");
  EXPECT_TRUE(Loads(t.TransportDoc()));
}

// Ordinary names, 100,000 levels: loading, merging, reading, copying out and deleting through
// every level, each on its own explicit stack.
TEST(HostileDocuments, HundredThousandLevelsLoadMergeAndReadBack) {
  constexpr int kLevels = 100000;
  std::string text = "<TALVEN>";
  for (int i = 0; i < kLevels; ++i) text += "<COMPONENT><N STATUS=\"NEW\"><PROPERTIES><V>x</V></PROPERTIES>";
  for (int i = 0; i < kLevels; ++i) text += "</N></COMPONENT>";
  text += "</TALVEN>";
  Transport t;
  t.TransportDoc(text);
  EXPECT_EQ(t.CountCompChildren(kLevels - 1), 1);
  EXPECT_EQ(t.MergeDocument(text, kLevels), 1);
  EXPECT_EQ(t.CountCompChildren(kLevels), 1);
  std::string value, original;
  enComponentStatus status;
  EXPECT_EQ(t.GetCompProperty(2 * kLevels, 1, value, status, original) + value, "Vx");
  EXPECT_EQ(t.FindChildCompByName(kLevels - 1, "N"), kLevels);
  EXPECT_NE(t.GetComponentXML(1).size(), 0u);
  EXPECT_EQ(t.ChildOfCollection(kLevels), "");
  EXPECT_EQ(t.UpdateDocument(text), 1);
  EXPECT_EQ(t.DeleteComponent(1, vbTrue), vbTrue);
  EXPECT_TRUE(Loads(t.TransportDoc()));
  EXPECT_TRUE(Loads(t.GenerateTransportDoc(tmShort)));
}

}  // namespace
}  // namespace varnex
