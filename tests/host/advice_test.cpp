#include "engine/advice.h"

#include "document/document_edits.h"
#include "document/filter.h"
#include "engine/plan_advice.h"
#include "support/engine_doubles.h"

namespace {

using namespace qlm;

using test::Has;
using test::kTime;

const std::wstring kGoodName = CDst().pattern;

class Advice : public testing::Test, protected test::CEngineDoubles {
 protected:
  Advice() {
    files.AddFile(L"C:\\src\\a", "a", kTime);
    files.AddFile(L"C:\\7z.exe", "", kTime);
  }

  // Adds a task that uses only these destinations.
  void AddTask(const std::wstring& id, const std::vector<CDst>& dsts, const std::wstring& path = L"C:\\src",
               const std::wstring& filter = {}) {
    CTaskDsts used;
    for (const CDst& dst : dsts) {
      if (!document.Dsts().FindEqual(dst)) InsertDst(document, -1, dst);
      used.push_back(document.Dsts().FindEqual(dst));
    }
    InsertTask(document, -1, {id, path, filter, used});
  }

  // Returns the findings about the document made of one task and destination.
  std::vector<CAdvice> FindFor(const CDst& dst, const CAdviceRequest& request = {}) {
    document.Reset({}, {});
    AddTask(L"T", {dst});
    return FindAdvice(document.Content(), ports, request);
  }

  std::vector<CAdvice> Find(const CAdviceRequest& request = {}) {
    return FindAdvice(document.Content(), ports, request);
  }

  std::vector<CAdvice> FindInPlan(const CTaskPtr& task) {
    const std::wstring archiver = L"C:\\7z.exe";
    return FindPlanAdvice(document.Content(), CPlanner(ports, archiver, nullptr).Plan(task), ports, nullptr);
  }

  // Expects one finding and returns it.
  static CAdvice Only(const std::vector<CAdvice>& found, AdviceKind kind) {
    EXPECT_EQ(found.size(), 1u);
    if (found.empty()) return {};
    EXPECT_EQ(found[0].kind, kind);
    return found[0];
  }

