#include "engine/name_advice.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <vector>

#include "document/name_pattern.h"
#include "engine/advice.h"
#include "engine/destination_path.h"
#include "support/name_faults.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr my::CFileTime kSampleTime{131'016'350'490'000'000};  // 2016-03-05 07:04:09 UTC
constexpr uint64_t kSecond = 10'000'000;
// Later by 400 days, 9 hours, 13 minutes and 27 seconds, so that every field differs.
constexpr my::CFileTime kOtherTime{kSampleTime.ticks + ((400 * 24 + 9) * 3600 + 13 * 60 + 27) * kSecond};

// Replaces the task ID in a name; cannot be part of one.
constexpr wchar_t kIdMark = L'\x01';

// The names of one destination with the mark instead of the ID, at both times.
struct CNames {
  CNameTokens tokens;
  std::array<std::wstring, 2> names;
  std::vector<size_t> users;  // rows of tasks
};

CNames NamesOf(const CDst& dst, const my::IClock& clock) {
  const std::wstring mark(1, kIdMark);
  return {TokensOf(dst.pattern),
          {ExpandName(dst, mark, kSampleTime, clock), ExpandName(dst, mark, kOtherTime, clock)},
          {}};
}

std::wstring WithId(const std::wstring& name, const std::wstring& id) {
  std::wstring named;
  for (const wchar_t c : name) {
    if (c == kIdMark) {
      named += id;
    } else {
      named += c;
    }
  }
  return named;
}

// The fields of a name from the year down to the second.
std::array<bool, 6> TimesIn(const CNameTokens& tokens) {
  return {tokens.year, tokens.month, tokens.day, tokens.hour, tokens.minute, tokens.second};
}

class CNameAdvice {
 public:
  CNameAdvice(const CContent& content, const my::IClock& clock, CAdviceList& list)
      : m_content(content), m_list(list) {
    for (const CDstPtr& dst : content.dsts) m_names.push_back(NamesOf(*dst, clock));
    for (size_t row = 0; row < content.tasks.size(); ++row) {
      for (const CDstPtr& dst : content.tasks[row]->dsts) {
        if (const auto index = content.dsts.IndexOf(dst); index >= 0) NamesAt(index).users.push_back(row);
      }
    }
  }

  void AddAll() {
    for (size_t dst = 0; dst < m_names.size(); ++dst) AddTimes(dst);
    for (size_t dst = 0; dst < m_names.size(); ++dst) AddFaults(dst);
    for (size_t dst = 0; dst < m_names.size(); ++dst) AddShared(dst);
    for (size_t task = 0; task < m_content.tasks.size(); ++task) AddSamePaths(task);
  }

 private:
  CNames& NamesAt(std::ptrdiff_t dst) { return m_names[static_cast<size_t>(dst)]; }
  const std::wstring& Pattern(size_t dst) const { return m_content.dsts[dst]->pattern; }

  void AddTimes(size_t dst) {
    constexpr uint32_t kUnits[] = {IDS_UNIT_YEAR, IDS_UNIT_MONTH, IDS_UNIT_DAY, IDS_UNIT_HOUR};
    constexpr size_t kDay = 2;
    const auto times = TimesIn(m_names[dst].tokens);
    const auto finest = static_cast<size_t>(times.rend() - std::find(times.rbegin(), times.rend(), true));
    if (finest == 0) {
      return m_list.Add(AdviceKind::NameWithoutTime, AdviceSeverity::Warning, {{}, dst}, IDS_ADVICE_NO_TIME,
                        {Pattern(dst)});
    }
    if (std::find(times.begin(), times.begin() + finest, false) != times.begin() + finest)
      m_list.Add(AdviceKind::RepeatingName, AdviceSeverity::Warning, {{}, dst}, IDS_ADVICE_REPEATS,
                 {Pattern(dst)});
    if (finest > std::size(kUnits)) return;
    const auto severity = finest - 1 < kDay ? AdviceSeverity::Warning : AdviceSeverity::Hint;
    m_list.Add(AdviceKind::CoarseName, severity, {{}, dst}, IDS_ADVICE_COARSE,
               {my::CTextId{kUnits[finest - 1]}, Pattern(dst)});
  }

