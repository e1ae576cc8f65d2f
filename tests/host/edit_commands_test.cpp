#include <gtest/gtest.h>

#include <algorithm>

#include "app/edit_commands.h"
#include "command_ids.h"
#include "document/document_edits.h"
#include "support/fake_app.h"
#include "text_ids.h"

namespace {

using namespace qlm;
using test::CFakeApp;

struct EditCommands : testing::Test {
  EditCommands() {
    a.Start();
    CDocument& document = *a.document;
    for (const wchar_t* folder : {L"X", L"Y"}) InsertDst(document, -1, {folder, DstType::FOLDER, L"<ID>"});
    for (const wchar_t* id : {L"a", L"b"}) InsertTask(document, -1, {id, L"C:\\src", L"", {}});
    SetUse(document, {0}, 0, true);
    Select(ListKind::TASKS, {0});
    Select(ListKind::DSTS, {0});
  }

  void Select(ListKind kind, const std::vector<size_t>& rows) { ListOf(a.window, kind).Select(rows); }

  // IDs, folders and used destinations, with brackets around what is selected: "[a:X] b | [X] Y".
  std::wstring Shown() const {
    const auto item = [](const test::CFakeList& list, size_t row, const std::wstring& text) {
      const bool selected = std::count(list.selected.begin(), list.selected.end(), row) != 0;
      return (selected ? L"[" + text + L"]" : text) + L" ";
    };
    std::wstring text;
    for (size_t row = 0; row < a.document->Tasks().size(); ++row) {
      const CTask& task = *a.document->Tasks()[row];
      std::wstring shown = task.id;
      for (const CDstPtr& dst : task.dsts) shown += L":" + dst->folder;
      text += item(a.window.tasks, row, shown);
    }
    text += L"|";
    for (size_t row = 0; row < a.document->Dsts().size(); ++row)
      text += L" " + item(a.window.dsts, row, a.document->Dsts()[row]->folder).substr(0, 3);
    return text;
  }

  std::wstring After(uint32_t id) {
    a.Do(id);
    return Shown();
  }

