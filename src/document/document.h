// The backup document: what to back up, and where to. Only the GUI thread reads or changes it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "document/dst.h"
#include "document/item_list.h"
#include "document/task.h"
#include "support/enum_names.h"
#include "support/value_codecs.h"

namespace qlm {

// The common destinations; no two are equal.
class CDsts : public CItemList<CDst> {
 public:
  // Throws IDS_DST_DUPLICATE when an equal destination is in the list.
  void Insert(std::ptrdiff_t position, CDstPtr dst);

  // The position of this very object, -1 when it is not in the list.
  std::ptrdiff_t IndexOf(const CDstPtr& dst) const;
};

// The tasks; no two have the same ID.
class CTasks : public CItemList<CTask> {
 public:
  // Throws what CheckId throws, or IDS_ID_DUPLICATE when a task of that ID is in the list.
  void Insert(std::ptrdiff_t position, CTaskPtr task);

  CTaskPtr FindId(const std::wstring& id) const;
};

// What changed in a document. The spelling of the names is the one that is in use.
enum class DocChangeEventFlags : uint32_t { RESET = 1, CHNAGE_PATH = 2, CHNAGE_TASKS = 4, CHNAGE_DSTS = 8 };

constexpr DocChangeEventFlags operator|(DocChangeEventFlags a, DocChangeEventFlags b) {
  return static_cast<DocChangeEventFlags>(static_cast<uint32_t>(a) | static_cast<uint32_t>(b));
}

constexpr bool Has(DocChangeEventFlags flags, DocChangeEventFlags flag) {
  return (static_cast<uint32_t>(flags) & static_cast<uint32_t>(flag)) != 0;
}

extern const my::CEnumTable kDocChangeEventNames;

class CDocument {
 public:
  using Listener = std::function<void(DocChangeEventFlags)>;

  static constexpr my::CVersion kVersion{1, 0, 0, 0};

  CTasks& Tasks() { return m_tasks; }
  const CTasks& Tasks() const { return m_tasks; }
  CDsts& Dsts() { return m_dsts; }
  const CDsts& Dsts() const { return m_dsts; }

  // The document's file; empty for a new document.
  const std::wstring& Path() const { return m_path; }
  void SetPath(std::wstring path) { m_path = std::move(path); }

  // Takes over what the other document has of tasks and destinations that this one lacks; tasks are inserted
  // at `position` (see CItemList), under a free ID. Answers whether anything was added. On a failure
  // (IDS_ID_NUMBERS_EXHAUSTED, IDS_INTERNAL_ERROR) this document is as it was.
  bool Merge(const CDocument& source, std::ptrdiff_t position);

  // Listeners are called in the order in which they came, and live as long as the document.
  void AddListener(Listener listener) { m_listeners.push_back(std::move(listener)); }
  void NotifyChange(DocChangeEventFlags flags) const;

 private:
  CTasks m_tasks;
  CDsts m_dsts;
  std::wstring m_path;
  std::vector<Listener> m_listeners;
};

}  // namespace qlm
