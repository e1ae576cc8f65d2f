// Doubles of the windows: scripted answers of the user, and a record of what was shown.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/messenger.h"
#include "app/password.h"
#include "app/plan_worker.h"
#include "app/replace_tool.h"
#include "app/windows.h"
#include "document/document_clip.h"
#include "platform/threads.h"
#include "settings/settings.h"
#include "support/exception.h"
#include "support/secret.h"

namespace test {

struct CFakeList : qlm::IEditList {
  std::optional<size_t> FocusedRow() const override { return focused; }
  std::vector<size_t> SelectedRows() const override { return selected; }
  void Focus() override { ++focusCount; }
  bool AnySelected() const override { return !selected.empty(); }
  void Select(const std::vector<size_t>& rows) override {
    selected = rows;
    if (!rows.empty()) focused = rows.front();
  }

  std::optional<size_t> focused;
  std::vector<size_t> selected;
  int focusCount = 0;
};

struct CFakeWindow : qlm::IMainWindow {
  CFakeList& TaskList() override { return tasks; }
  CFakeList& DstList() override { return dsts; }
  qlm::ListKind CurrentList() override { return current; }
  void FocusOtherList() override {
    current = current == qlm::ListKind::Tasks ? qlm::ListKind::Dsts : qlm::ListKind::Tasks;
  }
  void ToggleFullScreen() override { fullScreen = !fullScreen; }
  void OpenResults() override { ++resultsOpened; }
  void OpenHistory() override { ++historiesOpened; }
  void RedrawLists() override {}
  void ApplySettings(const qlm::CSettings&) override { shown = true; }
  void StoreSettings(qlm::CSettings& settings) override { settings.mainFrame.normalBounds = bounds; }
  void UpdateTitle() override {
    if (onTitle) onTitle();
  }
  void PostClose() override { closing = true; }
  void PostCommand(uint32_t id) override { posted.push_back(id); }
  void HoldSession(const std::wstring& reason) override { hold = reason; }
  void ShowClosing() override { ++closingShown; }
  void StartTimer(uint32_t) override { timer = true; }
  void StopTimer() override { timer = false; }
  void ClearResults() override { results.clear(); }
  void ShowResults(size_t firstRow, const qlm::CResults& rows) override {
    results.resize(firstRow);
    results.insert(results.end(), rows.begin(), rows.end());
  }
  void ShowRunStatus() override { ++statuses; }
  void ShowRunState() override { ++states; }

  CFakeList tasks;
  CFakeList dsts;
  qlm::ListKind current = qlm::ListKind::Tasks;
  bool fullScreen = false;
  int resultsOpened = 0;
  int historiesOpened = 0;
  my::CRect bounds{1, 2, 3, 4};
  bool shown = false;
  bool closing = false;
  std::vector<uint32_t> posted;
  bool timer = false;
  std::function<void()> onTitle;
  std::wstring hold;  // reason why the session must not end
  int closingShown = 0;
  int statuses = 0;
  int states = 0;
  qlm::CResults results;
};

struct CFakeClipboard : qlm::IClipboard {
  void Set(const qlm::CClip& clip) override { content = clip.document; }
  std::optional<std::string> Document() override { return content; }
  bool HasDocument() const override { return content.has_value(); }
  std::vector<std::wstring> Paths() override { return paths; }
  std::wstring Text() override { return text; }
  bool HasPathsOrText() const override { return !paths.empty() || !text.empty(); }

  std::vector<std::wstring> paths;
  std::wstring text;
  std::optional<std::string> content;
};

// Each question takes the first answer of its queue; without an answer it is cancelled.
struct CFakeDialogs : qlm::IDialogs, my::IMessageBox {
  my::BoxButton Show(const std::wstring& text, const std::wstring& caption, my::BoxStyle style) override {
    boxes.push_back(caption + L": " + text);
    if (onBox) onBox(text);
    if (style == my::BoxStyle::Failure) return my::BoxButton::Ok;
    return Next(buttons).value_or(false) ? my::BoxButton::Ok : my::BoxButton::Cancel;
  }
  std::optional<std::wstring> AskPath(const qlm::CFileQuestion& question) override {
    questions.push_back(question);
    return Next(paths);
  }
  bool AskPassword(qlm::CPasswordEntry& entry) override {
    ++passwordDialogs;
    passwordDsts = entry.Dsts();
    while (auto password = Next(passwords)) {
      const my::CWipeAtEnd wipe(*password);
      try {
        if (entry.Accept(*password, true)) return true;
      } catch (const my::CException& failure) {
        refusals.push_back(failure.Id());
      }
    }
    return false;
  }
  void ShowSettings(bool designPage) override { settingsPages.push_back(designPage); }
  void EditTask(const qlm::CTask& task, const std::function<void(const qlm::CTask&)>& confirm) override {
    editedTask = task;
    if (const auto made = Next(tasks)) confirm(*made);
  }
  void EditDst(const qlm::CDst&, const std::function<void(const qlm::CDst&)>& confirm) override {
    if (const auto made = Next(dsts)) confirm(*made);
  }
  void ShowFilter(const std::wstring& filterPath, const std::wstring& sourcePath) override {
    filters.push_back(filterPath + L"|" + sourcePath);
    if (filterFailure != 0) throw my::CException(filterFailure);
  }
  void ShowAbout() override {}
  void ShowPlan(qlm::CPlanRequest request, const std::vector<std::wstring>&) override {
    plans.push_back(std::move(request));
  }
  void ShowSchedules(bool all) override { schedulesOpened += all ? L"all " : L"own "; }
  void OpenReplace() override { ++replacesOpened; }
  void FocusReplace() override { ++replaceFocuses; }
  void CancelReplace() override {
    if (!refuseToCancel) tool->Cancel(tool->Options());
  }

