#pragma once

#include <optional>
#include <string>

namespace my {

class IKnownFolders {
 public:
  virtual ~IKnownFolders() = default;

  // Returns the folder of installed 32-bit programs; nullopt if the system does not report it.
  virtual std::optional<std::wstring> ProgramFiles() const = 0;

  // Returns the folder of the user's roaming application data. Throws IDS_SETTINGS_LOCATION_FAILED.
  virtual std::wstring RoamingAppData() const = 0;

  // Returns the folder of the running program. Throws the system error.
  virtual std::wstring ProgramFolder() const = 0;
};

}  // namespace my
