// Attachments: caller-supplied XML fragments kept under a component's "ATTACHMENTS" element.
#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/transport_impl.hpp"

namespace varnex {

bool Transport::Impl::NodeHasPersistantAttachments(pugi::xml_node node) {
  return Trap{"NodeHasPersistantAttachments"}.Run([&] {
    for (pugi::xml_node list = node.first_child(); list; list = list.next_sibling()) {
      if (!xml::ElementNamed(list, "ATTACHMENTS")) continue;
      for (pugi::xml_node attachment = list.first_child(); attachment; attachment = attachment.next_sibling()) {
        const char* persist = xml::AttributeOrNull(attachment, "persist");
        if (persist && EqualsIgnoreCase(persist, "true")) return true;
      }
      return false;
    }
    return false;
  });
}

}  // namespace varnex
