#include "control_ids.h"
#include "gui/dialog_app.h"
#include "support/build_info.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/dialogs/password_dialog.h"
#include "ui/dialogs/replace_dialog.h"
#include "ui/dialogs/settings_sheet.h"

namespace {

using namespace qlm;
using test::Choose;
using test::Click;
using test::TextOf;
using test::Type;

struct SettingsDialogs : testing::Test, test::CDialogApp {
  CArchiveSetting& Archive() { return Settings().archive; }

  void Fill() {
    for (const wchar_t* id : {L"ab1", L"ab2"}) InsertTask(app.Document(), -1, {id, L"C:\\src", L"", {}});
  }
  bool IsPreviewed() { return app.Document().Tasks()[0]->replaceRule != nullptr; }

  CReplaceDialog& OpenReplace() {
    app.Replace().Show();
    replace.CreateModeless(nullptr, loop);
    return replace;
  }

  CReplaceDialog replace{Context()};
};

TEST_F(SettingsDialogs, password_is_masked_and_accepted_only_if_not_empty) {
  const auto dst = boost::make_shared<CDst>(CDst{L"D:\\z", DstType::PASSWORD_ZIP, L"<ID>.zip"});
  CPasswordEntry entry(Archive(), hash, Context().messenger, {dst, dst});
  CPasswordDlg dialog(Context(), entry);
  dialog.CreateModeless(nullptr, loop);
  const std::wstring line = L"D:\\z\\<ID>.zip - パスワード付き zip（ZipCrypto）";
  EXPECT_EQ(dialog.ItemText(IDC_PASSWORD_DSTS), line + L"\r\n" + line);
  EXPECT_EQ(::GetFocus(), dialog.Item(IDC_PASSWORD));
  const auto mask = [&] { return ::SendMessageW(dialog.Item(IDC_PASSWORD), EM_GETPASSWORDCHAR, 0, 0); };
  EXPECT_NE(mask(), 0);
  Click(dialog.Hwnd(), IDC_HIDE_PASSWORD);
  EXPECT_EQ(mask(), 0);
  Click(dialog.Hwnd(), IDOK);
  EXPECT_TRUE(Said(IDS_PASSWORD_EMPTY) && dialog.Hwnd());
  Type(dialog.Hwnd(), IDC_PASSWORD, L"abc");
  Click(dialog.Hwnd(), IDOK);
  EXPECT_FALSE(dialog.Hwnd() || entry.Setting().hidePassword);
  EXPECT_EQ(entry.Setting().password, L"abc");
}

TEST_F(SettingsDialogs, replacement_is_previewed_while_typing_and_committed) {
  Fill();
  Settings().replaceDlg.srcs.Add(L"b2");
  OpenReplace();
  Click(replace.Hwnd(), IDC_REPLACE_TASK_ID);
  Type(replace.Hwnd(), IDC_REPLACE_SRC, L"ab");
  Type(replace.Hwnd(), IDC_REPLACE_DST, L"x");
  EXPECT_EQ(ShownValue(*app.Document().Tasks()[0], kReplaceTaskId), L"x1");
  EXPECT_EQ(replace.ItemText(IDC_REPLACE_COUNTS), L"バックアップタスク 2 件、バックアップ先 0 件");
  Choose(replace.Hwnd(), IDC_REPLACE_SRC, 0);
  EXPECT_EQ(ShownValue(*app.Document().Tasks()[1], kReplaceTaskId), L"ax");

  Click(replace.Hwnd(), IDC_REPLACE_PREVIEW);
  EXPECT_FALSE(IsPreviewed());

  Type(replace.Hwnd(), IDC_REPLACE_SRC, L"ab");
  Click(replace.Hwnd(), IDOK);
  EXPECT_EQ(app.Document().Tasks()[0]->id, L"x1");
  EXPECT_EQ(replace.Hwnd(), nullptr);
  EXPECT_NE(Settings().replaceDlg.rect, my::CRect{});
  replace.Refresh();  // as on a document change
}

// Imitates the system's combo box, which completes its text when its size changes.
LRESULT CALLBACK CompleteText(HWND combo, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  const LRESULT result = ::DefSubclassProc(combo, message, wParam, lParam);
  if (message != WM_SIZE && message != WM_SETFONT) return result;
  const std::wstring text = TextOf(combo);
  const LRESULT found =
      ::SendMessageW(combo, CB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
  if (found >= 0) ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(found), 0);
  return result;
}

TEST_F(SettingsDialogs, typed_replacement_survives_resizing) {
  Fill();
  Settings().replaceDlg.srcs.Add(L"ab12");
  const CReplaceDialog& dialog = OpenReplace();
  ::SetWindowSubclass(dialog.Item(IDC_REPLACE_SRC), CompleteText, 0, 0);
  Type(dialog.Hwnd(), IDC_REPLACE_SRC, L"ab");
  ::SendMessageW(dialog.Item(IDC_REPLACE_SRC), CB_SETEDITSEL, 0, MAKELPARAM(1, 2));
  test::Resize(dialog.Hwnd(), test::Size(dialog.Hwnd()).cx + 50, test::Size(dialog.Hwnd()).cy);
  EXPECT_EQ(TextOf(dialog.Hwnd(), IDC_REPLACE_SRC), L"ab");
  EXPECT_EQ(::SendMessageW(dialog.Item(IDC_REPLACE_SRC), CB_GETEDITSEL, 0, 0), MAKELRESULT(1, 2));
}

TEST_F(SettingsDialogs, refused_replacement_focuses_the_text_at_fault) {
  Fill();
  OpenReplace();
  const auto hasFocus = [&](int id) { return ::IsChild(replace.Item(id), ::GetFocus()) != FALSE; };
  Click(replace.Hwnd(), IDC_REPLACE_TASK_ID);
  Click(replace.Hwnd(), IDC_REPLACE_REGEX);
  Type(replace.Hwnd(), IDC_REPLACE_SRC, L"(a");
  EXPECT_NE(replace.ItemText(IDC_REPLACE_STATUS), L"");
  Click(replace.Hwnd(), IDOK);
  EXPECT_EQ(dialogs.boxes.size(), 1u);
  EXPECT_TRUE(hasFocus(IDC_REPLACE_SRC));
  Type(replace.Hwnd(), IDC_REPLACE_SRC, L".*");
  EXPECT_EQ(replace.ItemText(IDC_REPLACE_STATUS), L"");
  Click(replace.Hwnd(), IDOK);
  EXPECT_TRUE(Said(IDS_ID_EMPTY) && hasFocus(IDC_REPLACE_DST));
  ::DestroyWindow(replace.Hwnd());  // as when the main window is destroyed
  EXPECT_FALSE(app.Replace().IsOpen() || IsPreviewed());
  OpenReplace();
  EXPECT_EQ(replace.ItemText(IDC_REPLACE_SRC), L".*");
  EXPECT_TRUE(replace.IsChecked(IDC_REPLACE_REGEX) && replace.IsChecked(IDC_REPLACE_TASK_ID));
}

struct SettingsSheet : SettingsDialogs {
  void Open() {
    sheet.CreateModeless(nullptr, loop);
    page = test::ChildWith(sheet.Hwnd(), IDC_ARCHIVER_PATH);
  }

