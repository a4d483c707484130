// Parts of the tool that its command tests reach only in part: positions in a text, the prolog
// left out before the root, component paths, how an automation error is written, the view of a
// collection (it answers as a DataCollection loaded with the same collection), and the table
// writers, for a provider that reports no rows or a negative row count too.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "binding/documents.hpp"
#include "cli/collection_view.hpp"
#include "cli/component_path.hpp"
#include "cli/document_text.hpp"
#include "cli/failures.hpp"
#include "cli/provider_table.hpp"
#include "support/errors.hpp"
#include "varnex/varnex.hpp"

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
  EXPECT_EQ(RootElementName("<TALVEN><A/></TALVEN>") + "|" + RootElementName("<x:SURVEY xmlns:x=\"u\"/>") + "|" +
                RootElementName("<DOC\n>") + "|" + RootElementName("text"),
            "TALVEN|SURVEY|DOC|");
}

TEST(ComponentPathTest, RepeatedNamesGetTheirPositionAmongTheSameName) {
  EXPECT_EQ(StepsFor({"LINE", "NOTE", "LINE", "LINE"}), (std::vector<std::string>{"LINE[1]", "NOTE", "LINE[2]", "LINE[3]"}));
  EXPECT_EQ(StepsFor({}), std::vector<std::string>{});
}

TEST(FailuresTest, NumbersInTheHresultRangeAreWrittenInHexadecimal) {
  EXPECT_EQ(DescribeAutomationError(AutomationError(errClass, "Transport", "Error retrieving component xml.")),
            "error 0x80040201 (Transport): Error retrieving component xml.");
  EXPECT_EQ(DescribeAutomationError(AutomationError(static_cast<Long>(0x800A01AD), "Varnex", "bad name")),
            "error 0x800A01AD (Varnex): bad name");
  EXPECT_EQ(DescribeAutomationError(AutomationError::Runtime(errObjectNotSet)),
            "error 91 (Varnex): Object variable or With block variable not set");
}

using testing::Row;

// Two people, PAID a Boolean column; the row count it reports may differ from the rows it holds.
struct People : DataCollectionProvider {
  explicit People(Long reported = 2, const std::string& fields = "") : reported(reported) {
    const std::string rows = Row({{"NAME", "Zoë"}, {"PAID", "yes"}, {"NOTE", ""}}) +
                             Row({{"NAME", "Bob \"B\", jr."}, {"PAID", "no"}, {"NOTE", "two\nlines"}});
    LoadData(testing::Loaded(testing::Rows("P", rows)), std::vector<Long>{vbString, vbBoolean}, fields);
  }
  Long getRowCount() override { return reported; }
  Long reported;
};

std::string Written(void (*write)(OLEDBSimpleProvider&, std::ostream&), People&& provider) {
  std::ostringstream out;
  write(provider, out);
  return out.str();
}

// Text pads each column to its widest cell in characters; CSV quotes fields with commas, quotes
// and line breaks; JSON writes Booleans as true or false and escapes text.
TEST(ProviderTableTest, EachFormatWritesTheCellsItsOwnWay) {
  EXPECT_EQ(Written(WriteTextTable, People(2, "NAME,PAID")),
            "NAME         | PAID\n"
            "-------------+------\n"
            "Zoë          | True\n"
            "Bob \"B\", jr. | False\n");
  EXPECT_EQ(Written(WriteCsvTable, People()),
            "NAME,PAID,NOTE\r\nZoë,True,\r\n\"Bob \"\"B\"\", jr.\",False,\"two\nlines\"\r\n");
  EXPECT_EQ(Written(WriteJsonTable, People()),
            "[\n{\"NAME\":\"Zoë\",\"PAID\":true,\"NOTE\":\"\"},\n"
            "{\"NAME\":\"Bob \\\"B\\\", jr.\",\"PAID\":false,\"NOTE\":\"two\\nlines\"}\n]\n");
}

// A negative row count is no rows: every format still writes its header (or an empty array).
TEST(ProviderTableTest, NoRowsOrANegativeRowCountWriteTheHeaderOnly) {
  for (const Long rows : {0, -1, -5}) {
    EXPECT_EQ(Written(WriteTextTable, People(rows)), "NAME | PAID | NOTE\n-----+------+-----\n") << rows;
    EXPECT_EQ(Written(WriteCsvTable, People(rows)), "NAME,PAID,NOTE\r\n") << rows;
    EXPECT_EQ(Written(WriteJsonTable, People(rows)), "[]\n") << rows;
  }
}

