// The page for archiver, zip password and power-off action.
#pragma once

#include "ui/dialogs/settings_page.h"

namespace qlm {

struct CAppContext;

class CGeneralPage : public CSettingsPage {
 public:
  explicit CGeneralPage(CAppContext& context);

  std::wstring Title() const override;

  // Throws IDS_PASSWORD_BAD_CHARACTER.
  void Store(CSettings& settings) override;
  void FocusRefused() override;

 protected:
  my::CBox Layout() const override;
  bool OnInit() override;
  bool OnCommand(int id, int code) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnClosed(int result) override;

 private:
  void InitArchiver();
  void InitPassword();
  void InitPowerOff();
  bool OnArchiverPath(int code);
  void BrowseArchiver();
  void ShowArchiverVersion();
  void ShowPasswordType();
  void ShowPowerOffType();
  std::wstring ArchiverPath() const;

  CAppContext& m_context;
};

}  // namespace qlm
