#include "engine/backup_thread.h"

#include <algorithm>

#include "platform/clock.h"
#include "platform/message_texts.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
CBackupThread::CBackupThread(my::IThreads& threads, const my::IClock& clock, const my::IMessageTexts& texts,
                             IRunObserver& observer)
    : m_clock(clock), m_texts(texts), m_observer(observer), m_pool(threads) {}

void CBackupThread::Add(const CBackupTaskPtr& job) {
  job->SetClient(this);
  m_pool.Add(job);
}

void CBackupThread::ResetResults() {
  m_shown.clear();
  m_rowCount = 0;
  m_earlier = {};
  m_meter = {};
}

void CBackupThread::Start(bool listOnly, bool powerOff) {
  if (IsActive()) throw my::CException(IDS_ALREADY_RUNNING);
  m_listOnly = listOnly;
  m_powerOff = false;
  m_startTime = m_clock.Now();
  m_startTick = m_currentTick = m_clock.TickCount();
  m_total = 0;
  m_pool.ForEachQueued([&](CBackupTask& job) {
    job.SetListOnly(listOnly);
    m_total += listOnly ? 1 : job.Task().dsts.size();
  });
  SetState(RunState::Running);
  try {
    m_pool.Start();
  } catch (...) {
    m_pool.Stop(true);
    SetState(RunState::Stopped);
    throw;
  }
  m_powerOff = powerOff;
}

void CBackupThread::Stop() {
  if (m_state == RunState::Stopping) throw my::CException(IDS_ALREADY_STOPPING);
  if (m_state != RunState::Running) throw my::CException(IDS_NOT_RUNNING);
  SetState(RunState::Stopping);
  m_pool.Stop(true);
}

void CBackupThread::Tick() {
  if (!IsActive()) return;
  m_currentTick = m_clock.TickCount();
  Collect();
  if (!m_listOnly) m_meter.Add(Sample());
  m_observer.OnStatus();
  if (!m_pool.IsBusy()) Finish();
}

bool CBackupThread::IsActive() const {
  return m_state == RunState::Running || m_state == RunState::Stopping;
}

bool CBackupThread::HasErrors() const {
  const auto failed = [](const CResultPtr& row) { return static_cast<bool>(row->error); };
  return std::any_of(m_shown.begin(), m_shown.end(), [&failed](const CShownJob& shown) {
    return std::any_of(shown.rows.begin(), shown.rows.end(), failed);
  });
}

CResults CBackupThread::Rows() const {
  CResults rows;
  for (const CShownJob& shown : m_shown) rows.insert(rows.end(), shown.rows.begin(), shown.rows.end());
  return rows;
}

void CBackupThread::NoteChanged(const CBackupTaskPtr& job) {
  const my::CAutoLock<my::CAutoCriticalSection> lock(m_changedLock);
  if (std::find(m_changed.begin(), m_changed.end(), job) == m_changed.end()) m_changed.push_back(job);
}

void CBackupThread::Collect() {
  std::vector<CBackupTaskPtr> changed;
  {
    const my::CAutoLock<my::CAutoCriticalSection> lock(m_changedLock);
    changed.swap(m_changed);
  }
  for (const CBackupTaskPtr& job : changed) Show(job);
}

void CBackupThread::Show(const CBackupTaskPtr& job) {
  // Jobs run one after another, so only the rows of the last one can change.
  if (m_shown.empty() || m_shown.back().job != job) {
    if (!m_shown.empty()) AddJob(m_earlier, m_shown.back().job->Task().dsts.size(), m_shown.back().rows);
    m_shown.push_back({job, m_rowCount, {}});
  }
  CShownJob& shown = m_shown.back();
  shown.rows = job->Results();
  m_rowCount = shown.firstRow + shown.rows.size();
  m_observer.OnResults(shown.firstRow, shown.rows);
}

CRunSample CBackupThread::Sample() const {
  if (m_shown.empty()) return MakeSample(m_earlier, m_total, 0, {}, m_currentTick);
  const CShownJob& last = m_shown.back();
  return MakeSample(m_earlier, m_total, last.job->Task().dsts.size(), last.rows, m_currentTick);
}

void CBackupThread::SetState(RunState state) {
  m_state = state;
  m_observer.OnStateChanged();
}

void CBackupThread::Finish() {
  m_pool.Stop(true);
  m_pool.WaitAll(my::kNoTimeOut);
  m_pool.ClearRemoved();
  Collect();  // changes between the last tick and the end
  m_state = m_state == RunState::Stopping ? RunState::Stopped : RunState::Ended;
  if (!m_listOnly) m_meter.End(Sample(), m_state == RunState::Stopped);
  m_observer.OnEnded();
  m_observer.OnStatus();
  m_observer.OnStateChanged();
  if (m_state == RunState::Ended && m_powerOff && !HasErrors()) m_observer.OnPowerOff();
}

std::wstring CBackupThread::StatusText() const {
  if (m_state == RunState::NotRun) return {};
  std::wstring text;
  if (m_total != 0) text = std::to_wstring(m_rowCount) + L" / " + std::to_wstring(m_total) + L"  ";
  text.append(TextOf(m_texts, m_state)).append(L"  ").append(ElapsedText(ElapsedMs())).append(L"  ");
  if (IsActive()) text.append(ElapsedMs() / 200 % 10 + 1, L'.');
  return text;
}

CRunProgress CBackupThread::Progress() const {
  const bool lastCounts = m_state == RunState::Ended || m_rowCount == 0;
  return {m_rowCount - (lastCounts ? 0 : 1), std::max<size_t>(m_total, 1)};
}

std::wstring ElapsedText(uint64_t elapsedMs) {
  const uint64_t seconds = elapsedMs / 1000;
  const uint64_t minutes = seconds / 60;
  const std::wstring tail = L":" + my::PaddedNumber(seconds % 60, 2);
  if (minutes < 60) return std::to_wstring(minutes) + tail;
  return std::to_wstring(minutes / 60) + L":" + my::PaddedNumber(minutes % 60, 2) + tail;
}

}  // namespace qlm
