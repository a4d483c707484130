// The Transport object and its document storage: creation, reset, the root name and the
// document as a whole.
#include "transport/transport_impl.hpp"

#include "runtime/trap.hpp"
#include "runtime/xml.hpp"

namespace varnex {

Transport::Transport() : impl_(std::make_unique<Impl>(*this)) { impl_->BuildEmptyDocument(); }
Transport::~Transport() = default;

void Transport::Impl::Release() {
  document.reset();
  root = domain_section = property_domain_section = pugi::xml_node();
  handles.Clear();
  children.Build({}, 0);
  properties.Reset(0);
  domains = DomainTables{};
  last_handle = 0;
}

void Transport::Impl::BuildEmptyDocument() {
  Release();
  document = std::make_unique<xml::XmlDocument>();
  root = document->AppendElement(document->document(), root_name);
  domain_section = document->AppendElement(root, "DOMAIN");
  property_domain_section = document->AppendElement(root, "PROPERTY_DOMAINS");
  domains.Reset();
  last_handle = 0;
  child_indexes_dirty = false;
  prop_indexes_dirty = false;
}

void Transport::Impl::LetRootName(const std::string& name) {
  Trap{"LetRootName"}.Run([&] {
    root_name = name;
    BuildEmptyDocument();
  });
}

xml::XmlDocument& Transport::Impl::Document() {
  if (!document) document = std::make_unique<xml::XmlDocument>();
  return *document;
}

std::string Transport::RootName() const { return impl_->root_name; }

void Transport::RootName(const std::string& name) { impl_->LetRootName(name); }

std::string Transport::TransportDoc() {
  return Trap{"GetTransportDoc"}.Run([&] { return GenerateTransportDoc(tmFull); });
}

void Transport::TransportDoc(const std::string& text) {
  Trap{"GetTransportDoc"}.Run([&] {
    impl_->Release();
    impl_->root_name = kDefaultRootName;
    impl_->BuildEmptyDocument();
    pugi::xml_document incoming;
    xml::LoadText(incoming, text);
    const pugi::xml_node first = incoming.first_child();
    if (!first) throw AutomationError::Runtime(errObjectNotSet);
    impl_->LetRootName(std::string(xml::LocalName(first)));
    impl_->MergeTransportIn(0, incoming);
  });
}

}  // namespace varnex
