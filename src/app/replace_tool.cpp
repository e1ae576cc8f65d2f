#include "app/replace_tool.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <unordered_map>
#include <utility>

#include "app/windows.h"
#include "document/document.h"
#include "settings/settings.h"
#include "text_ids.h"

namespace qlm {
namespace {

// Maps each item to its replacement.
template <class T>
using CExchange = std::unordered_map<const T*, boost::shared_ptr<T>>;

template <class T>
boost::shared_ptr<T> Replacement(const CExchange<T>& exchange, const boost::shared_ptr<T>& item) {
  const auto found = exchange.find(item.get());
  return found == exchange.end() ? nullptr : found->second;
}

template <class T>
CExchange<T> MakeExchange(const CReplaceRule& rule, const std::vector<boost::shared_ptr<T>>& items) {
  CExchange<T> exchange;
  for (const auto& item : items) {
    if (auto replaced = Replaced(rule, *item)) exchange.emplace(item.get(), std::move(replaced));
  }
  return exchange;
}

std::vector<size_t> AffectedRows(const IListState& list, ReplaceRow row) {
  if (row == ReplaceRow::SELECTED) return list.SelectedRows();
  const std::optional<size_t> focused = list.FocusedRow();
  return focused ? std::vector<size_t>{*focused} : std::vector<size_t>{};
}

template <class T>
std::vector<boost::shared_ptr<T>> AffectedItems(const CItemList<T>& items, const IListState& list,
                                                ReplaceRow row) {
  if (row == ReplaceRow::ALL) return {items.begin(), items.end()};
  std::vector<boost::shared_ptr<T>> affected;
  for (const size_t index : AffectedRows(list, row)) {
    if (index < items.size()) affected.push_back(items[index]);
  }
  return affected;
}

// Returns the task with its destinations replaced; the same object if it uses none of them.
CTaskPtr WithDsts(CTaskPtr task, const CExchange<CDst>& dsts) {
  CTaskDsts exchanged = task->dsts;
  for (CDstPtr& dst : exchanged) {
    if (CDstPtr replaced = Replacement(dsts, dst)) dst = std::move(replaced);
  }
  if (exchanged == task->dsts) return task;
  auto copy = boost::make_shared<CTask>(*task);
  copy->dsts = std::move(exchanged);
  return copy;
}

// Builds the lists again, because two items may exchange their values. Unchanged items are not checked with
// CheckTask and CheckDst: those from a file may violate these rules.
CContent Exchanged(const CContent& content, const CExchange<CTask>& tasks, const CExchange<CDst>& dsts) {
  CContent result;
  for (const CTaskPtr& task : content.tasks) {
    const CTaskPtr replaced = Replacement(tasks, task);
    if (replaced) CheckTask(*replaced);
    result.tasks.Append(WithDsts(replaced ? replaced : task, dsts));
  }
  for (const CDstPtr& dst : content.dsts) {
    const CDstPtr replaced = Replacement(dsts, dst);
    if (replaced) CheckDst(*replaced);
    result.dsts.Append(replaced ? replaced : dst);
  }
  return result;
}

DocChangeEventFlags ChangeOf(const CExchange<CTask>& tasks, const CExchange<CDst>& dsts) {
  const auto ofTasks = tasks.empty() ? DocChangeEventFlags{} : DocChangeEventFlags::CHNAGE_TASKS;
  const auto ofDsts = dsts.empty() ? DocChangeEventFlags{} : DocChangeEventFlags::CHNAGE_DSTS;
  return ofTasks | ofDsts;
}

}  // namespace

CReplaceTool::~CReplaceTool() {
  Detach();
}

void CReplaceTool::Show() {
  if (m_open) return m_dialogs.FocusReplace();
  m_open = true;
  try {
    Refresh(m_setting.replace);
    m_dialogs.OpenReplace();
  } catch (...) {
    Cancel(m_setting.replace);
    throw;
  }
}

void CReplaceTool::Refresh(CReplaceOptions options) {
  Detach();
  m_options = std::move(options);
  m_tasks = AffectedItems(m_document.Tasks(), m_window.TaskList(), m_options.row);
  m_dsts = AffectedItems(m_document.Dsts(), m_window.DstList(), m_options.row);
  m_rule = CReplaceRule();
  m_error.reset();
  try {
    m_rule = CReplaceRule(m_options);
    // Tries all items, so that an expression that is too complex is found now and not on every drawing.
    MakeExchange(m_rule, m_tasks);
    MakeExchange(m_rule, m_dsts);
  } catch (const my::CException& failure) {
    m_error = failure;
  }
  Attach();
  m_window.RedrawLists();
}

void CReplaceTool::Commit(CReplaceOptions options) {
  Refresh(std::move(options));
  if (m_error) throw my::CException(*m_error);
  Detach();  // items with and without a rule are never equal
  const auto tasks = MakeExchange(m_rule, m_tasks);
  const auto dsts = MakeExchange(m_rule, m_dsts);
  CContent result;
  try {
    result = Exchanged(m_document.Content(), tasks, dsts);
  } catch (const my::CException&) {
    Attach();
    throw;
  }
  Close();
  if (!m_options.src.empty()) m_setting.srcs.Add(m_options.src);
  m_setting.dsts.Add(m_options.dst);
  if (!tasks.empty() || !dsts.empty()) {
    m_document.Edit(IDS_EDIT_REPLACE, ChangeOf(tasks, dsts), [&result](CContent& content) {
      content = std::move(result);
      return true;
    });
  }
  m_window.RedrawLists();
}

void CReplaceTool::Cancel(CReplaceOptions options) {
  m_options = std::move(options);
  Close();
  m_window.RedrawLists();
}

void CReplaceTool::Attach() {
  if (!m_options.preview || m_error) return;
  for (const CTaskPtr& task : m_tasks) task->replaceRule = &m_rule;
  for (const CDstPtr& dst : m_dsts) dst->replaceRule = &m_rule;
}

void CReplaceTool::Detach() noexcept {
  for (const CTaskPtr& task : m_tasks) task->replaceRule = nullptr;
  for (const CDstPtr& dst : m_dsts) dst->replaceRule = nullptr;
}

void CReplaceTool::Close() {
  Detach();
  m_tasks.clear();
  m_dsts.clear();
  m_setting.replace = m_options;
  m_open = false;
}

}  // namespace qlm
