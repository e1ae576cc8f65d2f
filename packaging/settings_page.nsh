; The uninstaller keeps settings and history unless the user asks to remove them (/SETTINGS).

!define SETTINGS_FOLDER "$APPDATA\${PUBLISHER}\${PRODUCT}"

Var RemoveSettings ; 1 or 0
Var SettingsButton

Function un.SettingsPage
  !insertmacro MUI_HEADER_TEXT "$(SETTINGS_TITLE)" "$(SETTINGS_SUBTITLE)"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateCheckBox} 0 0 100% 12u "$(SETTINGS_REMOVE)"
  Pop $SettingsButton
  ${NSD_SetState} $SettingsButton $RemoveSettings
  ${NSD_CreateLabel} 12u 14u -12u 30u "$(SETTINGS_HINT)"
  Pop $0
  nsDialogs::Show
FunctionEnd

Function un.LeaveSettingsPage
  ${NSD_GetState} $SettingsButton $RemoveSettings
FunctionEnd

Function un.ReadSettingsSwitch
  StrCpy $RemoveSettings 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/SETTINGS" $1
  ${IfNot} ${Errors}
    StrCpy $RemoveSettings 1
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
