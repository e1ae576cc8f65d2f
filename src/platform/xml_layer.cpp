#include "platform/xml_layer.h"

#include "platform/file_system.h"
#include "platform/safe_file.h"
#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace my {
namespace {

std::wstring TemplateHead(const std::wstring& rootName) {
  return L"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<" + rootName +
         L" xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
         L" xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\n";
}

std::wstring TemplateTail(const std::wstring& rootName) {
  return L"</" + rootName + L">\n";
}

bool IsXmlChar(char32_t c) {
  if (c < 0x20) return c == U'\t' || c == U'\n' || c == U'\r';
  return !IsSurrogate(c) && c != 0xFFFE && c != 0xFFFF;
}

void AppendElement(std::wstring& out, const IXmlNode& node) {
  const std::wstring name = node.Name();
  const auto children = node.Children();
  const std::wstring text = children.empty() ? node.Text() : std::wstring();
  if (children.empty() && text.empty()) {
    out.append(L"<").append(name).append(L"/>");
    return;
  }
  out.append(L"<").append(name).append(L">");
  for (const auto& child : children) AppendElement(out, *child);
  out += EscapedXmlText(text);
  out.append(L"</").append(name).append(L">");
}

std::string ReadXmlFile(IFileSystem& files, const std::wstring& path) {
  try {
    return files.ReadFile(path, kLargestXmlFile + 1);
  } catch (const CException& failure) {
    throw CException(IDS_XML_LOAD_FAILED, {failure.Cause(), path});
  }
}

}  // namespace

std::wstring EscapedXmlText(std::wstring_view text) {
  std::wstring escaped;
  for (const wchar_t c : text) {
    switch (c) {
      case L'&': escaped += L"&amp;"; break;
      case L'<': escaped += L"&lt;"; break;
      case L'>': escaped += L"&gt;"; break;
      case L'\r': escaped += L"&#xD;"; break;  // an unescaped CR would be read as LF
      default: escaped += c;
    }
  }
  return escaped;
}

CXmlElement::CXmlElement(std::unique_ptr<IXmlNode> node, std::wstring place)
    : m_node(std::move(node)), m_place(std::move(place)) {}

CXmlElement CXmlElement::Child(const std::wstring& name) const {
  auto child = m_node->Select(name);
  if (!child) throw CException(IDS_XML_NODE_NOT_FOUND, {name, m_place});
  return {std::move(child), m_place + L"/" + name};
}

std::vector<CXmlElement> CXmlElement::Children(const std::wstring& name) const {
  std::vector<CXmlElement> children;
  for (auto& node : m_node->SelectAll(name)) {
    std::wstring place = m_place + L"/" + name + L"[" + std::to_wstring(children.size() + 1) + L"]";
    children.emplace_back(std::move(node), std::move(place));
  }
  return children;
}

std::wstring CXmlElement::Text() const {
  return m_node->Text();
}

std::wstring CXmlElement::Shown() const {
  return L"\"" + m_node->Text() + L"\"\n\n" + m_place;
}

template <class T>
T CXmlElement::Value(const std::optional<T>& parsed, uint32_t messageId) const {
  if (!parsed) throw CException(messageId, {Shown()});
  return *parsed;
}

bool CXmlElement::Bool() const {
  return Value(ParseBool(Text()), IDS_XML_BAD_BOOL);
}
int32_t CXmlElement::Int() const {
  return Value(ParseInt(Text()), IDS_XML_BAD_INT);
}
uint32_t CXmlElement::Dword() const {
  return Value(ParseDword(Text()), IDS_XML_BAD_DWORD);
}
CVersion CXmlElement::Version() const {
  return Value(ParseVersion(Text()), IDS_XML_BAD_VERSION);
}
CColor CXmlElement::Color() const {
  return Value(ParseColor(Text()), IDS_XML_BAD_COLOR);
}
std::string CXmlElement::Bytes() const {
  return Value(ParseBytes(Text()), IDS_XML_BAD_BYTES);
}

CXmlFile LoadXmlFile(IFileSystem& files, IXmlDom& dom, const std::wstring& path,
                     const std::wstring& rootName) {
  return LoadXmlBytes(dom, ReadXmlFile(files, path), path, rootName);
}

CXmlFile LoadXmlBytes(IXmlDom& dom, std::string_view bytes, const std::wstring& path,
                      const std::wstring& rootName) {
  if (bytes.size() > kLargestXmlFile) {
    throw CException(IDS_XML_LOAD_FAILED, {CTextId{IDS_FILE_TOO_LARGE}, path});
  }
  auto document = dom.Create();
  document->LoadBytes(bytes, path);
  auto root = document->Root(rootName);
  if (!root) throw CException(IDS_XML_NODE_NOT_FOUND, {rootName, path});
  return {std::move(document), CXmlElement(std::move(root), L"/" + rootName)};
}

CXmlBuilder::CXmlBuilder(IXmlDom& dom, const std::wstring& rootName)
    : m_rootName(rootName), m_document(dom.Create()) {
  m_document->LoadText(TemplateHead(rootName) + TemplateTail(rootName));
  m_root = m_document->Root(rootName);
  if (!m_root) throw CException(IDS_XML_NODE_NOT_FOUND, {rootName, std::wstring()});
}

std::string CXmlBuilder::Bytes() const {
  std::wstring text = TemplateHead(m_rootName);
  for (const auto& child : m_root->Children()) AppendElement(text, *child);
  return Utf8FromWide(text.append(TemplateTail(m_rootName)));
}

bool IsXmlText(std::wstring_view text) {
  for (size_t at = 0; at < text.size();) {
    if (!IsXmlChar(NextCodePoint(text, at))) return false;
  }
  return true;
}

void AppendText(IXmlNode& parent, const std::wstring& name, const std::wstring& text) {
  if (!IsXmlText(text)) throw CException(IDS_XML_SET_TEXT_FAILED, {name});
  parent.Append(name)->SetText(text);
}

void SaveXmlFile(IFileSystem& files, const IClock& clock, const std::wstring& path, std::string_view bytes) {
  NamingFile(path, [&] {
    try {
      WriteFileSafely(files, clock, path, bytes);
    } catch (const CException& failure) {
      throw CException(IDS_XML_SAVE_FAILED, {failure.Cause()});
    }
  });
}

}  // namespace my
