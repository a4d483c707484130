// Component properties: the child nodes of a component's "PROPERTIES" element, numbered from 1,
// and the change marks that a modification leaves on them.
#include <string_view>

#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"

namespace varnex {
namespace {

// The container that properties are added to: the first child named "PROPERTIES" in any case.
pugi::xml_node FindPropertyList(pugi::xml_node element) {
  for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling()) {
    if (xml::LocalNameIs(child, "PROPERTIES")) return child;
  }
  return {};
}

// The k-th property node of a component as the index holds it; error 424 when there is none.
pugi::xml_node PropertyAt(const PropertyIndex& index, Long handle, Long k) {
  const pugi::xml_node property = index.At(handle, k);
  if (!property) throw AutomationError::Runtime(errObjectRequired);
  return property;
}

// A property's value without a copy where it is held as one text node, the usual case.
bool TextEquals(pugi::xml_node property, std::string_view value) {
  const pugi::xml_node only = property.first_child();
  if (property.type() == pugi::node_element && only && !only.next_sibling() && only.type() == pugi::node_pcdata) {
    return value == only.value();
  }
  return value == xml::Text(property);
}

}  // namespace

Long Transport::AddCompProperty(Long lngComponent, const std::string& strPropName, const std::string& strPropVal,
                                enComponentStatus enStatus, const std::string& strPropOriginal) {
  return Trap{"AddCompProperty", kInvalidHandle}.Run([&] {
    RefuseNul(strPropName, strPropVal, strPropOriginal);
    xml::XmlDocument& doc = impl_->Document();
    const pugi::xml_node element = impl_->NodeOf(lngComponent);
    IndexUpkeep::Explaining explaining(impl_->upkeep);
    pugi::xml_node list = FindPropertyList(element);
    const bool new_list = !list;
    if (new_list) list = doc.AppendElement(element, "PROPERTIES");
    const pugi::xml_node property = doc.AppendElement(list, UCase(strPropName));
    SetAttribute(property, "xml:space", "preserve");  // always the first attribute
    doc.SetText(property, strPropVal);
    WriteStatus(property, enStatus);
    if (!strPropOriginal.empty()) SetAttribute(property, "ORIGINAL", strPropOriginal.c_str());
    impl_->upkeep.PropertyAdded(lngComponent, list, new_list, property);
    explaining.Done();
    impl_->prop_indexes_dirty = true;
    return Long{1};
  });
}

Long Transport::CountCompProperties(Long lngParent) {
  return Swallow(Long{0}, [&] {
    impl_->CheckAndRebuildPropIndexes();
    return impl_->properties.Count(lngParent);
  });
}

Long Transport::FindCompPropertyByName(Long lngParent, const std::string& strProperty) {
  return Trap{"FindCompPropertyByName", kInvalidHandle}.Run([&] {
    RefuseNul(strProperty);
    const pugi::xml_node element = impl_->NodeOf(lngParent);
    if (!element.first_child()) return Long{0};
    // Unlike the container lookup of AddCompProperty, this one matches the name exactly.
    const pugi::xml_node list = xml::ChildElement(element, "PROPERTIES");
    if (!list) throw AutomationError::Runtime(errObjectNotSet);
    Long position = 1;
    for (pugi::xml_node property = list.first_child(); property; property = property.next_sibling(), ++position) {
      if (xml::LocalNameIs(property, strProperty)) return position;
    }
    return Long{0};
  });
}

std::string Transport::GetCompProperty(Long lngComp, Long lngProperty, std::string& strValue,
                                       enComponentStatus& status, std::string& strOriginal) {
  return Trap{"GetCompProperty", kInvalidHandle}.Run([&] {
    impl_->CheckAndRebuildPropIndexes();
    const pugi::xml_node property = PropertyAt(impl_->properties, lngComp, lngProperty);
    strValue = xml::Text(property);
    std::string name(xml::LocalName(property));
    strOriginal = property.attribute("ORIGINAL").value();
    status = GetNodeStatus(property);
    return name;
  });
}

enComponentStatus Transport::GetCompPropStatus(Long lngHandle, Long lngProperty) {
  return Trap{"GetCompPropStatus", kInvalidHandle}.Run([&] {
    std::string value;
    std::string original;
    enComponentStatus status = csNormal;
    const std::string name = GetCompProperty(lngHandle, lngProperty, value, status, original);
    if (name.empty()) return static_cast<enComponentStatus>(-1);  // a text or comment node
    if (value.empty()) return csNormal;                           // whatever "STATUS" says
    return status;
  });
}

// Attribute writes on a position that holds no element (a text or comment node between the
// property elements) are no-ops, as reading attributes from one gives nothing: such a node only
// takes the new text.
Boolean Transport::ModifyCompProperty(Long lngHandle, Long lngProperty, const std::string& strValue) {
  return Trap{"ModifyCompProperty"}.Run([&] {
    RefuseNul(strValue);
    impl_->CheckAndRebuildChildIndexes();
    impl_->CheckAndRebuildPropIndexes();
    const pugi::xml_node property = PropertyAt(impl_->properties, lngHandle, lngProperty);
    const pugi::xml_node component = impl_->NodeOf(lngHandle);
    const enComponentStatus component_status = GetNodeStatus(component);
    const enComponentStatus property_status = GetNodeStatus(property);
    if (TextEquals(property, strValue)) return vbTrue;

    xml::XmlDocument& doc = *impl_->document;
    Boolean result = vbFalse;
    switch (component_status) {
      case csNormal: {
        const std::string old_value = xml::Text(property);
        SetAttribute(component, "STATUS", "MODIFIED");
        SetAttribute(property, "ORIGINAL", old_value.c_str());
        SetAttribute(property, "STATUS", "MODIFIED");
        doc.SetText(property, strValue);
        result = vbTrue;
        break;
      }
      case csModified:
        if (property_status == csModified) {
          doc.SetText(property, strValue);
        } else {
          const std::string old_value = xml::Text(property);
          doc.SetText(property, strValue);
          SetAttribute(property, "STATUS", "MODIFIED");
          SetAttribute(property, "ORIGINAL", old_value.c_str());
        }
        result = vbTrue;
        break;
      case csNew:
        doc.SetText(property, strValue);
        result = vbTrue;
        break;
      case csDeleted:
        break;
    }
    impl_->prop_indexes_dirty = true;
    return result;
  });
}

}  // namespace varnex
