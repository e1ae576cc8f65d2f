// The backup document: what to back up, and where to. It is used by one thread; jobs work on copies of its
// tasks.
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
  // Throw IDS_DST_DUPLICATE if the list has an equal destination.
  void Insert(size_t row, CDstPtr dst);
  void Insert(std::ptrdiff_t position, CDstPtr dst) { Insert(InsertRow(position, size()), std::move(dst)); }
  void Append(CDstPtr dst) { Insert(size(), std::move(dst)); }

  // Replaces the destination at `index`. Throws IDS_DST_DUPLICATE if it equals another one.
  void Replace(size_t index, CDstPtr dst);
};

// The tasks; no two have the same ID. Other rules for IDs are checked by the editors (CheckTask), because a
// file may violate them.
class CTasks : public CItemList<CTask> {
 public:
  // Throw IDS_ID_DUPLICATE if the list has a task with this ID.
  void Insert(size_t row, CTaskPtr task);
  void Insert(std::ptrdiff_t position, CTaskPtr task) {
    Insert(InsertRow(position, size()), std::move(task));
  }
  void Append(CTaskPtr task) { Insert(size(), std::move(task)); }

  // Replaces the task at `index`. Throws IDS_ID_DUPLICATE if another task has its ID.
  void Replace(size_t index, CTaskPtr task);

  // Returns null if there is none.
  CTaskPtr FindId(const std::wstring& id) const;

  // Returns the ID, or if it is taken the ID with the first free number from 2 (Backup, Backup2, Backup3).
  // Throws IDS_ID_NUMBERS_EXHAUSTED.
  std::wstring FreeId(const std::wstring& id) const;
};

// The tasks and destinations of a document; cheap to copy.
struct CContent {
  CTasks tasks;
  CDsts dsts;
};

// What changed in a document. The spelling of the names is intended.
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

  // The path of the file; empty for a new document.
  const std::wstring& Path() const { return m_path; }

  // Returns whether the content differs from the saved one; false again after undoing back to it.
  bool IsModified() const { return m_revision != m_savedRevision; }

  // Calls `change` with a copy of the content. The result becomes the content, as one undo step. If `change`
  // returns false or throws, the document is unchanged. Listeners are notified with `what`. `nameId` is the
  // id of the text that names the step (IDS_EDIT_*).
  bool Edit(uint32_t nameId, DocChangeEventFlags what, const std::function<bool(CContent&)>& change);

  // Adds the tasks and destinations of `source` that this document lacks. Tasks are inserted at `position`
  // (see InsertRow), with a free ID. One edit; returns whether anything was added. If
  // IDS_ID_NUMBERS_EXHAUSTED or IDS_INTERNAL_ERROR is thrown, this document is unchanged.
  bool Merge(const CContent& source, std::ptrdiff_t position);

  bool CanUndo() const { return !m_undo.empty(); }
  bool CanRedo() const { return !m_redo.empty(); }
  void Undo();  // does nothing if there is nothing to undo
  void Redo();

  // Return the name of the edit that Undo or Redo would act on; 0 if there is none.
  uint32_t UndoNameId() const { return NameOfLast(m_undo); }
  uint32_t RedoNameId() const { return NameOfLast(m_redo); }

  // Replaces content and path. The document is then unmodified and has no undo steps. Listeners stay
  // registered.
  void Reset(CContent content, std::wstring path);

  // Marks the current content as saved at `path`.
  void SetSaved(std::wstring path);

  // Listeners are called in order of registration and are never removed.
  void AddListener(Listener listener) { m_listeners.push_back(std::move(listener)); }
  void NotifyChange(DocChangeEventFlags flags) const;

 private:
  // The content on the other side of an edit.
  struct CStep {
    CContent content;
    uint64_t revision = 0;
    uint32_t nameId = 0;  // of the edit
  };

  static uint32_t NameOfLast(const std::deque<CStep>& steps) {
    return steps.empty() ? 0 : steps.back().nameId;
  }
  void Restore(std::deque<CStep>& from, std::deque<CStep>& to);

  CContent m_content;
  std::wstring m_path;
  uint64_t m_revision = 0;  // identifies the current content
  uint64_t m_savedRevision = 0;
  uint64_t m_lastRevision = 0;
  std::deque<CStep> m_undo;  // the latest step is last
  std::deque<CStep> m_redo;
  std::vector<Listener> m_listeners;
};

}  // namespace qlm
