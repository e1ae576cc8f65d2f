#include "control_ids.h"
#include "gui/dialog_app.h"
#include "ui/dialogs/schedule_dialog.h"
#include "ui/dialogs/schedule_edit_dialog.h"

namespace {

using namespace qlm;
using test::Click;

const std::wstring kDocument = L"C:\\work\\家計.qlmr";

struct ScheduleDialogs : testing::Test, test::CDialogAppOn<test::CMemoryFileSystem> {
  ScheduleDialogs() {
    for (const std::wstring& path : {kDocument, RunnerPath()}) files.AddFile(path, "x");
    openDocument.SetSaved(kDocument);
  }

  std::wstring RunnerPath() const { return my::JoinPath(folders.ProgramFolder(), L"QuillmoorRun.exe"); }

  static void Choose(const my::CDialog& dialog, ScheduleKind kind) {
    const HWND combo = dialog.Item(IDC_SCHEDULE_KIND);
    ::SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(kind), 0);
    ::SendMessageW(dialog.Hwnd(), WM_COMMAND, MAKEWPARAM(IDC_SCHEDULE_KIND, CBN_SELCHANGE), 0);
  }

  std::wstring Cell(const my::CDialog& dialog, int row, int column) const {
    return test::CellOf(dialog.Item(IDC_SCHEDULE_LIST), row, column);
  }

  CSchedules schedules = MakeSchedules(app.Context().ports);
  CColumnsDlgSetting setting;
};

TEST_F(ScheduleDialogs, edited_schedule_is_confirmed_and_refusals_keep_the_dialog) {
  std::optional<CSchedule> confirmed;
  CScheduleEditDialog dialog(app.Context(), {ScheduleKind::Daily, {2020, 2, 29, 21, 5, 0}},
                             [&](const CSchedule& schedule) { confirmed = schedule; });
  dialog.CreateModeless(nullptr, loop);
  Choose(dialog, ScheduleKind::Once);
  Click(dialog.Hwnd(), IDOK);
  EXPECT_TRUE(Said(IDS_SCHEDULE_PAST));
  Choose(dialog, ScheduleKind::Weekly);
  Click(dialog.Hwnd(), IDOK);
  EXPECT_TRUE(Said(IDS_SCHEDULE_NO_WEEKDAY));
  dialog.SetChecked(IDC_SCHEDULE_FRIDAY, true);
  dialog.SetChecked(IDC_SCHEDULE_BATTERY, false);
  Click(dialog.Hwnd(), IDOK);
  EXPECT_FALSE(dialog.Hwnd());
  EXPECT_EQ(confirmed, (CSchedule{ScheduleKind::Weekly, {2020, 2, 29, 21, 5, 0}, 0b0100000, true, false}));
}

TEST_F(ScheduleDialogs, moved_document_is_mended_and_an_unwanted_schedule_removed) {
  schedules.Add(L"C:\\old\\家計.qlmr", {ScheduleKind::Logon});
  schedules.Add(kDocument, {ScheduleKind::Idle});
  CScheduleDialog dialog(app.Context(), setting, true);
  dialog.CreateModeless(nullptr, loop);
  EXPECT_EQ(Cell(dialog, 0, CScheduleListModel::State), texts.Text(IDS_SCHEDULE_NO_DOCUMENT));
  dialogs.paths = {kDocument};
  Click(dialog.Hwnd(), IDC_SCHEDULE_MEND);
  EXPECT_EQ(SchedulesOf(schedules.All(), kDocument).size(), 2U);
  EXPECT_EQ(Cell(dialog, 0, CScheduleListModel::State), texts.Text(IDS_SCHEDULE_NEVER_RUN));
  EXPECT_FALSE(::IsWindowEnabled(dialog.Item(IDC_SCHEDULE_MEND)));
  dialogs.buttons = {true};
  Click(dialog.Hwnd(), IDC_SCHEDULE_REMOVE);
  ASSERT_EQ(schedules.All().size(), 1U);
  EXPECT_EQ(Cell(dialog, 0, CScheduleListModel::When), texts.Text(IDS_SCHEDULE_IDLE));
}

}  // namespace
