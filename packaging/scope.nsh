; For whom the program is installed: for the current user, which needs no rights, or for all users.

Var Scope          ; "user" or "machine"
Var IsScopeFixed   ; 1 if a switch gave the scope
Var FolderSwitch   ; of /D; empty without it
Var IsUpgrade      ; 1 if a version is installed for the scope
Var UserButton
Var MachineButton

!macro IS_ADMINISTRATOR RESULT
  UserInfo::GetAccountType
  Pop ${RESULT}
  ${If} ${RESULT} == "Admin"
    StrCpy ${RESULT} 1
  ${Else}
    StrCpy ${RESULT} 0
  ${EndIf}
!macroend

; Starts PROGRAM with administrator rights, perhaps those of another account, and ends this process. Returns if the
; user refuses, or if the rights are still missing: a system without User Account Control does not ask for them.
!macro RESTART_ELEVATED PROGRAM SWITCHES
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 "/RESTARTED" $1
  ${If} ${Errors}
    ClearErrors
    ExecShell "runas" "${PROGRAM}" "/RESTARTED ${SWITCHES}"
    ${IfNot} ${Errors}
      SetErrorLevel 0
      Quit
    ${EndIf}
  ${EndIf}
!macroend

!macro USE_SCOPE
  ${If} $Scope == "machine"
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
!macroend

; Sets the folder: that of the installed version, else that of the switch, else the usual one.
Function UseScope
  !insertmacro USE_SCOPE
  ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" InstallLocation
  StrCpy $IsUpgrade 0
  ${If} $INSTDIR != ""
    StrCpy $IsUpgrade 1
  ${ElseIf} $FolderSwitch != ""
    StrCpy $INSTDIR $FolderSwitch
  ${ElseIf} $Scope == "machine"
    StrCpy $INSTDIR "$PROGRAMFILES64\${PRODUCT}"
  ${Else}
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${PRODUCT}"
  ${EndIf}
FunctionEnd

; Follows the switches, else the installed version, else installs for the current user.
Function ChooseScope
  StrCpy $Scope "user"
  StrCpy $IsScopeFixed 1
  StrCpy $FolderSwitch $INSTDIR
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/ALLUSERS" $1
  ${IfNot} ${Errors}
    StrCpy $Scope "machine"
  ${Else}
    ClearErrors
    ${GetOptions} $0 "/CURRENTUSER" $1
    ${If} ${Errors}
      StrCpy $IsScopeFixed 0
      Call FindInstalledScope
    ${EndIf}
  ${EndIf}
  Call UseScope
  Call RequireRightsIfSilent
FunctionEnd

; Returns if the user refuses.
Function RestartForAllUsers
  StrCpy $0 "/ALLUSERS"
  ${If} $FolderSwitch != ""
    StrCpy $0 "$0 /D=$FolderSwitch" ; last and without quotes
  ${EndIf}
  !insertmacro RESTART_ELEVATED "$EXEPATH" "$0"
FunctionEnd

Function FindInstalledScope
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
  ${If} $0 != ""
    Return
  ${EndIf}
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" InstallLocation
  ${If} $0 != ""
    StrCpy $Scope "machine"
  ${EndIf}
FunctionEnd

; Without a page there is nobody to ask for administrator rights.
Function RequireRightsIfSilent
  !insertmacro IS_ADMINISTRATOR $0
  ${If} $Scope == "machine"
  ${AndIf} $0 == 0
    ${If} ${Silent}
      SetErrorLevel ${EXIT_NO_RIGHTS}
      Quit
    ${ElseIf} $IsScopeFixed == 1
      Call RestartForAllUsers
      MessageBox MB_ICONEXCLAMATION "$(NO_RIGHTS)"
      SetErrorLevel ${EXIT_NO_RIGHTS}
      Quit
    ${EndIf}
  ${EndIf}
FunctionEnd

Function SkipIfUpgrade
  ${If} $IsUpgrade == 1
    Abort ; skips the page
  ${EndIf}
FunctionEnd

Function ScopePage
  ${If} $IsScopeFixed == 1
    Abort ; skips the page
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "$(SCOPE_TITLE)" "$(SCOPE_SUBTITLE)"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 0 100% 12u "$(SCOPE_USER)"
  Pop $UserButton
  ${NSD_AddStyle} $UserButton ${WS_GROUP}
  ${NSD_CreateLabel} 12u 14u -12u 20u "$(SCOPE_USER_HINT)"
  Pop $0
  ${NSD_CreateRadioButton} 0 42u 100% 12u "$(SCOPE_MACHINE)"
  Pop $MachineButton
  ${NSD_CreateLabel} 12u 56u -12u 20u "$(SCOPE_MACHINE_HINT)"
  Pop $0
  ${If} $Scope == "machine"
    ${NSD_Check} $MachineButton
    ${NSD_SetFocus} $MachineButton
  ${Else}
    ${NSD_Check} $UserButton
    ${NSD_SetFocus} $UserButton
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function LeaveScopePage
  ${NSD_GetState} $MachineButton $0
  ${If} $0 == ${BST_CHECKED}
    StrCpy $Scope "machine"
    !insertmacro IS_ADMINISTRATOR $0
    ${If} $0 == 0
      Call RestartForAllUsers
      MessageBox MB_ICONEXCLAMATION "$(NO_RIGHTS)"
      Abort ; stays on the page
    ${EndIf}
  ${Else}
    StrCpy $Scope "user"
  ${EndIf}
  Call UseScope
FunctionEnd

; The folder of the uninstaller tells which installation it belongs to.
Function un.FindScope
  StrCpy $Scope "user"
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
  ReadRegStr $1 HKLM "${UNINSTALL_KEY}" InstallLocation
  ${If} $0 != $INSTDIR
  ${AndIf} $1 == $INSTDIR
    StrCpy $Scope "machine"
    !insertmacro IS_ADMINISTRATOR $0
    ${If} $0 == 0
      ${IfNot} ${Silent}
        Call un.SettingsSwitches
        !insertmacro RESTART_ELEVATED "$INSTDIR\uninstall.exe" "$0"
        MessageBox MB_ICONEXCLAMATION "$(NO_RIGHTS_TO_UNINSTALL)"
      ${EndIf}
      SetErrorLevel ${EXIT_NO_RIGHTS}
      Quit
    ${EndIf}
  ${EndIf}
  !insertmacro USE_SCOPE
FunctionEnd
