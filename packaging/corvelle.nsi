; The set-up program. pack calls makensis with VERSION, FILES (the folder of what is installed), ICON and OUT.

Unicode true
!include MUI2.nsh
!include LogicLib.nsh

!define SETTINGS "Software\VB and VBA Program Settings"
!define ADDINS "Software\Microsoft\Visual Basic\6.0\Addins"
!define ADDIN_LIST "$WINDIR\vbaddin.ini"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvelle"

Name "Corvelle ${VERSION}"
OutFile "${OUT}"
InstallDir "$PROGRAMFILES\Corvelle"
InstallDirRegKey HKLM "${UNINSTALL}" "InstallLocation"
RequestExecutionLevel admin
SetCompressor /SOLID lzma
ManifestDPIAware true
VIProductVersion "1.0.0.7"
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

; What set-up and removal share; the names of a removal's functions begin with "un."
!macro SHARED un

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
      ${If} $R3 == "\"
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
!insertmacro SHARED ""
!insertmacro SHARED "un."

Function .onInit
  SetShellVarContext all
  Call AskToCloseTheIde
FunctionEnd

Function un.onInit
  SetShellVarContext all
  Call un.AskToCloseTheIde
FunctionEnd

; Enters a class in the IDE's two lists of add-ins. Whether it is loaded is the user's own choice, if there is one.
!macro ENTER_ADDIN progid name
  WriteRegStr HKCU "${ADDINS}\${progid}" "FriendlyName" "${name}"
  WriteRegStr HKCU "${ADDINS}\${progid}" "Description" "${name}"
  WriteRegDWORD HKCU "${ADDINS}\${progid}" "CommandLineSafe" 0
  ClearErrors
  ReadRegDWORD $0 HKCU "${ADDINS}\${progid}" "LoadBehavior"
  ${If} ${Errors}
    WriteRegDWORD HKCU "${ADDINS}\${progid}" "LoadBehavior" 0
  ${EndIf}
  ReadINIStr $0 "${ADDIN_LIST}" "Add-Ins32" "${progid}"
  ${If} $0 == ""
    WriteINIStr "${ADDIN_LIST}" "Add-Ins32" "${progid}" "0"
  ${EndIf}
!macroend

!macro REMOVE_ADDIN progid
  DeleteRegKey HKCU "${ADDINS}\${progid}"
  DeleteINIStr "${ADDIN_LIST}" "Add-Ins32" "${progid}"
!macroend

; A setting gets the path of one of our files, unless the user has chosen another one.
!macro ENTER_SETTING section key file
  ReadRegStr $0 HKCU "${SETTINGS}\Trellis\${section}" "${key}"
  ${If} $0 == ""
  ${OrIf} $0 == "$older\${file}"
    WriteRegStr HKCU "${SETTINGS}\Trellis\${section}" "${key}" "$INSTDIR\${file}"
  ${EndIf}
!macroend

!macro REMOVE_SETTING section key file
  ReadRegStr $0 HKCU "${SETTINGS}\Trellis\${section}" "${key}"
  ${If} $0 == "$INSTDIR\${file}"
    DeleteRegValue HKCU "${SETTINGS}\Trellis\${section}" "${key}"
  ${EndIf}
  !insertmacro REMOVE_EMPTY_KEY "${SETTINGS}\Trellis\${section}"
!macroend

!macro REMOVE_EMPTY_KEY key
  DeleteRegKey /ifnosubkeys /ifnovalues HKCU "${key}"
!macroend

Section "Corvelle"
  ReadRegStr $older HKLM "${UNINSTALL}" "InstallLocation"
  StrCpy $R0 $INSTDIR
  Call RequireUnused
  ${If} $older != ""
    StrCpy $R0 $older
    Call RequireUnused
    UnRegDLL "$older\Corvelle.dll"
    Call RemoveFiles
    Delete "$older\uninstall.exe"
    RMDir $older
  ${EndIf}

  SetOutPath $INSTDIR
  File /r /x install.cmd /x uninstall.cmd "${FILES}/*"
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

  ClearErrors
  RegDLL "$INSTDIR\Corvelle.dll"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "Corvelle.dll could not be registered. Start the set-up as an administrator." /SD IDOK
    Abort "Corvelle.dll could not be registered."
  ${EndIf}

  !insertmacro ENTER_ADDIN "Corvelle.CodeFormatter" "Trellis"
  !insertmacro ENTER_ADDIN "Corvelle.ContextHelpIndexer" "VB6 Help Context ID Indexer"
  FlushINI "${ADDIN_LIST}"
  !insertmacro ENTER_SETTING "Configurations" "Help File" "FormatterHelp.chm"
  !insertmacro ENTER_SETTING "Indexer" "ExcludeList_Path" "exclude.lst"

  CreateDirectory "$SMPROGRAMS\Corvelle"
  CreateShortcut "$SMPROGRAMS\Corvelle\Corvelle manual.lnk" "$INSTDIR\FormatterHelp.chm"
  CreateShortcut "$SMPROGRAMS\Corvelle\Corvelle Workbench.lnk" "$INSTDIR\workbench.exe" \
    "/addin:Corvelle.CodeFormatter /addin:Corvelle.ContextHelpIndexer"
  CreateShortcut "$SMPROGRAMS\Corvelle\Examples.lnk" "$INSTDIR\examples"
  CreateShortcut "$SMPROGRAMS\Corvelle\Remove Corvelle.lnk" "$INSTDIR\uninstall.exe"
SectionEnd

; Takes the list of add-ins away if no line of it is more than the section's name.
Function un.RemoveEmptyList
  FlushINI "${ADDIN_LIST}"
  ClearErrors
  FileOpen $R1 "${ADDIN_LIST}" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    FileRead $R1 $R2
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    ${If} $R2 != "[Add-Ins32]$\r$\n"
    ${AndIf} $R2 != "[Add-Ins32]"
    ${AndIf} $R2 != "$\r$\n"
      FileClose $R1
      Return
    ${EndIf}
  ${Loop}
  FileClose $R1
  Delete "${ADDIN_LIST}"
FunctionEnd

Section "Uninstall"
  StrCpy $R0 $INSTDIR
  Call un.RequireUnused
  UnRegDLL "$INSTDIR\Corvelle.dll"

  !insertmacro REMOVE_ADDIN "Corvelle.CodeFormatter"
  !insertmacro REMOVE_ADDIN "Corvelle.ContextHelpIndexer"
  Call un.RemoveEmptyList
  !insertmacro REMOVE_EMPTY_KEY "${ADDINS}"
  !insertmacro REMOVE_EMPTY_KEY "Software\Microsoft\Visual Basic\6.0"
  !insertmacro REMOVE_EMPTY_KEY "Software\Microsoft\Visual Basic"

  !insertmacro REMOVE_SETTING "Configurations" "Help File" "FormatterHelp.chm"
  !insertmacro REMOVE_SETTING "Indexer" "ExcludeList_Path" "exclude.lst"
  !insertmacro REMOVE_EMPTY_KEY "${SETTINGS}\Trellis"
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
