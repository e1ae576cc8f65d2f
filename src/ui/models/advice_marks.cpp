#include "ui/models/advice_marks.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/message_texts.h"
#include "support/strings.h"
#include "ui/models/plan_advice_model.h"

namespace qlm {

CAdviceMarks::CAdviceMarks(const my::IMessageTexts& texts, CContent content, std::vector<CAdvice> findings)
    : m_content(std::move(content)) {
  std::ranges::stable_sort(findings, std::greater(), &CAdvice::severity);
  for (const CAdvice& finding : findings) {
    const std::wstring line = my::OneLine(AdviceLine(texts, finding));
    if (finding.task) Add(m_content.tasks[*finding.task].get(), finding.severity, line);
    if (finding.dst) Add(m_content.dsts[*finding.dst].get(), finding.severity, line);
  }
}

const CAdviceMark* CAdviceMarks::Find(const void* item) const {
  const auto found = m_marks.find(item);
  return found == m_marks.end() ? nullptr : &found->second;
}

// A destination has the same finding for each task that uses it.
void CAdviceMarks::Add(const void* item, AdviceSeverity severity, const std::wstring& line) {
  CAdviceMark& mark = m_marks[item];
  if (mark.text.find(line) != mark.text.npos) return;
  mark.severity = std::max(mark.severity, severity);
  mark.text += (mark.text.empty() ? L"" : L"\n") + line;
}

int IconOf(const CAdviceMark* mark) {
  const auto state = mark ? StateOf(mark->severity) : std::nullopt;
  return state ? static_cast<int>(*state) : -1;
}

}  // namespace qlm
