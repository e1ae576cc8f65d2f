#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <set>

#include "support/fake_app.h"

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
    content.dsts.Insert(-1, MakeDst(L"D:\\保存", DstType::PASSWORD_ZIP, L"<ID>_<Y>.zip"));
    content.tasks.Insert(-1, MakeTask(L"書類", {content.dsts[0]}));
    content.tasks.Insert(-1, MakeTask(L"写真", {content.dsts[0]}));
    return true;
  });
  a.dialogs.paths = {L"C:\\文書\\一.qlmr"};
  a.files.AddFolder(L"C:\\文書");
  a.Do(ID_SAVE_AS);

  a.dialogs.passwords = {L"first"};
  a.Do(ID_RUN);
  a.EndRun();
  EXPECT_EQ(a.State(), IDS_STATE_ENDED);
  my::Wipe(a.app->Settings().archive.password);  // as a new start would have it
  a.dialogs.passwords = {L"wrong", L"wrong2"};
  a.Do(ID_RUN);
  EXPECT_EQ(a.State(), IDS_STATE_ENDED)
      << "not started: neither was confirmed, then the dialog was cancelled";
  a.dialogs.passwords = {L"first"};
  a.Do(ID_RUN);
  a.Do(ID_RUN);
  a.EndRun();
  EXPECT_EQ(a.State(), IDS_STATE_STOPPED);
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

// Does what a user may do in any order, and checks after each step what must always hold.
class CWalk {
 public:
  explicit CWalk(uint32_t seed) : m_random(seed) {
    a.folders.programs = L"C:\\Program Files";
    a.files.AddFile(L"C:\\Program Files\\7-Zip\\7z.exe", "MZ");
    a.dialogs.onBox = [this](const std::wstring& text) {
      m_discardAsked = m_discardAsked || text == a.Text(IDS_ASK_DISCARD);
    };
    Restart();
  }

  void Step() {
    for (size_t i = 0; i < 3; ++i) a.dialogs.buttons.push_back(Chance(2));
    if (Chance(2)) a.dialogs.paths = {L"C:\\" + std::to_wstring(Number(30)) + L".qlmr"};
    if (Chance(2)) a.dialogs.passwords = {L"pw" + std::to_wstring(Number(3))};
    a.window.tasks.focused = Number(4);
    a.window.dsts.focused = Number(4);
    m_wasActive = a.app->Run().IsActive();
    m_wasModified = a.app->Document().IsModified();
    m_discardAsked = false;
    a.power.calls.clear();
    const size_t tasksBefore = a.app->Document().Tasks().size();
    const bool mayLose = Act();
    const size_t tasks = a.app->Document().Tasks().size();
    if (m_wasModified && tasks < tasksBefore)
      EXPECT_TRUE(mayLose || m_discardAsked) << "edits are never lost without a question";
    CheckWhatHolds();
    a.dialogs.buttons.clear();
    a.dialogs.paths.clear();
    a.dialogs.passwords.clear();
  }

 private:
  size_t Number(size_t below) { return m_random() % below; }
  bool Chance(size_t in) { return Number(in) == 0; }

  void Restart() {
    a.Start();
    if (a.window.closing) a.app->OnClose();
  }

  // Answers whether the step may take tasks away.
  bool Act() {
    constexpr uint32_t kIds[] = {ID_RUN,          ID_RUN_POWER_OFF, ID_POWER_OFF, ID_NEW,
                                 ID_OPEN,         ID_ADD_FILE,      ID_SAVE,      ID_SAVE_AS,
                                 ID_REPLACE,      ID_TASK_TARGETS,  ID_SETTINGS,  ID_EXPLORER_SRC,
                                 ID_EXPLORER_DST, ID_MRU_FIRST + 1};
    const size_t kind = Number(24);
    if (kind < std::size(kIds)) return a.Do(kIds[kind]), false;
    if (kind == 14) return Close();
    if (kind == 15) return EndReplace(), false;
    if (kind < 19) return EndRun(), false;
    return Edit();
  }

