; The set-up program. pack calls makensis with VERSION, FILES (the folder of what is installed), ICON and OUT.

Unicode true
!include MUI2.nsh
!include LogicLib.nsh
!include StrFunc.nsh
${StrStr}
${UnStrStr}

!define SETTINGS "Software\VB and VBA Program Settings"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvelle"

Name "Corvelle ${VERSION}"
OutFile "${OUT}"
InstallDir "$PROGRAMFILES\Corvelle"
InstallDirRegKey HKLM "${UNINSTALL}" "InstallLocation"
RequestExecutionLevel admin
SetCompressor /SOLID lzma
ManifestDPIAware true
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Corvelle"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileDescription "Corvelle set-up"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "MIT licence"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\FormatterHelp.chm"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show the manual"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${FILES}/licence.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var older ; the folder of the version that is installed already, or empty
Var stage ; where the new version is made complete before the older one goes
Var shared ; 1 where the folder was there and holds more than an older version

; What set-up and removal share; the names of a removal's functions begin with "un.", of the search "Un".
!macro SHARED un search

; Goes on only when nothing in the folder $R0 is in use.
Function ${un}RequireUnused
  ${For} $R1 1 3
    ${If} $R1 = 1
      StrCpy $R2 "$R0\Corvelle.dll"
    ${ElseIf} $R1 = 2
      StrCpy $R2 "$R0\corvelle.exe"
    ${Else}
      StrCpy $R2 "$R0\workbench.exe"
    ${EndIf}
    again:
    ${If} ${FileExists} $R2
      ClearErrors
      FileOpen $R3 $R2 a
      ${If} ${Errors}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$R2 is in use. Close Visual Basic and every other program \
          that uses Corvelle, then choose Retry." /SD IDCANCEL IDRETRY again
        Abort "$R2 is in use. Nothing was changed."
      ${EndIf}
      FileClose $R3
    ${EndIf}
  ${Next}
FunctionEnd

; $R4 becomes 1 where the name $R2 says one thing below the folder that it is meant in, else 0.
Function ${un}LookAtName
  StrCpy $R4 1
  StrCpy $R5 $R2 1
  ${If} $R2 == ""
  ${OrIf} $R5 == "\"
    StrCpy $R4 0
  ${EndIf}
  !insertmacro REFUSE "${search}" ".."
  !insertmacro REFUSE "${search}" ":"
  !insertmacro REFUSE "${search}" "/"
  !insertmacro REFUSE "${search}" "*"
  !insertmacro REFUSE "${search}" "?"
FunctionEnd

; Takes away from the folder $R0 what its installed.txt lists, and folders that are then empty.
Function ${un}RemoveFiles
  ClearErrors
  FileOpen $R1 "$R0\installed.txt" r
  ${IfNot} ${Errors}
    ${Do}
      FileRead $R1 $R2
      ${If} ${Errors}
        ${ExitDo}
      ${EndIf}
      StrCpy $R2 $R2 -2 ; without the line's end
      StrCpy $R3 $R2 1 -1
      Call ${un}LookAtName
      ${If} $R4 = 0
        Nop
      ${ElseIf} $R3 == "\"
        RMDir "$R0\$R2"
      ${Else}
        Delete "$R0\$R2"
      ${EndIf}
      ClearErrors
    ${Loop}
    FileClose $R1
    Delete "$R0\installed.txt"
  ${EndIf}
  ClearErrors
FunctionEnd

; The IDE reads its list of add-ins when it starts and may hold the DLL.
Function ${un}AskToCloseTheIde
  again:
  FindWindow $R0 "wndclass_desked_gsk"
  ${If} $R0 <> 0
    MessageBox MB_ABORTRETRYIGNORE|MB_ICONEXCLAMATION "Visual Basic, or a program with the same editor, is running. \
      Close Visual Basic, then choose Retry." /SD IDIGNORE IDRETRY again IDIGNORE go_on
    Abort
  ${EndIf}
  go_on:
FunctionEnd

!macroend

!macro REFUSE search part
  ${${search}StrStr} $R5 $R2 "${part}"
  ${If} $R5 != ""
    StrCpy $R4 0
  ${EndIf}
