// The handle indexes: issuing and looking up handles, and the lazy rebuild of the child and
// property indexes from the document.
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"

#include "runtime/counter.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"

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
    std::vector<ChildIndex::Entry> entries;
    if (root) {
      xml::WalkElements(root, [&](pugi::xml_node element) {
        if (IsSelectedWrapper(element)) {
          const pugi::xml_node parent = element.parent();
          const Long parent_handle = IsRootNamed(parent) ? 0 : HandleOf(parent);
          // A wrapper whose parent has no handle is filed under a key no caller can name.
          if (parent_handle != 0 || IsRootNamed(parent)) {
            const pugi::xml_node name_element = element.first_child();
            entries.push_back({parent_handle, HandleOf(name_element), GetNodeStatus(name_element) == csDeleted});
          }
        }
        return true;
      });
    }
    children.Build(entries, last_handle);
    child_indexes_dirty = false;
  });
}

void Transport::Impl::CheckAndRebuildPropIndexes() {
  if (!prop_indexes_dirty) return;
  // Property lists depend on the tree's structure alone: unchanged structure, unchanged index.
  if (document && properties.IsCurrent(document->structure_version())) {
    prop_indexes_dirty = false;
    return;
  }
  Trap{"CheckAndRebuildPropIndexes", kInvalidHandle}.Run([&] {
    properties.Reset(last_handle);
    if (root) {
      xml::WalkElements(root, [&](pugi::xml_node element) {
        if (xml::LocalNameIs(element, "ATTACHMENTS")) return false;  // attachments are not indexed
        if (xml::ElementNamed(element, "PROPERTIES")) properties.AddList(HandleOf(element.parent()), element);
        return true;
      });
    }
    properties.MarkBuilt(document->structure_version());
    prop_indexes_dirty = false;
  });
}

Long Transport::Impl::CountChildren(Long parent, Boolean ignore_deletes) const {
  const Long live = children.LiveCount(parent);
  return ignore_deletes == vbTrue ? live : live + children.DeletedCount(parent);
}

}  // namespace varnex
