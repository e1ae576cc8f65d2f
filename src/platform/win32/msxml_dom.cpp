#include "platform/win32/msxml_dom.h"

#include <windows.h>

#include <msxml2.h>

#include <algorithm>

#include "platform/win32/com.h"
#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"

namespace my {
namespace {

// IID_IXMLDOMDocument2 is missing in the import libraries.
constexpr IID kIidDomDocument2 = {
    0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

CSystemError Error(HRESULT result) {
  return {static_cast<int32_t>(result)};
}

class CNode : public IXmlNode {
 public:
  CNode(IXMLDOMDocument2* document, CComPtr<IXMLDOMNode> node)
      : m_document(document), m_node(std::move(node)) {}

  std::wstring Name() const override {
    CBstr name;
    const HRESULT result = m_node->get_nodeName(name.Out());
    if (FAILED(result)) throw CException(IDS_XML_GET_TEXT_FAILED, {Error(result)});
    return name.Text();
  }

  std::wstring Text() const override {
    CBstr text;
    const HRESULT result = m_node->get_text(text.Out());
    if (FAILED(result)) throw CException(IDS_XML_GET_TEXT_FAILED, {Error(result)});
    return text.Text();
  }

  void SetText(const std::wstring& text) override {
    const HRESULT result = m_node->put_text(CBstr(text).Get());
    if (FAILED(result)) throw CException(IDS_XML_SET_TEXT_FAILED, {Error(result)});
  }

  std::unique_ptr<IXmlNode> Select(const std::wstring& name) const override {
    std::unique_ptr<IXmlNode> found;
    const HRESULT result = VisitChildren([&](CComPtr<IXMLDOMNode>& child) {
      if (IsElement(*child.Get(), name)) found = std::make_unique<CNode>(m_document, std::move(child));
      return !found;
    });
    if (FAILED(result)) throw CException(IDS_XML_SELECT_NODE_FAILED, {Error(result), name});
    return found;
  }

  std::vector<std::unique_ptr<IXmlNode>> SelectAll(const std::wstring& name) const override {
    return ChildrenWith(name, [&](IXMLDOMNode& child) { return IsElement(child, name); });
  }

  std::vector<std::unique_ptr<IXmlNode>> Children() const override {
    return ChildrenWith(L"*", [](IXMLDOMNode& child) { return IsElement(child); });
  }

  std::unique_ptr<IXmlNode> Append(const std::wstring& name) override {
    CComPtr<IXMLDOMElement> element;
    HRESULT result = m_document->createElement(CBstr(name).Get(), element.Out());
    if (FAILED(result)) throw CException(IDS_XML_CREATE_NODE_FAILED, {Error(result)});
    CComPtr<IXMLDOMNode> child;
    result = m_node->appendChild(element.Get(), child.Out());
    if (FAILED(result)) throw CException(IDS_XML_APPEND_NODE_FAILED, {Error(result)});
    return std::make_unique<CNode>(m_document, std::move(child));
  }

 private:
  // Passes the children to `visit` until it returns false. Expressions are not used, because the parser
  // compiles them for each selection. Returns the result of the failed step, or S_OK.
  template <class TVisit>
  HRESULT VisitChildren(TVisit visit) const {
    CComPtr<IXMLDOMNode> child;
    HRESULT result = m_node->get_firstChild(child.Out());
    while (SUCCEEDED(result) && child) {
      CComPtr<IXMLDOMNode> next;
      result = child->get_nextSibling(next.Out());
      if (FAILED(result) || !visit(child)) break;
      child = std::move(next);
    }
    return result;
  }

  // `name` is that of the failure.
  template <class TIsWanted>
  std::vector<std::unique_ptr<IXmlNode>> ChildrenWith(const std::wstring& name, TIsWanted isWanted) const {
    std::vector<std::unique_ptr<IXmlNode>> nodes;
    const HRESULT result = VisitChildren([&](CComPtr<IXMLDOMNode>& child) {
      if (isWanted(*child.Get())) nodes.push_back(std::make_unique<CNode>(m_document, std::move(child)));
      return true;
    });
    if (FAILED(result)) throw CException(IDS_XML_SELECT_NODES_FAILED, {Error(result), name});
    return nodes;
  }

  static bool IsElement(IXMLDOMNode& node) {
    DOMNodeType type = NODE_INVALID;
    return SUCCEEDED(node.get_nodeType(&type)) && type == NODE_ELEMENT;
  }

  // Returns whether the node is an element with this name, in no namespace.
  static bool IsElement(IXMLDOMNode& node, const std::wstring& name) {
    CBstr nodeName;
    CBstr space;
    return IsElement(node) && SUCCEEDED(node.get_nodeName(nodeName.Out())) && nodeName.Text() == name &&
           SUCCEEDED(node.get_namespaceURI(space.Out())) && space.Text().empty();
  }

  IXMLDOMDocument2* m_document;
  CComPtr<IXMLDOMNode> m_node;
};

class CDocument : public IXmlDocument {
 public:
  CDocument() {
    CLSID id{};
    HRESULT result = ::CLSIDFromProgID(L"Msxml2.DOMDocument.6.0", &id);
    if (SUCCEEDED(result)) {
      result = ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, kIidDomDocument2,
                                  reinterpret_cast<void**>(m_document.Out()));
    }
    if (FAILED(result)) throw CException(IDS_XML_CREATE_FAILED, {Error(result)});
    m_document->put_async(VARIANT_FALSE);
    m_document->put_validateOnParse(VARIANT_FALSE);
    m_document->put_resolveExternals(VARIANT_FALSE);
    m_document->put_preserveWhiteSpace(VARIANT_TRUE);
    ProhibitDtd();
  }

  void LoadBytes(std::string_view bytes, const std::wstring& path) override {
    CVariant source;
    source.Get().vt = VT_ARRAY | VT_UI1;
    source.Get().parray = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    void* target = nullptr;
    if (!source.Get().parray || FAILED(::SafeArrayAccessData(source.Get().parray, &target))) {
      throw CException(IDS_XML_LOAD_FAILED, {Error(E_OUTOFMEMORY), path});
    }
    std::copy(bytes.begin(), bytes.end(), static_cast<char*>(target));
    ::SafeArrayUnaccessData(source.Get().parray);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const HRESULT result = m_document->load(source.Get(), &loaded);
    if (FAILED(result) || !loaded) throw CException(IDS_XML_LOAD_FAILED, {Reason(result), path});
    if (HasDocumentType()) throw CException(IDS_XML_LOAD_FAILED, {CTextId{IDS_DOCTYPE_REFUSED}, path});
  }

  void LoadText(const std::wstring& text) override {
    VARIANT_BOOL loaded = VARIANT_FALSE;
    const HRESULT result = m_document->loadXML(CBstr(text).Get(), &loaded);
    if (FAILED(result) || !loaded) throw CException(IDS_XML_ROOT_FAILED, {Reason(result)});
  }

  std::unique_ptr<IXmlNode> Root(const std::wstring& name) const override {
    CComPtr<IXMLDOMNode> root;
    const HRESULT result = m_document->selectSingleNode(CBstr(name).Get(), root.Out());
    if (FAILED(result)) throw CException(IDS_XML_SELECT_NODE_FAILED, {Error(result), name});
    if (!root) return nullptr;
    return std::make_unique<CNode>(m_document.Get(), std::move(root));
  }

 private:
  // Not every parser obeys this; HasDocumentType makes the decision.
  void ProhibitDtd() {
    CVariant yes;
    yes.Get().vt = VT_BOOL;
    yes.Get().boolVal = VARIANT_TRUE;
    m_document->setProperty(CBstr(L"ProhibitDTD").Get(), yes.Get());
  }

  bool HasDocumentType() const {
    CComPtr<IXMLDOMDocumentType> type;
    return m_document->get_doctype(type.Out()) == S_OK && type;
  }

  // Returns the parser's reason, or the text of the result.
  CMsgArg Reason(HRESULT result) const {
    CComPtr<IXMLDOMParseError> error;
    if (FAILED(m_document->get_parseError(error.Out())) || !error) return Error(result);
    CBstr reason;
    LONG line = 0;
    error->get_reason(reason.Out());
    error->get_line(&line);
    const std::wstring text = OneLine(Trim(reason.Text(), kBlanks));
    LONG code = 0;
    if (text.empty()) return Error(SUCCEEDED(error->get_errorCode(&code)) && code != 0 ? code : result);
    return text + L" (" + std::to_wstring(line) + L")";
  }

  CComPtr<IXMLDOMDocument2> m_document;
};

}  // namespace

std::unique_ptr<IXmlDocument> CMsxmlDom::Create() {
  return std::make_unique<CDocument>();
}

}  // namespace my
