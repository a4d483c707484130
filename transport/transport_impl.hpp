// The inside of a Transport: its document, its handle indexes and its private operations.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "varnex/trim.hpp"

#include "domains/domain_tables.hpp"
#include "runtime/xml_document.hpp"
#include "transport/child_index.hpp"
#include "transport/handle_table.hpp"
#include "transport/property_index.hpp"
#include "varnex/transport.hpp"

namespace varnex {

struct TrimMarks;

// Name of the root until a caller or a loaded document says otherwise; also the fixed key under
// which the root is registered, whatever it is called.
inline constexpr const char* kDefaultRootName = "TALVEN";

class Transport::Impl {
 public:
  explicit Impl(Transport& owner) : self_(&owner) {}

  // The public face, for private operations that call public ones (moved along with the object).
  Transport* self_;
  Transport& self() { return *self_; }

  // --- Storage ----------------------------------------------------------------------------
  std::string root_name = kDefaultRootName;
  std::unique_ptr<xml::XmlDocument> document;  // nothing until built
  pugi::xml_node root;                         // the named nodes "TALVEN" and "0"
  pugi::xml_node domain_section;               // the named node "DOMAIN"
  pugi::xml_node property_domain_section;      // the named node "PROPERTY_DOMAINS"
  Long last_handle = 0;                        // shared by components, collections and links
  HandleTable handles;
  ChildIndex children;
  PropertyIndex properties;
  bool child_indexes_dirty = false;
  bool prop_indexes_dirty = false;
  DomainTables domains;

  // --- Document storage (transport.cpp) ----------------------------------------------------
  void Release();
  void BuildEmptyDocument();
  // Sets the root name and builds the empty document ("LetRootName: " on failure).
  void LetRootName(const std::string& name);
  xml::XmlDocument& Document();

  // --- Handles (indexes.cpp) ---------------------------------------------------------------
  // The element of a handle, 0 being the root; error 424 when the handle names nothing.
  pugi::xml_node NodeOf(Long handle) const;
  // The root, as the fixed key "TALVEN" finds it; error 424 when the document has none.
  pugi::xml_node RootNode() const;
  // The parent element that AddComponent and its kin take for a parent handle.
  pugi::xml_node ParentNode(Long parent) const { return parent == 0 ? RootNode() : NodeOf(parent); }
  Long HandleOf(pugi::xml_node node) const { return handles.HandleOf(node); }
  // Issues the next handle for a name element.
  Long IssueHandle(pugi::xml_node name_element);
  // The parent of a node as the document reports it (nothing for the top of a cut-out tree).
  pugi::xml_node ParentOf(pugi::xml_node node) const { return document->ParentOf(node); }
  // True when the node's local name is the root name (compared without regard to case).
  bool IsRootNamed(pugi::xml_node node) const;

  void CheckAndRebuildChildIndexes();
  void CheckAndRebuildPropIndexes();
  Long CountChildren(Long parent, Boolean ignore_deletes) const;

  // --- Components (components.cpp) ---------------------------------------------------------
  // Appends a wrapper and its name element under the parent and issues the handle.
  Long AddWrapped(Long parent, const char* wrapper, const std::string& name, Long status);

  // --- Attachments (attachments.cpp) -------------------------------------------------------
  bool NodeHasPersistantAttachments(pugi::xml_node node);

  // --- Deletion and reset (deletion.cpp, reset.cpp) ----------------------------------------
  Boolean RecurseDeleteComponent(Long handle, Boolean forget);
  Boolean ResetComponentStatus(Long handle);
  // Cuts a component's wrapper out of its parent, keeping it alive (error 91 when there is none).
  void CutOut(pugi::xml_node element);

  // --- Updating (update.cpp) ---------------------------------------------------------------
  Long RecurseCopyProperties(pugi::xml_node incoming, pugi::xml_node own);

  // --- Generation (generation.cpp, trim.cpp) -----------------------------------------------
  std::string GetModifiedXML();
  std::string GetModifiedXML2();
  Long HasModifications(pugi::xml_node node);
  Long ChildCompCount(pugi::xml_node node);
  // Records what TrimDocument would remove below the node, changing nothing; fails as
  // TrimDocument does. False when the tree's text, loaded afresh, would not load or would be
  // reduced otherwise.
  bool MarkTrim(pugi::xml_node node, TrimMarks& marks);

  // --- Merging (merge.cpp) -----------------------------------------------------------------
  Long MergeTransportIn(Long parent, const std::string& text);
  // The same, on text already loaded by the caller.
  Long MergeTransportIn(Long parent, pugi::xml_document& incoming);
  // Copies an incoming component node and its whole subtree under the parent, without native
  // recursion. Its "PROTOTYPE" elements are moved aside within the incoming document.
  void RecurseComponents(Long parent, pugi::xml_node node);

  // --- Domains (domains/) ------------------------------------------------------------------
  bool AttributeExists(pugi::xml_node element, const char* name);
};

}  // namespace varnex
