#include "ui/dialogs.h"

#include "ui/framework/file_dialogs.h"

namespace qlm {
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

HWND CDialogs::Owner() const {
  const HWND active = ::GetActiveWindow();
  return active ? active : m_owner;
}

}  // namespace qlm
