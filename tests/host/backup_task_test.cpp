#include "engine/backup_task.h"

#include "engine/remedy.h"
#include "support/engine_doubles.h"

namespace {

using qlm::DstType;
using test::Has;
using test::Op;

constexpr my::CFileTime kNewest = test::kTime;
constexpr my::CFileTime kOlder{kNewest.ticks - 1};

// A source with nested folders, and the files of a complete copy.
const std::map<std::wstring, std::string> kSource = {
    {L"a.txt", "first"}, {L"sub\\b.txt", "second"}, {L"sub\\deep\\c.txt", "third"}, {L"z.txt", "fourth"}};

// The parameter is the number of threads.
class BackupTask : public testing::TestWithParam<size_t>, protected test::CEngineDoubles {
 protected:
  BackupTask() { AddSource(); }

  void AddSource() {
    for (const auto& [path, content] : kSource) files.AddFile(L"C:\\src\\" + path, content, kOlder);
    files.AddFile(L"C:\\src\\sub\\b.txt", "second", kNewest);
  }

  void AddDst(const std::wstring& pattern, DstType type = DstType::FOLDER) {
    task.dsts.push_back(test::MakeDst(L" D:\\dst\\ ", type, pattern));
  }

  qlm::CResults Run(const my::IStopQuery* stop = nullptr, bool listOnly = false) {
    const auto job = MakeJob(task, GetParam());
    job->SetStopQuery(stop);
    job->SetListOnly(listOnly);
    job->SetTask(task);  // replaces the rows
    job->Run();
    return job->Results();
  }

  // Returns "PHASE" or "PHASE/ERROR" of every row.
  std::string Outcome(const qlm::CResults& rows) {
    std::string outcome;
    for (const auto& row : rows) {
      if (!outcome.empty()) outcome += ", ";
      outcome += test::NameOf(row->phase);
      if (row->error) outcome += "/" + test::NameOf(row->error.code);
    }
    return outcome;
  }

  // Returns the files below a folder by relative path.
  std::map<std::wstring, std::string> Below(const std::wstring& folder) {
    std::map<std::wstring, std::string> found;
    for (const auto& [path, content] : files.Files()) {
      if (path.starts_with(folder + L"\\")) found[path.substr(folder.size() + 1)] = content;
    }
    return found;
  }

