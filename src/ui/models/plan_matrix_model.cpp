#include "ui/models/plan_matrix_model.h"

#include <boost/smart_ptr/make_shared.hpp>
#include <iterator>
#include <utility>

#include "engine/remedy.h"
#include "engine/value_texts.h"
#include "platform/clock.h"
#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/models/cell_texts.h"

namespace qlm {
namespace {

// Pixels at 96 DPI.
constexpr int kIdWidth = 140;
constexpr int kDstWidth = 180;

// Returns the short text of a cell.
uint32_t WordOf(const CPlanCell& cell) {
  switch (cell.action) {
    case PlanAction::Skip: return IDS_OUTCOME_SKIPPED;
    case PlanAction::NotReached: return IDS_PLAN_CELL_NOT_REACHED;
    case PlanAction::Create:
      if (cell.space == PlanSpace::TooLittle) return IDS_PLAN_CELL_NO_SPACE;
      if (cell.space == PlanSpace::Doubtful) return IDS_PLAN_CELL_TIGHT;
      break;
    default: break;
  }
  return static_cast<uint32_t>(cell.action);
}

// Returns the state whose colour and icon a cell has; nullopt for a cell that a run does not reach.
std::optional<ResultState> StateOf(const CPlanCell& cell) {
  if (cell.action == PlanAction::NotReached) return {};
  if (cell.action == PlanAction::Skip) return ResultState::NotUpdated;
  if (IsFailure(cell.action) || cell.space == PlanSpace::TooLittle) return ResultState::Failed;
  return cell.space == PlanSpace::Doubtful ? ResultState::Incomplete : ResultState::Created;
}

}  // namespace

void CPlanMatrixModel::Begin(CPlanScope scope) {
  m_tasks.clear();
  m_summary = {};
  m_scope = std::move(scope);
}

void CPlanMatrixModel::Add(std::vector<CPlanTask> tasks) {
  for (const CPlanTask& task : tasks) Count(m_summary, task);
  m_tasks.insert(m_tasks.end(), std::make_move_iterator(tasks.begin()), std::make_move_iterator(tasks.end()));
}

const CPlanCell* CPlanMatrixModel::Cell(size_t row, size_t column) const {
  if (row >= m_tasks.size() || column < FirstDst || column >= ColumnCount()) return nullptr;
  const CDstPtr& dst = m_scope.content.dsts[column - FirstDst];
  for (const CPlanCell& cell : m_tasks[row].cells) {
    if (cell.dst == dst) return &cell;
  }
  return nullptr;
}

CResultPtr CPlanMatrixModel::RowOf(size_t row, size_t column) const {
  const CPlanTask& plan = m_tasks[row];
  const auto task = boost::make_shared<CTask>(*plan.task);
  const auto result = boost::make_shared<CResult>();
  result->phase = Phase::Listed;
  result->targets = plan.targets;
  if (plan.newest) result->newestWriteTime = plan.newest->LastWriteTime();
  task->dsts.clear();
  if (const CPlanCell* cell = Cell(row, column)) {
    task->dsts = {cell->dst};
    result->error = cell->error;
    result->destinationPath = cell->path;
  }
  result->task = task;
  return result;
}

std::wstring CPlanMatrixModel::Line(uint32_t id, const std::vector<my::CMsgArg>& args) const {
  return my::MakeText(m_texts, id, args) + L"\r\n";
}

std::wstring CPlanMatrixModel::CellTitle(size_t row, size_t column) const {
  const std::wstring& id = m_tasks[row].task->id;
  if (column < FirstDst) return id;
  const my::CMsgArg parts[] = {id, m_scope.content.dsts[column - FirstDst]->folder};
  return my::MakeText(m_texts, IDS_PLAN_CELL_TITLE, parts);
}

std::wstring CPlanMatrixModel::Detail(size_t row, size_t column) const {
  if (row >= m_tasks.size()) return {};
  const CPlanTask& plan = m_tasks[row];
  std::wstring text = CellTitle(row, column) + L"\r\n";
  const CPlanCell* cell = Cell(row, column);
  if (cell) AppendCell(text, *cell);
  if (!cell && column >= FirstDst) text += m_texts.Text(IDS_PLAN_DETAIL_UNUSED) + L"\r\n";
  text +=
      Line(IDS_PLAN_DETAIL_FILES, {GroupedText(plan.counts.counted), SizeText(m_texts, plan.counts.bytes)});
  if (plan.newest)
    text += Line(IDS_PLAN_DETAIL_NEWEST,
                 {plan.newest->RelativePath(), my::LocalTimeText(m_clock, plan.newest->LastWriteTime())});
  return text;
}

void CPlanMatrixModel::AppendCell(std::wstring& text, const CPlanCell& cell) const {
  text += Line(IDS_PLAN_DETAIL_ACTION, {my::CTextId{static_cast<uint32_t>(cell.action)}});
  if (cell.error) {
    text += Line(IDS_PLAN_DETAIL_ERROR, {my::OneLine(cell.error.message)});
    text += RemedyLine(m_texts, cell.error) + L"\r\n";
  }
  if (!cell.path.empty()) text += Line(IDS_PLAN_DETAIL_PATH, {cell.path});
  if (!cell.freeBytes) return;
  std::wstring space = my::MakeText(
      m_texts, IDS_PLAN_DETAIL_SPACE,
      std::vector<my::CMsgArg>{SizeText(m_texts, cell.neededBytes), SizeText(m_texts, *cell.freeBytes)});
  const bool tight = cell.space == PlanSpace::TooLittle || cell.space == PlanSpace::Doubtful;
  text += tight ? Line(IDS_WARNING, {space}) : space + L"\r\n";
}

std::wstring CPlanMatrixModel::SpokenCell(size_t row, size_t column) const {
  if (row >= m_tasks.size()) return {};
  if (column < FirstDst) return CellTitle(row, column);
  const uint32_t unused = IDS_PLAN_DETAIL_UNUSED;
  const CPlanCell* cell = Cell(row, column);
  const my::CMsgArg parts[] = {CellTitle(row, column), my::CTextId{cell ? WordOf(*cell) : unused}};
  return my::MakeText(m_texts, IDS_PLAN_COL_DST, parts);
}

std::wstring CPlanMatrixModel::Progress() const {
  const my::CMsgArg parts[] = {GroupedText(m_tasks.size()), GroupedText(m_scope.content.tasks.size())};
  return my::MakeText(m_texts, IDS_PLAN_PROGRESS, parts);
}

std::wstring CPlanMatrixModel::CountsText() const {
  const my::CMsgArg counts[] = {GroupedText(m_summary.created), GroupedText(m_summary.skipped),
                                GroupedText(m_summary.failed), GroupedText(m_summary.notReached)};
  return my::MakeText(m_texts, IDS_PLAN_COUNTS, counts);
}

my::CListColumn CPlanMatrixModel::Column(size_t column) const {
  if (column < FirstDst) return {m_texts.Text(IDS_COL_TASK_ID), kIdWidth};
  const size_t dst = column - FirstDst;
  const my::CMsgArg parts[] = {std::to_wstring(m_scope.dstRows[dst] + 1), m_scope.content.dsts[dst]->folder};
  return {my::MakeText(m_texts, IDS_PLAN_COL_DST, parts), kDstWidth};
}

std::wstring CPlanMatrixModel::Text(size_t row, size_t column) const {
  if (column < FirstDst) return m_tasks[row].task->id;
  const CPlanCell* cell = Cell(row, column);
  return cell ? m_texts.Text(WordOf(*cell)) : std::wstring();
}

my::CListLook CPlanMatrixModel::CellLook(size_t row, size_t column) const {
  const CPlanCell* cell = Cell(row, column);
  if (!cell) return {};
  const auto state = StateOf(*cell);
  if (state) return StateLook(m_setting, *state);
  my::CListLook grey;
  grey.grey = true;
  return grey;
}

}  // namespace qlm
