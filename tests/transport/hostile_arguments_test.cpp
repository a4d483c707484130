// Arguments a host may pass on from the other side of an exchange: fragments that cannot be
// attached, text with NUL characters, the handle counter at its end, handles and positions far
// out of range.
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;
using testing::Xml;

TEST(HostileArguments, AttachmentsThatCannotStandInsideAnElementAddNothing) {
  struct Case {
    const char* fragment;
    Boolean persist;
    Long number;
    const char* description;
  };
  const std::vector<Case> cases{
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
  for (const Case& c : cases) {
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
  struct Case {
    const char* prefix;
    std::function<void(Transport&, Long)> call;
  };
  const std::vector<Case> cases{
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
  for (const Case& c : cases) {
    Transport t;
    const Long site = t.AddComponent(0, "Site");
    t.AddCompProperty(site, "NAME", "North");
    t.AddCompAttribute(site, "REGION", "east");
    t.AddCompAttachment(site, "<NOTE/>");
    t.AddCollection(site, "Visits");
    const Long domain = t.AddDomain("RESULT");
    t.AddDomainProperty(domain, t.AddDomainItem(domain), "CODE", "P");
    t.AddPropDomain("P", "RESULT");
    const std::string before = t.TransportDoc();
    EXPECT_AUTOMATION_ERROR(c.call(t, site), errInvalidProcedureCall,
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
  pugi::xml_document parsed;
  EXPECT_TRUE(xml::LoadText(parsed, t.TransportDoc()));
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
  pugi::xml_document parsed;
  EXPECT_TRUE(xml::LoadText(parsed, t.TransportDoc()));
}

}  // namespace
}  // namespace varnex
