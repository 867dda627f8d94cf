; The installer: for one user and without administrator, in the language of the user's system.
; make_packages.py gives all that is defined outside.
;
;   setup.exe /S [/D=FOLDER]          without windows; /D= comes last and takes no quotes
;   uninstall.exe /S [/SETTINGS]      without windows; removes the settings too if told so
;
; The exit status is 0 when all went well. Otherwise nothing was done where it is one of these;
; 1 and 2 are those of NSIS, for a user who cancels and for a step that fails.
;
;   3    the program runs
;   4    the file of the program cannot be written, and not because it runs
;   5    the older version could not be removed
Unicode true
Target amd64-unicode

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tallymere"
!define SHORTCUT "$SMPROGRAMS\Tallymere.lnk"
!define SETTINGS_FOLDER "$APPDATA\Tallymere"
!define EXIT_PROGRAM_RUNS 3
!define EXIT_CANNOT_WRITE 4
!define EXIT_OLDER_VERSION_STAYS 5

; Of Windows.
!define GENERIC_READ_WRITE 0xC0000000
!define FILE_SHARE_READ 1
!define OPEN_EXISTING 3
!define INVALID_HANDLE -1
!define ERROR_SHARING_VIOLATION 32
!define ERROR_USER_MAPPED_FILE 1224

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
LangString CannotWrite ${LANG_ENGLISH} \
    "This file cannot be written. It or its folder may be write-protected."
LangString CannotWrite ${LANG_GERMAN} \
    "Diese Datei kann nicht geschrieben werden. Sie oder ihr Ordner ist wohl schreibgeschützt."
LangString OlderVersionStays ${LANG_ENGLISH} \
    "The older version could not be removed. Nothing was installed."
LangString OlderVersionStays ${LANG_GERMAN} \
    "Die ältere Version konnte nicht entfernt werden. Es wurde nichts installiert."
LangString RemoveSettings ${LANG_ENGLISH} \
    "Do you want to remove your settings and variables as well?"
LangString RemoveSettings ${LANG_GERMAN} \
    "Möchten Sie auch Ihre Einstellungen und Variablen entfernen?"

; Asks again or leaves with the exit status.
!macro RetryOrLeave TEXT STATUS
  ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${TEXT}" /SD IDCANCEL IDCANCEL`
    SetErrorLevel ${STATUS}
    Quit
  ${EndIf}
!macroend

; Leaves while the program in FOLDER runs, whose file nobody can write then, or if it cannot be
; written for another reason.
!macro RequireProgramEnded FOLDER
  ${Do}
    ${IfNot} ${FileExists} "${FOLDER}\tallymere.exe"
      ${ExitDo}
    ${EndIf}
    System::Call 'kernel32::CreateFileW(w "${FOLDER}\tallymere.exe", i ${GENERIC_READ_WRITE}, \
        i ${FILE_SHARE_READ}, p 0, i ${OPEN_EXISTING}, i 0, p 0) p .r0 ?e'
    Pop $3
    ${If} $0 != ${INVALID_HANDLE}
      System::Call 'kernel32::CloseHandle(p r0)'
      ${ExitDo}
    ${EndIf}
    ${If} $3 = ${ERROR_SHARING_VIOLATION}
    ${OrIf} $3 = ${ERROR_USER_MAPPED_FILE}
      !insertmacro RetryOrLeave "$(ProgramRuns)" ${EXIT_PROGRAM_RUNS}
    ${Else}
      !insertmacro RetryOrLeave "$(CannotWrite)$\r$\n${FOLDER}\tallymere.exe" \
          ${EXIT_CANNOT_WRITE}
    ${EndIf}
  ${Loop}
!macroend

; An older version knows what it brought along, so it removes that itself, from where it is. While
; it stays, so does its uninstaller.
!macro RemoveOlderVersion
  ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $1 != ""
  ${AndIf} ${FileExists} "$1\uninstall.exe"
    !insertmacro RequireProgramEnded "$1"
    ClearErrors
    ExecWait '"$1\uninstall.exe" /S _?=$1' $2
    ${If} ${Errors}
    ${OrIf} $2 <> 0
      MessageBox MB_OK|MB_ICONSTOP "$(OlderVersionStays)" /SD IDOK
      SetErrorLevel ${EXIT_OLDER_VERSION_STAYS}
      Quit
    ${EndIf}
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
    !include "${LISTS}/settings.nsh"
    RMDir "${SETTINGS_FOLDER}"
  ${EndIf}
  Delete "${SHORTCUT}"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ; File by file, as the settings too: what else lies in the folder is not ours.
  !include "${LISTS}/uninstall.nsh"
  SetOutPath "$TEMP"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd
