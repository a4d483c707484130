// Free attributes of a component element: set and read under the caller's names, untracked.
#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"

namespace varnex {
namespace {

// The element of a handle; an unknown handle is a class error of its own here, not error 424.
pugi::xml_node ComponentOrInvalidHandle(const Transport::Impl& impl, Long handle) {
  try {
    return impl.NodeOf(handle);
  } catch (const AutomationError&) {
    throw AutomationError::Class("Transport", "Invalid Handle");
  }
}

}  // namespace

std::string Transport::GetCompAttribute(Long lngHandle, const std::string& strAttributeName) {
  return Trap{"GetCompAttribute"}.Run([&] {
    RefuseNul(strAttributeName);
    Trap{"Error Rebuilding Indexes"}.Run([&] {
      impl_->CheckAndRebuildChildIndexes();
      impl_->CheckAndRebuildPropIndexes();
    });
    const pugi::xml_node element = ComponentOrInvalidHandle(*impl_, lngHandle);
    // A missing attribute is Null, which does not convert to text.
    const char* value = xml::AttributeOrNull(element, strAttributeName.c_str());
    if (!value) throw AutomationError::Runtime(errInvalidUseOfNull);
    return std::string(value);
  });
}

Boolean Transport::AddCompAttribute(Long lngHandle, const std::string& strAttributeName,
                                    const std::string& strAttributeValue) {
  return Trap{"AddCompAttribute"}.Run([&] {
    RefuseNul(strAttributeName, strAttributeValue);
    const pugi::xml_node element = ComponentOrInvalidHandle(*impl_, lngHandle);
    if (!xml::IsElementName(strAttributeName)) {
      throw AutomationError(errXml, kRuntimeSource,
                            "The name '" + strAttributeName + "' is not a valid XML attribute name.");
    }
    SetAttribute(element, strAttributeName.c_str(), strAttributeValue.c_str());
    if (strAttributeName == "STATUS") impl_->upkeep.StatusChanged(lngHandle);
    return vbTrue;
  });
}

}  // namespace varnex
