// Components and collections: adding, finding, counting and reading them by handle.
#include "transport/transport_impl.hpp"

#include "runtime/memory_budget.hpp"
#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"

namespace varnex {
namespace {

enComponentType TypeOfWrapper(pugi::xml_node wrapper, enComponentType otherwise) {
  if (xml::LocalNameIs(wrapper, "COMPONENT")) return ctComponent;
  if (xml::LocalNameIs(wrapper, "COLLECTION")) return ctcollection;
  return otherwise;
}

}  // namespace

Long Transport::Impl::AddWrapped(Long parent, const char* wrapper_name, const std::string& name, Long status) {
  RefuseNul(name);
  budget::Charge(budget::kComponentCost);
  xml::XmlDocument& doc = Document();
  const pugi::xml_node parent_element = ParentNode(parent);
  IndexUpkeep::Explaining explaining(upkeep);
  // The wrapper goes in first: a name that is not a valid element name leaves it behind, empty.
  const pugi::xml_node wrapper = doc.AppendElement(parent_element, wrapper_name);
  const pugi::xml_node element = doc.AppendElement(wrapper, UCase(name));
  WriteStatus(element, status);
  const Long handle = IssueHandle(element);
  upkeep.WrapperAdded(parent, parent_element, element, handle);
  explaining.Done();
  child_indexes_dirty = true;
  return handle;
}

Long Transport::AddComponent(Long lngParent, const std::string& strName, enComponentStatus csStatus) {
  return Trap{"AddComponent", kInvalidHandle}.Run(
      [&] { return impl_->AddWrapped(lngParent, "COMPONENT", strName, csStatus); });
}

Long Transport::AddCollection(Long lngParent, const std::string& strCollectionName) {
  return Trap{"AddCollection", kInvalidHandle}.Run(
      [&] { return impl_->AddWrapped(lngParent, "COLLECTION", strCollectionName, csNormal); });
}

Long Transport::GetComponent(Long lngHandle, std::string& strName, enComponentStatus& csStatus,
                             enComponentType& ctType) {
  return Trap{"GetComponent", kInvalidHandle}.Run([&] {
    const pugi::xml_node element = impl_->NodeOf(lngHandle);
    strName = xml::LocalName(element);
    ctType = TypeOfWrapper(impl_->ParentOf(element), ctType);
    csStatus = GetNodeStatus(element);
    return Long{1};
  });
}

Long Transport::GetCompChild(Long lngParent, Long lngChild, std::string& strName, enComponentStatus& csStatus,
                             enComponentType& ctType, Boolean boolIgnoreDeletes) {
  return Trap{"GetCompChild", kInvalidHandle}.Run([&] {
    impl_->CheckAndRebuildChildIndexes();
    ChildIndex& children = impl_->children;
    Long handle;
    if (boolIgnoreDeletes != vbFalse || children.LiveExists(lngParent, lngChild)) {
      handle = children.LiveItem(lngParent, lngChild);
    } else {
      handle = children.DeletedItem(lngParent, lngChild - impl_->CountChildren(lngParent, vbTrue));
    }
    // A position beyond the children reads as handle 0: the root answers, without error.
    const pugi::xml_node element = impl_->NodeOf(handle);
    strName = xml::LocalName(element);
    csStatus = csNormal;
    ctType = xml::LocalNameIs(impl_->ParentOf(element), "COLLECTION") ? ctcollection : ctComponent;
    csStatus = GetNodeStatus(element);
    return handle;
  });
}

Long Transport::CountCompChildren(Long lngComp, Boolean boolIgnoreDeletes) {
  return Trap{"CountCompChildren", kInvalidHandle}.Run([&] {
    impl_->CheckAndRebuildChildIndexes();
    return impl_->CountChildren(lngComp, boolIgnoreDeletes);
  });
}

Long Transport::FindChildCompByName(Long lngParent, const std::string& strChildName) {
  return Trap{"FindChildCompByName", kInvalidHandle}.Run([&] {
    RefuseNul(strChildName);
    const pugi::xml_node parent = impl_->ParentNode(lngParent);
    if (!parent.first_child()) return Long{0};
    const std::string name = UCase(strChildName);
    const pugi::xml_node found =
        impl_->document->SelectSingleNode(parent, "./COMPONENT/" + name + "| ./COLLECTION/" + name);
    return found ? impl_->HandleOf(found) : Long{0};
  });
}

std::string Transport::GetComponentXML(Long lngHandle) {
  pugi::xml_document copy;
  pugi::xml_node copy_root = ClassErrorTrap{"Transport", "Error retrieving component xml."}.Run([&] {
    const pugi::xml_node wrapper = impl_->ParentOf(impl_->NodeOf(lngHandle));
    pugi::xml_node root_copy = xml::AppendElement(copy, impl_->root_name);
    if (!wrapper || wrapper.type() != pugi::node_element || !root_copy.append_copy(wrapper)) {
      throw AutomationError::Runtime(errInvalidProcedureCall);
    }
    return root_copy;
  });
  // The domain sections come along as they stand: every "DOMAIN" under an element named like the
  // root, then the first "PROPERTY_DOMAINS" under one. Unless the document holds other elements
  // of those names, they are the root's own two sections.
  if (!impl_->upkeep.OddSections()) {
    copy_root.append_copy(impl_->domain_section);
    copy_root.append_copy(impl_->property_domain_section);
    return xml::Serialize(copy);
  }
  const std::string& root_name = impl_->root_name;
  pugi::xml_node property_domains;
  xml::WalkElements(impl_->root, [&](pugi::xml_node element) {
    if (element.name() == root_name) {
      for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
        if (xml::ElementNamed(child, "DOMAIN")) copy_root.append_copy(child);
        if (!property_domains && xml::ElementNamed(child, "PROPERTY_DOMAINS")) property_domains = child;
      }
    }
    return true;
  });
  if (property_domains) copy_root.append_copy(property_domains);
  return xml::Serialize(copy);
}

std::string Transport::ChildOfCollection(Long lngHandle) {
  return Trap{"ChiildOfCollection"}.Run([&] {
    const pugi::xml_node element = impl_->NodeOf(lngHandle);
    const pugi::xml_node holder = impl_->ParentOf(impl_->ParentOf(element));
    if (!holder) throw AutomationError::Runtime(errObjectNotSet);
    if (impl_->IsRootNamed(holder)) return std::string();
    const pugi::xml_node holder_wrapper = impl_->ParentOf(holder);
    if (!holder_wrapper) throw AutomationError::Runtime(errObjectNotSet);
    if (xml::LocalNameIs(holder_wrapper, "COLLECTION")) return std::string(xml::LocalName(holder));
    return std::string();
  });
}

enComponentStatus Transport::GetComponentStatus(Long lngHandle) {
  return Trap{"GetComponentStatus", kInvalidHandle}.Run([&] { return GetNodeStatus(impl_->NodeOf(lngHandle)); });
}

void Transport::RemoveComponentStatus(Long lngHandle) {
  pugi::xml_node element = impl_->NodeOf(lngHandle);
  element.remove_attribute("STATUS");
  impl_->upkeep.StatusChanged(lngHandle);
  IgnoreErrors([&] { ClearPropertyMarks(element); });
}

}  // namespace varnex
