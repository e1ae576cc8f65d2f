// Failures: an exception carries the id of a text in the string table and the arguments of that text.
// The text itself is made where it is shown, by MakeErrorText (platform/message_texts.h).
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <variant>
#include <vector>

namespace my {

// An error of the operating system, kept as an HRESULT until its text is asked for.
struct CSystemError {
  int32_t hresult = 0;

  // A positive Win32 code c becomes (c AND 0xFFFF) OR 0x80070000; anything else is taken as it is.
  static constexpr CSystemError FromWin32(uint32_t code) {
    const auto value = static_cast<int32_t>(code);
    return {value > 0 ? static_cast<int32_t>((code & 0xFFFF) | 0x80070000u) : value};
  }

  // Whether this is the Win32 code `code`.
  constexpr bool Is(uint32_t code) const { return *this == FromWin32(code); }

  friend constexpr bool operator==(const CSystemError&, const CSystemError&) = default;
};

// Win32 codes that the program itself names.
inline constexpr uint32_t kErrorFileNotFound = 2;
inline constexpr uint32_t kErrorPathNotFound = 3;
inline constexpr uint32_t kErrorAccessDenied = 5;
inline constexpr uint32_t kErrorSharingViolation = 32;
inline constexpr uint32_t kErrorFileExists = 80;
inline constexpr uint32_t kErrorDiskFull = 112;
inline constexpr uint32_t kErrorAlreadyExists = 183;
inline constexpr uint32_t kErrorNameTooLong = 206;
inline constexpr uint32_t kErrorNoAssociation = 1155;

// A text of the string table as an argument of another one, with arguments of its own.
struct CTextId {
  uint32_t id = 0;
  std::vector<std::wstring> args = {};

  friend bool operator==(const CTextId&, const CTextId&) = default;
};

using CMsgArg = std::variant<std::wstring, CSystemError, CTextId>;

class CException : public std::exception {
 public:
  explicit CException(uint32_t id, std::vector<CMsgArg> args = {});

  // A failure whose whole text is the system's own.
  explicit CException(CSystemError error);

  // The string-table id; 0 when the text is the system's own.
  uint32_t Id() const { return m_id; }
  const std::vector<CMsgArg>& Args() const { return m_args; }

  // The id, or for the system's own text its HRESULT: never 0.
  uint32_t Code() const;

  // The first system error among the arguments, one of value 0 if there is none.
  CSystemError SystemError() const;
  uint32_t Detail() const { return static_cast<uint32_t>(SystemError().hresult); }

  // What went wrong below this failure, to be named by a message about the whole: the first argument, or
  // the failure's own text when there is none.
  CMsgArg Cause() const;

  // The file that the failing operation was about, for messages whose text does not name it.
  const std::wstring& Where() const { return m_where; }
  void SetWhere(std::wstring where) { m_where = std::move(where); }

  const char* what() const noexcept override { return m_what.c_str(); }

 private:
  uint32_t m_id;
  std::vector<CMsgArg> m_args;
  std::wstring m_where;
  std::string m_what;
};

// A failure that belongs to one control of a window or to one clean-up, reported beside the main result.
class CCtrlException : public CException {
 public:
  using CException::CException;
  explicit CCtrlException(const CException& failure) : CException(failure) {}
};

// What is kept of a failure when it is stored instead of raised.
struct CSimpleErr {
  uint32_t code = 0;    // 0: no error
  uint32_t detail = 0;  // the system's HRESULT, 0 for none
  std::wstring message;

  explicit operator bool() const { return code != 0; }
};

}  // namespace my
