#include "ui/models/last_success.h"

#include <utility>

#include "document/document.h"
#include "platform/clock.h"
#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/history_models.h"

namespace qlm {

void CLastSuccess::Use(CTaskHistories histories) {
  m_histories = std::move(histories);
  m_path.clear();
}

std::wstring CLastSuccess::Text(const std::wstring& taskId) const {
  const CTaskHistory* task = Find(taskId);
  return task ? LastSuccessText(m_texts, m_clock, *task) : std::wstring();
}

std::wstring CLastSuccess::OverdueText(const std::wstring& taskId) const {
  const CTaskHistory* task = Find(taskId);
  return task && IsOverdue(*task, m_clock.Now()) ? m_texts.Text(IDS_HISTORY_OVERDUE) : std::wstring();
}

const CTaskHistory* CLastSuccess::Find(const std::wstring& taskId) const {
  const std::wstring& path = m_document.Path();
  if (path.empty()) return nullptr;
  if (m_path != path) {
    m_path = path;
    m_tasks.clear();
    for (const auto& [key, task] : m_histories) {
      if (my::EqualNoCase(key.document, path)) m_tasks.emplace(key.taskId, task);
    }
  }
  const auto found = m_tasks.find(taskId);
  return found == m_tasks.end() ? nullptr : &found->second;
}

}  // namespace qlm
