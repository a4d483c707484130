// Domains: named lookup lists in the "DOMAIN" section, their items and item properties.
//
// Unknown handles are not translated into "Invalid Handle" here: the index read yields no
// element and the failure reaches the caller as error 424 under the operation's name.
#include "transport/transport_impl.hpp"

#include "runtime/counter.hpp"
#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "varnex/dictionary.hpp"

namespace varnex {

Long Transport::AddDomain(const std::string& strName, const std::string& strCode, const std::string& strDesc) {
  return Trap{"AddDomain"}.Run([&] {
    RefuseNul(strName, strCode, strDesc);
    DomainTables& tables = impl_->domains;
    const std::string name = UCase(strName);
    // A key left behind by an earlier lookup counts as taken too.
    if (tables.domain_index.Exists(name)) return Long{0};
    if (!impl_->domain_section) throw AutomationError::Runtime(errObjectRequired);
    const pugi::xml_node domain = impl_->Document().AppendElement(impl_->domain_section, name);
    if (!strCode.empty()) SetAttribute(domain, "CODE", strCode.c_str());
    if (!strDesc.empty()) SetAttribute(domain, "DESC", strDesc.c_str());
    const Long handle = Advance(tables.domain_counter);
    tables.domain_index.Add(DomainTables::Key(handle), domain);
    tables.domain_index.Add(name, handle);
    ++tables.domain_counts.Item("0");
    return handle;
  });
}

Long Transport::CountDomains() {
  return Trap{"CountDomains"}.Run([&] { return impl_->domains.domain_counts.Item("0"); });
}

Boolean Transport::DicKeyExists(const Dictionary* dic, const std::string& value) {
  // Any failure, a missing dictionary included, answers False.
  return Swallow(vbFalse, [&] { return dic != nullptr && dic->Exists(value) ? vbTrue : vbFalse; });
}

Long Transport::AddDomainItem(Long lngDomain) {
  return Trap{"AddDomainItem"}.Run([&] {
    DomainTables& tables = impl_->domains;
    const std::string domain_key = DomainTables::Key(lngDomain);
    const pugi::xml_node domain = DomainTables::ElementOf(tables.domain_index.Item(domain_key));
    const pugi::xml_node item = impl_->Document().AppendElement(domain, "ITEM");
    // A missing count reads as 0: the first item is number 1.
    const Long number = ++tables.domain_counts.Item(domain_key);
    tables.domain_index.Add(DomainTables::Key(lngDomain, number), item);
    return number;
  });
}

Long Transport::CountDomItems(Long lngDomain) {
  return Trap{"CountDomItems"}.Run(
      [&] { return impl_->domains.domain_counts.Item(DomainTables::Key(lngDomain)); });
}

Long Transport::AddDomainProperty(Long lngDomain, Long lngItem, const std::string& strName,
                                  const std::string& strValue) {
  return Trap{"AddDomainProperty"}.Run([&] {
    RefuseNul(strName, strValue);
    DomainTables& tables = impl_->domains;
    xml::XmlDocument& document = impl_->Document();
    const std::string item_key = DomainTables::Key(lngDomain, lngItem);
    const pugi::xml_node item = DomainTables::ElementOf(tables.domain_index.Item(item_key));
    const std::string name = UCase(strName);
    const pugi::xml_node property = document.AppendElement(item, name);
    document.SetText(property, strValue);
    const Long number = ++tables.domain_counts.Item(item_key);
    // The element and the count stay when the name key below turns out to be taken.
    tables.domain_index.Add(DomainTables::Key(lngDomain, lngItem, number), property);
    tables.domain_index.Add(DomainTables::Key(lngDomain, lngItem, name), number);
    return number;
  });
}

Boolean Transport::DomainExists(const std::string& strName) {
  return Trap{"DomainExists"}.Run([&] {
    RefuseNul(strName);
    return impl_->domains.domain_index.Exists(UCase(strName)) ? vbTrue : vbFalse;
  });
}

Long Transport::CountDomItemProperties(Long lngDomain, Long lngItem) {
  return Trap{"CountDomItemProperties"}.Run(
      [&] { return impl_->domains.domain_counts.Item(DomainTables::Key(lngDomain, lngItem)); });
}

Long Transport::FindDomainByName(const std::string& strName) {
  return Trap{"FindDomainByName"}.Run([&] {
    RefuseNul(strName);
    return DomainTables::NumberOf(impl_->domains.domain_index.Item(UCase(strName)));
  });
}

std::string Transport::GetDomain(Long lngDomain, std::string& strCode, std::string& strDesc) {
  return Trap{"GetDomain"}.Run([&] {
    const pugi::xml_node domain =
        DomainTables::ElementOf(impl_->domains.domain_index.Item(DomainTables::Key(lngDomain)));
    strCode.clear();
    strDesc.clear();
    std::string name(xml::LocalName(domain));
    if (impl_->AttributeExists(domain, "DESC")) strDesc = domain.attribute("DESC").value();
    if (impl_->AttributeExists(domain, "CODE")) strCode = domain.attribute("CODE").value();
    return name;
  });
}

std::string Transport::GetDomItemProperty(Long lngDomain, Long lngItem, Long lngProp, std::string& strVal) {
  return Trap{"GetDomItemProperty"}.Run([&] {
    const pugi::xml_node property = DomainTables::ElementOf(
        impl_->domains.domain_index.Item(DomainTables::Key(lngDomain, lngItem, lngProp)));
    std::string name(xml::LocalName(property));
    strVal = xml::Text(property);
    return name;
  });
}

Long Transport::FindDomItemPropByName(Long lngDomain, Long lngItem, const std::string& strName) {
  return Trap{"FindDomItemPropByName"}.Run([&] {
    RefuseNul(strName);
    const std::string key = DomainTables::Key(lngDomain, lngItem, UCase(strName));
    return DomainTables::NumberOf(impl_->domains.domain_index.Item(key));
  });
}

bool Transport::Impl::AttributeExists(pugi::xml_node element, const char* name) {
  return Swallow(false, [&] { return xml::AttributeOrNull(element, name) != nullptr; });
}

}  // namespace varnex
