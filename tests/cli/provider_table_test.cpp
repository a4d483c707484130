// The tool's table writers: what they write for a provider, and for a provider that reports no
// rows or a negative row count.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/provider_table.hpp"
#include "varnex/varnex.hpp"

namespace varnex::cli {
namespace {

// A provider with fixed cells; the row count it reports may differ from the rows it holds.
class FixedProvider : public OLEDBSimpleProvider {
 public:
  FixedProvider(std::vector<std::vector<Variant>> rows, Long reported_rows)
      : rows_(std::move(rows)), reported_rows_(reported_rows) {}
  Long getRowCount() override { return reported_rows_; }
  Long getColumnCount() override { return static_cast<Long>(rows_.front().size()); }
  Long getRWStatus(Long, Long) override { return 0; }
  Variant getVariant(Long iRow, Long iColumn, Long) override {
    return rows_.at(static_cast<std::size_t>(iRow)).at(static_cast<std::size_t>(iColumn - 1));
  }
  void setVariant(Long, Long, Long, const Variant&) override {}
  std::string getLocale() override { return ""; }
  Long deleteRows(Long, Long) override { return 0; }
  Long insertRows(Long, Long) override { return 0; }
  Long find(Long, Long, const Variant&, Long, Long) override { return 0; }
  void addOLEDBSimpleProviderListener(std::shared_ptr<OLEDBSimpleProviderListener>) override {}
  void removeOLEDBSimpleProviderListener(std::shared_ptr<OLEDBSimpleProviderListener>) override {}
  Boolean isAsync() override { return vbFalse; }
  Long getEstimatedRows() override { return reported_rows_; }
  void stopTransfer() override {}

 private:
  std::vector<std::vector<Variant>> rows_;
  Long reported_rows_;
};

FixedProvider People(Long reported_rows = 2) {
  return FixedProvider({{"NAME", "NOTE"},
                        {"Ann", Variant::FromBoolean(vbTrue)},
                        {"Bob \"B\", jr.", "two\nlines"}},
                       reported_rows);
}

template <typename Writer>
std::string Written(Writer write, FixedProvider provider) {
  std::ostringstream out;
  write(provider, out);
  return out.str();
}

TEST(ProviderTableTest, TextPadsEachColumnToItsWidestCell) {
  FixedProvider provider({{"NAME", "PAID"}, {"Ann", Variant::FromBoolean(vbTrue)}, {"Bob", Variant::FromBoolean(vbFalse)}}, 2);
  EXPECT_EQ(Written(WriteTextTable, provider),
            "NAME | PAID\n"
            "-----+------\n"
            "Ann  | True\n"
            "Bob  | False\n");
}

TEST(ProviderTableTest, CsvQuotesFieldsWithCommasQuotesAndLineBreaks) {
  EXPECT_EQ(Written(WriteCsvTable, People()),
            "NAME,NOTE\r\n"
            "Ann,True\r\n"
            "\"Bob \"\"B\"\", jr.\",\"two\nlines\"\r\n");
}

TEST(ProviderTableTest, JsonWritesBooleansAsTrueOrFalseAndEscapesText) {
  EXPECT_EQ(Written(WriteJsonTable, People()),
            "[\n{\"NAME\":\"Ann\",\"NOTE\":true},\n{\"NAME\":\"Bob \\\"B\\\", jr.\",\"NOTE\":\"two\\nlines\"}\n]\n");
}

// A negative row count is no rows: every format still writes its header (or an empty array).
TEST(ProviderTableTest, NoRowsOrANegativeRowCountWriteTheHeaderOnly) {
  for (const Long rows : {0, -1, -5}) {
    EXPECT_EQ(Written(WriteTextTable, People(rows)), "NAME | NOTE\n-----+-----\n") << rows;
    EXPECT_EQ(Written(WriteCsvTable, People(rows)), "NAME,NOTE\r\n") << rows;
    EXPECT_EQ(Written(WriteJsonTable, People(rows)), "[]\n") << rows;
  }
}

}  // namespace
}  // namespace varnex::cli
