// The message loop of the user-interface thread.
#pragma once

#include <windows.h>

#include <memory>

namespace my {

struct CTranslations;

// Keeps one entry of a message loop for as long as it lives; loop and entry may go in either order.
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

  // Keys for `window` or one of its children are looked up in `table`, whose owner is the caller, and become
  // its WM_COMMAND. One table a window.
  [[nodiscard]] CTranslation AddAccelerators(HWND window, HACCEL table);

  // Tab, arrow keys, Enter and Esc move within a modeless dialog.
  [[nodiscard]] CTranslation AddDialog(HWND dialog);

  // Until WM_QUIT; answers its exit code. Throws the system's error when messages cannot be got.
  int Run();

 private:
  bool Translate(MSG& message) const;

  std::shared_ptr<CTranslations> m_translations;
};

}  // namespace my
