// The XML DOM port. A failed operation throws CException with an IDS_XML_ id. Must be used on the thread that
// created the document.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace my {

// An element. Nodes must not outlive their document.
class IXmlNode {
 public:
  virtual ~IXmlNode() = default;

  virtual std::wstring Name() const = 0;

  // Returns the text of the element with all whitespace. Throws IDS_XML_GET_TEXT_FAILED.
  virtual std::wstring Text() const = 0;

  // Throws IDS_XML_SET_TEXT_FAILED.
  virtual void SetText(const std::wstring& text) = 0;

  // Returns the first child element with that name; null if there is none. Throws IDS_XML_SELECT_NODE_FAILED.
  virtual std::unique_ptr<IXmlNode> Select(const std::wstring& name) const = 0;

  // Returns all child elements with that name in document order. Throws IDS_XML_SELECT_NODES_FAILED.
  virtual std::vector<std::unique_ptr<IXmlNode>> SelectAll(const std::wstring& name) const = 0;

  // Returns all child elements in document order. Throws IDS_XML_SELECT_NODES_FAILED.
  virtual std::vector<std::unique_ptr<IXmlNode>> Children() const = 0;

  // Appends a child element. Throws IDS_XML_CREATE_NODE_FAILED or IDS_XML_APPEND_NODE_FAILED.
  virtual std::unique_ptr<IXmlNode> Append(const std::wstring& name) = 0;
};

class IXmlDocument {
 public:
  virtual ~IXmlDocument() = default;

  // Parses a whole document. Throws IDS_XML_LOAD_FAILED with the parser's reason and `path`, also for a
  // document type declaration, because entities can expand to any size.
  virtual void LoadBytes(std::string_view bytes, const std::wstring& path) = 0;

  // Parses a template. Throws IDS_XML_ROOT_FAILED.
  virtual void LoadText(const std::wstring& text) = 0;

  // Returns the root element if it has that name, otherwise null. Throws IDS_XML_SELECT_NODE_FAILED.
  virtual std::unique_ptr<IXmlNode> Root(const std::wstring& name) const = 0;
};

class IXmlDom {
 public:
  virtual ~IXmlDom() = default;

  // Throws IDS_XML_CREATE_FAILED.
  virtual std::unique_ptr<IXmlDocument> Create() = 0;
};

}  // namespace my
