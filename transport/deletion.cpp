// Deleting components: marking a subtree "DELETED" so that the deletion travels in the next
// document, or cutting it out when the other side never saw it or is to forget it.
//
// Cut-out components stay alive outside the visible tree: their handles keep answering.
#include "runtime/nested_trap.hpp"
#include "runtime/xml.hpp"
#include "transport/handle_walk.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"

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
  HandleWalk walk(handle);
  RunNested(Trap{"RecurseDeleteComponent"}, walk.depth(), [&] {
    for (Long current; walk.Next(current);) {
      const pugi::xml_node element = NodeOf(current);
      if (GetNodeStatus(element) == csNew || forget != vbFalse) {
        CutOut(element);
        continue;
      }
      SetAttribute(element, "STATUS", "DELETED");
      // Only the first child of each wrapper is taken; an empty wrapper gives handle 0, the root.
      walk.Descend(current, [&](auto add) {
        for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
          if (IsWrapper(child)) {
            add(HandleOf(child.first_child()));
          }
        }
      });
    }
  });
  return vbFalse;
}

}  // namespace varnex
