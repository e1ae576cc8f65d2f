#include "app/command.h"

#include "app/messenger.h"
#include "app/replace_tool.h"
#include "app/windows.h"
#include "engine/backup_thread.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {

my::CCtrlException ShowCurrentFailure(const CAppContext& context) {
  try {
    throw;
  } catch (const CListException& failure) {
    context.messenger.ShowError(failure);
    failure.List().Focus();
    return my::CCtrlException(static_cast<const my::CException&>(failure));
  } catch (const my::CException& failure) {
    context.messenger.ShowError(failure);
    return my::CCtrlException(failure);
  } catch (const std::exception& failure) {
    my::CCtrlException shown(IDS_STD_ERROR, {my::WideFromUtf8(failure.what())});
    context.messenger.ShowError(shown);
    return shown;
  } catch (...) {
    my::CCtrlException shown(IDS_INTERNAL_ERROR, {L"unknown exception"});
    context.messenger.ShowError(shown);
    return shown;
  }
}

void RunCommand(CAppContext& context, CCommand& command, bool run, bool rethrow) {
  try {
    command.Execute(run);
  } catch (...) {
    const my::CCtrlException shown = ShowCurrentFailure(context);
    if (rethrow) throw shown;
  }
}

void RefuseDuringRun(const CAppContext& context) {
  if (context.run.IsActive()) throw my::CException(IDS_REFUSED_DURING_RUN);
}

void RefuseDuringReplace(const CAppContext& context) {
  if (context.replace.IsOpen()) throw my::CException(IDS_REFUSED_DURING_REPLACE);
}

}  // namespace qlm
