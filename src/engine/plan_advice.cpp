#include "engine/plan_advice.h"

#include "engine/backup_comparison.h"
#include "engine/value_texts.h"
#include "engine/zip_end_record.h"
#include "text_ids.h"

namespace qlm {
namespace {

std::optional<size_t> RowIn(std::ptrdiff_t index) {
  return index < 0 ? std::nullopt : std::optional(static_cast<size_t>(index));
}

class CPlanAdvice {
 public:
  CPlanAdvice(const CPlanTask& plan, const CEnginePorts& ports, const my::IStopQuery* stop)
      : m_plan(plan), m_ports(ports), m_stop(stop), m_list(ports.texts) {}

  void Add(const CPlanCell& cell, const CAdvicePlace& place) {
    if (cell.action == PlanAction::Create) AddSpace(cell, place);
    if (cell.action != PlanAction::Skip) return;
    if (IsZip(cell.dst->type)) {
      AddOtherCount(cell, place);
    } else {
      AddOtherFiles(cell, place);
    }
  }

  std::vector<CAdvice> Take() { return m_list.Take(); }

 private:
  void AddSpace(const CPlanCell& cell, const CAdvicePlace& place) {
    if (cell.space != PlanSpace::TooLittle && cell.space != PlanSpace::Doubtful) return;
    const bool sure = cell.space == PlanSpace::TooLittle;
    const auto severity = sure ? AdviceSeverity::Error : AdviceSeverity::Warning;
    m_list.Add(
        AdviceKind::NoSpace, severity, place, sure ? IDS_ADVICE_NO_SPACE : IDS_ADVICE_MAYBE_NO_SPACE,
        {SizeText(m_ports.texts, cell.neededBytes), SizeText(m_ports.texts, *cell.freeBytes), cell.path});
  }

  void AddOtherFiles(const CPlanCell& cell, const CAdvicePlace& place) {
    const auto difference = CompareBackup(m_ports.files, m_stop, *m_plan.targets, cell.path);
    if (!difference || difference->IsNone()) return;
    m_list.Add(AdviceKind::OtherFiles, AdviceSeverity::Warning, place, IDS_ADVICE_OTHER_FILES,
               {std::to_wstring(difference->missing), std::to_wstring(difference->extra),
                std::to_wstring(difference->resized), cell.path});
  }

  // Only the number of files is compared, because the names in an archive may be encoded in several ways.
  void AddOtherCount(const CPlanCell& cell, const CAdvicePlace& place) {
    const auto count = ArchivedFiles(cell.path);
    if (!count || *count == m_plan.counts.counted) return;
    m_list.Add(AdviceKind::OtherFiles, AdviceSeverity::Warning, place, IDS_ADVICE_OTHER_COUNT,
               {std::to_wstring(*count), std::to_wstring(m_plan.counts.counted), cell.path});
  }

  std::optional<uint64_t> ArchivedFiles(const std::wstring& path) const {
    try {
      return CountZipEntries(m_ports.files, path);
    } catch (const my::CException&) {
      return {};
    }
  }

  const CPlanTask& m_plan;
  const CEnginePorts& m_ports;
  const my::IStopQuery* m_stop;
  CAdviceList m_list;
};

}  // namespace

std::vector<CAdvice> FindPlanAdvice(const CContent& content, const CPlanTask& plan, const CEnginePorts& ports,
                                    const my::IStopQuery* stop) {
  const auto task = RowIn(content.tasks.IndexOf(plan.task));
  CPlanAdvice advice(plan, ports, stop);
  for (const CPlanCell& cell : plan.cells) advice.Add(cell, {task, RowIn(content.dsts.IndexOf(cell.dst))});
  return advice.Take();
}

}  // namespace qlm
