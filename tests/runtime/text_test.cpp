// Text rules: upper-casing and case-insensitive comparison of UTF-8 text, and trimming, where
// only the space character is a blank.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "runtime/text.hpp"

namespace varnex {
namespace {

TEST(UCase, MapsLettersOneToOneAndKeepsEverythingElse) {
  const std::pair<std::string, std::string> cases[] = {
      // Longer than one eight-byte block, with the letter boundaries ('@' '`' '[' '{') in every lane.
      {"`abcdefghijklmnopqrstuvwxyz{ABCZ@[0189", "`ABCDEFGHIJKLMNOPQRSTUVWXYZ{ABCZ@[0189"},
      {std::string("a\0b", 3), std::string("A\0B", 3)},
      {"café señor ÿ µ ǆ ǅ ωσς άέ ёж ağır ⓐ ａｂ 𐐨 𞤢", "CAFÉ SEÑOR Ÿ Μ Ǆ Ǆ ΩΣΣ ΆΈ ЁЖ AĞIR Ⓐ ＡＢ 𐐀 𞤀"},
      {"ÀÉ Ω Я 日本語 ١٢ € ✓", "ÀÉ Ω Я 日本語 ١٢ € ✓"},  // no lower-case letters
      {"ĀāĂăĄą Ѡѡ Ḁḁ", "ĀĀĂĂĄĄ ѠѠ ḀḀ"},                // alternating blocks
      {"straße ŉ ǰ ΐ ﬀ ﬁ ᾳ", "STRAßE ŉ ǰ ΐ ﬀ ﬁ ᾳ"},     // several code points upper-cased: kept
      {"xıxſxɐ ȿ ⱥ ⱦ", "XIXSXⱯ Ȿ Ⱥ Ⱦ"},                // the byte length changes
      // Malformed bytes are kept: stray continuations, cut short, over-long, surrogate, too high.
      {"a\xFF" "b\x80\xBF" "z", "A\xFF" "B\x80\xBF" "Z"},
      {"é\xC3", "É\xC3"}, {"\xC3" "é", "\xC3" "É"}, {"\xE2\x82" "a", "\xE2\x82" "A"},
      {"\xC0\xA1" "a\xE0\x81\xA1", "\xC0\xA1" "A\xE0\x81\xA1"},
      {"\xED\xA0\x80" "a\xF4\x90\x80\x80" "a", "\xED\xA0\x80" "A\xF4\x90\x80\x80" "A"}};
  for (const auto& [text, upper] : cases) EXPECT_EQ(UCase(text), upper) << text;
}

// Random texts drawn from ASCII, case pairs of every byte length and malformed bytes: the
// comparison must agree with comparing UCase results, and UCase must be idempotent.
TEST(EqualsIgnoreCase, AgreesWithComparingUpperCasedTexts) {
  const char* pieces[] = {"a", "A", "z", "Z", "@", "`", "é", "É", "ı", "I", "i", "ɐ", "Ɐ",
                          "ⱥ", "Ⱥ", "𐐨", "𐐀", "ß", "\xC3", "\x80", "\xFF", "\xE2\x82", "\xF0\x90"};
  std::mt19937 random(12345);
  std::uniform_int_distribution<std::size_t> pick(0, std::size(pieces) - 1);
  std::uniform_int_distribution<int> length(0, 12);
  const auto draw = [&] {
    std::string text;
    for (int n = length(random); n > 0; --n) text += pieces[pick(random)];
    return text;
  };
  int equal = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string a = draw();
    std::string b = round % 2 ? draw() : UCase(a);
    if (round % 4 == 1) b = a;
    const bool expected = UCase(a) == UCase(b);
    ASSERT_EQ(EqualsIgnoreCase(a, b), expected) << '"' << a << "\" vs \"" << b << '"';
    ASSERT_EQ(EqualsIgnoreCase(b, a), expected);
    ASSERT_EQ(UCase(UCase(a)), UCase(a)) << a;
    equal += expected;
  }
  EXPECT_GT(equal, 5000);
  EXPECT_TRUE(EqualsIgnoreCase("a long element name, more than eight", "A LONG ELEMENT NAME, MORE THAN EIGHT"));
  EXPECT_FALSE(EqualsIgnoreCase(std::string_view("x", 1), std::string_view("x\0", 2)));
}

TEST(TrimBlanks, RemovesOnlyLeadingAndTrailingSpaces) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""}, {"   ", ""}, {" a  b ", "a  b"}, {"\tX\t", "\tX\t"}, {" \n X \r\n ", "\n X \r\n"}, {"\xC2\xA0X ", "\xC2\xA0X"}};
  for (const auto& [text, trimmed] : cases) EXPECT_EQ(TrimBlanks(text), trimmed) << text;
}

}  // namespace
}  // namespace varnex
