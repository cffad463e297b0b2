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
AllowSkipFiles off ; a file that can't be replaced ends the run: old and new parts do not go together
BrandingText " "
VIProductVersion "${VERSION}.0.0"
VIFileVersion "${VERSION}.0.0"
VIAddVersionKey "FileDescription" "Stemp setup"
VIAddVersionKey "ProductName" "Stemp"
VIAddVersionKey "LegalCopyright" ""
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Stemp"
; Exit codes of a silent run, beside the usual 1 and 2
!define FOLDER_REFUSED 3
!define PROGRAM_RUNS 4

; A folder of the person's own that no other program moves, hides or copies elsewhere while the data are open.
InstallDir "$PROFILE\Stemp"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "ShortcutsTo"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_DIRECTORYPAGE_TEXT_TOP "$(FolderText)"
!define MUI_DIRECTORYPAGE_VERIFYONLEAVE ; a button that is only grey gives no reason
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE CheckFolder
!insertmacro MUI_PAGE_DIRECTORY
!define MUI_COMPONENTSPAGE_TEXT_TOP "$(ChoiceText)"
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE CheckChoice
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!define MUI_WELCOMEFINISHPAGE_BITMAP "${LISTS}/side.bmp"
!define MUI_FINISHPAGE_TITLE "$(DoneTitle)"
!define MUI_FINISHPAGE_TEXT "$(DoneText)"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "$(UninstallText)"
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE un.CheckProgram
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
!insertmacro text ChoiceText \
  "Has a colleague put Stemp into this folder already? Then untick Program, and you get the shortcuts only." \
  "Har en kollega allerede lagt Stemp i denne mappe? Fjern så mærket ved Program, og du får kun genvejene."
!insertmacro text DoneTitle "Stemp is installed" "Stemp er installeret"
!insertmacro text DoneText \
  "Program and data are in this folder:$\r$\n$INSTDIR$\r$\n$\r$\nPlease see to it that it is backed up." \
  "Program og data ligger i denne mappe:$\r$\n$INSTDIR$\r$\n$\r$\nSørg for, at der tages sikkerhedskopi af den."
!insertmacro text UninstallText \
  "The program is removed from this folder, on a network drive for all who use it there. Your data stay: all files that Stemp has made for you and your colleagues." \
  "Programmet fjernes fra denne mappe, på et netværksdrev for alle, der bruger det dér. Dine data bliver liggende: alle filer, som Stemp har lavet til dig og dine kolleger."
!insertmacro text NoPlace \
  "The program can't be put there:$\r$\n$INSTDIR$\r$\n$\r$\nPlease name a drive that is there and a folder on it, such as P:\Stemp." \
  "Programmet kan ikke lægges her:$\r$\n$INSTDIR$\r$\n$\r$\nAngiv et drev, der findes, og en mappe på det, for eksempel P:\Stemp."
!insertmacro text NoRoom \
  "There is not enough room for the program on the drive of this folder:$\r$\n$INSTDIR$\r$\n$\r$\nPlease make room, or choose another one." \
  "Der er ikke plads nok til programmet på det drev, hvor mappen ligger:$\r$\n$INSTDIR$\r$\n$\r$\nSkaf plads, eller vælg en anden."
!insertmacro text NotWritable \
  "Nothing can be written in this folder:$\r$\n$INSTDIR$\r$\n$\r$\nIt is write-protected for you, or its drive is not there. Stemp keeps its data in its own folder; please choose another one." \
  "Der kan ikke skrives i denne mappe:$\r$\n$INSTDIR$\r$\n$\r$\nDen er skrivebeskyttet for dig, eller dens drev er der ikke. Stemp gemmer sine data i sin egen mappe; vælg en anden."
!insertmacro text ProgramFiles \
  "In this folder only an administrator may write:$\r$\n$INSTDIR$\r$\n$\r$\nStemp keeps its data in its own folder. Please choose another one." \
  "I denne mappe må kun en administrator skrive:$\r$\n$INSTDIR$\r$\n$\r$\nStemp gemmer sine data i sin egen mappe. Vælg en anden."
!insertmacro text OtherProgram \
  "Another program is installed in this folder:$\r$\n$INSTDIR$\r$\n$\r$\nTheir files would get mixed up. Please choose another folder, or a new one." \
  "Et andet program er installeret i denne mappe:$\r$\n$INSTDIR$\r$\n$\r$\nDeres filer ville blive blandet sammen. Vælg en anden mappe eller en ny."
!insertmacro text StillRuns \
  "The program in this folder is in use:$\r$\n$INSTDIR$\r$\n$\r$\nPlease close Stemp, on a network drive at all workstations, and try again." \
  "Programmet i denne mappe er i brug:$\r$\n$INSTDIR$\r$\n$\r$\nLuk Stemp, på et netværksdrev på alle arbejdspladser, og prøv igen."
!insertmacro text NoProgram \
  "There is no Stemp in this folder yet, so shortcuts to it would lead nowhere:$\r$\n$INSTDIR$\r$\n$\r$\nPlease tick Program too." \
  "Der er endnu ikke noget Stemp i denne mappe, så genveje dertil ville ikke føre nogen steder hen:$\r$\n$INSTDIR$\r$\n$\r$\nSæt også mærke ved Program."
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

