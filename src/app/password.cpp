#include "app/password.h"

#include <algorithm>
#include <utility>

#include "app/command.h"
#include "app/messenger.h"
#include "app/windows.h"
#include "engine/archive_password.h"
#include "platform/hash.h"
#include "support/secret.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
std::string HashPassword(const my::IHash& hash, std::wstring_view password) {
  if (password.empty()) return {};
  std::string utf8 = my::Utf8FromWide(password);
  const my::CWipeAtEnd wipe(utf8);
  return hash.Md5(utf8);
}

CPasswordEntry::CPasswordEntry(const CArchiveSetting& setting, const my::IHash& hash, my::CMsg& messenger,
                               CTaskDsts dsts)
    : m_setting(setting), m_hash(hash), m_messenger(messenger), m_dsts(std::move(dsts)) {}

CPasswordEntry::~CPasswordEntry() {
  my::Wipe(m_setting.password);
}

bool CPasswordEntry::Accept(const std::wstring& password, bool hide) {
  if (password.empty()) throw my::CException(IDS_PASSWORD_EMPTY);
  CheckPassword(password);
  std::string hash;
  try {
    hash = HashPassword(m_hash, password);
  } catch (const my::CException& failure) {
    m_failure = failure;
    return true;
  }
  const std::string& last = m_setting.passwordHash;
  if (!last.empty() && hash != last && !m_messenger.Ask(IDS_ASK_PASSWORD_DIFFERS)) return false;
  m_setting.password = password;
  m_setting.hidePassword = hide;
  m_setting.passwordHash = hash;
  return true;
}

CTaskDsts PasswordDsts(const std::vector<CTaskPtr>& tasks) {
  CTaskDsts dsts;
  for (const CTaskPtr& task : tasks) {
    for (const CDstPtr& dst : task->dsts) {
      if (NeedsPassword(dst->type) && std::ranges::count(dsts, dst) == 0) dsts.push_back(dst);
    }
  }
  return dsts;
}

bool AskPassword(CAppContext& context, CArchiveSetting& runCopy, CTaskDsts dsts) {
  if (runCopy.password.empty()) {
    CPasswordEntry entry(runCopy, context.ports.hash, context.messenger, std::move(dsts));
    if (!context.dialogs.AskPassword(entry)) return false;
    if (entry.Failure()) throw my::CException(*entry.Failure());
    runCopy = entry.Setting();
    SetArchiveSetting(context.settings.archive, runCopy);
  }
  CheckPassword(runCopy.password);
  return true;
}

void SetArchiveSetting(CArchiveSetting& live, const CArchiveSetting& edited) {
  CheckPassword(edited.password);
  my::Wipe(live.password);
  live = edited;
  if (live.passwordType == PasswordType::EXEC) my::Wipe(live.password);
}

}  // namespace qlm
