// The settings dialog: pages, one of which shows at a time.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "ui/dialogs/settings_page.h"
#include "ui/framework/dialog.h"

namespace qlm {

struct CAppContext;
struct CDesignSetting;

// OK and Apply store the pages into the live settings: all of them, or none when one refuses; that one is
// shown then. The settings file is not written.
class CSettingsSheet : public my::CDialog {
 public:
  // `preview` shows a design in the main window; throws what is wrong with it.
  using FPreview = std::function<void(const CDesignSetting&)>;

  // Opens at a page, counted from 0; at the last one when there are fewer.
  CSettingsSheet(
      CAppContext& context, size_t firstPage, FPreview preview = [](const CDesignSetting&) {});

 protected:
  bool OnInit() override;
  void OnOk() override;
  void OnCancel() override;
  bool OnCommand(int id, int code) override;
  std::optional<LRESULT> OnNotify(const NMHDR& header) override;
  void OnDpiChanged() override;

 private:
  void AddPage(CSettingsPage& page);
  RECT PageArea() const;
  void ShowPage(size_t index);
  void Preview(const CDesignSetting& design) const;
  bool Apply();
  bool StorePages(CSettings& settings);

  CAppContext& m_context;
  FPreview m_preview;
  bool m_cancelled = false;
  size_t m_shown;
  my::CAutoMessageLoop m_pageKeys;  // never runs: the modal loop of the sheet translates the pages' keys
  std::vector<std::unique_ptr<CSettingsPage>> m_pages;
};

}  // namespace qlm
