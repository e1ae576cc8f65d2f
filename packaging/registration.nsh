; Registry and start menu. SHCTX is HKCU or HKLM, depending on the scope. A choice of the user or of another program
; for a file type is kept.

!define CLASSES "Software\Classes"
!define APP_PATHS "Software\Microsoft\Windows\CurrentVersion\App Paths"
!define DOCUMENT_TYPE Quillmoor.Document
!define FILTER_TYPE Quillmoor.Filter
!define SHCNE_ASSOCCHANGED 0x08000000
!define MANUAL "manual\index.html"
!define MANUAL_NAME_JA "${PRODUCT} の使い方"
!define MANUAL_NAME_EN "${PRODUCT} Manual"

; Makes the shell read file types and icons again.
!macro TELL_SHELL
  System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
!macroend

; The name depends on the language in which the program was installed.
!macro REMOVE_MANUAL_SHORTCUTS
  Delete "$SMPROGRAMS\${PRODUCT}\${MANUAL_NAME_JA}.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\${MANUAL_NAME_EN}.lnk"
!macroend

; Removes the entry of TYPE, and the key if nothing else is in it.
!macro RELEASE_EXTENSION EXTENSION TYPE
  DeleteRegValue SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids" "${TYPE}"
  DeleteRegKey /ifempty SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids"
  DeleteRegKey /ifempty SHCTX "${CLASSES}\${EXTENSION}"
!macroend

Function Register
  Call RegisterTypes
  WriteRegStr SHCTX "${APP_PATHS}\Quillmoor.exe" "" "$INSTDIR\Quillmoor.exe"
  WriteRegStr SHCTX "${APP_PATHS}\QuillmoorRun.exe" "" "$INSTDIR\QuillmoorRun.exe"
  CreateDirectory "$SMPROGRAMS\${PRODUCT}"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk" "$INSTDIR\Quillmoor.exe"
  !insertmacro REMOVE_MANUAL_SHORTCUTS
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\$(MANUAL_NAME).lnk" "$INSTDIR\${MANUAL}"
  Call RegisterUninstaller
  !insertmacro TELL_SHELL
FunctionEnd

Function RegisterTypes
  WriteRegStr SHCTX "${CLASSES}\${DOCUMENT_TYPE}" "" "$(DOCUMENT_NAME)"
  WriteRegStr SHCTX "${CLASSES}\${DOCUMENT_TYPE}\DefaultIcon" "" "$INSTDIR\Quillmoor.exe,-${DOCUMENT_ICON}"
  WriteRegStr SHCTX "${CLASSES}\${DOCUMENT_TYPE}\shell\open\command" "" '"$INSTDIR\Quillmoor.exe" "%1"'
  WriteRegStr SHCTX "${CLASSES}\.qlmr\OpenWithProgids" "${DOCUMENT_TYPE}" ""
  ReadRegStr $0 SHCTX "${CLASSES}\.qlmr" ""
  ${If} $0 == ""
    WriteRegStr SHCTX "${CLASSES}\.qlmr" "" "${DOCUMENT_TYPE}"
  ${EndIf}

  WriteRegStr SHCTX "${CLASSES}\${FILTER_TYPE}" "" "$(FILTER_NAME)"
  WriteRegStr SHCTX "${CLASSES}\${FILTER_TYPE}\shell" "" "edit"
  WriteRegExpandStr SHCTX "${CLASSES}\${FILTER_TYPE}\shell\edit\command" "" '"%SystemRoot%\system32\notepad.exe" "%1"'
  WriteRegStr SHCTX "${CLASSES}\.flt\OpenWithProgids" "${FILTER_TYPE}" ""
FunctionEnd

Function RegisterUninstaller
  WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayName "${PRODUCT}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\Quillmoor.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" Publisher "${PUBLISHER}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" EstimatedSize ${SIZE_KB}
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoModify 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoRepair 1
FunctionEnd

Function un.Unregister
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  DeleteRegKey SHCTX "${APP_PATHS}\Quillmoor.exe"
  DeleteRegKey SHCTX "${APP_PATHS}\QuillmoorRun.exe"
  ${If} $Scope == "user" ; those of the system were there before
    DeleteRegKey /ifempty HKCU "${UNINSTALL_KEYS}"
    DeleteRegKey /ifempty HKCU "${APP_PATHS}"
  ${EndIf}
  DeleteRegKey SHCTX "${CLASSES}\${DOCUMENT_TYPE}"
  DeleteRegKey SHCTX "${CLASSES}\${FILTER_TYPE}"
  ReadRegStr $0 SHCTX "${CLASSES}\.qlmr" ""
  ${If} $0 == "${DOCUMENT_TYPE}"
    DeleteRegValue SHCTX "${CLASSES}\.qlmr" ""
  ${EndIf}
  !insertmacro RELEASE_EXTENSION .qlmr "${DOCUMENT_TYPE}"
  !insertmacro RELEASE_EXTENSION .flt "${FILTER_TYPE}"
  Delete "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk"
  !insertmacro REMOVE_MANUAL_SHORTCUTS
  RMDir "$SMPROGRAMS\${PRODUCT}"
  !insertmacro TELL_SHELL
FunctionEnd
