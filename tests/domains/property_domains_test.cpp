// Links from property names to domains: handles shared with components, names compared
// without regard to case, domain names kept as given.
#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

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
