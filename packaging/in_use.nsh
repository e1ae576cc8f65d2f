; Programs in use are never replaced or ended. The desktop program is asked whether it may be closed, as the system
; asks at the end of a session: it refuses during a run and with unsaved edits.

!define FRAME_CLASS QuillmoorMainFrame
!define ASK_TIMEOUT_MS 5000
!define CLOSE_POLLS 40 ; every 250 ms
!define ENDSESSION_CLOSEAPP 1
!define PROCESS_QUERY_LIMITED_INFORMATION 0x1000

; Jumps to LABEL with the name of the program in $R0 if it runs: a running program cannot be opened to be written.
!macro GOTO_IF_IN_USE PROGRAM LABEL
  StrCpy $R0 "${PROGRAM}"
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    ClearErrors
    FileOpen $R1 "$INSTDIR\${PROGRAM}" a
    IfErrors ${LABEL}
    FileClose $R1
  ${EndIf}
!macroend

!macro IN_USE_FUNCTIONS PREFIX

; Sets $R0 to the program of this installation that runs; empty if there is none.
Function ${PREFIX}FindInUse
  !insertmacro GOTO_IF_IN_USE Quillmoor.exe found
  !insertmacro GOTO_IF_IN_USE QuillmoorRun.exe found
  StrCpy $R0 ""
  found:
FunctionEnd

; Sets $R3 to the path of the program that owns the window $R2; empty if this user may not know it.
Function ${PREFIX}ProgramOfWindow
  System::Call 'user32::GetWindowThreadProcessId(p R2, *i .R4)'
  System::Call 'kernel32::OpenProcess(i ${PROCESS_QUERY_LIMITED_INFORMATION}, i 0, i R4) p .R5'
  System::Call 'kernel32::QueryFullProcessImageNameW(p R5, i 0, w .R3, *i ${NSIS_MAX_STRLEN}) i .R4'
  System::Call 'kernel32::CloseHandle(p R5)'
  ${If} $R4 == 0
    StrCpy $R3 ""
  ${EndIf}
FunctionEnd

; Asks the windows of this installation to close.
Function ${PREFIX}AskToClose
  FindWindow $R2 "${FRAME_CLASS}"
  ${DoUntil} $R2 == 0
    FindWindow $R7 "${FRAME_CLASS}" "" 0 $R2 ; the next one, before this one is destroyed
    Call ${PREFIX}ProgramOfWindow
    ${If} $R3 == "$INSTDIR\Quillmoor.exe"
      SendMessage $R2 ${WM_QUERYENDSESSION} 0 ${ENDSESSION_CLOSEAPP} $R4 /TIMEOUT=${ASK_TIMEOUT_MS}
      ${If} $R4 == 1
        System::Call 'user32::PostMessageW(p R2, i ${WM_CLOSE}, p 0, p 0)'
      ${EndIf}
    ${EndIf}
    StrCpy $R2 $R7
  ${Loop}
FunctionEnd

; Sets $R0 as FindInUse does, after giving programs time to close.
Function ${PREFIX}WaitUntilUnused
  StrCpy $R6 0
  ${Do}
    Call ${PREFIX}FindInUse
    ${If} $R0 == ""
    ${OrIf} $R6 == ${CLOSE_POLLS}
      Return
    ${EndIf}
    Sleep 250
    IntOp $R6 $R6 + 1
  ${Loop}
FunctionEnd

; Returns when no program of this installation runs; ends otherwise.
Function ${PREFIX}RequireUnused
  Call ${PREFIX}FindInUse
  ${DoUntil} $R0 == ""
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(IN_USE)" /SD IDRETRY IDCANCEL refused
    Call ${PREFIX}AskToClose
    Call ${PREFIX}WaitUntilUnused
    ${If} $R0 != ""
    ${AndIf} ${Silent}
      Goto refused
    ${EndIf}
  ${Loop}
  Return
  refused:
  SetErrorLevel ${EXIT_IN_USE}
  Quit
FunctionEnd

!macroend

!insertmacro IN_USE_FUNCTIONS ""
!insertmacro IN_USE_FUNCTIONS un.
