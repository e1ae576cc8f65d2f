#pragma once

#include <windows.h>

#include "app/windows.h"

namespace qlm {

// The dialogs that the commands ask for, over the window that is active.
class CDialogs : public IDialogs {
 public:
  void SetOwner(HWND owner) { m_owner = owner; }

  std::optional<std::wstring> AskOpenPath(const CFileQuestion& question) override;
  std::optional<std::wstring> AskSavePath(const CFileQuestion& question) override;
  bool AskPassword(CPasswordEntry& entry) override;
  void ShowSettings(bool designPage) override;
  void OpenReplace(CReplaceTool& tool) override;
  void FocusReplace() override;
  void CancelReplace() override;

 private:
  HWND Owner() const;

  HWND m_owner = nullptr;
};

}  // namespace qlm
