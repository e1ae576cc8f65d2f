#include "document/document_edits.h"
#include "document/document_limits.h"
#include "document/duplicate_items.h"
#include "document/folder_items.h"

#include <gtest/gtest.h>

#include <boost/smart_ptr/make_shared.hpp>
#include <functional>

#include "document/document_clip.h"
#include "document/document_file.h"
#include "support/checks.h"
#include "support/fake_ports.h"
#include "support/pugi_dom.h"
#include "text_ids.h"

namespace {

using namespace qlm;
using test::ThrownId;

CTask Task(std::wstring id, std::wstring path, CTaskDsts dsts = {}) {
  return {std::move(id), std::move(path), L"", std::move(dsts)};
}

class DocumentEdits : public testing::Test {
 protected:
  DocumentEdits() {
    for (const wchar_t* folder : {L"a", L"b", L"c", L"d"}) InsertDst(document, -1, {folder});
    for (const wchar_t* id : {L"A", L"B", L"C", L"D", L"E"}) {
      InsertTask(document, -1, Task(id, L"p", {document.Dsts()[0], document.Dsts()[2]}));
    }
    document.AddListener([this](DocChangeEventFlags flags) {
      heard = flags;
      ++edits;
    });
  }

  // Returns the task IDs and the folders of destinations, in order.
  std::wstring Shown() const {
    std::wstring shown;
    for (const auto& task : document.Tasks()) shown += task->id;
    for (const auto& dst : document.Dsts()) shown += dst->folder;
    return shown;
  }

  // Fails if a destination of a task is not an object in the list.
  std::string Bytes() { return DocumentBytes(dom, document.Content()); }