  CSettingsSheet sheet{Context(), 0, [](const CDesignSetting&) {}};
  HWND page = nullptr;
};

TEST_F(SettingsSheet, stores_only_when_confirmed) {
  for (const int button : {IDCANCEL, IDC_APPLY, IDOK}) {
    Open();
    EXPECT_FALSE(::IsWindowEnabled(sheet.Item(IDC_APPLY)));
    EXPECT_EQ(::GetWindowLongW(page, GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL), 0) << "there is room for all";
    Type(page, IDC_ARCHIVER_PATH, L" \"C:\\7z.exe\" ");
    Choose(page, IDC_POWER_OFF_TYPE, static_cast<int>(PowerOffType::SLEEP));
    Click(page, IDC_HYBRID_SHUTDOWN);  // has no effect on sleep
    Choose(page, IDC_PASSWORD_TYPE, static_cast<int>(PasswordType::SAVE));
    EXPECT_EQ(TextOf(page, IDC_PASSWORD_DESC), texts.Text(IDS_PASSWORD_DESC_SAVE));
    Type(page, IDC_PASSWORD, L"a b");
    Click(sheet.Hwnd(), button);
    const bool stored = button != IDCANCEL;
    EXPECT_EQ(Said(IDS_PASSWORD_BAD_CHARACTER), stored);
    EXPECT_EQ(Settings().ui.powerOffType, PowerOffType::POWEROFF) << "nothing of the rest, either";
    if (stored) {
      EXPECT_EQ(::GetFocus(), ::GetDlgItem(page, IDC_PASSWORD));
      Type(page, IDC_PASSWORD, L"abc");
      Click(sheet.Hwnd(), button);
      EXPECT_EQ(Settings().ui.powerOffType, PowerOffType::SLEEP);
    }
    EXPECT_EQ(sheet.Hwnd() != nullptr, button == IDC_APPLY);
    if (sheet.Hwnd()) sheet.Close(IDCANCEL);
    EXPECT_EQ(Archive().sevenZipPath, stored ? L"C:\\7z.exe" : L"");
    EXPECT_EQ(Archive().password, stored ? L"abc" : L"");
    EXPECT_TRUE(Settings().ui.hybridShutdown);
    Settings().ui = {};
    Archive() = {};
  }
}

TEST_F(SettingsSheet, control_key_turns_the_pages_from_every_control) {
  Settings().design.textColor = {0x12, 0xAB, 0xFF};
  Open();
  const HWND design = test::ChildWith(sheet.Hwnd(), IDC_BRUSH_TYPE);
  EXPECT_EQ(TextOf(design, IDC_TEXT_COLOR), L"文字の色: #12ABFF");
  const auto turns = [&](std::initializer_list<WORD> keys, HWND shown, HWND focused) {
    return test::PressUntil(loop, sheet.Hwnd(), keys, [&] {
      const bool within = focused == ::GetFocus() || ::IsChild(focused, ::GetFocus());
      return ::IsWindowVisible(shown) && within;
    });
  };
  ::SetFocus(::FindWindowExW(::GetDlgItem(page, IDC_ARCHIVER_PATH), nullptr, L"Edit", nullptr));
  EXPECT_TRUE(turns({VK_CONTROL, VK_TAB}, design, design));
  EXPECT_TRUE(turns({VK_CONTROL, VK_NEXT}, page, page)) << "after the last page the first";
  EXPECT_TRUE(turns({VK_CONTROL, VK_SHIFT, VK_TAB}, design, design));
  const HWND ok = sheet.Item(IDOK);
  ::SetFocus(ok);
  EXPECT_TRUE(turns({VK_CONTROL, VK_PRIOR}, page, ok));
  EXPECT_EQ(TabCtrl_GetCurSel(sheet.Item(IDC_SETTINGS_TAB)), 0);
  EXPECT_TRUE(turns({VK_TAB}, page, sheet.Item(IDCANCEL))) << "Tab alone moves the focus";
}

TEST_F(SettingsSheet, shows_the_version_of_the_archiver) {
  wchar_t program[MAX_PATH]{};
  ::GetModuleFileNameW(nullptr, program, MAX_PATH);
  Archive().sevenZipPath = program;
  Open();
  EXPECT_EQ(TextOf(page, IDC_ARCHIVER_VERSION),
            L"Quillmoor " + my::BuildText().substr(0, my::BuildText().find(L' ')));
  Type(page, IDC_ARCHIVER_PATH, L"C:\\none.exe");
  EXPECT_EQ(TextOf(page, IDC_ARCHIVER_VERSION), L"");
  ::SetFocus(sheet.Item(IDOK));
  EXPECT_EQ(TextOf(page, IDC_ARCHIVER_VERSION), texts.Text(IDS_ARCHIVER_NOT_FOUND));
}

TEST_F(SettingsSheet, about_box_tells_the_version) {
  CAboutDialog about(Context());
  about.CreateModeless(nullptr, loop);
  EXPECT_EQ(about.ItemText(IDC_ABOUT_VERSION), L"バージョン " + my::BuildText());
}

}  // namespace
