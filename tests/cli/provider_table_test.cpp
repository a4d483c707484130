// The tool's table writers: what they write for a provider, and for a provider that reports no
// rows or a negative row count.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "binding/documents.hpp"
#include "cli/provider_table.hpp"
#include "varnex/data_collection_provider.hpp"

namespace varnex::cli {
namespace {

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

TEST(ProviderTableTest, TextPadsEachColumnToItsWidestCellInCharacters) {
  EXPECT_EQ(Written(WriteTextTable, People(2, "NAME,PAID")),
            "NAME         | PAID\n"
            "-------------+------\n"
            "Zoë          | True\n"
            "Bob \"B\", jr. | False\n");
}

TEST(ProviderTableTest, CsvQuotesFieldsWithCommasQuotesAndLineBreaks) {
  EXPECT_EQ(Written(WriteCsvTable, People()),
            "NAME,PAID,NOTE\r\nZoë,True,\r\n\"Bob \"\"B\"\", jr.\",False,\"two\nlines\"\r\n");
}

TEST(ProviderTableTest, JsonWritesBooleansAsTrueOrFalseAndEscapesText) {
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

}  // namespace
}  // namespace varnex::cli
