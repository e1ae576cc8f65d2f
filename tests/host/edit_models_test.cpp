#include "document/document_edits.h"
#include "document/name_pattern.h"
#include "support/engine_doubles.h"
#include "ui/models/item_advice.h"
#include "ui/models/name_preview.h"
#include "ui/models/task_dsts_model.h"

namespace {

using namespace qlm;

using test::Has;

struct EditModels : testing::Test, test::CEngineDoubles {
  EditModels() {
    for (const wchar_t* folder : {L"C:\\a", L"D:\\SRC/b\\", L"C:\\srcs"}) InsertDst(document, -1, {folder});
  }
  static std::wstring Numbers(const CTaskDstsModel& model) {
    return test::ColumnText(model, CTaskDstsModel::Number);
  }
  std::wstring Preview(const std::wstring& pattern, const std::wstring& folder = L"C:\\a") const {
    return NamePreview({folder, DstType::FOLDER, pattern}, L"Docs", test::kTime, clock, texts);
  }

  CDocument document;
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

TEST_F(EditModels, advice_is_about_the_item_as_it_is_edited) {
  files.AddFolder(L"D:\\src");
  const auto advice = [&](const CTask& task) { return TaskAdvice(document.Content(), L"old", task, ports); };
  CTask task{L"T", L"D:\\src", L"", {document.Dsts()[0], document.Dsts()[2]}};
  EXPECT_EQ(advice(task), L"");
  task.dsts.push_back(document.Dsts()[1]);
  EXPECT_TRUE(Has(advice(task), L"D:\\SRC/b"));
  task.path = L"D:\\gone";
  EXPECT_TRUE(Has(advice(task), L"エラー: ") && Has(advice(task), L"D:\\gone"));
  for (const wchar_t* silent : {L"", L"\\\\server\\share"}) {
    task.path = silent;
    EXPECT_EQ(advice(task), L"");
  }
  InsertDst(document, -1, {L"D:\\src\\z", DstType::ZIP, L"<ID>_<Y><M><D><h><m>.zip"});
  task = {L"My Task", L"D:\\src", L"", {document.Dsts()[3]}};
  EXPECT_TRUE(Has(advice(task), L"My Task_2016"));
  for (const wchar_t* id : {L"old", L"other"})
    InsertTask(document, -1, {id, L"D:\\src", L"", {document.Dsts()[0]}});
  task.id = L"old";
  EXPECT_TRUE(Has(advice(task), L"D:\\src\\z") && !Has(advice(task), L"My Task"));

  const auto dstAdvice = [&](const CDstPtr& before, const CDst& dst, const CRows& users = {}) {
    return DstAdvice(document.Content(), before, dst, users, L"sample", ports);
  };
  const CDstPtr used = document.Dsts()[0];
  EXPECT_EQ(dstAdvice(used, *used), L"");
  EXPECT_TRUE(Has(dstAdvice(used, {L"C:\\a", DstType::FOLDER, L"x<Y><M><D><h><m>"}), L"old, other"));
  EXPECT_TRUE(Has(dstAdvice({}, {L"D:\\src", DstType::FOLDER, L"<ID>_<Y><M><D><h><m>"}, {1}), L"D:\\src"));
  EXPECT_TRUE(Has(dstAdvice({}, {L"C:\\my docs", DstType::ZIP, L"<ID>"}), L"C:\\my docs"));
}

TEST_F(EditModels, preview_is_the_name_or_the_error) {
  EXPECT_EQ(Preview(L"<ID>\\<Y2><M1>"), L"Docs\\163");
  EXPECT_EQ(Preview(L""), texts.Text(IDS_PATTERN_EMPTY));
  EXPECT_TRUE(Has(Preview(L"a<y>b"), L" - a<y>b"));
  EXPECT_TRUE(Has(Preview(L" .. "), L"点と空白以外"));
  EXPECT_TRUE(Has(Preview(L"x\\nul.zip"), L"「nul.zip」は Windows のデバイス名"));
  EXPECT_TRUE(Has(Preview(L"x", L"C:\\a:b\\c"), L"「a:b」には :"));
  EXPECT_EQ(Preview(L"x", L" ..\\a "), L"x") << "a folder may be relative to another one";
  EXPECT_EQ(NameTokens().size(), 13u);
  for (const CNameToken& token : NameTokens()) {
    EXPECT_FALSE(Has(Preview(token.text), L"<")) << token.descId;
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
