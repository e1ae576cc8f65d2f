#include "ui/models/command_text.h"

#include "command_ids.h"
#include "document/document.h"
#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {
namespace {

uint32_t TextId(uint32_t command, const CCommandState& state) {
  if (command == ID_RUN && state.running) return IDS_STOP_HELP;
  if (command >= ID_MRU_FIRST && command <= ID_MRU_LAST) return IDS_CMD_OPEN_RECENT;
  if (command < ID_ITEM_ADD || command > ID_ITEM_DOWN) return command;
  const uint32_t edits = state.list == ListKind::Tasks ? ID_TASK_EDITS : ID_DST_EDITS;
  return edits + command - ID_ITEM_ADD;
}

// Returns the text with the name of an edit; `plainId` without one.
std::wstring StepText(const my::IMessageTexts& texts, uint32_t plainId, uint32_t namedId, uint32_t nameId) {
  if (nameId == 0) return texts.Text(plainId);
  const my::CMsgArg name = my::CTextId{nameId};
  return my::MakeText(texts, namedId, {&name, 1});
}

std::wstring Lines(const my::IMessageTexts& texts, uint32_t command, const CCommandState& state) {
  switch (command) {
    case ID_UNDO: return StepText(texts, IDS_CMD_UNDO, IDS_UNDO_STEP, state.document.UndoNameId());
    case ID_REDO: return StepText(texts, IDS_CMD_REDO, IDS_REDO_STEP, state.document.RedoNameId());
    default: return texts.Text(TextId(command, state));
  }
}

}  // namespace

CCommandText CommandText(const my::IMessageTexts& texts, uint32_t command, const CCommandState& state) {
  const std::wstring lines = Lines(texts, command, state);
  const size_t end = lines.find(L'\n');
  if (end == lines.npos) return {lines, lines};
  return {lines.substr(0, end), lines.substr(end + 1)};
}

std::wstring UndoLabel(const my::IMessageTexts& texts, const CDocument& document) {
  return StepText(texts, IDS_MENU_UNDO, IDS_MENU_UNDO_STEP, document.UndoNameId());
}

std::wstring RedoLabel(const my::IMessageTexts& texts, const CDocument& document) {
  return StepText(texts, IDS_MENU_REDO, IDS_MENU_REDO_STEP, document.RedoNameId());
}

}  // namespace qlm
