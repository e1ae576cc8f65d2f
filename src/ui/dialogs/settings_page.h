// What the pages of the settings sheet have in common.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "ui/framework/dialog.h"

namespace qlm {

struct CSettings;

// A dialog without a frame. Its sheet creates and shows it, and outlives it.
class CSettingsPage : public my::CDialog {
 public:
  using CDialog::CDialog;

  // On the page's tab.
  virtual std::wstring Title() const = 0;

  // Puts into the settings what the controls show. Throws the rule that this breaks.
  virtual void Store(CSettings& settings) = 0;

  // Gives the keyboard to the control that Store refused.
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