  CDocument document;
};

TEST_F(Advice, clean_document_has_no_findings_and_nothing_is_written) {
  AddTask(L"A", {{L"D:\\dst", DstType::FOLDER, kGoodName}, {L"D:\\dst", DstType::ZIP, kGoodName + L".zip"}});
  AddTask(L"B", {{L"D:\\dst", DstType::FOLDER, kGoodName}});
  const auto before = files.Files();
  EXPECT_TRUE(Find().empty());
  EXPECT_TRUE(FindInPlan(document.Tasks()[0]).empty());
  EXPECT_EQ(files.Files(), before);
  EXPECT_EQ(files.Kind(L"D:\\dst"), my::PathKind::None);
}

TEST_F(Advice, pattern_shows_which_changes_would_be_skipped) {
  const auto text = [this](const wchar_t* pattern, AdviceKind kind) {
    return Only(FindFor({L"D:\\dst", DstType::FOLDER, pattern}), kind).text;
  };
  EXPECT_TRUE(Has(text(L"<ID>_Y", AdviceKind::NameWithoutTime), L"<ID>_Y"));
  EXPECT_TRUE(Has(text(L"<ID><Y><M><D>", AdviceKind::CoarseName), L"1 日"));
  EXPECT_TRUE(Has(text(L"<Y2><M1>", AdviceKind::CoarseName), L"1 か月"));
  EXPECT_TRUE(Has(text(L"<Y4>", AdviceKind::CoarseName), L"1 年"));
  EXPECT_TRUE(Has(text(L"<Y><M><D2>_<h1>", AdviceKind::CoarseName), L"1 時間"));
  text(L"<M><D><h><m>", AdviceKind::RepeatingName);
  EXPECT_TRUE(FindFor({L"D:\\dst", DstType::FOLDER, L"<Y><M><D><h><m1><s>"}).empty());
}

TEST_F(Advice, names_that_windows_reads_as_others_are_errors) {
  for (const wchar_t* start : {L"nul\\", L"a:b", L"a?", L"<N>"}) {
    const CAdvice found =
        Only(FindFor({L"D:\\dst", DstType::FOLDER, start + kGoodName}), AdviceKind::BadName);
    EXPECT_EQ(found.severity, AdviceSeverity::Error);
    EXPECT_EQ(found.task, 0u) << "the name contains the ID";
  }
  document.Reset({}, {});
  AddTask(L"con", {{L"D:\\dst", DstType::FOLDER, L"<ID>\\<Y><M><D><h><m>"}});
  EXPECT_TRUE(Has(Only(Find(), AdviceKind::BadName).text, L"con"));
}

TEST_F(Advice, tasks_with_the_same_names_are_found) {
  const CDst shared{L"D:\\dst", DstType::FOLDER, L"<Y><M><D><h><m>"};
  AddTask(L"A", {shared});
  EXPECT_TRUE(Find().empty());
  AddTask(L"B", {shared});
  const CAdvice found = Only(Find(), AdviceKind::SharedName);
  EXPECT_TRUE(Has(found.text, L"A, B"));
  EXPECT_EQ(found.dst, 0u);

  // The same folder and name in other spellings; IDs that differ only in case.
  document.Reset({}, {});
  AddTask(L"A",
          {{L"D:\\dst", DstType::FOLDER, kGoodName}, {L"d:/DST\\", DstType::FOLDER, kGoodName + L"\\"}});
  AddTask(L"a", {{L"D:\\dst", DstType::FOLDER, kGoodName}});
  const auto same = Find();
  ASSERT_EQ(same.size(), 2u);
  EXPECT_EQ(same[0].kind, AdviceKind::SamePath);
  EXPECT_EQ(std::pair(same[0].task, same[0].dst),
            std::pair(std::optional<size_t>(0), std::optional<size_t>(1)));
  EXPECT_EQ(std::pair(same[1].task, same[1].dst),
            std::pair(std::optional<size_t>(1), std::optional<size_t>(0)));
}

TEST_F(Advice, source_filter_and_destination_are_looked_at) {
  files.AddFile(L"C:\\bad.flt", "- a\n- (", kTime);
  AddTask(L"in", {{L"C:\\SRC\\x", DstType::FOLDER, kGoodName}});
  AddTask(L"gone", {}, L"C:\\gone");
  AddTask(L"bad", {}, L"C:\\src", L"C:\\bad.flt");
  AddTask(L"none", {}, L"C:\\src", L"C:\\none.flt");
  AddTask(L"share", {}, L"\\\\server\\share", L"\\\\server\\share\\f.flt");
  const auto found = Find({AdviceDepth::LocalDisk});
  std::vector<std::pair<AdviceKind, size_t>> kinds;
  for (const CAdvice& advice : found) kinds.emplace_back(advice.kind, *advice.task);
  EXPECT_EQ(kinds, (std::vector<std::pair<AdviceKind, size_t>>{{AdviceKind::DstWithinSource, 0},
                                                               {AdviceKind::NoSource, 1},
                                                               {AdviceKind::BadFilter, 2},
                                                               {AdviceKind::BadFilter, 3}}));
  EXPECT_TRUE(Has(found[2].text, L"C:\\bad.flt (2)"));
  EXPECT_EQ(Find({AdviceDepth::Document}).size(), 1u);
  EXPECT_EQ(Find().size(), 6u) << "the share and its filter too";
}

TEST_F(Advice, archives_need_an_archiver_and_paths_without_spaces) {
  const CDst zip{L"D:\\my dst", DstType::ZIP, kGoodName + L".zip"};
  const CAdvice split = Only(FindFor(zip), AdviceKind::SpaceInArchive);
  EXPECT_TRUE(Has(split.text, L"D:\\my dst"));
  EXPECT_EQ(AdviceLine(texts, split), L"エラー: " + split.text);
  EXPECT_TRUE(FindFor({L"D:\\my dst", DstType::FOLDER, kGoodName}, {.archiverMissing = true}).empty());
  const CDst good{L"D:\\dst", DstType::ZIP, kGoodName + L".zip"};
  EXPECT_EQ(Only(FindFor(good, {.archiverMissing = true}), AdviceKind::NoArchiver).dst, 0u);
}

TEST_F(Advice, leftovers_are_those_of_our_names_and_not_of_a_running_archiver) {
  const auto add = [this](const wchar_t* name) {
    files.AddFile(std::wstring(L"D:\\dst\\") + name, "123456789");
  };
  add(L"_tmp_T_2015_01_02_03_04.zip");
  add(L"_TMP12_t_2016_11_12_13_14.zip");
  add(L"_tmp_other.txt");
  add(L"_tmpx_T_2015_01_02_03_04.zip");
  add(L"_tmp3_T_2016_01_02_03_04.zip");
  add(L"_lck3_T_2016_01_02_03_04.zip");
  const CDst zip{L"D:\\dst", DstType::ZIP, kGoodName + L".zip"};
  const auto found = FindFor(zip);
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].path, L"D:\\dst\\_tmp_T_2015_01_02_03_04.zip");
  EXPECT_EQ(found[1].path, L"D:\\dst\\_TMP12_t_2016_11_12_13_14.zip");

  files.AddFile(L"D:\\deep\\sub\\_tmp_T_2016\\x\\y", std::string(3000, 'x'));
  const auto below = FindFor({L"D:\\deep", DstType::FOLDER, L"sub\\<ID>_<Y>"});
  ASSERT_EQ(below.size(), 2u);  // and the coarse name
  EXPECT_EQ(below[1].kind, AdviceKind::Leftover);
  EXPECT_TRUE(Has(below[1].text, L"2.9 KB")) << "with everything below";
}

