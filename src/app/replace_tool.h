// The replace tool: changes text in many tasks and destinations at once, with a preview in the lists of the
// main window. It is open from the command until its dialog calls Commit or Cancel. GUI thread only.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "document/dst.h"
#include "document/replace_options.h"
#include "document/task.h"
#include "replace/replace_rule.h"
#include "support/exception.h"

namespace qlm {

class CDocument;
class IDialogs;
class IMainWindow;
struct CReplaceSetting;

class CReplaceTool {
 public:
  CReplaceTool(CDocument& document, CReplaceSetting& setting, IMainWindow& window, IDialogs& dialogs)
      : m_document(document), m_setting(setting), m_window(window), m_dialogs(dialogs) {}
  CReplaceTool(const CReplaceTool&) = delete;
  CReplaceTool& operator=(const CReplaceTool&) = delete;
  ~CReplaceTool();

  bool IsOpen() const { return m_open; }

  // Opens the dialog with the options from the settings, or focuses the open one.
  void Show();

  // --- while open; called by the dialog ---

  // Must be called after every change of a control or of the list selections: stores the options, attaches
  // the rule to the affected items and redraws the lists.
  void Refresh(CReplaceOptions options);

  const CReplaceOptions& Options() const { return m_options; }
  const CReplaceSetting& Setting() const { return m_setting; }  // with the recent texts
  size_t TaskCount() const { return m_tasks.size(); }           // number of affected rows
  size_t DstCount() const { return m_dsts.size(); }

  // The error of the expression (IDS_REGEX_...); nullopt if it is valid.
  const std::optional<my::CException>& Error() const { return m_error; }

  // Writes the replaced values to the document as one edit, stores options and texts, and closes the tool.
  // Throws the first violated rule of the document (IDS_ID_EMPTY, IDS_ID_BAD_CHARACTER, IDS_ID_DUPLICATE,
  // IDS_PATH_EMPTY, IDS_PATTERN_EMPTY, IDS_DST_DUPLICATE) or the error of the expression (IDS_REGEX_...);
  // nothing is changed then and the tool stays open.
  void Commit(CReplaceOptions options);

  // Removes the preview, stores the options and closes the tool.
  void Cancel(CReplaceOptions options);

 private:
  void Attach();
  void Detach() noexcept;
  void Close();

  CDocument& m_document;
  CReplaceSetting& m_setting;
  IMainWindow& m_window;
  IDialogs& m_dialogs;
  bool m_open = false;
  CReplaceOptions m_options;
  CReplaceRule m_rule;            // referenced by the affected items
  std::vector<CTaskPtr> m_tasks;  // affected items
  std::vector<CDstPtr> m_dsts;
  std::optional<my::CException> m_error;
};

}  // namespace qlm
