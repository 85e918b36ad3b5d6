; The installer: the console for every user of the machine. Built by CMake, which defines VERSION, VERSION_NUMBERS,
; PROGRAMS (folder of the built programs), SOURCES (this folder), ICON and OUTPUT.
;
; Switches: /S silent, /LOGON starts the console at logon, /D=FOLDER (last, without quotes).
; Exit codes: 0 done, 2 nothing done because a console is still running.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include WinMessages.nsh

!define PRODUCT "Voltaro Console"
!define KEY "SOFTWARE\Kestrelfen\VOLTARO"
!define MAKER_KEY "SOFTWARE\Kestrelfen"
!define ENTRY "SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\VoltaroConsoleSE"
!define RUN "SOFTWARE\Microsoft\Windows\CurrentVersion\Run"
!define MENU "$SMPROGRAMS\Voltaro"
!define CONSOLE_CLASS "VLTConsoleMainWClass"
!define SYNCHRONIZE 0x100000
!define STILL_RUNNING 2

Name "${PRODUCT}"
OutFile "${OUTPUT}"
BrandingText "${PRODUCT} ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION_NUMBERS}"
VIAddVersionKey ProductName "${PRODUCT}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "${PRODUCT} - Standard Edition, installer"
VIAddVersionKey CompanyName "Kestrelfen"
VIAddVersionKey LegalCopyright "All rights reserved."

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SOURCES}/side.bmp"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_NODESC
; The explorer starts the console without the installer's rights.
!define MUI_FINISHPAGE_RUN "$WINDIR\explorer.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS '$\"$INSTDIR\bin\VoltaroConsoleSE.exe$\"'
!define MUI_FINISHPAGE_RUN_TEXT "Start ${PRODUCT}"
!insertmacro MUI_PAGE_COMPONENTS
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenUpgrading
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var upgrade

Function SkipWhenUpgrading
  ${If} $upgrade = 1
    Abort
  ${EndIf}
FunctionEnd

; Asks a running console to close, which asks its user and closes by itself after five seconds, and waits until it has
; ended. Another user's is seen by its file alone. A user who wants to keep the console is asked again; a silent run ends.
!macro CLOSE_CONSOLE PREFIX
Function ${PREFIX}CloseConsole
  ask:
    StrCpy $3 0
    FindWindow $0 "${CONSOLE_CLASS}"
    ${If} $0 <> 0
      System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r1)'
      System::Call 'kernel32::OpenProcess(i ${SYNCHRONIZE}, i 0, i r1) p .r2'
      System::Call 'user32::PostMessageW(p r0, i ${WM_CLOSE}, p 0, p 0)'
      System::Call 'kernel32::WaitForSingleObject(p r2, i 20000) i .r3'
      System::Call 'kernel32::CloseHandle(p r2)'
    ${EndIf}
    ${If} $3 = 0
      ${IfNot} ${FileExists} "$INSTDIR\bin\VoltaroConsoleSE.exe"
        Return
      ${EndIf}
      ClearErrors
      FileOpen $2 "$INSTDIR\bin\VoltaroConsoleSE.exe" a
      ${IfNot} ${Errors}
        FileClose $2
        Return
      ${EndIf}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${PRODUCT} is running. Please close it and try again." /SD IDCANCEL IDRETRY ask
    SetErrorLevel ${STILL_RUNNING}
    Quit
FunctionEnd
!macroend
!insertmacro CLOSE_CONSOLE ""
!insertmacro CLOSE_CONSOLE "un."

Section "${PRODUCT}" Program
  SectionIn RO
  Call CloseConsole

  SetOutPath "$INSTDIR\bin"
  File "${PROGRAMS}/VoltaroConsoleSE.exe"
  File "${PROGRAMS}/VoltaroTrayStart.exe"
  SetOutPath "$INSTDIR\docs\help"
  File "${PROGRAMS}/Voltaro_Help_SE.chm"
  WriteUninstaller "$INSTDIR\Uninstall Voltaro Console.exe"

  ; What the user or the agent may have written stays; what is made here is remembered for the uninstaller.
  ${IfNot} ${FileExists} "$INSTDIR\bin\Voltaro_Poweroff.bat"
    SetOutPath "$INSTDIR\bin"
    File "${SOURCES}/installed/bin/Voltaro_Poweroff.bat"
    WriteRegDWORD HKLM "${ENTRY}" "MadeScript" 1
  ${EndIf}
  ${IfNot} ${FileExists} "$INSTDIR\conf\hconfig.xml"
    SetOutPath "$INSTDIR\conf"
    File "${SOURCES}/installed/conf/hconfig.xml"
    WriteRegDWORD HKLM "${ENTRY}" "MadeConfiguration" 1
  ${EndIf}
  ReadRegStr $0 HKLM "${KEY}" "InstallPath"
  ${If} $0 != "$INSTDIR\"
    WriteRegStr HKLM "${ENTRY}" "PathBefore" $0
    WriteRegStr HKLM "${KEY}" "InstallPath" "$INSTDIR\"
  ${EndIf}

  SetOutPath "$INSTDIR\bin"
  CreateDirectory "${MENU}"
  CreateShortcut "${MENU}\Voltaro Console.lnk" "$INSTDIR\bin\VoltaroConsoleSE.exe"
  CreateShortcut "${MENU}\Voltaro Help.lnk" "$INSTDIR\docs\help\Voltaro_Help_SE.chm"

  WriteRegStr HKLM "${ENTRY}" "DisplayName" "${PRODUCT} - Standard Edition"
  WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${ENTRY}" "Publisher" "Kestrelfen"
  WriteRegStr HKLM "${ENTRY}" "DisplayIcon" "$INSTDIR\bin\VoltaroConsoleSE.exe"
  WriteRegStr HKLM "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$INSTDIR\Uninstall Voltaro Console.exe"'
  WriteRegStr HKLM "${ENTRY}" "QuietUninstallString" '"$INSTDIR\Uninstall Voltaro Console.exe" /S'
  WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
  SectionGetSize ${Program} $0
  WriteRegDWORD HKLM "${ENTRY}" "EstimatedSize" $0
