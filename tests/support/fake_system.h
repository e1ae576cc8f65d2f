// Doubles of the power, hash and shell ports, which record each call as a line of text.
#pragma once

#include <boost/uuid/detail/md5.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/hash.h"
#include "platform/power.h"
#include "platform/shell.h"
#include "support/exception.h"
#include "support/value_codecs.h"
#include "text_ids.h"

namespace test {

// Calls a function when it is destroyed.
template <class TPort>
struct CAtEnd : TPort {
  explicit CAtEnd(std::function<void()> work) : atEnd(std::move(work)) {}
  CAtEnd(const CAtEnd&) = delete;
  CAtEnd& operator=(const CAtEnd&) = delete;
  ~CAtEnd() override { atEnd(); }

  std::function<void()> atEnd;
};

// Must outlive what it returns.
class CFakePower : public my::IPower {
 public:
  std::unique_ptr<my::IStayAwake> KeepAwake() override {
    calls.emplace_back(L"KeepAwake");
    return std::make_unique<CAtEnd<my::IStayAwake>>([this] { calls.emplace_back(L"LetSleep"); });
  }
  std::unique_ptr<my::IPrivilege> EnablePrivilege(const std::wstring& name) override {
    calls.push_back(L"EnablePrivilege " + name);
    if (failure) throw *failure;
    ++livePrivileges;
    return std::make_unique<CAtEnd<my::IPrivilege>>([this] { --livePrivileges; });
  }
  void EndSession(uint32_t flags, uint32_t reason) override {
    calls.push_back(L"EndSession " + my::HexText(flags) + L" " + my::HexText(reason));
    if (onSessionEnd) onSessionEnd();
    RefuseAction(IDS_LOGOFF_FAILED);
  }
  void SetSuspendState(bool hibernate, bool force, bool disableWakeEvents) override {
    calls.push_back(L"SetSuspendState" + Bit(hibernate) + Bit(force) + Bit(disableWakeEvents));
    RefuseAction(hibernate ? IDS_HIBERNATE_FAILED : IDS_SLEEP_FAILED);
  }
  void ShutDown(const std::wstring& message, uint32_t graceSeconds, uint32_t flags,
                uint32_t reason) override {
    calls.push_back(L"ShutDown \"" + message + L"\" " + std::to_wstring(graceSeconds) + L" " +
                    my::HexText(flags) + L" " + my::HexText(reason));
    if (onSessionEnd) onSessionEnd();
    RefuseAction(IDS_POWEROFF_FAILED);
  }

  std::optional<my::CException> failure;  // thrown by EnablePrivilege
  uint32_t actionCode = 0;                // the system's code for every action; 0: success
  int livePrivileges = 0;
  std::function<void()> onSessionEnd;  // called before EndSession returns, as the system may do
  // For example `EnablePrivilege SeShutdownPrivilege`, `EndSession 0x00000010 0x00000000`, `SetSuspendState 1
  // 0 0`, `ShutDown "message" 0 0x00000008 0x80040000`.
  std::vector<std::wstring> calls;

 private:
  void RefuseAction(uint32_t messageId) const {
    if (actionCode != 0) throw my::CException(messageId, {my::CSystemError::FromWin32(actionCode)});
  }

  static std::wstring Bit(bool value) { return value ? L" 1" : L" 0"; }
};

struct CFakeHash : my::IHash {
  std::string Md5(std::string_view bytes) const override {
    if (failure) throw *failure;
    boost::uuids::detail::md5 md5;
    md5.process_bytes(bytes.data(), bytes.size());
    boost::uuids::detail::md5::digest_type words;
    md5.get_digest(words);
    std::string digest;
    for (const uint32_t word : words) {
      for (int shift = 24; shift >= 0; shift -= 8) digest += static_cast<char>(word >> shift & 0xFF);
    }
    return digest;
  }

  std::optional<my::CException> failure;
};

struct CFakeShell : my::IShell {
  std::wstring PathOf(const my::CShellIdList&) override {
    Call(L"PathOf");
    return path;
  }
  void Open(const std::wstring& what) override { Call(L"Open " + what); }
  void Run(const std::wstring& program, const std::wstring& parameters) override {
    Call(L"Run " + program + L" " + parameters);
  }
  void AddRecent(const std::wstring& what) override { recent = what; }
  bool Recycle(const std::wstring& what) override {
    Call(L"Recycle " + what);
    return true;
  }
  void Call(const std::wstring& call) {
    calls.push_back(call);
    if (failure) throw *failure;
  }

  std::optional<my::CException> failure;  // thrown by every call
  std::wstring path;                      // returned for every ID list
  std::vector<std::wstring> calls;
  std::wstring recent;  // the last one
};

}  // namespace test
