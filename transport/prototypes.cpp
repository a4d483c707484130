// Prototypes: property names with default values, kept on the members of a collection under
// "PROTOTYPE".
#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/transport_impl.hpp"

namespace varnex {
namespace {

// The element of a handle. The prototype operations end their handle message with a full stop;
// their traps report the class as the source.
pugi::xml_node PrototypeHolder(const Transport::Impl& impl, Long handle) {
  try {
    return impl.NodeOf(handle);
  } catch (const AutomationError& error) {
    throw AutomationError(error.number(), error.source(), "Invalid Handle.");
  }
}

}  // namespace

Boolean Transport::AddCompPrototypeProperty(Long lngHandle, const std::string& strPropertyName,
                                            const std::string& strValue) {
  return Trap{"AddCompPrototypeProperty", {}, "Transport"}.Run([&] {
    RefuseNul(strPropertyName, strValue);
    xml::XmlDocument& doc = impl_->Document();
    const pugi::xml_node element = PrototypeHolder(*impl_, lngHandle);
    const pugi::xml_node wrapper = impl_->ParentOf(element);
    if (!wrapper) throw AutomationError::Runtime(errObjectNotSet);  // a cut-out component has no parent
    if (!EqualsIgnoreCase(wrapper.name(), "COLLECTION")) {
      throw AutomationError::Class("Transport", "Invalid handle.  Handle must be a collection.");
    }
    pugi::xml_node prototype = xml::ChildElement(element, "PROTOTYPE");
    if (!prototype) prototype = doc.AppendElement(element, "PROTOTYPE");
    doc.SetText(doc.AppendElement(prototype, UCase(strPropertyName)), strValue);
    return vbTrue;
  });
}

Dictionary Transport::GetCompPrototypeProperties(Long lngHandle) {
  return Trap{"GetCompPrototypeProperties", {}, "Transport"}.Run([&] {
    impl_->CheckAndRebuildChildIndexes();
    const pugi::xml_node element = PrototypeHolder(*impl_, lngHandle);
    Dictionary defaults;
    // Every "PROTOTYPE" child counts, in document order; a repeated name is refused (457).
    for (pugi::xml_node prototype = element.first_child(); prototype; prototype = prototype.next_sibling()) {
      if (!xml::ElementNamed(prototype, "PROTOTYPE")) continue;
      for (pugi::xml_node property = prototype.first_child(); property; property = property.next_sibling()) {
        if (property.type() == pugi::node_element) defaults.Add(property.name(), Variant(xml::Text(property)));
      }
    }
    return defaults;
  });
}

}  // namespace varnex
