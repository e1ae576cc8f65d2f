// The window of the replace tool.
#pragma once

#include "document/replace_options.h"
#include "ui/framework/dialog.h"

namespace qlm {

struct CAppContext;

// Modeless over the context's replace tool, which is open when the dialog is created. The tool is committed
// by OK, and cancelled whichever other way the window goes.
class CReplaceDialog : public my::CDialog {
 public:
  explicit CReplaceDialog(CAppContext& context);

  // To be called when the selections of the lists or the document have changed. Does nothing while there is
  // no window.
  void Refresh();

 protected:
  std::vector<my::CAnchor> Anchors() const override;
  bool OnInit() override;
  void OnOk() override;
  bool OnCommand(int id, int code) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnClosed(int result) override;

 private:
  void ShowOptions(const CReplaceOptions& options) const;
  CReplaceOptions ReadOptions() const;
  void ShowState() const;

  CAppContext& m_context;
};

}  // namespace qlm
