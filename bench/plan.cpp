#include "engine/plan.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <vector>

#include "bench.h"
#include "harness.h"
#include "platform/win32/win32_file_system.h"
#include "ports.h"
#include "support/paths.h"
#include "tree.h"

namespace bench {
namespace {

constexpr size_t kDsts = 10;
constexpr size_t kIdsInFolder = 100;  // of a destination

qlm::CTaskDsts MakeDsts(const std::wstring& root) {
  qlm::CTaskDsts dsts;
  for (size_t i = 0; i < kDsts; ++i) {
    qlm::CDst dst;
    dst.folder = my::JoinPath(root, L"dst" + std::to_wstring(i));
    dsts.push_back(boost::make_shared<qlm::CDst>(dst));
  }
  return dsts;
}

// Every source is the folder of several tasks. The IDs have a folder each, because Wine looks for a missing
// name among all names of its folder.
std::vector<qlm::CTaskPtr> MakeTasks(const std::wstring& root, const std::wstring& tree, size_t count,
                                     int projects) {
  const std::wstring destinations = my::JoinPath(root, L"plan");
  const qlm::CTaskDsts dsts = MakeDsts(destinations);
  std::vector<qlm::CTaskPtr> tasks;
  for (size_t i = 0; i < count; ++i) {
    qlm::CTask task;
    task.id = L"g" + std::to_wstring(i / kIdsInFolder) + L"\\t" + std::to_wstring(i % kIdsInFolder);
    task.path = my::JoinPath(tree, ProjectName(static_cast<int>(i) % projects));
    task.dsts = dsts;
    tasks.push_back(boost::make_shared<qlm::CTask>(task));
  }
  return tasks;
}

// The paths of all cells, with a backup in every second one.
std::vector<std::wstring> MakeBackups(my::IFileSystem& files, const qlm::CEnginePorts& ports,
                                      const std::vector<qlm::CTaskPtr>& tasks) {
  const std::wstring noArchiver;
  qlm::CPlanner planner(ports, noArchiver, nullptr);
  std::vector<std::wstring> paths;
  for (const qlm::CTaskPtr& task : tasks) {
    for (const qlm::CPlanCell& cell : planner.Plan(task).cells) {
      if (paths.size() % 2 == 0) files.CreateFolders(cell.path);
      paths.push_back(cell.path);
    }
  }
  return paths;
}

void CheckPlan(const qlm::CPlanSummary& summary, size_t cells) {
  if (summary.created != cells / 2 || summary.skipped != cells / 2)
    throw std::runtime_error("the plan does not tell what the disk has");
}

}  // namespace

void MeasurePlan(const COptions& options) {
  const CTreeShape shape{.projects = std::max(1, 100 / options.divisor)};
  const size_t count = std::max(1, 10'000 / options.divisor);
  const std::wstring tree = EnsureTree(options.root, shape);
  my::CWin32FileSystem files;
  CPorts ports;
  const std::vector<qlm::CTaskPtr> tasks = MakeTasks(options.root, tree, count, shape.projects);
  const std::vector<std::wstring> paths = MakeBackups(files, ports.With(files), tasks);
  const auto listBarely = [&] {
    return TimeMs([&] {
      for (const qlm::CTaskPtr& task : tasks) {
        std::wstring folder = task->path + my::kSeparator;
        BareList(folder);
      }
    });
  };
  const auto lookBarely = [&] {
    return TimeMs([&] {
      for (const std::wstring& path : paths) ::GetFileAttributesW(path.c_str());
    });
  };
  const std::wstring noArchiver;
  const auto planTasks = [&] {
    qlm::CPlanSummary summary;
    const double time = TimeMs([&] {
      qlm::CPlanner planner(ports.With(files), noArchiver, nullptr);
      for (const qlm::CTaskPtr& task : tasks) Count(summary, planner.Plan(task));
    });
    CheckPlan(summary, paths.size());
    return time;
  };
  std::printf("%zu tasks of %d files, %zu destinations\n", count, kFoldersInProject * shape.files, kDsts);
  Compare({"bare listing", 0, listBarely},
          {{"bare listing and a look at each backup", 0, [&] { return listBarely() + lookBarely(); }},
           {"plan", 1.10, planTasks}},
          options.rounds);
  RemoveTree(my::JoinPath(options.root, L"plan"));
}

}  // namespace bench
