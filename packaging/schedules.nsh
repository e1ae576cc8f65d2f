; The schedules of this installation would fail at every start without the program, so the runner removes them.

!define SCHEDULER_TIMEOUT_MS 60000

; Needs the programs. A failure is shown, but does not keep the program from being uninstalled.
Function un.RemoveSchedules
  DetailPrint "$(SCHEDULES_REMOVE)"
  nsExec::Exec /TIMEOUT=${SCHEDULER_TIMEOUT_MS} '"$INSTDIR\QuillmoorRun.exe" --remove-schedules'
  Pop $0
  ${If} $0 != 0
    DetailPrint "$(SCHEDULES_LEFT)"
    SetDetailsView show
  ${EndIf}
  Call un.WaitUntilUnused ; a virus scanner may still have the runner open
FunctionEnd
