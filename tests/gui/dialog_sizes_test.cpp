// Every dialog in both languages at the text sizes of the system, on the screen that the test is given.

#include <array>
#include <string>
#include <vector>

#include "control_ids.h"
#include "gui/dialog_app.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/dialogs/closing_dialog.h"
#include "ui/dialogs/dst_dialog.h"
#include "ui/dialogs/filter_dialog.h"
#include "ui/dialogs/history_dialog.h"
#include "ui/dialogs/password_dialog.h"
#include "ui/dialogs/plan_dialog.h"
#include "ui/dialogs/replace_dialog.h"
#include "ui/dialogs/result_dialog.h"
#include "ui/dialogs/schedule_dialog.h"
#include "ui/dialogs/schedule_edit_dialog.h"
#include "ui/dialogs/settings_sheet.h"
#include "ui/dialogs/target_dialog.h"
#include "ui/dialogs/task_dialog.h"
#include "ui/framework/controls.h"
#include "ui/framework/window_placement.h"
#include "wine/test_language.h"

namespace {

using namespace qlm;
using my::ClassOf;

UINT TypeOf(HWND control, UINT mask) {
  return static_cast<UINT>(::GetWindowLongW(control, GWL_STYLE)) & mask;
}

bool IsGroupBox(HWND control) {
  return ClassOf(control) == WC_BUTTONW && TypeOf(control, BS_TYPEMASK) == BS_GROUPBOX;
}

// Returns the visible controls of the window and of the pages in it, without the parts of a control.
std::vector<HWND> ControlsIn(HWND window) {
  std::vector<HWND> controls;
  for (HWND at = ::GetWindow(window, GW_CHILD); at; at = ::GetWindow(at, GW_HWNDNEXT)) {
    if (!::IsWindowVisible(at)) continue;
    const bool isPage = ClassOf(at) == L"#32770";
    if (!isPage) controls.push_back(at);
    for (const HWND inner : isPage ? ControlsIn(at) : std::vector<HWND>()) controls.push_back(inner);
  }
  return controls;
}

std::string NameOf(HWND control) {
  std::string text;
  for (const wchar_t c : my::TextOf(control)) text += c < 128 ? static_cast<char>(c) : '?';
  return "control " + std::to_string(::GetDlgCtrlID(control)) + " \"" + text + '"';
}

// Returns the size that the text of a label, button or drop-down list needs within this width.
SIZE NeededSize(HWND control, LONG width) {
  const bool isLabel = ClassOf(control) == WC_STATICW;
  const my::CWindowDc dc(nullptr);
  const my::CSelect font(dc.Get(), reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0)));
  UINT format = isLabel && (::GetWindowLongW(control, GWL_STYLE) & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0U;
  const bool wraps = isLabel && TypeOf(control, SS_EDITCONTROL) != 0;
  format |= wraps ? DT_WORDBREAK | DT_EDITCONTROL : DT_SINGLELINE;
  RECT needed{0, 0, width, 0};
  ::DrawTextW(dc.Get(), my::TextOf(control).c_str(), -1, &needed, format | DT_CALCRECT);
  return {needed.right, needed.bottom};
}

bool ShowsText(HWND control) {
  const std::wstring name = ClassOf(control);
  return name == WC_STATICW || (name == WC_BUTTONW && TypeOf(control, BS_TYPEMASK) != BS_OWNERDRAW) ||
         (name == WC_COMBOBOXW && TypeOf(control, 3) == CBS_DROPDOWNLIST);
}

void ExpectTextFits(HWND control) {
  if (!ShowsText(control) || IsGroupBox(control)) return;
  const SIZE size = test::Size(control);
  const bool isPush = ClassOf(control) == WC_BUTTONW && TypeOf(control, BS_TYPEMASK) <= BS_DEFPUSHBUTTON;
  const LONG around = ClassOf(control) == WC_STATICW ? 0 : isPush ? 6 : 16;  // border, box or arrow
  const SIZE needed = NeededSize(control, size.cx);
  const bool isPath = ClassOf(control) == WC_STATICW && TypeOf(control, SS_ELLIPSISMASK) == SS_PATHELLIPSIS;
  EXPECT_TRUE(isPath || needed.cx + around <= size.cx) << NameOf(control);
  EXPECT_LE(needed.cy, size.cy) << NameOf(control);
}

