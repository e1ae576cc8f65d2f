// What the commands need of the windows, which implement it. GUI thread only.
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
struct CSettings;
struct CTask;

// A list on the screen; rows are positions in the list of the program that it shows.
class IListState {
 public:
  virtual ~IListState() = default;
  virtual std::optional<size_t> FocusedRow() const = 0;
  virtual std::vector<size_t> SelectedRows() const = 0;  // ascending
  virtual void Focus() = 0;                              // moves the keyboard focus to the list
};

// A list of the document, which the user edits.
class IEditList : public IListState {
 public:
  virtual bool AnySelected() const = 0;  // cheap

  // Selects these rows and no others, focuses the first of them and scrolls to it.
  virtual void Select(const std::vector<size_t>& rows) = 0;
};

// Returns the position after the last selected row; -1, the end, if none is selected.
std::ptrdiff_t PositionAfterSelection(const IListState& list);

enum class ListKind { TASKS, DSTS };

class IMainWindow {
 public:
  virtual ~IMainWindow() = default;

  virtual IEditList& TaskList() = 0;
  virtual IEditList& DstList() = 0;

  // The list that has, or had last, the keyboard focus.
  virtual ListKind CurrentList() = 0;
  virtual void FocusOtherList() = 0;

  // Redraws the two lists: the preview of the replace tool has changed their texts without the document.
  virtual void RedrawLists() = 0;

  virtual void ApplySettings(const CSettings& settings) = 0;
  virtual void StoreSettings(CSettings& settings) = 0;
  virtual void ToggleFullScreen() = 0;

  // The document's path or its modified flag has changed.
  virtual void UpdateTitle() = 0;

  // Closes the window as the user does, after the current command.
  virtual void PostClose() = 0;

  // Tells the system why the session must not end now; an empty text withdraws that.
  virtual void HoldSession(const std::wstring& reason) = 0;

  // The program ends as soon as the run does: disables every window and shows what the program waits for.
  virtual void ShowClosing() = 0;

  virtual void StartTimer(uint32_t periodMs) = 0;  // of the run tick
  virtual void StopTimer() = 0;

  virtual void ClearResults() = 0;
  // A job's rows, all of them; `firstRow` is the place of the first among all rows.
  virtual void ShowResults(size_t firstRow, const CResults& rows) = 0;
  virtual void ShowRunStatus() = 0;  // the run's text and progress may have changed
  virtual void ShowRunState() = 0;   // a run has begun, is ending or has ended
  virtual void OpenResults() = 0;    // opens the list of all rows
};

// The list of a kind.
inline IEditList& ListOf(IMainWindow& window, ListKind kind) {
  return kind == ListKind::TASKS ? window.TaskList() : window.DstList();
}

// Each has its options of the system's dialog.
enum class FileDialog { OPEN_FILE, SAVE_FILE, OPEN_FILTER };

struct CFileKind {
  std::wstring label;
  std::wstring pattern;  // "*.qlmr"
};

struct CFileQuestion {
  FileDialog dialog = FileDialog::OPEN_FILE;
  std::wstring initialPath;  // empty: the system's choice
  std::vector<CFileKind> kinds;
  std::wstring defaultExtension;  // without a dot; empty: none
};

class IDialogs {
 public:
  virtual ~IDialogs() = default;

  // Returns the full path; empty if the user cancelled.
  virtual std::optional<std::wstring> AskPath(const CFileQuestion& question) = 0;

  // Modal; hands what was typed to CPasswordEntry::Accept until that returns true. Returns false if the user
  // cancelled.
  virtual bool AskPassword(CPasswordEntry& entry) = 0;

  // Modal; `confirm` takes the edited item. What it throws is shown, and the dialog stays.
  virtual void EditTask(const CTask& task, const std::function<void(const CTask&)>& confirm) = 0;
  virtual void EditDst(const CDst& dst, const std::function<void(const CDst&)>& confirm) = 0;

  // Modal; shows what a filter file does to the files of a source folder, which may be empty.
  virtual void ShowFilter(const std::wstring& filterPath, const std::wstring& sourcePath) = 0;

  virtual void ShowSettings(bool designPage) = 0;  // modal
  virtual void ShowAbout() = 0;                    // modal

  // Opens the replace dialog over the open replace tool. The dialog ends with the tool's Commit or Cancel.
  virtual void OpenReplace() = 0;
  virtual void FocusReplace() = 0;

  // Cancels the replace dialog as the user does. The tool is still open afterwards if it refused.
  virtual void CancelReplace() = 0;
};

// Items of the document on the clipboard, shared by all running copies of the program.
class IClipboard {
 public:
  virtual ~IClipboard() = default;
  virtual void Set(const CClip& clip) = 0;
  virtual std::optional<std::string> Document() = 0;  // CClip::document; empty if there is none
  virtual bool HasDocument() const = 0;               // cheap
};

}  // namespace qlm
