; The setup program and the uninstaller. packaging/make_setup.sh passes VERSION, SIZE_KB, DOCUMENT_ICON, IDENTITY,
; OUTPUT, SIDE_IMAGE and FILES, a script with the macros of the installed files.
;
; Switches: /S silent, /CURRENTUSER, /ALLUSERS, /D=FOLDER (last, without quotes). Uninstaller: /S, /SETTINGS removes
; settings and history, too. Restarts add /RESTARTED and /APPDATA=FOLDER, see scope.nsh and settings_page.nsh.
; Exit codes: 0 done, 1 cancelled, 2 failed, 3 a program is in use, 4 administrator rights are missing.
Unicode true
Target amd64-unicode

!define PRODUCT Quillmoor
!define PUBLISHER Tenkowa
!define EXIT_IN_USE 3
!define EXIT_NO_RIGHTS 4
!define UNINSTALL_KEYS "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL_KEY "${UNINSTALL_KEYS}\${PRODUCT}"
!define FILE_LIST "files.txt"

Name "${PRODUCT}"
OutFile "${OUTPUT}"
BrandingText "${PRODUCT} ${VERSION}"
RequestExecutionLevel user
ManifestDPIAware true
SetCompressor /SOLID lzma
AllowSkipFiles off
CRCCheck force
ShowInstDetails hide
ShowUninstDetails hide

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
!macro VERSION_TEXTS LANGUAGE DESCRIPTION
  VIAddVersionKey /LANG=${LANGUAGE} ProductName "${PRODUCT}"
  VIAddVersionKey /LANG=${LANGUAGE} ProductVersion "${VERSION}"
  VIAddVersionKey /LANG=${LANGUAGE} FileVersion "${VERSION}"
  VIAddVersionKey /LANG=${LANGUAGE} FileDescription "${DESCRIPTION}"
  VIAddVersionKey /LANG=${LANGUAGE} CompanyName "${PUBLISHER}"
  VIAddVersionKey /LANG=${LANGUAGE} LegalCopyright "${PUBLISHER}"
!macroend

!include MUI2.nsh
!include nsDialogs.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include TextFunc.nsh
!include WinMessages.nsh
!include Win\COM.nsh
!include Win\Propkey.nsh
!include "${FILES}"
!include scope.nsh
!include in_use.nsh
!include registration.nsh
!include schedules.nsh
!include settings_page.nsh

!define MUI_ICON "..\res\icons\quillmoor.ico"
!define MUI_UNICON "..\res\icons\quillmoor.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE_IMAGE}"
!define MUI_ABORTWARNING

Page custom ScopePage LeaveScopePage
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipIfUpgrade
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
UninstPage custom un.SettingsPage un.LeaveSettingsPage
!insertmacro MUI_UNPAGE_INSTFILES

; The language of the system's user decides; other languages get the first one.
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Japanese
SetFont /LANG=${LANG_JAPANESE} "Yu Gothic UI" 9
!include texts.nsh
!insertmacro VERSION_TEXTS ${LANG_ENGLISH} "Quillmoor Setup"
!insertmacro VERSION_TEXTS ${LANG_JAPANESE} "Quillmoor セットアップ"

Function .onInit
  Call ChooseScope
FunctionEnd

; The shell starts the program with the rights of the user, also if setup has those of an administrator.
Function StartProgram
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\Quillmoor.exe"'
FunctionEnd

; Removes the files of the older version that this version does not have.
Function RemoveOutdatedFiles
  ClearErrors
  FileOpen $0 "$PLUGINSDIR\${FILE_LIST}" r
  ${If} ${Errors}
    Return
  ${EndIf}
  next:
    FileRead $0 $1
    IfErrors done
    ${TrimNewLines} $1 $1
    !insertmacro GOTO_IF_INSTALLED $1 next
    Delete "$INSTDIR\$1"
    ${GetParent} "$INSTDIR\$1" $2
    RMDir $2 ; removes only an empty folder
    Goto next
  done:
  FileClose $0
FunctionEnd

Section
  Call RequireUnused
  InitPluginsDir
  ${If} ${FileExists} "$INSTDIR\${FILE_LIST}"
    CopyFiles /SILENT "$INSTDIR\${FILE_LIST}" "$PLUGINSDIR\${FILE_LIST}"
  ${EndIf}
  !insertmacro INSTALL_FILES
  SetOutPath "$INSTDIR"
  Call RemoveOutdatedFiles
  WriteUninstaller "$INSTDIR\uninstall.exe"
  Call Register
SectionEnd

Function un.onInit
  Call un.ReadSettingsSwitches
  Call un.FindScope
FunctionEnd

Section un.Install
  Call un.RequireUnused
  SetOutPath "$TEMP" ; a current folder cannot be removed
  Call un.RemoveSchedules
  ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" InstallLocation
  ${If} $0 == $INSTDIR ; else another copy is registered
    Call un.Unregister
  ${EndIf}
  !insertmacro DELETE_FILES
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  ${If} $Scope == "user"
    RMDir "$LOCALAPPDATA\Programs"
  ${EndIf}
  ${If} $RemoveSettings == 1
    Call un.RemoveSettings
  ${EndIf}
  Call un.TellLeftSchedules
SectionEnd
