// The platform's XML document object model, as far as the program needs it. Every failing operation throws
// the layer's CException (IDS_XML_...). Used on the thread that made the document.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace my {

// One element. Nodes must not outlive their document.
class IXmlNode {
 public:
  virtual ~IXmlNode() = default;

  virtual std::wstring Name() const = 0;

  // The text of the element with all its blanks and line breaks. Throws IDS_XML_GET_TEXT_FAILED.
  virtual std::wstring Text() const = 0;

  // Throws IDS_XML_SET_TEXT_FAILED.
  virtual void SetText(const std::wstring& text) = 0;

  // The first child element of that name, empty when there is none. Throws IDS_XML_SELECT_NODE_FAILED.
  virtual std::unique_ptr<IXmlNode> Select(const std::wstring& name) const = 0;

  // All child elements of that name in document order. Throws IDS_XML_SELECT_NODES_FAILED.
  virtual std::vector<std::unique_ptr<IXmlNode>> SelectAll(const std::wstring& name) const = 0;

  // All child elements in document order. Throws IDS_XML_SELECT_NODES_FAILED.
  virtual std::vector<std::unique_ptr<IXmlNode>> Children() const = 0;

  // Throws IDS_XML_CREATE_NODE_FAILED or IDS_XML_APPEND_NODE_FAILED.
  virtual std::unique_ptr<IXmlNode> Append(const std::wstring& name) = 0;
};

class IXmlDocument {
 public:
  virtual ~IXmlDocument() = default;

  // Parses a whole document. Throws IDS_XML_LOAD_FAILED with the parser's reason and `path`, also for a
  // document with a document type declaration: its entities could be made to fill the memory.
  virtual void LoadBytes(std::string_view bytes, const std::wstring& path) = 0;

  // Parses a template. Throws IDS_XML_ROOT_FAILED.
  virtual void LoadText(const std::wstring& text) = 0;

  // The root element if it has that name, else empty. Throws IDS_XML_SELECT_NODE_FAILED.
  virtual std::unique_ptr<IXmlNode> Root(const std::wstring& name) const = 0;
};

class IXmlDom {
 public:
  virtual ~IXmlDom() = default;

  // Throws IDS_XML_CREATE_FAILED.
  virtual std::unique_ptr<IXmlDocument> Create() = 0;
};

}  // namespace my
