// The base of the pages in the settings sheet.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "ui/framework/dialog.h"

namespace qlm {

struct CDesignSetting;
struct CSettings;

// Shows a design in the main window. Throws IDS_IMAGE_NOT_READ.
using CDesignPreview = std::function<void(const CDesignSetting&)>;

// A child dialog. Its sheet creates and shows it, and outlives it.
class CSettingsPage : public my::CDialog {
 public:
  using CDialog::CDialog;

  // The text of the tab.
  virtual std::wstring Title() const = 0;

  // Copies the values of the controls to the settings. Throws the violated rule.
  virtual void Store(CSettings& settings) = 0;

  // Sets the focus to the control whose value Store refused.
  virtual void FocusRefused() = 0;

  // `changed` is called whenever the user changes a control.
  void SetChanged(std::function<void()> changed) { m_changed = std::move(changed); }

 protected:
  void ReportChange() const {
    if (m_changed) m_changed();
  }

 private:
  std::function<void()> m_changed;
};

}  // namespace qlm
