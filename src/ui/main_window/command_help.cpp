#include "ui/main_window/command_help.h"

#include "app/application.h"
#include "command_ids.h"
#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/framework/shortcuts.h"
#include "ui/main_window/main_menu.h"
#include "ui/main_window/main_view.h"

namespace qlm {

CCommandHelp::CCommandHelp(CApplication& application, CMainView& view, HACCEL keys)
    : m_app(application), m_texts(application.Context().ports.engine.texts), m_view(view), m_keys(keys) {}

CCommandText CCommandHelp::TextOf(int id) const {
  const ListKind list = m_view.TasksAreCurrent() ? ListKind::Tasks : ListKind::Dsts;
  return CommandText(m_texts, static_cast<uint32_t>(id), {m_app.Document(), list, m_app.Run().IsActive()});
}

void CCommandHelp::ShowTip(NMTBGETINFOTIPW& tip) const {
  const std::wstring keys = my::ShortcutText(m_keys, tip.iItem);
  std::wstring text = TextOf(tip.iItem).name;
  const my::CMsgArg parts[] = {text, keys};
  if (!keys.empty()) text = my::MakeText(m_texts, IDS_TIP_WITH_KEY, parts);
  ::lstrcpynW(tip.pszText, text.c_str(), tip.cchTextMax);
}

void CCommandHelp::LabelItems(HMENU menu) const {
  const CDocument& document = m_app.Document();
  SetItemText(menu, ID_RUN, m_texts.Text(m_app.Run().IsActive() ? IDS_MENU_STOP : IDS_MENU_RUN));
  SetItemText(menu, ID_UNDO, UndoLabel(m_texts, document) + L"\t" + my::ShortcutText(m_keys, ID_UNDO));
  SetItemText(menu, ID_REDO, RedoLabel(m_texts, document) + L"\t" + my::ShortcutText(m_keys, ID_REDO));
}

}  // namespace qlm
