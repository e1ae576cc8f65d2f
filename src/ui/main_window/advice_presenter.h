#pragma once

#include <windows.h>

#include "app/advice_watch.h"

namespace qlm {

class CMainView;

// Shows the findings about the document in its lists.
class CAdvicePresenter {
 public:
  static constexpr UINT_PTR kTimer = 2;

  // The arguments must outlive the object.
  CAdvicePresenter(const CAppContext& context, CMainView& view)
      : m_watch(context), m_context(context), m_view(view) {}

  // Must be called when the findings may have changed. `frame` gets a timer.
  void Restart(HWND frame);

  // Must be called for the timer.
  void OnTimer(HWND frame);

 private:
  CAdviceWatch m_watch;
  const CAppContext& m_context;
  CMainView& m_view;
};

}  // namespace qlm
