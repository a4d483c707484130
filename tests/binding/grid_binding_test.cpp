#include <gtest/gtest.h>

#include <algorithm>

#include "binding/documents.hpp"
#include "support/errors.hpp"
#include "varnex/data_collection.hpp"
#include "varnex/data_collection_source.hpp"

namespace varnex {
namespace {

using Texts = std::vector<std::string>;
using Layout = std::vector<Texts>;  // widths, header texts, column types

// A grid that records every call, answers only a grid's members (exact name and argument count)
// and fails the test on any other call. Assigning its "DataSource" does what a bound grid does:
// it asks the source for data and rebuilds its columns from the provider, which loses widths
// (-1), header texts (the column names) and column types (0).
class FakeGrid : public LateBound {
 public:
  FakeGrid(std::string type_name, Long cols, Long rows) : rows(rows), type_name_(std::move(type_name)) {
    for (Long i = 0; i < cols; ++i) {
      widths.push_back(Variant(1000 + 100 * i));
      captions.push_back(Variant("Caption " + std::to_string(i)));
      types.push_back(Variant(i == 1 ? Long{vbBoolean} : Long{vbString}));
    }
  }

  std::string TypeName() override { return Record("TypeName"), type_name_; }

  Variant Get(const std::string& member, const std::vector<Variant>& args) override {
    Record("Get " + member);
    if (member == "cols" && args.empty()) return static_cast<Long>(widths.size());
    if (member == "rows" && args.empty()) return rows;
    return Cell(member, args);
  }

  void Let(const std::string& member, const std::vector<Variant>& args, const Variant& value) override {
    Record("Let " + member);
    Cell(member, args) = value;
  }

  void Set(const std::string& member, const Variant& object) override {
    Record("Set " + member);
    if (member != "DataSource") return void(Unexpected("Set " + member));
    source = object.AsObjectOf<DataCollectionSource>();
    try {
      const std::vector<Texts> cells = testing::ProviderCells(*source->GetDataMember());  // names first
      widths.assign(cells[0].size(), Variant(-1));
      types.assign(cells[0].size(), Variant(0));
      captions.assign(cells[0].begin(), cells[0].end());
      rows = static_cast<Long>(cells.size());
    } catch (const AutomationError& error) {
      request_error = error.description();
    }
  }

  Layout Columns() const {
    Layout layout;
    for (const auto* values : {&widths, &captions, &types}) {
      Layout::value_type& texts = layout.emplace_back();
      for (const Variant& value : *values) texts.push_back(value.AsString());
    }
    return layout;
  }

  Texts calls;
  std::vector<Variant> widths, captions, types;
  Long rows;
  std::shared_ptr<DataCollectionSource> source;
  std::string request_error;     // why the request for data failed
  std::string fail_on;           // a call ("Get colwidth") that raises an error
  bool fail_once_bound = false;  // ... only after the data source is assigned

 private:
  void Record(const std::string& call) {
    calls.push_back(call);
    if (call == fail_on && (!fail_once_bound || source)) throw AutomationError::Runtime(errInvalidProcedureCall);
  }
  // colwidth(i), ColDataType(i) and, on a grid with rows, Cell(0, 0, i): a column's slot.
  Variant& Cell(const std::string& member, const std::vector<Variant>& args) {
    std::vector<Variant>* values = member == "colwidth" ? &widths : member == "ColDataType" ? &types : nullptr;
    if (values && args.size() == 1) return values->at(Column(args[0]));
    if (member == "Cell" && args.size() == 3 && args[0] == Variant(0) && args[1] == Variant(0) && rows > 0) {
      return captions.at(Column(args[2]));
    }
    return Unexpected(member);
  }
  std::size_t Column(const Variant& index) const {
    const Long column = index.AsLong();
    if (column < 0 || column >= static_cast<Long>(widths.size())) throw AutomationError::Runtime(errSubscriptOutOfRange);
    return static_cast<std::size_t>(column);
  }
  Variant& Unexpected(const std::string& call) {
    ADD_FAILURE() << "unexpected call: " << call;
    throw AutomationError::Runtime(errObjectRequired);
  }

