// A DOM document whose removed nodes stay alive.
//
// The platform's nodes were reference-counted: a subtree cut out of the document lived on while
// anything still named it, and answered as a tree of its own with no parent. pugixml frees what
// it removes, so this document never frees: a removed node is moved into a hidden store beside
// the document element, and every walk, selection and serialisation made through this class
// sees only the visible tree (or, from a removed node, that node's own detached tree).
//
// It also counts structural changes, and tells an observer about each one as it is made, so that
// indexes kept beside the tree can follow it.
#pragma once

#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace varnex::xml {

class XmlDocument {
 public:
  // Told of every structural change made through this class.
  class Observer {
   public:
    // A node (with its whole subtree, for a copy) was appended.
    virtual void Appended(pugi::xml_node node) = 0;
    // A node is about to leave its parent for a detached tree of its own.
    virtual void Detaching(pugi::xml_node node) = 0;
    // An element's children were replaced by (at most) one text node.
    virtual void TextReplaced(pugi::xml_node element) = 0;

   protected:
    ~Observer() = default;
  };

  XmlDocument() = default;
  XmlDocument(const XmlDocument&) = delete;
  XmlDocument& operator=(const XmlDocument&) = delete;

  pugi::xml_document& document() { return document_; }
  const pugi::xml_document& document() const { return document_; }

  // Creates an element with a checked name and appends it as the parent's last child.
  pugi::xml_node AppendElement(pugi::xml_node parent, std::string_view name);
  // Appends a deep copy of a node of any document as the parent's last child. A declaration or
  // document type cannot be appended: an error of the XML layer naming it.
  pugi::xml_node AppendCopy(pugi::xml_node parent, pugi::xml_node source);
  // Cuts the node out of its parent; it stays alive as the top of a detached tree.
  void Detach(pugi::xml_node node);

  enum class TextChange {
    InPlace,       // the single text child took the new value; no node came or went
    TextNodes,     // text nodes were added or removed
    Elements,      // element children were cut out
  };
  // Sets a node's text as the DOM does: an element loses its children (kept alive, detached)
  // and gets one text node; a text-like node takes the value.
  TextChange SetText(pugi::xml_node node, std::string_view text);

  // The node's parent as the DOM reports it: nothing for the top of a detached tree.
  pugi::xml_node ParentOf(pugi::xml_node node) const;

  // Compiles and runs an XPath expression; only nodes of the context's own tree are returned.
  pugi::xpath_node_set SelectNodes(pugi::xml_node context, const std::string& expression) const;
  // The first of them, in document order; empty when none.
  pugi::xml_node SelectSingleNode(pugi::xml_node context, const std::string& expression) const;

  // The visible tree as raw text, without declaration.
  std::string Serialize() const;

  // The observer told of every structural change from now on; nullptr for none.
  void Observe(Observer* observer) { observer_ = observer; }


 private:
  // The top of the tree the node belongs to: the document, or a detached top.
  pugi::xml_node TreeOf(pugi::xml_node node) const;

  pugi::xml_document document_;
  pugi::xml_node store_;  // holds detached trees; created on the first removal
  Observer* observer_ = nullptr;
};

}  // namespace varnex::xml
