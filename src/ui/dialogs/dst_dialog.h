#pragma once

#include <functional>
#include <string>

#include "app/command.h"
#include "document/dst.h"
#include "support/file_time.h"
#include "ui/framework/dialog.h"

namespace qlm {

// Edits one destination and previews the names that its pattern yields.
class CDstDialog : public my::CDialog {
 public:
  using CConfirm = std::function<void(const CDst&)>;

  // The context must outlive the dialog. OK passes the destination to `confirm`; if it throws, the error is
  // shown and the dialog stays open.
  CDstDialog(CAppContext& context, CDst dst, CConfirm confirm);

 protected:
  my::CBox Layout() const override;
  bool OnInit() override;
  void OnOk() override;
  bool OnCommand(int id, int code) override;

 private:
  CDst EditedDst() const;
  void FocusOffender(uint32_t failureId) const;
  void Browse();
  void FitExtension();
  void OfferTokens();
  void InsertToken(size_t index);
  void CheckArchiver();
  void OpenSettings();
  void ShowEffect();
  void ShowPreview();
  void ShowNote();

  CAppContext& m_context;
  CDst m_dst;
  CDstPtr m_before;  // in the document; null for a new destination
  CConfirm m_confirm;
  bool m_archiverMissing = false;
  my::CFileTime m_time;   // of the previewed name: now
  std::wstring m_taskId;  // for the preview
};

}  // namespace qlm
