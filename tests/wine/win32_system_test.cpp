#include <gtest/gtest.h>
#include <windows.h>

#include <shlobj.h>

#include "platform/win32/win32_hash.h"
#include "platform/win32/win32_known_folders.h"
#include "platform/win32/win32_power.h"
#include "platform/win32/win32_shell.h"
#include "resource.h"
#include "scratch_folder.h"
#include "support/thrown.h"

namespace {

using namespace std::string_literals;

// The handles that are open, by asking for each: Wine answers 0 to GetProcessHandleCount.
int HandleCount() {
  int count = 0;
  DWORD flags = 0;
  for (uintptr_t value = 4; value < 0x1000; value += 4) {
    if (::GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags)) ++count;
  }
  return count;
}

TEST(Win32Power, privilege_leaves_no_token_behind_even_on_failure) {
  my::CWin32Power power;
  const auto unknown = [&] { power.EnablePrivilege(L"SeNoSuchPrivilege"); };
  EXPECT_TRUE(power.EnablePrivilege(SE_SHUTDOWN_NAME));
  EXPECT_EQ(test::ThrownId(unknown), IDS_PRIVILEGE_NOT_FOUND);
  const int before = HandleCount();
  const auto held = power.EnablePrivilege(SE_SHUTDOWN_NAME);
  EXPECT_EQ(HandleCount(), before + 1);
  for (int i = 0; i < 100; ++i) {
    power.EnablePrivilege(SE_SHUTDOWN_NAME);
    test::ThrownId(unknown);
  }
  EXPECT_EQ(HandleCount(), before + 1);
}

TEST(Win32Hash, md5_of_something_and_of_nothing) {
  const my::CWin32Hash hash;
  EXPECT_EQ(hash.Md5("abc"), "\x90\x01\x50\x98\x3c\xd2\x4f\xb0\xd6\x96\x3f\x7d\x28\xe1\x7f\x72");
  EXPECT_EQ(hash.Md5({}), "\xd4\x1d\x8c\xd9\x8f\x00\xb2\x04\xe9\x80\x09\x98\xec\xf8\x42\x7e"s);
}

// The bytes of the shell's list of a path.
my::CShellIdList IdList(const std::wstring& path) {
  ITEMIDLIST* const list = ::ILCreateFromPathW(path.c_str());
  const auto* const bytes = reinterpret_cast<const std::byte*>(list);
  my::CShellIdList copy(bytes, bytes + ::ILGetSize(list));
  ::ILFree(list);
  return copy;
}

TEST(Win32Shell, path_of_a_list_only_when_it_is_complete) {
  test::CScratchFolder scratch;
  scratch.Write(L"長い 名前.txt", "");
  my::CWin32Shell shell;
  my::CShellIdList list = IdList(scratch.At(L"長い 名前.txt"));
  EXPECT_EQ(shell.PathOf(list), scratch.At(L"長い 名前.txt"));
  const auto refused = [&] { return test::ThrownId([&] { shell.PathOf(list); }); };
  list.pop_back();
  EXPECT_EQ(refused(), IDS_ID_LIST_TO_PATH_FAILED) << "half an end mark";
  list = {std::byte{9}, std::byte{0}, std::byte{0}, std::byte{0}};
  EXPECT_EQ(refused(), IDS_ID_LIST_TO_PATH_FAILED) << "an item beyond the end";
  list = {std::byte{1}, std::byte{0}, std::byte{0}, std::byte{0}};
  EXPECT_EQ(refused(), IDS_ID_LIST_TO_PATH_FAILED) << "an item smaller than its own size";
  list.clear();
  EXPECT_EQ(refused(), IDS_ID_LIST_TO_PATH_FAILED);
}

TEST(Win32Shell, missing_file_is_an_error_without_a_window) {
  test::CScratchFolder scratch;
  my::CWin32Shell shell;
  EXPECT_EQ(test::ThrownId([&] { shell.Open(scratch.At(L"none.txt")); }), IDS_SHELL_OPEN_FAILED);
  EXPECT_EQ(test::ThrownId([&] { shell.Run(scratch.At(L"none.exe"), L"/n"); }), IDS_SHELL_OPEN_FAILED);
}

TEST(Win32KnownFolders, program_folder_holds_the_running_program) {
  const std::wstring folder = my::CWin32KnownFolders().ProgramFolder();
  my::CWin32FileSystem files;
  EXPECT_EQ(files.Kind(my::JoinPath(folder, L"qlm_wine_tests.exe")), my::PathKind::FILE);
}

}  // namespace
