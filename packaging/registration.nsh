; Registry and start menu. SHCTX is HKCU or HKLM, depending on the scope. A choice of the user or of another program
; for a file type is kept.

!define CLASSES "Software\Classes"
!define APP_PATHS "Software\Microsoft\Windows\CurrentVersion\App Paths"
!define DOCUMENT_TYPE Quillmoor.Document
!define FILTER_TYPE Quillmoor.Filter
!define FILTER_CHECK "${CLASSES}\${FILTER_TYPE}\shell\check"
!define SHCNE_ASSOCCHANGED 0x08000000
!define MANUAL "manual\index.html"
!define MANUAL_NAME_JA "${PRODUCT} の使い方"
!define MANUAL_NAME_EN "${PRODUCT} Manual"

; Makes the shell read file types and icons again.
!macro TELL_SHELL
  System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
!macroend

; Gives a shortcut the identity of the programs, so that running windows, the jump list and notifications belong to
; it. Without, the shortcut still works.
!macro SET_IDENTITY SHORTCUT
  !insertmacro ComHlpr_CreateInProcInstance ${CLSID_ShellLink} ${IID_IPersistFile} r0 ""
  ${If} $0 P<> 0
    ${IPersistFile::Load} $0 '("${SHORTCUT}", ${STGM_READWRITE})'
    ${IUnknown::QueryInterface} $0 '("${IID_IPropertyStore}", .r1)'
    ${If} $1 P<> 0
      System::Call '*${SYSSTRUCT_PROPERTYKEY}(${PKEY_AppUserModel_ID})p.r2'
      System::Call '*(&w64 "${IDENTITY}")p.r3'
      System::Call '*${SYSSTRUCT_PROPVARIANT}(${VT_LPWSTR},, p r3)p.r4'
      ${IPropertyStore::SetValue} $1 '($2, $4)'
      ${IPropertyStore::Commit} $1 ""
      ${IPersistFile::Save} $0 '("${SHORTCUT}", 1)'
      System::Free $2
      System::Free $3
      System::Free $4
      ${IUnknown::Release} $1 ""
    ${EndIf}
    ${IUnknown::Release} $0 ""
  ${EndIf}
!macroend

; Makes TYPE a choice for the extension, and the default if neither user nor machine has one.
!macro OFFER_TYPE EXTENSION TYPE
  WriteRegStr SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids" "${TYPE}" ""
  ReadRegStr $0 HKCR "${EXTENSION}" ""
  ${If} $0 == ""
  ${OrIf} $0 == "${TYPE}"
    WriteRegStr SHCTX "${CLASSES}\${EXTENSION}" "" "${TYPE}"
  ${EndIf}
!macroend

; The name depends on the language in which the program was installed.
!macro REMOVE_MANUAL_SHORTCUTS
  Delete "$SMPROGRAMS\${PRODUCT}\${MANUAL_NAME_JA}.lnk"
  Delete "$SMPROGRAMS\${PRODUCT}\${MANUAL_NAME_EN}.lnk"
!macroend

; Removes what OFFER_TYPE has written, and the key if nothing else is in it.
!macro RELEASE_EXTENSION EXTENSION TYPE
  ReadRegStr $0 SHCTX "${CLASSES}\${EXTENSION}" ""
  ${If} $0 == "${TYPE}"
    DeleteRegValue SHCTX "${CLASSES}\${EXTENSION}" ""
  ${EndIf}
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
  !insertmacro SET_IDENTITY "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk"
  !insertmacro REMOVE_MANUAL_SHORTCUTS
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\$(MANUAL_NAME).lnk" "$INSTDIR\${MANUAL}"
  Call RegisterUninstaller
  !insertmacro TELL_SHELL
FunctionEnd

Function RegisterTypes
  WriteRegStr SHCTX "${CLASSES}\${DOCUMENT_TYPE}" "" "$(DOCUMENT_NAME)"
  WriteRegStr SHCTX "${CLASSES}\${DOCUMENT_TYPE}\DefaultIcon" "" "$INSTDIR\Quillmoor.exe,-${DOCUMENT_ICON}"
  WriteRegStr SHCTX "${CLASSES}\${DOCUMENT_TYPE}\shell\open\command" "" '"$INSTDIR\Quillmoor.exe" "%1"'
  ; Without it, the jump list of a program with an identity has no recent documents.
  WriteRegStr SHCTX "${CLASSES}\${DOCUMENT_TYPE}" "AppUserModelID" "${IDENTITY}"
  !insertmacro OFFER_TYPE .qlmr "${DOCUMENT_TYPE}"

  WriteRegStr SHCTX "${CLASSES}\${FILTER_TYPE}" "" "$(FILTER_NAME)"
  WriteRegStr SHCTX "${CLASSES}\${FILTER_TYPE}\shell" "" "edit"
  WriteRegExpandStr SHCTX "${CLASSES}\${FILTER_TYPE}\shell\edit\command" "" '"%SystemRoot%\system32\notepad.exe" "%1"'
  WriteRegStr SHCTX "${FILTER_CHECK}" "" "$(CHECK_FILTER)"
  WriteRegStr SHCTX "${FILTER_CHECK}" "Icon" "$INSTDIR\Quillmoor.exe"
  WriteRegStr SHCTX "${FILTER_CHECK}\command" "" '"$INSTDIR\Quillmoor.exe" "--check-filter=%1"'
  !insertmacro OFFER_TYPE .flt "${FILTER_TYPE}"
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
  !insertmacro RELEASE_EXTENSION .qlmr "${DOCUMENT_TYPE}"
  !insertmacro RELEASE_EXTENSION .flt "${FILTER_TYPE}"
  Delete "$SMPROGRAMS\${PRODUCT}\${PRODUCT}.lnk"
  !insertmacro REMOVE_MANUAL_SHORTCUTS
  RMDir "$SMPROGRAMS\${PRODUCT}"
  !insertmacro TELL_SHELL
FunctionEnd
