#include "run/schedule_removal.h"

#include "platform/console.h"
#include "platform/known_folders.h"
#include "platform/message_texts.h"
#include "run/exit_codes.h"
#include "support/exception.h"
#include "support/paths.h"

namespace qlm {

int RemoveSchedules(const CSchedulePorts& ports, const my::IKnownFolders& folders, my::IConsole& console) {
  const my::CSimpleErr error = my::TrapError(ports.texts, [&] {
    CSchedules(ports, my::JoinPath(folders.ProgramFolder(), L"QuillmoorRun.exe")).RemoveOwn();
  });
  if (!error) return kExitDone;
  console.Write(my::IConsole::Stream::Errors, error.message + L"\n");
  return kExitErrors;
}

}  // namespace qlm
