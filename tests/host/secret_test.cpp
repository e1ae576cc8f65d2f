// Searches all freed memory for a password.
#include <malloc.h>

#include <cstdlib>
#include <new>

#include "support/fake_app.h"

namespace {

const std::wstring kSecret = L"a-password-that-needs-memory-of-its-own";
constexpr std::wstring_view kTail = L"of-its-own";  // the part of it that a shorter text does not overwrite
constexpr std::string_view kUtf8Tail = "of-its-own";
bool watching = false;
int found = 0;

}  // namespace

void* operator new(size_t bytes) {
  if (void* memory = std::malloc(bytes)) return memory;
  throw std::bad_alloc();
}

void* operator new(size_t bytes, const std::nothrow_t&) noexcept {
  return std::malloc(bytes);
}

void operator delete(void* memory) noexcept {
  if (watching && memory) {
    const size_t bytes = ::malloc_usable_size(memory);
    const std::wstring_view wide(static_cast<const wchar_t*>(memory), bytes / sizeof(wchar_t));
    const std::string_view utf8(static_cast<const char*>(memory), bytes);
    if (wide.find(kTail) != wide.npos || utf8.find(kUtf8Tail) != utf8.npos) ++found;
  }
  std::free(memory);
}

void operator delete(void* memory, size_t) noexcept {
  operator delete(memory);
}

namespace {

using namespace qlm;

TEST(Secret, password_is_wiped_before_its_memory_is_freed) {
  test::CFakeApp a;
  for (const auto type : {PasswordType::EXEC, PasswordType::EXEC_ONCE, PasswordType::SAVE}) {
    CContent content;
    content.dsts.Append(test::MakeDst(L"D:\\z" + std::to_wstring(static_cast<int>(type)),
                                      DstType::PASSWORD_ZIP, L"<ID>.zip"));
    content.tasks.Append(test::MakeTask(L"secret", {content.dsts[0]}));
    a.Start().Document().Reset(content, L"");
    a.app->Settings().archive.sevenZipPath = L"C:\\7-Zip\\7z.exe";
    a.app->Settings().archive.passwordType = type;
    a.dialogs.passwords.emplace_back(kSecret);
    const size_t archives = a.process.Starts().size();
    watching = true;
    a.RunToEnd();
    CArchiveSetting edited = a.app->Settings().archive;
    edited.password = L"b";
    SetArchiveSetting(a.app->Settings().archive, edited);
    my::Wipe(edited.password);
    CBackupTask job({a.files, a.clock, a.ansi, a.texts, a.process}, {*content.tasks[0], L"", kSecret});
    job.SetPassword(std::wstring(200, L'x'));  // needs other memory
    { const std::wstring replaced = std::move(a.app->Settings().archive.password); }
    a.app->Settings().archive.password = kSecret;
    a.app.reset();
    watching = false;
    EXPECT_EQ(found, 0) << static_cast<int>(type);
    EXPECT_EQ(a.settings->archive.password, L"");
    EXPECT_EQ(a.process.Starts().size(), archives + 1);
  }
}

TEST(Secret, what_a_shorter_text_leaves_behind_is_wiped) {
  std::wstring text = kSecret;
  const wchar_t* memory = text.data();
  text = L"b";
  my::Wipe(text);
  EXPECT_FALSE(test::Has(std::wstring(memory, kSecret.size()), kTail));
}

}  // namespace
