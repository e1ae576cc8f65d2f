#include "engine/plan.h"

#include <random>

#include "document/document_edits.h"
#include "engine/plan_advice.h"
#include "support/engine_doubles.h"

namespace {

using namespace qlm;

using test::kTime;

class Plan : public testing::Test, protected test::CEngineDoubles {
 protected:
  Plan() {
    process.OnRun([this](const my::CProcessStart& start) -> uint32_t {
      // A space in the path of the archive is a second argument, which is not found.
      if (start.arguments.find(L'@') != start.arguments.rfind(L' ') + 1 || Words(start.arguments) != 4)
        return 1;
      return test::MakeArchive(files, start);
    });
  }

  static std::ptrdiff_t Words(const std::wstring& text) {
    return std::count(text.begin(), text.end(), L' ') + 1;
  }

  CTaskPtr AddTask(const std::wstring& id, const std::wstring& path, std::vector<CDst> dsts,
                   const std::wstring& filter = {}) {
    CTaskDsts used;
    for (CDst& dst : dsts) used.push_back(boost::make_shared<CDst>(std::move(dst)));
    tasks.push_back(boost::make_shared<CTask>(CTask{id, path, filter, used}));
    return tasks.back();
  }

  std::vector<CPlanTask> MakePlan() {
    CPlanner planner(ports, archiver, nullptr);
    std::vector<CPlanTask> plan;
    for (const CTaskPtr& task : tasks) plan.push_back(planner.Plan(task));
    return plan;
  }

  // Returns "CREATE SKIP ERROR/NO_FILES | CREATE", with one group per task.
  static std::string Outline(const std::vector<CPlanTask>& plan) {
    std::string outline;
    for (const CPlanTask& task : plan) {
      if (!outline.empty()) outline += " |";
      for (const CPlanCell& cell : task.cells) {
        outline += " " + test::NameOf(cell.action);
        if (cell.error) outline += "/" + test::NameOf(cell.error.code);
      }
    }
    return outline;
  }

  std::wstring archiver = L"C:\\7z.exe";
  std::vector<CTaskPtr> tasks;
};

TEST_F(Plan, cells_show_action_path_and_the_file_that_sets_the_time) {
  files.AddFile(archiver, "");
  files.AddFile(L"C:\\src\\old", "12345", {kTime.ticks - 1});
  files.AddFile(L"C:\\src\\sub\\new.txt", "123", kTime);
  files.AddFolder(L"D:\\dst\\T_2016");
  files.AddFile(L"D:\\dst\\taken", "");
  AddTask(L"T", L"C:\\src",
          {{L"D:\\dst\\", DstType::FOLDER, L"<ID>_<Y>"},
           {L"D:\\new\\deep", DstType::ZIP, L"<ID>.zip"},
           {L"D:\\dst", DstType::FOLDER, L"taken"},
           {L"D:\\dst", DstType::FOLDER, L"x"}});
  AddTask(L"U", L"C:\\src", {{L"D:\\NEW", DstType::FOLDER, L"deep"}});
  AddTask(L"V", L"C:\\gone", {{L"D:\\dst", DstType::FOLDER, L"y"}});
  AddTask(L"W", L"C:\\src", {{L"Q:\\dst", DstType::FOLDER, L"y"}});
  AddTask(L"X", L"C:\\src", {{L"D:\\my dst", DstType::ZIP, L"y.zip"}});
  const auto before = files.Files();
  const auto plan = MakePlan();
  EXPECT_EQ(Outline(plan),
            " SKIP CREATE COLLISION/TARGET_IS_FILE NOT_REACHED | SKIP | ERROR/NO_FILES |"
            " UNREACHABLE/CREATE_FOLDER_FAILED | ERROR/SPACE_IN_ARCHIVE");
  EXPECT_EQ(plan[0].cells[1].path, L"D:\\new\\deep\\T.zip");
  EXPECT_EQ(plan[0].cells[1].dst, tasks[0]->dsts[1]);
  EXPECT_EQ(plan[0].newest->RelativePath(), L"sub\\new.txt");
  EXPECT_EQ(plan[0].counts.counted, 2u);
  EXPECT_EQ(plan[0].counts.bytes, 8u);
  EXPECT_EQ(files.Files(), before);
  EXPECT_EQ(files.Kind(L"D:\\new"), my::PathKind::None);
  EXPECT_TRUE(process.Starts().empty());

  files.Remove(archiver);
  EXPECT_EQ(MakePlan()[0].cells[1].error.code, uint32_t{IDS_CREATE_PROCESS_FAILED});
  files.FailAt(test::Op::KIND, 1, 53);  // the server is not found
  EXPECT_EQ(MakePlan()[0].cells[0].action, PlanAction::Unreachable);
}

TEST_F(Plan, room_is_shared_by_the_backups_of_a_drive) {
  files.AddFile(archiver, "");
  files.AddFile(L"C:\\src\\a", std::string(100, 'x'), kTime);
  files.SetFreeSpace(L'D', 250);
  AddTask(L"A", L"C:\\src", {{L"D:\\x", DstType::FOLDER, L"a"}, {L"D:\\y", DstType::ZIP, L"b.zip"}});
  AddTask(L"B", L"C:\\src",
          {{L"D:\\x", DstType::FOLDER, L"c"},
           {L"D:\\x", DstType::FOLDER, L"d"},
           {L"C:\\x", DstType::FOLDER, L"e"}});
  const auto plan = MakePlan();
  EXPECT_EQ(plan[0].cells[0].freeBytes, 250u);
  EXPECT_EQ(plan[0].cells[1].space, PlanSpace::Enough);
  EXPECT_EQ(plan[1].cells[0].space, PlanSpace::Doubtful);
  EXPECT_EQ(plan[1].cells[1].space, PlanSpace::TooLittle);
  EXPECT_EQ(plan[1].cells[1].neededBytes, 300u);
  EXPECT_EQ(plan[1].cells[2].space, PlanSpace::Enough);
  const auto advice = FindPlanAdvice({}, plan[1], ports, nullptr);
  ASSERT_EQ(advice.size(), 2u);
  EXPECT_EQ(advice[0].severity, AdviceSeverity::Warning);
  EXPECT_EQ(advice[1].severity, AdviceSeverity::Error);
}

// Sources are on C:, destinations on D: or on missing drives. Names are few, so that they often collide.
class CRandomDisk {
 public:
  explicit CRandomDisk(unsigned seed) : m_random(seed) {}

