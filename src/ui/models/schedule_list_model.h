#pragma once

#include <string>
#include <vector>

#include "schedule/schedules.h"
#include "ui/models/table_model.h"

namespace qlm {

struct CUISetting;

// The schedules of documents. One that cannot run has the look of an error.
class CScheduleListModel : public CTableModel {
 public:
  enum ScheduleColumn : size_t { When, NextRun, LastRun, State, Document };

  // The arguments must outlive the model.
  CScheduleListModel(const CUISetting& setting, const my::IMessageTexts& texts);

  void Show(std::vector<CDocumentSchedule> schedules) { m_schedules = std::move(schedules); }
  const std::vector<CDocumentSchedule>& Schedules() const { return m_schedules; }

  size_t RowCount() const override { return m_schedules.size(); }
  std::wstring Text(size_t row, size_t column) const override;
  my::CListLook Look(size_t row) const override;
  std::wstring Tip(size_t row) const override { return m_schedules[row].read.run.documentPath; }

 private:
  std::wstring StateText(const CDocumentSchedule& schedule) const;

  const CUISetting& m_setting;
  std::vector<CDocumentSchedule> m_schedules;
};

}  // namespace qlm
