#include "support/pugi_dom.h"

#include <pugixml.hpp>
#include <regex>

#include "resource.h"
#include "support/exception.h"
#include "support/strings.h"

namespace test {
namespace {

using my::Utf8FromWide;
using my::WideFromUtf8;

class CNode : public my::IXmlNode {
 public:
  explicit CNode(pugi::xml_node node) : m_node(node) {}

  std::wstring Name() const override { return WideFromUtf8(m_node.name()); }

  std::wstring Text() const override {
    struct CTexts : pugi::xml_tree_walker {
      bool for_each(pugi::xml_node& node) override {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) all += node.value();
        return true;
      }
      std::string all;
    } texts;
    pugi::xml_node node = m_node;
    node.traverse(texts);
    return WideFromUtf8(texts.all);
  }

  void SetText(const std::wstring& text) override {
    pugi::xml_node node = m_node;
    node.remove_children();
    node.append_child(pugi::node_pcdata).set_value(Utf8FromWide(text).c_str());
  }

  std::unique_ptr<my::IXmlNode> Select(const std::wstring& name) const override {
    const pugi::xml_node child = m_node.child(Utf8FromWide(name).c_str());
    return child ? std::make_unique<CNode>(child) : nullptr;
  }

  std::vector<std::unique_ptr<my::IXmlNode>> SelectAll(const std::wstring& name) const override {
    std::vector<std::unique_ptr<my::IXmlNode>> nodes;
    for (const pugi::xml_node child : m_node.children()) {
      const bool wanted = name == L"*" || Utf8FromWide(name) == child.name();
      if (wanted && child.type() == pugi::node_element) nodes.push_back(std::make_unique<CNode>(child));
    }
    return nodes;
  }

  std::vector<std::unique_ptr<my::IXmlNode>> Children() const override { return SelectAll(L"*"); }

  std::unique_ptr<my::IXmlNode> Append(const std::wstring& name) override {
    pugi::xml_node node = m_node;
    return std::make_unique<CNode>(node.append_child(Utf8FromWide(name).c_str()));
  }

 private:
  pugi::xml_node m_node;
};

// The library lets some documents pass that a stricter parser refuses; these are the ones that matter here.
bool IsWellFormed(const pugi::xml_document& document, const std::string& bytes) {
  static const std::regex looseAmpersand("&(?!(amp|lt|gt|quot|apos|#[0-9]+|#x[0-9A-Fa-f]+);)");
  const bool utf16 = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  if (!utf16 && Utf8FromWide(WideFromUtf8(bytes)) != bytes) return false;
  if (std::regex_search(bytes, looseAmpersand)) return false;
  const auto roots = document.children();
  return std::count_if(roots.begin(), roots.end(), [](pugi::xml_node node) {
           return node.type() == pugi::node_element;
         }) == 1;
}

class CDocument : public my::IXmlDocument {
 public:
  void LoadBytes(std::string_view bytes, const std::wstring& path) override {
    const my::CMsgArg reason = Parse(std::string(bytes));
    if (reason != my::CMsgArg()) throw my::CException(IDS_XML_LOAD_FAILED, {reason, path});
  }

  void LoadText(const std::wstring& text) override {
    const my::CMsgArg reason = Parse(Utf8FromWide(text));
    if (reason != my::CMsgArg()) throw my::CException(IDS_XML_ROOT_FAILED, {reason});
  }

  std::unique_ptr<my::IXmlNode> Root(const std::wstring& name) const override {
    return CNode(m_document).Select(name);
  }

 private:
  // The reason of a failure, an empty text for none.
  my::CMsgArg Parse(const std::string& bytes) {
    constexpr unsigned kFlags = pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_doctype;
    const pugi::xml_parse_result result = m_document.load_buffer(bytes.data(), bytes.size(), kFlags);
    if (!result) return WideFromUtf8(result.description());
    for (const pugi::xml_node node : m_document.children()) {
      if (node.type() == pugi::node_doctype) return my::CTextId{IDS_DOCTYPE_REFUSED};
    }
    return std::wstring(IsWellFormed(m_document, bytes) ? L"" : L"not well formed");
  }

  pugi::xml_document m_document;
};

}  // namespace

std::unique_ptr<my::IXmlDocument> CPugiDom::Create() { return std::make_unique<CDocument>(); }

}  // namespace test
