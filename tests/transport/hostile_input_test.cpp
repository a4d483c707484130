// Input a host may pass on from the other side of an exchange: fragments that cannot be attached,
// text with NUL characters, the handle counter at its end, handles and positions far out of range,
// invalid names of every kind, invalid UTF-8, entity definitions, very many attributes. Every
// operation answers or raises an automation error, and the document's text always loads again.
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;
using testing::Loads;
using testing::Xml;

TEST(HostileArguments, AttachmentsThatCannotStandInsideAnElementAddNothing) {
  const struct { const char* fragment; Boolean persist; Long number; const char* description; } cases[] = {
      {"<?xml version=\"1.0\"?><N/>", vbFalse, errXml,
       "AddCompAttachment: The node '<?xml version=\"1.0\"?>' can only stand at the start of a document."},
      {"<!DOCTYPE N><N/>", vbFalse, errXml,
       "AddCompAttachment: The node '<!DOCTYPE N>' can only stand at the start of a document."},
      {"<!-- c --><N/>", vbTrue, errObjectDoesntSupport,
       "AddCompAttachment: Object doesn't support this property or method"},
      {"<?p x?><N/>", 1, errObjectDoesntSupport, "AddCompAttachment: Object doesn't support this property or method"},
      {"<?xml version=\"1.0\"?><N/>", vbTrue, errObjectDoesntSupport,
       "AddCompAttachment: Object doesn't support this property or method"},
  };
  for (const auto& c : cases) {
    Transport t;
    const Long h = t.AddComponent(0, "Site");
    EXPECT_AUTOMATION_ERROR(t.AddCompAttachment(h, c.fragment, c.persist), c.number, c.description);
    // "ATTACHMENTS" was made before the fragment was refused, and stays; the text still loads.
    EXPECT_EQ(Xml(t, h), "<SITE><ATTACHMENTS/></SITE>") << c.fragment;
    Transport reloaded;
    reloaded.TransportDoc(t.TransportDoc());
    EXPECT_EQ(reloaded.GenerateTransportDoc(tmShort), t.GenerateTransportDoc(tmShort));
  }
}

// Every operation that takes text refuses a NUL in any of its text arguments with error 5 under
// its name, and changes nothing.
TEST(HostileArguments, TextWithNulIsRefusedByEveryOperation) {
  const std::string nul("a\0b", 3);
  const struct { const char* prefix; std::function<void(Transport&, Long)> call; } cases[] = {
      {"GetTransportDoc", [&](Transport& t, Long) { t.TransportDoc("<TALVEN>" + nul + "</TALVEN>"); }},
      {"LetRootName", [&](Transport& t, Long) { t.RootName(nul); }},
      {"AddComponent", [&](Transport& t, Long) { t.AddComponent(0, nul); }},
      {"AddCollection", [&](Transport& t, Long h) { t.AddCollection(h, nul); }},
      {"FindChildCompByName", [&](Transport& t, Long) { t.FindChildCompByName(0, "SITE" + nul); }},
      {"AddCompProperty", [&](Transport& t, Long h) { t.AddCompProperty(h, "P", nul); }},
      {"AddCompProperty", [&](Transport& t, Long h) { t.AddCompProperty(h, "P", "v", csNew, nul); }},
      {"AddCompProperty", [&](Transport& t, Long h) { t.AddCompProperty(h, nul, "v"); }},
      {"FindCompPropertyByName", [&](Transport& t, Long h) { t.FindCompPropertyByName(h, "NAME" + nul); }},
      {"ModifyCompProperty", [&](Transport& t, Long h) { t.ModifyCompProperty(h, 1, nul); }},
      {"GetCompAttribute", [&](Transport& t, Long h) { t.GetCompAttribute(h, "REGION" + nul); }},
      {"AddCompAttribute", [&](Transport& t, Long h) { t.AddCompAttribute(h, "REGION", nul); }},
      {"AddCompAttachment", [&](Transport& t, Long h) { t.AddCompAttachment(h, "<N>" + nul + "</N>"); }},
      {"GetCompAttachment", [&](Transport& t, Long h) { t.GetCompAttachment(h, "NOTE" + nul); }},
      {"AddCompPrototypeProperty", [&](Transport& t, Long h) { t.AddCompPrototypeProperty(h + 1, "P", nul); }},
      {"MergeDocument", [&](Transport& t, Long) { t.MergeDocument("<TALVEN>" + nul + "</TALVEN>", 0); }},
      {"UpdateDocument", [&](Transport& t, Long) { t.UpdateDocument("<TALVEN>" + nul + "</TALVEN>"); }},
      {"AddDomain", [&](Transport& t, Long) { t.AddDomain("D", nul); }},
      {"AddDomainProperty", [&](Transport& t, Long) { t.AddDomainProperty(1, 1, "CODE", nul); }},
      {"DomainExists", [&](Transport& t, Long) { t.DomainExists("RESULT" + nul); }},
      {"FindDomainByName", [&](Transport& t, Long) { t.FindDomainByName("RESULT" + nul); }},
      {"FindDomItemPropByName", [&](Transport& t, Long) { t.FindDomItemPropByName(1, 1, "CODE" + nul); }},
      {"AddPropDomain", [&](Transport& t, Long) { t.AddPropDomain("P", nul); }},
      {"FindPropDomainByPropName", [&](Transport& t, Long) { t.FindPropDomainByPropName("P" + nul); }},
  };
  for (const auto& c : cases) {
    Transport t;
    testing::BuildSample(t);
    const std::string before = t.TransportDoc();
    EXPECT_AUTOMATION_ERROR(c.call(t, testing::kSite), errInvalidProcedureCall,
                            std::string(c.prefix) + ": Invalid procedure call or argument");
    EXPECT_EQ(t.TransportDoc(), before) << c.prefix;
  }
}

