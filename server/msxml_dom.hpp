// A caller's MSXML DOM tree as the reduction of transport/trim_walk.hpp sees it, and the policy
// that removes what it condemns from that tree. Every failing DOM call raises its error.
#pragma once

#include <windows.h>
#include <msxml2.h>

#include "com_ptr.hpp"
#include "transport/trim_walk.hpp"
#include "varnex/types.hpp"

namespace varnex::server {

struct MsxmlDom {
  using Node = ComPtr<IXMLDOMNode>;
  static Node FirstChild(const Node& node);
  static Node NextSibling(const Node& node);
  // baseName "COMPONENT" or "COLLECTION", any case.
  static bool IsWrapper(const Node& node);
  // The first child element whose nodeName is exactly name.
  static Node ChildElement(const Node& node, const char* name);
  static enComponentStatus Status(const Node& node);
  static trim::Persist Persistence(const Node& attachment);
};

struct MsxmlRemoving {
  static bool Enter(const MsxmlDom::Node&) { return true; }
  static bool Attachments(const MsxmlDom::Node&) { return true; }
  static void Remove(const MsxmlDom::Node& parent, const MsxmlDom::Node& child);
};

// The DOM node behind an object a caller passed: null for Nothing, error 13 for any object that
// is no DOM node.
MsxmlDom::Node DomNodeOf(IDispatch* object);

}  // namespace varnex::server
