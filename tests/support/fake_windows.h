// The windows, played by a script: what a user would answer, and what a user would see.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/messenger.h"
#include "app/password.h"
#include "app/replace_tool.h"
#include "app/windows.h"
#include "platform/threads.h"
#include "settings/settings.h"
#include "support/exception.h"

namespace test {

struct CFakeListState : qlm::IListState {
  std::optional<size_t> FocusedRow() const override { return focused; }
  std::vector<size_t> SelectedRows() const override { return selected; }
  void Focus() override { ++focusCount; }

  std::optional<size_t> focused;
  std::vector<size_t> selected;
  int focusCount = 0;
};

struct CFakeWindow : qlm::IMainWindow {
  CFakeListState& TaskList() override { return tasks; }
  CFakeListState& DstList() override { return dsts; }
  void RedrawLists() override {}
  void ApplySettings(const qlm::CSettings&) override { shown = true; }
  void StoreSettings(qlm::CSettings& settings) override { settings.mainFrame.normalBounds = bounds; }
  void UpdateTitle() override { ++titles; }
  void PostClose() override { closing = true; }
  void HoldSession(const std::wstring& reason) override { hold = reason; }
  void ShowClosing() override { ++closingShown; }
  void StartTimer(uint32_t) override { timer = true; }
  void StopTimer() override { timer = false; }
  void ClearResults() override { results.clear(); }
  void ShowResults(size_t firstRow, const qlm::CResults& rows) override {
    results.resize(firstRow);
    results.insert(results.end(), rows.begin(), rows.end());
  }
  void ShowRunStatus() override {}
  void ShowRunState() override {}

  CFakeListState tasks;
  CFakeListState dsts;
  my::CRect bounds{1, 2, 3, 4};
  bool shown = false;
  bool closing = false;
  bool timer = false;
  int titles = 0;
  std::wstring hold;  // why the session must not end
  int closingShown = 0;
  qlm::CResults results;
};

// Every question finds its answer at the front of its queue; one without an answer is cancelled.
struct CFakeDialogs : qlm::IDialogs, my::IMessageBox {
  int Show(const std::wstring& text, const std::wstring& caption, uint32_t style) override {
    boxes.push_back(caption + L": " + text);
    if (onBox) onBox(text);
    if ((style & 0xF) != my::kBoxOkCancel) return my::kButtonOk;
    return Next(buttons).value_or(false) ? my::kButtonOk : my::kButtonCancel;
  }
  std::optional<std::wstring> AskOpenPath(const qlm::CFileQuestion& question) override {
    questions.push_back(question);
    return Next(paths);
  }
  std::optional<std::wstring> AskSavePath(const qlm::CFileQuestion& question) override {
    questions.push_back(question);
    return Next(paths);
  }
  bool AskPassword(qlm::CPasswordEntry& entry) override {
    ++passwordDialogs;
    while (const auto password = Next(passwords)) {
      try {
        if (entry.Accept(*password, true)) return true;
      } catch (const my::CException& failure) {
        refusals.push_back(failure.Id());
      }
    }
    return false;
  }
  void ShowSettings(bool designPage) override { settingsPages.push_back(designPage); }
  void OpenReplace(qlm::CReplaceTool& opened) override { tool = &opened; }
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

  std::deque<bool> buttons;                        // true: OK
  std::deque<std::wstring> paths;                  // of file dialogs
  std::deque<std::wstring> passwords;              // typed one after the other; the end of them cancels
  std::function<void(const std::wstring&)> onBox;  // while a box stands
  bool refuseToCancel = false;

  std::vector<std::wstring> boxes;
  std::vector<qlm::CFileQuestion> questions;
  std::vector<uint32_t> refusals;
  std::vector<bool> settingsPages;
  int passwordDialogs = 0;
  int replaceFocuses = 0;
  qlm::CReplaceTool* tool = nullptr;
};

// A worker (of idle priority) works only while it is waited for without a limit, or when the test says so:
// runs stay active for as long as a test wants. Other threads work while they are waited for, unless they
// hang.
class CManualThreads : public my::IThreads {
 public:
  std::unique_ptr<my::IRunningThread> Start(std::function<void()> body,
                                            const my::CThreadStart& start) override {
    if (fail) throw my::CException(IDS_START_THREAD_FAILED, {my::CSystemError::FromWin32(8)});
    m_bodies.push_back(std::make_shared<CBody>(std::move(body)));
    return std::make_unique<CThread>(m_bodies.back(), start.priority != kIdlePriority && !hang);
  }

  // Lets every thread come to its end, also those whose owner has given them up.
  void Work() {
    for (const auto& body : std::exchange(m_bodies, {})) Run(*body);
  }

  bool fail = false;
  bool hang = false;

 private:
  using CBody = std::function<void()>;

  static void Run(CBody& body) {
    if (const CBody once = std::exchange(body, nullptr)) once();
  }

  struct CThread : my::IRunningThread {
    CThread(std::shared_ptr<CBody> threadBody, bool works)
        : body(std::move(threadBody)), worksInTime(works) {}

    bool Wait(uint32_t timeOutMs) override {
      if (timeOutMs == my::kNoTimeOut || (worksInTime && timeOutMs > 0)) Run(*body);
      return !*body;
    }

    uint32_t Id() const override { return 1; }

    std::shared_ptr<CBody> body;
    bool worksInTime;
  };

  std::vector<std::shared_ptr<CBody>> m_bodies;
};

}  // namespace test
