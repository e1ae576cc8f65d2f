// The commands that create, open and save documents.
#pragma once

#include <string>

#include "app/command.h"

namespace qlm {

class CCommandNew final : public CCommand {
 public:
  using CCommand::CCommand;
  void Execute(bool run) override;
};

// Opens a document, or with `append` inserts its content into the current one: at the first selected task, or
// at the end.
class CCommandOpen : public CCommand {
 public:
  // Asks for the path if it is empty.
  CCommandOpen(CAppContext& context, bool append, std::wstring path = {})
      : CCommand(context), m_append(append), m_path(std::move(path)) {}
  virtual ~CCommandOpen() = default;  // CCommandOpenMru derives from this class

  void Execute(bool run) override;

 protected:
  void SetPath(const std::wstring& path) { m_path = path; }

 private:
  bool AskPath(std::wstring& path) const;

  bool m_append;
  std::wstring m_path;
};

// Opens one of the recent documents.
class CCommandOpenMru final : public CCommandOpen {
 public:
  CCommandOpenMru(CAppContext& context, size_t index) : CCommandOpen(context, false), m_index(index) {}
  void Execute(bool run) override;  // throws IDS_INTERNAL_ERROR for an invalid index

 private:
  size_t m_index;
};

class CCommandSave final : public CCommand {
 public:
  CCommandSave(CAppContext& context, bool saveAs) : CCommand(context), m_saveAs(saveAs) {}
  void Execute(bool run) override;

 private:
  bool ChoosePath(std::wstring& path) const;

  bool m_saveAs;
};

}  // namespace qlm
