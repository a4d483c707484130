// Giving the document out as text: whole, reduced to its changes, or without the domain sections.
#include "transport/transport_impl.hpp"

#include "runtime/trap.hpp"

namespace varnex {

std::string Transport::GenerateTransportDoc(enTransportMode tmMode) {
  return Trap{"GenerateTransportDoc"}.Run([&] {
    switch (tmMode) {
      case tmFull: return impl_->Document().Serialize();
      case tmShort: return impl_->GetModifiedXML();
      case tmMedium: return impl_->GetModifiedXML2();
      default: return std::string();
    }
  });
}

std::string Transport::Impl::GetModifiedXML() {
  throw AutomationError::Class("Transport", "The reduced document is not available in this build.");
}

std::string Transport::Impl::GetModifiedXML2() {
  throw AutomationError::Class("Transport", "The reduced document is not available in this build.");
}

}  // namespace varnex
