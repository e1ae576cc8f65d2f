// A move-only owner for all kinds of Windows handles.
#pragma once

#include <windows.h>

#include <utility>

namespace my {

// `Close` closes a valid handle. INVALID_HANDLE_VALUE is stored as null.
template <class T, auto Close>
class CHandle {
 public:
  CHandle() = default;
  explicit CHandle(T handle) : m_handle(handle == Invalid() ? T{} : handle) {}
  CHandle(CHandle&& other) noexcept : m_handle(std::exchange(other.m_handle, T{})) {}
  CHandle& operator=(CHandle&& other) noexcept {
    std::swap(m_handle, other.m_handle);
    return *this;
  }
  ~CHandle() { Reset(); }

  explicit operator bool() const { return m_handle != T{}; }
  T Get() const { return m_handle; }

  // Closes the handle now. Returns the result of the closing function; true if there is no handle.
  bool Reset() {
    const T handle = std::exchange(m_handle, T{});
    return handle == T{} || Close(handle) != 0;
  }

 private:
  static T Invalid() { return reinterpret_cast<T>(INVALID_HANDLE_VALUE); }

  T m_handle{};
};

using CKernelHandle = CHandle<HANDLE, &::CloseHandle>;

}  // namespace my