  bool Close() {
    if (!a.app->OnClose()) {
      if (!a.app->IsClosing()) return false;
      a.EndRun();
      EXPECT_TRUE(a.window.closing && a.app->OnClose());
    }
    EXPECT_FALSE(a.app->Run().IsActive());
    EXPECT_TRUE(!m_wasModified || m_discardAsked);
    Restart();
    return true;
  }

  void EndReplace() {
    CReplaceTool& tool = a.app->Replace();
    if (!tool.IsOpen()) return;
    const CReplaceOptions options{static_cast<ReplaceRow>(Number(3)), static_cast<ReplaceCol>(Number(32)),
                                  L"t", Chance(3) ? L"" : L"tu", Chance(2)};
    if (Chance(3)) return tool.Cancel(options);
    try {
      tool.Commit(options);
    } catch (const my::CException&) {
      EXPECT_TRUE(tool.IsOpen());
      tool.Cancel(options);
    }
  }

  void EndRun() {
    if (Chance(4)) a.files.FailAt(Op::COPY, 1);
    a.EndRun();
    a.files.ClearFaults();
    m_wasEnded = true;
  }

  // The windows refuse edits while the replace tool is open.
  bool Edit() {
    if (a.app->Replace().IsOpen()) return false;
    CDocument& document = a.app->Document();
    switch (Number(4)) {
      case 0: document.Undo(); return true;
      case 1: document.Redo(); return true;
      default: break;
    }
    const std::wstring name = std::to_wstring(Number(1000));
    document.Edit(DocChangeEventFlags::RESET, [&](CContent& content) {
      auto dst = MakeDst(L"D:\\" + name, static_cast<DstType>(Number(4)), L"<ID>.zip");
      if (!content.dsts.FindEqual(*dst)) content.dsts.Insert(0, dst);
      content.tasks.Insert(-1, MakeTask(content.tasks.FreeId(L"t"), {content.dsts[0]}));
      return true;
    });
    return false;
  }

  void CheckWhatHolds() {
    const CBackupThread& run = a.app->Run();
    EXPECT_FALSE(run.IsActive() && a.app->Replace().IsOpen());
    EXPECT_EQ(a.window.timer, run.IsActive());
    const auto& recent = a.app->Settings().ui.mruPathes.Items();
    EXPECT_LE(recent.size(), kMruMaximum);
    EXPECT_EQ(std::set<std::wstring>(recent.begin(), recent.end()).size(), recent.size());
    if (!a.power.calls.empty() && m_wasActive && std::exchange(m_wasEnded, false)) {
      EXPECT_EQ(run.State(), IDS_STATE_ENDED);
      EXPECT_FALSE(run.HasErrors()) << "no power-off after an error";
    }
    m_wasEnded = false;
    for (const CTaskPtr& task : a.app->Document().Tasks()) {
      EXPECT_TRUE(a.app->Replace().IsOpen() || !task->replaceRule);
      for (const CDstPtr& dst : task->dsts) EXPECT_GE(a.app->Document().Dsts().IndexOf(dst), 0);
    }
    const std::wstring boxes = a.TakeBoxes();
    EXPECT_EQ(boxes.find(a.Text(IDS_INTERNAL_ERROR).substr(0, 5)), boxes.find(L"内部エラー\n\nMru"))
        << "only of menus";
  }

  CFakeApp a;
  std::mt19937 m_random;
  bool m_wasActive = false;
  bool m_wasModified = false;
  bool m_discardAsked = false;
  bool m_wasEnded = false;
};

TEST(Session, random_walks_lose_nothing) {
  for (uint32_t seed = 1; seed <= 10'000 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    CWalk walk(seed);
    for (int step = 0; step < 12 && !testing::Test::HasFailure(); ++step) walk.Step();
  }
}

}  // namespace
