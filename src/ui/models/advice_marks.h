#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "document/document.h"
#include "engine/advice.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

// The findings about an item.
struct CAdviceMark {
  AdviceSeverity severity = AdviceSeverity::Hint;  // of the most severe one
  std::wstring text;                               // a line for each, the most severe first
};

// The marks of the items of a document by object, so they stay valid when rows are moved. An item that was
// edited since is another object and has no mark.
class CAdviceMarks {
 public:
  CAdviceMarks() = default;

  // `findings` are about the rows of `content`.
  CAdviceMarks(const my::IMessageTexts& texts, CContent content, std::vector<CAdvice> findings);

  // Return null if there is no mark.
  const CAdviceMark* Find(const CTaskPtr& task) const { return Find(static_cast<const void*>(task.get())); }
  const CAdviceMark* Find(const CDstPtr& dst) const { return Find(static_cast<const void*>(dst.get())); }

 private:
  const CAdviceMark* Find(const void* item) const;
  void Add(const void* item, AdviceSeverity severity, const std::wstring& line);

  CContent m_content;  // keeps the objects alive
  std::unordered_map<const void*, CAdviceMark> m_marks;
};

// Returns the icon of a mark in the order of the state icons; -1 for a hint and without a mark.
int IconOf(const CAdviceMark* mark);

}  // namespace qlm
