#include "transport/answer_size.hpp"

#include "runtime/memory_budget.hpp"
#include "runtime/xml.hpp"
#include "transport/wrapper_names.hpp"

namespace varnex {

std::uint64_t WrappersTaken(const std::vector<pugi::xml_node>& selected,
                            const NodeSet* left_out) {
  if (selected.empty()) return 0;
  NodeSet is_selected;
  for (const pugi::xml_node wrapper : selected) is_selected.Insert(wrapper.internal_object());
  // One walk over the tree from the top, keeping how many selected wrappers are open above.
  const pugi::xml_node top = selected.front().root();
  std::uint64_t taken = 0;
  std::uint64_t open = 0;
  pugi::xml_node current = top.first_child();
  const auto enter = [&](pugi::xml_node node) {
    if (is_selected.Contains(node.internal_object())) ++open;
    if (IsWrapper(node) && (!left_out || !left_out->Contains(node.internal_object()))) taken += open;
  };
  const auto leave = [&](pugi::xml_node node) {
    if (is_selected.Contains(node.internal_object())) --open;
  };
  if (current) enter(current);
  while (current) {
    const bool skipped = left_out && left_out->Contains(current.internal_object());
    if (current.type() == pugi::node_element && current.first_child() && !skipped) {
      current = current.first_child();
      enter(current);
      continue;
    }
    while (current && !current.next_sibling()) {
      leave(current);
      current = current.parent();
      if (current == top) return taken;
    }
    if (!current) break;
    leave(current);
    current = current.next_sibling();
    enter(current);
  }
  return taken;
}

WrapperTextCheck::WrapperTextCheck(const std::vector<pugi::xml_node>& selected, const NodeSet* left_out,
                                   bool may_nest)
    : selected_(selected), left_out_(left_out), left_(budget::Left()), counted_(may_nest) {
  if (counted_) budget::Require(WrappersTaken(selected, left_out), kWrapperTextCost);
}

void WrapperTextCheck::Written(std::uint64_t size) const {
  if (counted_ || size / kWrapperTextLeast <= left_ / kWrapperTextCost) return;
  if (WrappersTaken(selected_, left_out_) > left_ / kWrapperTextCost) budget::Exceeded();
}

}  // namespace varnex
