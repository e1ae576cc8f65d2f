; The schedules of this installation would fail at every start without the program, so the runner removes them.

!define SCHEDULER_TIMEOUT_MS 60000

Var ScheduleRemoval ; exit code of the runner; 0 if none is left

; Needs the programs. A failure does not keep the program from being uninstalled.
Function un.RemoveSchedules
  nsExec::Exec /TIMEOUT=${SCHEDULER_TIMEOUT_MS} '"$INSTDIR\QuillmoorRun.exe" --remove-schedules'
  Pop $ScheduleRemoval
  Call un.WaitUntilUnused ; a virus scanner may still have the runner open
FunctionEnd

; For the end of the log, where it is seen.
Function un.TellLeftSchedules
  ${If} $ScheduleRemoval != 0
    DetailPrint "$(SCHEDULES_LEFT)"
    DetailPrint "$(SCHEDULES_LEFT_REMEDY)"
    SetDetailsView show
  ${EndIf}
FunctionEnd
