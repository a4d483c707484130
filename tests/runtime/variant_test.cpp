#include "varnex/variant.hpp"

#include <gtest/gtest.h>

#include "varnex/automation_error.hpp"

namespace varnex {
namespace {

Long ErrorOf(auto&& call) {
  try {
    call();
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.source(), "Varnex");
    return error.number();
  }
  return 0;
}

TEST(VariantTest, TypesOfTheConstructors) {
  EXPECT_EQ(Variant().VarType(), vbEmpty);
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_EQ(Variant(5).VarType(), vbLong);
  EXPECT_EQ(Variant("x").VarType(), vbString);
  EXPECT_FALSE(Variant("").IsEmpty());
  EXPECT_EQ(Variant(std::make_shared<Object>()).VarType(), vbObject);
  EXPECT_EQ(Variant(std::shared_ptr<Object>()).VarType(), vbObject);
  EXPECT_EQ(Variant::FromBoolean(vbTrue).VarType(), vbBoolean);
  // Any non-zero value is stored as True.
  EXPECT_EQ(Variant::FromBoolean(1).AsLong(), -1);
}

TEST(VariantTest, EmptyConvertsToZeroBlankAndFalse) {
  EXPECT_EQ(Variant().AsLong(), 0);
  EXPECT_EQ(Variant().AsString(), "");
  EXPECT_EQ(Variant().AsBoolean(), vbFalse);
  EXPECT_EQ(Variant().AsObject(), nullptr);
}

TEST(VariantTest, NumericTextRoundsHalfToEven) {
  EXPECT_EQ(Variant("42").AsLong(), 42);
  EXPECT_EQ(Variant("  -7 ").AsLong(), -7);
  EXPECT_EQ(Variant("+3").AsLong(), 3);
  EXPECT_EQ(Variant("2.5").AsLong(), 2);
  EXPECT_EQ(Variant("3.5").AsLong(), 4);
  EXPECT_EQ(Variant("-2.5").AsLong(), -2);
  EXPECT_EQ(Variant("2.51").AsLong(), 3);
  EXPECT_EQ(Variant(".5").AsLong(), 0);
  EXPECT_EQ(Variant("1e3").AsLong(), 1000);
  EXPECT_EQ(Variant("15D-1").AsLong(), 2);
  EXPECT_EQ(Variant("&H10").AsLong(), 16);
  EXPECT_EQ(Variant("&HFFFF").AsLong(), -1);
  EXPECT_EQ(Variant("&H10000").AsLong(), 65536);
  EXPECT_EQ(Variant("&HFFFFFFFF").AsLong(), -1);
  EXPECT_EQ(Variant("&O17").AsLong(), 15);
  EXPECT_EQ(Variant("2147483647").AsLong(), 2147483647);
  EXPECT_EQ(Variant("-2147483648").AsLong(), -2147483647 - 1);
  EXPECT_EQ(Variant("-2147483648.5").AsLong(), -2147483647 - 1);
}

TEST(VariantTest, TextThatIsNoNumberIsATypeMismatch) {
  for (const char* text : {"", " ", "abc", "1x", "1e", "-", ".", "&H", "&HG", "&O8", "inf", "nan", "1 2"}) {
    EXPECT_EQ(ErrorOf([&] { Variant(text).AsLong(); }), errTypeMismatch) << text;
  }
  EXPECT_EQ(ErrorOf([] { Variant("2147483648").AsLong(); }), errOverflow);
  EXPECT_EQ(ErrorOf([] { Variant("2147483647.5").AsLong(); }), errOverflow);
  EXPECT_EQ(ErrorOf([] { Variant("1e999").AsLong(); }), errOverflow);
  EXPECT_EQ(ErrorOf([] { Variant("&H100000000").AsLong(); }), errOverflow);
  EXPECT_EQ(Variant("1e-999").AsLong(), 0);
}

TEST(VariantTest, BooleansConvert) {
  EXPECT_EQ(Variant::FromBoolean(vbTrue).AsString(), "True");
  EXPECT_EQ(Variant::FromBoolean(vbFalse).AsString(), "False");
  EXPECT_EQ(Variant::FromBoolean(vbTrue).AsLong(), -1);
  EXPECT_EQ(Variant(7).AsBoolean(), vbTrue);
  EXPECT_EQ(Variant(0).AsBoolean(), vbFalse);
  EXPECT_EQ(Variant("True").AsBoolean(), vbTrue);
  EXPECT_EQ(Variant("tRUE").AsBoolean(), vbTrue);
  EXPECT_EQ(Variant("FALSE").AsBoolean(), vbFalse);
  EXPECT_EQ(Variant("0").AsBoolean(), vbFalse);
  EXPECT_EQ(Variant("-1").AsBoolean(), vbTrue);
  EXPECT_EQ(Variant("0.25").AsBoolean(), vbTrue);
  for (const char* text : {"", "yes", "Y", "T"}) {
    EXPECT_EQ(ErrorOf([&] { Variant(text).AsBoolean(); }), errTypeMismatch) << text;
  }
}

TEST(VariantTest, ObjectsConvertToNothingElse) {
  const auto object = std::make_shared<Object>();
  const Variant held(object);
  EXPECT_EQ(held.AsObject(), object);
  EXPECT_EQ(ErrorOf([&] { held.AsLong(); }), errTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { held.AsString(); }), errTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { held.AsBoolean(); }), errTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Variant(3).AsObject(); }), errTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Variant("x").AsObject(); }), errTypeMismatch);

  struct Derived : Object {};
  const Variant derived(std::make_shared<Derived>());
  EXPECT_NE(derived.AsObjectOf<Derived>(), nullptr);
  EXPECT_EQ(held.AsObjectOf<Derived>(), nullptr);
}

TEST(VariantTest, LongsPrintInPlainDecimal) {
  EXPECT_EQ(Variant(-12).AsString(), "-12");
  EXPECT_EQ(Variant(2147483647).AsString(), "2147483647");
}

TEST(VariantTest, EqualityComparesTypeAndValue) {
  const auto object = std::make_shared<Object>();
  EXPECT_EQ(Variant("1"), Variant("1"));
  EXPECT_NE(Variant("1"), Variant(1));
  EXPECT_NE(Variant(-1), Variant::FromBoolean(vbTrue));
  EXPECT_EQ(Variant(object), Variant(object));
  EXPECT_NE(Variant(object), Variant(std::make_shared<Object>()));
  EXPECT_EQ(Variant(), Variant());
}

}  // namespace
}  // namespace varnex
