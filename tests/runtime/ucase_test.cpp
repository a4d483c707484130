// Upper-casing and case-insensitive comparison of UTF-8 text.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "runtime/text.hpp"

namespace varnex {
namespace {

TEST(UCase, AsciiLettersOnly) {
  EXPECT_EQ(UCase(""), "");
  EXPECT_EQ(UCase("component"), "COMPONENT");
  EXPECT_EQ(UCase("Properties_2 {x} [y] @`~"), "PROPERTIES_2 {X} [Y] @`~");
  // Longer than one eight-byte block, with the letter boundaries in every lane.
  EXPECT_EQ(UCase("`abcdefghijklmnopqrstuvwxyz{ABCZ@[0189"), "`ABCDEFGHIJKLMNOPQRSTUVWXYZ{ABCZ@[0189");
  EXPECT_EQ(UCase(std::string("a\0b", 3)), std::string("A\0B", 3));
}

TEST(UCase, LettersBeyondAsciiOneToOneMappingsOnly) {
  EXPECT_EQ(UCase("café crème"), "CAFÉ CRÈME");
  EXPECT_EQ(UCase("señor ÿ µ"), "SEÑOR Ÿ Μ");
  EXPECT_EQ(UCase("ǆ ǅ"), "Ǆ Ǆ");
  EXPECT_EQ(UCase("αβγ ωσς άέ"), "ΑΒΓ ΩΣΣ ΆΈ");
  EXPECT_EQ(UCase("привет ёж"), "ПРИВЕТ ЁЖ");
  EXPECT_EQ(UCase("ağır ş"), "AĞIR Ş");
  EXPECT_EQ(UCase("ⓐ ａｂ 𐐨 𞤢"), "Ⓐ ＡＢ 𐐀 𞤀");
  // Upper-case letters, digits, symbols and letters without case are left alone.
  EXPECT_EQ(UCase("ÀÉ Ω Я 日本語 ١٢ € ✓"), "ÀÉ Ω Я 日本語 ١٢ € ✓");
  // Blocks where upper- and lower-case letters alternate.
  EXPECT_EQ(UCase("ĀāĂăĄą Ѡѡ Ḁḁ"), "ĀĀĂĂĄĄ ѠѠ ḀḀ");
  // Letters whose upper-case form is several code points stay as they are.
  EXPECT_EQ(UCase("straße"), "STRAßE");
  EXPECT_EQ(UCase("ŉ ǰ ΐ ﬀ ﬁ ᾳ"), "ŉ ǰ ΐ ﬀ ﬁ ᾳ");
  // The byte length may change.
  EXPECT_EQ(UCase("ı"), "I");          // two bytes to one
  EXPECT_EQ(UCase("ſ"), "S");
  EXPECT_EQ(UCase("ɐ ȿ"), "Ɐ Ȿ");      // two bytes to three
  EXPECT_EQ(UCase("ⱥ ⱦ"), "Ⱥ Ⱦ");      // three bytes to two
  EXPECT_EQ(UCase("xıxɐx"), "XIXⱯX");
}

TEST(UCase, MalformedBytesAreKept) {
  EXPECT_EQ(UCase("a\xFF" "b"), "A\xFF" "B");
  EXPECT_EQ(UCase("\x80\xBF" "z"), "\x80\xBF" "Z");          // stray continuation bytes
  EXPECT_EQ(UCase("é\xC3"), "É\xC3");                        // cut short at the end
  EXPECT_EQ(UCase("\xC3" "é"), "\xC3" "É");                  // lead byte without continuation
  EXPECT_EQ(UCase("\xE2\x82" "a"), "\xE2\x82" "A");
  EXPECT_EQ(UCase("\xC0\xA1" "a"), "\xC0\xA1" "A");          // overlong
  EXPECT_EQ(UCase("\xE0\x81\xA1"), "\xE0\x81\xA1");
  EXPECT_EQ(UCase("\xED\xA0\x80" "a"), "\xED\xA0\x80" "A");  // surrogate
  EXPECT_EQ(UCase("\xF4\x90\x80\x80" "a"), "\xF4\x90\x80\x80" "A");  // above U+10FFFF
  EXPECT_EQ(UCase("\xC3\xA9\xC3\xA9\xC3"), "\xC3\x89\xC3\x89\xC3");
}

TEST(EqualsIgnoreCase, AsciiText) {
  EXPECT_TRUE(EqualsIgnoreCase("", ""));
  EXPECT_TRUE(EqualsIgnoreCase("Properties", "PROPERTIES"));
  EXPECT_TRUE(EqualsIgnoreCase("a long element name, more than eight", "A LONG ELEMENT NAME, MORE THAN EIGHT"));
  EXPECT_FALSE(EqualsIgnoreCase("PROPERTIES", "PROPERTIEZ"));
  EXPECT_FALSE(EqualsIgnoreCase("abcdefgh_x", "ABCDEFGH_Y"));
  EXPECT_FALSE(EqualsIgnoreCase("ITEM", "ITEMS"));
  EXPECT_FALSE(EqualsIgnoreCase("", "a"));
  // Only letters fold: '@' and '`' sit next to 'A' and 'a', '[' and '{' next to 'Z' and 'z'.
  EXPECT_FALSE(EqualsIgnoreCase("@", "`"));
  EXPECT_FALSE(EqualsIgnoreCase("[{[{[{[{", "{[{[{[{["));
  EXPECT_FALSE(EqualsIgnoreCase(std::string_view("x", 1), std::string_view("x\0", 2)));
}

TEST(EqualsIgnoreCase, TextBeyondAscii) {
  EXPECT_TRUE(EqualsIgnoreCase("Élément", "éLÉMENT"));
  EXPECT_TRUE(EqualsIgnoreCase("ÿ", "Ÿ"));
  EXPECT_TRUE(EqualsIgnoreCase("Ωμέγα Киев", "ΩΜΈΓΑ КИЕВ"));
  EXPECT_TRUE(EqualsIgnoreCase("straße", "STRAßE"));
  EXPECT_FALSE(EqualsIgnoreCase("straße", "STRASSE"));
  EXPECT_FALSE(EqualsIgnoreCase("é", "e"));
  EXPECT_FALSE(EqualsIgnoreCase("ЁЖ", "ЕЖ"));
  // Texts of different byte lengths can be equal once upper-cased (more in the random test below).
  EXPECT_TRUE(EqualsIgnoreCase("ɐbc", "ⱯBC"));
  // Malformed bytes compare as themselves: one is not the letter it would start.
  EXPECT_FALSE(EqualsIgnoreCase("a\xFF", "A\xFE"));
  EXPECT_FALSE(EqualsIgnoreCase("\xC3" "a", "\xC3\x81"));
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
}

}  // namespace
}  // namespace varnex
