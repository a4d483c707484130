#include "cli/shape_check.hpp"

#include <vector>

#include <fmt/format.h>

#include "cli/component_path.hpp"

namespace varnex::cli {

std::string FirstShapeDifference(Transport& own, Transport& returned) {
  struct Pair {
    Long own;
    Long returned;
    std::string path;
  };
  std::vector<Pair> pending{{0, 0, ""}};
  while (!pending.empty()) {
    const Pair pair = std::move(pending.back());
    pending.pop_back();
    const std::vector<Child> mine = ChildrenOf(own, pair.own);
    const std::vector<Child> theirs = ChildrenOf(returned, pair.returned);
    const std::string where = pair.path.empty() ? "/" : pair.path;
    if (mine.size() != theirs.size()) {
      return fmt::format("{}: {} components in the returned document, {} in the own", where, theirs.size(), mine.size());
    }
    for (std::size_t i = 0; i < mine.size(); ++i) {
      const std::string path = pair.path + "/" + mine[i].step;
      if (mine[i].name != theirs[i].name || mine[i].type != theirs[i].type) {
        return fmt::format("{}: the returned document has {} {} here", path,
                           theirs[i].type == ctcollection ? "collection" : "component", theirs[i].name);
      }
      const Long own_properties = own.CountCompProperties(mine[i].handle);
      const Long returned_properties = returned.CountCompProperties(theirs[i].handle);
      if (own_properties != returned_properties) {
        return fmt::format("{}: {} properties in the returned document, {} in the own", path, returned_properties,
                           own_properties);
      }
    }
    // Pushed in reverse, so that the children of the first component are compared first.
    for (std::size_t i = mine.size(); i-- > 0;) {
      if (mine[i].handle != 0) pending.push_back({mine[i].handle, theirs[i].handle, pair.path + "/" + mine[i].step});
    }
  }
  return {};
}

}  // namespace varnex::cli
