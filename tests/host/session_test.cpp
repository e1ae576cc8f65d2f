#include "command_ids.h"
#include "support/fake_app.h"
#include "support/golden.h"

namespace {

using namespace qlm;
using namespace test;

TEST(Session, scripted_session_saves_the_golden_settings) {
  CFakeApp a;
  CDocument& document = a.Start().Document();
  a.files.AddFile(L"C:\\Program Files\\7-Zip\\7z.exe", "MZ");
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
  my::Wipe(a.app->Settings().archive.password);  // as after a restart
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

}  // namespace
