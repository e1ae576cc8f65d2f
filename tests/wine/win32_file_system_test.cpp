#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <set>
#include <vector>

#include "platform/safe_file.h"
#include "platform/win32/handle.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_message_texts.h"
#include "scratch_folder.h"
#include "support/checks.h"
#include "text_ids.h"

namespace {

using my::CException;
using my::PathKind;

// Returns the message id and the system error that `work` throws.
template <class Work>
std::pair<uint32_t, uint32_t> Failure(Work work) {
  try {
    work();
  } catch (const CException& failure) {
    return {failure.Id(), failure.Detail() & 0xFFFF};
  }
  return {0, 0};
}

using Code = std::pair<uint32_t, uint32_t>;

// Opens a file without sharing.
my::CKernelHandle Lock(const std::wstring& path) {
  return my::CKernelHandle(
      ::CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

struct Win32FileSystem : testing::Test {
  test::CScratchFolder scratch;
};

TEST_F(Win32FileSystem, copy_tells_its_progress_within_a_file) {
  scratch.Write(L"a", std::string(3u << 20, 'x'));
  std::vector<uint64_t> copied;
  scratch.files.Copy(scratch.At(L"a"), scratch.At(L"b"), [&](uint64_t bytes) { copied.push_back(bytes); });
  if (copied.empty()) GTEST_SKIP() << "Wine 8 ignores the progress routine";
  EXPECT_TRUE(std::is_sorted(copied.begin(), copied.end()));
  EXPECT_EQ(copied.back(), 3u << 20);
}

TEST_F(Win32FileSystem, failures_carry_their_operation_and_code) {
  auto& files = scratch.files;
  scratch.Write(L"a", "aaa");
  scratch.Write(L"b", "bbb");
  const auto a = scratch.At(L"a");
  const auto b = scratch.At(L"b");
  const auto none = scratch.At(L"none");
  const auto deep = scratch.At(L"none\\x");
  EXPECT_EQ(Failure([&] { files.Copy(a, b); }), Code(IDS_COPY_FILE_FAILED, ERROR_FILE_EXISTS));
  EXPECT_EQ(Failure([&] { files.Copy(none, deep); }), Code(IDS_COPY_FILE_FAILED, ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(Failure([&] { files.Copy(a, deep); }), Code(IDS_COPY_FILE_FAILED, ERROR_PATH_NOT_FOUND));
  EXPECT_EQ(Failure([&] { files.Move(a, b); }), Code(IDS_MOVE_FILE_FAILED, ERROR_ALREADY_EXISTS));
  EXPECT_FALSE(files.CreateNewFile(a) || files.CreateNewFolder(a)) << "a file exists";
  EXPECT_EQ(Failure([&] { files.CreateNewFile(deep); }), Code(IDS_CREATE_FILE_FAILED, ERROR_PATH_NOT_FOUND));
  EXPECT_EQ(Failure([&] { files.FlushFile(none, my::FlushDepth::Device); }),
            Code(IDS_WRITE_FILE_FAILED, ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(Failure([&] { files.ReadFile(none, 9); }), Code(IDS_OPEN_FILE_FAILED, ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(Failure([&] { files.FileSize(none); }), Code(IDS_READ_FILE_FAILED, ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(Failure([&] { files.RemoveFile(none); }), Code(IDS_DELETE_FAILED, ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(Failure([&] { files.CreateFolders(a); }).first, IDS_CREATE_FOLDER_FAILED);
  EXPECT_EQ(Failure([&] { files.CreateFolders(scratch.At(L"a\\x")); }).first, IDS_CREATE_FOLDER_FAILED);
  EXPECT_EQ(Failure([&] { files.CreateFolders(scratch.path); }).first, 0u);
  EXPECT_EQ(files.ReadFile(b, 2, 1), "bb");
  EXPECT_EQ(files.Kind(a), PathKind::File);
  EXPECT_EQ(files.Kind(scratch.path), PathKind::Folder);
  EXPECT_EQ(files.Kind(deep), PathKind::None);
  EXPECT_GT(files.FreeSpace(scratch.path), 0u);
  EXPECT_EQ(Failure([&] { files.FreeSpace(none); }).first, IDS_PATH_UNREADABLE);
}

TEST_F(Win32FileSystem, locked_file_is_neither_copied_nor_saved_over) {
  const my::CWin32Clock clock;
  scratch.Write(L"doc", "old");
  {
    const auto lock = Lock(scratch.At(L"doc"));
    EXPECT_EQ(Failure([&] { scratch.files.Copy(scratch.At(L"doc"), scratch.At(L"copy")); }),
              Code(IDS_COPY_FILE_FAILED, ERROR_SHARING_VIOLATION));
    EXPECT_EQ(Failure([&] { my::WriteFileSafely(scratch.files, clock, scratch.At(L"doc"), "new"); }).first,
              IDS_MOVE_FILE_FAILED);
  }
  EXPECT_EQ(scratch.files.ReadFile(scratch.At(L"doc"), 9), "old");
  EXPECT_EQ(scratch.files.Kind(scratch.At(L"_tmp_doc")), PathKind::None);
  my::WriteFileSafely(scratch.files, clock, scratch.At(L"doc"), "new");
  EXPECT_EQ(scratch.files.ReadFile(scratch.At(L"doc"), 9), "new");
}

TEST_F(Win32FileSystem, enumeration_reports_what_a_file_is) {
  scratch.Write(L"長い名前の.txt", "12345");
  scratch.files.CreateFolders(scratch.At(L"sub\\deeper"));
  std::set<std::wstring> seen;
  const auto find = scratch.files.Find(scratch.At(L""));
  my::CFindData entry;
  while (find->Next(entry)) {
    seen.emplace(entry.name);
    const bool folder = (entry.attributes & my::kAttributeFolder) != 0;
    EXPECT_EQ(folder, entry.name != L"長い名前の.txt");
    if (folder) continue;
    EXPECT_EQ(entry.size, 5u);
    EXPECT_GT(entry.lastWriteTime.ticks, 0u);
  }
  EXPECT_EQ(seen, (std::set<std::wstring>{L".", L"..", L"sub", L"長い名前の.txt"}));
  EXPECT_EQ(Failure([&] { scratch.files.Find(scratch.At(L"none")); }).first, IDS_LIST_FOLDER_FAILED);
}

TEST_F(Win32FileSystem, read_only_copy_is_flushed_and_stays_read_only) {
  scratch.Write(L"a", "abc");
  const auto a = scratch.At(L"a");
  ASSERT_TRUE(::SetFileAttributesW(a.c_str(), FILE_ATTRIBUTE_READONLY));
  for (const auto depth : {my::FlushDepth::WriteOut, my::FlushDepth::Device}) {
    EXPECT_EQ(scratch.files.FlushFile(a, depth), 3u);
    EXPECT_TRUE(::GetFileAttributesW(a.c_str()) & FILE_ATTRIBUTE_READONLY);
  }
  ::SetFileAttributesW(a.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Win32FileSystem, reserved_name_is_taken_until_it_is_closed) {
  const auto name = scratch.At(L"_lck_a.zip");
  auto reservation = scratch.files.CreateNewFile(name, my::FileLife::UntilClosed);
  ASSERT_TRUE(reservation);
  EXPECT_FALSE(scratch.files.CreateNewFile(name, my::FileLife::UntilClosed));
  reservation.reset();
  EXPECT_EQ(scratch.files.Kind(name), PathKind::None);
}

TEST_F(Win32FileSystem, file_open_to_append_can_be_read_but_not_written_by_others) {
  const auto path = scratch.At(L"履歴");
  for (const char* line : {"one\n", "two\n"}) {
    const auto file = scratch.files.OpenToAppend(path);
    EXPECT_EQ(Failure([&] { scratch.files.OpenToAppend(path); }),
              Code(IDS_OPEN_FILE_FAILED, ERROR_SHARING_VIOLATION));
    file->Write(line);
    file->Flush();
    EXPECT_TRUE(scratch.files.ReadFile(path, 99).ends_with(line));
  }
  EXPECT_EQ(scratch.files.ReadFile(path, 99), "one\ntwo\n");
}

TEST_F(Win32FileSystem, relative_path_is_in_the_current_folder_however_long_it_is) {
  my::CWin32FileSystem files;
  const std::wstring longName(400, L'x');
  const std::wstring full = files.FullPath(longName);
  EXPECT_TRUE(full.size() > 402 && full[1] == L':' && full.ends_with(L"\\" + longName)) << full;
  EXPECT_EQ(files.FullPath(L"C:\\a\\..\\b.qlmr"), L"C:\\b.qlmr");
}

TEST_F(Win32FileSystem, disk_of_a_missing_path_is_that_of_its_volume) {
  EXPECT_EQ(scratch.files.Disk(scratch.At(L"missing\\deeper")), scratch.files.Disk(scratch.At(L"")));
  for (const wchar_t* path : {L"", L"Q:\\none", L"?"}) {
    EXPECT_EQ(scratch.files.Disk(path), my::DiskKind::Unknown) << path;
  }
}

TEST(Win32MessageTexts, system_and_table_speak_japanese) {
  const my::CWin32MessageTexts texts;
  EXPECT_EQ(texts.Text(IDS_PHASE_SKIPPED), L"正常終了 - 更新されていないためスキップされました");
  const CException failure(IDS_COPY_FILE_FAILED,
                           {my::CSystemError::FromWin32(ERROR_DISK_FULL), L"C:\\a", L"C:\\b"});
  const std::wstring text = my::MakeErrorText(texts, failure);
  EXPECT_TRUE(test::Has(text, L"ファイルのコピーに失敗しました - "));
  EXPECT_TRUE(test::Has(text, L" (0x80070070)\n\nC:\\a\n->\nC:\\b")) << "code and paths are shown";
  EXPECT_FALSE(texts.SystemText(my::CSystemError::FromWin32(ERROR_DISK_FULL).hresult).empty());
}

}  // namespace
