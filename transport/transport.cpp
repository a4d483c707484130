// The Transport object and its document storage: creation, reset, the root name and the
// document as a whole.
#include "transport/transport_impl.hpp"

#include <utility>

#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"

namespace varnex {

namespace {

std::unique_ptr<Transport::Impl> EmptyImpl(Transport& owner) {
  auto impl = std::make_unique<Transport::Impl>(owner);
  impl->BuildEmptyDocument();
  return impl;
}

}  // namespace

Transport::Transport() : impl_(EmptyImpl(*this)) {}
Transport::~Transport() = default;

// The moved-from object is left as a new one, so that every later call on it still answers.
Transport::Transport(Transport&& other) : impl_(std::exchange(other.impl_, EmptyImpl(other))) {
  impl_->self_ = this;
}

Transport& Transport::operator=(Transport&& other) {
  if (this != &other) {
    impl_ = std::exchange(other.impl_, EmptyImpl(other));
    impl_->self_ = this;
  }
  return *this;
}

void Transport::Impl::Release() {
  document.reset();
  root = domain_section = property_domain_section = pugi::xml_node();
  handles.Clear();
  children.Build({});
  properties.Reset();
  upkeep.Reset();
  domains.Release();
  last_handle = 0;
}

void Transport::Impl::BuildEmptyDocument() {
  Release();
  document = std::make_unique<xml::XmlDocument>();
  document->Observe(&upkeep);
  root = document->AppendElement(document->document(), root_name);
  domain_section = document->AppendElement(root, "DOMAIN");
  property_domain_section = document->AppendElement(root, "PROPERTY_DOMAINS");
  domains.Reset();
  last_handle = 0;
  child_indexes_dirty = false;
  prop_indexes_dirty = false;
  upkeep.Reset();
}

void Transport::Impl::LetRootName(const std::string& name) {
  Trap{"LetRootName"}.Run([&] {
    RefuseNul(name);
    root_name = name;
    BuildEmptyDocument();
  });
}

xml::XmlDocument& Transport::Impl::Document() {
  if (!document) {
    document = std::make_unique<xml::XmlDocument>();
    document->Observe(&upkeep);
  }
  return *document;
}

std::string Transport::RootName() const { return impl_->root_name; }

void Transport::RootName(const std::string& name) { impl_->LetRootName(name); }

std::string Transport::TransportDoc() {
  return Trap{"GetTransportDoc"}.Run([&] { return GenerateTransportDoc(tmFull); });
}

void Transport::TransportDoc(const std::string& text) {
  Trap{"GetTransportDoc"}.Run([&] {
    RefuseNul(text);
    impl_->Release();
    impl_->root_name = kDefaultRootName;
    impl_->BuildEmptyDocument();
    if (impl_->LoadInOnePass(text)) return;
    pugi::xml_document incoming;
    xml::LoadText(incoming, text);
    const pugi::xml_node first = incoming.first_child();
    if (!first) throw AutomationError::Runtime(errObjectNotSet);
    impl_->LetRootName(std::string(xml::LocalName(first)));
    impl_->MergeTransportIn(0, incoming);
  });
}

}  // namespace varnex
