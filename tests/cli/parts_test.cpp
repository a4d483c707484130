// Parts of the tool that its command tests reach only in part: positions in a text, the prolog
// left out before the root, path steps, and how an automation error is written.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "cli/component_path.hpp"
#include "cli/document_text.hpp"
#include "cli/failures.hpp"

namespace varnex::cli {
namespace {

TEST(DocumentTextTest, PositionsCountLinesAndCharacters) {
  const std::string text = "<A>\n  <B>\xC3\xA9t\xC3\xA9</C>\n";  // the two-byte "é" counts once
  for (const auto [offset, line, column] : {std::array<std::size_t, 3>{0, 1, 1}, {3, 1, 4}, {4, 2, 1}, {9, 2, 6},
                                            {14, 2, 9}, {99, 3, 1}}) {
    const TextPosition at = PositionOf(text, offset);
    EXPECT_EQ(std::pair(at.line, at.column), std::pair(line, column)) << offset;
  }
}

TEST(DocumentTextTest, LeavesOutWhatStandsBeforeTheRoot) {
  for (const auto& [text, kept] : std::vector<std::pair<std::string, std::string>>{
           {"  \n<A/>", "<A/>"},
           {"\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<A/>", "<A/>"},
           {"<!-- a --><?pi x?>\n<!-- b -->  <A><!-- kept --></A>", "<A><!-- kept --></A>"},
           {"<!DOCTYPE A [<!ELEMENT A ANY>]>\n<A/>", "<A/>"},
           {"<!-- never closed <A/>", "<!-- never closed <A/>"}}) {
    std::string dropped = text;
    DropProlog(dropped);
    EXPECT_EQ(dropped, kept) << text;
  }
}

TEST(DocumentTextTest, ReportsMalformedTextAtItsLineAndColumn) {
  for (const auto& [text, message] : std::vector<std::pair<std::string, std::string>>{
           {"<A>\n  <B></C>\n</A>", "doc.xml:2:8: start-end tags mismatch"},
           {"", "doc.xml:1:1: no document element found"},
           {"<A/>\n<B/>", "doc.xml:2:1: a second root element <B>"}}) {
    try {
      CheckWellFormed(text, "doc.xml");
      ADD_FAILURE() << "no failure for " << text;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.what(), message);
    }
  }
  EXPECT_NO_THROW(CheckWellFormed("<?xml version=\"1.0\"?><!-- c --><A><B/></A>", "doc.xml"));
}

TEST(DocumentTextTest, RootNameIsTheLocalNameOfTheFirstElement) {
  EXPECT_EQ(RootElementName("<TALVEN><A/></TALVEN>"), "TALVEN");
  EXPECT_EQ(RootElementName("<x:SURVEY xmlns:x=\"u\"/>"), "SURVEY");
  EXPECT_EQ(RootElementName("<DOC\n>"), "DOC");
  EXPECT_EQ(RootElementName("text"), "");
}

TEST(ComponentPathTest, RepeatedNamesGetTheirPositionAmongTheSameName) {
  EXPECT_EQ(StepsFor({"LINE", "NOTE", "LINE", "LINE"}), (std::vector<std::string>{"LINE[1]", "NOTE", "LINE[2]", "LINE[3]"}));
  EXPECT_EQ(StepsFor({}), std::vector<std::string>{});
}

TEST(FailuresTest, NumbersInTheHresultRangeAreWrittenInHexadecimal) {
  EXPECT_EQ(DescribeAutomationError(AutomationError(errClass, "Transport", "Error retrieving component xml.")),
            "error 0x80040201 (Transport): Error retrieving component xml.");
  EXPECT_EQ(DescribeAutomationError(AutomationError(errXml, "Varnex", "bad name")), "error 0x80004005 (Varnex): bad name");
  EXPECT_EQ(DescribeAutomationError(AutomationError::Runtime(errObjectNotSet)),
            "error 91 (Varnex): Object variable or With block variable not set");
}

}  // namespace
}  // namespace varnex::cli
