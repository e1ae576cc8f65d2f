#include "support/commands_fixture.h"

namespace {

using namespace qlm;
using namespace test;

TEST_F(Commands, documents_are_opened_saved_and_remembered) {
  StartIn(RunState::NotRun, true);
  CDocument& document = a.app->Document();
  const auto& recent = a.app->Settings().ui.mruPathes.Items();
  a.DoWithPath(ID_SAVE_AS, L"C:\\one.qlmr");
  EXPECT_EQ(a.shell.recent, L"C:\\one.qlmr");
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  EXPECT_FALSE(document.IsModified());
  EXPECT_EQ(a.dialogs.questions.back().dialog, FileDialog::SaveFile);
  EXPECT_EQ(a.dialogs.questions.back().defaultExtension, L"qlmr");
  a.Do(ID_NEW);
  EXPECT_TRUE(document.Tasks().empty() && document.Dsts().empty() && document.Path().empty());
  a.Do(ID_OPEN);
  EXPECT_EQ(a.dialogs.questions.back().initialPath, L"C:\\one.qlmr") << "of a new document: the latest";
  EXPECT_EQ(a.dialogs.questions.back().dialog, FileDialog::OpenFile);
  EXPECT_EQ(a.dialogs.questions.back().kinds.at(0).pattern, L"*.qlmr");
  EXPECT_EQ(a.dialogs.questions.back().kinds.at(1).pattern, L"*.xml");
  a.DoWithPath(ID_OPEN, L"C:\\one.qlmr");
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  a.Do(ID_NEW);
  a.Fill(content);
  a.Do(ID_SAVE);
  EXPECT_EQ(document.Path(), L"") << "cancelled";
  a.dialogs.paths = {L"two.qlmr"};  // relative to the current folder
  a.Do(ID_SAVE);
  a.Fill(content);
  const size_t asked = a.dialogs.questions.size();
  a.Do(ID_SAVE);
  EXPECT_EQ(a.dialogs.questions.size(), asked) << "a document with a path is not asked for one";
  EXPECT_EQ(a.TakeBoxes(), L"");

  a.Fill({});
  a.Do(ID_MRU_FIRST + 1);  // cancelled by the user
  EXPECT_EQ(a.TakeBoxes(), L"確認: " + a.Text(IDS_ASK_DISCARD) + L"\n");
  EXPECT_EQ(document.Path(), L"C:\\two.qlmr");
  a.dialogs.buttons = {true};
  a.Do(ID_MRU_FIRST + 1);
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  EXPECT_EQ(recent, (std::vector<std::wstring>{L"C:\\one.qlmr", L"C:\\two.qlmr"}));
  a.TakeBoxes();

  a.files.AddFile(L"C:\\bad.qlmr", "<Quill");
  a.DoWithPath(ID_OPEN, L"C:\\bad.qlmr");
  EXPECT_TRUE(Has(a.TakeBoxes(), L"C:\\bad.qlmr"));
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  EXPECT_EQ(document.Tasks().size(), 3u);
  EXPECT_EQ(recent.size(), 2u);
  a.files.FailAt(Op::MOVE_OVER, 1);
  a.Fill({});
  a.Do(ID_SAVE);
  EXPECT_TRUE(Has(a.TakeBoxes(), L"system error (0x80070070)"));
  EXPECT_TRUE(document.IsModified());

  a.Fill(content);
  a.dialogs.paths = {L"C:\\one.qlmr", L"C:\\one.qlmr"};
  a.Do(ID_ADD_FILE);
  EXPECT_EQ(document.Tasks().size(), 3u) << "the same document adds nothing";
  a.Fill({});
  a.Do(ID_ADD_FILE);
  EXPECT_EQ(document.Tasks().size(), 3u);
  EXPECT_EQ(document.Path(), L"C:\\one.qlmr");
  EXPECT_TRUE(document.IsModified());
  CContent rest = content;
  rest.tasks.Remove(0);
  for (const size_t at : {2, 0, 1}) {  // the end if nothing is selected
    a.Fill(rest);
    a.DoWithPath(ID_ADD_FILE, L"C:\\one.qlmr");
    EXPECT_EQ(document.Tasks()[at]->id, L"plain");
    a.window.tasks.selected = at == 2 ? std::vector<size_t>{0, 1} : std::vector<size_t>{1};
  }
  a.Do(ID_MRU_FIRST + 2);
  EXPECT_TRUE(Has(a.TakeBoxes(), L"Mru index is out of range: 2"));
  for (int i = 0; i < 30; ++i) {
    a.DoWithPath(ID_SAVE_AS, L"C:\\n" + std::to_wstring(i) + L".qlmr");
  }
  EXPECT_EQ(recent.size(), 20u);
}

TEST_F(Commands, file_manager_shows_the_focused_item_or_its_nearest_folder) {
  StartIn(RunState::NotRun);
  a.Do(ID_EXPLORER_DST);
  EXPECT_EQ(a.TakeBoxes(), L"エラー: " + a.Text(IDS_NO_ITEM_SELECTED) + L"\n");
  EXPECT_EQ(a.window.dsts.focusCount, 1);
  a.window.tasks.focused = a.window.dsts.focused = 0;
  a.files.AddFolder(L"D:\\b");
  for (const uint32_t id : {ID_EXPLORER_SRC, ID_EXPLORER_DST, ID_HOME_PAGE, ID_USAGE_PAGE}) a.Do(id);
  EXPECT_EQ(a.shell.calls,
            (std::vector<std::wstring>{L"Run EXPLORER.EXE /n,/select,\"C:\\src\"", L"Open D:\\b",
                                       L"Open https://example.com/quillmoor",
                                       L"Open " + a.folders.ProgramFolder() + L"\\manual\\ja\\index.html"}));
  a.shell.calls.clear();
  a.files.Remove(L"D:\\b");
  a.Do(ID_EXPLORER_DST);
  EXPECT_TRUE(a.shell.calls.empty()) << "cancelled";
  a.dialogs.buttons = {true, true};
  a.Do(ID_EXPLORER_DST);
  EXPECT_EQ(a.shell.calls, std::vector<std::wstring>{L"Open D:\\"});
  for (const std::wstring gone : {L"Q:\\x\\y", L"\\\\gone\\x"}) {
    content.dsts.Replace(0, MakeDst(gone));
    a.app->Document().Reset(content, L"");
    a.TakeBoxes();
    a.dialogs.buttons = {true};
    a.Do(ID_EXPLORER_DST);
    EXPECT_TRUE(Has(a.TakeBoxes(), L"(0x80070003)\n\n" + gone)) << "not the root of a drive";
  }

  a.threads.hang = true;  // like a share on a computer that is switched off
  a.shell.calls.clear();
  a.Do(ID_EXPLORER_DST);
  EXPECT_TRUE(Has(a.TakeBoxes(), L"もう一度実行してください\n\n\\\\gone\\x\n"));
  a.threads.hang = false;
  a.Do(ID_EXPLORER_SRC);
  a.threads.Work();  // the abandoned lookup ends
  EXPECT_EQ(a.shell.calls, std::vector<std::wstring>{L"Run EXPLORER.EXE /n,/select,\"C:\\src\""});

  CAppContext& context = a.app->Context();
  EXPECT_EQ(ThrownId([&] { CCommandExplorer(context, L"", true).Execute(false); }), IDS_ID_LIST_EMPTY);
  a.shell.path = L"C:\\src\\a.txt";
  CCommandExplorer(context, my::CShellIdList(4), true).Execute(true);
  EXPECT_EQ(a.shell.calls.back(), L"Run EXPLORER.EXE /n,/select,\"C:\\src\\a.txt\"");

  a.window.tasks.focused = 2;
  a.RunToEnd(ID_TASK_TARGETS);
  const CResult& row = *a.window.results[0];
  EXPECT_EQ(SourceOfTarget(row, *row.targets, 0), L"C:\\src\\a.txt");
  EXPECT_EQ(ThrownId([&] { BackupOfTarget(row, *row.targets, 0); }), IDS_NO_DESTINATION);
  EXPECT_EQ(ThrownId([&] { DestinationOf(a.window.results, 0); }), IDS_NO_DESTINATION);
}

TEST_F(Commands, settings_and_replace_open_their_dialogs) {
  StartIn(RunState::NotRun);
  a.Do(ID_SETTINGS);
  a.Do(ID_DESIGN);
  EXPECT_EQ(a.dialogs.settingsPages, (std::vector<bool>{false, true}));
  a.Do(ID_REPLACE);
  EXPECT_EQ(a.dialogs.replacesOpened, 1);
  a.Do(ID_REPLACE);
  EXPECT_EQ(a.dialogs.replaceFocuses, 1);
  a.dialogs.refuseToCancel = true;
  EXPECT_FALSE(a.app->OnClose()) << "the replace dialog stays, and so does the window";
  a.dialogs.refuseToCancel = false;
  EXPECT_TRUE(a.app->OnClose());
}

}  // namespace
