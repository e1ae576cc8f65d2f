// Exceptions with the id of a text in the string table and its arguments. MakeErrorText
// (platform/message_texts.h) formats the text when it is shown.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <variant>
#include <vector>

namespace my {

// An error of the operating system, as an HRESULT.
struct CSystemError {
  int32_t hresult = 0;

  // Converts a positive Win32 code c to (c AND 0xFFFF) OR 0x80070000; other values are kept.
  static constexpr CSystemError FromWin32(uint32_t code) {
    const auto value = static_cast<int32_t>(code);
    return {value > 0 ? static_cast<int32_t>((code & 0xFFFF) | 0x80070000u) : value};
  }

  // Returns whether this is the Win32 code `code`.
  constexpr bool Is(uint32_t code) const { return *this == FromWin32(code); }

  friend constexpr bool operator==(const CSystemError&, const CSystemError&) = default;
};

// Win32 codes used by the program.
inline constexpr uint32_t kErrorFileNotFound = 2;
inline constexpr uint32_t kErrorPathNotFound = 3;
inline constexpr uint32_t kErrorAccessDenied = 5;
inline constexpr uint32_t kErrorSharingViolation = 32;
inline constexpr uint32_t kErrorFileExists = 80;
inline constexpr uint32_t kErrorDiskFull = 112;
inline constexpr uint32_t kErrorAlreadyExists = 183;
inline constexpr uint32_t kErrorNameTooLong = 206;
inline constexpr uint32_t kErrorNoAssociation = 1155;

// An argument that is itself a text of the string table with arguments.
struct CTextId {
  uint32_t id = 0;
  std::vector<std::wstring> args = {};

  friend bool operator==(const CTextId&, const CTextId&) = default;
};

using CMsgArg = std::variant<std::wstring, CSystemError, CTextId>;

class CException : public std::exception {
 public:
  explicit CException(uint32_t id, std::vector<CMsgArg> args = {});

  // Creates a failure whose text is the system's own.
  explicit CException(CSystemError error);

  // Returns the string-table id; 0 if the text is the system's own.
  uint32_t Id() const { return m_id; }
  const std::vector<CMsgArg>& Args() const { return m_args; }

  // Returns the id, or the HRESULT if the text is the system's own. Never 0.
  uint32_t Code() const;

  // Returns the first system error among the arguments; value 0 if there is none.
  CSystemError SystemError() const;
  uint32_t Detail() const { return static_cast<uint32_t>(SystemError().hresult); }

  // Returns the cause, for use in the message of a larger operation: the first argument, or the failure's own
  // text if it has no arguments.
  CMsgArg Cause() const;

  // The file that the failed operation concerned, for messages that do not name it.
  const std::wstring& Where() const { return m_where; }
  void SetWhere(std::wstring where) { m_where = std::move(where); }

  // A text to show before the message: the reason that the message does not give.
  const CMsgArg& Reason() const { return m_reason; }
  void SetReason(CMsgArg reason) { m_reason = std::move(reason); }

  const char* what() const noexcept override { return m_what.c_str(); }

 private:
  uint32_t m_id;
  std::vector<CMsgArg> m_args;
  std::wstring m_where;
  CMsgArg m_reason;
  std::string m_what;
};

// A failure that concerns one control or one clean-up and is reported in addition to the main result.
class CCtrlException : public CException {
 public:
  using CException::CException;
  explicit CCtrlException(const CException& failure) : CException(failure) {}
};

// A failure stored as a value.
struct CSimpleErr {
  uint32_t code = 0;    // 0: no error
  uint32_t detail = 0;  // HRESULT; 0 for none
  std::wstring message;

  explicit operator bool() const { return code != 0; }
};

}  // namespace my
