#include "document/document_edits.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <functional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "document/document_limits.h"
#include "support/exception.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr auto kTasks = DocChangeEventFlags::CHNAGE_TASKS;
constexpr auto kDsts = DocChangeEventFlags::CHNAGE_DSTS;

CRows Range(size_t first, size_t count) {
  CRows rows;
  for (size_t i = 0; i < count; ++i) rows.push_back(first + i);
  return rows;
}

void Remove(auto& list, const CRows& rows) {
  std::for_each(rows.rbegin(), rows.rend(), [&list](size_t row) { list.Remove(row); });
}

// Rows before `place` are moved from the last to the first, rows after it from the first to the last, so no
// move shifts a row that has not been moved yet.
CRows Move(auto& list, const CRows& rows, size_t place) {
  const auto below = std::lower_bound(rows.begin(), rows.end(), place);
  size_t to = place;
  for (auto row = below; row != rows.begin();) list.Move(*--row, --to);
  const size_t first = to;
  to = place;
  for (auto row = below; row != rows.end(); ++row) list.Move(*row, to++);
  return Range(first, rows.size());
}

CRows MoveBy(auto& list, CRows rows, Step step) {
  const bool up = step == Step::Up;
  size_t end = up ? 0 : list.size() - 1;  // a row here cannot move further
  if (!up) std::reverse(rows.begin(), rows.end());
  for (size_t& row : rows) {
    const size_t to = up ? row - 1 : row + 1;
    if (row == end) {
      end = up ? end + 1 : end - 1;
    } else {
      list.Move(row, to);
      row = to;
    }
  }
  if (!up) std::reverse(rows.begin(), rows.end());
  return rows;
}

// Changes the order of one of the lists.
CRows ChangeOrder(CDocument& document, uint32_t nameId, DocChangeEventFlags what, auto CContent::*list,
                  const auto& move) {
  CRows moved;
  document.Edit(nameId, what, [&](CContent& content) {
    moved = move(content.*list);
    const auto& old = document.Content().*list;
    return !std::equal(old.begin(), old.end(), (content.*list).begin());
  });
  return moved;
}

bool Uses(const CTask& task, const CDstPtr& dst) {
  return std::find(task.dsts.begin(), task.dsts.end(), dst) != task.dsts.end();
}

// Returns the task with its destinations replaced by the objects in the list.
CTaskPtr Owned(CTask task, const CDsts& dsts) {
  CheckTask(task);
  for (CDstPtr& dst : task.dsts) {
    dst = dsts.FindEqual(*dst);
    if (!dst) throw my::CException(IDS_DST_NOT_COMMON);
  }
  return boost::make_shared<CTask>(std::move(task));
}

// Replaces each task that `change` changes with a copy. `change` returns whether it did.
bool ChangeTasks(CTasks& tasks, const CRows& rows, const std::function<bool(CTask&)>& change) {
  bool changed = false;
  for (const size_t row : rows) {
    const auto copy = boost::make_shared<CTask>(*tasks[row]);
    if (!change(*copy)) continue;
    tasks.Replace(row, copy);
    changed = true;
  }
  return changed;
}

std::unordered_set<CDst*> Objects(const CDsts& dsts, const CRows& rows) {
  std::unordered_set<CDst*> objects;
  for (const size_t row : rows) objects.insert(dsts[row].get());
  return objects;
}

// Returns kTasks only if a task uses one of the destinations.
DocChangeEventFlags DstsAndUsers(const CDocument& document, const CRows& rows) {
  return CountUsers(document, rows) == 0 ? kDsts : kDsts | kTasks;
}

DstUse UseBy(size_t users, size_t tasks) {
  if (users == 0) return DstUse::None;
  return users == tasks ? DstUse::All : DstUse::Mixed;
}

}  // namespace

size_t InsertTask(CDocument& document, std::ptrdiff_t position, CTask task) {
  const size_t row = InsertRow(position, document.Tasks().size());
  document.Edit(IDS_EDIT_ADD_TASK, kTasks, [&](CContent& content) {
    content.tasks.Insert(position, Owned(std::move(task), content.dsts));
    return true;
  });
  return row;
}

void ReplaceTask(CDocument& document, size_t row, CTask task) {
  document.Edit(IDS_EDIT_CHANGE_TASK, kTasks, [&](CContent& content) {
    const CTaskPtr owned = Owned(std::move(task), content.dsts);
    if (*owned == *content.tasks[row]) return false;
    content.tasks.Replace(row, owned);
    return true;
  });
}

void RemoveTasks(CDocument& document, const CRows& rows) {
  document.Edit(IDS_EDIT_REMOVE_TASKS, kTasks, [&](CContent& content) {
    Remove(content.tasks, rows);
    return !rows.empty();
  });
}

CRows MoveTasks(CDocument& document, const CRows& rows, std::ptrdiff_t position) {
  return ChangeOrder(document, IDS_EDIT_MOVE_TASKS, kTasks, &CContent::tasks,
                     [&](auto& list) { return Move(list, rows, InsertRow(position, list.size())); });
}