  size_t Below(size_t limit) { return std::uniform_int_distribution<size_t>(0, limit - 1)(m_random); }

  template <size_t n>
  std::wstring OneOf(const wchar_t* const (&choices)[n]) {
    return choices[Below(n)];
  }

  CDst Dst() {
    constexpr const wchar_t* kFolders[] = {L"D:\\a",   L"D:\\A\\", L"D:\\a\\b", L"D:\\c",
                                           L"D:\\s p", L"Q:\\a",   L"D:\\"};
    constexpr const wchar_t* kNames[] = {L"b",   L"B.", L"<ID>", L"c\\<ID>", L"<s>",
                                         L"nul", L"..", L"b\\c", L"x y"};
    return {OneOf(kFolders), Below(3) == 0 ? DstType::ZIP : DstType::FOLDER, OneOf(kNames)};
  }

  std::wstring Source() {
    constexpr const wchar_t* kSources[] = {L"C:\\s1", L"C:\\s2", L"C:\\s3", L"C:\\gone"};
    return OneOf(kSources);
  }

  void Fill(test::CMemoryFileSystem& files) {
    constexpr const wchar_t* kTaken[] = {L"D:\\a", L"D:\\a\\b", L"D:\\c", L"D:\\a\\T0", L"D:\\b"};
    for (size_t i = Below(6); i > 0; --i)
      files.AddFile(Source().replace(3, 1, L"s") + L"\\f" + std::to_wstring(i), "x",
                    {kTime.ticks + Below(3) * 10'000'000});
    for (size_t i = Below(4); i > 0; --i) {
      const std::wstring path = OneOf(kTaken);
      if (files.Kind(path) != my::PathKind::None) continue;
      try {
        files.CreateFolders(std::wstring(my::ParentPath(path)));
      } catch (const my::CException&) {
        continue;  // below a file
      }
      Below(2) == 0 ? files.AddFolder(path) : files.AddFile(path, "");
    }
    if (Below(4) != 0) files.AddFile(L"C:\\7z.exe", "");
  }

 private:
  std::mt19937 m_random;
};

// Returns what the run did in the terms of the plan.
std::string Done(const CTask& task, const CResults& rows, const std::vector<CPlanCell>& planned) {
  std::string done;
  for (size_t i = 0; i < task.dsts.size(); ++i) {
    if (i >= rows.size()) {
      done += " NOT_REACHED";
    } else if (!rows[i]->error) {
      done += rows[i]->phase == Phase::Skipped ? " SKIP" : " CREATE";
    } else {
      // The archiver reports a space in its own way.
      const bool split = planned[i].error.code == IDS_SPACE_IN_ARCHIVE && rows[i]->phase == Phase::Archiving;
      done += " " + test::NameOf(split ? uint32_t{IDS_SPACE_IN_ARCHIVE} : rows[i]->error.code);
    }
  }
  return done;
}

std::string Planned(const std::vector<CPlanCell>& cells) {
  std::string planned;
  for (const CPlanCell& cell : cells)
    planned += " " + (cell.error ? test::NameOf(cell.error.code) : test::NameOf(cell.action));
  return planned;
}

TEST_F(Plan, run_does_what_the_plan_says_for_random_documents_and_disks) {
  process.OnRun([this](const my::CProcessStart& start) -> uint32_t {
    if (files.Kind(archiver) != my::PathKind::File)
      throw my::CException(IDS_CREATE_PROCESS_FAILED, {my::CSystemError::FromWin32(2), archiver});
    return Words(start.arguments) == 4 ? test::MakeArchive(files, start) : 1;
  });
  std::set<std::string> seen;
  for (unsigned seed = 0; seed < 300; ++seed) {
    CRandomDisk random(seed);
    files = {};
    tasks.clear();
    random.Fill(files);
    for (size_t task = 0; task < 4; ++task) {
      std::vector<CDst> dsts(1 + random.Below(3));
      for (CDst& dst : dsts) dst = random.Dst();
      AddTask(L"T" + std::to_wstring(task), random.Source(), dsts);
    }
    const auto plan = MakePlan();
    for (size_t task = 0; task < tasks.size(); ++task) {
      const std::string planned = Planned(plan[task].cells);
      ASSERT_EQ(planned, Done(*tasks[task], RunJob(*tasks[task], 1), plan[task].cells))
          << "seed " << seed << ", task " << task;
      seen.insert(planned);
    }
  }
  EXPECT_GT(seen.size(), 40u) << "all kinds of cells in many orders";
}

}  // namespace
