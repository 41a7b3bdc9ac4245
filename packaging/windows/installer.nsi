; The installer of Quillbox for Windows: for one person, without an administrator's rights.
;
;   makensis -DVERSION=1.3.0 -DMAKER_ADDRESS=... -DICON=... -DFOLDER=... -DFILES=... -DOUT=... installer.nsi
;
; FOLDER is the portable folder. FILES names a file with a line
;   !insertmacro EachFile SUBFOLDER NAME
; for each file in it but skin.ini. Words that the installer and the uninstaller take on a command line:
;   /S          silently: nothing is asked
;   /D=FOLDER   (installer, as the last word) where to
;   /SETTINGS   (uninstaller) accounts and settings go, too
; Exit codes: 0 done, 1 given up by the person, 2 the program that runs could not be ended, 3 a file
; could not be written.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user
SetDateSave on

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinMessages.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillbox"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define SETTINGS_KEY "Software\Quillbox"
!define WINDOW_CLASS "QuillboxForm1"
!define LINK "$SMPROGRAMS\Quillbox.lnk"

Name "Quillbox"
BrandingText "Quillbox ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Quillbox"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Quillbox"
VIAddVersionKey "CompanyName" "Tarnwick Works"
VIAddVersionKey "FileDescription" "Installs Quillbox"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\quillbox.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Quillbox"
!define MUI_FINISHPAGE_NOAUTOCLOSE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_COMPONENTSPAGE_NODESC
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Var Ran     ; "yes" when the program ran and was ended
Var Window
Var Tries

; Ends the program that runs by its own message, and waits until its file can be written.
!macro EndProgram un
Function ${un}EndProgram
  StrCpy $Ran ""
  StrCpy $Tries 0
  ask:
    FindWindow $Window "${WINDOW_CLASS}"
    ${If} $Window <> 0
      StrCpy $Ran "yes"
      SendMessage $Window ${WM_CLOSE} 0 0 /TIMEOUT=2000
    ${EndIf}
    IfFileExists "$INSTDIR\quillbox.exe" 0 ended
    ClearErrors
    FileOpen $0 "$INSTDIR\quillbox.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${If} $Window = 0
        Goto ended
      ${EndIf}
    ${EndIf}
    Sleep 250
    IntOp $Tries $Tries + 1
    IntCmp $Tries 40 0 ask 0
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Quillbox is running and doesn't end. Please end it by Exit in its menu." \
    /SD IDCANCEL IDCANCEL given_up
  StrCpy $Tries 0
  Goto ask
  given_up:
    SetErrorLevel 2
    Quit
  ended:
FunctionEnd
!macroend
!insertmacro EndProgram ""
!insertmacro EndProgram "un."

; The skin may be the person's own by now: then it stays. Its time tells.
!macro RemoveSkinUnlessChanged
  GetFileTime "$INSTDIR\skin.ini" $0 $1
  ReadRegStr $2 HKCU "${UNINSTALL_KEY}" "SkinTime"
  ${If} "$0 $1" == $2
    Delete "$INSTDIR\skin.ini"
  ${EndIf}
!macroend

Section "Quillbox"
  Call EndProgram
  ; What an older version has brought and this one doesn't.
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
  ${AndIf} ${FileExists} "$INSTDIR\uninstall.exe"
    ExecWait '"$INSTDIR\uninstall.exe" /S /UPDATE _?=$INSTDIR'
  ${EndIf}

  ClearErrors
  !macro EachFile subfolder name
    SetOutPath "$INSTDIR${subfolder}"
    File "${FOLDER}${subfolder}\${name}"
  !macroend
  SetOverwrite on
  !include "${FILES}"
  !macroundef EachFile
  SetOutPath "$INSTDIR"
  SetOverwrite off
  IfFileExists "$INSTDIR\skin.ini" has_skin
  File "${FOLDER}\skin.ini"
  GetFileTime "$INSTDIR\skin.ini" $0 $1
  WriteRegStr HKCU "${UNINSTALL_KEY}" "SkinTime" "$0 $1"
  has_skin:
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "Not every file could be written to $INSTDIR." /SD IDOK
    SetErrorLevel 3
    Abort
  ${EndIf}

  CreateShortCut "${LINK}" "$INSTDIR\quillbox.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Quillbox"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\quillbox.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Tarnwick Works"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "URLInfoAbout" "${MAKER_ADDRESS}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
  ; The start with Windows follows the program to its folder.
  ReadRegStr $0 HKCU "${RUN_KEY}" "Quillbox"
  ${If} $0 != ""
    WriteRegStr HKCU "${RUN_KEY}" "Quillbox" "$INSTDIR\Quillbox.exe"
  ${EndIf}
  ${If} $Ran == "yes"
  ${AndIf} ${Silent}
    Exec '"$INSTDIR\quillbox.exe"'
  ${EndIf}
SectionEnd

Section "un.Quillbox"
  SectionIn RO
  Call un.EndProgram
  !macro EachFile subfolder name
    Delete "$INSTDIR${subfolder}\${name}"
    StrCmp "${subfolder}" "" +2
    RMDir "$INSTDIR${subfolder}"
  !macroend
  !include "${FILES}"
  !macroundef EachFile
  RMDir "$INSTDIR\skins"
  !insertmacro RemoveSkinUnlessChanged
  ${un.GetParameters} $0
  ${un.GetOptions} $0 "/UPDATE" $1
  ${IfNot} ${Errors}
    Quit
  ${EndIf}
  ; What the program has fetched and made.
  !macro WorkingFile name
    Delete "$INSTDIR\${name}"
    Delete "$INSTDIR\${name}.*.part"
  !macroend
  !insertmacro WorkingFile "Content.dat"
  !insertmacro WorkingFile "Content.log"
  !insertmacro WorkingFile "Search.dat"
  !insertmacro WorkingFile "Search.log"
  !insertmacro WorkingFile "Referral.dat"
  !insertmacro WorkingFile "Referral.log"
  !insertmacro WorkingFile "Report.dat"
  !insertmacro WorkingFile "Report.log"
  !insertmacro WorkingFile "Report.html"
  !insertmacro WorkingFile "che.wt"
  !insertmacro WorkingFile "chet.wt"
  Delete "${LINK}"
  DeleteRegValue HKCU "${RUN_KEY}" "Quillbox"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd

Section /o "un.Accounts and settings" SETTINGS
  DeleteRegKey HKCU "${SETTINGS_KEY}"
  Delete "$INSTDIR\skin.ini"
  RMDir /r "$LOCALAPPDATA\Quillbox"
  RMDir "$INSTDIR"
SectionEnd

Function un.onInit
  ${un.GetParameters} $0
  ClearErrors
  ${un.GetOptions} $0 "/SETTINGS" $1
  ${IfNot} ${Errors}
    SectionSetFlags ${SETTINGS} ${SF_SELECTED}
  ${EndIf}
FunctionEnd
