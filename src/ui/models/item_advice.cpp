#include "ui/models/item_advice.h"

#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "document/name_pattern.h"
#include "engine/advice.h"
#include "text_ids.h"
#include "ui/models/advice_marks.h"

namespace qlm {
namespace {

constexpr CAdviceRequest kDocument{AdviceDepth::Document};

template <class TItem>
std::wstring TextOf(const my::IMessageTexts& texts, const CContent& content, std::vector<CAdvice> findings,
                    const TItem& item) {
  const CAdviceMarks marks(texts, content, std::move(findings));
  const CAdviceMark* mark = marks.Find(item);
  return mark ? mark->text : std::wstring();
}

}  // namespace

std::wstring TaskAdvice(const CContent& content, const std::wstring& before, const CTask& task,
                        const CEnginePorts& ports) {
  if (task.path.empty()) return {};
  CContent edited = content;
  if (const CTaskPtr old = edited.tasks.FindId(before))
    edited.tasks.Remove(static_cast<size_t>(edited.tasks.IndexOf(old)));
  // An ID that is taken is refused later.
  if (edited.tasks.FindId(task.id)) edited.tasks = {};
  // As the last one, so that findings about two tasks are about this one.
  const auto item = boost::make_shared<CTask>(task);
  edited.tasks.Append(item);
  const size_t row = edited.tasks.size() - 1;
  std::vector<CAdvice> findings = FindAdvice(edited, ports, kDocument);
  if (IsSourceMissing(ports.files, task.path)) {
    CAdviceList missing(ports.texts);
    missing.Add(AdviceKind::NoSource, AdviceSeverity::Error, {row, {}}, IDS_TASK_NO_SOURCE, {task.path});
    findings.push_back(missing.Last());
  }
  return TextOf(ports.texts, edited, std::move(findings), item);
}

// Only the destination and its users are searched, because this is done while the user types.
std::wstring DstAdvice(const CContent& content, const CDstPtr& before, const CDst& dst, const CRows& users,
                       const std::wstring& sampleId, const CEnginePorts& ports) {
  const auto item = boost::make_shared<CDst>(dst);
  FitPattern(item->type, item->pattern);
  CContent edited;
  edited.dsts.Append(item);
  for (size_t row = 0; row < content.tasks.size(); ++row) {
    CTask user = *content.tasks[row];
    const bool uses =
        before ? std::ranges::count(user.dsts, before) != 0 : std::ranges::count(users, row) != 0;
    if (!uses) continue;
    user.dsts = {item};
    edited.tasks.Append(boost::make_shared<CTask>(user));
  }
  if (edited.tasks.empty()) edited.tasks.Append(boost::make_shared<CTask>(CTask{sampleId, L"", L"", {item}}));
  return TextOf(ports.texts, edited, FindAdvice(edited, ports, kDocument), item);
}

}  // namespace qlm
