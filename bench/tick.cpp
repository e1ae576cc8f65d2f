#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <stdexcept>

#include "bench.h"
#include "engine/backup_thread.h"
#include "fake_files.h"
#include "harness.h"
#include "platform/win32/win32_threads.h"
#include "ports.h"
#include "resource.h"

namespace bench {
namespace {

class CIdleObserver : public qlm::IRunObserver {
 public:
  void OnResults(size_t, const qlm::CResults&) override {}
  void OnStatus() override {}
  void OnStateChanged() override {}
  void OnPowerOff() override {}
};

// Lets one thread through each time that the other opens it. Not std::binary_semaphore: that of GCC 12 can
// miss its wake-up.
class CGate {
 public:
  void Open() {
    const std::lock_guard lock(m_lock);
    m_open = true;
    m_opened.notify_one();
  }

  void Pass() {
    std::unique_lock lock(m_lock);
    // Without a limit a job that fails would be waited for without end.
    if (!m_opened.wait_for(lock, std::chrono::minutes(1), [this] { return m_open; })) {
      throw std::runtime_error("the run does not go on");
    }
    m_open = false;
  }

 private:
  std::mutex m_lock;
  std::condition_variable m_opened;
  bool m_open = false;
};

// A run that is held before each of its last rows, so that every tick finds one job changed.
class CHeldRun {
 public:
  CHeldRun(size_t jobs, size_t rowsInEach, size_t held)
      : m_files(0, 1), m_backups(m_threads, m_ports.clock, m_ports.texts, m_observer) {
    m_files.onKind = [this, first = jobs * rowsInEach - held] {
      if (m_asked++ < first) return;
      m_reached.Open();
      m_goOn.Pass();
    };
    for (size_t i = 0; i < jobs; ++i) {
      m_backups.Add(MakeJob(m_ports.With(m_files), std::to_wstring(i), std::wstring(m_files.kSource),
                            L"C:\\Backup", rowsInEach));
    }
    m_backups.Start(false, false);
  }

  CTimes TimeTicks(size_t held) {
    CTimes times;
    for (size_t i = 0; i < held; ++i) {
      m_reached.Pass();
      const double time = TimeMs([this] { m_backups.Tick(); });
      if (i > 0) times.push_back(time);  // the first one has all the rows before it to show
      m_goOn.Open();
    }
    return times;
  }

  // Answers the number of rows at the end.
  size_t Finish() {
    while (m_backups.IsActive()) {
      m_backups.WaitForJobs(my::kNoTimeOut);
      m_backups.Tick();
    }
    return m_backups.RowCount();
  }

 private:
  CPorts m_ports;
  CFakeFiles m_files;
  my::CWin32Threads m_threads;
  CIdleObserver m_observer;
  size_t m_asked = 0;
  CGate m_reached;
  CGate m_goOn;
  qlm::CBackupThread m_backups;
};

void MeasureRun(size_t jobs, size_t rowsInEach) {
  constexpr size_t kHeld = 50;
  CHeldRun run(jobs, rowsInEach, kHeld);
  const CTimes times = run.TimeTicks(kHeld);
  if (run.Finish() != jobs * rowsInEach) throw std::runtime_error("not all rows came up");
  const std::string name = std::to_string(jobs) + " jobs of " + std::to_string(rowsInEach) + " rows";
  PrintFigure(name + ", median", Median(times), "ms", 5);
  PrintFigure(name + ", longest", *std::max_element(times.begin(), times.end()), "ms", 0);
}

}  // namespace

void MeasureTick(const COptions&) {
  std::printf("one tick among 10000 rows, one job changed\n");
  MeasureRun(100, 100);
  MeasureRun(1, 10000);
}

}  // namespace bench
