// The settings dialog, with one tab per page.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "ui/dialogs/settings_page.h"
#include "ui/framework/dialog.h"
#include "ui/framework/dialog_keys.h"

namespace qlm {

struct CAppContext;

// OK and Apply store all pages in the live settings, or none if a page refuses; that page is then shown. The
// settings file is not written. Ctrl+Tab and Ctrl+PageDown show the next page, with Shift and Ctrl+PageUp the
// previous one.
class CSettingsSheet : public my::CDialog {
 public:
  // Opens with the page at the given 0-based index, at most the last one.
  CSettingsSheet(CAppContext& context, size_t firstPage, CDesignPreview preview);

 protected:
  my::CBox Layout() const override;
  std::optional<my::CSizeRanges> SizesOf(int id) const override;
  bool OnInit() override;
  void OnOk() override;
  void OnCancel() override;
  bool OnCommand(int id, int code) override;
  std::optional<LRESULT> OnNotify(const NMHDR& header) override;
  void OnDpiChanged() override;
  void OnArranged() override;
  void OnClosed(int result) override;

 private:
  void AddPage(CSettingsPage& page);
  RECT PageArea() const;
  void ShowPage(size_t index);
  void FocusPage() const;
  bool OnKey(UINT key);
  void Turn(bool back);
  void Preview(const CDesignSetting& design) const;
  bool Apply();
  bool StorePages(CSettings& settings);

  CAppContext& m_context;
  CDesignPreview m_preview;
  bool m_cancelled = false;
  size_t m_shown;
  my::CDialogKeys m_keys;
  my::CAutoMessageLoop m_pageKeys;  // never runs: the modal loop of the sheet handles the keys of the pages
  std::vector<std::unique_ptr<CSettingsPage>> m_pages;
};

}  // namespace qlm
