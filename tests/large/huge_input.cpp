// Very large input, kept out of the unit suite (CTest label "large"): a million siblings and
// values of 100 MB, through loading, generation, merging, updating and deletion.
#include <gtest/gtest.h>

#include <string>

#include "runtime/xml.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

TEST(HugeInput, AMillionSiblings) {
  constexpr Long kSiblings = 1000000;
  std::string text = "<TALVEN>";
  for (Long i = 0; i < kSiblings; ++i) text += "<COMPONENT><S><PROPERTIES><P>1</P></PROPERTIES></S></COMPONENT>";
  text += "</TALVEN>";
  Transport t;
  t.TransportDoc(text);
  ASSERT_EQ(t.CountCompChildren(0), kSiblings);
  t.ModifyCompProperty(kSiblings, 1, "2");
  EXPECT_NE(t.GenerateTransportDoc(tmShort).find("ORIGINAL=\"1\" STATUS=\"MODIFIED\">2</P>"), std::string::npos);
  EXPECT_EQ(t.UpdateDocument(text), 1);
  EXPECT_EQ(t.DeleteComponent(kSiblings / 2, vbTrue), vbTrue);  // forgotten: cut out at once
  EXPECT_EQ(t.ResetStatus(), 0);
  EXPECT_EQ(t.CountCompChildren(0), kSiblings - 1);
  pugi::xml_document parsed;
  EXPECT_TRUE(xml::LoadText(parsed, t.TransportDoc()));
}

TEST(HugeInput, HundredMegabyteValues) {
  const std::string value(100u << 20, 'v');
  Transport t;
  const Long site = t.AddComponent(0, "Site");
  t.AddCompProperty(site, "P", value);
  t.AddCompAttribute(site, "A", value);
  t.ModifyCompProperty(site, 1, value + "w");
  const std::string text = t.TransportDoc();
  Transport reloaded;
  reloaded.TransportDoc(text);
  std::string read, original;
  enComponentStatus status;
  reloaded.GetCompProperty(1, 1, read, status, original);
  EXPECT_EQ(read.size(), value.size() + 1);
  EXPECT_EQ(original.size(), value.size());
  EXPECT_GT(reloaded.GenerateTransportDoc(tmShort).size(), 3 * value.size());
  EXPECT_EQ(reloaded.UpdateDocument(text), 1);
  EXPECT_EQ(reloaded.MergeDocument(text, 1), 1);
}

}  // namespace
}  // namespace varnex
