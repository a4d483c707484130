// Property-domain links: which domain supplies the values of a property name, kept in the
// "PROPERTY_DOMAINS" section. Link handles are drawn from the counter that numbers components
// and collections, so they interleave with component handles.
#include "transport/transport_impl.hpp"

#include "runtime/counter.hpp"
#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"

namespace varnex {

Long Transport::AddPropDomain(const std::string& strProp, const std::string& strDomain) {
  return Trap{"AddPropDomain"}.Run([&] {
    RefuseNul(strProp, strDomain);
    DomainTables& tables = impl_->domains;
    const std::string name_key = DomainTables::LinkKey(strProp);
    if (tables.prop_domain_index.Exists(name_key)) return Long{0};
    if (!impl_->property_domain_section) throw AutomationError::Runtime(errObjectRequired);
    xml::XmlDocument& document = impl_->Document();
    const pugi::xml_node link = document.AppendElement(impl_->property_domain_section, UCase(strProp));
    document.SetText(link, strDomain);
    // The handle is not entered in the component handle table: links are found here only.
    const Long handle = Advance(impl_->last_handle);
    tables.prop_domain_index.Add(FormatLong(handle), link);
    tables.prop_domain_index.Add(name_key, handle);
    ++tables.prop_domain_count;
    return handle;
  });
}

Long Transport::CountPropDomains() { return impl_->domains.prop_domain_count; }

Long Transport::FindPropDomainByPropName(const std::string& strProperty) {
  return Trap{"FindPropDomainByPropName"}.Run([&] {
    RefuseNul(strProperty);
    return DomainTables::NumberOf(impl_->domains.prop_domain_index.Item(DomainTables::LinkKey(strProperty)));
  });
}

std::string Transport::GetPropDomain(Long lngPropDomain, std::string& strDomain) {
  // No trap: an unknown handle fails with the plain error.
  const pugi::xml_node link = DomainTables::ElementOf(impl_->domains.prop_domain_index.Item(FormatLong(lngPropDomain)));
  strDomain.clear();
  std::string name(xml::LocalName(link));
  strDomain = xml::Text(link);
  return name;
}

}  // namespace varnex
