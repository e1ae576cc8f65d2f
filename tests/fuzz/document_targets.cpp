#include <algorithm>

#include "document/document_clip.h"
#include "document/document_file.h"
#include "document/document_limits.h"
#include "fuzz/targets.h"
#include "platform/xml_layer.h"
#include "settings/settings_file.h"
#include "support/checks.h"
#include "support/fake_ports.h"
#include "support/memory_file_system.h"
#include "support/pugi_dom.h"

namespace fuzz {
namespace {

const std::wstring kFile = L"C:\\file";

bool IsStorable(const qlm::CContent& content) {
  return std::ranges::all_of(content.dsts,
                             [](const qlm::CDstPtr& dst) {
                               return my::IsXmlText(dst->folder) && my::IsXmlText(dst->pattern);
                             }) &&
         std::ranges::all_of(content.tasks, [](const qlm::CTaskPtr& task) {
           return my::IsXmlText(task->id) && my::IsXmlText(task->path) && my::IsXmlText(task->filterPath);
         });
}

qlm::CRows AllRows(const auto& list) {
  qlm::CRows rows(list.size());
  for (size_t row = 0; row < rows.size(); ++row) rows[row] = row;
  return rows;
}

void CheckSavedLoadsEqual(const qlm::CContent& content) {
  test::CMemoryFileSystem files;
  test::CPugiDom dom;
  const qlm::CDocument document(content);
  const bool saved =
      test::ThrownId([&] { SaveDocument(files, test::CFakeClock(), dom, document, kFile); }) == 0;
  Require(saved == IsStorable(content), "a document is saved if XML can represent its texts");
  if (!saved) return;
  const qlm::CContent again = qlm::LoadDocument(files, dom, kFile).Content();
  Require(SameContent(content, again), "a saved document loads as an equal document");
}

void CheckMerge(const qlm::CContent& content) {
  qlm::CDocument same(content);
  Require(!same.Merge(content, 0) && !same.IsModified(), "merging a document into itself adds nothing");
  qlm::CDocument copy;
  copy.Merge(content, -1);
  Require(SameContent(copy.Content(), content), "merging into an empty document copies");
  copy.Undo();
  Require(copy.Tasks().empty() && copy.Dsts().empty(), "a merge is one step");
}

std::string SavedSettings(test::CMemoryFileSystem& files, const qlm::CSettings& settings) {
  test::CPugiDom dom;
  SaveSettings(files, test::CFakeClock(), dom, kFile, settings);
  return files.Files().at(kFile);
}

void CheckPasteTasks(const qlm::CContent& content, const qlm::CClip& clip) {
  test::CPugiDom dom;
  qlm::CDocument document(content);
  const qlm::CRows rows = PasteTasks(dom, document, clip.document, 0);
  Require(SameDsts(document.Dsts(), content.dsts), "own tasks need no new destinations");
  Require(rows.size() == content.tasks.size(), "every task is pasted");
  for (const size_t row : rows) {
    qlm::CTask pasted = *document.Tasks()[row];
    pasted.id = content.tasks[row]->id;
    Require(pasted == *content.tasks[row], "only the ID of a pasted task differs");
  }
  document.Undo();
  Require(SameContent(document.Content(), content), "a paste is one step");
}

}  // namespace

void TestDocument(std::string_view input) {
  const auto content = ReadContent(input);
  if (!content) return;
  CheckSavedLoadsEqual(*content);
  CheckMerge(*content);
}

void TestSettings(std::string_view input) {
  test::CMemoryFileSystem files;
  test::CPugiDom dom;
  files.AddFile(kFile, std::string(input));
  qlm::CSettings read(0);
  const uint32_t failure = test::ThrownId([&] { LoadSettings(files, dom, kFile, read); });
  // The archive group does not depend on the groups after it.
  std::wstring archiver;
  const bool archive = test::ThrownId([&] {
                         archiver = qlm::LoadArchiveSetting(files, dom, kFile).archive.sevenZipPath;
                       }) == 0;
  Require(archive || failure != 0, "a run can read what the windows can");
  Require(!archive || archiver == read.archive.sevenZipPath, "both read the same");
  const std::string saved = SavedSettings(files, read);
  qlm::CSettings again(0);
  LoadSettings(files, dom, kFile, again);
  Require(SavedSettings(files, again) == saved, "saved settings load as equal settings");
}

void TestClip(std::string_view input) {
  test::CPugiDom dom;
  qlm::CDocument other;
  const uint32_t failure = test::ThrownId([&] { PasteTasks(dom, other, input, 0); });
  Require(failure == 0 || !other.IsModified(), "a refused paste changes nothing");
  const auto content = ReadContent(input);
  if (!content || !IsStorable(*content) || content->dsts.size() > qlm::kMostDsts) return;
  const qlm::CDocument document(*content);
  const qlm::CClip tasks = CopyTasks(dom, document, AllRows(content->tasks));
  CheckPasteTasks(*content, tasks);
}

}  // namespace fuzz
