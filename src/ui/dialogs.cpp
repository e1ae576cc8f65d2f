#include "ui/dialogs.h"

#include "app/command.h"
#include "ui/framework/file_dialogs.h"

namespace qlm {
class CReplaceDialog {};
class CResultDialog {};
namespace {

my::CFileDialogParams ParamsOf(const CFileQuestion& question) {
  my::CFileDialogParams params;
  for (const auto& [name, pattern] : question.kinds) params.kinds.push_back({name, pattern});
  params.defaultExtension = question.defaultExtension;
  params.initialPath = question.initialPath;
  params.flags = question.flags;
  return params;
}

}  // namespace

CDialogs::CDialogs(my::CAutoMessageLoop& loop) : m_loop(loop), m_clipboard(L"Quillmoor.Document") {}

CDialogs::~CDialogs() = default;

void CDialogs::SetOwner(HWND owner, CAppContext& context) {
  m_owner = owner;
  m_context = &context;
}

std::optional<std::wstring> CDialogs::AskOpenPath(const CFileQuestion& question) {
  return my::AskOpenPath(Owner(), ParamsOf(question));
}

std::optional<std::wstring> CDialogs::AskSavePath(const CFileQuestion& question) {
  return my::AskSavePath(Owner(), ParamsOf(question));
}
bool CDialogs::AskPassword(CPasswordEntry&) {
  return false;
}
void CDialogs::ShowSettings(bool) {}
void CDialogs::OpenReplace(CReplaceTool&) {}
void CDialogs::FocusReplace() {}
void CDialogs::CancelReplace() {}
void CDialogs::EditTask(const CTask& task, const std::function<void(const CTask&)>& confirm) {
  confirm(task);
}
void CDialogs::EditDst(const CDst& dst, const std::function<void(const CDst&)>& confirm) {
  confirm(dst);
}

void CDialogs::Set(const CClip& clip) {
  m_clipboard.Set(m_owner, clip.text, clip.document);
}

std::optional<std::string> CDialogs::Document() {
  return m_clipboard.Bytes(m_owner);
}
void CDialogs::RefreshReplace() {}
void CDialogs::ShowResults(const CResultListModel&) {}
void CDialogs::RefreshResults() {}
void CDialogs::ShowTargets(const CResultPtr&) {}
void CDialogs::ShowFilter(const std::wstring&, const std::wstring&) {}
void CDialogs::ShowAbout() {}

HWND CDialogs::Owner() const {
  const HWND active = ::GetActiveWindow();
  return active ? active : m_owner;
}

}  // namespace qlm
