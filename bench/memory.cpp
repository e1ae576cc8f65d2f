#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "bench.h"
#include "fake_files.h"
#include "harness.h"
#include "ports.h"

namespace bench {
namespace {

// Wine fills only PagefileUsage; on Windows it equals PrivateUsage.
double PrivateBytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  if (!::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof(counters))) {
    throw std::runtime_error("the system does not tell how much memory is used");
  }
  return static_cast<double>(counters.PagefileUsage);
}

}  // namespace

void MeasureMemory(const COptions& options) {
  constexpr size_t kRows = 3;
  constexpr size_t kFilesInFolder = 400;
  const size_t folders = std::max<size_t>(1, 2500 / static_cast<size_t>(options.divisor));
  const size_t entries = folders * kFilesInFolder;
  CPorts ports;
  CFakeFiles files(folders, kFilesInFolder);
  // Runs a job once, so that one-time allocations are not counted.
  CFakeFiles few(1, 1);
  MakeJob(ports.With(few), L"warm-up", few.kSource, L"C:\\Backup", kRows)->Run();

  const double before = PrivateBytes();
  const auto job = MakeJob(ports.With(files), L"job", files.kSource, L"C:\\Backup", kRows);
  job->Run();
  const double after = PrivateBytes();
  const qlm::CResults rows = job->Results();
  if (rows.size() != kRows || rows.back()->error || rows.back()->targets->size() != entries + folders) {
    throw std::runtime_error("the job did not come to its end");
  }
  std::printf("keeping %zu entries with paths of 60 characters, %zu rows\n", entries, kRows);
  PrintFigure("private bytes", (after - before) / static_cast<double>(entries), "bytes an entry", 290);
}

}  // namespace bench
