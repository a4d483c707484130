#include "runtime/xml_document.hpp"

#include <vector>

#include "runtime/xml.hpp"
#include "varnex/automation_error.hpp"

namespace varnex::xml {

pugi::xml_node XmlDocument::AppendElement(pugi::xml_node parent, std::string_view name) {
  pugi::xml_node element = xml::AppendElement(parent, name);
  if (observer_) observer_->Appended(element);
  return element;
}

pugi::xml_node XmlDocument::AppendCopy(pugi::xml_node parent, pugi::xml_node source) {
  if (source.type() == pugi::node_declaration || source.type() == pugi::node_doctype) {
    // Only a document's prolog may hold these; the text would no longer load with one inside.
    throw AutomationError(errXml, kRuntimeSource,
                          "The node '" + xml::Serialize(source) + "' can only stand at the start of a document.");
  }
  pugi::xml_node copy = parent.append_copy(source);
  if (!copy) throw AutomationError::Runtime(errInvalidProcedureCall);
  if (observer_) observer_->Appended(copy);
  return copy;
}

void XmlDocument::Detach(pugi::xml_node node) {
  if (!node || !node.parent() || node.parent() == store_) return;
  if (observer_) observer_->Detaching(node);
  if (!store_) store_ = document_.append_child(pugi::node_element);
  store_.append_move(node);
}

XmlDocument::TextChange XmlDocument::SetText(pugi::xml_node node, std::string_view text) {
  if (node.type() != pugi::node_element && node.type() != pugi::node_document) {
    node.set_value(std::string(text).c_str());
    return TextChange::InPlace;
  }
  pugi::xml_node only = node.first_child();
  if (only && !only.next_sibling() && only.type() == pugi::node_pcdata && !text.empty()) {
    only.set_value(std::string(text).c_str());
    return TextChange::InPlace;
  }
  TextChange change = TextChange::TextNodes;
  while (pugi::xml_node child = node.first_child()) {
    if (child.type() == pugi::node_element) change = TextChange::Elements;
    Detach(child);
  }
  if (!text.empty()) node.append_child(pugi::node_pcdata).set_value(std::string(text).c_str());
  if (observer_) observer_->TextReplaced(node);
  return change;
}

pugi::xml_node XmlDocument::ParentOf(pugi::xml_node node) const {
  pugi::xml_node parent = node.parent();
  return parent == store_ ? pugi::xml_node() : parent;
}

pugi::xml_node XmlDocument::TreeOf(pugi::xml_node node) const {
  if (!store_) return document_;
  for (pugi::xml_node current = node; current; current = current.parent()) {
    if (current.parent() == store_) return current;
    if (current == store_) return store_;
  }
  return document_;
}

pugi::xpath_node_set XmlDocument::SelectNodes(pugi::xml_node context, const std::string& expression) const {
  pugi::xpath_node_set nodes = xml::SelectNodes(context, expression);
  if (!store_) return nodes;
  const pugi::xml_node tree = TreeOf(context);
  std::vector<pugi::xpath_node> kept;
  for (const pugi::xpath_node& found : nodes) {
    if (TreeOf(found.node() ? found.node() : found.parent()) == tree) kept.push_back(found);
  }
  return pugi::xpath_node_set(kept.data(), kept.data() + kept.size(), pugi::xpath_node_set::type_sorted);
}

pugi::xml_node XmlDocument::SelectSingleNode(pugi::xml_node context, const std::string& expression) const {
  const pugi::xpath_node_set nodes = SelectNodes(context, expression);
  if (nodes.empty()) return {};
  return nodes.first().node() ? nodes.first().node() : nodes.first().parent();
}

std::string XmlDocument::Serialize() const {
  std::string out;
  for (pugi::xml_node child = document_.first_child(); child; child = child.next_sibling()) {
    if (child != store_) SerializeTo(child, out);
  }
  return out;
}

}  // namespace varnex::xml
