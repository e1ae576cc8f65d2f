#include "ui/main_window/history_presenter.h"

#include <utility>

#include "app/application.h"
#include "ui/dialogs/dialogs.h"
#include "ui/main_window/main_view.h"

namespace qlm {

CHistoryPresenter::CHistoryPresenter(CApplication& app, CMainView& view, CDialogs& dialogs)
    : m_app(app),
      m_view(view),
      m_dialogs(dialogs),
      m_lastSuccess(app.Document(), app.Context().ports.engine.texts, app.Context().ports.engine.clock) {
  view.TaskModel().SetLastSuccess(m_lastSuccess);
}

void CHistoryPresenter::Begin(HWND frame, UINT message) {
  const auto loaded = [frame, message] { ::PostMessageW(frame, message, 0, 0); };
  m_loader = std::make_unique<CHistoryLoader>(m_app.Context().ports, loaded);
  Load();
}

void CHistoryPresenter::Load() {
  if (m_loader) m_loader->Load();
}

// The runs may take much memory and are kept only while their window is open.
void CHistoryPresenter::OnLoaded() {
  auto loaded = m_loader->Take();
  if (!loaded) return;
  if (loaded->failure.empty()) m_lastSuccess.Use(loaded->tasks);
  m_view.Tasks().List().Refresh();
  m_dialogs.ShowHistory(std::move(loaded));
}

void CHistoryPresenter::Open() {
  m_dialogs.OpenHistory([this] { Load(); });
}

}  // namespace qlm
