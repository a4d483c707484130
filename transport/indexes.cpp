// The handle indexes: issuing and looking up handles, and bringing the child and property
// indexes up to date when they are marked stale.
#include "transport/transport_impl.hpp"

#include "runtime/counter.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"

namespace varnex {

pugi::xml_node Transport::Impl::NodeOf(Long handle) const {
  const pugi::xml_node node = handle == 0 ? root : handles.NodeOf(handle);
  if (!node) throw AutomationError::Runtime(errObjectRequired);
  return node;
}

pugi::xml_node Transport::Impl::RootNode() const {
  if (!root) throw AutomationError::Runtime(errObjectRequired);
  return root;
}

Long Transport::Impl::IssueHandle(pugi::xml_node name_element) {
  Advance(last_handle);
  handles.Add(last_handle, name_element);
  return last_handle;
}

bool Transport::Impl::IsRootNamed(pugi::xml_node node) const { return xml::LocalNameIs(node, root_name); }

void Transport::Impl::CheckAndRebuildChildIndexes() {
  if (!child_indexes_dirty) return;
  Trap{"CheckAndRebuildChildIndexes", kInvalidHandle}.Run([&] {
    upkeep.UpdateChildren();
    child_indexes_dirty = false;
  });
}

void Transport::Impl::CheckAndRebuildPropIndexes() {
  if (!prop_indexes_dirty) return;
  Trap{"CheckAndRebuildPropIndexes", kInvalidHandle}.Run([&] {
    upkeep.UpdateProperties();
    prop_indexes_dirty = false;
  });
}

Long Transport::Impl::CountChildren(Long parent, Boolean ignore_deletes) const {
  const Long live = children.LiveCount(parent);
  return ignore_deletes == vbTrue ? live : live + children.DeletedCount(parent);
}

}  // namespace varnex
