#include "run/archive_choice.h"

#include "engine/archive_password.h"
#include "engine/archiver_location.h"
#include "platform/console.h"
#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "run/warnings.h"
#include "settings/settings_file.h"
#include "support/secret.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

void WarnOfDamage(const CRunnerPorts& ports, const std::wstring& path, my::CException failure) {
  const my::IMessageTexts& texts = ports.engine.texts;
  failure.SetWhere(path);
  const my::CMsgArg reason = my::MakeErrorText(texts, failure);
  Warn(ports, my::MakeText(texts, IDS_SETTINGS_PARTLY_READ, {&reason, 1}));
}

// Reads the archive settings. A settings file named in the options must exist; without the user's own file
// the defaults apply.
CArchiveSetting ReadArchiveSetting(const CRunnerPorts& ports, const COptions& options) {
  const bool named = !options.settingsPath.empty();
  const std::wstring path = named ? options.settingsPath : SettingsPath(ports.folders, ports.engine.texts);
  if (!named && ports.engine.files.Kind(path) == my::PathKind::None) return {};
  const CArchiveLoad load = LoadArchiveSetting(ports.engine.files, ports.dom, path);
  if (load.laterFailure) WarnOfDamage(ports, path, *load.laterFailure);
  return load.archive;
}

std::wstring ReadPassword(const CRunnerPorts& ports, const COptions& options,
                          const CArchiveSetting& setting) {
  std::wstring password;
  if (options.passwordStdin) {
    password = ports.console.ReadLine().value_or(std::wstring());
    if (password.find(static_cast<wchar_t>(my::kReplacementChar)) != password.npos)
      throw my::CException(IDS_PASSWORD_NOT_UTF8);
  } else if (setting.passwordType == PasswordType::SAVE) {
    password = setting.password;
  }
  if (password.empty()) throw my::CException(IDS_PASSWORD_NEEDED);
  CheckPassword(password);
  return password;
}

std::wstring ChooseArchiver(const CRunnerPorts& ports, const COptions& options,
                            const CArchiveSetting& setting) {
  const std::wstring& path = options.archiverPath.empty() ? setting.sevenZipPath : options.archiverPath;
  return path.empty() ? FindArchiver(ports.engine.files, ports.folders) : path;
}

}  // namespace

CPlannedArchive PlanArchive(const CRunnerPorts& ports, const COptions& options,
                            const std::vector<CTaskPtr>& tasks) {
  if (!AnyDst(tasks, IsZip)) return {};
  const bool needsPassword = AnyDst(tasks, NeedsPassword) && !options.passwordStdin;
  const bool known = !options.archiverPath.empty() && !needsPassword;
  CArchiveSetting setting = known ? CArchiveSetting() : ReadArchiveSetting(ports, options);
  const my::CWipeAtEnd wipe(setting.password);
  const bool stored = setting.passwordType == PasswordType::SAVE && !setting.password.empty();
  return {ChooseArchiver(ports, options, setting), needsPassword && !stored};
}

CArchiveChoice ChooseArchive(const CRunnerPorts& ports, const COptions& options,
                             const std::vector<CTaskPtr>& tasks) {
  CArchiveChoice choice;
  if (options.listOnly || !AnyDst(tasks, IsZip)) return choice;
  const bool needsPassword = AnyDst(tasks, NeedsPassword);
  CArchiveSetting setting;
  if (options.archiverPath.empty() || (needsPassword && !options.passwordStdin)) {
    setting = ReadArchiveSetting(ports, options);
  }
  choice.archiverPath = ChooseArchiver(ports, options, setting);
  if (needsPassword) choice.password = ReadPassword(ports, options, setting);
  return choice;
}

}  // namespace qlm
