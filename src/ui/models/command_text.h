// What is said about commands.
#pragma once

#include <cstdint>
#include <string>

#include "app/windows.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

class CDocument;

struct CCommandText {
  std::wstring explanation;  // a sentence for the status bar
  std::wstring name;         // for the tip of a toolbar button; without its own name the explanation
};

// The state of the program that texts depend on.
struct CCommandState {
  const CDocument& document;
  ListKind list = ListKind::Tasks;  // on which the edit commands act
  bool running = false;
};

// Undo and redo name the edit on which they act. Both texts are empty if the id (ID_...) has no text.
CCommandText CommandText(const my::IMessageTexts& texts, uint32_t command, const CCommandState& state);

// Returns the label of the menu item for undo or redo.
std::wstring UndoLabel(const my::IMessageTexts& texts, const CDocument& document);
std::wstring RedoLabel(const my::IMessageTexts& texts, const CDocument& document);

}  // namespace qlm
