#pragma once

#include <functional>

#include "app/command.h"
#include "schedule/schedule.h"
#include "ui/framework/dialog.h"

namespace qlm {

// Edits one schedule. Modal.
class CScheduleEditDialog final : public my::CDialog {
 public:
  using CConfirm = std::function<void(const CSchedule&)>;

  // The context must outlive the dialog. OK passes the schedule to `confirm`; if it throws, the error is
  // shown and the dialog stays open.
  CScheduleEditDialog(CAppContext& context, const CSchedule& schedule, CConfirm confirm);

 private:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override;
  bool OnCommand(int id, int code) override;

  CSchedule Edited() const;
  ScheduleKind Kind() const;
  void ShowKind();

  CAppContext& m_context;
  CSchedule m_schedule;
  CConfirm m_confirm;
};

}  // namespace qlm
