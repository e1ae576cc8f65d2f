#include "ui/framework/message_loop.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/win32/last_error.h"
#include "support/exception.h"
#include "ui/framework/focus_keys.h"

namespace my {

// An entry without a table is a dialog.
struct CTranslations {
  struct CEntry {
    HWND window;
    HACCEL table;
  };
  std::vector<CEntry> entries;
};

namespace {

bool IsWithin(HWND window, HWND inner) {
  return window == inner || ::IsChild(window, inner);
}

bool IsHeldFunctionKey(const MSG& message) {
  return message.message == WM_KEYDOWN && message.wParam >= VK_F1 && message.wParam <= VK_F24 &&
         (HIWORD(message.lParam) & KF_REPEAT) != 0;
}

}  // namespace

CTranslation::CTranslation(std::weak_ptr<CTranslations> owner, HWND window)
    : m_owner(std::move(owner)), m_window(window) {}

CTranslation::CTranslation(CTranslation&& other) noexcept
    : m_owner(std::move(other.m_owner)), m_window(std::exchange(other.m_window, nullptr)) {}

CTranslation& CTranslation::operator=(CTranslation&& other) noexcept {
  std::swap(m_owner, other.m_owner);
  std::swap(m_window, other.m_window);
  return *this;
}

CTranslation::~CTranslation() {
  const auto owner = m_owner.lock();
  if (!owner) return;
  std::erase_if(owner->entries, [this](const auto& entry) { return entry.window == m_window; });
}

CAutoMessageLoop::CAutoMessageLoop() : m_translations(std::make_shared<CTranslations>()) {}

CAutoMessageLoop::~CAutoMessageLoop() = default;

CTranslation CAutoMessageLoop::AddAccelerators(HWND window, HACCEL table) {
  m_translations->entries.push_back({window, table});
  return {m_translations, window};
}

CTranslation CAutoMessageLoop::AddDialog(HWND dialog) {
  m_translations->entries.push_back({dialog, nullptr});
  return {m_translations, dialog};
}

int CAutoMessageLoop::Run() {
  MSG message;
  for (;;) {
    const BOOL got = ::GetMessageW(&message, nullptr, 0, 0);
    if (got == -1) throw CException(LastError());
    if (got == 0) return static_cast<int>(message.wParam);
    if (Translate(message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

bool CAutoMessageLoop::Translate(MSG& message) const {
  if (!message.hwnd) return false;
  // A copy, because a translated command or key may open or close a dialog.
  const auto entries = m_translations->entries;
  return std::any_of(entries.begin(), entries.end(), [&](const CTranslations::CEntry& entry) {
    if (!IsWithin(entry.window, message.hwnd)) return false;
    if (!entry.table) return ::IsDialogMessageW(entry.window, &message) != 0;
    return IsHeldFunctionKey(message) || ::TranslateAcceleratorW(entry.window, entry.table, &message) != 0 ||
           HandleFocusKey(entry.window, message);
  });
}

}  // namespace my
