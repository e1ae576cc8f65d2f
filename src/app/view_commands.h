// The commands that open dialogs.
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

}  // namespace qlm
