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
}

TEST(Prototypes, FailuresKeepTheListAndRepeatedNamesFailOnReading) {
  Transport t;
  const Long visits = t.AddCollection(0, "visits");
  EXPECT_THROW(t.AddCompPrototypeProperty(visits, "two words"), AutomationError);
  EXPECT_EQ(xml::Serialize(testing::Internals(t).NodeOf(visits)), "<VISITS><PROTOTYPE/></VISITS>");
  t.AddCompPrototypeProperty(visits, "colour", "red");
  t.AddCompPrototypeProperty(visits, "Colour", "blue");
  EXPECT_AUTOMATION_ERROR_FROM(t.GetCompPrototypeProperties(visits), errDuplicateKey, "Transport",
                               "GetCompPrototypeProperties: This key is already associated with an element of this collection");
}

}  // namespace
}  // namespace varnex
