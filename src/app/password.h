// The zip password: when to ask for it, what to remember, and what to refuse.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "document/task.h"
#include "settings/settings.h"
#include "support/exception.h"

namespace my {
class CMsg;
class IHash;
}  // namespace my

namespace qlm {

struct CAppContext;

// Returns the MD5 of the password in UTF-8; empty for an empty password. Throws what IHash::Md5 throws.
std::string HashPassword(const my::IHash& hash, std::wstring_view password);

// The state of the password dialog: a copy of the archive settings. The destructor wipes the password of the
// copy.
class CPasswordEntry {
 public:
  CPasswordEntry(const CArchiveSetting& setting, const my::IHash& hash, my::CMsg& messenger,
                 CTaskDsts dsts = {});
  CPasswordEntry(const CPasswordEntry&) = delete;
  CPasswordEntry& operator=(const CPasswordEntry&) = delete;
  ~CPasswordEntry();

  const CArchiveSetting& Setting() const { return m_setting; }
  const CTaskDsts& Dsts() const { return m_dsts; }  // those that need the password

  // Called when the dialog is confirmed. Stores password and hide flag, and returns whether the dialog may
  // close: the user is asked about a password that differs from the last one. If the hash fails, returns true
  // and stores nothing. Throws IDS_PASSWORD_EMPTY or IDS_PASSWORD_BAD_CHARACTER; the dialog then stays open.
  bool Accept(const std::wstring& password, bool hide);

  // The failure of the hash, which ends the password step.
  const std::optional<my::CException>& Failure() const { return m_failure; }

 private:
  CArchiveSetting m_setting;
  const my::IHash& m_hash;
  my::CMsg& m_messenger;
  CTaskDsts m_dsts;
  std::optional<my::CException> m_failure;
};

// Returns the destinations of the tasks that need a password, each once.
CTaskDsts PasswordDsts(const std::vector<CTaskPtr>& tasks);

// Ensures that the run's copy of the settings has a password, and asks for it if needed; the dialog names the
// destinations that need it. Returns false if the
// user cancelled; nothing is changed then. Throws IDS_PASSWORD_BAD_CHARACTER for a stored password that
// cannot be passed to the archiver, and what IHash::Md5 throws.
bool AskPassword(CAppContext& context, CArchiveSetting& runCopy, CTaskDsts dsts);

// Applies the archive settings of a settings page. The password is wiped unless it is stored or kept for the
// session. Throws IDS_PASSWORD_BAD_CHARACTER.
void SetArchiveSetting(CArchiveSetting& live, const CArchiveSetting& edited);

}  // namespace qlm
