#include "engine/archive_writer.h"

#include "engine/archiver_location.h"
#include "engine/targets.h"
#include "engine/transfer_counters.h"
#include "engine/zip_end_record.h"
#include "support/engine_doubles.h"

namespace {

using qlm::DstType;
using test::EndRecord;

class ArchiveWriter : public testing::Test, protected test::CEngineDoubles {
 protected:
  ArchiveWriter() {
    files.AddFolder(L"C:\\temp");
    files.SetTemporaryFolder(L"C:\\temp\\");
    targets.Add({L"a b.txt", {1}, 1, 0});
    const size_t folder = targets.Add({L"sub", {1}, 0, my::kAttributeFolder});
    targets.Add({L"𠮷.txt", {1}, 1, 0}, folder);
    process.OnRun([this](const my::CProcessStart&) {
      list = files.Files().at(expectedList);
      if (!archive.empty()) files.AddUnflushedFile(archivePath, archive);
      return exitCode;
    });
  }

  // Returns the message id that archiving throws, 0 for none; keeps the text.
  uint32_t Write(DstType type = DstType::ZIP) {
    const my::CSimpleErr error = my::TrapError(texts, [&] {
      qlm::WriteArchive({{files, clock, nullptr}, process, texts},
                        {L"C:\\7 z.exe", L"p w", source, targets, archivePath, type, counters});
    });
    text = error.message;
    return error.code;
  }

