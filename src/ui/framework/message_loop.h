// The message loop of the user-interface thread.
#pragma once

#include <windows.h>

#include <memory>

namespace my {

struct CTranslations;

// Keeps an entry of a message loop registered. Loop and entry may be destroyed in either order.
class CTranslation {
 public:
  CTranslation() = default;
  CTranslation(std::weak_ptr<CTranslations> owner, HWND window);
  CTranslation(CTranslation&& other) noexcept;
  CTranslation& operator=(CTranslation&& other) noexcept;
  ~CTranslation();

 private:
  std::weak_ptr<CTranslations> m_owner;
  HWND m_window = nullptr;
};

class CAutoMessageLoop {
 public:
  CAutoMessageLoop();
  ~CAutoMessageLoop();
  CAutoMessageLoop(const CAutoMessageLoop&) = delete;
  CAutoMessageLoop& operator=(const CAutoMessageLoop&) = delete;

  // Translates keys for `window` and its descendants to WM_COMMAND messages for `window`, and handles Tab and
  // Enter as HandleFocusKey does. A function key that is held down acts once, because its command may start
  // something that the same command stops. The caller owns `table`. One table per window.
  [[nodiscard]] CTranslation AddAccelerators(HWND window, HACCEL table);

  // Handles Tab, arrow keys, Enter and Esc for a modeless dialog.
  [[nodiscard]] CTranslation AddDialog(HWND dialog);

  // Runs until WM_QUIT and returns its exit code. Throws the system error if GetMessage fails.
  int Run();

 private:
  bool Translate(MSG& message) const;

  std::shared_ptr<CTranslations> m_translations;
};

}  // namespace my