!macroend

!insertmacro SHARED "" ""
!insertmacro SHARED "un." "Un"

Function .onInit
  SetShellVarContext all
  Call AskToCloseTheIde
FunctionEnd

Function un.onInit
  SetShellVarContext all
  Call un.AskToCloseTheIde
FunctionEnd

!macro REMOVE_EMPTY_KEY key
  DeleteRegKey /ifnosubkeys /ifnovalues HKCU "${key}"
!macroend

; In the file or folder $R0 users read and run, and nobody but administrators changes anything: what is registered for
; the whole computer must not be anybody's to exchange. Windows XP has no tool that says this in every language.
Function Protect
  System::Call 'advapi32::ConvertStringSecurityDescriptorToSecurityDescriptorW(w \
    "D:PAI(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1200a9;;;BU)", i 1, *p .R1, p 0) i .R2'
  ${If} $R2 <> 0
    System::Call 'advapi32::GetSecurityDescriptorDacl(p R1, *i .R3, *p .R4, *i .R5) i .R2'
    System::Call 'advapi32::SetNamedSecurityInfoW(w R0, i 1, i 0x80000004, p 0, p 0, p R4, p 0) i .R2'
    ${If} $R2 <> 0
      DetailPrint "The permissions of $R0 could not be set: error $R2"
    ${EndIf}
    System::Call 'kernel32::LocalFree(p R1)'
  ${EndIf}
FunctionEnd

; Unpacks everything into $stage; until it is complete nothing else has changed.
Function Unpack
  RMDir /r $stage ; of a set-up that was broken off
  ClearErrors
  SetOutPath $stage
  File /r /x install.cmd /x uninstall.cmd "${FILES}/*"
  ${If} ${Errors}
    SetOutPath $TEMP
    RMDir /r $stage
    RMDir $INSTDIR
    MessageBox MB_OK|MB_ICONSTOP "The files could not be written into $INSTDIR. Nothing was changed." /SD IDOK
    Abort "The files could not be written into $INSTDIR. Nothing was changed."
  ${EndIf}
  SetOutPath $TEMP ; a current folder could not be removed
FunctionEnd

; Moves what stands in $stage to its place and lists it. A file that is there and none of the programs is somebody's
; own: it stays, and no removal will take it.
Function Place
  FileOpen $R1 "$stage\installed.txt" r
  ${Do}
    ClearErrors
    FileRead $R1 $R2
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    StrCpy $R2 $R2 -2
    StrCpy $R3 $R2 1 -1
    ${If} $R3 == "\"
      CreateDirectory "$INSTDIR\$R2"
    ${EndIf}
  ${Loop}
  FileSeek $R1 0
  FileOpen $R6 "$INSTDIR\installed.txt" w
  ${Do}
    ClearErrors
    FileRead $R1 $R2
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    StrCpy $R2 $R2 -2
    StrCpy $R3 $R2 1 -1
    ${If} $R3 == "\"
      FileWrite $R6 "$R2$\r$\n"
    ${Else}
      StrCpy $R3 $R2 4 -4
      ${If} $R3 == ".dll"
      ${OrIf} $R3 == ".exe"
      ${OrIf} $R3 == ".chm"
        Delete "$INSTDIR\$R2"
      ${EndIf}
      ${IfNot} ${FileExists} "$INSTDIR\$R2"
        Rename "$stage\$R2" "$INSTDIR\$R2"
        FileWrite $R6 "$R2$\r$\n"
        ${If} $shared = 1
          StrCpy $R0 "$INSTDIR\$R2"
          Push $R1
          Push $R2
          Call Protect
          Pop $R2
          Pop $R1
        ${EndIf}
      ${EndIf}
    ${EndIf}
  ${Loop}
  FileClose $R6
  FileClose $R1
  RMDir /r $stage
FunctionEnd