; Leaves "held" in $0 when the program's file can't be opened for writing, because it runs, at whichever workstation. Asks until
; it is closed or the person gives up.
!macro askUntilClosed un
Function ${un}AskUntilClosed
  ${Do}
    StrCpy $0 ""
    ${IfNot} ${FileExists} "$INSTDIR\stemp.exe"
      Return
    ${EndIf}
    ClearErrors
    FileOpen $1 "$INSTDIR\stemp.exe" a
    ${IfNot} ${Errors}
      FileClose $1
      Return
    ${EndIf}
    StrCpy $0 "held"
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(StillRuns)" /SD IDCANCEL IDCANCEL`
      Return
    ${EndIf}
  ${Loop}
FunctionEnd
!macroend
!insertmacro askUntilClosed ""
!insertmacro askUntilClosed "un."

!macro endWhileInUse un
  Call ${un}AskUntilClosed
  ${If} $0 == "held"
    SetErrorLevel ${PROGRAM_RUNS}
    Quit
  ${EndIf}
!macroend

; A folder that is named with /D= and can't be one, on a drive that is not there for instance, would silently give way to the
; usual one.
Function .onInit
  System::Call "kernel32::GetCommandLine() t .r0"
  StrCpy $1 0
  ${Do}
    StrCpy $2 $0 4 $1
    ${If} $2 == ""
      Return
    ${EndIf}
    IntOp $1 $1 + 1
  ${LoopUntil} $2 == " /D="
  IntOp $1 $1 + 3
  StrLen $2 $INSTDIR
  StrCpy $3 $0 $2 $1
  ${If} $3 != $INSTDIR
    StrCpy $INSTDIR $0 "" $1
    !insertmacro refuse "$(NoPlace)" ${FOLDER_REFUSED}
    Quit
  ${EndIf}
FunctionEnd

; Leaves the reason for refusing the folder in $1; empty when there is none. A folder that is made for the trial goes again.
Function FindRefusal
  StrCpy $1 ""
  StrLen $0 "$INSTDIR"
  ${If} $0 <= 3 ; a whole drive
    StrCpy $1 "$(NoPlace)"
    Return
  ${EndIf}
  StrLen $2 "$PROGRAMFILES64\"
  StrCpy $3 "$INSTDIR\" $2
  StrLen $4 "$PROGRAMFILES32\"
  StrCpy $5 "$INSTDIR\" $4
  ${If} $3 == "$PROGRAMFILES64\"
  ${OrIf} $5 == "$PROGRAMFILES32\"
    StrCpy $1 "$(ProgramFiles)"
    Return
  ${EndIf}
  ${If} ${FileExists} "$INSTDIR\Uninstall.exe"
  ${AndIfNot} ${FileExists} "$INSTDIR\stemp.exe"
    StrCpy $1 "$(OtherProgram)"
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
  GetInstDirError $7
  ${If} $7 = 1
    StrCpy $1 "$(NoPlace)"
  ${Else}
    Call FindRefusal
  ${EndIf}
  ${If} $1 == ""
  ${AndIf} $7 = 2
    StrCpy $1 "$(NoRoom)"
  ${EndIf}
  ${If} $1 != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION "$1"
    Abort
  ${EndIf}
FunctionEnd

Function un.CheckProgram
  Call un.AskUntilClosed
  ${If} $0 == "held"
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
  !insertmacro endWhileInUse ""
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
  WriteRegStr HKCU "${UNINSTALL_KEY}" "ShortcutsTo" "$INSTDIR"
SectionEnd

; What would end the run in a section is said while the person can still choose otherwise.
Function CheckChoice
  ${If} ${SectionIsSelected} ${Program}
    Call AskUntilClosed
    ${If} $0 == "held"
      Abort
    ${EndIf}
  ${ElseIf} ${SectionIsSelected} ${Shortcuts}
  ${AndIfNot} ${FileExists} "$INSTDIR\stemp.exe"
    MessageBox MB_OK|MB_ICONEXCLAMATION "$(NoProgram)"
    Abort
  ${EndIf}
FunctionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${Program} "$(ProgramHelp)"
  !insertmacro MUI_DESCRIPTION_TEXT ${Shortcuts} "$(ShortcutHelp)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Removes what was installed, file by file. Whatever else stands in the folder stays, and the folder with it.
Section "Uninstall"
  !insertmacro endWhileInUse "un."
  SetOutPath "$TEMP" ; a working folder can't be removed
  !include "${LISTS}/remove-files.nsh"
  Delete "$INSTDIR\Uninstall.exe"
  !include "${LISTS}/remove-folders.nsh"
  RMDir "$INSTDIR"
  ; What belongs to a copy that was installed elsewhere since stays.
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "ShortcutsTo"
  ${If} $0 == $INSTDIR
    Delete "$SMPROGRAMS\Stemp.lnk"
    Delete "$DESKTOP\Stemp.lnk"
    DeleteRegValue HKCU "${UNINSTALL_KEY}" "ShortcutsTo"
  ${EndIf}
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ${EndIf}
SectionEnd
