// Labels and explanations of commands in the main window.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "ui/models/command_text.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

class CApplication;
class CMainView;

class CCommandHelp {
 public:
  // All arguments must outlive the object. `keys` has the shortcuts shown in tips and menus.
  CCommandHelp(CApplication& application, CMainView& view, HACCEL keys);

  std::wstring Explanation(int id) const { return TextOf(id).explanation; }
  void ShowTip(NMTBGETINFOTIPW& tip) const;

  // Sets the labels of the menu items that depend on the run and on the edits to undo and redo.
  void LabelItems(HMENU menu) const;

 private:
  CCommandText TextOf(int id) const;

  CApplication& m_app;
  const my::IMessageTexts& m_texts;
  CMainView& m_view;
  HACCEL m_keys;
};

}  // namespace qlm