TEST(HostileArguments, HandleCounterAtItsEndOverflows) {
  Transport t;
  const Long site = t.AddComponent(0, "Site");
  testing::Internals(t).last_handle = std::numeric_limits<Long>::max();
  EXPECT_AUTOMATION_ERROR(t.AddComponent(0, "Next"), errOverflow, "AddComponent: Overflow");
  EXPECT_AUTOMATION_ERROR(t.AddCollection(site, "Next"), errOverflow, "AddCollection: Overflow");
  EXPECT_AUTOMATION_ERROR(t.AddPropDomain("P", "D"), errOverflow, "AddPropDomain: Overflow");
  EXPECT_AUTOMATION_ERROR(t.MergeDocument("<TALVEN><COMPONENT><X/></COMPONENT></TALVEN>", 0), errOverflow,
                          "MergeDocument: MergeTransportIn: RecurseComponents: AddComponent: Overflow");
  EXPECT_EQ(testing::Internals(t).last_handle, std::numeric_limits<Long>::max());
  // The handles issued before still answer, and the document's text still loads.
  EXPECT_EQ(t.GetComponentStatus(site), csNormal);
  EXPECT_TRUE(Loads(t.TransportDoc()));
}

TEST(HostileArguments, HandlesAndPositionsFarOutOfRangeFailCleanly) {
  Transport t;
  const Long site = t.AddComponent(0, "Site");
  t.AddCompProperty(site, "NAME", "North");
  std::string name, value, original;
  enComponentStatus status;
  enComponentType type;
  for (const Long bad : {-1, -2147483647 - 1, 2, 1000000, 2147483647}) {
    EXPECT_EQ(ErrorOf([&] { t.GetComponent(bad, name, status, type); }).number(), errObjectRequired) << bad;
    EXPECT_EQ(ErrorOf([&] { t.AddComponent(bad, "X"); }).number(), errObjectRequired) << bad;
    EXPECT_EQ(ErrorOf([&] { t.GetCompProperty(site, bad, value, status, original); }).number() != 0, true);
    EXPECT_EQ(ErrorOf([&] { t.DeleteComponent(bad); }).number() != 0, true);
    EXPECT_EQ(t.CountCompChildren(bad), 0) << bad;
    EXPECT_EQ(ErrorOf([&] { t.GetDomain(bad, name, value); }).number(), errObjectRequired) << bad;
  }
  EXPECT_TRUE(Loads(t.TransportDoc()));
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
    EXPECT_EQ(testing::PropertiesOf(reloaded, 1) + reloaded.GetCompAttribute(1, "A"),
              "1 P=" + value + "/" + value + "/csNew;" + value);
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
    ASSERT_EQ(t.CountCompChildren(0), 1);
    const std::string read = testing::PropertiesOf(t, 1);  // "1 P=" and the value, then "//csNormal;"
    EXPECT_LT(read.size(), 4u + 16u + 11u) << read;        // the reference stays a reference
    EXPECT_EQ(read.find("root:"), std::string::npos);
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

}  // namespace
}  // namespace varnex
