// Interfaces that the windows implement for the commands. GUI thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/result.h"

namespace qlm {

class CPasswordEntry;
struct CClip;
struct CDst;
struct CPlanRequest;
struct CSettings;
struct CTask;

// A list in a window. Rows are indices in the list of the program that it shows.
class IListState {
 public:
  virtual ~IListState() = default;
  virtual std::optional<size_t> FocusedRow() const = 0;
  virtual std::vector<size_t> SelectedRows() const = 0;  // ascending
  virtual void Focus() = 0;                              // moves the keyboard focus to the list
};

// One of the two lists of the document.
class IEditList : public IListState {
 public:
  virtual bool AnySelected() const = 0;  // cheap to call

  // Selects only these rows, and focuses and shows the first of them.
  virtual void Select(const std::vector<size_t>& rows) = 0;
};

// Returns the position after the last selected row; -1 (the end) if no row is selected.
std::ptrdiff_t PositionAfterSelection(const IListState& list);

enum class ListKind { Tasks, Dsts };

class IMainWindow {
 public:
  virtual ~IMainWindow() = default;

  virtual IEditList& TaskList() = 0;
  virtual IEditList& DstList() = 0;

  // Returns the list that has, or last had, the focus.
  virtual ListKind CurrentList() = 0;
  virtual void FocusOtherList() = 0;

  // Redraws both lists after the preview of the replace tool has changed their texts.
  virtual void RedrawLists() = 0;

  virtual void ApplySettings(const CSettings& settings) = 0;
  virtual void StoreSettings(CSettings& settings) = 0;
  virtual void ToggleFullScreen() = 0;

  // Must be called when the path or the modified flag of the document has changed.
  virtual void UpdateTitle() = 0;

  // Closes the window, as the user would, after the current command.
  virtual void PostClose() = 0;

  // Executes a command after the current one, when the window is on the screen.
  virtual void PostCommand(uint32_t id) = 0;

  // Runs `work` when the window has painted what has changed so far: work that the user does not wait for. A
  // window without painting runs it at once.
  virtual void RunWhenPainted(const std::function<void()>& work) { work(); }

  // Sets the reason why the session must not end now; an empty text removes it.
  virtual void HoldSession(const std::wstring& reason) = 0;

  // Called when the program exits as soon as the run ends: disables all windows and shows what is waited for.
  virtual void ShowClosing() = 0;

  virtual void StartTimer(uint32_t periodMs) = 0;  // timer for CBackupThread::Tick
  virtual void StopTimer() = 0;

  virtual void ClearResults() = 0;
  // Shows all rows of a job. `firstRow` is the index of its first row among all rows.
  virtual void ShowResults(size_t firstRow, const CResults& rows) = 0;
  virtual void ShowRunStatus() = 0;  // status text or progress may have changed
  virtual void ShowRunState() = 0;   // a run has started, is stopping or has ended
  virtual void OpenResults() = 0;    // opens the list of all rows
  virtual void OpenHistory() = 0;    // opens the list of the earlier runs
};

// Returns the list of this kind.
inline IEditList& ListOf(IMainWindow& window, ListKind kind) {
  return kind == ListKind::Tasks ? window.TaskList() : window.DstList();
}

// The type decides the options of the system's dialog.
enum class FileDialog { OpenFile, SaveFile, OpenFilter, SaveFilter };

struct CFileKind {
  std::wstring label;
  std::wstring pattern;  // "*.qlmr"
};

struct CFileQuestion {
  FileDialog dialog = FileDialog::OpenFile;
  std::wstring initialPath;  // empty: chosen by the system
  std::vector<CFileKind> kinds;
  std::wstring defaultExtension;  // without the dot; empty: none
};

class IDialogs {
 public:
  virtual ~IDialogs() = default;

  // Returns the full path; nullopt if the user cancelled.
  virtual std::optional<std::wstring> AskPath(const CFileQuestion& question) = 0;

  // Modal. Passes the input to CPasswordEntry::Accept until that returns true. Returns false if the user
  // cancelled.
  virtual bool AskPassword(CPasswordEntry& entry) = 0;

  // Modal. OK calls `confirm` with the edited item; if it throws, the error is shown and the dialog stays
  // open.
  virtual void EditTask(const CTask& task, const std::function<void(const CTask&)>& confirm) = 0;
  virtual void EditDst(const CDst& dst, const std::function<void(const CDst&)>& confirm) = 0;

  // Opens the modeless plan window, or starts a new plan in it. Nothing is created. `ids` are those with
  // which the user can plan again, see MakePlanRequest.
  virtual void ShowPlan(CPlanRequest request, const std::vector<std::wstring>& ids) = 0;

  // Modal. Shows the effect of a filter file on the files of a source folder, which may be empty.
  virtual void ShowFilter(const std::wstring& filterPath, const std::wstring& sourcePath) = 0;

  virtual void ShowSettings(bool designPage) = 0;  // modal
  virtual void ShowAbout() = 0;                    // modal

  // Modal. Shows the schedules of the document or of all documents.
  virtual void ShowSchedules(bool all) = 0;

  // Opens the modeless replace dialog. The replace tool is already open; the dialog ends it with Commit or
  // Cancel.
  virtual void OpenReplace() = 0;
  virtual void FocusReplace() = 0;

  // Cancels the replace dialog as the user would. If the dialog refuses, the tool is still open afterwards.
  virtual void CancelReplace() = 0;
};

// Document items on the clipboard, shared by all running instances of the program.
class IClipboard {
 public:
  virtual ~IClipboard() = default;
  virtual void Set(const CClip& clip) = 0;
  virtual std::optional<std::string> Document() = 0;  // CClip::document; nullopt if there is none
  virtual bool HasDocument() const = 0;               // cheap to call

  // What other programs have put there: files and folders, and text.
  virtual std::vector<std::wstring> Paths() = 0;
  virtual std::wstring Text() = 0;
  virtual bool HasPathsOrText() const = 0;  // cheap to call
};

}  // namespace qlm
