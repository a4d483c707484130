// Grid binding: hands the item collection to a control through a DataCollectionSource, keeping a
// grid's column layout (widths, header texts, data types) across the binding, which rebuilds the
// grid's columns from the data.
#include <optional>
#include <vector>

#include "runtime/trap.hpp"
#include "varnex/data_collection.hpp"
#include "varnex/data_collection_source.hpp"

namespace varnex {
namespace {

inline constexpr const char* kGridTypeName = "VSFlexGrid";

// The layout of a grid as it stood before binding.
struct GridLayout {
  Collection widths;
  Collection captions;                 // empty when the grid had no rows
  std::optional<std::vector<Long>> types;  // never sized for a grid without columns
};

Variant Read(LateBound& control, const char* member, std::vector<Variant> args = {}) {
  return control.Get(member, args);
}

// The last column index, held in a 16-bit integer: a grid of more columns overflows.
Long LastColumnIndex(LateBound& control) {
  const long long last = static_cast<long long>(Read(control, "cols").AsLong()) - 1;
  if (last < -32768 || last > 32767) throw AutomationError::Runtime(errOverflow);
  return static_cast<Long>(last);
}

GridLayout SaveLayout(LateBound& grid) {
  GridLayout layout;
  const Long last = LastColumnIndex(grid);
  for (Long i = 0; i <= last; ++i) {
    layout.widths.Add(Read(grid, "colwidth", {i}));
    if (Read(grid, "rows").AsLong() > 0) layout.captions.Add(Read(grid, "Cell", {0, 0, i}));
  }
  const Long columns = Read(grid, "cols").AsLong();
  if (columns > 0) {
    std::vector<Long>& types = layout.types.emplace(static_cast<std::size_t>(columns));
    for (Long i = 0; i < columns; ++i) types[static_cast<std::size_t>(i)] = Read(grid, "ColDataType", {i}).AsLong();
  }
  return layout;
}

// Puts the saved layout back on the columns that the grid has now; every step that fails is
// passed over (a column the grid did not have before has nothing saved).
void RestoreLayout(LateBound& grid, const GridLayout& layout) {
  Long columns = 0;
  IgnoreErrors([&] { columns = Read(grid, "cols").AsLong(); });
  for (Long i = 0; i < columns; ++i) {
    IgnoreErrors([&] { grid.Let("colwidth", {i}, layout.widths.Item(i + 1)); });
    bool has_rows = false;
    IgnoreErrors([&] { has_rows = Read(grid, "rows").AsLong() > 0; });
    if (has_rows) IgnoreErrors([&] { grid.Let("Cell", {0, 0, i}, layout.captions.Item(i + 1)); });
    IgnoreErrors([&] {
      if (!layout.types || static_cast<std::size_t>(i) >= layout.types->size()) {
        throw AutomationError::Runtime(errSubscriptOutOfRange);
      }
      grid.Let("ColDataType", {i}, (*layout.types)[static_cast<std::size_t>(i)]);
    });
  }
}

}  // namespace

Boolean DataCollection::BindToGrid(LateBound& objControl, const std::string& strColumns, const std::string&) {
  bool grid = false;
  GridLayout layout;
  ClassErrorTrap{"DataCollection", "Error Binding to Grid."}.Run([&] {
    grid = objControl.TypeName() == kGridTypeName;
    auto source = std::make_shared<DataCollectionSource>();
    if (grid) {
      layout = SaveLayout(objControl);
      if (layout.types) source->DataTypes(*layout.types);
    }
    source->Fields(strColumns);
    // The grid keeps the source, and through it this collection.
    std::shared_ptr<DataCollection> self = weak_from_this().lock();
    if (!self) throw AutomationError::Runtime(errObjectNotSet);
    source->Data(std::move(self));
    objControl.Set("DataSource", Variant(std::move(source)));
  });
  if (grid) RestoreLayout(objControl, layout);
  // The result is never set: binding answers False even when it worked.
  return vbFalse;
}

}  // namespace varnex
