// Tests the built program in its own process, by messages to its windows.
#include <gtest/gtest.h>

#include "control_ids.h"
#include "gui/gui.h"
#include "support/strings.h"
#include "wine/scratch_folder.h"

namespace {

class CProgram {
 public:
  explicit CProgram(const std::wstring& argument) {
    std::wstring command = L"\"" + Path() + L"\" \"" + argument + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(::CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                 &startup, &process));
    m_process = my::CKernelHandle(process.hProcess);
    const my::CKernelHandle thread(process.hThread);
  }
  ~CProgram() { ::TerminateProcess(m_process.Get(), 1); }

  // Returns the built program, or the one that QLM_PROGRAM names.
  static std::wstring Path() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(::GetEnvironmentVariableW(L"QLM_PROGRAM", path.data(), MAX_PATH));
    if (!path.empty()) return path;
    path.resize(MAX_PATH);
    path.resize(::GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return my::JoinPath(my::ParentPath(path), L"Quillmoor.exe");
  }

  HWND Window() const {
    const HWND window = ::FindWindowW(L"QuillmoorMainFrame", nullptr);
    return ::IsWindowVisible(window) ? window : nullptr;
  }

  bool Ended() const { return ::WaitForSingleObject(m_process.Get(), 0) == WAIT_OBJECT_0; }
  DWORD ExitCode() const {
    DWORD code = 0xFFFFFFFF;
    ::GetExitCodeProcess(m_process.Get(), &code);
    return code;
  }

 private:
  my::CKernelHandle m_process;
};

TEST(Program, opens_a_document_from_the_command_line_runs_it_and_quits) {
  test::CScratchFolder scratch;
  scratch.Write(L"a.txt", "content");
  std::string document =
      "<?xml version=\"1.0\" encoding=\"utf-8\"?><QuillmoorDoc><Version>1.0.0.0</Version><Dsts><Dst><Folder>";
  document += my::Utf8FromWide(scratch.At(L"out")) +
              "</Folder><Type>FOLDER</Type><Pattern>backup</Pattern></Dst></Dsts>";
  document += "<Tasks><Task><Id>t</Id><Path>" + my::Utf8FromWide(scratch.path) +
              "</Path><Dsts><Dst>0</Dst></Dsts><FilterPath></FilterPath></Task></Tasks></QuillmoorDoc>";
  scratch.Write(L"d.qlmr", document);
  const CProgram program(scratch.At(L"d.qlmr"));
  ASSERT_TRUE(test::PumpUntil([&] { return test::TextOf(program.Window()).starts_with(L"d.qlmr"); }));
  const HWND window = program.Window();
  ::PostMessageW(window, WM_KEYDOWN, VK_F5, 0);
  const std::wstring copied = scratch.At(L"out\\backup\\a.txt");
  ASSERT_TRUE(test::PumpUntil([&] { return scratch.files.Kind(copied) == my::PathKind::File; }));
  EXPECT_EQ(scratch.files.ReadFile(copied, 100), "content");
  // The full bar means "1 / 1  正常終了 ...".
  const HWND bar = ::GetDlgItem(::GetDlgItem(window, IDC_STATUS_BAR), IDC_PROGRESS);
  EXPECT_TRUE(test::PumpUntil([&] { return ::SendMessageW(bar, PBM_GETPOS, 0, 0) == 1; })) << "state 375";
  ::PostMessageW(window, WM_CLOSE, 0, 0);
  EXPECT_TRUE(test::PumpUntil([&] { return program.Ended(); }));
  EXPECT_EQ(program.ExitCode(), 0u);
}

// Closes the message box about the last document, which may be gone.
HWND FilterDialog() {
  for (HWND dialog = nullptr; (dialog = ::FindWindowExW(nullptr, dialog, L"#32770", nullptr)) != nullptr;) {
    if (::GetDlgItem(dialog, IDC_FILTER_LINES)) return dialog;
    ::PostMessageW(dialog, WM_CLOSE, 0, 0);
  }
  return nullptr;
}

TEST(Program, checks_a_filter_file_from_the_command_line) {
  test::CScratchFolder scratch;
  scratch.Write(L"a b.flt", "- \\.tmp$\r\n");
  const CProgram program(L"--check-filter=" + scratch.At(L"a b.flt"));
  ASSERT_TRUE(test::PumpUntil([] { return FilterDialog() != nullptr; }));
  const HWND dialog = FilterDialog();
  const HWND file = ::GetDlgItem(dialog, IDC_FILTER_FILE);
  EXPECT_TRUE(test::PumpUntil([&] { return test::TextOf(file) == scratch.At(L"a b.flt"); }));
  ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  EXPECT_TRUE(test::PumpUntil([&] { return ::IsWindowEnabled(program.Window()) != FALSE; }));
}

// Makes a command the default for web pages until it is destroyed.
class CBrowser {
 public:
  explicit CBrowser(const std::wstring& command) {
    DWORD size = sizeof m_before;
    ::RegGetValueW(HKEY_CLASSES_ROOT, L".html", nullptr, RRF_RT_REG_SZ, nullptr, m_before, &size);
    Set(L".html", L"qlm_test_page");
    Set(L"qlm_test_page\\shell\\open\\command", command);
  }
  ~CBrowser() {
    ::RegDeleteTreeW(HKEY_CLASSES_ROOT, L"qlm_test_page");
    if (m_before[0] != 0)
      Set(L".html", m_before);
    else
      ::RegDeleteTreeW(HKEY_CLASSES_ROOT, L".html");
  }

 private:
  static void Set(const wchar_t* key, const std::wstring& value) {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    EXPECT_EQ(::RegSetKeyValueW(HKEY_CLASSES_ROOT, key, nullptr, REG_SZ, value.c_str(), size), ERROR_SUCCESS);
  }

  wchar_t m_before[99] = L"";
};

TEST(Program, f1_opens_the_manual_beside_it) {
  test::CScratchFolder scratch;
  const std::wstring opened = scratch.At(L"opened.html");
  const CBrowser browser(L"cmd.exe /c copy \"%1\" \"" + opened + L"\"");
  const CProgram program(scratch.At(L"none.qlmr"));
  // A message box tells that the document is missing.
  ASSERT_TRUE(test::PumpUntil([] { return ::FindWindowW(L"#32770", nullptr) != nullptr; }));
  ::PostMessageW(::FindWindowW(L"#32770", nullptr), WM_CLOSE, 0, 0);
  ASSERT_TRUE(test::PumpUntil([&] { return program.Window() && ::IsWindowEnabled(program.Window()); }));
  ::PostMessageW(program.Window(), WM_KEYDOWN, VK_F1, 0);
  const std::wstring page = my::JoinPath(my::ParentPath(CProgram::Path()), L"manual\\ja\\index.html");
  const auto read = [&](const std::wstring& path) { return scratch.files.ReadFile(path, 1u << 20); };
  ASSERT_TRUE(test::PumpUntil([&] { return scratch.files.Kind(opened) == my::PathKind::File; }));
  EXPECT_TRUE(test::PumpUntil([&] { return read(opened) == read(page); }));
}

}  // namespace
