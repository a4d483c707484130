// Clearing the change marks once an exchange is complete.
#include <algorithm>
#include <unordered_set>
#include <vector>

#include "runtime/nested_trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"

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
  struct Call {
    Long handle;
    std::size_t depth;
  };
  std::vector<Call> pending{{handle, 1}};
  std::vector<Long> path;
  std::unordered_set<Long> on_path;
  std::size_t depth = 1;
  RunNested(Trap{"Error Resetting Component Status", {}, "Transport"}, depth, [&] {
    while (!pending.empty()) {
      const Call call = pending.back();
      pending.pop_back();
      for (; path.size() >= call.depth; path.pop_back()) on_path.erase(path.back());
      depth = call.depth;
      if (on_path.count(call.handle) != 0) throw AutomationError::Runtime(errOutOfStackSpace);

      pugi::xml_node element = NodeOf(call.handle);
      switch (GetNodeStatus(element)) {
        case csNew:
          continue;  // the mark stays and nothing below is visited
        case csDeleted:
          RecurseDeleteComponent(call.handle, vbTrue);
          continue;
        case csModified:
          element.remove_attribute("STATUS");
          for (pugi::xml_node list = element.first_child(); list; list = list.next_sibling()) {
            if (!xml::ElementNamed(list, "PROPERTIES")) continue;
            for (pugi::xml_node property = list.first_child(); property; property = property.next_sibling()) {
              if (property.type() != pugi::node_element) continue;
              property.remove_attribute("STATUS");
              property.remove_attribute("ORIGINAL");
            }
          }
          break;
        default:
          break;  // a normal component keeps its properties' marks
      }
      path.push_back(call.handle);
      on_path.insert(call.handle);
      // "./COMPONENT/* | ./COLLECTION/*": the elements inside this component's wrappers.
      const std::size_t first = pending.size();
      for (pugi::xml_node wrapper = element.first_child(); wrapper; wrapper = wrapper.next_sibling()) {
        if (!xml::ElementNamed(wrapper, "COMPONENT") && !xml::ElementNamed(wrapper, "COLLECTION")) continue;
        for (pugi::xml_node child = wrapper.first_child(); child; child = child.next_sibling()) {
          if (child.type() == pugi::node_element) pending.push_back({HandleOf(child), call.depth + 1});
        }
      }
      std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end());
    }
  });
  return vbTrue;
}

}  // namespace varnex
