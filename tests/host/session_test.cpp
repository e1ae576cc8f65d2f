#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "command_ids.h"
#include "support/fake_app.h"
#include "text_ids.h"

namespace {

using namespace qlm;
using namespace test;

TEST(Session, a_day_with_the_program_leaves_these_settings) {
  CFakeApp a;
  a.files.AddFile(kSettingsFile, "<QuillmoorSetting><Version>1.0.1.0</Version></QuillmoorSetting>");
  const auto before = a.files.Files();
  a.Start();
  EXPECT_TRUE(a.window.closing);
  ASSERT_TRUE(a.app->OnClose());
  EXPECT_EQ(a.files.Files(), before) << "a start that was given up writes nothing";

  a.dialogs.buttons = {true};
  a.Start();
  a.Do(ID_NEW);
  CDocument& document = a.app->Document();
  document.Edit(DocChangeEventFlags::RESET, [](CContent& content) {
    content.dsts.Append(MakeDst(L"D:\\保存", DstType::PASSWORD_ZIP, L"<ID>_<Y>.zip"));
    content.tasks.Append(MakeTask(L"書類", {content.dsts[0]}));
    content.tasks.Append(MakeTask(L"写真", {content.dsts[0]}));
    return true;
  });
  a.dialogs.paths = {L"C:\\文書\\一.qlmr"};
  a.files.AddFolder(L"C:\\文書");
  a.Do(ID_SAVE_AS);

  a.dialogs.passwords = {L"first"};
  a.Do(ID_RUN);
  a.EndRun();
  EXPECT_EQ(a.State(), RunState::ENDED);
  my::Wipe(a.app->Settings().archive.password);  // as a new start would have it
  a.dialogs.passwords = {L"wrong", L"wrong2"};
  a.Do(ID_RUN);
  EXPECT_EQ(a.State(), RunState::ENDED)
      << "not started: neither was confirmed, then the dialog was cancelled";
  a.dialogs.passwords = {L"first"};
  a.Do(ID_RUN);
  a.Do(ID_RUN);
  a.EndRun();
  EXPECT_EQ(a.State(), RunState::STOPPED);
  a.files.AddFile(L"C:\\src\\b.txt", "b", {133'016'350'490'000'000});
  a.Do(ID_RUN_POWER_OFF);
  a.EndRun();
  EXPECT_EQ(a.power.calls.size(), 2u);

  CReplaceTool& replace = a.app->Replace();
  const auto ids = [&document] { return document.Tasks()[0]->id + document.Tasks()[1]->id; };
  a.Do(ID_REPLACE);
  replace.Refresh({ReplaceRow::ALL, kReplaceTaskId, L"書", L"文"});
  EXPECT_EQ(ShownValue(*document.Tasks()[0], kReplaceTaskId), L"文類");
  replace.Cancel(replace.Options());
  EXPECT_EQ(ids(), L"書類写真");
  EXPECT_FALSE(document.IsModified());
  a.Do(ID_REPLACE);
  replace.Commit({ReplaceRow::ALL, kReplaceTaskId, L"(書)類", L"$1物", true});
  EXPECT_EQ(ids(), L"書物写真");
  a.Do(ID_SAVE);
  a.dialogs.paths = {document.Path()};
  a.Do(ID_ADD_FILE);
  EXPECT_FALSE(document.IsModified()) << "merged into itself";

  const std::wstring boxes = a.TakeBoxes();
  EXPECT_EQ(std::count(boxes.begin(), boxes.end(), L'確'), 4) << boxes;
  EXPECT_EQ(boxes.find(L"エラー: "), boxes.npos);
  ASSERT_TRUE(a.app->OnClose());
  std::ifstream stream(QLM_SOURCE_DIR "/tests/host/golden/settings_session.config", std::ios::binary);
  EXPECT_EQ(a.files.Files().at(kSettingsFile), std::string(std::istreambuf_iterator<char>(stream), {}));
}

TEST(Session, random_commands_and_answers_lose_no_edits) {
  constexpr uint32_t kIds[] = {ID_RUN,          ID_RUN_POWER_OFF, ID_POWER_OFF, ID_NEW,
                               ID_OPEN,         ID_SAVE,          ID_ADD_FILE,  ID_REPLACE,
                               ID_TASK_TARGETS, ID_EXPLORER_SRC,  ID_SAVE_AS,   ID_MRU_FIRST + 1};
  for (uint32_t seed = 1; seed <= 1'000 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    CFakeApp a;
    bool asked = false;
    a.dialogs.onBox = [&](const std::wstring& text) { asked = asked || text == a.Text(IDS_ASK_DISCARD); };
    a.Start();
    for (int step = 0; step < 12; ++step) {
      a.dialogs.buttons = {random() % 2 == 0, random() % 2 == 0};
      a.dialogs.paths = {L"C:\\" + std::to_wstring(random() % 30) + L".qlmr"};
      a.window.tasks.focused = random() % 4;
      CDocument& document = a.app->Document();
      const bool modified = document.IsModified();
      const size_t tasks = document.Tasks().size();
      asked = false;
      const size_t kind = random() % (std::size(kIds) + 4);
      if (kind < std::size(kIds)) a.Do(kIds[kind]);
      if (kind == std::size(kIds)) a.EndRun();
      if (kind > std::size(kIds) && a.app->Replace().IsOpen()) a.dialogs.CancelReplace();
      if (kind > std::size(kIds)) {
        CContent content = document.Content();
        if (content.dsts.empty()) content.dsts.Append(MakeDst(L"D:\\b"));
        content.tasks.Append(MakeTask(content.tasks.FreeId(L"t"), {content.dsts[0]}));
        a.Fill(content);
      }
      EXPECT_TRUE(!modified || document.Tasks().size() >= tasks || asked);
      EXPECT_EQ(a.window.timer, a.app->Run().IsActive());
      EXPECT_FALSE(a.app->Run().IsActive() && a.app->Replace().IsOpen());
    }
  }
}

}  // namespace