void ExpectNoOverlaps(const std::vector<HWND>& controls) {
  for (size_t i = 0; i < controls.size(); ++i) {
    for (size_t j = i + 1; j < controls.size(); ++j) {
      const RECT a = test::Bounds(controls[i]);
      const RECT b = test::Bounds(controls[j]);
      RECT common{};
      const bool isTab = ClassOf(controls[i]) == WC_TABCONTROLW || ClassOf(controls[j]) == WC_TABCONTROLW;
      if (isTab || IsGroupBox(controls[i]) || IsGroupBox(controls[j])) continue;
      EXPECT_FALSE(::IntersectRect(&common, &a, &b)) << NameOf(controls[i]) << ", " << NameOf(controls[j]);
    }
  }
}

testing::AssertionResult IsInside(const my::CRect& inner, const my::CRect& outer) {
  if (inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
      inner.bottom <= outer.bottom)
    return testing::AssertionSuccess();
  const auto text = [](const my::CRect& rect) {
    return testing::PrintToString(std::array{rect.left, rect.top, rect.right, rect.bottom});
  };
  return testing::AssertionFailure() << text(inner) << " exceeds " << text(outer);
}

// Expects that a control is visible in all windows around it when it has the focus.
void ExpectReachable(HWND dialog, HWND control) {
  if ((::GetWindowLongW(control, GWL_STYLE) & WS_TABSTOP) == 0 || !::IsWindowEnabled(control)) return;
  ::SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
  const my::CRect bounds = my::WindowBounds(control);
  EXPECT_TRUE(IsInside(bounds, my::WorkArea(dialog))) << NameOf(control);
  for (HWND around = ::GetParent(control); around;
       around = around == dialog ? nullptr : ::GetParent(around)) {
    RECT client{};
    ::GetClientRect(around, &client);
    ::MapWindowPoints(around, nullptr, reinterpret_cast<POINT*>(&client), 2);
    EXPECT_TRUE(IsInside(bounds, my::FromRect(client))) << NameOf(control);
  }
}

void ExpectUsable(HWND dialog) {
  EXPECT_TRUE(IsInside(my::WindowBounds(dialog), my::WorkArea(dialog)));
  const std::vector<HWND> controls = ControlsIn(dialog);
  EXPECT_GT(controls.size(), 1u);
  for (const HWND control : controls) {
    ExpectTextFits(control);
    EXPECT_TRUE(ClassOf(control) != WC_LISTVIEWW || test::TitlesFit(control));
    ExpectReachable(dialog, control);
  }
  ExpectNoOverlaps(controls);
}

struct CShown {
  int percent;
  my::UiLanguage language;
};

struct DialogSizes : testing::TestWithParam<CShown>, test::CDialogAppOn<test::CMemoryFileSystem> {
  DialogSizes() {
    size.Set(GetParam().percent);
    Settings().archive.passwordType = PasswordType::SAVE;
    files.AddFile(L"C:\\work.flt", "- [.]bak$\r\n- (\r\n");
  }

  void Expect(my::CDialog&& dialog) {
    dialog.CreateModeless(nullptr, loop);
    ExpectUsable(dialog.Hwnd());
    dialog.Close(IDCANCEL);
  }