  template <class T>
  static std::optional<T> Next(std::deque<T>& queue) {
    if (queue.empty()) return {};
    T first = std::move(queue.front());
    queue.pop_front();
    return first;
  }

  std::deque<bool> buttons;        // true: OK
  std::deque<std::wstring> paths;  // for file dialogs
  std::deque<qlm::CTask> tasks;    // results of the item dialogs
  std::deque<qlm::CDst> dsts;
  std::deque<std::wstring> passwords;              // typed one after another; then cancel
  std::function<void(const std::wstring&)> onBox;  // called while a box is open
  bool refuseToCancel = false;
  std::wstring schedulesOpened;
  uint32_t filterFailure = 0;  // thrown by the filter dialog; 0: nothing

  std::vector<std::wstring> boxes;
  std::vector<qlm::CFileQuestion> questions;
  std::vector<uint32_t> refusals;
  std::vector<bool> settingsPages;
  std::vector<std::wstring> filters;  // filters shown, with their source folders
  std::vector<qlm::CPlanRequest> plans;
  qlm::CTask editedTask;  // the task with which the dialog was opened
  int passwordDialogs = 0;
  qlm::CTaskDsts passwordDsts;  // shown by the last of them
  int replacesOpened = 0;
  int replaceFocuses = 0;
  qlm::CReplaceTool* tool = nullptr;  // of the dialog
};

// A worker (idle priority) runs only while it is waited for without a limit, or when the test calls Work, so
// runs stay active as long as a test needs, and windows that are looked at within a port of the worker see it
// running. Other threads run while they are waited for, unless they hang.
class CManualThreads : public my::IThreads {
 public:
  std::unique_ptr<my::IRunningThread> Start(std::function<void()> work,
                                            const my::CThreadStart& start) override {
    if (fail) throw my::CException(IDS_START_THREAD_FAILED, {my::CSystemError::FromWin32(8)});
    const auto body = m_bodies.emplace_back(std::make_shared<CBody>(std::move(work)));
    const bool worker = start.priority == kIdlePriority;
    if (!worker && immediate) body->Run();
    return std::make_unique<CThread>(body, (!worker || eager) && !hang, worker ? &abandoned : nullptr);
  }

  // Lets every thread end, including those no longer owned.
  void Work() {
    for (const auto& body : std::exchange(m_bodies, {})) body->Run();
  }

  bool fail = false;
  bool hang = false;
  bool eager = false;      // workers also run while they are waited for
  bool immediate = false;  // other threads run at their start
  int abandoned = 0;       // workers never waited for

 private:
  struct CBody {
    explicit CBody(std::function<void()> job) : work(std::move(job)) {}
    void Run() {
      if (const auto once = std::exchange(work, nullptr)) once(), ended = true;
    }

    std::function<void()> work;
    bool ended = false;
  };

  struct CThread : my::IRunningThread {
    CThread(std::shared_ptr<CBody> threadBody, bool works, int* counter)
        : body(std::move(threadBody)), worksInTime(works), abandoned(counter) {}
    ~CThread() override {
      if (abandoned && body->work) ++*abandoned;
    }

    bool Wait(uint32_t timeOutMs) override {
      if (timeOutMs == my::kNoTimeOut || (worksInTime && timeOutMs > 0)) body->Run();
      return body->ended;
    }

    uint32_t Id() const override { return 1; }

    std::shared_ptr<CBody> body;
    bool worksInTime;
    int* abandoned;
  };

  std::vector<std::shared_ptr<CBody>> m_bodies;
};

}  // namespace test
