// The ranges over children and properties: counted and read through the public operations.
#include "varnex/ranges.hpp"

#include "varnex/transport.hpp"

namespace varnex {
namespace {

ChildInfo ReadChild(Transport& transport, Long parent, Long position) {
  ChildInfo child;
  child.handle = transport.GetCompChild(parent, position, child.name, child.status, child.type);
  return child;
}

PropertyInfo ReadProperty(Transport& transport, Long component, Long position) {
  PropertyInfo property;
  property.position = position;
  property.name = transport.GetCompProperty(component, position, property.value, property.status, property.original);
  return property;
}

}  // namespace

ChildRange Transport::Children(Long lngParent, bool includeDeleted) {
  return ChildRange(*this, ReadChild, lngParent, CountCompChildren(lngParent, includeDeleted ? vbFalse : vbTrue));
}

PropertyRange Transport::Properties(Long lngComponent) {
  return PropertyRange(*this, ReadProperty, lngComponent, CountCompProperties(lngComponent));
}

}  // namespace varnex
