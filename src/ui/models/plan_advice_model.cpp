#include "ui/models/plan_advice_model.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr CColumnSpec kColumns[] = {
    {IDS_COL_ADVICE_SEVERITY, 100}, {IDS_COL_ADVICE_ITEM, 180}, {IDS_COL_ADVICE_TEXT, 520}};

}  // namespace

CPlanAdviceModel::CPlanAdviceModel(const CUISetting& setting, const my::IMessageTexts& texts)
    : CTableModel(texts, kColumns), m_setting(setting) {}

void CPlanAdviceModel::Begin(CContent content) {
  m_findings.clear();
  m_content = std::move(content);
}

void CPlanAdviceModel::Add(const std::vector<CAdvice>& findings) {
  m_findings.insert(m_findings.end(), findings.begin(), findings.end());
  std::ranges::stable_sort(m_findings, std::greater(), &CAdvice::severity);
}

void CPlanAdviceModel::Remove(const CAdvice& leftover) {
  std::erase_if(m_findings, [&](const CAdvice& finding) { return finding.path == leftover.path; });
}

std::wstring CPlanAdviceModel::Text(size_t row, size_t column) const {
  constexpr uint32_t kSeverities[] = {IDS_SEVERITY_HINT, IDS_SEVERITY_WARNING, IDS_PLAN_ERROR};
  const CAdvice& finding = m_findings[row];
  if (column == Severity) return m_texts.Text(kSeverities[static_cast<size_t>(finding.severity)]);
  if (column == Message) return my::OneLine(finding.text);
  if (finding.task && finding.dst) {
    const my::CMsgArg parts[] = {m_content.tasks[*finding.task]->id, m_content.dsts[*finding.dst]->folder};
    return my::MakeText(m_texts, IDS_PLAN_CELL_TITLE, parts);
  }
  if (finding.task) return m_content.tasks[*finding.task]->id;
  return finding.dst ? m_content.dsts[*finding.dst]->folder : std::wstring();
}

my::CListLook CPlanAdviceModel::Look(size_t row) const {
  const auto state = StateOf(m_findings[row].severity);
  return state ? StateLook(m_setting, *state) : my::CListLook{};
}

std::optional<ResultState> StateOf(AdviceSeverity severity) {
  switch (severity) {
    case AdviceSeverity::Error: return ResultState::Failed;
    case AdviceSeverity::Warning: return ResultState::Incomplete;
    case AdviceSeverity::Hint: break;
  }
  return {};
}

}  // namespace qlm
