#include "app/advice_watch.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "engine/archiver_location.h"
#include "engine/backup_thread.h"
#include "engine/task_base.h"
#include "platform/message_texts.h"
#include "platform/threads.h"
#include "settings/settings.h"

namespace qlm {
namespace {

constexpr uint32_t kEndLimitMs = 500;

}  // namespace

// The items of a document are never changed in place, so the thread may share them.
struct CAdviceWatch::CSearch : my::IStopQuery {
  CSearch(const CEnginePorts& enginePorts, CContent searched, bool missing)
      : ports(enginePorts), content(std::move(searched)), archiverMissing(missing) {}

  bool IsStopRequested() const override { return stop; }

  // If the search fails as a whole, there are no findings.
  void Run() {
    my::TrapError(ports.texts, [this] {
      findings = FindAdvice(content, ports, {AdviceDepth::LocalDisk, archiverMissing, this});
    });
    ended = true;
  }

  const CEnginePorts ports;
  const CContent content;
  const bool archiverMissing;
  std::atomic<bool> stop = false;
  std::vector<CAdvice> findings;  // the thread's until it has ended
  std::atomic<bool> ended = false;
};

CAdviceWatch::CAdviceWatch(const CAppContext& context) : m_context(context) {}

CAdviceWatch::~CAdviceWatch() {
  if (!m_search) return;
  m_search->stop = true;
  m_thread->Wait(kEndLimitMs);
}

void CAdviceWatch::Restart() {
  m_restart = true;
  if (m_search) m_search->stop = true;
}

bool CAdviceWatch::Tick() {
  if (m_search && !m_search->ended) return false;
  const auto search = std::exchange(m_search, nullptr);
  if (m_restart && !m_context.run.IsActive()) {
    m_restart = false;
    Start();
  }
  if (!search || search->stop) return false;
  m_content = search->content;
  m_findings = std::move(search->findings);
  return true;
}

void CAdviceWatch::Start() {
  const CAppPorts& ports = m_context.ports;
  const CContent& content = m_context.document.Content();
  const bool usesArchiver =
      std::ranges::any_of(content.dsts, [](const CDstPtr& dst) { return IsZip(dst->type); });
  const bool missing = usesArchiver && IsArchiverMissing(ports.engine.files, ports.folders,
                                                         m_context.settings.archive.sevenZipPath);
  const auto search = std::make_shared<CSearch>(ports.engine, content, missing);
  m_thread = ports.threads.Start([search] { search->Run(); }, {});
  m_search = search;
}

}  // namespace qlm