Section "Corvelle"
  ReadRegStr $older HKLM "${UNINSTALL}" "InstallLocation"
  StrCpy $R0 $INSTDIR
  Call RequireUnused
  ${If} $older != ""
    StrCpy $R0 $older
    Call RequireUnused
  ${EndIf}
  StrCpy $shared 0
  ${If} $older != $INSTDIR
    FindFirst $R1 $R2 "$INSTDIR\*.*"
    ${DoWhile} $R2 != ""
      ${If} $R2 != "."
      ${AndIf} $R2 != ".."
        StrCpy $shared 1
      ${EndIf}
      FindNext $R1 $R2
    ${Loop}
    FindClose $R1
  ${EndIf}
  StrCpy $stage "$INSTDIR\Corvelle.new"
  Call Unpack

  ${If} $older != ""
    StrCpy $R0 $older
    UnRegDLL "$older\Corvelle.dll"
    Call RemoveFiles
    Delete "$older\uninstall.exe"
    RMDir $older
  ${EndIf}

  Call Place
  SetOutPath $INSTDIR
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKLM "${UNINSTALL}" "DisplayName" "Corvelle ${VERSION}"
  WriteRegStr HKLM "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL}" "DisplayIcon" "$INSTDIR\workbench.exe"
  WriteRegStr HKLM "${UNINSTALL}" "Publisher" "Corvelle"
  WriteRegStr HKLM "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL}" "NoRepair" 1

  ; The folder of programs has these permissions from Windows; a folder chosen elsewhere gets them, unless it was there
  ; with things of others: then each file of ours has got them.
  StrLen $R3 $PROGRAMFILES
  StrCpy $R3 $INSTDIR $R3
  ${If} $shared = 0
  ${AndIf} $R3 != $PROGRAMFILES
    StrCpy $R0 $INSTDIR
    Call Protect
  ${EndIf}

  ; The DLL also enters its add-ins in the IDE's lists.
  ExecWait '"$SYSDIR\regsvr32.exe" /s /i "$INSTDIR\Corvelle.dll"' $0
  ${If} $0 <> 0
    MessageBox MB_OK|MB_ICONSTOP "Corvelle.dll could not be registered. Start the set-up as an administrator." /SD IDOK
    Abort "Corvelle.dll could not be registered."
  ${EndIf}

  CreateDirectory "$SMPROGRAMS\Corvelle"
  CreateShortcut "$SMPROGRAMS\Corvelle\Corvelle manual.lnk" "$INSTDIR\FormatterHelp.chm"
  CreateShortcut "$SMPROGRAMS\Corvelle\Corvelle Workbench.lnk" "$INSTDIR\workbench.exe" \
    "/addin:Corvelle.CodeFormatter /addin:Corvelle.ContextHelpIndexer"
  CreateShortcut "$SMPROGRAMS\Corvelle\Examples.lnk" "$INSTDIR\examples"
  CreateShortcut "$SMPROGRAMS\Corvelle\Remove Corvelle.lnk" "$INSTDIR\uninstall.exe"
SectionEnd

Section "Uninstall"
  StrCpy $R0 $INSTDIR
  Call un.RequireUnused
  ExecWait '"$SYSDIR\regsvr32.exe" /s /u /i "$INSTDIR\Corvelle.dll"' $0
  DeleteRegValue HKCU "${SETTINGS}\Corvelle\Settings" "AutoShow" ; the add-ins' own mark
  !insertmacro REMOVE_EMPTY_KEY "${SETTINGS}\Corvelle\Settings"
  !insertmacro REMOVE_EMPTY_KEY "${SETTINGS}\Corvelle"
  !insertmacro REMOVE_EMPTY_KEY "${SETTINGS}"

  Delete "$SMPROGRAMS\Corvelle\Corvelle manual.lnk"
  Delete "$SMPROGRAMS\Corvelle\Corvelle Workbench.lnk"
  Delete "$SMPROGRAMS\Corvelle\Examples.lnk"
  Delete "$SMPROGRAMS\Corvelle\Remove Corvelle.lnk"
  RMDir "$SMPROGRAMS\Corvelle"

  StrCpy $R0 $INSTDIR
  Call un.RemoveFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir $INSTDIR
  DeleteRegKey HKLM "${UNINSTALL}"
SectionEnd
