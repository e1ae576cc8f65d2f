#include "engine/unlisted_folder.h"

#include "document/task.h"
#include "platform/message_texts.h"
#include "support/paths.h"

namespace qlm {

std::wstring UnlistedText(const my::IMessageTexts& texts, const CTask& task,
                          const CUnlistedFolder& unlisted) {
  const my::CMsgArg error = unlisted.error;
  return my::JoinPath(task.path, unlisted.folder) + L" (" + my::MakeText(texts, 0, {&error, 1}) + L")";
}

}  // namespace qlm
