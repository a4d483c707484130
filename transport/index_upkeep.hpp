// Keeps the child and property indexes up as the document changes, so that a rebuild marked
// stale costs only what changed since the last one.
//
// The indexes must answer exactly as "mark stale, rebuild everything on the next read" does.
// While an index is not marked stale it holds what the last rebuild found, even where the
// document has changed since (a reset that cut components out, a status removed); when it is
// marked stale, the next read brings it up to date. So each change is applied to an index at
// once when the index is marked stale already (or is about to be, by the operation that makes
// the change), and otherwise kept aside until the next rebuild. The changes followed one by one
// are the common ones: a component or collection added, a property added, a status changed, a
// component cut out. Any other change to the tree (one that the document reports and no
// operation explains: a wrapper or property list made some other way, a node taken out of a
// list, the remains of a failed operation) is checked against what the indexes look at, and
// when it may matter the next rebuild is a full one.
#pragma once

#include <cstdint>
#include <vector>

#include <pugixml.hpp>

#include "runtime/xml_document.hpp"
#include "varnex/transport.hpp"

namespace varnex {

class IndexUpkeep final : public xml::XmlDocument::Observer {
 public:
  explicit IndexUpkeep(Transport::Impl& impl) : impl_(impl) {}
  IndexUpkeep(const IndexUpkeep&) = delete;
  IndexUpkeep& operator=(const IndexUpkeep&) = delete;

  // Forgets everything: the indexes of a new, empty document.
  void Reset();

  // Held by an operation while it changes the tree in ways it then explains through the calls
  // below. When the operation fails after changing the tree, the next rebuilds are full ones.
  class Explaining {
   public:
    explicit Explaining(IndexUpkeep& upkeep);
    Explaining(const Explaining&) = delete;
    Explaining& operator=(const Explaining&) = delete;
    ~Explaining();
    // The changes made so far are explained.
    void Done() { done_ = true; }

   private:
    IndexUpkeep& upkeep_;
    std::uint64_t changes_before_;
    bool done_ = false;
  };

  // A wrapper and its name element (with its handle and status) were appended under the element
  // of `parent` (0: the root).
  void WrapperAdded(Long parent, pugi::xml_node parent_element, pugi::xml_node element, Long handle);
  // A property node was appended to `list`, the properties container of a component; `new_list`
  // when the container was made for it.
  void PropertyAdded(Long handle, pugi::xml_node list, bool new_list, pugi::xml_node property);
  // The "STATUS" attribute of a component's element may have changed.
  void StatusChanged(Long handle);
  // A component's wrapper was cut out of the document, with its whole subtree.
  void CutOut(pugi::xml_node wrapper);
  // Anything may have changed: both indexes are rebuilt in full on their next rebuild.
  void Unknown();
  // The document was made whole at once: both indexes are rebuilt in full on their next rebuild.
  void RebuildInFull() { children_full_ = properties_full_ = true; }
  // Handles 1..last all name components that both rebuild walks reach.
  void SeeAll(Long last) { seen_.assign(static_cast<std::size_t>(last) + 1, kToChildren | kToProperties); }

  // Brings an index marked stale up to date (the rebuild), as cheaply as the changes allow.
  void UpdateChildren();
  void UpdateProperties();

  // False while the document holds only the root's own domain sections, and no other element
  // is named like the root.
  bool OddSections() const { return odd_sections_; }

  void Appended(pugi::xml_node node) override;
  void Detaching(pugi::xml_node node) override;
  void TextReplaced(pugi::xml_node element) override;

 private:
  enum Visible : std::uint8_t { kToChildren = 1, kToProperties = 2 };
  struct Cut {
    std::size_t first, last;  // the handles of the cut-out subtree in cut_handles_
  };

  bool Sees(Long handle, Visible which) const;
  void SetSeen(Long handle, std::uint8_t flags);
  void AddSeen(Long handle, Visible which);
  void ExamineName(pugi::xml_node element);
  void ExamineAppended(pugi::xml_node element);
  void ApplyCut(const Cut& cut, bool children, bool properties);
  void RebuildChildren();
  void RebuildProperties();

  Transport::Impl& impl_;
  std::vector<std::uint8_t> seen_;  // per handle: which rebuild walks reach its element
  bool children_full_ = false;      // the next child rebuild is a full one
  bool properties_full_ = false;
  bool odd_sections_ = false;
  Long foreign_root_children_ = 0;  // children filed under the root from elements named like it
  std::uint64_t explaining_ = 0;    // nesting of Explaining
  std::uint64_t changes_ = 0;       // tree changes reported while explaining
  // Changes kept aside for indexes not marked stale, applied at their next rebuild.
  std::vector<Long> deferred_statuses_;
  std::vector<Cut> deferred_child_cuts_;
  std::vector<Cut> deferred_property_cuts_;
  std::vector<Long> cut_handles_;
};

}  // namespace varnex
