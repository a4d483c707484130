// Trimming and the decimal form of numbers.
#include <gtest/gtest.h>

#include <limits>

#include "runtime/text.hpp"

namespace varnex {
namespace {

TEST(TrimBlanks, RemovesOnlyLeadingAndTrailingSpaces) {
  EXPECT_EQ(TrimBlanks(""), "");
  EXPECT_EQ(TrimBlanks("   "), "");
  EXPECT_EQ(TrimBlanks("  NEW  "), "NEW");
  EXPECT_EQ(TrimBlanks("a b"), "a b");
  EXPECT_EQ(TrimBlanks(" a  b "), "a  b");
  // Tabs, line breaks and non-breaking spaces are not blanks.
  EXPECT_EQ(TrimBlanks("\tX\t"), "\tX\t");
  EXPECT_EQ(TrimBlanks(" \n X \r\n "), "\n X \r\n");
  EXPECT_EQ(TrimBlanks("\xC2\xA0X "), "\xC2\xA0X");
}

TEST(FormatLong, PlainDecimal) {
  EXPECT_EQ(FormatLong(0), "0");
  EXPECT_EQ(FormatLong(42), "42");
  EXPECT_EQ(FormatLong(-7), "-7");
  EXPECT_EQ(FormatLong(1000000), "1000000");
  EXPECT_EQ(FormatLong(std::numeric_limits<Long>::max()), "2147483647");
  EXPECT_EQ(FormatLong(std::numeric_limits<Long>::min()), "-2147483648");
}

}  // namespace
}  // namespace varnex
