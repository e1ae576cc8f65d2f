// The page for colours, background and image of the main view.
#pragma once

#include <functional>

#include "settings/settings.h"
#include "ui/dialogs/settings_page.h"

namespace qlm {

struct CAppContext;

// Changes are previewed in the main window at once; the sheet restores the design when cancelled.
class CDesignPage : public CSettingsPage {
 public:
  CDesignPage(CAppContext& context, CDesignPreview preview);

  std::wstring Title() const override;

  // Throws what the preview throws.
  void Store(CSettings& settings) override;
  void FocusRefused() override;

 protected:
  my::CBox Layout() const override;
  bool OnInit() override;
  bool OnCommand(int id, int code) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  std::wstring PathIn(int id) const;
  bool OnPath(int id, int code);
  void OnChosen();
  void OnColor(int id);
  void Browse(int pathId);
  void Check(const CDesignSetting& design, bool newBrush, bool newImage);
  void EnableControls();
  void Edited();
  void Show();
  void DrawSwatch(const DRAWITEMSTRUCT& draw);
  void NameColors();
  my::CColor& ColorOf(int id);

  CAppContext& m_context;
  CDesignPreview m_preview;
  CDesignSetting m_design;
  int m_refused = 0;  // the control with the refused value
};

}  // namespace qlm