  // A row with long texts: an error and a folder that could not be read.
  CResultPtr MakeResult() {
    const auto result = boost::make_shared<CResult>();
    const std::wstring longPath = L"C:\\Users\\someone\\OneDrive - Contoso\\Documents\\2026\\reports";
    result->task = boost::make_shared<CTask>(CTask{L"work", longPath, L"", {}});
    const auto targets = boost::make_shared<CTargets>(nullptr);
    targets->AddUnlisted(L"secret", my::CSystemError::FromWin32(my::kErrorAccessDenied));
    result->targets = targets;
    result->error = my::TrapError(texts, [&] { throw my::CException(IDS_PATH_EMPTY); });
    result->destinationPath = longPath + L"\\work_1";
    return result;
  }

  test::CTestLanguage language{GetParam().language};
  test::CTextSize size;
  CDst dst{L"\\\\server\\share\\backup of all", DstType::AES_256_ZIP, L"<ID>_<Y>.zip"};
};

TEST_P(DialogSizes, dialogs_of_items_fit_the_screen) {
  InsertDst(app.Document(), -1, dst);
  Expect(CTaskDialog(Context(), {L"work", L"C:\\src", L"C:\\work.flt", {}}, [](const CTask&) {}));
  Expect(CDstDialog(Context(), dst, [](const CDst&) {}));
}

TEST_P(DialogSizes, lists_fit_the_screen) {
  Expect(CFilterDialog(Context(), L"C:\\work.flt", L""));
  Expect(CTargetDialog(Context(), MakeResult()));
  CResultListModel rows{Settings().ui, texts, clock};
  rows.ShowResults(0, {MakeResult()});
  Expect(CResultDialog(Context(), rows));
  CColumnsDlgSetting setting;
  Expect(CHistoryDialog(Context(), setting, [] {}));
  InsertDst(app.Document(), -1, dst);
  InsertTask(app.Document(), -1, {L"work", L"C:\\src", L"", {app.Document().Dsts()[0]}});
  CColumnsDlgSetting planSetting;
  CPlanDialog plan(Context(), planSetting);
  plan.Start(MakePlanRequest(Context(), {}), {});
  Expect(std::move(plan));
}

TEST_P(DialogSizes, tools_fit_the_screen) {
  CPasswordEntry entry(Settings().archive, hash, Context().messenger);
  Expect(CPasswordDlg(Context(), entry));
  app.Replace().Show();
  Expect(CReplaceDialog(Context()));
  Expect(CClosingDialog());
  Expect(CAboutDialog(Context()));
}

TEST_P(DialogSizes, schedules_fit_the_screen) {
  CColumnsDlgSetting setting;
  Expect(CScheduleDialog(Context(), setting, true));
  Expect(CScheduleEditDialog(Context(), {ScheduleKind::Weekly, {2026, 2, 28, 21, 5, 0}}, {}));
}

TEST_P(DialogSizes, settings_pages_fit_the_screen) {
  for (const size_t page : {0u, 1u}) {
    Expect(CSettingsSheet(Context(), page, [](const CDesignSetting&) {}));
  }
}

TEST_P(DialogSizes, open_dialog_follows_the_text_size) {
  CAboutDialog about(Context());
  about.CreateModeless(nullptr, loop);
  const SIZE before = test::Size(about.Item(IDC_ABOUT_PURPOSE));
  size.Set(2 * GetParam().percent);
  ::SendMessageW(about.Hwnd(), WM_SETTINGCHANGE, 0, 0);
  EXPECT_GT(test::Size(about.Item(IDC_ABOUT_PURPOSE)).cx, before.cx * 3 / 2);
  ExpectUsable(about.Hwnd());
}

using my::UiLanguage;
INSTANTIATE_TEST_SUITE_P(Percent, DialogSizes,
                         testing::Values(CShown{100, UiLanguage::Japanese}, CShown{150, UiLanguage::Japanese},
                                         CShown{225, UiLanguage::Japanese}, CShown{100, UiLanguage::English},
                                         CShown{225, UiLanguage::English}),
                         [](const auto& shown) {
                           const bool isEnglish = shown.param.language == UiLanguage::English;
                           return std::to_string(shown.param.percent) + (isEnglish ? "_english" : "");
                         });

}  // namespace