  // Without <ID> the name is the same for all tasks, so one finding is enough.
  void AddFaults(size_t dst) {
    const CNames& names = m_names[dst];
    if (!names.tokens.id) return AddFault({{}, dst}, names.names[0]);
    for (const size_t task : names.users)
      AddFault({task, dst}, WithId(names.names[0], m_content.tasks[task]->id));
  }

  void AddFault(const CAdvicePlace& place, const std::wstring& name) {
    const CDst& dst = *m_content.dsts[*place.dst];
    const std::wstring path = DestinationPath(dst, name);
    const std::wstring_view folder = DestinationFolder(dst);
    const std::wstring used = path.substr(folder.size() + 1);
    if (my::HasBadCharacter(used))
      return m_list.Add(AdviceKind::BadName, AdviceSeverity::Error, place, IDS_NAME_BAD_CHARACTER, {used});
    if (used.empty())
      return m_list.Add(AdviceKind::BadName, AdviceSeverity::Error, place, IDS_PATH_NO_FILE_NAME, {path});
    const auto fault = my::FindNameFault(folder, used);
    if (fault) m_list.Add(AdviceKind::BadName, AdviceSeverity::Error, place, fault->id, {fault->name});
  }

  void AddShared(size_t dst) {
    const CNames& names = m_names[dst];
    if (names.tokens.id || names.users.size() < 2) return;
    constexpr size_t kMostIds = 5;
    std::wstring ids;
    for (size_t i = 0; i < names.users.size() && i < kMostIds; ++i)
      ids += (i == 0 ? L"" : L", ") + m_content.tasks[names.users[i]]->id;
    if (names.users.size() > kMostIds) ids += L", …";
    m_list.Add(AdviceKind::SharedName, AdviceSeverity::Warning, {{}, dst}, IDS_ADVICE_SHARED_NAME,
               {ids, Pattern(dst)});
  }

  void AddSamePaths(size_t task) {
    const CTask& item = *m_content.tasks[task];
    for (const CDstPtr& used : item.dsts) {
      const auto index = m_content.dsts.IndexOf(used);
      if (index < 0) continue;
      const auto dst = static_cast<size_t>(index);
      const auto [at, isNew] = m_paths.try_emplace(PathKey(dst, item.id), CPlace{task, dst});
      const bool isShared = at->second.dst == dst && !m_names[dst].tokens.id;  // has its own finding
      if (isNew || isShared) continue;
      m_list.Add(AdviceKind::SamePath, AdviceSeverity::Warning, {task, dst}, IDS_ADVICE_SAME_PATH,
                 {m_content.tasks[at->second.task]->id, DestinationPath(*used, used->pattern)});
    }
  }

  // Returns the paths at both times: names that are the same only by chance differ at one of them.
  std::wstring PathKey(size_t dst, const std::wstring& id) const {
    std::wstring key;
    for (const std::wstring& name : m_names[dst].names)
      key += my::ComparablePath(DestinationPath(*m_content.dsts[dst], WithId(name, id))) + L'|';
    return key;
  }

  struct CPlace {
    size_t task;
    size_t dst;
  };

  const CContent& m_content;
  CAdviceList& m_list;
  std::vector<CNames> m_names;                       // of each destination
  std::unordered_map<std::wstring, CPlace> m_paths;  // the first use of each path
};

}  // namespace

void AddNameAdvice(const CContent& content, const my::IClock& clock, CAdviceList& list) {
  CNameAdvice(content, clock, list).AddAll();
}

std::wstring SamplePath(const CDst& dst, const std::wstring& taskId, const my::IClock& clock) {
  return DestinationPath(dst, ExpandName(dst, taskId, kSampleTime, clock));
}

}  // namespace qlm
