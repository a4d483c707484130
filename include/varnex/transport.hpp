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
// that rule its comment says so. Unless a comment says otherwise, an unknown handle is error 424
// with "<Operation>: Invalid Handle", any other failure keeps its number and source and gets the
// prefix "<Operation>: ", and work done before a failure is not undone.
//
// Handles: components, collections and property-domain links draw on one counter (1, 2, ...;
// never reused while the document lives; 0 is the root). Domains have a counter of their own.
// Properties are numbered 1, 2, ... among all child nodes of a component's property list.
// Booleans are automation Booleans: True is -1. Where an operation counts only -1 as True, or any
// non-zero value, its comment says so.
//
// Text arguments (names, values, documents, look-up keys) are UTF-8 without NUL characters: text
// that holds one is refused with error 5 "Invalid procedure call or argument" under the
// operation's name before anything changes (XML cannot carry the character, and the rest of the
// value would be lost). The handle counter stops at 2,147,483,647: one more is error 6 "Overflow".
#pragma once

#include <memory>
#include <string>

#include "varnex/dictionary.hpp"
#include "varnex/ranges.hpp"
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

  // Adds a component under lngParent (0: the root) and returns its new handle. The name is stored
  // upper-cased. A name that is no XML name (empty, a leading digit, a blank) fails with error
  // 0x80004005 and leaves an empty wrapper behind under the parent, which the indexes then count
  // as a child with handle 0.
  Long AddComponent(Long lngParent, const std::string& strName, enComponentStatus csStatus = csNormal);
  // Adds a collection under lngParent (0: the root) and returns its new handle; as AddComponent.
  Long AddCollection(Long lngParent, const std::string& strCollectionName);
  // Name, status and type of a handle; returns 1.
  Long GetComponent(Long lngHandle, std::string& strName, enComponentStatus& csStatus, enComponentType& ctType);
  // The lngChild-th child (1-based: live children, then deleted ones) of lngParent.
  // A position beyond the children answers handle 0 with the root's name, without error. Any
  // non-zero boolIgnoreDeletes leaves the deleted ones out. A position read and missed leaves its
  // key behind until the indexes are next rebuilt: read again with boolIgnoreDeletes False, it
  // still answers 0 instead of a deleted child.
  Long GetCompChild(Long lngParent, Long lngChild, std::string& strName, enComponentStatus& csStatus,
                    enComponentType& ctType, Boolean boolIgnoreDeletes = vbFalse);
  // Number of children. Only exactly True (-1) leaves out the deleted ones: 1 counts them, unlike
  // GetCompChild. Unknown handles count 0.
  Long CountCompChildren(Long lngComp, Boolean boolIgnoreDeletes = vbFalse);
  // Handle of the first child named strChildName (any case), 0 if none. The name goes into an
  // XPath expression: one with a blank fails with error 0x80004005.
  Long FindChildCompByName(Long lngParent, const std::string& strChildName);
  // The component's wrapper under a copy of the root, with the domain sections.
  // Failures: 0x80040201 "Error retrieving component xml." (source "Transport", no prefix).
  std::string GetComponentXML(Long lngHandle);
  // Name of the collection that directly holds the component, or "".
  // Failures: "ChiildOfCollection: ..." (sic), no "Invalid Handle" translation.
  std::string ChildOfCollection(Long lngHandle);
  // Status of the component, as its "STATUS" attribute says (csNormal when absent or unknown).
  enComponentStatus GetComponentStatus(Long lngHandle);
  // Removes the component's mark and its properties' marks and earlier values; child components
  // keep theirs. The indexes are not told: a component that was "DELETED" keeps counting among
  // the deleted children until the next addition or deletion. An unknown handle fails with the
  // plain error 424, no prefix.
  void RemoveComponentStatus(Long lngHandle);

  // The children of lngParent (0: the top level) in GetCompChild's order: the live ones, then,
  // with includeDeleted, the deleted ones. Counted once, each read when reached (as GetCompChild).
  ChildRange Children(Long lngParent, bool includeDeleted = true);

  // --- Properties ---------------------------------------------------------------------------

  // Appends a property (name upper-cased, xml:space="preserve", the value as text) to the
  // component's property list, creating the list first; csNormal writes no "STATUS" and an empty
  // strPropOriginal no "ORIGINAL". Returns 1. A name that is no XML name: error 0x80004005.
  Long AddCompProperty(Long lngComponent, const std::string& strPropName, const std::string& strPropVal,
                       enComponentStatus enStatus = csNormal, const std::string& strPropOriginal = "");
  // Number of child nodes of the property list (text between properties counts too). Never fails:
  // unknown handles and any error answer 0.
  Long CountCompProperties(Long lngParent);
  // Number of the first property named strProperty (any case), 0 if none. A component that has
  // children but no "PROPERTIES" list fails with error 91.
  Long FindCompPropertyByName(Long lngParent, const std::string& strProperty);
  // Returns the property's name; value, status and earlier value ("ORIGINAL") through the out
  // parameters. An unknown component or number: error 424, "GetCompProperty: Invalid Handle".
  std::string GetCompProperty(Long lngComp, Long lngProperty, std::string& strValue,
                              enComponentStatus& status, std::string& strOriginal);
  // The property's status; -1 for a position holding a node without a name, and csNormal for an
  // empty value whatever its mark (GetCompProperty reports the true one).
  enComponentStatus GetCompPropStatus(Long lngHandle, Long lngProperty);
  // Changes a value and records the change: the first change of a property of a component that is
  // not "NEW" keeps the value before it as "ORIGINAL" and marks property and component "MODIFIED".
  // The same value (compared exactly) changes nothing; changing back to the original stays
  // "MODIFIED". False, changing nothing, for a deleted component. An unknown component or number
  // fails with "ModifyCompProperty: Object required" (no "Invalid Handle").
  Boolean ModifyCompProperty(Long lngHandle, Long lngProperty, const std::string& strValue);
  // The properties of a component, numbered from 1, each read when reached (as GetCompProperty).
  PropertyRange Properties(Long lngComponent);

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
  // Adds a default property (name upper-cased) to the prototype of a collection. Any other handle
  // fails with 0x80040201 "AddCompPrototypeProperty: Invalid handle.  Handle must be a collection.".
  Boolean AddCompPrototypeProperty(Long lngHandle, const std::string& strPropertyName, const std::string& strValue = "");
  // Prototype property name -> default value, in document order (binary compare); empty without a
  // prototype; a repeated name fails with 457.
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
  //
  // Lookup lists inside "DOMAIN". Domains have their own handles (1, 2, ...), items are numbered
  // per domain and item properties per item. Names compare without regard to case. The domain
  // operations know no "Invalid Handle": an unknown handle or number fails with the plain error
  // under the operation's prefix (424 for a missing element). Every look-up of a name or number
  // that is not there leaves it recorded as taken: a later AddDomain of that name answers 0, and
  // a later AddDomainProperty of that name, or an AddDomain reaching that handle, fails with 457.

  // Adds a domain (name upper-cased; "CODE" and "DESC" written only when non-empty) and returns
  // its handle, or 0 when the name is taken already (also by a look-up), adding nothing.
  Long AddDomain(const std::string& strName, const std::string& strCode = "", const std::string& strDesc = "");
  // Number of domains. Cannot fail.
  Long CountDomains();
  // True exactly when the dictionary holds the key; nothing (nullptr) and any failure answer False.
  Boolean DicKeyExists(const Dictionary* dic, const std::string& value);
  // Adds an empty item to a domain and returns its number within the domain.
  Long AddDomainItem(Long lngDomain);
  // Number of items of a domain; 0 for a domain without items or unknown.
  Long CountDomItems(Long lngDomain);
  // Adds a property (name upper-cased, value as text) to an item and returns its number within
  // the item. A name the item has already fails with 457, after the element is appended and the
  // count raised.
  Long AddDomainProperty(Long lngDomain, Long lngItem, const std::string& strName, const std::string& strValue);
  // True when the name (any case) is taken: by a domain, by an earlier look-up of it, or by a
  // domain handle written as that text ("1" once domain 1 exists).
  Boolean DomainExists(const std::string& strName);
  // Number of properties of an item; 0 when unknown.
  Long CountDomItemProperties(Long lngDomain, Long lngItem);
  // The handle of the domain named strName (any case); 0 when unknown (and the name is then taken).
  Long FindDomainByName(const std::string& strName);
  // The domain's name (upper-cased); its "CODE" and "DESC" through the out parameters ("" when
  // absent).
  std::string GetDomain(Long lngDomain, std::string& strCode, std::string& strDesc);
  // The item property's name (upper-cased); its value through strVal.
  std::string GetDomItemProperty(Long lngDomain, Long lngItem, Long lngProp, std::string& strVal);
  // The number of the item's property named strName (any case); 0 when unknown (and then taken).
  Long FindDomItemPropByName(Long lngDomain, Long lngItem, const std::string& strName);

  // --- Property-domain links ----------------------------------------------------------------
  //
  // Links from a property name to a domain name, inside "PROPERTY_DOMAINS". A link's handle comes
  // from the component counter, so every link uses up a handle a component would otherwise get.

  // Links a property name (upper-cased) to a domain name (kept as given) and returns the link's
  // handle; 0 when the property name (any case) is linked already or was looked up, adding nothing.
  Long AddPropDomain(const std::string& strProp, const std::string& strDomain);
  // Number of links added since the document was last emptied. Cannot fail.
  Long CountPropDomains();
  // The handle of the link of a property name (any case); 0 when unknown (and the name is then
  // taken, so a later AddPropDomain of it answers 0).
  Long FindPropDomainByPropName(const std::string& strProperty);
  // The linked property's name; the domain name through strDomain. No prefix on failure: an
  // unknown link handle (0 included) reaches the caller as the plain error 424.
  std::string GetPropDomain(Long lngPropDomain, std::string& strDomain);

  class Impl;  // the document and its indexes; defined inside the library

 private:
  friend struct TransportInternals;  // the library's own tests look inside
  std::unique_ptr<Impl> impl_;
};

}  // namespace varnex
