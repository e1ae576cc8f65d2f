#include "engine/backup_thread.h"

#include <future>

#include "support/engine_doubles.h"

namespace {

using test::kTime;

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

class BackupThread : public testing::Test, protected test::CEngineDoubles {
 protected:
  BackupThread() {
    files.AddFile(L"C:\\src\\a", "a", kTime);
    files.RefuseRenames(0);
  }

  void AddJob(const std::wstring& id, std::vector<std::wstring> patterns,
              const std::wstring& path = L"C:\\src", qlm::DstType type = qlm::DstType::ZIP) {
    qlm::CTask task{id, path, L"", {}};
    for (auto& pattern : patterns) {
      if (IsZip(type)) pattern += L".zip";
      task.dsts.push_back(test::MakeDst(L"D:\\dst", type, pattern));
    }
    controller.Add(MakeJob(task, 4));
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

  CShown shown;
  qlm::CBackupThread controller{helpers, clock, texts, shown};
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

TEST_F(BackupThread, counts_grow_to_what_is_on_the_disk) {
  std::promise<void> entered;
  std::promise<void> release;
  const auto released = release.get_future().share();
  process.OnRun([&](const my::CProcessStart& start) {
    test::MakeArchive(files, start);
    start.whileWaiting();
    entered.set_value();
    released.wait();
    return 0u;
  });
  for (int i = 0; i < 50; ++i)
    files.AddFile(L"C:\\src\\" + std::to_wstring(i), std::string(i == 9 ? 3u << 20 : 1000, 'x'), kTime);
  AddJob(L"archive", {L"a"});
  for (int job = 0; job < 5; ++job)
    AddJob(std::to_wstring(job), {std::to_wstring(job), L"again"}, L"C:\\src", qlm::DstType::FOLDER);
  controller.Start(false, false);
  entered.get_future().wait();
  clock.Sleep(2000);
  controller.Tick();
  const auto row = controller.Measure().row;
  ASSERT_TRUE(row && row->phase == qlm::Phase::Archiving);
  EXPECT_TRUE(row->archiveBytes > 0 && row->elapsedMs == 2000);
  release.set_value();
  qlm::CRunMeasure before;
  while (controller.IsActive()) {
    controller.WaitForJobs(0);
    controller.Tick();
    const qlm::CRunMeasure& now = controller.Measure();
    ASSERT_TRUE(now.percent >= before.percent && now.done.files >= before.done.files &&
                now.done.bytes >= before.done.bytes);
    before = now;
  }
  EXPECT_EQ(before.percent, 100);
  const auto onDisk = files.Files();
  qlm::CWork copied;
  for (const auto& [path, content] : onDisk) {
    if (path.starts_with(L"D:\\dst\\") && !path.ends_with(L".zip")) copied += {1, content.size()};
  }
  copied += {51, (3u << 20) + 49 * 1000 + 1};  // in the archive
  EXPECT_EQ(before.done, copied);
}

}  // namespace