SectionEnd

Section /o "Start at logon, into the notification area" Logon
  WriteRegStr HKLM "${RUN}" "VoltaroConsole" '"$INSTDIR\bin\VoltaroTrayStart.exe"'
SectionEnd

; An upgrade from which the choice was taken away.
Section "-Without logon"
  ${IfNot} ${SectionIsSelected} ${Logon}
    DeleteRegValue HKLM "${RUN}" "VoltaroConsole"
  ${EndIf}
SectionEnd

Function .onInit
  SetRegView 64
  SetShellVarContext all
  ; A console that is there is upgraded in its place, with the choice made then; a new one goes to the agent.
  ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
  ${If} $0 != ""
    StrCpy $INSTDIR $0
    StrCpy $upgrade 1
  ${ElseIf} $INSTDIR == ""
    ReadRegStr $INSTDIR HKLM "${KEY}" "InstallPath"
    ${GetParent} "$INSTDIR-" $INSTDIR ; without the closing backslash
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR "$PROGRAMFILES64\Kestrelfen\Voltaro"
  ${EndIf}
  ReadRegStr $0 HKLM "${RUN}" "VoltaroConsole"
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 "/LOGON" $2
  ${IfNot} ${Errors}
  ${OrIf} $0 != ""
    !insertmacro SelectSection ${Logon}
  ${EndIf}
FunctionEnd

Section Uninstall
  Call un.CloseConsole

  ReadRegDWORD $0 HKLM "${ENTRY}" "MadeScript"
  ${If} $0 = 1
    Delete "$INSTDIR\bin\Voltaro_Poweroff.bat"
  ${EndIf}
  ReadRegDWORD $0 HKLM "${ENTRY}" "MadeConfiguration"
  ${If} $0 = 1
    Delete "$INSTDIR\conf\hconfig.xml"
  ${EndIf}
  ClearErrors
  ReadRegStr $0 HKLM "${ENTRY}" "PathBefore"
  ${IfNot} ${Errors}
    ${If} $0 == ""
      DeleteRegValue HKLM "${KEY}" "InstallPath"
    ${Else}
      WriteRegStr HKLM "${KEY}" "InstallPath" $0
    ${EndIf}
    DeleteRegKey /ifempty HKLM "${KEY}"
    DeleteRegKey /ifempty HKLM "${MAKER_KEY}"
  ${EndIf}
  DeleteRegValue HKLM "${RUN}" "VoltaroConsole"
  DeleteRegKey HKLM "${ENTRY}"

  Delete "${MENU}\Voltaro Console.lnk"
  Delete "${MENU}\Voltaro Help.lnk"
  RMDir "${MENU}"
  Delete "$INSTDIR\bin\VoltaroConsoleSE.exe"
  Delete "$INSTDIR\bin\VoltaroTrayStart.exe"
  Delete "$INSTDIR\docs\help\Voltaro_Help_SE.chm"
  Delete "$INSTDIR\Uninstall Voltaro Console.exe"
  ; Folders that hold something else stay.
  RMDir "$INSTDIR\bin"
  RMDir "$INSTDIR\docs\help"
  RMDir "$INSTDIR\docs"
  RMDir "$INSTDIR\conf"
  RMDir "$INSTDIR"
  ${GetParent} $INSTDIR $0
  ${GetFileName} $0 $1
  ${If} $1 == "Kestrelfen"
    RMDir $0
  ${EndIf}
SectionEnd

Function un.onInit
  SetRegView 64
  SetShellVarContext all
FunctionEnd
