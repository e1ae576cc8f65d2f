#pragma once

#include "platform/known_folders.h"

namespace my {

class CWin32KnownFolders : public IKnownFolders {
 public:
  std::optional<std::wstring> ProgramFiles() const override;
  std::wstring RoamingAppData() const override;
  std::wstring ProgramFolder() const override;
};

}  // namespace my