  CFakeApp a;
};

TEST_F(EditCommands, act_on_the_list_of_their_id_or_on_the_one_with_the_keyboard) {
  EXPECT_EQ(After(ID_ITEM_DUPLICATE), L"a:X [a2:X] b | [X] Y ");
  EXPECT_EQ(After(ID_CUT), L"a:X [b] | [X] Y ");
  EXPECT_EQ(After(ID_PASTE), L"a:X b [a2:X] | [X] Y ");
  EXPECT_EQ(After(ID_ITEM_UP), L"a:X [a2:X] b | [X] Y ");
  EXPECT_EQ(After(ID_DST_DOWN), L"a:X [a2:X] b | Y  [X]");
  EXPECT_EQ(After(ID_UNDO), L"a:X [a2:X] b | X  [Y]");
  EXPECT_EQ(After(ID_REDO), L"a:X [a2:X] b | Y  [X]");
  EXPECT_EQ(After(ID_TASK_DELETE), L"a:X [b] | Y  [X]");
  a.Do(ID_OTHER_PANE);
  a.dialogs.buttons = {false, true};
  EXPECT_EQ(After(ID_ITEM_DELETE), L"a:X [b] | Y  [X]") << "a task uses it";
  EXPECT_EQ(After(ID_ITEM_DELETE), L"a [b] | [Y]");
  EXPECT_EQ(After(ID_SELECT_ALL), L"a [b] | [Y]");
}

TEST_F(EditCommands, new_task_goes_to_the_only_destination_and_stands_after_the_selected_row) {
  a.dialogs.tasks = {{L"n", L"C:\\n", L"", {}}};
  EXPECT_EQ(After(ID_TASK_ADD), L"a:X [n] b | [X] Y ");
  EXPECT_TRUE(a.dialogs.editedTask.dsts.empty()) << "there are two";
  a.dialogs.dsts = {{L"Z"}, {L"Q"}};
  EXPECT_EQ(After(ID_DST_ADD), L"a:X [n] b | X  [Z] Y ");
  EXPECT_EQ(After(ID_DST_EDIT), L"a:X [n] b | X  [Q] Y ");
  Select(ListKind::DSTS, {1, 2});
  a.Do(ID_DST_DELETE);
  a.Do(ID_TASK_ADD);
  EXPECT_EQ(a.dialogs.editedTask.dsts.size(), 1u);
}

TEST_F(EditCommands, are_possible_only_with_something_to_edit_and_never_while_replacing) {
  const auto enabled = [this] {
    std::vector<uint32_t> ids;
    for (const uint32_t id : {ID_TASK_ADD, ID_TASK_EDIT, ID_TASK_DELETE, ID_CUT, ID_COPY, ID_PASTE,
                              ID_SELECT_ALL, ID_UNDO, ID_REDO, ID_ABOUT})
      if (a.app->IsEnabled(id)) ids.push_back(id);
    return ids;
  };
  using CIds = std::vector<uint32_t>;
  EXPECT_EQ(enabled(), (CIds{ID_TASK_ADD, ID_TASK_EDIT, ID_TASK_DELETE, ID_CUT, ID_COPY, ID_SELECT_ALL,
                             ID_UNDO, ID_ABOUT}));
  a.Do(ID_COPY);
  a.Do(ID_UNDO);
  Select(ListKind::TASKS, {});
  a.window.tasks.focused.reset();
  EXPECT_EQ(enabled(), (CIds{ID_TASK_ADD, ID_PASTE, ID_REDO, ID_ABOUT}));
  a.Do(ID_REDO);
  Select(ListKind::TASKS, {1});
  a.Do(ID_TASK_UP);
  a.Do(ID_UNDO);
  a.app->Replace().Show();
  EXPECT_EQ(enabled(), (CIds{ID_COPY, ID_SELECT_ALL, ID_ABOUT}));
  a.TakeBoxes();
  a.Do(ID_UNDO);
  a.Do(ID_CUT);
  EXPECT_EQ(a.TakeBoxes(), L"エラー: 置換中は実行できません\nエラー: 置換中は実行できません\n");
  a.Do(0x7FFF);
  EXPECT_NE(a.TakeBoxes().find(L"Unknown command: 32767"), std::wstring::npos);
}

TEST_F(EditCommands, boxes_drags_and_drops_are_commands_too) {
  const auto run = [this](CCommand&& command) {
    a.app->Execute(command);
    return Shown();
  };
  CAppContext& context = a.app->Context();
  Select(ListKind::TASKS, {0, 1});
  EXPECT_EQ(run(CCommandToggleUse(context, 0)), L"[a:X] [b:X] | [X] Y ");
  EXPECT_EQ(run(CCommandToggleUse(context, 0)), L"[a] [b] | [X] Y ");
  Select(ListKind::TASKS, {});
  run(CCommandToggleUse(context, 0));
  EXPECT_EQ(a.window.tasks.focusCount, 1) << "no task is selected";
  Select(ListKind::TASKS, {0});
  EXPECT_EQ(run(CCommandMoveRows(context, ListKind::TASKS, 2)), L"b [a] | [X] Y ");
  a.TakeBoxes();
  a.files.AddFolder(L"C:\\docs");
  run(CCommandDrop(context, {L"C:\\docs", L"C:\\f.FLT", L"C:\\x.exe"}, 0, false));
  EXPECT_EQ(Shown(), L"b a [docs] | [X] Y ");
  EXPECT_EQ(a.document->Tasks()[0]->filterPath, L"C:\\f.FLT");
  EXPECT_NE(a.TakeBoxes().find(L"C:\\x.exe"), std::wstring::npos);
  run(CCommandDrop(context, {L"C:\\f.txt"}, {}, false));
  EXPECT_NE(a.TakeBoxes().find(a.Text(IDS_DROP_FILTER_ON_TASK)), std::wstring::npos);
  a.dialogs.paths = {L"C:\\saved.qlmr"};
  a.Do(ID_SAVE_AS);
  run(CCommandDrop(context, {L"C:\\saved.QLMR"}, {}, true));
  EXPECT_EQ(a.document->Tasks().size(), 6u) << "added";
}

TEST_F(EditCommands, filter_of_the_focused_task_or_a_chosen_one_is_checked) {
  a.dialogs.paths = {L"C:\\f.flt"};
  a.Do(ID_FILTER_CHECK);
  a.Do(ID_FILTER_CHECK);  // no file is chosen
  EXPECT_EQ(a.dialogs.filters, (std::vector<std::wstring>{L"C:\\f.flt|C:\\src"}));
  SetTaskFilter(*a.document, 0, L"C:\\own.flt");
  a.Do(ID_FILTER_CHECK);
  EXPECT_EQ(a.dialogs.filters.back(), L"C:\\own.flt|C:\\src");
}

}  // namespace
