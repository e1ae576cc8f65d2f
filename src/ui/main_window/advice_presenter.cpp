#include "ui/main_window/advice_presenter.h"

#include <memory>

#include "ui/main_window/main_view.h"

namespace qlm {
namespace {

// Changes within this time are handled together.
constexpr UINT kPeriodMs = 300;

}  // namespace

void CAdvicePresenter::Restart(HWND frame) {
  m_watch.Restart();
  ::SetTimer(frame, kTimer, kPeriodMs, nullptr);
}

void CAdvicePresenter::OnTimer(HWND frame) {
  if (m_watch.Tick()) {
    const my::IMessageTexts& texts = m_context.ports.engine.texts;
    m_view.ShowAdvice(std::make_shared<const CAdviceMarks>(texts, m_watch.Content(), m_watch.Findings()));
  }
  if (!m_watch.IsPending()) ::KillTimer(frame, kTimer);
}

}  // namespace qlm
