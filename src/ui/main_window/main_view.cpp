#include "ui/main_window/main_view.h"

#include "command_ids.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "text_ids.h"
#include "ui/models/next_step.h"

namespace qlm {
namespace {

const CPaneSpec kTaskPane{IDS_PANE_TASKS,
                          IDS_EMPTY_HINT,
                          {{ID_TASK_ADD, IDS_FIRST_TASK}, {ID_FIRST_BACKUP, IDS_FIRST_BACKUP}},
                          {{ID_TASK_ADD, IDS_BUTTON_ADD},
                           {ID_TASK_EDIT, IDS_BUTTON_EDIT},
                           {ID_TASK_DUPLICATE, IDS_BUTTON_DUPLICATE},
                           {ID_TASK_DELETE, IDS_BUTTON_DELETE},
                           {ID_TASK_UP, IDS_BUTTON_UP},
                           {ID_TASK_DOWN, IDS_BUTTON_DOWN},
                           {ID_TASK_TARGETS, IDS_BUTTON_TEST},
                           {ID_EXPLORER_SRC, IDS_BUTTON_OPEN_SOURCE}}};
const CPaneSpec kDstPane{IDS_PANE_DSTS,
                         IDS_EMPTY_DSTS_HINT,
                         {{ID_DST_ADD, IDS_FIRST_DST}},
                         {{ID_DST_ADD, IDS_BUTTON_ADD},
                          {ID_DST_EDIT, IDS_BUTTON_EDIT},
                          {ID_DST_DUPLICATE, IDS_BUTTON_DUPLICATE},
                          {ID_DST_DELETE, IDS_BUTTON_DELETE},
                          {ID_DST_UP, IDS_BUTTON_UP},
                          {ID_DST_DOWN, IDS_BUTTON_DOWN},
                          {ID_EXPLORER_DST, IDS_BUTTON_OPEN_DESTINATION}}};

void SelectFirst(my::CListView& list, bool empty) {
  list.Select(empty ? std::vector<size_t>() : std::vector<size_t>{0});
  if (!empty) list.SetFocused(0);
}

}  // namespace

CMainView::CMainView(const CDocument& document, const CUISetting& setting, const my::IMessageTexts& texts)
    : m_document(document),
      m_texts(texts),
      m_taskModel(document, setting, texts),
      m_dstModel(document, texts),
      m_taskList(document.Tasks(), m_taskModel, m_background),
      m_dstList(document.Dsts(), m_dstModel, m_background),
      m_tasks(texts, m_taskList, m_background),
      m_dsts(texts, m_dstList, m_background),
      m_described(&m_tasks) {}

void CMainView::CreateIn(HWND parent) {
  m_splitter.CreateIn(parent, IDC_SPLITTER, m_texts.Text(IDS_SPLITTER));
  m_splitter.onFocus = [this](HWND from) { RememberCurrent(from); };
  m_background.SetView(m_splitter.Hwnd(), [this] {
    std::vector<CRoom> rooms;
    m_tasks.AddRooms(rooms, Hwnd(), true);
    m_dsts.AddRooms(rooms, Hwnd(), false);
    return rooms;
  });
  m_tasks.CreateIn(m_splitter.Hwnd(), IDC_TASK_PANE, IDC_TASK_LIST, my::CListView::Boxes::No, kTaskPane);
  m_dsts.CreateIn(m_splitter.Hwnd(), IDC_DST_PANE, IDC_DST_LIST, my::CListView::Boxes::Yes, kDstPane);
  m_splitter.SetPanes(m_tasks.Hwnd(), m_dsts.Hwnd());
  for (CListPane* pane : {&m_tasks, &m_dsts}) {
    pane->onAttention = [this, pane] { Describe(*pane); };
    pane->onArranged = [this] { m_background.UpdatePlace(); };
  }
}

void CMainView::Show() {
  m_tasks.Prepare();
  m_dsts.Prepare();
  ::ShowWindow(Hwnd(), SW_SHOWNA);
}

void CMainView::RememberCurrent(HWND focus) {
  if (::IsChild(m_tasks.Hwnd(), focus)) m_dstsCurrent = false;
  if (::IsChild(m_dsts.Hwnd(), focus)) m_dstsCurrent = true;
}

CListPane& CMainView::Current() {
  RememberCurrent(::GetFocus());
  return m_dstsCurrent ? m_dsts : m_tasks;
}

void CMainView::FocusOther() {
  (TasksAreCurrent() ? m_dsts : m_tasks).SetFocus();
}

void CMainView::OnDocumentChanged(DocChangeEventFlags what) {
  const bool reset = Has(what, DocChangeEventFlags::RESET);
  const bool tasks = reset || Has(what, DocChangeEventFlags::CHNAGE_TASKS);
  const bool dsts = reset || Has(what, DocChangeEventFlags::CHNAGE_DSTS);
  if (!tasks && !dsts) return;
  if (reset) m_taskModel.ClearResults();
  // The task list shows the numbers of destinations.
  const bool numbers = dsts && m_taskModel.Refresh();
  if (tasks || numbers) m_taskList.Refresh();
  if (reset) SelectFirst(m_taskList, m_document.Tasks().empty());
  RefreshUses(dsts);
  if (reset) SelectFirst(m_dstList, m_document.Dsts().empty());
  if (tasks) m_tasks.ShowHint(m_document.Tasks().empty());
  if (dsts) m_dsts.ShowHint(m_document.Dsts().empty());
  UpdateDescription();
}

void CMainView::OnTaskSelection() {
  RefreshUses(false);
  UpdateDescription();
}

// Shows which destinations the selected tasks use. Unless `always` is set, redraws only if that has changed.
void CMainView::RefreshUses(bool always) {
  const bool changed = m_dstModel.Refresh(m_taskList.Selection());
  if (always || changed) m_dstList.Refresh();
}

void CMainView::EnableButtons(const std::function<bool(int id)>& isEnabled) const {
  for (const CListPane* pane : {&m_tasks, &m_dsts}) {
    for (const CPaneButton& button : pane->Buttons()) pane->EnableButton(button.id, isEnabled(button.id));
  }
}

void CMainView::Redraw() {
  m_tasks.List().Refresh();
  m_dsts.List().Refresh();
}

void CMainView::ShowAdvice(const std::shared_ptr<const CAdviceMarks>& marks) {
  m_taskModel.ShowAdvice(marks);
  m_dstModel.ShowAdvice(marks);
  Redraw();
}

void CMainView::ShowDesign(const CDesignSetting& design) {
  m_showDescription = design.showDesc;
  UpdateDescription();
  try {
    m_background.SetDesign(design);
  } catch (...) {
    UseBackground();
    throw;
  }
  UseBackground();
}

void CMainView::OnSystemChanged() {
  m_background.OnSystemChanged();
  UseBackground();
}

void CMainView::UseBackground() {
  m_splitter.drawBehind = nullptr;
  if (!m_background.IsPlain())
    m_splitter.drawBehind = [this](HDC dc, HWND bar, const RECT& area) { m_background.Draw(dc, bar, area); };
  ::InvalidateRect(m_splitter.Bar(), nullptr, FALSE);
  m_tasks.UseBackground();
  m_dsts.UseBackground();
}

void CMainView::Describe(CListPane& pane) {
  if (m_described == &pane) return;
  m_described = &pane;
  UpdateDescription();
}

void CMainView::ShowRunning(bool running) {
  m_running = running;
  UpdateDescription();
}

void CMainView::UpdateDescription() {
  std::wstring text;
  if (m_showDescription) {
    const uint32_t what = m_described == &m_tasks ? IDS_DESCRIPTION_TASKS : IDS_DESCRIPTION_DSTS;
    const my::CMsgArg parts[] = {my::CTextId{what},
                                 my::CTextId{NextStep(m_document, m_tasks.List().Selection(), m_running)}};
    text = my::MakeText(m_texts, IDS_DESCRIPTION, parts);
  }
  m_dsts.ShowDescription(text);
  m_background.UpdatePlace();
}

void CMainView::ApplySettings(const CMainFrameSetting& setting) {
  m_tasks.List().SetWidths(setting.tasksColumnWidthes);
  m_dsts.List().SetWidths(setting.dstsColumnWidthes);
  if (setting.tasksFixSize > 0) m_splitter.SetUpper(setting.tasksFixSize);
}

void CMainView::StoreSettings(CMainFrameSetting& setting) const {
  setting.tasksColumnWidthes = m_tasks.List().Widths();
  setting.dstsColumnWidthes = m_dsts.List().Widths();
  setting.tasksFixSize = m_splitter.Upper();
}

}  // namespace qlm
