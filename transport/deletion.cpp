// Deleting components: marking a subtree "DELETED" so that the deletion travels in the next
// document, or cutting it out when the other side never saw it or is to forget it.
//
// Cut-out components stay alive outside the visible tree: their handles keep answering.
#include <algorithm>
#include <unordered_set>
#include <vector>

#include "runtime/nested_trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"

namespace varnex {

Boolean Transport::DeleteComponent(Long lngHandle, Boolean boolForgetServer) {
  return Trap{"DeleteComponent"}.Run([&] {
    impl_->CheckAndRebuildChildIndexes();
    impl_->CheckAndRebuildPropIndexes();
    impl_->RecurseDeleteComponent(lngHandle, boolForgetServer);
    impl_->prop_indexes_dirty = true;
    impl_->child_indexes_dirty = true;
    return vbTrue;
  });
}

void Transport::Impl::CutOut(pugi::xml_node element) {
  // The wrapper goes, with the whole subtree; the top of a cut-out tree has nothing to leave.
  const pugi::xml_node wrapper = ParentOf(element);
  if (!wrapper || !ParentOf(wrapper)) throw AutomationError::Runtime(errObjectNotSet);
  document->Detach(wrapper);
}

Boolean Transport::Impl::RecurseDeleteComponent(Long handle, Boolean forget) {
  // Pending calls in the order the recursion would make them, each with its depth; the path holds
  // the handles of the calls still open above the current one.
  struct Call {
    Long handle;
    std::size_t depth;
  };
  std::vector<Call> pending{{handle, 1}};
  std::vector<Long> path;
  std::unordered_set<Long> on_path;
  std::size_t depth = 1;
  RunNested(Trap{"RecurseDeleteComponent"}, depth, [&] {
    while (!pending.empty()) {
      const Call call = pending.back();
      pending.pop_back();
      for (; path.size() >= call.depth; path.pop_back()) on_path.erase(path.back());
      depth = call.depth;
      // Coming back to a component whose call is still open would never end.
      if (on_path.count(call.handle) != 0) throw AutomationError::Runtime(errOutOfStackSpace);

      const pugi::xml_node element = NodeOf(call.handle);
      if (GetNodeStatus(element) == csNew || forget != vbFalse) {
        CutOut(element);
        continue;
      }
      SetAttribute(element, "STATUS", "DELETED");
      path.push_back(call.handle);
      on_path.insert(call.handle);
      // Only the first child of each wrapper is taken; an empty wrapper gives handle 0, the root.
      const std::size_t first = pending.size();
      for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
        if (xml::LocalNameIs(child, "COMPONENT") || xml::LocalNameIs(child, "COLLECTION")) {
          pending.push_back({HandleOf(child.first_child()), call.depth + 1});
        }
      }
      std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end());
    }
  });
  return vbFalse;
}

Boolean Transport::Impl::HardDeleteComponent(Long handle) {
  return Trap{"HardDeleteComponent"}.Run([&] {
    CheckAndRebuildChildIndexes();
    CheckAndRebuildPropIndexes();
    CutOut(NodeOf(handle));
    prop_indexes_dirty = true;
    child_indexes_dirty = true;
    return vbTrue;
  });
}

}  // namespace varnex