TEST_F(Advice, skipped_backup_with_other_files_is_told) {
  AddTask(L"T", {{L"D:\\dst", DstType::FOLDER, kGoodName}, {L"D:\\dst", DstType::ZIP, kGoodName + L".zip"}});
  const std::wstring backup = L"D:\\dst\\T_2016_03_05_07_04";
  files.AddFile(backup + L"\\A", "a", kTime);
  files.AddFile(backup + L".zip", test::EndRecord(1));
  EXPECT_TRUE(FindInPlan(document.Tasks()[0]).empty());
  files.AddFile(backup + L"\\deleted", "x", kTime);
  files.AddFile(backup + L"\\grown", "x", kTime);
  files.AddFile(L"C:\\src\\grown", "xx", {kTime.ticks - 1});
  files.AddFile(L"C:\\src\\old", "x", {kTime.ticks - 1});
  const auto found = FindInPlan(document.Tasks()[0]);
  ASSERT_EQ(found.size(), 2u);
  const my::CMsgArg counts[] = {L"1", L"1", L"1", backup};
  EXPECT_EQ(found[0].text, my::MakeText(texts, IDS_ADVICE_OTHER_FILES, counts));
  const my::CMsgArg entries[] = {L"1", L"3", backup + L".zip"};
  EXPECT_EQ(found[1].text, my::MakeText(texts, IDS_ADVICE_OTHER_COUNT, entries));
  files.FailAt(test::Op::FIND, 2, my::kErrorAccessDenied);
  EXPECT_EQ(FindInPlan(document.Tasks()[0]).size(), 1u) << "an unreadable backup is not compared";
}

TEST_F(Advice, exclude_line_excludes_only_that_file) {
  const std::wstring path = L"a+b (1)[x]{2}^$|*?\\ c.d ";
  CFilter filter;
  filter.Parse({ExcludeLine(path), L"+ ."}, texts);
  ASSERT_FALSE(filter.HasErrors());
  my::CRegexMatch scratch;
  EXPECT_TRUE(filter.Find(path, scratch)->IsExclude());
  for (const wchar_t* const other : {L"x\\a+b (1)[x]{2}^$|*?\\ c.d ", L"a+b (1)[x]{2}^$|*?\\ cxd ", L"c.d"})
    EXPECT_FALSE(filter.Find(other, scratch)->IsExclude());
}

}  // namespace
