#include "cli/shape_check.hpp"

#include <vector>

#include <fmt/format.h>
#include <pugixml.hpp>

#include "cli/component_path.hpp"
#include "cli/upper_name.hpp"

namespace varnex::cli {
namespace {

bool IsWrapper(pugi::xml_node node) {
  const std::string name = UpperName(node.name());
  return node.type() == pugi::node_element && (name == "COMPONENT" || name == "COLLECTION");
}

// The name elements of the wrappers directly under `parent`, in the order of the text.
std::vector<pugi::xml_node> Members(pugi::xml_node parent) {
  std::vector<pugi::xml_node> members;
  for (const pugi::xml_node child : parent.children()) {
    if (IsWrapper(child)) members.push_back(child.first_child());
  }
  return members;
}

std::vector<pugi::xml_node> ElementChildren(pugi::xml_node parent) {
  std::vector<pugi::xml_node> children;
  for (const pugi::xml_node child : parent.children()) {
    if (child.type() == pugi::node_element) children.push_back(child);
  }
  return children;
}

std::size_t ElementCount(pugi::xml_node parent) { return ElementChildren(parent).size(); }

}  // namespace

std::string FirstShapeDifference(const std::string& own, const std::string& returned) {
  pugi::xml_document own_document, returned_document;
  own_document.load_buffer(own.data(), own.size());
  returned_document.load_buffer(returned.data(), returned.size());
  struct Pair {
    pugi::xml_node own;
    pugi::xml_node returned;
    std::string path;
  };
  // The top-level components pair by position, then, inside each pair, every child element
  // pairs with the one at the same position: properties with properties, wrappers with wrappers.
  std::vector<Pair> pending;
  {
    const std::vector<pugi::xml_node> mine = Members(own_document.document_element());
    const std::vector<pugi::xml_node> theirs = Members(returned_document.document_element());
    if (mine.size() != theirs.size()) {
      return fmt::format("/: {} components in the returned document, {} in the own", theirs.size(), mine.size());
    }
    std::vector<std::string> names;
    for (const pugi::xml_node member : mine) names.push_back(UpperName(member.name()));
    const std::vector<std::string> steps = StepsFor(names);
    for (std::size_t i = mine.size(); i-- > 0;) pending.push_back({mine[i], theirs[i], "/" + steps[i]});
  }
  while (!pending.empty()) {
    const Pair pair = std::move(pending.back());
    pending.pop_back();
    if (UpperName(pair.own.name()) != UpperName(pair.returned.name()) ||
        UpperName(pair.own.parent().name()) != UpperName(pair.returned.parent().name())) {
      return fmt::format("{}: the returned document has {} {} here", pair.path,
                         UpperName(pair.returned.parent().name()) == "COLLECTION" ? "collection" : "component",
                         pair.returned.name());
    }
    const std::vector<pugi::xml_node> mine = ElementChildren(pair.own);
    const std::vector<pugi::xml_node> theirs = ElementChildren(pair.returned);
    if (mine.size() != theirs.size()) {
      return fmt::format("{}: {} child elements in the returned document, {} in the own", pair.path, theirs.size(),
                         mine.size());
    }
    std::vector<std::string> names;
    for (const pugi::xml_node child : mine) names.push_back(IsWrapper(child) ? UpperName(child.first_child().name()) : "");
    const std::vector<std::string> steps = StepsFor(names);
    std::vector<Pair> below;
    for (std::size_t i = 0; i < mine.size(); ++i) {
      const bool wrapper = IsWrapper(mine[i]);
      if (wrapper != IsWrapper(theirs[i]) || (!wrapper && UpperName(mine[i].name()) != UpperName(theirs[i].name()))) {
        return fmt::format("{}: child {} is <{}> in the returned document, <{}> in the own", pair.path, i + 1,
                           theirs[i].name(), mine[i].name());
      }
      if (UpperName(mine[i].name()) == "PROPERTIES" && ElementCount(mine[i]) != ElementCount(theirs[i])) {
        return fmt::format("{}: {} properties in the returned document, {} in the own", pair.path,
                           ElementCount(theirs[i]), ElementCount(mine[i]));
      }
      if (wrapper) below.push_back({mine[i].first_child(), theirs[i].first_child(), pair.path + "/" + steps[i]});
    }
    // Reversed onto the stack, so that the subtree of the first component is compared first.
    for (auto it = below.rbegin(); it != below.rend(); ++it) pending.push_back(std::move(*it));
  }
  return {};
}

}  // namespace varnex::cli
