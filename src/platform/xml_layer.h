// What the program's XML files have in common: values are element text, elements are found by name, files
// are loaded with a limit and saved safely, and every failure names the place.
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

// The largest file that is loaded, in bytes: far above what a user's document comes to.
inline constexpr uint64_t kLargestXmlFile = 16u << 20;

// An element that is read, and its place in the document for messages.
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

  // The text in quotes, so that line breaks at its ends can be seen, and the place: as messages about a bad
  // value show them.
  std::wstring Shown() const;

 private:
  template <class T>
  T Value(const std::optional<T>& parsed, uint32_t messageId) const;

  std::unique_ptr<IXmlNode> m_node;
  std::wstring m_place;
};

// A loaded file: the document and its root.
struct CXmlFile {
  std::unique_ptr<IXmlDocument> document;
  CXmlElement root;
};

// Loads a file whose root must have that name. Throws IDS_XML_LOAD_FAILED, IDS_XML_NODE_NOT_FOUND.
CXmlFile LoadXmlFile(IFileSystem& files, IXmlDom& dom, const std::wstring& path,
                     const std::wstring& rootName);

// The same from bytes; `path` is for messages only.
CXmlFile LoadXmlBytes(IXmlDom& dom, std::string_view bytes, const std::wstring& path,
                      const std::wstring& rootName);

// A document being built: the declaration, the root with its namespace declarations, then what is appended.
class CXmlBuilder {
 public:
  CXmlBuilder(IXmlDom& dom, const std::wstring& rootName);

  IXmlNode& Root() { return *m_root; }

  // The whole document in UTF-8. The program writes its files itself: what a DOM does to line breaks, empty
  // elements and the declaration when it saves differs from one system to the next.
  std::string Bytes() const;

 private:
  std::wstring m_rootName;
  std::unique_ptr<IXmlDocument> m_document;
  std::unique_ptr<IXmlNode> m_root;
};

// Whether XML can carry the text: it has neither control characters nor lone surrogates.
bool IsXmlText(std::wstring_view text);

// Appends an element with a text. Throws IDS_XML_SET_TEXT_FAILED, also for a text that is no
// XML text.
void AppendText(IXmlNode& parent, const std::wstring& name, const std::wstring& text);

// Saves the bytes of a document. Throws IDS_XML_SAVE_FAILED; the old file is then as it was.
void SaveXmlFile(IFileSystem& files, const IClock& clock, const std::wstring& path, std::string_view bytes);

// Runs the work; its failure then names the file, after what it names already.
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

// Runs the work with an element; its failure then shows the element, once.
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
