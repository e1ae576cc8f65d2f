#include "support/pugi_dom.h"

#include <optional>
#include <pugixml.hpp>
#include <regex>

#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace test {
namespace {

using my::Utf8FromWide;
using my::WideFromUtf8;

class CNode : public my::IXmlNode {
 public:
  explicit CNode(pugi::xml_node node) : m_node(node) {}

  std::wstring Name() const override { return WideFromUtf8(m_node.name()); }

  std::wstring Text() const override {
    static const pugi::xpath_query query("string(.)");
    return WideFromUtf8(query.evaluate_string(m_node));
  }

  void SetText(const std::wstring& text) override {
    m_node.remove_children();
    m_node.append_child(pugi::node_pcdata).set_value(Utf8FromWide(text).c_str());
  }

  std::unique_ptr<my::IXmlNode> Select(const std::wstring& name) const override {
    const pugi::xml_node child = m_node.child(Utf8FromWide(name).c_str());
    return child ? std::make_unique<CNode>(child) : nullptr;
  }

  std::vector<std::unique_ptr<my::IXmlNode>> SelectAll(const std::wstring& name) const override {
    std::vector<std::unique_ptr<my::IXmlNode>> nodes;
    for (const auto& found : m_node.select_nodes(Utf8FromWide(name).c_str())) {
      nodes.push_back(std::make_unique<CNode>(found.node()));
    }
    return nodes;
  }

  std::vector<std::unique_ptr<my::IXmlNode>> Children() const override { return SelectAll(L"*"); }

  std::unique_ptr<my::IXmlNode> Append(const std::wstring& name) override {
    return std::make_unique<CNode>(m_node.append_child(Utf8FromWide(name).c_str()));
  }

 private:
  pugi::xml_node m_node;
};

class CDocument : public my::IXmlDocument {
 public:
  explicit CDocument(bool losesBlanks) : m_flags(losesBlanks ? kFlags & ~pugi::parse_ws_pcdata : kFlags) {}

  void LoadBytes(std::string_view bytes, const std::wstring& path) override {
    if (const auto reason = Refuse(std::string(bytes))) {
      throw my::CException(IDS_XML_LOAD_FAILED, {*reason, path});
    }
  }

  void LoadText(const std::wstring& text) override {
    if (const auto reason = Refuse(Utf8FromWide(text))) throw my::CException(IDS_XML_ROOT_FAILED, {*reason});
  }

  std::unique_ptr<my::IXmlNode> Root(const std::wstring& name) const override {
    return CNode(m_document).Select(name);
  }

 private:
  // Parses the bytes and returns the reason for a refusal. Also refuses some documents that the library
  // accepts and stricter parsers do not.
  std::optional<my::CMsgArg> Refuse(const std::string& bytes) {
    static const std::regex looseAmpersand("&(?!(amp|lt|gt|quot|apos|#[0-9]+|#x[0-9A-Fa-f]+);)");
    const pugi::xml_parse_result result = m_document.load_buffer(bytes.data(), bytes.size(), m_flags);
    if (!result) return WideFromUtf8(result.description());
    const auto isDoctype = [](pugi::xml_node node) { return node.type() == pugi::node_doctype; };
    if (m_document.find_child(isDoctype)) return my::CTextId{IDS_DOCTYPE_REFUSED};
    const bool utf8 = result.encoding == pugi::encoding_utf8;
    if (utf8 && Utf8FromWide(WideFromUtf8(bytes)) != bytes) return std::wstring(L"not UTF-8");
    if (std::regex_search(bytes, looseAmpersand)) return std::wstring(L"unknown entity");
    if (m_document.select_nodes("/*").size() != 1) return std::wstring(L"not one root");
    return {};
  }

  static constexpr unsigned kFlags = pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_doctype;
  unsigned m_flags;
  pugi::xml_document m_document;
};

}  // namespace

std::unique_ptr<my::IXmlDocument> CPugiDom::Create() {
  return std::make_unique<CDocument>(losesBlanks);
}

}  // namespace test
