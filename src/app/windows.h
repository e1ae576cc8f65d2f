// What the commands need of the windows, which implement it. GUI thread only.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/result.h"

namespace qlm {

class CPasswordEntry;
class CReplaceTool;
struct CSettings;

// A list on the screen; rows are positions in the list of the document that it shows.
class IListState {
 public:
  virtual ~IListState() = default;
  virtual std::optional<size_t> FocusedRow() const = 0;
  virtual std::vector<size_t> SelectedRows() const = 0;  // ascending
  virtual void Focus() = 0;                              // gives the keyboard to the list
};

class IMainWindow {
 public:
  virtual ~IMainWindow() = default;

  virtual IListState& TaskList() = 0;
  virtual IListState& DstList() = 0;

  // Redraws the two lists, whose texts have changed without the document (the preview of the replace tool).
  virtual void RedrawLists() = 0;

  virtual void ApplySettings(const CSettings& settings) = 0;
  virtual void StoreSettings(CSettings& settings) = 0;

  // The document's path or its modified flag has changed.
  virtual void UpdateTitle() = 0;

  // As if the user closed the window, once the current command has ended.
  virtual void PostClose() = 0;

  // Tells the system why the session must not end now; an empty text tells it that it may.
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
};

// Flags of file questions, values of the system.
inline constexpr uint32_t kDialogOverwritePrompt = 0x2;
inline constexpr uint32_t kDialogHideReadOnly = 0x4;
inline constexpr uint32_t kDialogNoChangeDir = 0x8;
inline constexpr uint32_t kDialogFileMustExist = 0x1000;
inline constexpr uint32_t kDialogExplorer = 0x80000;
inline constexpr uint32_t kDialogSizing = 0x800000;

struct CFileQuestion {
  std::wstring initialPath;                                  // empty: the system's choice
  std::vector<std::pair<std::wstring, std::wstring>> kinds;  // label and pattern, "*.qlmr"
  std::wstring defaultExtension;                             // without a dot; empty: none
  uint32_t flags = 0;                                        // kDialog...
};

class IDialogs {
 public:
  virtual ~IDialogs() = default;

  // Nothing when the user cancelled.
  virtual std::optional<std::wstring> AskOpenPath(const CFileQuestion& question) = 0;
  virtual std::optional<std::wstring> AskSavePath(const CFileQuestion& question) = 0;

  // Modal; shows the entry and hands what was typed to CPasswordEntry::Accept until that returns true.
  // Returns false if the user cancelled.
  virtual bool AskPassword(CPasswordEntry& entry) = 0;

  virtual void ShowSettings(bool designPage) = 0;  // modal

  // Opens the replace dialog over a tool that has just been opened. It ends with the tool's Commit or Cancel.
  virtual void OpenReplace(CReplaceTool& tool) = 0;
  virtual void FocusReplace() = 0;

  // As if the user cancelled the replace dialog. The tool is still open afterwards if it refused.
  virtual void CancelReplace() = 0;
};

}  // namespace qlm
