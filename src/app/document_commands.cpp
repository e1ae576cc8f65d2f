#include "app/document_commands.h"

#include "app/messenger.h"
#include "app/windows.h"
#include "document/document.h"
#include "document/document_file.h"
#include "platform/message_texts.h"
#include "resource.h"
#include "settings/settings.h"
#include "support/strings.h"

namespace qlm {
namespace {

constexpr uint32_t kHideReadOnly = 0x4;
constexpr uint32_t kOverwritePrompt = 0x2;
constexpr uint32_t kFileMustExist = 0x1000;
constexpr uint32_t kExplorer = 0x80000;
constexpr uint32_t kEnableSizing = 0x800000;

void Guard(const CAppContext& context) {
  RefuseDuringRun(context);
  RefuseDuringReplace(context);
}

CFileQuestion Question(const CAppContext& context, std::wstring initialPath, uint32_t flags) {
  const my::IMessageTexts& texts = context.ports.engine.texts;
  return {std::move(initialPath),
          {{texts.Text(IDS_DOCUMENT_KIND), L"*.qlmr"}, {texts.Text(IDS_XML_FILE_KIND), L"*.xml"}},
          {},
          kExplorer | kEnableSizing | flags};
}

// A name with half a character cannot stand in the settings file, and must not keep it from being written.
bool IsWellFormed(const std::wstring& path) {
  return my::WideFromUtf8(my::Utf8FromWide(path)) == path;
}

void Remember(CAppContext& context, const std::wstring& path) {
  if (IsWellFormed(path)) context.settings.ui.mruPathes.Add(path);
}

}  // namespace

void CCommandNew::Execute(bool run) {
  Guard(m_context);
  if (!run || !m_context.messenger.ConfirmDiscard()) return;
  m_context.document.Reset({}, {});
  m_context.window.UpdateTitle();
}

void CCommandOpen::Execute(bool run) {
  Guard(m_context);
  if (!run) return;
  if (!m_append && !m_context.messenger.ConfirmDiscard()) return;
  std::wstring path = m_path;
  if (path.empty() && !AskPath(path)) return;
  const CDocument opened = LoadDocument(m_context.ports.engine.files, m_context.ports.dom, path);
  if (m_append) {
    const auto focused = m_context.window.TaskList().FocusedRow();
    m_context.document.Merge(opened.Content(), focused ? static_cast<std::ptrdiff_t>(*focused) : -1);
  } else {
    m_context.document.Reset(opened.Content(), path);
    Remember(m_context, path);
  }
  m_context.window.UpdateTitle();
}

bool CCommandOpen::AskPath(std::wstring& path) const {
  const auto& recent = m_context.settings.ui.mruPathes.Items();
  std::wstring initial = m_context.document.Path();
  if (initial.empty() && !recent.empty()) initial = recent.front();
  const auto answer = m_context.dialogs.AskOpenPath(Question(m_context, std::move(initial), kFileMustExist));
  if (answer) path = *answer;
  return answer.has_value();
}

void CCommandOpenMru::Execute(bool run) {
  const auto& recent = m_context.settings.ui.mruPathes.Items();
  const std::wstring number = std::to_wstring(m_index);
  if (m_index >= recent.size())
    throw my::CException(IDS_INTERNAL_ERROR, {L"Mru index is out of range: " + number});
  if (recent[m_index].empty()) throw my::CException(IDS_INTERNAL_ERROR, {L"Mru value is (NULL): " + number});
  SetPath(recent[m_index]);
  CCommandOpen::Execute(run);
}

void CCommandSave::Execute(bool run) {
  Guard(m_context);
  if (!run) return;
  std::wstring path = m_context.document.Path();
  if ((m_saveAs || path.empty()) && !ChoosePath(path)) return;
  const CEnginePorts& engine = m_context.ports.engine;
  SaveDocument(engine.files, engine.clock, m_context.ports.dom, m_context.document, path);
  Remember(m_context, path);
  m_context.document.SetSaved(path);
  m_context.window.UpdateTitle();
}

bool CCommandSave::ChoosePath(std::wstring& path) const {
  CFileQuestion question = Question(m_context, path, kOverwritePrompt | kHideReadOnly);
  question.defaultExtension = L"qlmr";
  const auto answer = m_context.dialogs.AskSavePath(question);
  if (answer) path = *answer;
  return answer.has_value();
}

}  // namespace qlm
