#include <future>
#include <thread>

#include "history/history_codec.h"
#include "history/history_file.h"
#include "history/task_history.h"
#include "support/engine_doubles.h"

namespace {

using namespace qlm;
using test::kDay;
using test::kTime;
using test::Op;

const std::wstring kFile = L"C:\\Roaming\\Tenkowa\\Quillmoor\\QuillmoorHistory.jsonl";

CHistoryRow MakeRow(const std::wstring& task, RowOutcome outcome) {
  CHistoryRow row;
  row.taskId = task;
  row.outcome = outcome;
  return row;
}

CHistoryRun MakeRun(const std::wstring& document, std::vector<CHistoryRow> rows = {}, uint64_t day = 0) {
  return {kTime, {kTime.ticks + day * kDay}, RunProgram::RUNNER, document, false, std::move(rows)};
}

class History : public testing::Test {
 protected:
  void Append(const std::wstring& document) { AppendHistory(files, clock, kFile, MakeRun(document)); }
  CHistory Load() { return LoadHistory(files, clock, kFile); }
  std::string Bytes() const { return files.Files().at(kFile); }

  // Returns the documents of the runs, newest first.
  std::wstring Documents() {
    std::wstring all;
    for (const CHistoryRun& run : Load().runs) all += run.document + L" ";
    return all;
  }

