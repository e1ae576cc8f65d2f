// The backup document: what to back up, and where to. Only the GUI thread reads or changes it.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "document/dst.h"
#include "document/item_list.h"
#include "document/task.h"
#include "support/value_codecs.h"

namespace qlm {

// The common destinations; no two are equal.
class CDsts : public CItemList<CDst> {
 public:
  // These throw IDS_DST_DUPLICATE if an equal destination is in the list.
  void Insert(size_t row, CDstPtr dst);
  void Insert(std::ptrdiff_t position, CDstPtr dst) { Insert(InsertRow(position, size()), std::move(dst)); }
  void Append(CDstPtr dst) { Insert(size(), std::move(dst)); }

  // Puts the destination in the place of another one. Throws IDS_DST_DUPLICATE when one of the others equals
  // it.
  void Replace(size_t index, CDstPtr dst);
};

// The tasks; no two have the same ID. What else must hold of an ID is checked by the editors (CheckTask): a
// file may have others.
class CTasks : public CItemList<CTask> {
 public:
  // These throw IDS_ID_DUPLICATE if a task of that ID is in the list.
  void Insert(size_t row, CTaskPtr task);
  void Insert(std::ptrdiff_t position, CTaskPtr task) {
    Insert(InsertRow(position, size()), std::move(task));
  }
  void Append(CTaskPtr task) { Insert(size(), std::move(task)); }

  // Puts the task in the place of another one. Throws what Insert throws, the task that goes not counted.
  void Replace(size_t index, CTaskPtr task);

  // Empty when there is none.
  CTaskPtr FindId(const std::wstring& id) const;

  // The ID itself, or the ID with the first number from 2 on that makes it free (Backup, Backup2, Backup3).
  // Throws IDS_ID_NUMBERS_EXHAUSTED.
  std::wstring FreeId(const std::wstring& id) const;
};

// What a document holds at one moment; cheap to copy.
struct CContent {
  CTasks tasks;
  CDsts dsts;
};

// What changed in a document. The spelling of the names is the one that is in use.
enum class DocChangeEventFlags : uint32_t { RESET = 1, CHNAGE_PATH = 2, CHNAGE_TASKS = 4, CHNAGE_DSTS = 8 };

constexpr DocChangeEventFlags operator|(DocChangeEventFlags a, DocChangeEventFlags b) {
  return static_cast<DocChangeEventFlags>(static_cast<uint32_t>(a) | static_cast<uint32_t>(b));
}

constexpr bool Has(DocChangeEventFlags flags, DocChangeEventFlags flag) {
  return (static_cast<uint32_t>(flags) & static_cast<uint32_t>(flag)) != 0;
}

class CDocument {
 public:
  using Listener = std::function<void(DocChangeEventFlags)>;

  static constexpr my::CVersion kVersion{1, 0, 0, 0};

  CDocument() = default;
  explicit CDocument(CContent content, std::wstring path = {})
      : m_content(std::move(content)), m_path(std::move(path)) {}

  const CTasks& Tasks() const { return m_content.tasks; }
  const CDsts& Dsts() const { return m_content.dsts; }
  const CContent& Content() const { return m_content; }

  // The document's file; empty for a new document.
  const std::wstring& Path() const { return m_path; }

  // Whether there are edits that the file does not have. Undoing them all makes it false again.
  bool IsModified() const { return m_revision != m_savedRevision; }

  // One edit: `change` works on a copy, and what it leaves takes the place of the content as one step that
  // Undo takes back. When it answers false or throws, nothing has happened. Listeners hear of `what`.
  bool Edit(DocChangeEventFlags what, const std::function<bool(CContent&)>& change);

  // Takes over what the source has of tasks and destinations that this document lacks; tasks are inserted
  // at `position` (see InsertRow), under a free ID. One edit; answers whether anything was added. On a
  // failure (IDS_ID_NUMBERS_EXHAUSTED, IDS_INTERNAL_ERROR) this document is as it was.
  bool Merge(const CContent& source, std::ptrdiff_t position);

  bool CanUndo() const { return !m_undo.empty(); }
  bool CanRedo() const { return !m_redo.empty(); }
  void Undo();  // does nothing when there is nothing to undo
  void Redo();

  // Becomes another document: not modified, nothing to undo. Listeners stay.
  void Reset(CContent content, std::wstring path);

  // Notes that the file at `path` now has what this document has.
  void SetSaved(std::wstring path);

  // Listeners are called in the order in which they came, and live as long as the document.
  void AddListener(Listener listener) { m_listeners.push_back(std::move(listener)); }
  void NotifyChange(DocChangeEventFlags flags) const;

 private:
  struct CStep {
    CContent content;
    uint64_t revision = 0;
  };

  void Restore(std::deque<CStep>& from, std::deque<CStep>& to);

  CContent m_content;
  std::wstring m_path;
  uint64_t m_revision = 0;  // names the content as it is
  uint64_t m_savedRevision = 0;
  uint64_t m_lastRevision = 0;
  std::deque<CStep> m_undo;  // the latest step at the back
  std::deque<CStep> m_redo;
  std::vector<Listener> m_listeners;
};

}  // namespace qlm
