#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>
#include <vector>

#include "bench.h"
#include "fake_files.h"
#include "harness.h"
#include "ports.h"

namespace bench {
namespace {

constexpr size_t kRows = 3;
constexpr size_t kFilesInFolder = 100;

// Wine fills only PagefileUsage; on Windows it equals PrivateUsage.
double PrivateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  if (!::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof(counters))) {
    throw std::runtime_error("the system does not tell how much memory is used");
  }
  return static_cast<double>(counters.PagefileUsage);
}

// What listing and keeping costs for each entry.
struct CCost {
  double bytes = 0;
  double ns = 0;
};

// Jobs that have listed a tree without a disk, and keep the lists.
class CKept {
 public:
  // Runs `jobs` jobs over three levels of `folders` x 10 x 10 folders.
  CKept(CPorts& ports, size_t jobs, size_t folders, CFakeShape shape) {
    shape.folders = {folders, 10, 10};
    shape.files = kFilesInFolder;
    const size_t entries = folders + folders * 10 + folders * 100 * (1 + kFilesInFolder);
    CFakeFiles files(std::move(shape));
    for (size_t i = 0; i < jobs; ++i) {
      m_jobs.push_back(MakeJob(ports.With(files), L"job", std::wstring(files.kSource), L"C:\\Backup", kRows));
    }
    const double before = PrivateBytes();
    const double ms = TimeMs([this] { std::ranges::for_each(m_jobs, &qlm::CBackupTask::Run, Dereferenced); });
    const double bytes = PrivateBytes() - before;
    for (const qlm::CBackupTaskPtr& job : m_jobs) Check(*job, entries);
    const auto count = static_cast<double>(jobs * entries);
    cost = {bytes / count, ms * 1e6 / count};
  }

  CCost cost;

 private:
  static qlm::CBackupTask& Dereferenced(const qlm::CBackupTaskPtr& job) { return *job; }

  static void Check(const qlm::CBackupTask& job, size_t entries) {
    const qlm::CResults rows = job.Results();
    if (rows.size() == kRows && !rows.back()->error && rows.back()->targets->size() == entries) return;
    throw std::runtime_error("a job did not come to its end");
  }

  std::vector<qlm::CBackupTaskPtr> m_jobs;
};

}  // namespace

void MeasureMemory(const COptions& options) {
  // Paths of 60 characters: three folders of 11 and a file name of 24.
  const CFakeShape usual;
  const CFakeShape longNames{.folderName = 9, .fileName = 30};
  const size_t times = std::max<size_t>(2, 100 / static_cast<size_t>(options.divisor));
  CPorts ports;
  CKept(ports, 1, 1, usual);  // one-time allocations are not counted
  std::printf(
      "keeping %zu lists of 10000 files, or one of as many files, with paths of 60 characters, %zu rows\n",
      times, kRows);
  {
    const CKept few(ports, times, 1, usual), many(ports, 1, times, usual), other(ports, 1, times, longNames);
    PrintFigure("private bytes, lists", few.cost.bytes, "bytes an entry", 90);
    PrintFigure("private bytes, one list", many.cost.bytes, "bytes an entry", 90);
    PrintFigure("one list, names of 30 characters", other.cost.bytes, "bytes an entry", 0);
    PrintFigure("one list / lists", many.cost.bytes / few.cost.bytes, "", 1.1);
  }
  std::vector<double> growth;
  for (int round = 0; round < options.rounds; ++round) {
    const double few = CKept(ports, times, 1, usual).cost.ns;
    const double many = CKept(ports, 1, times, usual).cost.ns;
    growth.push_back(many / few);
    if (round + 1 == options.rounds) PrintFigure("time", many, "ns an entry", 0);
  }
  PrintFigure("time, one list / lists", Median(growth), "", 1.1);
}

}  // namespace bench
