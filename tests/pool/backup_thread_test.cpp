#include "engine/backup_thread.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

#include "support/fake_ports.h"
#include "support/memory_file_system.h"
#include "support/names.h"
#include "text_ids.h"

namespace {

constexpr my::CFileTime kTime{131'016'350'490'000'000};

// Keeps what a window would show.
class CShown : public qlm::IRunObserver {
 public:
  void OnResults(size_t firstRow, const qlm::CResults& changed) override {
    rows.resize(firstRow);
    rows.insert(rows.end(), changed.begin(), changed.end());
  }
  void OnStatus() override { ++statuses; }
  void OnStateChanged() override { ++stateChanges; }
  void OnPowerOff() override { ++powerOffs; }

  qlm::CResults rows;
  int statuses = 0;
  int stateChanges = 0;
  int powerOffs = 0;
};

class BackupThread : public testing::Test {
 protected:
  BackupThread() { files.AddFile(L"C:\\src\\a", "a", kTime); }

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

  // The id of the message that the work throws, 0 for none.
  template <class Work>
  uint32_t Refusal(Work work) {
    try {
      work();
    } catch (const my::CException& failure) {
      return failure.Id();
    }
    return 0;
  }

  // Lets the archiver wait until `release` is set, and succeed.
  void HoldArchiver(std::promise<void>& entered, std::shared_future<void> release) {
    process.OnRun([this, &entered, release](const my::CProcessStart& start) {
      entered.set_value();
      release.wait();
      const size_t from = start.arguments.find(L"D:");
      std::string record = "PK\5\6" + std::string(18, '\0');
      record[10] = 1;
      files.AddFile(start.arguments.substr(from, start.arguments.rfind(L" @") - from), record, kTime);
      return 0;
    });
  }

  test::CMemoryFileSystem files;
  test::CFakeClock clock;
  test::CIconvAnsiCodec ansi;
  test::CRcTexts texts;
  test::CFakeProcess process;
  test::CStdThreads threads;
  CShown shown;
  qlm::CBackupThread controller{threads, clock, texts, shown};
};

TEST_F(BackupThread, run_counts_its_rows_and_ends_at_the_full_bar) {
  files.AddFile(L"D:\\dst\\x.zip", "", kTime);  // everything exists: three rows that skip
  AddJob(L"1", {L"x", L"x"});
  AddJob(L"2", {L"x"});
  EXPECT_EQ(controller.StatusText(), L"");
  controller.Start(false, false);
  EXPECT_EQ(controller.Total(), 3u);
  EXPECT_FALSE(controller.IsListOnly());
  EXPECT_EQ(Refusal([&] { controller.Start(false, false); }), IDS_ALREADY_RUNNING);
  TickToEnd();
  EXPECT_EQ(controller.State(), qlm::RunState::ENDED);
  EXPECT_EQ(shown.rows.size(), 3u);
  EXPECT_EQ(controller.Progress().position, 3u);
  EXPECT_EQ(controller.StatusText(), L"3 / 3  正常終了  0:00  ");
  for (const auto& row : shown.rows) EXPECT_EQ(row->phase, qlm::Phase::SKIPPED);
  EXPECT_EQ(Refusal([&] { controller.Stop(); }), IDS_NOT_RUNNING);

  controller.ResetResults();
  AddJob(L"3", {L"x", L"x"});
  controller.Start(true, false);  // a second run may follow; a listing has one row a job
  EXPECT_EQ(controller.Total(), 1u);
  EXPECT_TRUE(controller.IsListOnly());
  TickToEnd();
  EXPECT_EQ(controller.RowCount(), 1u);
}

TEST_F(BackupThread, stop_drops_what_waits_and_ends_what_runs) {
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
  EXPECT_EQ(controller.Progress().position, 0u) << "the row that is at work does not count yet";
  EXPECT_EQ(controller.StatusText(), L"1 / 3  実行中  1:01  ........");
  controller.Stop();
  EXPECT_EQ(controller.State(), qlm::RunState::STOPPING);
  EXPECT_EQ(Refusal([&] { controller.Stop(); }), IDS_ALREADY_STOPPING);
  EXPECT_EQ(Refusal([&] { controller.Start(false, false); }), IDS_ALREADY_RUNNING);
  release.set_value();
  TickToEnd();
  EXPECT_EQ(controller.State(), qlm::RunState::STOPPED);
  ASSERT_EQ(shown.rows.size(), 2u) << "the second job never started";
  EXPECT_EQ(shown.rows[0]->phase, qlm::Phase::CREATED) << "a running archiver is waited for";
  EXPECT_EQ(shown.rows[1]->error.code, uint32_t{IDS_STOPPED});
  EXPECT_EQ(shown.powerOffs, 0);
}

TEST_F(BackupThread, missing_thread_ends_the_run_before_it_began) {
  threads.FailToStart(true);
  AddJob(L"1", {L"x"});
  EXPECT_EQ(Refusal([&] { controller.Start(false, true); }), IDS_START_THREAD_FAILED);
  EXPECT_EQ(controller.State(), qlm::RunState::STOPPED);
  EXPECT_EQ(shown.stateChanges, 2);
  threads.FailToStart(false);
  controller.Start(false, true);
  TickToEnd();
  EXPECT_EQ(shown.rows.size(), 0u) << "the jobs of the failed start are not run by the next";
}

TEST_F(BackupThread, rows_may_be_read_while_the_worker_writes_them) {
  files.AddFile(L"D:\\dst\\x.zip", "", kTime);
  for (int job = 0; job < 20; ++job) AddJob(std::to_wstring(job), std::vector<std::wstring>(50, L"x"));
  controller.Start(false, false);
  TickToEnd();
  EXPECT_EQ(shown.rows.size(), 1000u);
}

}  // namespace
