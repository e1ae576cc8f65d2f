#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "history/task_history.h"

namespace my {
class IClock;
class IMessageTexts;
}  // namespace my

namespace qlm {

class CDocument;

// When the tasks of the open document succeeded last, according to the history. An untitled document has no
// history.
class CLastSuccess {
 public:
  // The arguments must outlive the object.
  CLastSuccess(const CDocument& document, const my::IMessageTexts& texts, const my::IClock& clock)
      : m_document(document), m_texts(texts), m_clock(clock) {}

  // Uses the history from now on.
  void Use(CTaskHistories histories);

  // Returns the time, the text that the task never succeeded, or an empty text if it never ran.
  std::wstring Text(const std::wstring& taskId) const;

  // Returns what to tell about a task that has not succeeded for seven days; empty for other tasks.
  std::wstring OverdueText(const std::wstring& taskId) const;

 private:
  const CTaskHistory* Find(const std::wstring& taskId) const;

  const CDocument& m_document;
  const my::IMessageTexts& m_texts;
  const my::IClock& m_clock;
  CTaskHistories m_histories;

  // The tasks of one document by id, because the lists ask for them whenever they draw.
  mutable std::wstring m_path;
  mutable std::unordered_map<std::wstring, CTaskHistory> m_tasks;
};

}  // namespace qlm
