#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "bench.h"
#include "engine/backup_thread.h"
#include "fake_files.h"
#include "harness.h"
#include "ports.h"

namespace bench {
namespace {

class CIdleObserver : public qlm::IRunObserver {
 public:
  void OnResults(size_t, const qlm::CResults&) override {}
  void OnStatus() override {}
  void OnStateChanged() override {}
  void OnEnded() override {}
  void OnPowerOff() override {}
};

// Runs the worker only when the benchmark calls Run, so that ticks happen between its steps.
class CHeldThreads : public my::IThreads {
 public:
  std::unique_ptr<my::IRunningThread> Start(std::function<void()> body, const my::CThreadStart&) override {
    m_body = std::move(body);
    m_ended = false;
    return std::make_unique<CHeldThread>(m_ended);
  }

  void Run() {
    m_body();
    m_ended = true;
  }

 private:
  struct CHeldThread : my::IRunningThread {
    explicit CHeldThread(const bool& isEnded) : ended(isEnded) {}
    bool Wait(uint32_t) override { return ended; }
    uint32_t Id() const override { return 1; }
    const bool& ended;
  };

  std::function<void()> m_body;
  bool m_ended = true;
};

// Returns the times of the last `wanted` ticks of a run. A tick is timed whenever a job checks for a backup;
// it then has a new row.
CTimes TimeTicks(size_t jobs, size_t rowsInEach, size_t wanted) {
  CPorts ports;
  CFakeFiles files(CFakeShape{});
  CHeldThreads threads;
  CIdleObserver observer;
  qlm::CBackupThread backups(threads, ports.clock, ports.texts, observer);
  for (size_t i = 0; i < jobs; ++i) {
    backups.Add(MakeJob(ports.With(files), std::to_wstring(i), std::wstring(files.kSource), L"C:\\Backup",
                        rowsInEach));
  }
  CTimes times;
  files.onKind = [&] { times.push_back(TimeMs([&] { backups.Tick(); })); };
  backups.Start(false, false);
  threads.Run();
  if (backups.RowCount() != jobs * rowsInEach) throw std::runtime_error("not all rows came up");
  times.erase(times.begin(), times.end() - static_cast<std::ptrdiff_t>(wanted));
  return times;
}

}  // namespace

void MeasureTick(const COptions&) {
  std::printf("one tick among 10000 rows, one job changed\n");
  for (const size_t jobs : {100, 1}) {
    const CTimes times = TimeTicks(jobs, 10000 / jobs, 100);
    const std::string name = std::to_string(jobs) + (jobs == 1 ? " job" : " jobs");
    PrintFigure(name + ", median", Median(times), "ms", 5);
    PrintFigure(name + ", longest", *std::max_element(times.begin(), times.end()), "ms", 0);
  }
}

}  // namespace bench