  qlm::CTask task{L"書類", L"C:\\src", L"", {}};
};

INSTANTIATE_TEST_SUITE_P(Threads, BackupTask, testing::Values(1, 2, 4));

TEST_P(BackupTask, unchanged_source_is_skipped) {
  AddDst(L" <ID>_<Y>_<s>\\ ");
  AddDst(L"other");
  const auto rows = Run();
  EXPECT_EQ(Outcome(rows), "CREATED, CREATED");
  EXPECT_EQ(rows[0]->destinationPath, L"D:\\dst\\書類_2016_09");
  EXPECT_EQ(rows[0]->newestWriteTime, kNewest);
  EXPECT_EQ(rows[0]->targets, rows[1]->targets) << "rows share one list";
  EXPECT_EQ(rows[1]->task->dsts.size(), 1u);
  EXPECT_EQ(Below(rows[0]->destinationPath), kSource);
  EXPECT_EQ(Outcome(Run()), "SKIPPED, SKIPPED");
  files.AddFile(L"C:\\src\\z.txt", "changed", {kNewest.ticks + 10'000'000});
  EXPECT_EQ(Outcome(Run()), "CREATED, SKIPPED") << "a newer file makes a new name where the pattern shows it";
}

TEST_P(BackupTask, source_without_files_to_back_up_fails_before_any_destination) {
  AddDst(L"x");
  task.path = L"C:\\none";
  qlm::CResults rows = Run();
  EXPECT_EQ(Outcome(rows), "LISTING/NO_FILES");
  EXPECT_EQ(rows[0]->error.message,
            L"転送元のフォルダーが見つかりません - C:\\none\n\n" + texts.Text(IDS_NO_FILES));
  EXPECT_EQ(qlm::RemedyOf(rows[0]->error), uint32_t{IDS_REMEDY_NO_SOURCE});
  task.path = L"C:\\src";
  files.FailAt(Op::FIND, 1, my::kErrorAccessDenied);
  rows = Run();
  EXPECT_TRUE(rows[0]->error.message.starts_with(L"フォルダーの内容を読み取れませんでした - "));
  EXPECT_EQ(qlm::RemedyOf(rows[0]->error), uint32_t{IDS_REMEDY_ACCESS});
  task.filterPath = L"C:\\all.flt";
  files.AddFile(task.filterPath, "- [a-z]\\.txt$\n", kOlder);
  rows = Run();
  EXPECT_EQ(Outcome(rows), "LISTING/NO_FILES");
  EXPECT_EQ(rows[0]->error.message, texts.Text(IDS_NO_FILES));
  EXPECT_EQ(qlm::CountTargets(*rows[0]->targets).excluded, kSource.size()) << "shows what excluded them";
  EXPECT_EQ(files.Kind(L"D:\\dst"), my::PathKind::None);
}

TEST_P(BackupTask, file_or_folder_of_the_wrong_kind_at_the_destination_fails_the_job) {
  AddDst(L"free");
  AddDst(L"taken");
  AddDst(L"later");
  files.AddFile(L"D:\\dst\\taken", "mine", kOlder);
  EXPECT_EQ(Outcome(Run()), "CREATED, LISTED/TARGET_IS_FILE");
  EXPECT_EQ(files.Kind(L"D:\\dst\\later"), my::PathKind::None);
  task.dsts.clear();
  AddDst(L"free", DstType::ZIP);
  EXPECT_EQ(Outcome(Run()), "LISTED/TARGET_IS_FOLDER");
  task.dsts.clear();
  AddDst(L" \\ ");
  EXPECT_EQ(Outcome(Run()), "LISTED/PATH_NO_FILE_NAME") << "the destination folder itself is no backup";
}

TEST_P(BackupTask, filter_decides_what_is_listed_counted_and_copied) {
  AddDst(L"x");
  task.filterPath = L"C:\\f.flt";
  files.AddFile(task.filterPath, "# old\n+ ^sub/deep/$\n- ^sub/deep/\n- ^z\n", kOlder);
  files.AddFolder(L"C:\\src\\zfolder");
  files.AddFile(L"C:\\src\\zfolder\\in", "x", kNewest);
  const auto rows = Run();
  std::wstring listed;
  for (const auto& target : *rows[0]->targets) listed += std::wstring(target.RelativePath()) + L" ";
  EXPECT_EQ(listed, L"a.txt sub\\ sub\\b.txt sub\\deep\\ sub\\deep\\c.txt z.txt zfolder\\ ");
  EXPECT_EQ(Below(L"D:\\dst\\x"),
            (std::map<std::wstring, std::string>{{L"a.txt", "first"}, {L"sub\\b.txt", "second"}}));
}

TEST_P(BackupTask, invalid_filter_fails_the_job_and_names_the_line) {
  AddDst(L"x");
  task.filterPath = L"C:\\f.flt";
  EXPECT_EQ(Outcome(Run()), "LISTING/OPEN_FILE_FAILED");
  files.AddFile(task.filterPath, "+ ok\n? no\n", kOlder);
  const auto rows = Run();
  EXPECT_EQ(Outcome(rows), "LISTING/FILTER_HAS_ERRORS");
  EXPECT_TRUE(Has(qlm::ResultText(texts, *rows[0]), L"C:\\f.flt (2)"));
  files.AddFile(task.filterPath, "- ^(a+)+[b]\n", kOlder);
  files.AddFile(L"C:\\src\\" + std::wstring(180, L'a'), "", kOlder);
  EXPECT_EQ(Outcome(Run()), "LISTING/REGEX_TOO_COMPLEX") << "an expression that is too complex";
}

TEST_P(BackupTask, folder_with_a_too_long_path_is_skipped_and_recorded) {
  AddDst(L"x");
  // "C:\src\" + 247 + "\*.*" has 258 characters; one more level exceeds 260.
  const std::wstring longName(247, L'n');
  files.AddFile(L"C:\\src\\" + longName + L"\\in", "", kOlder);
  files.AddFile(L"C:\\src\\" + longName + L"\\m\\beyond", "", kOlder);
  const auto rows = Run(nullptr, true);
  EXPECT_EQ(rows[0]->targets->size(), 6u + 3u);
  ASSERT_EQ(rows[0]->targets->Unlisted().size(), 1u);
  EXPECT_EQ(rows[0]->targets->Unlisted()[0].folder, longName + L"\\m\\");
}

TEST_P(BackupTask, denied_folder_is_reported_but_a_denied_junction_is_not) {
  AddDst(L"x");
  files.AddLink(L"C:\\src\\My Music");
  EXPECT_TRUE(Run(nullptr, true)[0]->targets->Unlisted().empty());
  files.FailAt(Op::FIND, 2, my::kErrorAccessDenied);
  const auto unlisted = Run(nullptr, true)[0]->targets->Unlisted();
  ASSERT_EQ(unlisted.size(), 1u);
  EXPECT_EQ(qlm::UnlistedText(texts, task, unlisted[0]), L"C:\\src\\sub\\ (system error (0x80070005))");
}

TEST_P(BackupTask, copy_of_a_linked_file_has_the_size_of_its_target) {
  AddDst(L"x");
  task.path = L"C:\\links";
  files.AddFile(L"D:\\big", "linked content");
  files.AddLink(L"C:\\links\\link", L"D:\\big", kNewest);
  EXPECT_EQ(Outcome(Run()), "CREATED");
  EXPECT_EQ(Below(L"D:\\dst\\x").at(L"link"), "linked content");
  files.Remove(L"D:\\dst\\x");
  files.ShortenCopies(true);
  EXPECT_EQ(Outcome(Run()), "COPYING/COPY_INCOMPLETE");
}

TEST_P(BackupTask, file_that_changes_size_while_copied_is_no_error) {
  AddDst(L"x");
  for (const char* now : {"f", "first and much more"}) {
    files = {};
    AddSource();
    files.Meanwhile(Op::COPY, [&] { files.AddFile(L"C:\\src\\a.txt", now, kOlder); });
    EXPECT_EQ(Outcome(Run()), "CREATED");
    EXPECT_EQ(Below(L"D:\\dst\\x").at(L"a.txt"), now);
  }
}

TEST_P(BackupTask, device_and_stream_names_are_refused_before_anything_is_created) {
  for (const wchar_t* name : {L"...", L"<ID>\\..", L"nul", L"deep\\COM1.2024", L"a:b"}) {
    for (const bool listOnly : {false, true}) {
      task.dsts.clear();
      AddDst(name);
      const auto rows = Run(nullptr, listOnly);
      EXPECT_EQ(rows[0]->phase, qlm::Phase::Listed);
      EXPECT_TRUE(rows[0]->error) << "never a skipped row";
      EXPECT_TRUE(Has(rows[0]->error.message, my::LastComponent(name)));
    }
  }
  for (const auto& line : files.Log()) EXPECT_FALSE(line.starts_with(L"create")) << "nothing is created";
}

TEST_P(BackupTask, unreachable_destination_fails_its_row) {
  AddDst(L"x");
  Run();
  for (const uint32_t code : {5u, 21u, 53u, 64u, 1231u}) {
    files.FailAt(Op::KIND, 1, code);
    EXPECT_EQ(Outcome(Run()), "LISTED/PATH_UNREADABLE") << code;
  }
  task.dsts[0] = test::MakeDst(L"Q:\\dst");
  EXPECT_EQ(Outcome(Run()), "LISTED/CREATE_FOLDER_FAILED") << "a missing drive";
}

TEST_P(BackupTask, temporarily_refused_rename_is_repeated) {
  AddDst(L"x");
  uint64_t start = clock.TickCount();
  files.RefuseRenames(12);
  EXPECT_EQ(Outcome(Run()), "CREATED");
  EXPECT_TRUE(clock.TickCount() > start + 5'000 && clock.TickCount() < start + 15'000);
  files.Remove(L"D:\\dst\\x");
  files.RefuseRenames(1'000'000);
  start = clock.TickCount();
  EXPECT_EQ(Outcome(Run()), "COPYING/MOVE_FILE_FAILED");
  EXPECT_EQ(clock.TickCount(), start + 15'000);
  const test::CStopAfter stop(18);
  start = clock.TickCount();
  EXPECT_EQ(Outcome(Run(&stop)), "COPYING/MOVE_FILE_FAILED");
  EXPECT_LT(clock.TickCount(), start + 1'000) << "a stop does not wait";
}

TEST_P(BackupTask, concurrent_runs_use_different_names_and_the_slower_one_skips) {
  AddDst(L"x");
  files.Meanwhile(Op::COPY, [&] { EXPECT_EQ(Outcome(Run()), "CREATED"); });
  EXPECT_EQ(Outcome(Run()), "SKIPPED");
  EXPECT_EQ(Below(L"D:\\dst\\x"), kSource);
  EXPECT_EQ(Below(L"D:\\dst").size(), kSource.size()) << "no temporary file is left";
  EXPECT_EQ(files.Kind(L"D:\\dst\\_tmp1_x"), my::PathKind::None);
}

TEST_P(BackupTask, copy_that_somebody_removes_meanwhile_never_has_the_final_name_without_its_files) {
  AddDst(L"x");
  for (int n = 1;; ++n) {
    files = {};
    AddSource();
    files.MeanwhileAt(n, [&] { files.Remove(L"D:\\dst\\_tmp_x"); });
    const bool created = Outcome(Run()) == "CREATED";
    if (!files.IsMeanwhileDone()) break;
    EXPECT_EQ(Below(L"D:\\dst\\x"), created ? kSource : decltype(kSource)()) << n;
  }
}

TEST_P(BackupTask, stop_ends_the_job_at_its_next_check) {
  AddDst(L"x");
  // Nine checks during the listing (including "." and ".." of three folders), then one before each target.
  for (int checks = 0; checks < 18; ++checks) {
    const test::CStopAfter stop(checks);
    const auto rows = Run(&stop);
    EXPECT_EQ(rows[0]->error.code, uint32_t{IDS_STOPPED}) << checks;
    EXPECT_EQ(rows[0]->phase, checks < 12 ? qlm::Phase::Listing : qlm::Phase::Copying) << checks;
    EXPECT_EQ(files.Kind(L"D:\\dst\\x"), my::PathKind::None);
  }
  const test::CStopAfter never(19);  // one more before the rename is repeated
  EXPECT_EQ(Outcome(Run(&never)), "CREATED");
}

constexpr Op kAllOps[] = {Op::FIND,           Op::NEXT,       Op::KIND,    Op::SIZE,
                          Op::CREATE_FOLDERS, Op::COPY,       Op::MOVE,    Op::REMOVE,
                          Op::CREATE_FILE,    Op::WRITE,      Op::CLOSE,   Op::READ,
                          Op::TEMP_FOLDER,    Op::FLUSH_FILE, Op::IS_LINK, Op::HOLD};

// Checks that a destination with its final name has all listed files.
class BackupTaskFaults : public BackupTask {
 protected:
  BackupTaskFaults() {
    AddDst(L"one");
    AddDst(L"two.zip", DstType::ZIP);
    AddDst(L"three");
    process.OnRun([this](const my::CProcessStart& start) { return test::MakeArchive(files, start); });
  }

  void ExpectFinalNamesComplete(const std::string& where) {
    for (const wchar_t* name : {L"D:\\dst\\one", L"D:\\dst\\three"}) {
      if (files.Kind(name) != my::PathKind::None) EXPECT_EQ(Below(name), kSource) << where;
    }
    const auto all = files.Files();
    const auto zip = all.find(L"D:\\dst\\two.zip");
    if (zip == all.end()) return;
    EXPECT_EQ(zip->second.substr(0, 40), "a.txt\nsub\\b.txt\nsub\\deep\\c.txt\nz.txt\nPK\5") << where;
  }
};

INSTANTIATE_TEST_SUITE_P(Threads, BackupTaskFaults, testing::Values(1, 2, 4));

TEST_P(BackupTaskFaults, every_failed_operation_is_reported_and_leaves_no_incomplete_final_name) {
  for (const Op op : kAllOps) {
    for (int n = 1;; ++n) {
      const std::string where =
          "operation " + std::to_string(static_cast<int>(op)) + ", the " + std::to_string(n) + ".";
      files = {};
      AddSource();
      files.FailAt(op, n, my::kErrorDiskFull);
      const auto rows = Run();
      const bool failed = files.Failed();
      files.ClearFaults();
      // A folder that cannot be enumerated is left out and recorded as unlisted.
      const bool partial = !rows[0]->targets->Unlisted().empty();
      const bool changes = op >= Op::CREATE_FOLDERS && op != Op::REMOVE;
      if (failed && changes) EXPECT_TRUE(rows.back()->error) << where;
      if (!partial) ExpectFinalNamesComplete(where);
      for (size_t i = 0; i + 1 < rows.size(); ++i) EXPECT_EQ(rows[i]->error.code, 0u) << where;
      if (rows.back()->error) {
        EXPECT_NE(qlm::RemedyOf(rows.back()->error), uint32_t{IDS_REMEDY_OTHER}) << where;
        EXPECT_EQ(files.Kind(rows.back()->destinationPath), my::PathKind::None) << where;
        for (size_t i = rows.size(); i < task.dsts.size(); ++i) {
          EXPECT_EQ(files.Kind(L"D:\\dst\\" + task.dsts[i]->pattern), my::PathKind::None) << where;
        }
      } else {
        EXPECT_EQ(rows.size(), 3u) << where;
      }
      if (!failed) break;
      ASSERT_LT(n, 200) << where;
    }
  }
}

TEST_P(BackupTaskFaults, crash_leaves_no_incomplete_final_name_and_the_next_run_succeeds) {
  for (int n = 1;; ++n) {
    files = {};
    AddSource();
    files.CrashAt(n);
    bool crashed = false;
    try {
      Run();
    } catch (const test::CCrash&) {
      crashed = true;
    }
    files.ClearFaults();
    const std::string where = "crash at " + std::to_string(n);
    ExpectFinalNamesComplete(where);
    const auto rows = Run();
    EXPECT_EQ(rows.size(), 3u) << where;
    for (const auto& row : rows) EXPECT_EQ(row->error.code, 0u) << where;
    ExpectFinalNamesComplete(where);
    if (!crashed) break;
    ASSERT_LT(n, 200);
  }
}

TEST_P(BackupTaskFaults, archive_of_a_concurrent_run_is_not_written_to) {
  task.dsts = {task.dsts[1]};
  files.AddFile(L"D:\\dst\\_tmp_two.zip", "torn, of a run that was killed");
  std::vector<std::wstring> archives;
  process.OnRun([&](const my::CProcessStart& start) {
    archives.push_back(start.arguments.substr(0, start.arguments.find(L" @")));
    // The second run starts before the archiver of the first one has created a file.
    if (archives.size() == 1) EXPECT_EQ(Outcome(Run()), "CREATED");
    return test::MakeArchive(files, start);
  });
  EXPECT_EQ(Outcome(Run()), "SKIPPED");
  EXPECT_EQ(archives,
            (std::vector<std::wstring>{L"a -ssw D:\\dst\\_tmp1_two.zip", L"a -ssw D:\\dst\\_tmp2_two.zip"}));
  EXPECT_EQ(Below(L"D:\\dst").size(), 2u) << "no reservation is left over, and no archive of these runs";
}

}  // namespace
