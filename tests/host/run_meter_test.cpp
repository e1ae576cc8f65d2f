#include "engine/run_meter.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {

using qlm::CRunMeasure;
using qlm::CRunSample;
using qlm::CWork;
using qlm::Phase;

constexpr uint64_t kMb = 1'000'000;

class RunMeter : public testing::Test {
 protected:
  // Lets the running row copy for some ticks at this speed.
  void Copy(int ticks, uint64_t bytesPerTick) {
    for (int i = 0; i < ticks; ++i) {
      auto& done = sample.row->done;
      done.bytes = std::min(done.bytes + bytesPerTick, sample.row->toDo.bytes);
      done.files = sample.row->toDo.files * done.bytes / sample.row->toDo.bytes;
      Tick();
    }
  }

  void BeginRow(CWork toDo, Phase phase = Phase::Copying) {
    sample.row = {.number = sample.rowsDone, .phase = phase, .done = {}, .toDo = toDo};
  }

  void EndRow() {
    ++sample.rowsDone;
    if (sample.row) sample.done += sample.row->toDo;
    if (sample.row && sample.row->phase == Phase::Copying) sample.copied += sample.row->toDo;
    sample.row.reset();
  }

  void Tick() {
    sample.tick += 100;
    if (sample.row) sample.row->elapsedMs += 100;
    const int before = Now().percent;
    meter.Add(sample);
    EXPECT_GE(Now().percent, before);
    EXPECT_LT(Now().percent, 100);
    if (Now().rowSecondsLeft) shown.push_back(*Now().rowSecondsLeft);
  }

  const CRunMeasure& Now() const { return meter.Measure(); }

  qlm::CRunMeter meter;
  CRunSample sample{.tick = 1000, .rows = 1, .oneSource = true};
  std::vector<uint64_t> shown;  // times left, of each tick
};

TEST_F(RunMeter, steady_copy_counts_its_time_down_and_a_stall_hides_it) {
  BeginRow({1000, 600 * kMb});
  Copy(30, kMb);
  EXPECT_FALSE(Now().rowSecondsLeft) << "too early to tell";
  Copy(270, kMb);
  EXPECT_EQ(Now().speed, 10 * kMb);
  EXPECT_EQ(Now().percent, 49);
  EXPECT_EQ(Now().rowSecondsLeft, 30u);
  EXPECT_EQ(Now().runSecondsLeft, 30u);
  EXPECT_EQ(Now().toDo, (CWork{1000, 600 * kMb}));
  EXPECT_TRUE(Now().isExact);
  EXPECT_TRUE(std::is_sorted(shown.rbegin(), shown.rend())) << "a time left that grows";
  EXPECT_LE(std::set(shown.begin(), shown.end()).size(), 4u);
  Copy(100, 0);
  EXPECT_EQ(Now().speed, 0u);
  EXPECT_FALSE(Now().rowSecondsLeft);
  EndRow();
  meter.End(sample, false);
  EXPECT_EQ(Now().percent, 100);
  EXPECT_FALSE(Now().row || Now().speed || Now().runSecondsLeft);
}

TEST_F(RunMeter, bursts_do_not_make_the_time_left_jump) {
  std::mt19937 random(1);
  BeginRow({100'000, 3000 * kMb});
  for (int second = 0; second < 60; ++second) Copy(10, random() % 3 == 0 ? 3 * kMb : kMb / 5);
  ASSERT_GT(shown.size(), 500u);
  int changes = 0;
  for (size_t i = 1; i < shown.size(); ++i) {
    if (shown[i] != shown[i - 1]) ++changes;
    EXPECT_LE(std::max(shown[i], shown[i - 1]), 2 * std::min(shown[i], shown[i - 1]));
  }
  EXPECT_LE(changes, 12);
}

TEST_F(RunMeter, rows_of_unlisted_sources_count_alike_and_archives_have_no_speed) {
  sample = {.tick = 1000, .rows = 10, .rowsUnlisted = 8};
  for (int skipped = 0; skipped < 2; ++skipped) EndRow();
  BeginRow({10, 100 * kMb}, Phase::Archiving);
  sample.row->archiveBytes = 50 * kMb;
  Tick();
  EXPECT_EQ(Now().percent, 25);
  EXPECT_FALSE(Now().toDo || Now().speed || Now().runSecondsLeft || Now().isExact);
  EndRow();
  sample.rowsUnlisted = 6;
  BeginRow({50, 200 * kMb});
  Copy(100, kMb);
  EXPECT_EQ(Now().speed, 10 * kMb) << "the archive was not copied";
  EXPECT_EQ(Now().done, (CWork{35, 200 * kMb}));
  EXPECT_EQ(Now().runSecondsLeft, 10u) << "the rows before took no time";
  const int percent = Now().percent;
  sample.rows = 1000;  // tells less than before
  Tick();
  meter.End(sample, true);
  EXPECT_EQ(Now().percent, percent) << "a stopped run does not reach its end";
}

}  // namespace