  test::CMemoryFileSystem files;
  test::CFakeClock clock;
};

TEST_F(History, record_is_read_as_written) {
  EXPECT_TRUE(Load().runs.empty()) << "no file yet";
  CHistoryRun run = MakeRun(L"C:\\文書\\\"一\".qlmr");
  run.stopped = true;
  run.rows = {
      {L"書類", L"C:\\元", L"D:\\先\\a.zip", RowOutcome::SKIPPED, 3, uint64_t{5} << 40, 2, 1, 0, 0, L""},
      {L"😀", L"C:\\b", L"", RowOutcome::FAILED, 0, 0, 0, 0, IDS_COPY_FILE_FAILED, 0x80070005, L"a\tb"}};
  AppendHistory(files, clock, kFile, run);
  Append(L"second");
  const CHistory history = Load();
  ASSERT_EQ(history.runs.size(), 2u);
  EXPECT_EQ(history.runs[0].document, L"second") << "newest first";
  EXPECT_EQ(history.runs[1], run);
  std::string older = HistoryLine(run);
  for (size_t at; (at = older.find("\"detail\":")) != older.npos;)
    older.erase(at, older.find(',', at) + 1 - at);
  run.rows[1].detail = 0;
  EXPECT_EQ(ParseHistoryLine(older), run) << "of a program that did not write it";
  EXPECT_EQ(my::ParseUtcText(L"2016-02-30T00:00:00Z"), std::nullopt);
}

TEST_F(History, damaged_lines_are_counted_and_the_others_read) {
  Append(L"good");
  std::string negative = Bytes();
  negative.insert(negative.find("\"stopped\":") + 10, "-1,\"x\":");
  std::string badName = Bytes();
  badName.replace(badName.find("RUNNER"), 6, "ROBOT!");
  files.AddFile(kFile, "\n" + negative + "[]\n\xFF\n" + std::string(9, '\0') + "\n" + badName + Bytes() +
                           Bytes().substr(0, 40));
  EXPECT_EQ(Documents(), L"good ");
  EXPECT_EQ(Load().damagedLines, 6u);
  Append(L"after");
  EXPECT_EQ(Documents(), L"after good ") << "the torn line does not reach into the new one";
}

TEST_F(History, crash_at_any_step_loses_at_most_the_new_record) {
  for (const size_t before : {size_t{2}, kMostHistoryRuns}) {
    std::string old;
    for (size_t i = 0; i < before; ++i) old += HistoryLine(MakeRun(std::to_wstring(i)));
    bool crashed = true;
    for (int step = 1; crashed; ++step) {
      files = {};
      files.AddFile(kFile, old);
      files.CrashAt(step);
      try {
        Append(L"new");
        crashed = false;
      } catch (const test::CCrash&) {
      }
      files.ClearFaults();
      const size_t left = Load().runs.size();
      EXPECT_GE(left, before) << "crash at step " << step;
      Append(L"next");
      const CHistory history = Load();
      EXPECT_EQ(history.runs.front().document, L"next");
      EXPECT_GE(history.runs.size() + history.damagedLines, std::min(left + 1, kMostHistoryRuns));
    }
  }
}

TEST_F(History, failed_write_keeps_the_older_records) {
  Append(L"old");
  for (const Op op : {Op::CREATE_FOLDERS, Op::APPEND, Op::KIND, Op::READ, Op::WRITE, Op::FLUSH, Op::CLOSE}) {
    files.FailAt(op, 1);
    EXPECT_NE(test::ThrownId([this] { Append(L"new"); }), 0u) << static_cast<int>(op);
    const std::wstring documents = Documents();
    EXPECT_TRUE(documents.ends_with(L"old ")) << static_cast<int>(op);
  }
}

TEST_F(History, oldest_runs_are_dropped_above_the_limit) {
  std::string lines;
  for (size_t i = 0; i < kMostHistoryRuns; ++i) lines += HistoryLine(MakeRun(std::to_wstring(i)));
  files.AddFile(kFile, lines);
  Append(L"new");
  const CHistory history = Load();
  EXPECT_EQ(history.runs.size(), kMostHistoryRuns);
  EXPECT_EQ(history.runs.front().document, L"new");
  EXPECT_EQ(history.runs.back().document, L"1");
  files.AddFile(kFile, std::string(65u << 20, 'x') + "\n" + lines.substr(0, lines.find('\n') + 1));
  Append(L"new");
  EXPECT_EQ(Documents(), L"new 0 ");
  EXPECT_LT(Bytes().size(), 1000u) << "a file above the limit is cut";
}

TEST_F(History, other_program_is_refused_while_a_record_is_written) {
  for (const Op op : {Op::READ, Op::WRITE, Op::FLUSH}) {
    files = {};
    Append(L"old");
    uint32_t refusal = 0;
    files.Meanwhile(op, [&] { refusal = test::ThrownId([this] { Append(L"other"); }); });
    Append(L"new");
    EXPECT_EQ(refusal, IDS_OPEN_FILE_FAILED) << "after waiting";
    EXPECT_EQ(Documents(), L"new old ");
  }
}

TEST_F(History, records_of_concurrent_programs_are_all_kept) {
  struct CYieldingClock : test::CFakeClock {
    void Sleep(uint32_t) const override { std::this_thread::yield(); }
  };
  constexpr int kRuns = 50;
  const auto program = [this](const std::wstring& name) {
    const CYieldingClock yielding;
    for (int i = 0; i < kRuns; ++i) AppendHistory(files, yielding, kFile, MakeRun(name));
  };
  auto first = std::async(std::launch::async, program, L"a");
  auto second = std::async(std::launch::async, program, L"b");
  first.get();
  second.get();
  const std::wstring documents = Documents();
  EXPECT_EQ(std::ranges::count(documents, L'a'), kRuns);
  EXPECT_EQ(std::ranges::count(documents, L'b'), kRuns);
  EXPECT_EQ(Load().damagedLines, 0u);
}

TEST(TaskHistory, last_success_needs_every_row_of_the_task) {
  using enum RowOutcome;
  const CTaskHistories tasks = TaskHistories(
      {MakeRun(L"C:\\DOC", {MakeRow(L"a", CREATED), MakeRow(L"a", FAILED), MakeRow(L"b", SKIPPED)}, 2),
       MakeRun(L"c:\\doc", {MakeRow(L"a", SKIPPED), MakeRow(L"a", CREATED), MakeRow(L"b", STOPPED)}, 1),
       MakeRun(L"C:\\other", {MakeRow(L"a", FAILED)}, 3)});
  ASSERT_EQ(tasks.size(), 3u);
  const auto at = [](uint64_t day) { return my::CFileTime{kTime.ticks + day * kDay}; };
  EXPECT_EQ(tasks.at({L"C:\\doc", L"a"}).lastSuccess, at(1));
  EXPECT_EQ(tasks.at({L"C:\\doc", L"b"}).lastSuccess, at(2));
  const CTaskHistory& failing = tasks.at({L"C:\\other", L"a"});
  EXPECT_FALSE(failing.lastSuccess);
  EXPECT_FALSE(IsOverdue(failing, {at(10).ticks - 1}));
  EXPECT_TRUE(IsOverdue(failing, at(10))) << "seven days after its first run";
  EXPECT_FALSE(IsOverdue(failing, at(0))) << "the clock was set back";
}

}  // namespace