  std::wstring source = L"C:\\src";
  std::wstring archivePath = L"D:\\d x\\_tmp_a.zip";
  std::wstring text;
  qlm::CTargets targets;
  qlm::CTransferCounters counters{{}, 0};
  std::wstring expectedList = L"C:\\temp\\qlm0.txt";
  std::string list;
  std::string archive = EndRecord(2);
  uint32_t exitCode = 0;
};

TEST_F(ArchiveWriter, command_line_is_unquoted_and_the_list_is_plain_utf8) {
  EXPECT_EQ(Write(), 0u);
  const my::CProcessStart& start = process.Starts().back();
  EXPECT_EQ(start.program, L"C:\\7 z.exe");
  EXPECT_EQ(start.arguments, L"a -ssw D:\\d x\\_tmp_a.zip @C:\\temp\\qlm0.txt");
  EXPECT_EQ(start.workingFolder, L"C:\\src");
  EXPECT_TRUE(start.wait);
  EXPECT_EQ(start.creationFlags, my::CProcessStart::kNoWindow);
  EXPECT_TRUE(start.inheritHandles);
  EXPECT_EQ(list, "a b.txt\nsub\\\xF0\xA0\xAE\xB7.txt\n");
  EXPECT_FALSE(files.Files().contains(expectedList)) << "the list is deleted";
  source = L"D:";
  Write();
  EXPECT_EQ(process.Starts().back().workingFolder, L"D:\\") << "not the current folder of the drive";

  EXPECT_EQ(qlm::ArchiverOptions(DstType::PASSWORD_ZIP, L"p w"), L"a -ssw -pp w");
  EXPECT_EQ(qlm::ArchiverOptions(DstType::AES_256_ZIP, L"p"), L"a -mem=AES256 -ssw -pp");
  EXPECT_THROW(qlm::ArchiverOptions(DstType::FOLDER, L""), my::CException);
}

TEST_F(ArchiveWriter, list_file_of_another_run_is_not_overwritten) {
  files.AddFile(L"C:\\temp\\qlm0.txt", "other", {1});
  expectedList = L"C:\\temp\\qlm1.txt";
  EXPECT_EQ(Write(), 0u);
  EXPECT_EQ(files.Files().at(L"C:\\temp\\qlm0.txt"), "other");
  // A file pending deletion denies all access.
  files.FailAt(test::Op::CREATE_FILE, 1, my::kErrorAccessDenied);
  EXPECT_EQ(Write(), 0u);
}

TEST_F(ArchiveWriter, long_list_is_written_completely) {
  const std::wstring longName(200, L'x');
  std::string expected = "a b.txt\nsub\\\xF0\xA0\xAE\xB7.txt\n";
  for (int i = 0; i < 3000; ++i) {
    targets.Add({std::to_wstring(i) + longName, {1}, 1, 0});
    expected += std::to_string(i) + std::string(200, 'x') + "\n";
  }
  archive = EndRecord(3002);
  EXPECT_EQ(Write(), 0u);
  EXPECT_EQ(list, expected);
}

TEST_F(ArchiveWriter, archive_is_verified_instead_of_the_exit_code) {
  exitCode = 1;  // 1 means warnings: a file was skipped
  EXPECT_EQ(Write(), IDS_PROCESS_EXIT_CODE);
  EXPECT_TRUE(text.ends_with(L" - " + archivePath)) << "explains that the archiver got two arguments";
  exitCode = 0;
  for (const std::string& made :
       {std::string(), std::string("PK"), EndRecord(1), EndRecord(3), EndRecord(2) + "x"}) {
    archive = made;
    files.Remove(archivePath);
    EXPECT_EQ(Write(), IDS_ARCHIVE_INCOMPLETE) << made;
  }
  archivePath = L"D:\\d\\_tmp_a.7z";
  for (const std::string& made : {std::string(), std::string("7z")}) {
    archive = made;
    EXPECT_EQ(Write(), made.empty() ? IDS_ARCHIVE_INCOMPLETE : 0u) << "only a zip has entries to count";
  }
  EXPECT_FALSE(files.Files().contains(expectedList));
}

TEST_F(ArchiveWriter, name_that_the_archiver_reads_as_that_of_an_excluded_file_is_reported) {
  targets.Add({L" c.txt", {1}, 1, 0});
  archive = EndRecord(3);
  archivePath = L"D:\\d\\_tmp_a.zip";
  EXPECT_EQ(Write(), IDS_ARCHIVE_INCOMPLETE);
  EXPECT_TRUE(text.ends_with(L" -  c.txt")) << "names the file";
}

TEST_F(ArchiveWriter, zip64_end_record_is_read) {
  std::string record(56, '\0');
  record.replace(0, 4, "PK\6\6");
  record.replace(32, 3, std::string("\x70\x11\1", 3));  // 70,000 entries
  std::string locator = "PK\6\7" + std::string(16, '\0');
  locator[8] = 5;  // after the five bytes of content
  files.AddFile(L"C:\\z.zip", "12345" + record + locator + EndRecord(0xFFFF), {1});
  EXPECT_EQ(qlm::CountZipEntries(files, L"C:\\z.zip"), 70'000u);
  files.AddFile(L"C:\\y.zip", locator + EndRecord(0xFFFF), {1});
  EXPECT_EQ(qlm::CountZipEntries(files, L"C:\\y.zip"), std::nullopt);
}

TEST_F(ArchiveWriter, archiver_is_found_where_it_is_installed) {
  test::CFakeFolders folders;
  EXPECT_EQ(qlm::FindArchiver(files, folders), L"");
  folders.programs = L"E:\\Program Files (x86)";
  files.AddFile(L"E:\\Program Files (x86)\\7-Zip\\7z.exe", "", {1});
  EXPECT_EQ(qlm::FindArchiver(files, folders), L"E:\\Program Files (x86)\\7-Zip\\7z.exe");
  files.AddFile(L"E:\\Program Files\\7-Zip\\7z.exe", "", {1});
  EXPECT_EQ(qlm::FindArchiver(files, folders), L"E:\\Program Files\\7-Zip\\7z.exe");
  folders.programs = L"E:\\PROGRAM FILES";  // a 32-bit system
  EXPECT_EQ(qlm::ArchiverCandidates(folders).size(), 1u) << "no duplicates";
}

}  // namespace
