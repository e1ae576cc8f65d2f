#pragma once

#include <memory>

#include "platform/task_scheduler.h"

namespace my {

// The tasks in the root folder of the Task Scheduler: in a folder of its own, the tasks of one user could
// keep another one from adding any. Connects when first used.
class CWin32TaskScheduler : public ITaskScheduler {
 public:
  CWin32TaskScheduler();
  ~CWin32TaskScheduler() override;

  std::vector<CScheduledTask> Tasks(std::wstring_view prefix) override;
  bool Add(const std::wstring& name, const std::wstring& xml) override;
  void Change(const std::wstring& name, const std::wstring& xml) override;
  void Remove(const std::wstring& name) override;
  std::wstring User() override;

 private:
  struct CConnection;
  CConnection& Connection();

  std::unique_ptr<CConnection> m_connection;
};

}  // namespace my
