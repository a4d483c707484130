// Transport: one transport document in memory, addressed through integer handles.
//
// A Transport holds a tree of components and collections with named properties, free
// attributes, XML attachments, prototypes, and lookup lists (domains) with links from property
// names to domains. It records what is new, modified or deleted, keeps the earlier value of every
// changed property, gives the document out whole or reduced to its changes, merges received
// documents, copies values back from a returned one, and clears the marks after an exchange.
//
// Every failure is thrown as varnex::AutomationError. The description starts with the name of
// the operation that failed ("AddComponent: Invalid Handle"); where an operation deviates from
// that rule its comment says so.
//
// Text arguments (names, values, documents, look-up keys) are UTF-8 without NUL characters: text
// that holds one is refused with error 5 "Invalid procedure call or argument" under the
// operation's name before anything changes (XML cannot carry the character, and the rest of the
// value would be lost).
#pragma once

#include <memory>
#include <string>

#include "varnex/dictionary.hpp"
#include "varnex/types.hpp"

// The trim operations work on pugixml documents; <varnex/trim.hpp> brings in pugixml for the
// callers that use them, so that no other user of Transport compiles against it.
namespace pugi {
class xml_document;
class xml_node;
}  // namespace pugi

namespace varnex {

struct TransportInternals;

class Transport {
 public:
  // A new object holds an empty document: root "TALVEN" with empty "DOMAIN" and
  // "PROPERTY_DOMAINS" sections.
  Transport();
  ~Transport();
  // A Transport owns its document alone: it cannot be copied. Moving hands the document and every
  // handle to the new object and leaves the old one holding an empty document, as if new.
  Transport(Transport&& other);
  Transport& operator=(Transport&& other);
  Transport(const Transport&) = delete;
  Transport& operator=(const Transport&) = delete;

  // --- The document -------------------------------------------------------------------------

  // The whole document as text. Failures: "GetTransportDoc: ...".
  std::string TransportDoc();
  // Discards everything, takes the root name from the text and loads its contents.
  // Failures: "GetTransportDoc: ..." (sic); text that does not parse leaves an empty "TALVEN".
  void TransportDoc(const std::string& text);
  // The name of the root element.
  std::string RootName() const;
  // Stores the name and rebuilds an empty document: every handle is gone.
  // Failures: "LetRootName: ...".
  void RootName(const std::string& name);

  // --- Components and collections -----------------------------------------------------------

  // Adds a component under lngParent (0: the root) and returns its new handle.
  Long AddComponent(Long lngParent, const std::string& strName, enComponentStatus csStatus = csNormal);
  // Adds a collection under lngParent (0: the root) and returns its new handle.
  Long AddCollection(Long lngParent, const std::string& strCollectionName);
  // Name, status and type of a handle; returns 1.
  Long GetComponent(Long lngHandle, std::string& strName, enComponentStatus& csStatus, enComponentType& ctType);
  // The lngChild-th child (1-based: live children, then deleted ones) of lngParent.
  // A position beyond the children answers handle 0 with the root's name, without error.
  Long GetCompChild(Long lngParent, Long lngChild, std::string& strName, enComponentStatus& csStatus,
                    enComponentType& ctType, Boolean boolIgnoreDeletes = vbFalse);
  // Number of children; only exactly True (-1) leaves out the deleted ones. Unknown handles: 0.
  Long CountCompChildren(Long lngComp, Boolean boolIgnoreDeletes = vbFalse);
  // Handle of the first child named strChildName (any case), 0 if none.
  Long FindChildCompByName(Long lngParent, const std::string& strChildName);
  // The component's wrapper under a copy of the root, with the domain sections.
  // Failures: 0x80040201 "Error retrieving component xml." (no prefix).
  std::string GetComponentXML(Long lngHandle);
  // Name of the collection that directly holds the component, or "".
  // Failures: "ChiildOfCollection: ..." (sic), no "Invalid Handle" translation.
  std::string ChildOfCollection(Long lngHandle);
  // Status of the component.
  enComponentStatus GetComponentStatus(Long lngHandle);
  // Removes the component's mark and its properties' marks and earlier values.
  // An unknown handle fails with the plain error 424, no prefix.
  void RemoveComponentStatus(Long lngHandle);

  // --- Properties ---------------------------------------------------------------------------

  Long AddCompProperty(Long lngComponent, const std::string& strPropName, const std::string& strPropVal,
                       enComponentStatus enStatus = csNormal, const std::string& strPropOriginal = "");
  // Never fails: unknown handles and any error answer 0.
  Long CountCompProperties(Long lngParent);
  Long FindCompPropertyByName(Long lngParent, const std::string& strProperty);
  // Returns the property's name; value, status and earlier value through the out parameters.
  std::string GetCompProperty(Long lngComp, Long lngProperty, std::string& strValue,
                              enComponentStatus& status, std::string& strOriginal);
  // The property's status; -1 for a position holding a node without a name, csNormal for an
  // empty value.
  enComponentStatus GetCompPropStatus(Long lngHandle, Long lngProperty);
  // Changes a value and records the change. False for a deleted component.
  Boolean ModifyCompProperty(Long lngHandle, Long lngProperty, const std::string& strValue);

  // --- Attributes, attachments, prototypes --------------------------------------------------

