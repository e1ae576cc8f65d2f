// COM initialization, and owners for interface pointers, strings and variants.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <utility>

namespace my {

// Keeps COM initialized on the calling thread.
class CComApartment {
 public:
  CComApartment() : m_result(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  CComApartment(const CComApartment&) = delete;
  CComApartment& operator=(const CComApartment&) = delete;
  ~CComApartment() {
    if (SUCCEEDED(m_result)) ::CoUninitialize();
  }

 private:
  HRESULT m_result;
};

template <class T>
class CComPtr {
 public:
  CComPtr() = default;
  CComPtr(CComPtr&& other) noexcept : m_pointer(std::exchange(other.m_pointer, nullptr)) {}
  CComPtr& operator=(CComPtr&& other) noexcept {
    std::swap(m_pointer, other.m_pointer);
    return *this;
  }
  ~CComPtr() {
    if (m_pointer) m_pointer->Release();
  }

  explicit operator bool() const { return m_pointer != nullptr; }
  T* operator->() const { return m_pointer; }
  T* Get() const { return m_pointer; }

  // For functions that return a pointer in a parameter; the object must be empty.
  T** Out() { return &m_pointer; }

 private:
  T* m_pointer = nullptr;
};

class CBstr {
 public:
  CBstr() = default;
  explicit CBstr(const std::wstring& text)
      : m_text(::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  CBstr(const CBstr&) = delete;
  CBstr& operator=(const CBstr&) = delete;
  ~CBstr() { ::SysFreeString(m_text); }

  BSTR Get() const { return m_text; }
  BSTR* Out() { return &m_text; }
  std::wstring Text() const { return {m_text, ::SysStringLen(m_text)}; }

 private:
  BSTR m_text = nullptr;
};

class CVariant {
 public:
  CVariant() { ::VariantInit(&m_value); }
  CVariant(const CVariant&) = delete;
  CVariant& operator=(const CVariant&) = delete;
  ~CVariant() { ::VariantClear(&m_value); }

  VARIANT& Get() { return m_value; }

 private:
  VARIANT m_value;
};

}  // namespace my
