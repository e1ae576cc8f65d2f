// Reading and writing of the program's XML files. Values are element texts; elements are found by name. Files
// are loaded with a size limit and saved atomically. Failures name the place.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/xml_dom.h"
#include "support/exception.h"
#include "support/value_codecs.h"

namespace my {

class IClock;
class IFileSystem;

// Maximum size of a file in bytes, far above that of real documents.
inline constexpr uint64_t kLargestXmlFile = 16u << 20;

// An element and its place in the document, for messages.
class CXmlElement {
 public:
  CXmlElement(std::unique_ptr<IXmlNode> node, std::wstring place);

  CXmlElement Child(const std::wstring& name) const;  // throws IDS_XML_NODE_NOT_FOUND
  std::vector<CXmlElement> Children(const std::wstring& name) const;

  std::wstring Text() const;
  bool Bool() const;          // throws IDS_XML_BAD_BOOL
  int32_t Int() const;        // throws IDS_XML_BAD_INT
  uint32_t Dword() const;     // throws IDS_XML_BAD_DWORD
  CVersion Version() const;   // throws IDS_XML_BAD_VERSION
  CColor Color() const;       // throws IDS_XML_BAD_COLOR
  std::string Bytes() const;  // throws IDS_XML_BAD_BYTES

  // Returns the text in quotes, so that leading and trailing line breaks are visible, and the place; for
  // messages about a bad value.
  std::wstring Shown() const;

 private:
  template <class T>
  T Value(const std::optional<T>& parsed, uint32_t messageId) const;

  std::unique_ptr<IXmlNode> m_node;
  std::wstring m_place;
};

// A loaded document and its root.
struct CXmlFile {
  std::unique_ptr<IXmlDocument> document;
  CXmlElement root;
};

// Loads a file whose root must have that name. Throws IDS_XML_LOAD_FAILED, IDS_XML_NODE_NOT_FOUND.
CXmlFile LoadXmlFile(IFileSystem& files, IXmlDom& dom, const std::wstring& path,
                     const std::wstring& rootName);

// The same for bytes; `path` is used in messages only.
CXmlFile LoadXmlBytes(IXmlDom& dom, std::string_view bytes, const std::wstring& path,
                      const std::wstring& rootName);

// Builds a document: the declaration, the root with its namespace declarations, and the appended elements.
class CXmlBuilder {
 public:
  CXmlBuilder(IXmlDom& dom, const std::wstring& rootName);

  IXmlNode& Root() { return *m_root; }

  // Returns the document in UTF-8. Serialized here and not by the DOM, because DOMs differ in how they save
  // line breaks, empty elements and the declaration.
  std::string Bytes() const;

 private:
  std::wstring m_rootName;
  std::unique_ptr<IXmlDocument> m_document;
  std::unique_ptr<IXmlNode> m_root;
};

// Returns whether XML can represent the text: it has no control characters and no lone surrogates.
bool IsXmlText(std::wstring_view text);

// Returns the text as the content of an element.
std::wstring EscapedXmlText(std::wstring_view text);

// Appends an element with a text. Throws IDS_XML_SET_TEXT_FAILED, also if XML cannot represent the text.
void AppendText(IXmlNode& parent, const std::wstring& name, const std::wstring& text);

// Saves the document. Throws IDS_XML_SAVE_FAILED; the old file is then unchanged.
void SaveXmlFile(IFileSystem& files, const IClock& clock, const std::wstring& path, std::string_view bytes);

// Runs `work`; a failure gets the path added to what it already names.
template <class Work>
auto NamingFile(const std::wstring& path, Work work) {
  try {
    return work();
  } catch (CException& failure) {
    const std::wstring& place = failure.Where();
    if (!place.ends_with(path)) failure.SetWhere(place.empty() ? path : place + L"\n\n" + path);
    throw;
  }
}

// Runs `work` for an element; a failure gets the element added unless it has one.
template <class Work>
auto NamingElement(const CXmlElement& element, Work work) {
  try {
    return work(element);
  } catch (CException& failure) {
    const CMsgArg shown = element.Shown();
    if (std::ranges::find(failure.Args(), shown) == failure.Args().end()) {
      failure.SetWhere(std::get<std::wstring>(shown));
    }
    throw;
  }
}

}  // namespace my
