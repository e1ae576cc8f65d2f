// The dialog of the replace tool.
#pragma once

#include "document/replace_options.h"
#include "ui/framework/dialog.h"

namespace qlm {

struct CAppContext;

// A modeless dialog for the context's replace tool, which must be open. OK commits the tool; closing the
// window in any other way cancels it.
class CReplaceDialog : public my::CDialog {
 public:
  explicit CReplaceDialog(CAppContext& context);

  // Must be called when the list selections or the document have changed. Does nothing if there is no window.
  void Refresh();

 protected:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override;
  bool OnCommand(int id, int code) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnClosed(int result) override;

 private:
  void ShowOptions(const CReplaceOptions& options);
  CReplaceOptions ReadOptions() const;
  void ShowState();

  CAppContext& m_context;
};

}  // namespace qlm
