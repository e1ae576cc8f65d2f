#include "ui/framework/clipboard.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>

#include "platform/win32/last_error.h"
#include "support/exception.h"
#include "ui/framework/dropped_files.h"

namespace my {
namespace {

[[noreturn]] void ThrowLastError() {
  throw CException(LastError());
}

struct CFreeMemory {
  void operator()(HGLOBAL memory) const { ::GlobalFree(memory); }
};
using CMemory = std::unique_ptr<void, CFreeMemory>;

class COpenClipboard {
 public:
  explicit COpenClipboard(HWND owner) : m_open(Open(owner)) {}
  COpenClipboard(const COpenClipboard&) = delete;
  COpenClipboard& operator=(const COpenClipboard&) = delete;
  ~COpenClipboard() {
    if (m_open) ::CloseClipboard();
  }

  explicit operator bool() const { return m_open; }

 private:
  // Retries because clipboard viewers hold the clipboard for a moment after each change.
  static bool Open(HWND owner) {
    constexpr int kTries = 5;
    constexpr DWORD kPauseMs = 20;
    for (int i = 0; i < kTries; ++i) {
      if (::OpenClipboard(owner)) return true;
      ::Sleep(kPauseMs);
    }
    return false;
  }

  bool m_open;
};

CMemory MakeMemory(const void* data, size_t size) {
  CMemory memory(::GlobalAlloc(GMEM_MOVEABLE, size));
  void* to = memory ? ::GlobalLock(memory.get()) : nullptr;
  if (!to) ThrowLastError();
  std::memcpy(to, data, size);
  ::GlobalUnlock(memory.get());
  return memory;
}

// Puts the memory on the clipboard, which then owns it.
void Put(UINT format, CMemory memory) {
  if (!::SetClipboardData(format, memory.get())) ThrowLastError();
  memory.release();
}

// Returns all bytes of the memory block, which may be longer than what was put there.
std::optional<std::string> Get(HWND owner, UINT format) {
  const COpenClipboard open(owner);
  const HANDLE memory = open ? ::GetClipboardData(format) : nullptr;
  const void* data = memory ? ::GlobalLock(memory) : nullptr;
  if (!data) return {};
  std::string bytes(static_cast<const char*>(data), ::GlobalSize(memory));
  ::GlobalUnlock(memory);
  return bytes;
}

}  // namespace

CClipboard::CClipboard(const wchar_t* formatName) : m_format(::RegisterClipboardFormatW(formatName)) {}

void CClipboard::Set(HWND owner, const std::optional<std::wstring>& text,
                     const std::optional<std::string>& bytes) const {
  const COpenClipboard open(owner);
  if (!open || !::EmptyClipboard()) ThrowLastError();
  if (text) Put(CF_UNICODETEXT, MakeMemory(text->c_str(), (text->size() + 1) * sizeof(wchar_t)));
  if (!bytes) return;
  // The length is stored first, because the system rounds the size of memory blocks up.
  const auto size = static_cast<uint32_t>(bytes->size());
  const std::string data = std::string(reinterpret_cast<const char*>(&size), sizeof size) + *bytes;
  Put(m_format, MakeMemory(data.data(), data.size()));
}

std::optional<std::wstring> CClipboard::Text(HWND owner) const {
  const auto data = Get(owner, CF_UNICODETEXT);
  if (!data) return {};
  std::wstring text(data->size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), data->data(), text.size() * sizeof(wchar_t));
  text.resize(std::min(text.find(L'\0'), text.size()));
  return text;
}

std::vector<std::wstring> CClipboard::Paths(HWND owner) const {
  const COpenClipboard open(owner);
  const HANDLE drop = open ? ::GetClipboardData(CF_HDROP) : nullptr;
  return drop ? PathsOf(static_cast<HDROP>(drop)) : std::vector<std::wstring>();
}

std::optional<std::string> CClipboard::Bytes(HWND owner) const {
  const auto data = Get(owner, m_format);
  uint32_t size = 0;
  if (!data || data->size() < sizeof size) return {};
  std::memcpy(&size, data->data(), sizeof size);
  if (data->size() - sizeof size < size) return {};
  return data->substr(sizeof size, size);
}

}  // namespace my
