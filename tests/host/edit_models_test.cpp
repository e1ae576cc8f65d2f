#include <gtest/gtest.h>

#include "document/document_edits.h"
#include "document/name_pattern.h"
#include "engine/backup_task.h"
#include "support/fake_ports.h"
#include "support/memory_file_system.h"
#include "ui/models/name_preview.h"
#include "ui/models/task_dsts_model.h"
#include "ui/models/task_warning.h"

namespace {

using namespace qlm;

constexpr my::CFileTime kTime{131'016'350'490'000'000};  // 2016-03-05 07:04:09 UTC

struct EditModels : testing::Test {
  EditModels() {
    for (const wchar_t* folder : {L"C:\\a", L"D:\\SRC/b\\", L"C:\\srcs"}) InsertDst(document, -1, {folder});
  }
  static std::wstring Numbers(const CTaskDstsModel& model) {
    std::wstring numbers;
    for (size_t row = 0; row < model.RowCount(); ++row) numbers += model.Text(row, CTaskDstsModel::Number);
    return numbers;
  }
  std::wstring Preview(const std::wstring& pattern, const std::wstring& folder = L"C:\\a") const {
    return NamePreview({folder, DstType::FOLDER, pattern}, L"Docs", kTime, clock, texts);
  }

  CDocument document;
  test::CRcTexts texts;
  test::CFakeClock clock;
  test::CMemoryFileSystem files;
  test::CFakeAnsiCodec ansi;
  test::CFakeProcess process;
  CEnginePorts ports{files, clock, ansi, texts, process};
};

TEST_F(EditModels, used_rows_are_the_destinations_in_order) {
  InsertDst(document, -1, {L"E:\\"});
  const CDsts& dsts = document.Dsts();
  CTaskDstsModel model(dsts, {dsts[2], dsts[0]}, texts);
  EXPECT_EQ(Numbers(model), L"3124");
  EXPECT_EQ(Numbers(CTaskDstsModel(dsts, {}, texts)), L"1234");
  EXPECT_EQ(model.Text(0, CTaskDstsModel::Folder) + model.Text(0, CTaskDstsModel::Pattern),
            L"C:\\srcs" + CDst().pattern);
  EXPECT_EQ(model.StepRow(2, Step::Up), 2u);  // not used
  model.Toggle(3);
  EXPECT_EQ(model.Used(), (CTaskDsts{dsts[2], dsts[0], dsts[3]}));
  EXPECT_FALSE(model.CanStep(0, Step::Up));
  EXPECT_FALSE(model.CanStep(3, Step::Down));
  EXPECT_EQ(model.StepRow(3, Step::Up), 1u);  // past an unused row
  EXPECT_EQ(model.StepRow(0, Step::Down), 1u);
  EXPECT_EQ(model.Used(), (CTaskDsts{dsts[3], dsts[2], dsts[0]}));
  model.Toggle(1);
  EXPECT_EQ(Numbers(model), L"4321");
  EXPECT_EQ(model.Used(), (CTaskDsts{dsts[3], dsts[0]}));
}

TEST_F(EditModels, task_warning_reports_bad_source_destination_and_archive_paths) {
  files.AddFolder(L"D:\\src");
  CTask task{L"T", L"D:\\src", L"", {document.Dsts()[0], document.Dsts()[2]}};
  EXPECT_EQ(TaskWarning(task, ports), L"");
  task.dsts.push_back(document.Dsts()[1]);
  EXPECT_NE(TaskWarning(task, ports).find(L"D:\\SRC/b"), std::wstring::npos);
  task.path = L"c:/";
  EXPECT_NE(TaskWarning(task, ports).find(L"C:\\a"), std::wstring::npos);
  task.path = L"D:\\gone";
  EXPECT_NE(TaskWarning(task, ports).find(L"D:\\gone"), std::wstring::npos);
  for (const wchar_t* silent : {L"", L"\\\\server\\share"}) {
    task.path = silent;
    EXPECT_EQ(TaskWarning(task, ports), L"");
  }
  const auto warning = [&](const CDst& dst) {
    task.dsts = {boost::make_shared<CDst>(dst)};
    return TaskWarning(task, ports);
  };
  EXPECT_EQ(warning({L"C:\\my docs", DstType::FOLDER, L"a b"}), L"");
  EXPECT_EQ(warning({L" C:\\a ", DstType::ZIP, L"<ID>_<Y> "}), L"");
  EXPECT_NE(warning({L"C:\\my docs", DstType::ZIP, L"<ID>"}).find(L"C:\\my docs"), std::wstring::npos);
  task.id = L"My Task";
  EXPECT_NE(warning({L"C:\\a", DstType::ZIP, L"<ID>"}).find(L"My Task.zip"), std::wstring::npos);
  files.SetTemporaryFolder(L"C:\\Sato Jiro\\");
  EXPECT_NE(warning({L"C:\\a", DstType::ZIP, L"x"}).find(L"C:\\Sato Jiro"), std::wstring::npos);
}

TEST_F(EditModels, preview_is_the_name_or_the_error) {
  EXPECT_EQ(Preview(L"<ID>\\<Y2><M1>"), L"Docs\\163");
  EXPECT_EQ(Preview(L""), texts.Text(IDS_PATTERN_EMPTY));
  EXPECT_NE(Preview(L"a<y>b").find(L" - a<y>b"), std::wstring::npos);
  EXPECT_NE(Preview(L" .. ").find(L"点と空白以外"), std::wstring::npos);
  EXPECT_NE(Preview(L"x\\nul.zip").find(L"「nul.zip」は Windows のデバイス名"), std::wstring::npos);
  EXPECT_NE(Preview(L"x", L"C:\\a:b\\c").find(L"「a:b」には :"), std::wstring::npos);
  EXPECT_EQ(Preview(L"x", L" ..\\a "), L"x") << "a folder may be relative to another one";
  EXPECT_EQ(NameTokens().size(), 13u);
  for (const CNameToken& token : NameTokens()) {
    EXPECT_EQ(Preview(token.text).find(L'<'), std::wstring::npos) << token.descId;
    EXPECT_FALSE(texts.Text(token.descId).empty());
  }
  std::wstring empty;
  EXPECT_FALSE(FitPattern(DstType::ZIP, empty));

  EXPECT_EQ(SampleTaskId(document.Tasks(), {}, texts), texts.Text(IDS_SAMPLE_TASK_ID));
  for (const wchar_t* id : {L"A", L"B"}) InsertTask(document, -1, {id, L"C:\\src", L"", {}});
  EXPECT_EQ(SampleTaskId(document.Tasks(), {}, texts), L"A");
  EXPECT_EQ(SampleTaskId(document.Tasks(), {1}, texts), L"B");
}

}  // namespace
