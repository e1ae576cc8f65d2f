#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <utility>

#include "app/windows.h"
#include "engine/result.h"
#include "settings/settings.h"
#include "ui/framework/message_loop.h"

namespace my {
class CDisabledWindows;
}

namespace qlm {

class CClosingDialog;
class CHistoryDialog;
class CReplaceDialog;
class CPlanDialog;
class CResultDialog;
class CResultListModel;
struct CAppContext;
struct CLoadedHistory;

// Opens the dialogs of the program, owned by the active window: those that commands need, and the others.
class CDialogs : public IDialogs {
 public:
  explicit CDialogs(my::CAutoMessageLoop& loop);
  ~CDialogs() override;

  // Must be called before any other function.
  void SetOwner(HWND owner, CAppContext& context);

  // Sets the function that shows a design in the main window; it throws if an image cannot be read.
  void SetPreview(std::function<void(const CDesignSetting&)> preview) { m_preview = std::move(preview); }

  std::optional<std::wstring> AskPath(const CFileQuestion& question) override;
  bool AskPassword(CPasswordEntry& entry) override;
  void ShowSettings(bool designPage) override;
  void ShowAbout() override;
  void ShowSchedules(bool all) override;
  void ShowFilter(const std::wstring& filterPath, const std::wstring& sourcePath) override;
  void OpenReplace() override;
  void FocusReplace() override;
  void CancelReplace() override;

  void EditTask(const CTask& task, const std::function<void(const CTask&)>& confirm) override;
  void EditDst(const CDst& dst, const std::function<void(const CDst&)>& confirm) override;

  void ShowPlan(CPlanRequest request, const std::vector<std::wstring>& ids) override;

  // Must be called when the selections of the lists have changed.
  void RefreshReplace();

  // Opens or focuses the result dialog; the model must outlive this object.
  void ShowResults(const CResultListModel& results);
  // Must be called when rows from `first` on were added or changed.
  void RefreshResults(size_t first);

  // Opens or focuses the history, which calls `reload` for every reading; what was read must be passed on.
  void OpenHistory(const std::function<void()>& reload);
  bool IsHistoryOpen() const;
  void ShowHistory(std::shared_ptr<const CLoadedHistory> loaded);

  void ShowTargets(const CResultPtr& row);

  // Disables all windows and opens the dialog that shows what the program waits for before it exits.
  void OpenClosing();
  void ShowClosing(const std::wstring& text, const std::wstring& path);  // once it is open

  // Stores the placements of the open modeless dialogs.
  void RememberOpen();

 private:
  HWND Owner() const;

  my::CAutoMessageLoop& m_loop;
  HWND m_owner = nullptr;
  CAppContext* m_context = nullptr;
  std::function<void(const CDesignSetting&)> m_preview;
  std::unique_ptr<CReplaceDialog> m_replace;
  std::unique_ptr<CResultDialog> m_results;
  // While the program runs; the settings file has no place for them.
  CColumnsDlgSetting m_planSetting;
  CColumnsDlgSetting m_historySetting;
  CColumnsDlgSetting m_scheduleSetting;
  std::unique_ptr<CPlanDialog> m_plan;
  std::unique_ptr<CHistoryDialog> m_history;
  std::unique_ptr<my::CDisabledWindows> m_disabled;
  std::unique_ptr<CClosingDialog> m_closing;
};

}  // namespace qlm
