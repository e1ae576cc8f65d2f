#include <gtest/gtest.h>
#include <windows.h>

#include <shlobj.h>

#include "platform/win32/com.h"
#include "platform/win32/win32_hash.h"
#include "platform/win32/win32_known_folders.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_power.h"
#include "platform/win32/win32_process.h"
#include "platform/win32/win32_shell.h"
#include "platform/win32/win32_task_scheduler.h"
#include "schedule/schedule_xml.h"
#include "scratch_folder.h"
#include "support/checks.h"
#include "text_ids.h"
#include "wine/test_language.h"

namespace {

using namespace std::string_literals;

TEST(Win32Power, privilege_is_given_or_refused) {
  my::CWin32Power power;
  EXPECT_TRUE(power.EnablePrivilege(SE_SHUTDOWN_NAME));
  EXPECT_EQ(test::ThrownId([&] { power.EnablePrivilege(L"SeNoSuchPrivilege"); }), IDS_PRIVILEGE_NOT_FOUND);
}

TEST(Win32Power, computer_may_sleep_again_after_a_run) {
  constexpr DWORD kAwake = ES_CONTINUOUS | ES_SYSTEM_REQUIRED;
  auto awake = my::CWin32Power().KeepAwake();
  EXPECT_EQ(::SetThreadExecutionState(kAwake), kAwake) << "the state before";
  awake.reset();
  EXPECT_EQ(::SetThreadExecutionState(ES_CONTINUOUS), DWORD{ES_CONTINUOUS});
}

// Wine does not list tasks and does not keep their triggers and actions, so only names are checked.
TEST(Win32TaskScheduler, task_is_added_once_changed_and_removed) {
  const my::CComApartment com;
  my::CWin32TaskScheduler scheduler;
  const std::wstring name = L"Quillmoor - テスト & 1";
  scheduler.Remove(name);
  const auto xml = [&](const qlm::CSchedule& schedule) {
    return qlm::ScheduleXml(schedule, {L"C:\\a b\\QuillmoorRun.exe", L"C:\\文書 & 1.qlmr"}, scheduler.User(),
                            L"x");
  };
  EXPECT_TRUE(scheduler.User().starts_with(L"S-1-"));
  EXPECT_TRUE(scheduler.Add(name, xml({qlm::ScheduleKind::Weekly, {2030, 1, 2, 3, 4, 0}, 3})));
  EXPECT_FALSE(scheduler.Add(name, xml({qlm::ScheduleKind::Logon})));
  scheduler.Change(name, xml({qlm::ScheduleKind::Idle}));
  EXPECT_EQ(test::ThrownId([&] { scheduler.Change(name, L"<Task"); }), IDS_SCHEDULE_ADD_FAILED);
  scheduler.Remove(name);
  EXPECT_TRUE(scheduler.Add(name, xml({qlm::ScheduleKind::Daily, {2030, 1, 2, 3, 4, 0}})));
  scheduler.Remove(name);
}

// Returns the start of a command of the shell in a folder.
my::CProcessStart Command(const wchar_t* arguments, const std::wstring& folder) {
  my::CProcessStart start;
  start.program = L"C:\\windows\\system32\\cmd.exe";
  start.arguments = arguments;
  start.workingFolder = folder;
  start.creationFlags = my::CProcessStart::kNoWindow;
  return start;
}

TEST(Win32Process, program_gets_what_it_is_started_with) {
  test::CScratchFolder scratch;
  scratch.Write(L"here.txt", "");
  my::CProcessStart start = Command(L"/c if exist here.txt exit %QLM_CODE%", scratch.At(L""));
  start.environment = std::vector<std::wstring>{L"QLM_CODE=7", L"SystemRoot=C:\\windows"};
  start.startup.title = L"title";
  start.startup.showMode = SW_HIDE;
  start.processSecurity.inherit = true;
  EXPECT_EQ(my::CWin32Process().Run(start), 7u);
  start.wait = false;
  EXPECT_EQ(my::CWin32Process().Run(start), my::IProcess::kStillActive);
}

TEST(Win32Process, archive_can_be_measured_while_the_program_is_waited_for) {
  test::CScratchFolder scratch;
  scratch.Write(L"wait.bat", ":again\r\nif not exist go.txt goto again\r\nexit 7\r\n");
  my::CProcessStart start = Command(L"/c wait.bat", scratch.At(L""));
  start.whileWaiting = [&scratch] { scratch.files.CreateNewFile(scratch.At(L"go.txt")); };
  EXPECT_EQ(my::CWin32Process().Run(start), 7u);
}

// Returns the manifest of a program in the same folder.
std::string Manifest(const wchar_t* program) {
  const std::wstring path = my::JoinPath(my::CWin32KnownFolders().ProgramFolder(), program);
  const HMODULE module = ::LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  const HRSRC resource = ::FindResourceW(module, CREATEPROCESS_MANIFEST_RESOURCE_ID, RT_MANIFEST);
  if (!resource) return {};
  const auto* const bytes = static_cast<const char*>(::LockResource(::LoadResource(module, resource)));
  std::string manifest(bytes, ::SizeofResource(module, resource));
  ::FreeLibrary(module);
  return manifest;
}

TEST(Manifests, declare_long_paths_and_no_system_before_windows_8) {
  for (const wchar_t* program : {L"Quillmoor.exe", L"QuillmoorRun.exe"}) {
    const std::string manifest = Manifest(program);
    EXPECT_TRUE(test::Has(manifest, "<longPathAware")) << program;
    EXPECT_TRUE(test::Has(manifest, "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}")) << "Windows 10";
    EXPECT_FALSE(test::Has(manifest, "{35138b9a-5d96-4fbd-8e2d-a2440225f93a}")) << "Windows 7";
  }
}

TEST(Win32MessageTexts, are_in_the_chosen_language) {
  const my::CWin32MessageTexts texts;
  const int32_t diskFull = my::CSystemError::FromWin32(ERROR_DISK_FULL).hresult;
  EXPECT_EQ(texts.Text(IDS_STATE_RUNNING), L"実行中") << "the display language of the tests is Japanese";
  const test::CTestLanguage english(my::UiLanguage::English);
  EXPECT_EQ(texts.Text(IDS_STATE_RUNNING), L"Running");
  EXPECT_EQ(texts.Text(IDS_STATE_ENDED + 10'000), L"");
  EXPECT_TRUE(test::Has(texts.SystemText(diskFull), L"isk")) << "disk full";
  EXPECT_FALSE(my::LocalResource(RT_VERSION, 1).empty()) << "a resource without languages";
}

TEST(Win32Hash, md5_of_something_and_of_nothing) {
  const my::CWin32Hash hash;
  EXPECT_EQ(hash.Md5("abc"), "\x90\x01\x50\x98\x3c\xd2\x4f\xb0\xd6\x96\x3f\x7d\x28\xe1\x7f\x72");
  EXPECT_EQ(hash.Md5({}), "\xd4\x1d\x8c\xd9\x8f\x00\xb2\x04\xe9\x80\x09\x98\xec\xf8\x42\x7e"s);
}

// Returns the ID list of a path.
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
  EXPECT_EQ(refused(), IDS_ID_LIST_TO_PATH_FAILED) << "half a terminator";
  list = {std::byte{9}, std::byte{0}, std::byte{0}, std::byte{0}};
  EXPECT_EQ(refused(), IDS_ID_LIST_TO_PATH_FAILED) << "an item beyond the end";
  list = {std::byte{1}, std::byte{0}, std::byte{0}, std::byte{0}};
  EXPECT_EQ(refused(), IDS_ID_LIST_TO_PATH_FAILED) << "an item smaller than its own size";
  list.clear();
  EXPECT_EQ(refused(), IDS_ID_LIST_TO_PATH_FAILED);
}

TEST(Win32Shell, recycled_file_is_gone_and_a_drive_without_recycle_bin_is_refused) {
  test::CScratchFolder scratch;
  my::CWin32Shell shell;
  scratch.Write(L"half", "x");
  EXPECT_TRUE(shell.Recycle(scratch.At(L"half")));
  EXPECT_EQ(scratch.files.Kind(scratch.At(L"half")), my::PathKind::None);
  EXPECT_EQ(test::ThrownId([&] { shell.Recycle(scratch.At(L"half")); }), IDS_RECYCLE_FAILED);
  const std::wstring deep = scratch.path + std::wstring(300, L'x');
  for (const std::wstring& path :
       {std::wstring(L"\\\\server\\share\\_tmp_a"), std::wstring(L"Y:\\_tmp_a"), deep})
    EXPECT_EQ(test::ThrownId([&] { shell.Recycle(path); }), IDS_RECYCLE_NO_BIN)
        << testing::PrintToString(path);
}

TEST(Win32Shell, missing_file_is_an_error_without_a_window) {
  test::CScratchFolder scratch;
  my::CWin32Shell shell;
  EXPECT_EQ(test::ThrownId([&] { shell.Open(scratch.At(L"none.txt")); }), IDS_SHELL_OPEN_FAILED);
  EXPECT_EQ(test::ThrownId([&] { shell.Run(scratch.At(L"none.exe"), L"/n"); }), IDS_SHELL_OPEN_FAILED);
}

}  // namespace
