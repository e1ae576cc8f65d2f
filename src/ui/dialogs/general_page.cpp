#include "ui/dialogs/general_page.h"

#include <algorithm>

#include "app/command.h"
#include "app/password.h"
#include "control_ids.h"
#include "engine/archiver_location.h"
#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "support/secret.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/framework/controls.h"
#include "ui/framework/file_dialogs.h"
#include "ui/framework/file_version.h"

namespace qlm {
namespace {

// Posted to the page itself, to be handled when the combo box has updated its text.
constexpr UINT kSettled = WM_APP;

}  // namespace

CGeneralPage::CGeneralPage(CAppContext& context) : CSettingsPage(IDD_GENERAL_PAGE), m_context(context) {}

std::wstring CGeneralPage::Title() const {
  return m_context.ports.engine.texts.Text(IDS_GENERAL_PAGE);
}

void CGeneralPage::Store(CSettings& settings) {
  CArchiveSetting archive = settings.archive;
  const my::CWipeAtEnd wipe(archive.password);
  archive.sevenZipPath = ArchiverPath();
  archive.passwordType = static_cast<PasswordType>(my::Chosen(Item(IDC_PASSWORD_TYPE)));
  archive.hidePassword = IsChecked(IDC_HIDE_PASSWORD);
  if (archive.passwordType == PasswordType::SAVE) {
    my::Wipe(archive.password);
    archive.password = ItemText(IDC_PASSWORD);
  }
  SetArchiveSetting(settings.archive, archive);
  settings.ui.powerOffType = static_cast<PowerOffType>(my::Chosen(Item(IDC_POWER_OFF_TYPE)));
  settings.ui.hybridShutdown = IsChecked(IDC_HYBRID_SHUTDOWN);
  settings.ui.installUpdates = IsChecked(IDC_INSTALL_UPDATES);
}

void CGeneralPage::FocusRefused() {
  FocusItem(IDC_PASSWORD);
}

my::CBox CGeneralPage::Layout() const {
  using my::Field, my::Group, my::Control, my::Row;
  return my::Column(
      {my::LabelOf(IDC_ARCHIVER_PATH), Row({Control(IDC_ARCHIVER_PATH).Wide(), Control(IDC_ARCHIVER_BROWSE)}),
       Control(IDC_ARCHIVER_VERSION).Wide(), my::Space(),
       Group(IDC_PASSWORD_GROUP,
             {Field(IDC_PASSWORD_TYPE), Row({my::Indent(), Control(IDC_PASSWORD_DESC).Wide().Lines(2)}),
              Field(IDC_PASSWORD), Row({my::Indent(), Control(IDC_HIDE_PASSWORD)})}),
       my::Space(),
       Group(IDC_POWER_OFF_GROUP,
             {Field(IDC_POWER_OFF_TYPE), Row({my::Indent(), Control(IDC_POWER_OFF_DESC).Wide()}),
              Row({my::Indent(), Control(IDC_HYBRID_SHUTDOWN)}),
              Row({my::Indent(), Control(IDC_INSTALL_UPDATES)})})});
}

bool CGeneralPage::OnInit() {
  InitArchiver();
  InitPassword();
  InitPowerOff();
  return false;
}

void CGeneralPage::InitArchiver() {
  std::vector<std::wstring> paths = ArchiverCandidates(m_context.ports.folders);
  const std::wstring& own = m_context.settings.archive.sevenZipPath;
  std::erase_if(paths, [&](const std::wstring& path) {
    return my::EqualNoCase(path, own) ||
           my::KindIfKnown(m_context.ports.engine.files, path) != my::PathKind::File;
  });
  if (!own.empty()) paths.insert(paths.begin(), own);
  my::FillCombo(Item(IDC_ARCHIVER_PATH), paths);
  SetItemText(IDC_ARCHIVER_PATH, own);
  ShowArchiverVersion();
}

void CGeneralPage::InitPassword() {
  const CArchiveSetting& setting = m_context.settings.archive;
  my::FillFromTexts(Item(IDC_PASSWORD_TYPE), m_context.ports.engine.texts, kPasswordTypeTexts,
                    setting.passwordType);
  SetItemText(IDC_PASSWORD, setting.password);
  SetChecked(IDC_HIDE_PASSWORD, setting.hidePassword);
  my::MaskPassword(Item(IDC_PASSWORD), setting.hidePassword);
  ShowPasswordType();
}

void CGeneralPage::InitPowerOff() {
  const CUISetting& setting = m_context.settings.ui;
  my::FillFromTexts(Item(IDC_POWER_OFF_TYPE), m_context.ports.engine.texts, kPowerOffTypeTexts,
                    setting.powerOffType);
  SetChecked(IDC_HYBRID_SHUTDOWN, setting.hybridShutdown);
  SetChecked(IDC_INSTALL_UPDATES, setting.installUpdates);
  ShowPowerOffType();
}

bool CGeneralPage::OnCommand(int id, int code) {
  switch (id) {
    case IDC_ARCHIVER_PATH: return OnArchiverPath(code);
    case IDC_ARCHIVER_BROWSE: BrowseArchiver(); return true;
    case IDC_PASSWORD:
      if (code == EN_CHANGE) ReportChange();
      return true;
    case IDC_PASSWORD_TYPE:
      if (code != CBN_SELCHANGE) return false;
      ShowPasswordType();
      break;
    case IDC_POWER_OFF_TYPE:
      if (code != CBN_SELCHANGE) return false;
      ShowPowerOffType();
      break;
    case IDC_HIDE_PASSWORD: my::MaskPassword(Item(IDC_PASSWORD), IsChecked(id)); break;
    case IDC_HYBRID_SHUTDOWN:
    case IDC_INSTALL_UPDATES: break;
    default: return false;
  }
  ReportChange();
  return true;
}

bool CGeneralPage::OnArchiverPath(int code) {
  switch (code) {
    case CBN_EDITCHANGE:
      // The path is not checked while it is being typed, because an incomplete one may name a slow server.
      SetItemText(IDC_ARCHIVER_VERSION, {});
      ReportChange();
      return true;
    case CBN_SELCHANGE:
      ReportChange();
      // The edit control gets the chosen text only after this notification.
      ::PostMessageW(Hwnd(), kSettled, 0, 0);
      return true;
    case CBN_KILLFOCUS: ShowArchiverVersion(); return true;
    default: return false;
  }
}

std::optional<LRESULT> CGeneralPage::OnMessage(UINT message, WPARAM, LPARAM) {
  if (message != kSettled) return {};
  ShowArchiverVersion();
  return 0;
}

void CGeneralPage::OnClosed(int) {
  my::WipePassword(Item(IDC_PASSWORD));
}

void CGeneralPage::BrowseArchiver() {
  const my::IMessageTexts& texts = m_context.ports.engine.texts;
  my::CFileDialogParams params;
  params.kinds = {{texts.Text(IDS_ARCHIVER_FILES), L"7z.exe"}, {texts.Text(IDS_PROGRAM_FILES), L"*.exe"}};
  params.initialPath = ArchiverPath();
  params.flags |= OFN_FILEMUSTEXIST;
  const auto path = my::AskOpenPath(::GetAncestor(Hwnd(), GA_ROOT), params);
  if (!path) return;
  SetItemText(IDC_ARCHIVER_PATH, *path);
  ShowArchiverVersion();
  ReportChange();
}

void CGeneralPage::ShowArchiverVersion() {
  const my::IMessageTexts& texts = m_context.ports.engine.texts;
  const std::wstring path = ArchiverPath();
  if (path.empty() || my::KindIfKnown(m_context.ports.engine.files, path) != my::PathKind::File) {
    return SetItemText(IDC_ARCHIVER_VERSION, texts.Text(IDS_ARCHIVER_NOT_FOUND));
  }
  const auto version = my::ReadFileVersion(path);
  SetItemText(IDC_ARCHIVER_VERSION,
              version ? version->product + L" " + version->version : texts.Text(IDS_ARCHIVER_UNKNOWN));
}

void CGeneralPage::ShowPasswordType() {
  const auto type = static_cast<PasswordType>(my::Chosen(Item(IDC_PASSWORD_TYPE)));
  SetItemText(IDC_PASSWORD_DESC, m_context.ports.engine.texts.Text(kPasswordTypeDescriptions[type]));
  EnableField(IDC_PASSWORD, type == PasswordType::SAVE);
}

void CGeneralPage::ShowPowerOffType() {
  const auto type = static_cast<PowerOffType>(my::Chosen(Item(IDC_POWER_OFF_TYPE)));
  SetItemText(IDC_POWER_OFF_DESC, m_context.ports.engine.texts.Text(kPowerOffTypeDescriptions[type]));
  const bool turnsOff = type == PowerOffType::POWEROFF;
  EnableItem(IDC_HYBRID_SHUTDOWN, turnsOff);
  EnableItem(IDC_INSTALL_UPDATES, turnsOff);
}

// Returns the path without the quotation marks that the file manager adds when copying it.
std::wstring CGeneralPage::ArchiverPath() const {
  const std::wstring text = ItemText(IDC_ARCHIVER_PATH);
  return std::wstring(my::Trim(text, L" \t\r\n\""));
}

}  // namespace qlm
