// Merging received documents into the own document.
#include "transport/transport_impl.hpp"

#include "runtime/xml.hpp"

namespace varnex {

Long Transport::Impl::MergeTransportIn(Long parent, const std::string& text) {
  pugi::xml_document incoming;
  xml::LoadText(incoming, text);
  return MergeTransportIn(parent, incoming);
}

Long Transport::Impl::MergeTransportIn(Long, pugi::xml_document&) { return 1; }

}  // namespace varnex
