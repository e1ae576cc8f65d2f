#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "bench.h"
#include "harness.h"
#include "platform/win32/win32_file_system.h"
#include "ports.h"
#include "resource.h"
#include "support/paths.h"
#include "tree.h"

namespace bench {
namespace {

class CDocumentRun {
 public:
  CDocumentRun(const COptions& options, const CTreeShape& shape)
      : m_shape(shape),
        m_tree(EnsureTree(options.root, shape)),
        m_destination(my::JoinPath(options.root, L"unchanged")) {}
  ~CDocumentRun() { RemoveTree(m_destination); }

  // Makes every backup that the jobs will look for; an empty folder passes for one.
  void MakeBackups() {
    for (int i = 0; i < m_shape.projects; ++i) {
      const qlm::CBackupTaskPtr job = MakeJobOf(i);
      job->SetListOnly(true);
      job->Run();
      m_files.CreateFolders(job->Results().back()->destinationPath);
    }
  }

  double TimeJobs() {
    std::vector<qlm::CBackupTaskPtr> jobs;
    for (int i = 0; i < m_shape.projects; ++i) jobs.push_back(MakeJobOf(i));
    const double time = TimeMs([&jobs] {
      for (const qlm::CBackupTaskPtr& job : jobs) job->Run();
    });
    for (const qlm::CBackupTaskPtr& job : jobs) {
      if (job->Results().back()->message != IDS_PHASE_SKIPPED)
        throw std::runtime_error("a job was not skipped");
    }
    return time;
  }

  double TimeBareLists() const {
    return TimeMs([this] {
      for (int i = 0; i < m_shape.projects; ++i) {
        std::wstring folder = my::JoinPath(m_tree, ProjectName(i)) + my::kSeparator;
        BareList(folder);
      }
    });
  }

 private:
  qlm::CBackupTaskPtr MakeJobOf(int project) {
    const std::wstring name = ProjectName(project);
    return MakeJob(m_ports.With(m_files), name, my::JoinPath(m_tree, name), m_destination, 1);
  }

  CTreeShape m_shape;
  std::wstring m_tree;
  std::wstring m_destination;
  my::CWin32FileSystem m_files;
  CPorts m_ports;
};

}  // namespace

void MeasureUnchanged(const COptions& options) {
  const CTreeShape shape{.projects = std::max(1, 100 / options.divisor)};
  CDocumentRun run(options, shape);
  run.MakeBackups();
  std::printf("%d unchanged tasks, %llu files\n", shape.projects,
              static_cast<unsigned long long>(FileCount(shape)));
  Compare({"bare loop", 0, [&run] { return run.TimeBareLists(); }},
          {{"jobs, all skipped", 1.08, [&run] { return run.TimeJobs(); }}}, options.rounds);
}

}  // namespace bench
