#include "app/document_commands.h"

#include "app/file_questions.h"
#include "app/messenger.h"
#include "app/windows.h"
#include "document/document.h"
#include "document/document_file.h"
#include "platform/file_system.h"
#include "platform/shell.h"
#include "settings/settings.h"
#include "text_ids.h"

namespace qlm {
namespace {

void Guard(const CAppContext& context) {
  RefuseDuringRun(context);
  RefuseDuringReplace(context);
}

void Remember(CAppContext& context, const std::wstring& path) {
  context.settings.ui.mruPathes.Add(path);
  context.window.RunWhenPainted([&shell = context.ports.shell, path] { shell.AddRecent(path); });
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
  path = m_context.ports.engine.files.FullPath(path);
  const CDocument opened = LoadDocument(m_context.ports.engine.files, m_context.ports.dom, path);
  if (m_append) {
    const std::vector<size_t> selected = m_context.window.TaskList().SelectedRows();
    const std::ptrdiff_t end = -1;
    m_context.document.Merge(opened.Content(),
                             selected.empty() ? end : static_cast<std::ptrdiff_t>(selected.front()));
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
  const auto answer =
      m_context.dialogs.AskPath(OpenDocumentQuestion(m_context.ports.engine.texts, std::move(initial)));
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
  path = engine.files.FullPath(path);
  SaveDocument(engine.files, engine.clock, m_context.ports.dom, m_context.document, path);
  Remember(m_context, path);
  m_context.document.SetSaved(path);
  m_context.window.UpdateTitle();
}

bool CCommandSave::ChoosePath(std::wstring& path) const {
  const auto answer = m_context.dialogs.AskPath(SaveDocumentQuestion(m_context.ports.engine.texts, path));
  if (answer) path = *answer;
  return answer.has_value();
}

}  // namespace qlm
