// Prototypes: default properties kept on collections.
#include <gtest/gtest.h>

#include "runtime/xml.hpp"
#include "support/errors.hpp"
#include "support/internals.hpp"
#include "varnex/transport.hpp"

namespace varnex {
namespace {

TEST(Prototypes, CollectionsKeepDefaultsInOrderAndComponentsRefuseThem) {
  Transport t;
  const Long visits = t.AddCollection(0, "visits");
  const Long visit = t.AddComponent(visits, "visit");
  EXPECT_EQ(t.AddCompPrototypeProperty(visits, "Colour", "red"), vbTrue);
  t.AddCompPrototypeProperty(visits, "size");
  EXPECT_EQ(xml::Serialize(testing::Internals(t).NodeOf(visits)),
            "<VISITS><COMPONENT><VISIT/></COMPONENT><PROTOTYPE><COLOUR>red</COLOUR><SIZE/></PROTOTYPE></VISITS>");
  Dictionary defaults = t.GetCompPrototypeProperties(visits);
  EXPECT_EQ(defaults.Keys(), (std::vector<std::string>{"COLOUR", "SIZE"}));
  EXPECT_EQ(defaults.Item("COLOUR").AsString(), "red");
  EXPECT_FALSE(defaults.Exists("colour")) << "keys compare exactly";
  EXPECT_EQ(t.GetCompPrototypeProperties(visit).Count(), 0);
  EXPECT_AUTOMATION_ERROR_FROM(t.AddCompPrototypeProperty(visit, "a"), errClass, "Transport",
                               "AddCompPrototypeProperty: Invalid handle.  Handle must be a collection.");
}

TEST(Prototypes, Failures) {
  Transport t;
  const Long visits = t.AddCollection(0, "visits");
  EXPECT_AUTOMATION_ERROR_FROM(t.AddCompPrototypeProperty(99, "a"), errObjectRequired, "Transport", "AddCompPrototypeProperty: Invalid Handle.");
  EXPECT_AUTOMATION_ERROR_FROM(t.GetCompPrototypeProperties(99), errObjectRequired, "Transport", "GetCompPrototypeProperties: Invalid Handle.");
  EXPECT_AUTOMATION_ERROR_FROM(t.AddCompPrototypeProperty(visits, "two words"), errXml, "Transport",
                               "AddCompPrototypeProperty: The name 'TWO WORDS' is not a valid XML element name.");
  EXPECT_EQ(xml::Serialize(testing::Internals(t).NodeOf(visits)), "<VISITS><PROTOTYPE/></VISITS>");
  t.AddCompPrototypeProperty(visits, "colour", "red");
  t.AddCompPrototypeProperty(visits, "Colour", "blue");
  EXPECT_AUTOMATION_ERROR_FROM(t.GetCompPrototypeProperties(visits), errDuplicateKey, "Transport",
                               "GetCompPrototypeProperties: This key is already associated with an element of this collection");
}

}  // namespace
}  // namespace varnex
