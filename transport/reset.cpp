// Clearing the change marks once an exchange is complete.
#include "runtime/nested_trap.hpp"
#include "runtime/xml.hpp"
#include "transport/handle_walk.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"

namespace varnex {

Long Transport::ResetStatus() {
  impl_->CheckAndRebuildChildIndexes();
  impl_->CheckAndRebuildPropIndexes();
  // Only the subtree of the first handle is visited. Components cut out on the way stay in the
  // indexes until something else marks them stale.
  impl_->ResetComponentStatus(1);
  return 0;
}

Boolean Transport::Impl::ResetComponentStatus(Long handle) {
  HandleWalk walk(handle);
  RunNested(Trap{"Error Resetting Component Status", {}, "Transport"}, walk.depth(), [&] {
    for (Long current; walk.Next(current);) {
      pugi::xml_node element = NodeOf(current);
      switch (GetNodeStatus(element)) {
        case csNew:
          continue;  // the mark stays and nothing below is visited
        case csDeleted:
          RecurseDeleteComponent(current, vbTrue);
          continue;
        case csModified:
          element.remove_attribute("STATUS");
          ClearPropertyMarks(element);
          break;
        default:
          break;  // a normal component keeps its properties' marks
      }
      // "./COMPONENT/* | ./COLLECTION/*": the elements inside this component's wrappers.
      walk.Descend(current, [&](auto add) {
        for (pugi::xml_node wrapper = element.first_child(); wrapper; wrapper = wrapper.next_sibling()) {
          if (!IsSelectedWrapper(wrapper)) continue;
          for (pugi::xml_node child = wrapper.first_child(); child; child = child.next_sibling()) {
            if (child.type() == pugi::node_element) add(HandleOf(child));
          }
        }
      });
    }
  });
  return vbTrue;
}

}  // namespace varnex