  std::string type_name_;
};

const Texts kWidths{"1000", "1100", "1200"}, kCaptions{"Caption 0", "Caption 1", "Caption 2"}, kTypes{"8", "11", "8"};
const Texts kNames{"A", "B", "C"};

TEST(GridBindingTest, AGridKeepsItsWidthsHeadersAndTypes) {
  const auto data = std::make_shared<DataCollection>();
  FakeGrid grid("VSFlexGrid", 3, 2);
  EXPECT_EQ(data->BindToGrid(grid, "Name,Paid,Code", "unused"), vbFalse);
  EXPECT_EQ(grid.request_error, "");
  EXPECT_EQ(grid.source->Data(), data);
  EXPECT_EQ(grid.source->Fields(), "Name,Paid,Code");
  EXPECT_EQ(grid.source->DataTypes(), (std::vector<Long>{vbString, vbBoolean, vbString}));
  EXPECT_EQ(grid.Columns(), (Layout{kWidths, kCaptions, kTypes}));

  // Columns the grid did not have before keep what binding gave them.
  FakeGrid narrow("VSFlexGrid", 2, 1);
  data->BindToGrid(narrow, "A,B,C");
  EXPECT_EQ(narrow.Columns(), (Layout{{"1000", "1100", "-1"}, {"Caption 0", "Caption 1", "C"}, {"8", "11", "0"}}));
  // A grid without rows saves and restores no header texts (the fake refuses Cell then).
  FakeGrid empty("VSFlexGrid", 3, 0);
  data->BindToGrid(empty, "x,y,z");
  EXPECT_EQ(empty.Columns(), (Layout{kWidths, {"X", "Y", "Z"}, kTypes}));
}

TEST(GridBindingTest, OtherControlsAndGridsWithoutColumnsGetNoTypes) {
  for (const auto& [name, cols] : {std::pair{"vsFlexGrid", 3}, {"ListView", 3}, {"VSFlexGrid", 0}}) {
    const auto data = std::make_shared<DataCollection>();
    FakeGrid control(name, cols, 2);
    EXPECT_EQ(data->BindToGrid(control, "A,B"), vbFalse) << name;
    if (cols > 0) {
      EXPECT_EQ(control.calls, (Texts{"TypeName", "Set DataSource"})) << name;
    }
    EXPECT_EQ(control.source->DataTypes(), std::nullopt) << name;
    // The provider fails when the control asks for its data, not during the binding.
    EXPECT_EQ(control.request_error, "Error Loading Data into Provider.") << name;
  }
}

TEST(GridBindingTest, FailuresBeforeRestoringAreTheBindingErrorLaterOnesAreIgnored) {
  const auto data = std::make_shared<DataCollection>();
  const auto binding_error = [](FakeGrid& grid, auto& collection) {
    EXPECT_AUTOMATION_ERROR_FROM(collection.BindToGrid(grid, "A,B,C"), errClass, "DataCollection",
                                 "Error Binding to Grid.");
  };
  for (const char* failing : {"TypeName", "Get cols", "Get colwidth", "Get rows", "Get Cell", "Get ColDataType", "Set DataSource"}) {
    FakeGrid grid("VSFlexGrid", 3, 1);
    grid.fail_on = failing;
    binding_error(grid, *data);
    EXPECT_EQ(std::count(grid.calls.begin(), grid.calls.end(), "Let colwidth"), 0) << failing;
  }
  FakeGrid odd("VSFlexGrid", 3, 1);
  odd.types[0] = Variant("text");  // no number
  binding_error(odd, *data);
  FakeGrid wide("VSFlexGrid", 32769, 1);  // its last column index overflows a 16-bit integer
  binding_error(wide, *data);
  DataCollection unshared;  // the grid could not keep it
  FakeGrid grid("VSFlexGrid", 3, 1);
  binding_error(grid, unshared);

  const std::pair<const char*, Layout> restoring[] = {{"Let colwidth", {{"-1", "-1", "-1"}, kCaptions, kTypes}},
                                                      {"Let Cell", {kWidths, kNames, kTypes}},
                                                      {"Let ColDataType", {kWidths, kCaptions, {"0", "0", "0"}}},
                                                      {"Get rows", {kWidths, kNames, kTypes}},
                                                      {"Get cols", {{"-1", "-1", "-1"}, kNames, {"0", "0", "0"}}}};
  for (const auto& [failing, layout] : restoring) {
    FakeGrid bound("VSFlexGrid", 3, 1);
    bound.fail_on = failing;
    bound.fail_once_bound = true;
    EXPECT_EQ(data->BindToGrid(bound, "A,B,C"), vbFalse) << failing;
    EXPECT_EQ(bound.Columns(), layout) << failing;
  }
}

}  // namespace
}  // namespace varnex
