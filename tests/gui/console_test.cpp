#include "platform/win32/win32_console.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/handle.h"

namespace {

// Restores the standard stream of the test.
class CStream {
 public:
  CStream(DWORD id, HANDLE handle) : m_id(id), m_before(::GetStdHandle(id)) { ::SetStdHandle(id, handle); }
  CStream(const CStream&) = delete;
  CStream& operator=(const CStream&) = delete;
  ~CStream() { ::SetStdHandle(m_id, m_before); }

 private:
  DWORD m_id;
  HANDLE m_before;
};

// Wine makes a console only where there is a screen.
TEST(Win32Console, output_after_the_console_was_given_up_is_written_into_no_file) {
  ::FreeConsole();
  ASSERT_TRUE(::AllocConsole());
  const HANDLE screen = ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
  my::CWin32Console console;
  const CStream stream(STD_OUTPUT_HANDLE, screen);
  EXPECT_TRUE(console.IsTerminal(my::IConsole::Stream::Output));
  console.Detach();
  EXPECT_EQ(::GetStdHandle(STD_OUTPUT_HANDLE), nullptr);
  console.Write(my::IConsole::Stream::Output, L"nobody reads this");
}

TEST(Win32Console, line_from_a_pipe_is_read_without_its_mark_and_its_end) {
  my::CWin32Console console;
  HANDLE read = nullptr, write = nullptr;
  ASSERT_TRUE(::CreatePipe(&read, &write, nullptr, 0));
  const my::CKernelHandle reader(read);
  my::CKernelHandle writer(write);
  const CStream stream(STD_INPUT_HANDLE, read);
  const std::string bytes = "\xEF\xBB\xBF鍵\r\n\x83\x70";
  DWORD written = 0;
  ::WriteFile(write, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  writer.Reset();
  EXPECT_EQ(console.ReadLine(), L"鍵");
  EXPECT_EQ(console.ReadLine(), L"\xFFFDp") << "Shift_JIS";
  EXPECT_EQ(console.ReadLine(), std::nullopt);
}

}  // namespace
