#include "engine/backup_thread.h"

#include <gtest/gtest.h>

#include <future>

#include "support/fake_archiver.h"
#include "support/fake_ports.h"
#include "support/names.h"
#include "support/thrown.h"

namespace {

constexpr my::CFileTime kTime{131'016'350'490'000'000};

// Records what a window would show.
class CShown : public qlm::IRunObserver {
 public:
  void OnResults(size_t firstRow, const qlm::CResults& changed) override {
    rows.resize(firstRow);
    rows.insert(rows.end(), changed.begin(), changed.end());
  }
  void OnStatus() override { ++statuses; }
  void OnStateChanged() override { ++stateChanges; }
  void OnEnded() override {}
  void OnPowerOff() override { ++powerOffs; }

  qlm::CResults rows;
  int statuses = 0;
  int stateChanges = 0;
  int powerOffs = 0;
};

class BackupThread : public testing::Test {
 protected:
  BackupThread() {
    files.AddFile(L"C:\\src\\a", "a", kTime);
    files.RefuseRenames(0);
  }

  void AddJob(const std::wstring& id, std::vector<std::wstring> patterns,
              const std::wstring& path = L"C:\\src") {
    qlm::CTask task{id, path, L"", {}};
    for (auto& pattern : patterns) {
      task.dsts.push_back(
          boost::make_shared<qlm::CDst>(qlm::CDst{L"D:\\dst", qlm::DstType::ZIP, pattern + L".zip"}));
    }
    const qlm::CEnginePorts ports{files, clock, ansi, texts, process};
    controller.Add(boost::make_shared<qlm::CBackupTask>(ports, qlm::CBackupJob{task}));
  }

  void TickToEnd() {
    while (controller.IsActive()) {
      controller.WaitForJobs(5);
      controller.Tick();
    }
  }

  // Blocks the archiver until `release` is set; it then succeeds.
  void HoldArchiver(std::promise<void>& entered, std::shared_future<void> release) {
    process.OnRun([this, &entered, release](const my::CProcessStart& start) {
      entered.set_value();
      release.wait();
      return test::MakeArchive(files, start);
    });
  }

  test::CMemoryFileSystem files;
  test::CFakeClock clock;
  test::CFakeAnsiCodec ansi;
  test::CRcTexts texts;
  test::CFakeProcess process;
  test::CStdThreads threads;
  CShown shown;
  qlm::CBackupThread controller{threads, clock, texts, shown};
};

TEST_F(BackupThread, stop_drops_queued_jobs_and_ends_the_running_one) {
  std::promise<void> entered;
  std::promise<void> release;
  HoldArchiver(entered, release.get_future().share());
  AddJob(L"1", {L"one", L"two"});
  AddJob(L"2", {L"three"});
  controller.Start(false, true);
  entered.get_future().wait();
  clock.Sleep(61'400);
  controller.Tick();
  EXPECT_TRUE(shown.statuses == 1 && shown.rows.size() == 1);
  EXPECT_EQ(controller.Progress().position, 0u) << "an unfinished row does not count";
  EXPECT_EQ(controller.StatusText(), L"1 / 3  実行中  1:01  ........");
  controller.Stop();
  EXPECT_EQ(controller.State(), qlm::RunState::Stopping);
  EXPECT_EQ(test::ThrownId([&] { controller.Stop(); }), IDS_ALREADY_STOPPING);
  EXPECT_EQ(test::ThrownId([&] { controller.Start(false, false); }), IDS_ALREADY_RUNNING);
  release.set_value();
  TickToEnd();
  EXPECT_EQ(controller.State(), qlm::RunState::Stopped);
  ASSERT_EQ(shown.rows.size(), 2u) << "the second job never started";
  EXPECT_EQ(shown.rows[0]->phase, qlm::Phase::Created) << "a running archiver is waited for";
  EXPECT_EQ(shown.rows[1]->error.code, uint32_t{IDS_STOPPED});
  EXPECT_EQ(shown.powerOffs, 0);
  EXPECT_EQ(test::ThrownId([&] { controller.Stop(); }), IDS_NOT_RUNNING);
}

TEST_F(BackupThread, rows_can_be_read_while_the_worker_writes_them) {
  files.AddFile(L"D:\\dst\\x.zip", "", kTime);
  for (int job = 0; job < 20; ++job) AddJob(std::to_wstring(job), std::vector<std::wstring>(50, L"x"));
  controller.Start(false, false);
  TickToEnd();
  EXPECT_EQ(shown.rows.size(), 1000u);
}

}  // namespace
