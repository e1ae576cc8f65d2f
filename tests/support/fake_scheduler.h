#pragma once

#include <map>

#include "platform/task_scheduler.h"

namespace test {

// Stores definitions as the system does: in another layout, with what it adds.
struct CFakeScheduler : my::ITaskScheduler {
  std::vector<my::CScheduledTask> Tasks(std::wstring_view prefix) override {
    std::vector<my::CScheduledTask> found;
    for (const auto& [name, task] : tasks) {
      if (name.starts_with(prefix)) found.push_back(task);
    }
    return found;
  }

  bool Add(const std::wstring& name, const std::wstring& xml) override {
    if (tasks.contains(name) || names.contains(name)) return false;
    Change(name, xml);
    return true;
  }

  void Change(const std::wstring& name, const std::wstring& xml) override {
    std::wstring stored = xml;
    const size_t settings = stored.find(L"<Settings>");
    stored.insert(settings + 10, L"<Enabled>true</Enabled>");
    tasks[name].name = name;
    tasks[name].xml = stored;
  }

  void Remove(const std::wstring& name) override { tasks.erase(name); }
  std::wstring User() override { return L"S-1-5-21-1-2-3-1001"; }

  std::map<std::wstring, my::CScheduledTask> tasks;
  std::map<std::wstring, int> names;  // taken by other users, so not listed
};

}  // namespace test
