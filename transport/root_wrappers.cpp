#include "transport/root_wrappers.hpp"

#include <cstring>

#include "runtime/xml.hpp"
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"

namespace varnex {
namespace {

// Compiles the expression without running it: an error of the XML layer when it does not compile.
void CheckCompiles(const std::string& expression) { xml::SelectNodes(pugi::xml_node(), expression); }

// Where a walk over the elements below `top` starts: a document's one element.
pugi::xml_node WalkTop(pugi::xml_node top) {
  if (top.type() != pugi::node_document) return top;
  for (pugi::xml_node child = top.first_child(); child; child = child.next_sibling()) {
    if (child.type() == pugi::node_element) return child;
  }
  return {};
}

bool NameIs(pugi::xml_node node, const std::string& name) {
  return node.type() == pugi::node_element && std::strcmp(node.name(), name.c_str()) == 0;
}

}  // namespace

std::vector<pugi::xml_node> SelectRootWrappers(pugi::xml_node top, const std::string& root_name,
                                               pugi::xml_node skip_a, pugi::xml_node skip_b) {
  CheckCompiles("//" + root_name + "/COMPONENT | //" + root_name + "/COLLECTION");
  std::vector<pugi::xml_node> wrappers;
  xml::WalkElements(WalkTop(top), [&](pugi::xml_node element) {
    if (element == skip_a || element == skip_b) return false;
    if (IsSelectedWrapper(element) &&
        NameIs(element.parent(), root_name)) {
      wrappers.push_back(element);
    }
    return true;
  });
  return wrappers;
}

pugi::xml_node SelectFirstNamed(pugi::xml_node top, const std::string& root_name) {
  CheckCompiles("//" + root_name);
  pugi::xml_node found;
  xml::WalkElements(WalkTop(top), [&](pugi::xml_node element) {
    if (!found && NameIs(element, root_name)) found = element;
    return !found;  // once found, the rest of the walk only passes by
  });
  return found;
}

// Unless some other element is named like the root, the selection is the root's own wrappers, and
// the walk over the whole document can be left out.
std::vector<pugi::xml_node> Transport::Impl::OwnRootWrappers() const {
  if (upkeep.OddSections()) return SelectRootWrappers(root, root_name, domain_section, property_domain_section);
  CheckCompiles("//" + root_name + "/COMPONENT | //" + root_name + "/COLLECTION");
  std::vector<pugi::xml_node> wrappers;
  for (pugi::xml_node child = root.first_child(); child; child = child.next_sibling()) {
    if (IsSelectedWrapper(child)) wrappers.push_back(child);
  }
  return wrappers;
}

}  // namespace varnex
