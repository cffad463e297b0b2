; The installer: for one person, without an administrator's rights, into a folder that this person may write in, because the
; data lie in the program folder. build.sh names the files.
Unicode true
Target amd64-unicode
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

Name "Stemp"
OutFile "${OUTPUT}"
RequestExecutionLevel user
SetCompressor /SOLID lzma
ManifestDPIAware true
BrandingText " "
VIProductVersion "${VERSION}.0.0"
VIFileVersion "${VERSION}.0.0"
VIAddVersionKey "FileDescription" "Stemp setup"
VIAddVersionKey "ProductName" "Stemp"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Stemp"
; Exit codes of a silent run, beside the usual 1 and 2
!define FOLDER_REFUSED 3
!define PROGRAM_RUNS 4

; A folder of the person's own that no other program moves, hides or copies elsewhere while the data are open.
InstallDir "$PROFILE\Stemp"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_DIRECTORYPAGE_TEXT_TOP "$(FolderText)"
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE CheckFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "$(UninstallText)"
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Danish"

!macro text name english danish
  LangString ${name} ${LANG_ENGLISH} "${english}"
  LangString ${name} ${LANG_DANISH} "${danish}"
!macroend
!insertmacro text FolderText \
  "Stemp keeps its data in its own folder, so this has to be a folder that you may write in. A folder on a network drive serves all who work there." \
  "Stemp gemmer sine data i sin egen mappe, så det skal være en mappe, som du må skrive i. En mappe på et netværksdrev kan bruges af alle, der arbejder dér."
!insertmacro text UninstallText \
  "The program is removed from this folder. Your data stay there: all files that Stemp has made for you and your colleagues." \
  "Programmet fjernes fra denne mappe. Dine data bliver liggende: alle filer, som Stemp har lavet til dig og dine kolleger."
!insertmacro text NotWritable \
  "You may not write in this folder:$\r$\n$INSTDIR$\r$\n$\r$\nStemp keeps its data in its own folder. Please choose another one." \
  "Du må ikke skrive i denne mappe:$\r$\n$INSTDIR$\r$\n$\r$\nStemp gemmer sine data i sin egen mappe. Vælg en anden."
!insertmacro text ProgramFiles \
  "In this folder only an administrator may write:$\r$\n$INSTDIR$\r$\n$\r$\nStemp keeps its data in its own folder. Please choose another one." \
  "I denne mappe må kun en administrator skrive:$\r$\n$INSTDIR$\r$\n$\r$\nStemp gemmer sine data i sin egen mappe. Vælg en anden."
!insertmacro text StillRuns \
  "Stemp is running from this folder:$\r$\n$INSTDIR$\r$\n$\r$\nPlease close it, on a network drive at all workstations, and try again." \
  "Stemp kører fra denne mappe:$\r$\n$INSTDIR$\r$\n$\r$\nLuk det, på et netværksdrev på alle arbejdspladser, og prøv igen."
!insertmacro text NoProgram \
  "There is no Stemp in this folder yet, so shortcuts to it would lead nowhere:$\r$\n$INSTDIR$\r$\n$\r$\nPlease install the program too." \
  "Der er endnu ikke noget Stemp i denne mappe, så genveje dertil ville ikke føre nogen steder hen:$\r$\n$INSTDIR$\r$\n$\r$\nInstallér også programmet."
!insertmacro text ProgramSection "Program" "Program"
!insertmacro text ShortcutSection "Shortcuts for me" "Genveje til mig"
!insertmacro text ProgramHelp \
  "The program itself. Leave it out when a colleague has installed it in that folder already." \
  "Selve programmet. Udelad det, når en kollega allerede har installeret det i mappen."
!insertmacro text ShortcutHelp \
  "In the start menu and on the desktop of this workstation." \
  "I startmenuen og på skrivebordet på denne arbejdsplads."

