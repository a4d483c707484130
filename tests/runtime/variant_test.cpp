#include "varnex/variant.hpp"

#include <gtest/gtest.h>

#include "support/errors.hpp"

namespace varnex {
namespace {

TEST(VariantTest, EmptyAndBooleansConvertAsTheRuntimeDoes) {
  EXPECT_TRUE(Variant().IsEmpty() && Variant().AsObject() == nullptr);
  // FromBoolean(1): any non-zero value is True.
  EXPECT_EQ((std::vector<Long>{Variant().AsLong(), Variant().AsBoolean(), Variant::FromBoolean(1).AsLong(), Variant(7).AsBoolean(), Variant(-7).AsBoolean()}),
            (std::vector<Long>{0, vbFalse, -1, vbTrue, vbTrue}));
  EXPECT_EQ(Variant().AsString() + "|" + Variant::FromBoolean(vbTrue).AsString() + "|" +
                Variant::FromBoolean(vbFalse).AsString() + "|" + Variant(-12).AsString(),
            "|True|False|-12");
  for (const char* text : {"True", "tRUE", " true ", "-1", "0.25"}) EXPECT_EQ(Variant(text).AsBoolean(), vbTrue) << text;
  for (const char* text : {"fALSE", "0", "0.0"}) EXPECT_EQ(Variant(text).AsBoolean(), vbFalse) << text;
  for (const char* text : {"", "yes", "T"}) EXPECT_AUTOMATION_ERROR(Variant(text).AsBoolean(), errTypeMismatch, "Type mismatch");
}

TEST(VariantTest, NumericTextRoundsHalfToEven) {
  const std::pair<const char*, Long> cases[] = {
      {"42", 42},   {"  -7 ", -7},   {"+3", 3},        {"2.5", 2},         {"3.5", 4},      {"-2.5", -2},
      {".5", 0},    {"2.51", 3},     {"1e3", 1000},    {"15D-1", 2},       {"&H10", 16},    {"&HFFFF", -1},
      {"&O17", 15},  {"\t8\t", 8},  {"&Hff", 255}, {"1e-999", 0},   {"&H10000", 65536}, {"-2147483648.5", -2147483647 - 1}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Variant(text).AsLong(), value) << text;
  for (const char* text : {"", " ", "abc", "1x", "1e", "-", ".", "&H", "&HG", "&O8", "inf", "nan", "1 2"}) {
    EXPECT_AUTOMATION_ERROR(Variant(text).AsLong(), errTypeMismatch, "Type mismatch");
  }
  for (const char* text : {"2147483648", "2147483647.5", "1e999", "&H100000000"}) {
    EXPECT_AUTOMATION_ERROR(Variant(text).AsLong(), errOverflow, "Overflow");
  }
}

TEST(VariantTest, ObjectsConvertToNothingElseAndCompareByIdentity) {
  struct Derived : Object {};
  const auto object = std::make_shared<Derived>();
  const Variant held(object);
  EXPECT_EQ(held.VarType(), vbObject);
  EXPECT_EQ(held.AsObjectOf<Derived>(), object);
  EXPECT_EQ(Variant(std::make_shared<Object>()).AsObjectOf<Derived>(), nullptr);
  for (const auto& convert : std::vector<std::function<void()>>{[&] { held.AsLong(); }, [&] { held.AsString(); },
                                                                 [] { Variant("x").AsObject(); }}) {
    EXPECT_AUTOMATION_ERROR(convert(), errTypeMismatch, "Type mismatch");
  }
  EXPECT_TRUE(held == Variant(object) && Variant() == Variant());
  EXPECT_FALSE(held == Variant(std::make_shared<Derived>()) || Variant("1") == Variant(1) ||
               Variant(-1) == Variant::FromBoolean(vbTrue));
}

}  // namespace
}  // namespace varnex
