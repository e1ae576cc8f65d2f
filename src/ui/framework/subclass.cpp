#include "ui/framework/subclass.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include "ui/framework/failures.h"

namespace my {
namespace {

struct CChain {
  WNDPROC original = nullptr;
  std::vector<CSubclass*> members;  // the last member handles a message first
};

using CChains = std::unordered_map<HWND, CChain>;

CChains& Chains() {
  static thread_local CChains chains;
  return chains;
}

bool IsMember(HWND window, const CSubclass* member) {
  const auto chain = Chains().find(window);
  return chain != Chains().end() &&
         std::ranges::find(chain->second.members, member) != chain->second.members.end();
}

}  // namespace

void CSubclass::Attach(HWND window, Handler handler) {
  m_window = window;
  m_handler = std::move(handler);
  CChain& chain = Chains()[window];
  if (!chain.original) {
    const LONG_PTR before = ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Thunk));
    chain.original = reinterpret_cast<WNDPROC>(before);
  }
  chain.members.push_back(this);
}

void CSubclass::Detach() {
  const auto chain = Chains().find(std::exchange(m_window, nullptr));
  if (chain == Chains().end()) return;
  std::erase(chain->second.members, this);
  const auto thunk = reinterpret_cast<LONG_PTR>(&Thunk);
  // Another subclass was installed on top. Then the chain stays and only passes messages on.
  if (!chain->second.members.empty() || ::GetWindowLongPtrW(chain->first, GWLP_WNDPROC) != thunk) return;
  ::SetWindowLongPtrW(chain->first, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(chain->second.original));
  Chains().erase(chain);
}

LRESULT CSubclass::Default(UINT message, WPARAM wParam, LPARAM lParam) const {
  const auto chain = Chains().find(m_window);
  if (chain == Chains().end()) return 0;
  return ::CallWindowProcW(chain->second.original, m_window, message, wParam, lParam);
}

LRESULT CALLBACK CSubclass::Thunk(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  const auto chain = Chains().find(hwnd);
  if (chain == Chains().end()) return ::DefWindowProcW(hwnd, message, wParam, lParam);
  const WNDPROC original = chain->second.original;
  const std::vector<CSubclass*> members =
      chain->second.members;  // a copy, because handlers may attach or detach members
  for (auto member = members.rbegin(); member != members.rend(); ++member) {
    if (!IsMember(hwnd, *member)) continue;
    const auto handle = [&] { return (*member)->m_handler(message, wParam, lParam); };
    if (const auto result = Guarded(std::optional<LRESULT>{}, handle)) return *result;
  }
  if (message == WM_NCDESTROY) Chains().erase(hwnd);
  return ::CallWindowProcW(original, hwnd, message, wParam, lParam);
}

}  // namespace my
