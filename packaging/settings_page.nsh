; The uninstaller keeps settings and history unless the user asks to remove them (/SETTINGS). It removes those of the
; account that it runs as, so not if that is another one than the account of the user who started it.

!define SETTINGS_FOLDER "$APPDATA\${PUBLISHER}\${PRODUCT}"

Var RemoveSettings ; 1 or 0
Var IsOtherAccount ; 1 if another account gave the administrator rights
Var SettingsButton

; Sets $0 to the switches for a restart with administrator rights. /APPDATA tells whose settings are meant.
Function un.SettingsSwitches
  StrCpy $0 '/APPDATA="$APPDATA"'
  ${If} $RemoveSettings == 1
    StrCpy $0 "$0 /SETTINGS"
  ${EndIf}
FunctionEnd

; Needs the shell context of the current user.
Function un.ReadSettingsSwitches
  StrCpy $RemoveSettings 0
  StrCpy $IsOtherAccount 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/SETTINGS" $1
  ${IfNot} ${Errors}
    StrCpy $RemoveSettings 1
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/APPDATA=" $1
  ${IfNot} ${Errors}
  ${AndIf} $1 != $APPDATA
    StrCpy $IsOtherAccount 1
    StrCpy $RemoveSettings 0
  ${EndIf}
FunctionEnd

Function un.SettingsPage
  nsDialogs::Create 1018
  Pop $0
  ${If} $IsOtherAccount == 1
    !insertmacro MUI_HEADER_TEXT "$(SETTINGS_TITLE)" "$(SETTINGS_KEPT)"
    ${NSD_CreateLabel} 0 0 100% 60u "$(SETTINGS_OTHER_ACCOUNT)"
    Pop $0
  ${Else}
    !insertmacro MUI_HEADER_TEXT "$(SETTINGS_TITLE)" "$(SETTINGS_SUBTITLE)"
    ${NSD_CreateCheckBox} 0 0 100% 12u "$(SETTINGS_REMOVE)"
    Pop $SettingsButton
    ${NSD_SetState} $SettingsButton $RemoveSettings
    ${NSD_CreateLabel} 12u 14u -12u 40u "$(SETTINGS_HINT)"
    Pop $0
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function un.LeaveSettingsPage
  ${If} $IsOtherAccount == 0
    ${NSD_GetState} $SettingsButton $RemoveSettings
  ${EndIf}
FunctionEnd

; Those of the current user, also if the program was installed for all.
Function un.RemoveSettings
  SetShellVarContext current
  Delete "${SETTINGS_FOLDER}\Quillmoor32.config"
  Delete "${SETTINGS_FOLDER}\QuillmoorHistory.jsonl"
  Delete "${SETTINGS_FOLDER}\QuillmoorHistory.jsonl.lock"
  Delete "${SETTINGS_FOLDER}\_tmp*" ; of a save that was cut off
  RMDir "${SETTINGS_FOLDER}"
  RMDir "$APPDATA\${PUBLISHER}"
FunctionEnd
