// The error contract of the operations: for each failing call, the number, source and
// description that reach the caller. One table, one test body.
#include <functional>

#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::kSite;
using testing::kVisit;
using testing::kVisits;
constexpr Long kUnknown = 99;

struct Row { const char* what; std::function<void(Transport&)> call; Long number; const char* source; std::string description; };

const std::string kNameError = " is not a valid XML element name.";
const std::string kDuplicate = "This key is already associated with an element of this collection";

const Row kRows[] = {
    // Unknown handles: most operations translate 424 into "Invalid Handle".
    {"AddComponent", [](Transport& t) { t.AddComponent(kUnknown, "x"); }, errObjectRequired, kRuntimeSource, "AddComponent: Invalid Handle"},
    {"AddCollection", [](Transport& t) { t.AddCollection(-1, "x"); }, errObjectRequired, kRuntimeSource, "AddCollection: Invalid Handle"},
    {"GetComponent", [](Transport& t) { std::string n; enComponentStatus s; enComponentType ty; t.GetComponent(kUnknown, n, s, ty); },
     errObjectRequired, kRuntimeSource, "GetComponent: Invalid Handle"},
    {"FindChildCompByName", [](Transport& t) { t.FindChildCompByName(kUnknown, "x"); }, errObjectRequired, kRuntimeSource, "FindChildCompByName: Invalid Handle"},
    {"GetComponentStatus", [](Transport& t) { t.GetComponentStatus(kUnknown); }, errObjectRequired, kRuntimeSource, "GetComponentStatus: Invalid Handle"},
    {"GetComponentStatus of a link", [](Transport& t) { t.GetComponentStatus(4); }, errObjectRequired, kRuntimeSource, "GetComponentStatus: Invalid Handle"},
    {"AddCompProperty", [](Transport& t) { t.AddCompProperty(kUnknown, "a", "1"); }, errObjectRequired, kRuntimeSource, "AddCompProperty: Invalid Handle"},
    {"GetCompProperty", [](Transport& t) { std::string v, o; enComponentStatus s; t.GetCompProperty(kSite, 9, v, s, o); },
     errObjectRequired, kRuntimeSource, "GetCompProperty: Invalid Handle"},
    {"GetCompPropStatus", [](Transport& t) { t.GetCompPropStatus(kUnknown, 1); }, errObjectRequired, kRuntimeSource, "GetCompPropStatus: Invalid Handle"},
    {"FindCompPropertyByName", [](Transport& t) { t.FindCompPropertyByName(kUnknown, "a"); }, errObjectRequired, kRuntimeSource, "FindCompPropertyByName: Invalid Handle"},
    // ... some keep the plain description, or carry no prefix at all, or a misspelt one.
    {"ModifyCompProperty", [](Transport& t) { t.ModifyCompProperty(kSite, 9, "x"); }, errObjectRequired, kRuntimeSource, "ModifyCompProperty: Object required"},
    {"ChildOfCollection", [](Transport& t) { t.ChildOfCollection(kUnknown); }, errObjectRequired, kRuntimeSource, "ChiildOfCollection: Object required"},
    {"ChildOfCollection of the root", [](Transport& t) { t.ChildOfCollection(0); }, errObjectNotSet, kRuntimeSource,
     "ChiildOfCollection: Object variable or With block variable not set"},
    {"RemoveComponentStatus", [](Transport& t) { t.RemoveComponentStatus(kUnknown); }, errObjectRequired, kRuntimeSource, "Object required"},
    {"AddCompAttachment", [](Transport& t) { t.AddCompAttachment(kUnknown, "<A/>"); }, errObjectRequired, kRuntimeSource, "AddCompAttachment: Object required"},
    {"GetCompAttachment", [](Transport& t) { t.GetCompAttachment(kUnknown, "NOTE"); }, errObjectRequired, kRuntimeSource, "GetCompAttachment: Object required"},
    {"GetPropDomain", [](Transport& t) { std::string d; t.GetPropDomain(kSite, d); }, errObjectRequired, kRuntimeSource, "Object required"},
    {"GetDomain", [](Transport& t) { std::string c, d; t.GetDomain(3, c, d); }, errObjectRequired, kRuntimeSource, "GetDomain: Object required"},
    {"AddDomainItem", [](Transport& t) { t.AddDomainItem(9); }, errObjectRequired, kRuntimeSource, "AddDomainItem: Object required"},
    {"GetDomItemProperty", [](Transport& t) { std::string v; t.GetDomItemProperty(1, 1, 9, v); }, errObjectRequired, kRuntimeSource,
     "GetDomItemProperty: Object required"},
    // Class errors: number 0x80040201, the class as source, a fixed description.
    {"GetComponentXML", [](Transport& t) { t.GetComponentXML(kUnknown); }, errClass, "Transport", "Error retrieving component xml."},
    {"GetComponentXML of the root", [](Transport& t) { t.GetComponentXML(0); }, errClass, "Transport", "Error retrieving component xml."},
    {"GetCompAttribute", [](Transport& t) { t.GetCompAttribute(kUnknown, "ID"); }, errClass, "Transport", "GetCompAttribute: Invalid Handle"},
    {"AddCompAttribute", [](Transport& t) { t.AddCompAttribute(kUnknown, "ID", "1"); }, errClass, "Transport", "AddCompAttribute: Invalid Handle"},
    {"AddCompAttachment of bad XML", [](Transport& t) { t.AddCompAttachment(kSite, "<open>"); }, errClass, "Transport",
     "AddCompAttachment: Invalid XML supplied."},
    {"GetCompAttachment by another case", [](Transport& t) { t.GetCompAttachment(kSite, "note"); }, errClass, "Transport",
     "GetCompAttachment: Attachment not found."},
    {"AddCompPrototypeProperty on a component", [](Transport& t) { t.AddCompPrototypeProperty(kVisit, "a"); }, errClass, "Transport",
     "AddCompPrototypeProperty: Invalid handle.  Handle must be a collection."},
    // The prototype operations name their class as source, whatever the error.
    {"AddCompPrototypeProperty", [](Transport& t) { t.AddCompPrototypeProperty(kUnknown, "a"); }, errObjectRequired, "Transport",
     "AddCompPrototypeProperty: Invalid Handle."},
    {"GetCompPrototypeProperties", [](Transport& t) { t.GetCompPrototypeProperties(kUnknown); }, errObjectRequired, "Transport",
     "GetCompPrototypeProperties: Invalid Handle."},
    {"AddCompPrototypeProperty with a blank", [](Transport& t) { t.AddCompPrototypeProperty(kVisits, "two words"); }, errXml, "Transport",
     "AddCompPrototypeProperty: The name 'TWO WORDS'" + kNameError},
    // Names that are no XML names.
    {"AddComponent with a blank", [](Transport& t) { t.AddComponent(0, "two words"); }, errXml, kRuntimeSource, "AddComponent: The name 'TWO WORDS'" + kNameError},
    {"AddCollection without a name", [](Transport& t) { t.AddCollection(0, ""); }, errXml, kRuntimeSource, "AddCollection: The name ''" + kNameError},
    {"AddCompProperty with a blank", [](Transport& t) { t.AddCompProperty(kSite, "two words", "1"); }, errXml, kRuntimeSource,
     "AddCompProperty: The name 'TWO WORDS'" + kNameError},
    {"AddCompAttribute with a blank", [](Transport& t) { t.AddCompAttribute(kSite, "a b", "1"); }, errXml, kRuntimeSource,
     "AddCompAttribute: The name 'a b' is not a valid XML attribute name."},
    {"AddDomain without a name", [](Transport& t) { t.AddDomain(""); }, errXml, kRuntimeSource, "AddDomain: The name ''" + kNameError},
    {"AddPropDomain without a name", [](Transport& t) { t.AddPropDomain("", "x"); }, errXml, kRuntimeSource, "AddPropDomain: The name ''" + kNameError},
    {"RootName", [](Transport& t) { t.RootName("1st"); }, errXml, kRuntimeSource, "LetRootName: The name '1st'" + kNameError},
    // Other runtime errors under the operation's prefix.
    {"GetCompAttribute missing", [](Transport& t) { t.GetCompAttribute(kSite, "id"); }, errInvalidUseOfNull, kRuntimeSource,
     "GetCompAttribute: Invalid use of Null"},
    {"FindDomainByName of a handle", [](Transport& t) { t.FindDomainByName("1"); }, errTypeMismatch, kRuntimeSource, "FindDomainByName: Type mismatch"},
    {"AddDomainProperty twice", [](Transport& t) { t.AddDomainProperty(1, 1, "a", "1"); t.AddDomainProperty(1, 1, "A", "2"); },
     errDuplicateKey, kRuntimeSource, "AddDomainProperty: " + kDuplicate},
};

TEST(ErrorContract, EveryFailingCallRaisesItsNumberSourceAndDescription) {
  for (const Row& row : kRows) {
    Transport t;
    testing::BuildSample(t);
    const AutomationError error = testing::ErrorOf([&] { row.call(t); });
    EXPECT_EQ(error.number(), row.number) << row.what;
    EXPECT_EQ(error.source(), row.source) << row.what;
    EXPECT_EQ(error.description(), row.description) << row.what;
  }
}

}  // namespace
}  // namespace varnex
