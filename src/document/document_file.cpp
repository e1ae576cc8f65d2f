#include "document/document_file.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "document/document.h"
#include "platform/xml_layer.h"
#include "support/exception.h"
#include "text_ids.h"

namespace qlm {
namespace {

const std::wstring kRoot = L"QuillmoorDoc";

DstType TypeOf(const my::CXmlElement& element) {
  const std::wstring name = element.Text();
  const auto type = my::EnumValue(kDstTypeNames, name);
  if (!type) throw my::CException(IDS_UNKNOWN_NAME, {std::wstring(kDstTypeNames.enumName), name});
  return static_cast<DstType>(*type);
}

CDstPtr ReadDst(const my::CXmlElement& element) {
  auto dst = boost::make_shared<CDst>();
  dst->folder = element.Child(L"Folder").Text();
  dst->type = my::NamingElement(element.Child(L"Type"), TypeOf);
  dst->pattern = element.Child(L"Pattern").Text();
  return dst;
}

CTaskPtr ReadTask(const my::CXmlElement& element, const CDsts& dsts) {
  auto task = boost::make_shared<CTask>();
  task->id = element.Child(L"Id").Text();
  task->path = element.Child(L"Path").Text();
  for (const my::CXmlElement& reference : element.Child(L"Dsts").Children(L"Dst")) {
    task->dsts.push_back(my::NamingElement(reference, [&dsts](const my::CXmlElement& number) {
      const uint32_t index = number.Dword();
      if (index >= dsts.size()) throw my::CException(IDS_DST_NOT_COMMON);
      return dsts[index];
    }));
  }
  task->filterPath = element.Child(L"FilterPath").Text();
  return task;
}

CContent ReadContent(const my::CXmlElement& root) {
  CContent content;
  root.Child(L"Version").Version();  // any well-formed version is accepted
  for (const my::CXmlElement& element : root.Child(L"Dsts").Children(L"Dst")) {
    const CDstPtr dst = ReadDst(element);
    my::NamingElement(element.Child(L"Folder"), [&](const auto&) { content.dsts.Append(dst); });
  }
  for (const my::CXmlElement& element : root.Child(L"Tasks").Children(L"Task")) {
    const CTaskPtr task = ReadTask(element, content.dsts);
    my::NamingElement(element.Child(L"Id"), [&](const auto&) { content.tasks.Append(task); });
  }
  return content;
}

void WriteDst(my::IXmlNode& parent, const CDst& dst) {
  const auto element = parent.Append(L"Dst");
  my::AppendText(*element, L"Folder", dst.folder);
  my::AppendText(*element, L"Type",
                 std::wstring(*my::EnumName(kDstTypeNames, static_cast<uint32_t>(dst.type))));
  my::AppendText(*element, L"Pattern", dst.pattern);
}

void WriteTask(my::IXmlNode& parent, const CTask& task, const CDsts& dsts) {
  const auto element = parent.Append(L"Task");
  my::AppendText(*element, L"Id", task.id);
  my::AppendText(*element, L"Path", task.path);
  const auto references = element->Append(L"Dsts");
  for (const CDstPtr& dst : task.dsts) {
    const std::ptrdiff_t index = dsts.IndexOf(dst);
    if (index < 0) throw my::CException(IDS_DST_NOT_COMMON);
    my::AppendText(*references, L"Dst", std::to_wstring(index));
  }
  my::AppendText(*element, L"FilterPath", task.filterPath);
}

bool SameContent(const CContent& a, const CContent& b) {
  const auto same = [](const auto& x, const auto& y) { return *x == *y; };
  return std::equal(a.dsts.begin(), a.dsts.end(), b.dsts.begin(), b.dsts.end(), same) &&
         std::equal(a.tasks.begin(), a.tasks.end(), b.tasks.begin(), b.tasks.end(), same);
}

// A file that could not be opened again must not replace one that can.
void CheckReadsBack(my::IXmlDom& dom, const CDocument& document, std::string_view bytes,
                    const std::wstring& path) {
  if (SameContent(document.Content(), ReadContent(my::LoadXmlBytes(dom, bytes, path, kRoot).root))) return;
  throw my::CException(IDS_XML_SAVE_FAILED, {my::CTextId{IDS_READ_BACK_FAILED}});
}

}  // namespace

CDocument LoadDocument(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path) {
  return my::NamingFile(
      path, [&] { return CDocument(ReadContent(my::LoadXmlFile(files, dom, path, kRoot).root), path); });
}

void SaveDocument(my::IFileSystem& files, const my::IClock& clock, my::IXmlDom& dom,
                  const CDocument& document, const std::wstring& path) {
  my::NamingFile(path, [&] {
    const std::string bytes = DocumentBytes(dom, document.Content());
    CheckReadsBack(dom, document, bytes, path);
    my::SaveXmlFile(files, clock, path, bytes);
  });
}

std::string DocumentBytes(my::IXmlDom& dom, const CContent& content) {
  my::CXmlBuilder builder(dom, kRoot);
  my::AppendText(builder.Root(), L"Version", my::VersionText(CDocument::kVersion));
  const auto dsts = builder.Root().Append(L"Dsts");
  for (const CDstPtr& dst : content.dsts) WriteDst(*dsts, *dst);
  const auto tasks = builder.Root().Append(L"Tasks");
  for (const CTaskPtr& task : content.tasks) WriteTask(*tasks, *task, content.dsts);
  return builder.Bytes();
}

CContent ContentFromBytes(my::IXmlDom& dom, std::string_view bytes) {
  return ReadContent(my::LoadXmlBytes(dom, bytes, {}, kRoot).root);
}

}  // namespace qlm