  // The value of a free attribute; a missing one fails with error 94. An unknown handle fails
  // with 0x80040201 "GetCompAttribute: Invalid Handle" (source "Transport").
  std::string GetCompAttribute(Long lngHandle, const std::string& strAttributeName);
  // Sets a free attribute; not a tracked change. Unknown handles as for GetCompAttribute.
  Boolean AddCompAttribute(Long lngHandle, const std::string& strAttributeName, const std::string& strAttributeValue);
  // Keeps the first node of the XML text under the component; any non-zero blnPersist marks an
  // element "persist"="true". Text that does not parse: 0x80040201 "Invalid XML supplied.". A
  // fragment that starts with a declaration: 0x80004005 naming it; blnPersist on one that starts
  // with a comment or processing instruction: 438. Both add nothing but "ATTACHMENTS" itself.
  Boolean AddCompAttachment(Long lngHandle, const std::string& strXml, Boolean blnPersist = vbFalse);
  // The XML of the first node that "ATTACHMENTS/" + strName selects (an XPath step: exact case).
  // Nothing found: 0x80040201 "Attachment not found.".
  std::string GetCompAttachment(Long lngHandle, const std::string& strName);
  // Adds a default property to a collection; anything else fails with 0x80040201.
  Boolean AddCompPrototypeProperty(Long lngHandle, const std::string& strPropertyName, const std::string& strValue = "");
  // Prototype property name -> default value, in document order (binary compare); a repeated
  // name fails with 457.
  Dictionary GetCompPrototypeProperties(Long lngHandle);

  // --- Change tracking and exchange ---------------------------------------------------------

  // Clears the marks of the subtree of handle 1 after an exchange: "MODIFIED" components lose
  // their marks and their properties' marks and earlier values, "DELETED" ones are cut out, "NEW"
  // ones are not visited. Returns 0. Failures: source "Transport", "Error Resetting Component
  // Status: ..." once per level (no handle 1 fails too).
  Long ResetStatus();
  // Marks the component and its subtree "DELETED", cutting out new ones, or cuts it out at once
  // when it is new or when boolForgetServer is non-zero. Handles of cut-out components keep
  // answering. Failures: "DeleteComponent: RecurseDeleteComponent: ..." (one per level).
  Boolean DeleteComponent(Long lngHandle, Boolean boolForgetServer = vbFalse);
  // The document as text: whole (tmFull), reduced to the changes (tmShort), or every component
  // without the domain sections (tmMedium); the own document never changes. Any other mode gives
  // "". Failures: "GenerateTransportDoc: GetModifiedXML: TrimDocument: ..." and the like; tmMedium
  // on a document whose text does not load: error 5, "GenerateTransportDoc: GetModifiedXML2: ...".
  std::string GenerateTransportDoc(enTransportMode tmMode);
  // Reduces the subtree of nNode to what must travel, in one bottom-up pass; boolKill tells
  // whether nNode itself may go. Failures: "TrimDocument: ..." once per level.
  void TrimDocument(pugi::xml_document& docShort, pugi::xml_node& nNode, Boolean& boolKill);
  // The milder reduction: strips prototypes and explicitly non-persistent attachments only;
  // boolKill is always False. Failures: "TrimDocument2: ..." once per level.
  void TrimDocument2(pugi::xml_document& docShort, pugi::xml_node& nNode, Boolean& boolKill);
  // Adds the components, links and domains of a received document under lngParent; returns 1.
  Long MergeDocument(const std::string& strDoc, Long lngParent);
  // Copies property values from a returned document, pairing components and properties by
  // position only; returns 1, also for text that does not parse. Failures: "UpdateDocument: ..."
  // then "RecurseCopyProperties: ..." once per level (an own component missing: error 91).
  Long UpdateDocument(const std::string& strDoc);

  // --- Domains ------------------------------------------------------------------------------

  Long AddDomain(const std::string& strName, const std::string& strCode = "", const std::string& strDesc = "");
  Long CountDomains();
  Boolean DicKeyExists(const Dictionary* dic, const std::string& value);
  Long AddDomainItem(Long lngDomain);
  Long CountDomItems(Long lngDomain);
  Long AddDomainProperty(Long lngDomain, Long lngItem, const std::string& strName, const std::string& strValue);
  Boolean DomainExists(const std::string& strName);
  Long CountDomItemProperties(Long lngDomain, Long lngItem);
  Long FindDomainByName(const std::string& strName);
  std::string GetDomain(Long lngDomain, std::string& strCode, std::string& strDesc);
  std::string GetDomItemProperty(Long lngDomain, Long lngItem, Long lngProp, std::string& strVal);
  Long FindDomItemPropByName(Long lngDomain, Long lngItem, const std::string& strName);

  // --- Property-domain links ----------------------------------------------------------------

  Long AddPropDomain(const std::string& strProp, const std::string& strDomain);
  Long CountPropDomains();
  Long FindPropDomainByPropName(const std::string& strProperty);
  // No prefix on failure: an unknown link handle reaches the caller as the plain error.
  std::string GetPropDomain(Long lngPropDomain, std::string& strDomain);

  class Impl;  // the document and its indexes; defined inside the library

 private:
  friend struct TransportInternals;  // the library's own tests look inside
  std::unique_ptr<Impl> impl_;
};

}  // namespace varnex
