// The zip password: when it is asked for, what is remembered of it, and which ones are refused.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "support/exception.h"

namespace my {
class CMsg;
class IHash;
}  // namespace my

namespace qlm {

struct CAppContext;

// The MD5 digest of the password's UTF-8 bytes, empty for an empty password. Throws what IHash::Md5 throws.
std::string HashPassword(const my::IHash& hash, std::wstring_view password);

// What the password dialog works on: a copy of the archive settings. The copy's password is wiped in the end.
class CPasswordEntry {
 public:
  CPasswordEntry(const CArchiveSetting& setting, const my::IHash& hash, my::CMsg& messenger);
  CPasswordEntry(const CPasswordEntry&) = delete;
  CPasswordEntry& operator=(const CPasswordEntry&) = delete;
  ~CPasswordEntry();

  const CArchiveSetting& Setting() const { return m_setting; }

  // To be called when the dialog is confirmed. Takes the password and the hide flag over, and answers true
  // when the dialog may close: a password that differs from the last one is asked about. If no hash can be
  // made of it, the dialog may close as well; nothing is taken over then.
  // Throws IDS_PASSWORD_EMPTY or IDS_PASSWORD_BAD_CHARACTER; the dialog stays open.
  bool Accept(const std::wstring& password, bool hide);

  // Why no hash could be made; ends the password step.
  const std::optional<my::CException>& Failure() const { return m_failure; }

 private:
  CArchiveSetting m_setting;
  const my::IHash& m_hash;
  my::CMsg& m_messenger;
  std::optional<my::CException> m_failure;
};

// The password step of a run that needs one: takes care that the run's copy of the settings has a password.
// Answers false when the user cancelled; then nothing is changed.
// Throws IDS_PASSWORD_BAD_CHARACTER for a stored password that the archiver cannot be given, and what
// IHash::Md5 throws.
bool AskPassword(CAppContext& context, CArchiveSetting& runCopy);

// Takes the archive settings over that a settings page holds. Unless it is stored or kept for the session,
// the password is wiped. Throws IDS_PASSWORD_BAD_CHARACTER.
void SetArchiveSetting(CArchiveSetting& live, const CArchiveSetting& edited);

}  // namespace qlm
