// The commands that open dialogs and change the view.
#pragma once

#include "app/command.h"

namespace qlm {

class CCommandReplace final : public CCommand {
 public:
  using CCommand::CCommand;
  void Execute(bool run) override;
};

class CCommandSetting final : public CCommand {
 public:
  CCommandSetting(CAppContext& context, bool designPage) : CCommand(context), m_designPage(designPage) {}
  void Execute(bool run) override;

 private:
  bool m_designPage;
};

// A command without preconditions.
class CCommandView final : public CCommand {
 public:
  using Action = void (*)(CAppContext& context);

  CCommandView(CAppContext& context, Action action) : CCommand(context), m_action(action) {}
  void Execute(bool run) override {
    if (run) m_action(m_context);
  }

 private:
  Action m_action;
};

// The actions of CCommandView.
void OpenResults(CAppContext& context);
void OpenHistory(CAppContext& context);
void ShowAbout(CAppContext& context);
void FocusOtherList(CAppContext& context);
void ToggleFullScreen(CAppContext& context);
void CloseWindow(CAppContext& context);

// Shows the effect of the focused task's filter. If there is none, the user chooses a filter file.
void CheckFilter(CAppContext& context);

}  // namespace qlm
