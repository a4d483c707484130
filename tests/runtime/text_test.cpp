// Trimming: only the space character is a blank.
#include <gtest/gtest.h>

#include "runtime/text.hpp"

namespace varnex {
namespace {

TEST(TrimBlanks, RemovesOnlyLeadingAndTrailingSpaces) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""}, {"   ", ""}, {" a  b ", "a  b"}, {"\tX\t", "\tX\t"}, {" \n X \r\n ", "\n X \r\n"}, {"\xC2\xA0X ", "\xC2\xA0X"}};
  for (const auto& [text, trimmed] : cases) EXPECT_EQ(TrimBlanks(text), trimmed) << text;
}

}  // namespace
}  // namespace varnex