; Tells why there is no going on; a silent run ends with the exit code.
!macro refuse text code
  MessageBox MB_OK|MB_ICONEXCLAMATION "${text}" /SD IDOK
  SetErrorLevel ${code}
!macroend

; A running program's file can't be opened for writing, from whichever workstation it was started. Asks until it is closed.
!macro waitForProgram
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\stemp.exe"
      ${ExitDo}
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\stemp.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(StillRuns)" /SD IDCANCEL IDCANCEL`
      SetErrorLevel ${PROGRAM_RUNS}
      Quit
    ${EndIf}
  ${Loop}
!macroend

; Leaves the reason for refusing the folder in $1; empty when there is none. A folder that is made for the trial goes again.
Function FindRefusal
  StrCpy $1 ""
  StrLen $2 "$PROGRAMFILES64\"
  StrCpy $3 "$INSTDIR\" $2
  StrLen $4 "$PROGRAMFILES32\"
  StrCpy $5 "$INSTDIR\" $4
  ${If} $3 == "$PROGRAMFILES64\"
  ${OrIf} $5 == "$PROGRAMFILES32\"
    StrCpy $1 "$(ProgramFiles)"
    Return
  ${EndIf}
  StrCpy $6 "kept"
  ${IfNot} ${FileExists} "$INSTDIR\*.*"
    StrCpy $6 "made"
  ${EndIf}
  ClearErrors
  CreateDirectory "$INSTDIR"
  GetTempFileName $0 "$INSTDIR"
  ${If} ${Errors}
    StrCpy $1 "$(NotWritable)"
  ${EndIf}
  Delete "$0"
  ${If} $6 == "made"
    RMDir "$INSTDIR"
  ${EndIf}
FunctionEnd

Function CheckFolder
  Call FindRefusal
  ${If} $1 != ""
    !insertmacro refuse "$1" ${FOLDER_REFUSED}
    Abort
  ${EndIf}
FunctionEnd

; Started as from its shortcut, in its own folder.
Function StartProgram
  SetOutPath "$INSTDIR"
  Exec '"$INSTDIR\stemp.exe"'
FunctionEnd

Section "$(ProgramSection)" Program
  Call FindRefusal ; a silent run has asked for nothing yet
  ${If} $1 != ""
    !insertmacro refuse "$1" ${FOLDER_REFUSED}
    Quit
  ${EndIf}
  !insertmacro waitForProgram
  SetOutPath "$INSTDIR"
  File /r "${FOLDER}/*.*"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Stemp"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\stemp.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  SectionGetSize ${Program} $0
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

; The program runs only where its folder is the working folder, which a shortcut takes from $OUTDIR.
Section "$(ShortcutSection)" Shortcuts
  ${IfNot} ${FileExists} "$INSTDIR\stemp.exe"
    !insertmacro refuse "$(NoProgram)" ${FOLDER_REFUSED}
    Quit
  ${EndIf}
  SetOutPath "$INSTDIR"
  CreateShortcut "$SMPROGRAMS\Stemp.lnk" "$INSTDIR\stemp.exe"
  CreateShortcut "$DESKTOP\Stemp.lnk" "$INSTDIR\stemp.exe"
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${Program} "$(ProgramHelp)"
  !insertmacro MUI_DESCRIPTION_TEXT ${Shortcuts} "$(ShortcutHelp)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Removes what was installed, file by file. Whatever else stands in the folder stays, and the folder with it.
Section "Uninstall"
  !insertmacro waitForProgram
  SetOutPath "$TEMP" ; a working folder can't be removed
  !include "${LISTS}/remove-files.nsh"
  Delete "$INSTDIR\Uninstall.exe"
  !include "${LISTS}/remove-folders.nsh"
  RMDir "$INSTDIR"
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR ; not when another copy was installed since
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    Delete "$SMPROGRAMS\Stemp.lnk"
    Delete "$DESKTOP\Stemp.lnk"
  ${EndIf}
SectionEnd
