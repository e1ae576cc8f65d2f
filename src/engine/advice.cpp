#include "engine/advice.h"

#include <map>
#include <set>
#include <string>

#include "engine/leftovers.h"
#include "engine/name_advice.h"
#include "engine/task_filter.h"
#include "engine/transfer_plan.h"
#include "engine/value_texts.h"
#include "platform/file_system.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {
namespace {

// The part of the advice that concerns what exists.
class CDiskAdvice {
 public:
  CDiskAdvice(const CContent& content, const CEnginePorts& ports, const CAdviceRequest& request,
              CAdviceList& list)
      : m_content(content), m_ports(ports), m_request(request), m_list(list) {}

  void AddAll() {
    ForEachUse([this](const CAdvicePlace& place) { AddDstWithinSource(place); });
    ForEachUse([this](const CAdvicePlace& place) { AddSplitPath(place); });
    for (size_t dst = 0; dst < m_content.dsts.size(); ++dst) AddNoArchiver(dst);
    for (size_t dst = 0; dst < m_content.dsts.size(); ++dst) AddNoPassword(dst);
    if (m_request.depth == AdviceDepth::Document) return;
    for (size_t task = 0; task < m_content.tasks.size(); ++task) AddNoSource(task);
    for (size_t task = 0; task < m_content.tasks.size(); ++task) AddBadFilter(task);
    AddLeftovers();
  }

 private:
  // Calls `work` for every task and each of its destinations.
  template <class Work>
  void ForEachUse(Work work) const {
    for (size_t task = 0; task < m_content.tasks.size(); ++task) {
      for (const CDstPtr& dst : m_content.tasks[task]->dsts) {
        const auto row = m_content.dsts.IndexOf(dst);
        if (row >= 0) work(CAdvicePlace{task, static_cast<size_t>(row)});
      }
    }
  }

  const CTask& TaskAt(const CAdvicePlace& place) const { return *m_content.tasks[*place.task]; }
  const CDst& DstAt(const CAdvicePlace& place) const { return *m_content.dsts[*place.dst]; }
  std::wstring PathAt(const CAdvicePlace& place) const {
    return SamplePath(DstAt(place), TaskAt(place).id, m_ports.clock);
  }

  bool MayRead(const std::wstring& path) const {
    return !path.empty() && (m_request.depth == AdviceDepth::Network || !my::IsOnNetwork(path));
  }

  void AddDstWithinSource(const CAdvicePlace& place) {
    const std::wstring& folder = DstAt(place).folder;
    const std::wstring& source = TaskAt(place).path;
    if (source.empty() || !my::IsWithin(folder, source)) return;
    m_list.Add(AdviceKind::DstWithinSource, AdviceSeverity::Warning, place, IDS_TASK_DST_WITHIN_SOURCE,
               {folder});
  }

  void AddSplitPath(const CAdvicePlace& place) {
    if (!IsZip(DstAt(place).type)) return;
    const auto split = FindSplitPath(m_ports.files, PathAt(place));
    if (!split) return;
    m_list.Add(AdviceKind::SpaceInArchive, AdviceSeverity::Error, place, split->Id(), split->Args());
  }

  void AddNoArchiver(size_t dst) {
    if (!m_request.archiverMissing || !IsZip(m_content.dsts[dst]->type)) return;
    m_list.Add(AdviceKind::NoArchiver, AdviceSeverity::Error, {{}, dst}, IDS_ADVICE_NO_ARCHIVER, {});
  }

  void AddNoPassword(size_t dst) {
    if (!m_request.passwordMissing || !NeedsPassword(m_content.dsts[dst]->type)) return;
    m_list.Add(AdviceKind::NoPassword, AdviceSeverity::Warning, {{}, dst}, IDS_ADVICE_NO_PASSWORD, {});
  }

  void AddNoSource(size_t task) {
    const std::wstring& path = m_content.tasks[task]->path;
    if (!MayRead(path) || my::KindIfKnown(m_ports.files, path) == my::PathKind::Folder) return;
    m_list.Add(AdviceKind::NoSource, AdviceSeverity::Error, {task, {}}, IDS_TASK_NO_SOURCE, {path});
  }

  // Several tasks may share a filter, which is then read once.
  void AddBadFilter(size_t task) {
    const std::wstring& path = m_content.tasks[task]->filterPath;
    if (!MayRead(path)) return;
    const auto [at, isNew] = m_filterErrors.try_emplace(path);
    if (isNew) at->second = my::TrapError(m_ports.texts, [&] { LoadTaskFilter(m_ports, path); }).message;
    if (at->second.empty()) return;
    m_list.Add(AdviceKind::BadFilter, AdviceSeverity::Error, {task, {}}, IDS_ADVICE_BAD_FILTER, {at->second});
  }

  // Reads each folder once, whatever the number of tasks and destinations with backups in it.
  void AddLeftovers() {
    struct CFolder {
      std::wstring path;
      std::set<std::wstring> forms;
      size_t dst;
    };
    std::map<std::wstring, CFolder> folders;
    ForEachUse([&](const CAdvicePlace& place) {
      const std::wstring path = PathAt(place);
      const std::wstring folder(my::ParentPath(path));
      if (!MayRead(folder)) return;
      const auto at = folders.try_emplace(my::ComparablePath(folder), CFolder{folder, {}, *place.dst}).first;
      at->second.forms.insert(NameForm(my::LastComponent(path)));
    });
    for (const auto& [key, folder] : folders) {
      for (const CLeftover& leftover : LeftoversIn(folder.path, folder.forms)) {
        m_list.Add(AdviceKind::Leftover, AdviceSeverity::Hint, {{}, folder.dst}, IDS_ADVICE_LEFTOVER,
                   {SizeText(m_ports.texts, leftover.bytes), leftover.path});
        m_list.Last().path = leftover.path;
        m_list.Last().bytes = leftover.bytes;
      }
    }
  }

  std::vector<CLeftover> LeftoversIn(const std::wstring& folder, const std::set<std::wstring>& forms) const {
    try {
      return FindLeftovers(m_ports.files, m_request.stop, folder, forms);
    } catch (const my::CException& failure) {
      if (failure.Id() == IDS_STOPPED) throw;
      return {};  // a missing folder is normal before the first run
    }
  }

  const CContent& m_content;
  const CEnginePorts& m_ports;
  const CAdviceRequest& m_request;
  CAdviceList& m_list;
  std::map<std::wstring, std::wstring> m_filterErrors;  // by path; empty if the filter is good
};

}  // namespace

std::vector<CAdvice> FindAdvice(const CContent& content, const CEnginePorts& ports,
                                const CAdviceRequest& request) {
  CAdviceList list(ports.texts);
  AddNameAdvice(content, ports.clock, list);
  CDiskAdvice(content, ports, request, list).AddAll();
  return list.Take();
}

std::wstring AdviceLine(const my::IMessageTexts& texts, const CAdvice& advice) {
  constexpr uint32_t kLines[] = {IDS_ADVICE_HINT, IDS_WARNING, IDS_ADVICE_ERROR};
  const my::CMsgArg text = advice.text;
  return my::MakeText(texts, kLines[static_cast<size_t>(advice.severity)], {&text, 1});
}

bool IsSourceMissing(my::IFileSystem& files, const std::wstring& path) {
  return !my::IsOnNetwork(path) && my::KindIfKnown(files, path) != my::PathKind::Folder;
}

}  // namespace qlm
