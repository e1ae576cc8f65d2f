#include "ui/models/task_list_model.h"

#include <algorithm>
#include <utility>

#include "document/document.h"
#include "replace/replace_rule.h"
#include "settings/settings.h"
#include "text_ids.h"
#include "ui/models/last_success.h"

namespace qlm {
namespace {

constexpr bool kNotStored = false;  // the settings file has no place for the width

constexpr CColumnSpec kColumns[] = {{IDS_COL_TASK_ID, 120},
                                    {IDS_COL_TASK_PATH, 230},
                                    {IDS_COL_TASK_FILTER, 150},
                                    {IDS_COL_TASK_DSTS, 64},
                                    {IDS_COL_LAST_SUCCESS, 136, my::ListAlign::Left, kNotStored},
                                    {IDS_COL_TASK_STATE, 230}};

// Lower is more urgent: if a task has rows in several states, the most urgent one is shown.
int Urgency(ResultState state) {
  switch (state) {
    case ResultState::Failed: return 0;
    case ResultState::Running: return 1;
    case ResultState::Incomplete: return 2;
    case ResultState::Created: return 3;
    case ResultState::NotUpdated: break;
  }
  return 4;
}

}  // namespace

CTaskListModel::CTaskListModel(const CDocument& document, const CUISetting& setting,
                               const my::IMessageTexts& texts)
    : CTableModel(texts, kColumns), m_document(document), m_setting(setting) {
  Refresh();
}

bool CTaskListModel::Refresh() {
  std::unordered_map<const CDst*, size_t> numbers;
  for (const CDstPtr& dst : m_document.Dsts()) numbers.emplace(dst.get(), numbers.size() + 1);
  const bool changed = std::any_of(m_dstNumbers.begin(), m_dstNumbers.end(), [&numbers](const auto& old) {
    const auto found = numbers.find(old.first);
    return found != numbers.end() && found->second != old.second;
  });
  m_dstNumbers = std::move(numbers);
  return changed;
}

void CTaskListModel::ShowResults(const CResults& rows) {
  const CResult* worst = nullptr;
  for (const CResultPtr& row : rows) {
    if (!worst || Urgency(StateOf(*row)) < Urgency(StateOf(*worst))) worst = row.get();
  }
  if (worst)
    m_states[worst->task->id] = {StateOf(*worst), RowText(m_texts, *worst), RowDetail(m_texts, *worst)};
}

size_t CTaskListModel::RowCount() const {
  return m_document.Tasks().size();
}

std::wstring CTaskListModel::Text(size_t row, size_t column) const {
  const CTask& task = *m_document.Tasks()[row];
  switch (column) {
    case Id: return ShownValue(task, kReplaceTaskId);
    case Path: return ShownValue(task, kReplaceTaskPath);
    case Filter: return ShownValue(task, kReplaceTaskFilter);
    case Dsts: return DstNumbers(task);
    case LastSuccess: return m_lastSuccess ? m_lastSuccess->Text(task.id) : std::wstring();
    default: break;
  }
  const CState* state = FindState(row);
  return state ? state->text : OverdueText(row);
}

my::CListLook CTaskListModel::Look(size_t row) const {
  const CState* state = FindState(row);
  if (state) return StateLook(m_setting, state->state);
  return OverdueText(row).empty() ? my::CListLook{} : StateLook(m_setting, ResultState::Incomplete);
}

my::CListLook CTaskListModel::CellLook(size_t row, size_t column) const {
  my::CListLook look = CTableModel::CellLook(row, column);
  if (column == Id) look.icon = IconOf(m_marks->Find(m_document.Tasks()[row]));
  return look;
}

std::wstring CTaskListModel::Tip(size_t row) const {
  const CState* state = FindState(row);
  const CAdviceMark* mark = m_marks->Find(m_document.Tasks()[row]);
  std::wstring tip = state ? state->tip : OverdueText(row);
  if (!mark) return tip;
  return tip.empty() ? mark->text : tip + L"\n" + mark->text;
}

// A task without destinations is not run, so it is never overdue.
std::wstring CTaskListModel::OverdueText(size_t row) const {
  const CTask& task = *m_document.Tasks()[row];
  return m_lastSuccess && !task.dsts.empty() ? m_lastSuccess->OverdueText(task.id) : std::wstring();
}

std::wstring CTaskListModel::DstNumbers(const CTask& task) const {
  std::wstring numbers;
  for (const CDstPtr& dst : task.dsts) {
    const auto found = m_dstNumbers.find(dst.get());
    if (found == m_dstNumbers.end()) continue;  // the document has changed, and Refresh follows
    numbers += (numbers.empty() ? L"" : L", ") + std::to_wstring(found->second);
  }
  return numbers;
}

const CTaskListModel::CState* CTaskListModel::FindState(size_t row) const {
  const auto found = m_states.find(m_document.Tasks()[row]->id);
  return found == m_states.end() ? nullptr : &found->second;
}

}  // namespace qlm