CRows StepTasks(CDocument& document, const CRows& rows, Step step) {
  return ChangeOrder(document, IDS_EDIT_MOVE_TASKS, kTasks, &CContent::tasks,
                     [&](auto& list) { return MoveBy(list, rows, step); });
}

void SetTaskFilter(CDocument& document, size_t row, const std::wstring& filterPath) {
  document.Edit(IDS_EDIT_SET_FILTER, kTasks, [&](CContent& content) {
    return ChangeTasks(content.tasks, {row},
                       [&](CTask& task) { return std::exchange(task.filterPath, filterPath) != filterPath; });
  });
}

size_t InsertDst(CDocument& document, std::ptrdiff_t position, CDst dst, const CRows& users) {
  const size_t row = InsertRow(position, document.Dsts().size());
  document.Edit(IDS_EDIT_ADD_DST, users.empty() ? kDsts : kDsts | kTasks, [&](CContent& content) {
    CheckDst(dst);
    CheckRoom(content.dsts);
    const auto added = boost::make_shared<CDst>(std::move(dst));
    content.dsts.Insert(position, added);
    AddUse(content, users, added);
    return true;
  });
  return row;
}

void ReplaceDst(CDocument& document, size_t row, CDst dst) {
  document.Edit(IDS_EDIT_CHANGE_DST, DstsAndUsers(document, {row}), [&](CContent& content) {
    CheckDst(dst);
    const CDstPtr old = content.dsts[row];
    if (dst == *old) return false;
    const auto changed = boost::make_shared<CDst>(std::move(dst));
    content.dsts.Replace(row, changed);
    ChangeTasks(content.tasks, Range(0, content.tasks.size()), [&](CTask& task) {
      if (!Uses(task, old)) return false;
      std::replace(task.dsts.begin(), task.dsts.end(), old, changed);
      return true;
    });
    return true;
  });
}

void RemoveDsts(CDocument& document, const CRows& rows) {
  document.Edit(IDS_EDIT_REMOVE_DSTS, DstsAndUsers(document, rows), [&](CContent& content) {
    const auto removed = Objects(content.dsts, rows);
    ChangeTasks(content.tasks, Range(0, content.tasks.size()), [&removed](CTask& task) {
      return std::erase_if(task.dsts, [&](const CDstPtr& dst) { return removed.contains(dst.get()); }) != 0;
    });
    Remove(content.dsts, rows);
    return !rows.empty();
  });
}

CRows MoveDsts(CDocument& document, const CRows& rows, std::ptrdiff_t position) {
  return ChangeOrder(document, IDS_EDIT_MOVE_DSTS, kDsts, &CContent::dsts,
                     [&](auto& list) { return Move(list, rows, InsertRow(position, list.size())); });
}

CRows StepDsts(CDocument& document, const CRows& rows, Step step) {
  return ChangeOrder(document, IDS_EDIT_MOVE_DSTS, kDsts, &CContent::dsts,
                     [&](auto& list) { return MoveBy(list, rows, step); });
}

void SetUse(CDocument& document, const CRows& tasks, size_t dst, bool use) {
  document.Edit(IDS_EDIT_SET_USE, kTasks, [&](CContent& content) {
    const CDstPtr& object = content.dsts[dst];
    if (use) return AddUse(content, tasks, object);
    return ChangeTasks(content.tasks, tasks, [&](CTask& task) { return std::erase(task.dsts, object) != 0; });
  });
}

bool AddUse(CContent& content, const CRows& tasks, const CDstPtr& dst) {
  return ChangeTasks(content.tasks, tasks, [&dst](CTask& task) {
    if (Uses(task, dst)) return false;
    task.dsts.push_back(dst);
    return true;
  });
}

std::vector<DstUse> UsesOf(const CContent& content, const CRows& tasks) {
  struct CUsers {
    size_t count = 0;
    const CTask* last = nullptr;  // a file may list a destination twice in a task
  };
  std::unordered_map<const CDst*, CUsers> users;
  for (const size_t row : tasks) {
    const CTask* task = content.tasks[row].get();
    for (const CDstPtr& dst : task->dsts) {
      CUsers& entry = users[dst.get()];
      if (std::exchange(entry.last, task) != task) ++entry.count;
    }
  }
  std::vector<DstUse> uses;
  for (const CDstPtr& dst : content.dsts) uses.push_back(UseBy(users[dst.get()].count, tasks.size()));
  return uses;
}

DstUse UseOf(const CDocument& document, const CRows& tasks, size_t dst) {
  const CDstPtr& object = document.Dsts()[dst];
  const auto uses = [&](size_t row) { return Uses(*document.Tasks()[row], object); };
  return UseBy(static_cast<size_t>(std::ranges::count_if(tasks, uses)), tasks.size());
}

size_t CountUsers(const CDocument& document, const CRows& dsts) {
  const auto objects = Objects(document.Dsts(), dsts);
  const auto isCounted = [&objects](const CDstPtr& dst) { return objects.contains(dst.get()); };
  return static_cast<size_t>(std::ranges::count_if(document.Tasks(), [&isCounted](const CTaskPtr& task) {
    return std::ranges::any_of(task->dsts, isCounted);
  }));
}

}  // namespace qlm
