; The installer: for one user and without administrator, in the language of the user's system.
; make_packages.py gives all that is defined outside.
;
;   setup.exe /S [/D=FOLDER]          without windows; /D= comes last and takes no quotes
;   uninstall.exe /S [/SETTINGS]      without windows; removes the settings too if told so
;
; The exit status is 0 when all went well, and 2 when nothing was done because the program runs.
Unicode true
Target amd64-unicode

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tallymere"
!define SHORTCUT "$SMPROGRAMS\Tallymere.lnk"
!define EXIT_PROGRAM_RUNS 2

Name "Tallymere"
BrandingText "Tallymere ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Tallymere"
; Where it is installed already, it stays.
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
RequestExecutionLevel user
ManifestSupportedOS Win7 Win8 Win8.1 Win10
ManifestDPIAware true
SetCompressor /SOLID lzma
AllowSkipFiles off

VIProductVersion "${VERSION_OF_FOUR}"
VIAddVersionKey "ProductName" "Tallymere"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Tallymere Setup"
VIAddVersionKey "CompanyName" "The Tallymere Project"
VIAddVersionKey "LegalCopyright" "The Tallymere Project"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\tallymere.exe"
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"

LangString ProgramRuns ${LANG_ENGLISH} "Tallymere is running. Please close it first."
LangString ProgramRuns ${LANG_GERMAN} "Tallymere läuft noch. Bitte beenden Sie es zuerst."
LangString RemoveSettings ${LANG_ENGLISH} \
    "Do you want to remove your settings and variables as well?"
LangString RemoveSettings ${LANG_GERMAN} \
    "Möchten Sie auch Ihre Einstellungen und Variablen entfernen?"

; Leaves with EXIT_PROGRAM_RUNS while the program in FOLDER runs, whose file nobody can write then.
!macro RequireProgramEnded FOLDER
  ${Do}
    ${IfNot} ${FileExists} "${FOLDER}\tallymere.exe"
      ${ExitDo}
    ${EndIf}
    ClearErrors
    FileOpen $0 "${FOLDER}\tallymere.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(ProgramRuns)" /SD IDCANCEL IDCANCEL`
      SetErrorLevel ${EXIT_PROGRAM_RUNS}
      Quit
    ${EndIf}
  ${Loop}
!macroend

; An older version knows what it brought along, so it removes that itself, from where it is.
!macro RemoveOlderVersion
  ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $1 != ""
  ${AndIf} ${FileExists} "$1\uninstall.exe"
    !insertmacro RequireProgramEnded "$1"
    ExecWait '"$1\uninstall.exe" /S _?=$1'
    Delete "$1\uninstall.exe"
    RMDir "$1"
  ${EndIf}
!macroend

Section
  !insertmacro RequireProgramEnded "$INSTDIR"
  !insertmacro RemoveOlderVersion
  !include "${LISTS}/install.nsh"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "${SHORTCUT}" "$INSTDIR\tallymere.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Tallymere"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\tallymere.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Tallymere Project"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "URLInfoAbout" "${HOMEPAGE}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  !insertmacro RequireProgramEnded "$INSTDIR"
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/SETTINGS" $1
  ${IfNot} ${Errors}
  ${OrIf} ${Cmd} `MessageBox MB_YESNO|MB_DEFBUTTON2|MB_ICONQUESTION "$(RemoveSettings)" /SD IDNO IDYES`
    RMDir /r "$APPDATA\Tallymere"
  ${EndIf}
  Delete "${SHORTCUT}"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ; File by file: what else lies in the folder is not ours.
  !include "${LISTS}/uninstall.nsh"
  SetOutPath "$TEMP"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd
