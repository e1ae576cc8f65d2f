#include "app/edit_commands.h"

#include "app/drop_command.h"
#include "support/fake_app.h"

namespace {

using namespace qlm;

struct EditCommands : testing::Test {
  EditCommands() {
    CContent content;
    for (const wchar_t* folder : {L"x", L"y"}) content.dsts.Append(test::MakeDst(folder));
    content.tasks.Append(test::MakeTask(L"A", {content.dsts[1]}));
    content.tasks.Append(test::MakeTask(L"B"));
    a.Start().Document().Reset(content, L"");
  }

  // Returns task IDs and destination folders, selected ones in brackets.
  std::wstring Shown() {
    std::wstring shown;
    const auto add = [&shown](const auto& items, const test::CFakeList& list, auto name) {
      for (size_t row = 0; row < items.size(); ++row) {
        const bool selected = std::ranges::count(list.selected, row) != 0;
        shown += selected ? L"[" + (*items[row]).*name + L"]" : (*items[row]).*name;
      }
    };
    add(document.Tasks(), tasks, &CTask::id);
    add(document.Dsts(), dsts, &CDst::folder);
    return shown;
  }
  std::wstring After(uint32_t id) {
    a.Do(id);
    return Shown();
  }
  std::wstring After(CCommand&& command) {
    a.app->Execute(command);
    return Shown();
  }
  std::wstring Error(uint32_t id) const { return L"エラー: " + a.Text(id) + L"\n"; }

