#include "ui/framework/file_dialogs.h"

#include <cderr.h>
#include <shlobj.h>
#include <shobjidl.h>

#include <array>
#include <memory>

#include "platform/win32/com.h"
#include "support/exception.h"
#include "ui/framework/disabled_windows.h"

namespace my {
namespace {

using CPathBuffer = std::array<wchar_t, MAX_PATH>;
using DialogFunction = BOOL WINAPI(OPENFILENAMEW*);

struct CFreeTaskMemory {
  void operator()(void* memory) const { ::CoTaskMemFree(memory); }
};

// Returns pairs of null-terminated texts, followed by another null.
std::wstring FilterText(const std::vector<CFileKind>& kinds) {
  std::wstring text;
  for (const CFileKind& kind : kinds) text += kind.name + L'\0' + kind.pattern + L'\0';
  return text + L'\0';
}

const wchar_t* TextOrNull(const std::wstring& text) {
  return text.empty() ? nullptr : text.c_str();
}

// Returns an error code; 0 if the user chose a file or cancelled.
DWORD Ask(DialogFunction& dialog, HWND owner, const CFileDialogParams& params, CPathBuffer& path,
          bool& chosen) {
  const std::wstring filter = FilterText(params.kinds);
  OPENFILENAMEW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = owner;
  request.lpstrFilter = params.kinds.empty() ? nullptr : filter.c_str();
  request.nFilterIndex = 1;
  request.lpstrFile = path.data();
  request.nMaxFile = static_cast<DWORD>(path.size());
  request.lpstrInitialDir = TextOrNull(params.initialFolder);
  request.lpstrTitle = TextOrNull(params.title);
  request.lpstrDefExt = TextOrNull(params.defaultExtension);
  request.Flags = params.flags;
  chosen = dialog(&request) != FALSE;
  return chosen ? 0 : ::CommDlgExtendedError();
}

std::optional<std::wstring> AskPath(DialogFunction& dialog, HWND owner, const CFileDialogParams& params) {
  CPathBuffer path{};
  if (params.initialPath.size() < path.size()) params.initialPath.copy(path.data(), path.size() - 1);
  bool chosen = false;
  DWORD error = Ask(dialog, owner, params, path, chosen);
  if (error == FNERR_INVALIDFILENAME) {
    path = {};
    error = Ask(dialog, owner, params, path, chosen);
  }
  if (error == FNERR_BUFFERTOOSMALL) throw CException(CSystemError::FromWin32(ERROR_FILENAME_EXCED_RANGE));
  if (error != 0) throw CException(CSystemError::FromWin32(ERROR_INVALID_PARAMETER));
  if (!chosen) return {};
  return path.data();
}

bool IsCancel(HRESULT result) {
  return result == HRESULT_FROM_WIN32(ERROR_CANCELLED);
}

std::optional<std::wstring> ItemPath(IShellItem& item) {
  wchar_t* text = nullptr;
  if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &text))) return {};
  const std::unique_ptr<wchar_t, CFreeTaskMemory> owned(text);
  return std::wstring(text);
}

// Returns false if the system does not have this dialog.
bool AskFolderByItems(HWND owner, const std::wstring& title, const std::wstring& initialFolder,
                      std::optional<std::wstring>& chosen) {
  CComPtr<IFileOpenDialog> dialog;
  if (FAILED(::CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog,
                                reinterpret_cast<void**>(dialog.Out()))))
    return false;
  FILEOPENDIALOGOPTIONS options = 0;
  dialog->GetOptions(&options);
  if (FAILED(dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR)))
    return false;
  if (!title.empty()) dialog->SetTitle(title.c_str());
  CComPtr<IShellItem> folder;
  if (!initialFolder.empty() &&
      SUCCEEDED(::SHCreateItemFromParsingName(initialFolder.c_str(), nullptr, IID_IShellItem,
                                              reinterpret_cast<void**>(folder.Out()))))
    dialog->SetFolder(folder.Get());
  const HRESULT shown = dialog->Show(owner);
  if (IsCancel(shown)) return true;
  CComPtr<IShellItem> item;
  if (FAILED(shown) || FAILED(dialog->GetResult(item.Out()))) return false;
  chosen = ItemPath(*item.Get());
  return true;
}

int CALLBACK SelectInitial(HWND dialog, UINT message, LPARAM, LPARAM folder) {
  if (message == BFFM_INITIALIZED && folder != 0) ::SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, folder);
  return 0;
}

std::optional<std::wstring> AskFolderByTree(HWND owner, const std::wstring& title,
                                            const std::wstring& initialFolder) {
  BROWSEINFOW request{};
  request.hwndOwner = owner;
  request.lpszTitle = title.c_str();
  request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  request.lpfn = SelectInitial;
  request.lParam = reinterpret_cast<LPARAM>(TextOrNull(initialFolder));
  const std::unique_ptr<ITEMIDLIST, CFreeTaskMemory> chosen(::SHBrowseForFolderW(&request));
  CPathBuffer path{};
  if (!chosen || !::SHGetPathFromIDListW(chosen.get(), path.data())) return {};
  return path.data();
}

}  // namespace

std::optional<std::wstring> AskOpenPath(HWND owner, const CFileDialogParams& params) {
  const CDisabledWindows others(owner);
  return AskPath(::GetOpenFileNameW, owner, params);
}

std::optional<std::wstring> AskSavePath(HWND owner, const CFileDialogParams& params) {
  const CDisabledWindows others(owner);
  return AskPath(::GetSaveFileNameW, owner, params);
}

std::optional<std::wstring> AskFolder(HWND owner, const std::wstring& title,
                                      const std::wstring& initialFolder) {
  std::optional<std::wstring> chosen;
  if (AskFolderByItems(owner, title, initialFolder, chosen)) return chosen;
  return AskFolderByTree(owner, title, initialFolder);
}

}  // namespace my
