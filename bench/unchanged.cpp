#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <vector>

#include "bench.h"
#include "engine/plan.h"
#include "harness.h"
#include "platform/win32/win32_file_system.h"
#include "ports.h"
#include "support/paths.h"
#include "tree.h"

namespace bench {
void MeasureUnchanged(const COptions& options) {
  const CTreeShape shape{.projects = std::max(1, 100 / options.divisor)};
  const std::wstring tree = EnsureTree(options.root, shape);
  const std::wstring destination = my::JoinPath(options.root, L"unchanged");
  my::CWin32FileSystem files;
  CPorts ports;
  const auto makeJobs = [&](size_t threads) {
    std::vector<qlm::CBackupTaskPtr> jobs;
    for (int i = 0; i < shape.projects; ++i) {
      const std::wstring name = ProjectName(i);
      jobs.push_back(MakeJob(ports.With(files, threads), name, my::JoinPath(tree, name), destination, 1));
    }
    return jobs;
  };
  // An empty folder with the right name counts as an existing backup.
  for (const qlm::CBackupTaskPtr& job : makeJobs(1)) {
    job->SetListOnly(true);
    job->Run();
    files.CreateFolders(job->Results().back()->destinationPath);
  }
  const auto runJobs = [&](size_t threads) {
    const std::vector<qlm::CBackupTaskPtr> jobs = makeJobs(threads);
    const double time =
        TimeMs([&jobs] { std::for_each(jobs.begin(), jobs.end(), [](auto& job) { job->Run(); }); });
    const bool skipped = std::all_of(jobs.begin(), jobs.end(), [](const qlm::CBackupTaskPtr& job) {
      return job->Results().back()->phase == qlm::Phase::Skipped;
    });
    if (!skipped) throw std::runtime_error("a job was not skipped");
    return time;
  };
  const std::wstring noArchiver;
  const auto planTasks = [&] {
    const std::vector<qlm::CBackupTaskPtr> jobs = makeJobs(1);
    return TimeMs([&] {
      qlm::CPlanner planner(ports.With(files, 2), noArchiver, nullptr);
      for (const auto& job : jobs) planner.Plan(boost::make_shared<qlm::CTask>(job->Task()));
    });
  };
  const auto listBarely = [&] {
    return TimeMs([&] {
      for (int i = 0; i < shape.projects; ++i) {
        std::wstring folder = my::JoinPath(tree, ProjectName(i)) + my::kSeparator;
        BareList(folder);
      }
    });
  };
  std::printf("%d unchanged tasks, %llu files\n", shape.projects,
              static_cast<unsigned long long>(FileCount(shape)));
  Compare({"bare loop", 0, listBarely},
          {{"jobs, all skipped, 1 thread", 0, [&] { return runJobs(1); }},
           {"jobs, all skipped, 2 threads", 0.75, [&] { return runJobs(2); }},
           {"plan", 1.10, planTasks}},
          options.rounds);
  RemoveTree(destination);
}

}  // namespace bench
