#include "app/start_commands.h"

#include "app/command_line.h"
#include "app/document_commands.h"
#include "app/messenger.h"
#include "app/windows.h"
#include "command_ids.h"
#include "document/document.h"
#include "engine/archiver_location.h"
#include "platform/file_system.h"
#include "platform/message_texts.h"
#include "settings/settings.h"
#include "settings/settings_file.h"
#include "text_ids.h"

namespace qlm {
namespace {

// A command that calls a function.
template <class Work>
class CInlineCommand final : public CCommand {
 public:
  CInlineCommand(CAppContext& context, Work work) : CCommand(context), m_work(std::move(work)) {}
  void Execute(bool) override { m_work(); }

 private:
  Work m_work;
};

template <class Work>
void RunInline(CAppContext& context, bool rethrow, Work work) {
  CInlineCommand<Work> command(context, std::move(work));
  RunCommand(context, command, true, rethrow);
}

}  // namespace

void CCommandQuit::Execute(bool run) {
  if (run) RunInline(m_context, false, [this] { Store(); });
}

void CCommandQuit::Store() {
  m_context.window.StoreSettings(m_context.settings);
  const std::wstring& path = m_context.document.Path();
  if (!path.empty() || !m_keepLastPath) m_context.settings.ui.lastPath = path;
  if (m_skipSave) return;
  const CAppPorts& ports = m_context.ports;
  SaveSettings(ports.engine.files, ports.engine.clock, ports.dom,
               SettingsPath(ports.folders, ports.engine.texts), m_context.settings);
}

void CCommandInit::Execute(bool run) {
  if (!run) return;
  if (!LoadSettings()) {
    m_context.window.PostClose();
    return;
  }
  FindArchiverIfUnknown();
  m_quit->SetSkipSave(false);
  m_context.window.ApplySettings(m_context.settings);
  if (CSingleCommandLineParser(m_commandLine).FilterToCheck().empty())
    OpenFirstDocument();
  else
    BeginFilterCheck();
}

// Returns whether to continue.
bool CCommandInit::LoadSettings() {
  const CAppPorts& ports = m_context.ports;
  CSettings& settings = m_context.settings;
  std::wstring path;
  try {
    path = SettingsPath(ports.folders, ports.engine.texts);
    if (ports.engine.files.Kind(path) == my::PathKind::None) return true;
    const my::CVersion version = qlm::LoadSettings(ports.engine.files, ports.dom, path, settings);
    return version <= kSettingsVersion || m_context.messenger.Ask(IDS_ASK_SETTINGS_NEWER);
  } catch (const my::CException& failure) {
    return AskAboutFailure(path, failure);
  }
}

bool CCommandInit::AskAboutFailure(const std::wstring& path, my::CException failure) {
  failure.SetWhere({});  // the question names the file itself
  const std::wstring text = my::MakeErrorText(m_context.ports.engine.texts, failure);
  if (path.empty()) return m_context.messenger.Ask(IDS_ASK_SETTINGS_ERROR, {text});
  return m_context.messenger.Ask(IDS_ASK_SETTINGS_FILE_ERROR, {path, text});
}

void CCommandInit::FindArchiverIfUnknown() {
  std::wstring& path = m_context.settings.archive.sevenZipPath;
  if (path.empty()) path = FindArchiver(m_context.ports.engine.files, m_context.ports.folders);
}

// The document is empty until here, but the window does not show that yet.
void CCommandInit::OpenFirstDocument() {
  try {
    RunInline(m_context, true, [this] {
      std::wstring path = CSingleCommandLineParser(m_commandLine).Path();
      if (path.empty()) path = m_context.settings.ui.lastPath;
      if (path.empty())
        ShowEmptyDocument();
      else
        CCommandOpen(m_context, false, path).Execute(true);
    });
  } catch (const my::CCtrlException&) {
    ShowEmptyDocument();
  }
}

// The check needs no document. The last one, which may be gone, is left to the next start.
void CCommandInit::BeginFilterCheck() {
  ShowEmptyDocument();
  m_quit->KeepLastPath();
  m_context.window.PostCommand(ID_CHECK_GIVEN_FILTER);
}

void CCommandInit::ShowEmptyDocument() {
  m_context.document.Reset({}, {});
  m_context.window.UpdateTitle();
}

void CCommandCheckFilter::Execute(bool run) {
  if (run) m_context.dialogs.ShowFilter(m_context.ports.engine.files.FullPath(m_path), {});
}

}  // namespace qlm
