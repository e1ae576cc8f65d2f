#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <utility>

#include "app/windows.h"
#include "engine/result.h"
#include "ui/framework/message_loop.h"

namespace my {
class CDisabledWindows;
}

namespace qlm {

class CClosingDialog;
class CReplaceDialog;
class CResultDialog;
class CResultListModel;
struct CAppContext;
struct CDesignSetting;

// The program's dialogs, over the window that is active: those that the commands ask for, and the others.
class CDialogs : public IDialogs {
 public:
  explicit CDialogs(my::CAutoMessageLoop& loop);
  ~CDialogs() override;

  // To be called before any other function.
  void SetOwner(HWND owner, CAppContext& context);

  // Shows a design in the main window at once; throws what is wrong with it.
  void SetPreview(std::function<void(const CDesignSetting&)> preview) { m_preview = std::move(preview); }

  std::optional<std::wstring> AskPath(const CFileQuestion& question) override;
  bool AskPassword(CPasswordEntry& entry) override;
  void ShowSettings(bool designPage) override;
  void ShowAbout() override;
  void ShowFilter(const std::wstring& filterPath, const std::wstring& sourcePath) override;
  void OpenReplace() override;
  void FocusReplace() override;
  void CancelReplace() override;

  void EditTask(const CTask& task, const std::function<void(const CTask&)>& confirm) override;
  void EditDst(const CDst& dst, const std::function<void(const CDst&)>& confirm) override;

  // The selections of the lists have changed.
  void RefreshReplace();

  // Opens the results, or focuses them; the model outlives this object.
  void ShowResults(const CResultListModel& results);
  void RefreshResults();  // rows were added or changed

  void ShowTargets(const CResultPtr& row);

  // Disables every window and says that the program ends, and what it waits for.
  void OpenClosing();
  void ShowClosing(const std::wstring& text, const std::wstring& path);  // once it is open

  // Lets the dialogs that are open beside the main window keep what they remember.
  void RememberOpen();

 private:
  HWND Owner() const;

  my::CAutoMessageLoop& m_loop;
  HWND m_owner = nullptr;
  CAppContext* m_context = nullptr;
  std::function<void(const CDesignSetting&)> m_preview;
  std::unique_ptr<CReplaceDialog> m_replace;
  std::unique_ptr<CResultDialog> m_results;
  std::unique_ptr<my::CDisabledWindows> m_disabled;
  std::unique_ptr<CClosingDialog> m_closing;
};

}  // namespace qlm