  test::CFakeApp a;
  CDocument& document = a.document.emplace();
  test::CFakeList& tasks = a.window.tasks;
  test::CFakeList& dsts = a.window.dsts;
};

TEST_F(EditCommands, edited_rows_are_selected) {
  EXPECT_EQ(After(ID_TASK_DUPLICATE), L"ABxy") << "nothing is selected";
  tasks.selected = {0};
  EXPECT_EQ(After(ID_TASK_DUPLICATE), L"A[A2]Bxy");
  EXPECT_EQ(After(ID_TASK_DOWN), L"AB[A2]xy");
  EXPECT_EQ(After(ID_ITEM_UP), L"A[A2]Bxy") << "of the list that has the keyboard";
  EXPECT_EQ(After(ID_CUT), L"A[B]xy");
  EXPECT_EQ(After(ID_PASTE), L"AB[A2]xy");
  EXPECT_EQ(document.Tasks()[2]->dsts, (CTaskDsts{document.Dsts()[1]}));
  EXPECT_EQ(After(ID_TASK_DELETE), L"A[B]xy");
  EXPECT_EQ(After(ID_SELECT_ALL), L"[A][B]xy");
  EXPECT_EQ(After(ID_TASK_DELETE), L"xy");
  EXPECT_EQ(After(ID_UNDO), L"ABxy");
  EXPECT_EQ(After(ID_REDO), L"xy");
  a.Do(ID_UNDO);

  a.Do(ID_OTHER_PANE);
  dsts.selected = {1};
  EXPECT_EQ(After(ID_ITEM_DUPLICATE), L"ABxy[y]");
  EXPECT_EQ(After(ID_DST_UP), L"ABx[y]y");
  EXPECT_EQ(After(ID_DST_DOWN), L"ABxy[y]");
  EXPECT_EQ(After(ID_COPY), L"ABxy[y]");
  EXPECT_EQ(After(ID_ITEM_DELETE), L"ABx[y]") << "no task uses the copy";
  EXPECT_EQ(After(ID_PASTE), L"ABxy[y]");
  dsts.selected = {1};
  EXPECT_EQ(After(ID_DST_DELETE), L"ABx[y]y") << "the user has taken it back";
  EXPECT_TRUE(test::Has(a.TakeBoxes(), L"1 件のタスク"));
  a.dialogs.buttons = {true};
  EXPECT_EQ(After(ID_DST_DELETE), L"ABx[y]");
  EXPECT_TRUE(document.Tasks()[0]->dsts.empty());
}

TEST_F(EditCommands, dialogs_add_and_change_items) {
  tasks.selected = {0};
  a.dialogs.tasks = {{L"N", L"C:\\n", L"", {}}};
  EXPECT_EQ(After(ID_TASK_ADD), L"A[N]Bxy");
  EXPECT_EQ(a.dialogs.editedTask.dsts, (CTaskDsts{document.Dsts()[1]})) << "those of the selected task";
  a.dialogs.tasks = {{L"C", L"C:\\c", L"", {}}};
  EXPECT_EQ(After(ID_TASK_EDIT), L"A[C]Bxy");
  EXPECT_EQ(a.dialogs.editedTask.id, L"N");
  a.dialogs.dsts = {{L"z"}, {L"w"}};
  EXPECT_EQ(After(ID_DST_ADD), L"A[C]Bxy[z]");
  EXPECT_EQ(UseOf(document, {1}, 2), DstUse::All);
  EXPECT_EQ(After(ID_DST_EDIT), L"A[C]Bxy[w]");
  tasks.selected = {2};
  a.Do(ID_TASK_ADD);
  EXPECT_TRUE(a.dialogs.editedTask.dsts.empty()) << "there is a choice";
  dsts.selected = {0, 1};
  a.dialogs.buttons = {true};
  a.Do(ID_DST_DELETE);
  a.Do(ID_TASK_ADD);
  EXPECT_EQ(a.dialogs.editedTask.dsts, (CTaskDsts{document.Dsts()[0]})) << "the only one there is";
}

TEST_F(EditCommands, destination_is_used_by_all_selected_tasks_or_by_none) {
  const CContent before = document.Content();
  After(CCommandToggleUse(a.app->Context(), 1));
  EXPECT_EQ(a.TakeBoxes(), Error(IDS_NO_TASK_SELECTED));
  EXPECT_EQ(tasks.focusCount, 1);
  tasks.selected = {0, 1};
  for (const DstUse use : {DstUse::All, DstUse::None}) {
    After(CCommandToggleUse(a.app->Context(), 1));
    EXPECT_EQ(UseOf(document, {0, 1}, 1), use);
  }
}

TEST_F(EditCommands, rows_and_files_can_be_dropped) {
  CAppContext& context = a.app->Context();
  const auto drop = [&](const wchar_t* path, std::optional<size_t> row, bool append = true) {
    return After(CCommandDrop(context, {path}, {ListKind::Tasks, row, append}));
  };
  tasks.selected = {0};
  dsts.selected = {1};
  EXPECT_EQ(After(CCommandMoveRows(context, ListKind::Tasks, 2)), L"B[A]x[y]");
  EXPECT_EQ(After(CCommandMoveRows(context, ListKind::Dsts, 0)), L"B[A][y]x");
  EXPECT_EQ(drop(L"C:\\src", {}), L"BA[src][y]x");
  drop(L"C:\\f.FLT", {});
  EXPECT_EQ(a.TakeBoxes(), Error(IDS_DROP_FILTER_ON_TASK));
  drop(L"C:\\f.FLT", 0);
  EXPECT_EQ(document.Tasks()[0]->filterPath, L"C:\\f.FLT");
  EXPECT_NE(drop(L"C:\\x.exe", 0).size(), 0u);
  EXPECT_TRUE(test::Has(a.TakeBoxes(), L"C:\\x.exe"));
  a.DoWithPath(ID_SAVE_AS, L"C:\\d.qlmr");
  a.Do(ID_NEW);
  EXPECT_EQ(drop(L"C:\\d.qlmr", {}), L"BA[src][y]x");
  EXPECT_TRUE(document.IsModified());
  a.dialogs.buttons = {true};
  drop(L"C:\\d.qlmr", {}, false);
  EXPECT_FALSE(document.IsModified());
}

TEST_F(EditCommands, dropped_and_pasted_folders_are_one_edit_that_can_run_at_once) {
  for (const wchar_t* folder : {L"C:\\n1", L"C:\\n2", L"D:\\o"}) a.files.CreateFolders(folder);
  const std::vector<std::wstring> folders = {L"C:\\n1", L"C:\\n2"};
  tasks.selected = {0};
  EXPECT_EQ(After(CCommandDrop(a.app->Context(), folders, {})), L"A[n1][n2]Bxy");
  EXPECT_EQ(document.Tasks()[2]->dsts, (CTaskDsts{document.Dsts()[1]})) << "those of the selected task";
  EXPECT_EQ(After(CCommandDrop(a.app->Context(), folders, {ListKind::Dsts})),
            L"A[n1][n2]Bxy[C:\\n1][C:\\n2]");
  EXPECT_EQ(UseOf(document, {1, 2}, 3), DstUse::All);
  EXPECT_EQ(*document.Dsts()[2], CDst{L"C:\\n1"}) << "type and name as in the dialog";
  a.Do(ID_UNDO);
  a.Do(ID_UNDO);
  tasks.selected = {};
  dsts.selected = {};
  EXPECT_EQ(Shown(), L"ABxy") << "one step each";

  a.Do(ID_PASTE);
  EXPECT_EQ(a.TakeBoxes(), L"") << "there is nothing to paste";
  a.clipboard.text = L"note\r\n\"C:\\n1\"\r\nC:\\none\r\nsrc";
  EXPECT_EQ(After(ID_PASTE), L"AB[n1]xy");
  a.clipboard.paths = {L"D:\\o"};
  a.window.current = ListKind::Dsts;
  EXPECT_EQ(After(ID_PASTE), L"AB[n1]xy[D:\\o]");
  EXPECT_EQ(UseOf(document, {2}, 2), DstUse::All);
  a.clipboard.paths = {L"C:\\src\\a.txt"};
  a.Do(ID_PASTE);
  EXPECT_EQ(a.TakeBoxes(), Error(IDS_PASTE_NO_FOLDER));
}

TEST_F(EditCommands, impossible_edits_are_disabled) {
  constexpr uint32_t kIds[] = {ID_TASK_ADD, ID_TASK_EDIT, ID_TASK_DELETE, ID_CUT,       ID_COPY,
                               ID_PASTE,    ID_UNDO,      ID_REDO,        ID_SELECT_ALL};
  const auto enabled = [&] {
    std::string all;
    for (const uint32_t id : kIds) all += a.app->IsEnabled(id) ? '1' : '0';
    return all;
  };
  EXPECT_EQ(enabled(), "100000001");
  tasks.selected = {0};
  tasks.focused = 0;
  EXPECT_EQ(enabled(), "111110001");
  a.Do(ID_COPY);
  a.Do(ID_CUT);
  EXPECT_EQ(enabled(), "111111101");
  a.Do(ID_UNDO);
  EXPECT_EQ(enabled(), "111111011");
  a.app->Replace().Show();
  EXPECT_EQ(enabled(), "000010001") << "only what changes nothing";
  for (const uint32_t id : {ID_TASK_DELETE, ID_UNDO, ID_REDO, ID_PASTE}) {
    a.Do(id);
    EXPECT_EQ(a.TakeBoxes(), Error(IDS_REFUSED_DURING_REPLACE)) << id;
  }
  EXPECT_FALSE(a.app->IsEnabled(0));
  document.Reset({}, L"");
  EXPECT_FALSE(document.CanUndo() || document.CanRedo());
}

TEST_F(EditCommands, filter_of_the_focused_task_or_a_chosen_one_is_checked) {
  tasks.focused = 0;
  a.DoWithPath(ID_FILTER_CHECK, L"C:\\f.flt");
  a.Do(ID_FILTER_CHECK);  // no file is chosen
  EXPECT_EQ(a.dialogs.filters, (std::vector<std::wstring>{L"C:\\f.flt|C:\\src"}));
  SetTaskFilter(document, 0, L"C:\\own.flt");
  a.Do(ID_FILTER_CHECK);
  EXPECT_EQ(a.dialogs.filters.back(), L"C:\\own.flt|C:\\src");
}

}  // namespace