// A first collection whose items differ: a deleted one, one with other properties, one without.
constexpr const char* kDocument =
    "<TALVEN><COMPONENT><HEAD><PROPERTIES><A>h</A></PROPERTIES></HEAD></COMPONENT>"
    "<COLLECTION><ROWS>"
    "<COMPONENT><ROW><PROPERTIES><A>1</A><B>x</B></PROPERTIES></ROW></COMPONENT>"
    "<COMPONENT><ROW STATUS=\"DELETED\"><PROPERTIES><A>2</A><B>y</B></PROPERTIES></ROW></COMPONENT>"
    "<COMPONENT><ROW><PROPERTIES><C>3</C><A>4</A></PROPERTIES></ROW></COMPONENT>"
    "<COMPONENT><ROW/></COMPONENT>"
    "</ROWS></COLLECTION>"
    "<COLLECTION><OTHER/></COLLECTION></TALVEN>";

// What a bound control reads: the collection's own columns (no field list) or the ones named.
std::vector<std::vector<std::string>> Cells(IDataCollection& data, const std::string& fields) {
  auto source = std::make_shared<DataCollectionSource>();
  source->Data(std::shared_ptr<IDataCollection>(&data, [](IDataCollection*) {}));
  source->Fields(fields);
  source->DataTypes({});
  return testing::ProviderCells(*source->GetDataMember());
}

TEST(CollectionViewTest, AnswersAsADataCollectionOfTheFirstCollection) {
  Transport transport;
  transport.TransportDoc(kDocument);
  CollectionView view(transport, FirstCollection(transport));
  DataCollection loaded;
  loaded.Data(kDocument);

  for (const char* fields : {"", "A,B,C"}) EXPECT_EQ(Cells(view, fields), Cells(loaded, fields)) << fields;
  for (const Long position : {0, -1, 5}) {
    EXPECT_EQ(testing::ErrorOf([&] { view.Item(Variant(position)); }).number(), errSubscriptOutOfRange) << position;
  }
  EXPECT_EQ(testing::ErrorOf([&] { view.Item(Variant("A")); }).number(), errInvalidProcedureCall) << "items have no keys";
  EXPECT_THROW(view.PropertyNames(3), AutomationError);
}

// Where a DataCollection would load nothing at all, the view keeps the first of the values.
TEST(CollectionViewTest, ARepeatedPropertyNameKeepsItsFirstValue) {
  Transport transport;
  transport.TransportDoc("<TALVEN><COLLECTION><ROWS><COMPONENT><ROW><PROPERTIES><A>5</A><A>6</A></PROPERTIES>"
                         "</ROW></COMPONENT></ROWS></COLLECTION></TALVEN>");
  CollectionView view(transport, FirstCollection(transport));
  EXPECT_EQ(view.Item(Variant(1))->Count(), 1);
  EXPECT_EQ(view.Item(Variant(1))->Item(Variant("A")).AsString(), "5");
}

TEST(ComponentPathTest, PathsNameComponentsByNameAndPosition) {
  Transport transport;
  transport.TransportDoc(kDocument);
  // Live rows come first, then the deleted one.
  for (const auto& [path, handle] : std::vector<std::pair<const char*, Long>>{
           {"/", 0}, {"/HEAD", 1}, {"/rows", 2}, {"/ROWS/ROW", 3}, {"/ROWS/ROW[1]", 3}, {"/ROWS/ROW[2]", 5},
           {"/ROWS/ROW[4]", 4}, {"/OTHER", 7}}) {
    EXPECT_EQ(ResolvePath(transport, path), handle) << path;
  }
  for (const char* path : {"/ROWS/ROW[5]", "/ROWS/ROW[0]", "/ROWS/ROW[x]", "/ROWS/ROW[1x]", "/NONE", "/HEAD/ROW"}) {
    EXPECT_THROW(ResolvePath(transport, path), Failure) << path;
  }
  EXPECT_EQ(ChildrenOf(transport, 2).back().step, "ROW[4]");
}

}  // namespace
}  // namespace varnex::cli
