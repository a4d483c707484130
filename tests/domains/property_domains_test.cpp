// Links from property names to domains: handles shared with components, names compared
// without regard to case, domain names kept as given.
#include <string>

#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

TEST(PropertyDomains, HandlesInterleaveWithComponentHandles) {
  Transport transport;
  EXPECT_EQ(transport.AddPropDomain("State", "States"), 1);
  EXPECT_EQ(transport.CountPropDomains(), 1);
  EXPECT_EQ(transport.AddComponent(0, "A"), 2);
  EXPECT_EQ(transport.AddComponent(0, "B"), 3);
  EXPECT_EQ(transport.AddCollection(2, "C"), 4);
  EXPECT_EQ(transport.AddPropDomain("Colour", "Colour"), 5);
  EXPECT_EQ(transport.CountPropDomains(), 2);
  EXPECT_EQ(transport.AddComponent(4, "D"), 6);

  // A link handle names no component, and a component handle no link.
  const auto error = ErrorOf([&] { transport.GetComponentStatus(5); });
  EXPECT_EQ(error.description(), "GetComponentStatus: Invalid Handle");
  std::string domain = "kept";
  const auto plain = ErrorOf([&] { transport.GetPropDomain(2, domain); });
  EXPECT_EQ(plain.number(), errObjectRequired);
  EXPECT_EQ(plain.description(), "Object required");  // no prefix
  EXPECT_EQ(domain, "kept");
  ErrorOf([&] { transport.GetPropDomain(0, domain); });

  EXPECT_EQ(transport.GetPropDomain(5, domain), "COLOUR");
  EXPECT_EQ(domain, "Colour");
  EXPECT_EQ(transport.FindPropDomainByPropName("state"), 1);
  EXPECT_EQ(transport.FindPropDomainByPropName("COLOUR"), 5);
  EXPECT_EQ(transport.CountCompChildren(0), 2);
}

TEST(PropertyDomains, NamesAreOneKeyWhateverTheirCase) {
  Transport transport;
  EXPECT_EQ(transport.AddPropDomain("colour", "Colours"), 1);
  EXPECT_EQ(transport.AddPropDomain("COLOUR", "Other"), 0);
  EXPECT_EQ(transport.CountPropDomains(), 1);
  EXPECT_EQ(transport.TransportDoc(),
            "<TALVEN><DOMAIN/><PROPERTY_DOMAINS><COLOUR>Colours</COLOUR></PROPERTY_DOMAINS></TALVEN>");
  EXPECT_EQ(transport.AddComponent(0, "A"), 2);  // the refused link used no handle

  // An unknown name looked up once is taken from then on.
  EXPECT_EQ(transport.FindPropDomainByPropName("Size"), 0);
  EXPECT_EQ(transport.AddPropDomain("size", "Sizes"), 0);
  EXPECT_EQ(transport.CountPropDomains(), 1);
}

TEST(PropertyDomains, FailuresAndKeysLeftBehind) {
  Transport transport;
  const auto invalid = ErrorOf([&] { transport.AddPropDomain("", "x"); });
  EXPECT_EQ(invalid.number(), errXml);
  EXPECT_EQ(invalid.description().rfind("AddPropDomain: ", 0), 0u);
  EXPECT_EQ(transport.CountPropDomains(), 0);

  // A link handle looked up before it is issued collides when the counter reaches it: the
  // element is in place and the counter has moved on, the count has not.
  std::string domain;
  ErrorOf([&] { transport.GetPropDomain(1, domain); });
  const auto duplicate = ErrorOf([&] { transport.AddPropDomain("State", "States"); });
  EXPECT_EQ(duplicate.number(), errDuplicateKey);
  EXPECT_EQ(duplicate.description().rfind("AddPropDomain: This key", 0), 0u);
  EXPECT_EQ(transport.CountPropDomains(), 0);
  EXPECT_EQ(transport.FindPropDomainByPropName("State"), 0);
  EXPECT_EQ(transport.AddComponent(0, "A"), 2);
  EXPECT_EQ(transport.TransportDoc(),
            "<TALVEN><DOMAIN/><PROPERTY_DOMAINS><STATE>States</STATE></PROPERTY_DOMAINS>"
            "<COMPONENT><A/></COMPONENT></TALVEN>");
}

TEST(PropertyDomains, ResetClearsLinksAndTheSharedCounter) {
  Transport transport;
  transport.AddComponent(0, "A");
  transport.AddPropDomain("State", "States");
  transport.RootName("TALVEN");
  EXPECT_EQ(transport.CountPropDomains(), 0);
  EXPECT_EQ(transport.FindPropDomainByPropName("State"), 0);
  EXPECT_EQ(transport.AddPropDomain("Size", "Sizes"), 1);
}

}  // namespace
}  // namespace varnex