  test::CPugiDom dom;
  test::CRcTexts texts;
  CDocument document;
  DocChangeEventFlags heard = DocChangeEventFlags::RESET;
  int edits = 0;
};

TEST_F(DocumentEdits, moved_rows_keep_their_order_and_are_returned) {
  EXPECT_EQ(MoveTasks(document, {0, 1, 4}, 3), (CRows{1, 2, 3}));
  EXPECT_EQ(Shown(), L"CABEDabcd");
  EXPECT_EQ(MoveTasks(document, {0, 2}, -1), (CRows{3, 4}));
  EXPECT_EQ(Shown(), L"AEDCBabcd");
  EXPECT_EQ(edits, 2);
  EXPECT_EQ(MoveTasks(document, {1, 2}, 2), (CRows{1, 2}));
  EXPECT_EQ(StepTasks(document, {0, 1}, Step::Up), (CRows{0, 1}));
  EXPECT_EQ(edits, 2) << "nothing has moved";
  EXPECT_EQ(StepTasks(document, {0, 2, 3}, Step::Up), (CRows{0, 1, 2}));
  EXPECT_EQ(StepDsts(document, {0, 3}, Step::Down), (CRows{1, 3}));
  EXPECT_EQ(MoveDsts(document, {2}, 0), (CRows{0}));
  EXPECT_EQ(Shown(), L"ADCEBcbad");
}

TEST_F(DocumentEdits, copies_and_folder_tasks_get_free_names) {
  EXPECT_EQ(DuplicateTasks(document, {0, 2}), (CRows{3, 4}));
  EXPECT_EQ(Shown(), L"ABCA2C2DEabcd");
  const std::pair<const wchar_t*, const wchar_t*> table[] = {
      {L"C:\\", L"C3"}, {L"E:\\", L"E2"}, {L"D:\\a b\\Docs\\", L"Docs"}, {L"\\\\srv\\x?y*", L"x_y_"}};
  for (const auto& [path, id] : table) {
    EXPECT_EQ(document.Tasks()[AddFolderTasks(document, 0, {path}, {})[0]]->id, id);
  }
  EXPECT_EQ(ThrownId([&] { AddFolderTasks(document, 0, {L"\\"}, {}); }), IDS_ID_EMPTY);

  ReplaceDst(document, 0, {L"a", DstType::ZIP, L"x.y\\<ID>.zip"});
  EXPECT_EQ(DuplicateDsts(document, {0, 1}), (CRows{2, 3}));
  EXPECT_EQ(DuplicateDsts(document, {0}), (CRows{1}));
  EXPECT_EQ(document.Dsts()[1]->pattern, L"x.y\\<ID>_3.zip");
  EXPECT_EQ(document.Dsts()[3]->pattern, L"x.y\\<ID>_2.zip");
  EXPECT_EQ(document.Dsts()[4]->pattern, CDst().pattern + L"_2");
}

TEST_F(DocumentEdits, refused_or_empty_edit_adds_no_undo_step) {
  const std::string before = Bytes();
  EXPECT_EQ(ThrownId([&] { InsertTask(document, 0, Task(L"A", L"p")); }), IDS_ID_DUPLICATE);
  EXPECT_EQ(ThrownId([&] { ReplaceTask(document, 0, Task(L"B", L"")); }), IDS_PATH_EMPTY);
  EXPECT_EQ(ThrownId([&] { ReplaceTask(document, 0, Task(L"B", L"p")); }), IDS_ID_DUPLICATE);
  const auto stranger = boost::make_shared<CDst>(CDst{L"z"});
  EXPECT_EQ(ThrownId([&] { InsertTask(document, 0, Task(L"Z", L"p", {stranger})); }), IDS_DST_NOT_COMMON);
  EXPECT_EQ(ThrownId([&] { InsertDst(document, 0, {L"a"}); }), IDS_DST_DUPLICATE);
  EXPECT_EQ(ThrownId([&] { ReplaceDst(document, 0, {L"b"}); }), IDS_DST_DUPLICATE);
  EXPECT_EQ(ThrownId([&] { ReplaceDst(document, 0, {L""}); }), IDS_PATH_EMPTY);
  ReplaceTask(document, 1, CTask(*document.Tasks()[1]));
  ReplaceDst(document, 1, {L"b"});
  SetUse(document, {0, 1}, 0, true);
  SetTaskFilter(document, 0, L"");
  RemoveTasks(document, {});
  EXPECT_EQ(edits, 0);
  EXPECT_EQ(Bytes(), before);

  while (document.Dsts().size() < kMostDsts)
    InsertDst(document, 0, {std::to_wstring(document.Dsts().size())});
  EXPECT_EQ(ThrownId([&] { InsertDst(document, 0, {L"99"}); }), IDS_TOO_MANY_DSTS);
  EXPECT_EQ(ThrownId([&] { DuplicateDsts(document, {0}); }), IDS_TOO_MANY_DSTS);
}

TEST_F(DocumentEdits, tasks_follow_changes_of_their_destinations) {
  EXPECT_EQ(CountUsers(document, {1, 3}), 0u);
  RemoveDsts(document, {1});
  EXPECT_EQ(heard, DocChangeEventFlags::CHNAGE_DSTS);
  ReplaceDst(document, 1, {L"new"});
  EXPECT_EQ(heard, DocChangeEventFlags::CHNAGE_DSTS | DocChangeEventFlags::CHNAGE_TASKS);
  EXPECT_EQ(document.Tasks()[4]->dsts, (CTaskDsts{document.Dsts()[0], document.Dsts()[1]}));
  SetUse(document, {1, 2}, 2, true);
  SetUse(document, {2, 3}, 0, false);
  EXPECT_EQ(document.Tasks()[2]->dsts, (CTaskDsts{document.Dsts()[1], document.Dsts()[2]}));
  EXPECT_EQ(UsesOf(document.Content(), {0, 1, 2}),
            (std::vector<DstUse>{DstUse::Mixed, DstUse::All, DstUse::Mixed}));
  EXPECT_EQ(UseOf(document, {}, 1), DstUse::None);
  EXPECT_EQ(CountUsers(document, {0, 2}), 4u);
  RemoveDsts(document, {0, 1});
  EXPECT_EQ(document.Tasks()[0]->dsts.size() + document.Tasks()[1]->dsts.size(), 1u);
}

TEST_F(DocumentEdits, paste_adds_only_what_the_document_lacks) {
  const CClip tasks = CopyTasks(dom, document, {0, 3});
  EXPECT_EQ(tasks.text, L"A\tp\t\ta, c\r\nD\tp\t\ta, c\r\n");
  EXPECT_EQ(CopyDsts(dom, texts, document, {1}).text, L"b\tフォルダー\t<ID>_<Y>_<M>_<D>_<h>_<m>\r\n");
  EXPECT_EQ(ThrownId([&] { PasteDsts(dom, document, tasks.document, 0); }), IDS_DST_DUPLICATE);
  RemoveDsts(document, {2});
  std::string odd = tasks.document;
  odd.replace(odd.find("<Id>D") + 4, 1, "?");
  EXPECT_EQ(PasteTasks(dom, document, odd, 1), (CRows{1, 2}))
      << "the rules of the editors do not apply to pasted tasks";
  EXPECT_EQ(Shown(), L"AA2?BCDEabdc");
  EXPECT_EQ(document.Tasks()[1]->dsts, (CTaskDsts{document.Dsts()[0], document.Dsts()[3]}));
  document.Undo();
  EXPECT_EQ(PasteDsts(dom, document, tasks.document, 1), (CRows{1}));
  EXPECT_EQ(Shown(), L"ABCDEacbd");
  EXPECT_FALSE(document.CanRedo()) << "an edit ends what could be done again";
  EXPECT_EQ(ThrownId([&] { PasteTasks(dom, document, "text", 0); }), IDS_XML_LOAD_FAILED);
}

// No edit may change the content held by an earlier step.
TEST_F(DocumentEdits, every_edit_can_be_undone_and_redone) {
  const CClip clip = CopyTasks(dom, document, {1, 2});
  const CRows two = {0, 1};
  const std::pair<uint32_t, std::function<void()>> kEdits[] = {
      {IDS_EDIT_ADD_TASK, [&] { AddFolderTasks(document, 1, {L"C:\\n"}, {}); }},
      {IDS_EDIT_ADD_DST, [&] { InsertDst(document, -1, {L"n"}); }},
      {IDS_EDIT_CHANGE_TASK, [&] { ReplaceTask(document, 0, Task(L"r", L"q")); }},
      {IDS_EDIT_CHANGE_DST, [&] { ReplaceDst(document, 0, {L"r"}); }},
      {IDS_EDIT_MOVE_TASKS, [&] { MoveTasks(document, two, 3); }},
      {IDS_EDIT_MOVE_DSTS, [&] { MoveDsts(document, {2}, 0); }},
      {IDS_EDIT_DUPLICATE_TASKS, [&] { DuplicateTasks(document, {1}); }},
      {IDS_EDIT_DUPLICATE_DSTS, [&] { DuplicateDsts(document, {1}); }},
      {IDS_EDIT_SET_USE, [&] { SetUse(document, two, 1, true); }},
      {IDS_EDIT_PASTE_TASKS, [&] { PasteTasks(dom, document, clip.document, 1); }},
      {IDS_EDIT_REMOVE_DSTS, [&] { RemoveDsts(document, two); }},
      {IDS_EDIT_PASTE_DSTS, [&] { PasteDsts(dom, document, clip.document, 1); }},
      {IDS_EDIT_REMOVE_TASKS, [&] { RemoveTasks(document, two); }},
      {IDS_EDIT_CHANGE_DST, [&] { ReplaceDst(document, 1, {L"s"}); }},
      {IDS_EDIT_SET_FILTER, [&] { SetTaskFilter(document, 1, L"f"); }}};
  document.Reset(document.Content(), L"");
  std::vector<std::string> steps = {Bytes()};
  std::vector<uint32_t> names = {0};
  for (const auto& [name, edit] : kEdits) {
    edit();
    steps.push_back(Bytes());
    names.push_back(name);
    ASSERT_NE(steps.back(), *(steps.end() - 2)) << steps.size();
  }
  for (size_t n = steps.size(); n-- != 0; document.Undo()) {
    ASSERT_EQ(Bytes(), steps[n]) << n;
    ASSERT_EQ(document.UndoNameId(), names[n]) << n;
  }
  EXPECT_FALSE(document.CanUndo());
  names.push_back(0);  // nothing to redo after the last edit
  for (size_t n = 0; n != steps.size(); ++n, document.Redo()) {
    ASSERT_EQ(Bytes(), steps[n]) << n;
    ASSERT_EQ(document.RedoNameId(), names[n + 1]) << n;
  }
}

}  // namespace
