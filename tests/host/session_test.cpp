#include <gtest/gtest.h>

#include <random>

#include "command_ids.h"
#include "support/fake_app.h"
#include "support/golden.h"
#include "text_ids.h"

namespace {

using namespace qlm;
using namespace test;

TEST(Session, day_with_the_program_leaves_these_settings) {
  CFakeApp a;
  CDocument& document = a.Start().Document();
  CContent content;
  content.dsts.Append(MakeDst(L"D:\\保存", DstType::PASSWORD_ZIP, L"<ID>_<Y>.zip"));
  content.tasks.Append(MakeTask(L"書類", {content.dsts[0]}));
  a.Fill(content);
  a.dialogs.paths = {L"C:\\文書\\一.qlmr"};
  a.files.AddFolder(L"C:\\文書");
  a.Do(ID_SAVE_AS);
  a.dialogs.passwords = {L"first"};
  a.Do(ID_RUN);
  a.EndRun();
  my::Wipe(a.app->Settings().archive.password);  // as a new start would have it
  a.dialogs.passwords = {L"wrong", L"wrong2"};
  a.Do(ID_RUN);
  EXPECT_FALSE(a.app->Run().IsActive()) << "neither was confirmed, then the dialog was cancelled";
  a.Do(ID_REPLACE);
  a.app->Replace().Commit({ReplaceRow::ALL, kReplaceTaskId, L"(書)類", L"$1物", true});
  EXPECT_EQ(document.Tasks()[0]->id, L"書物");
  a.Do(ID_SAVE);
  a.dialogs.paths = {document.Path()};
  a.Do(ID_ADD_FILE);
  EXPECT_FALSE(document.IsModified()) << "merged into itself";
  const std::wstring boxes = a.TakeBoxes();
  EXPECT_EQ(std::count(boxes.begin(), boxes.end(), L'\n'), 2) << boxes;
  ASSERT_TRUE(a.app->OnClose());
  EXPECT_EQ(a.files.Files().at(kSettingsFile), Golden("settings_session.config"));
}

TEST(Session, random_commands_and_answers_lose_no_edits) {
  constexpr uint32_t kIds[] = {ID_RUN,          ID_RUN_POWER_OFF, ID_POWER_OFF, ID_NEW,
                               ID_OPEN,         ID_SAVE,          ID_ADD_FILE,  ID_REPLACE,
                               ID_TASK_TARGETS, ID_SAVE_AS,       ID_MRU_FIRST};
  std::mt19937 random(1);
  CFakeApp a;
  bool asked = false;
  a.dialogs.onBox = [&](const std::wstring& text) { asked = asked || text == a.Text(IDS_ASK_DISCARD); };
  CDocument& document = a.Start().Document();
  for (int step = 0; step < 1000 && !testing::Test::HasFailure(); ++step) {
    a.dialogs.buttons = {random() % 2 == 0, random() % 2 == 0};
    a.dialogs.paths = {L"C:\\" + std::to_wstring(random() % 30) + L".qlmr"};
    a.window.tasks.focused = random() % 4;
    const bool modified = document.IsModified();
    const size_t tasks = document.Tasks().size();
    asked = false;
    const size_t kind = random() % (std::size(kIds) + 4);
    if (kind < std::size(kIds)) a.Do(kIds[kind]);
    if (kind == std::size(kIds)) a.EndRun();
    if (kind > std::size(kIds)) {
      if (a.app->Replace().IsOpen()) a.dialogs.CancelReplace();
      CContent content = document.Content();
      if (content.dsts.empty()) content.dsts.Append(MakeDst(L"D:\\b"));
      content.tasks.Append(MakeTask(content.tasks.FreeId(L"t"), {content.dsts[0]}));
      a.Fill(content);
    }
    EXPECT_TRUE(!modified || document.Tasks().size() >= tasks || asked) << step;
    EXPECT_EQ(a.window.timer, a.app->Run().IsActive()) << step;
    EXPECT_FALSE(a.app->Run().IsActive() && a.app->Replace().IsOpen()) << step;
  }
}

}  // namespace
