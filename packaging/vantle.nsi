; The installer. Defines from outside: VERSION, FILES (folder with what is installed), OUTPUT.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
SetDateSave on
RequestExecutionLevel admin
Name "Vantle ${VERSION}"
OutFile "${OUTPUT}"
ShowInstDetails nevershow
ShowUninstDetails nevershow
InstallDir ""

!include "LogicLib.nsh"
!include "WordFunc.nsh"
!include "x64.nsh"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vantle"
!define HOSTS_KEY "Software\Adobe\After Effects"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Every version of the host writes where all of them look for plug-ins; the newest that says so is asked. Versions
; compare as numbers, in the registry they are sorted as texts.
Function FindCommonFolder
  StrCpy $1 0
  StrCpy $3 ""
  StrCpy $4 "0"
  ${Do}
    EnumRegKey $0 HKLM "${HOSTS_KEY}" $1
    ${If} $0 == ""
      ${ExitDo}
    ${EndIf}
    ReadRegStr $2 HKLM "${HOSTS_KEY}\$0" "CommonPluginInstallPath"
    ${VersionCompare} $0 $4 $5
    ${If} $2 != ""
    ${AndIf} $5 == 1
      StrCpy $3 $2
      StrCpy $4 $0
    ${EndIf}
    IntOp $1 $1 + 1
  ${Loop}
  ${If} $3 == ""
    StrCpy $3 "$PROGRAMFILES64\Adobe\Common\Plug-ins\7.0\MediaCore"
  ${EndIf}
FunctionEnd

Function .onInit
  SetRegView 64
  ${IfNot} ${RunningX64}
    MessageBox MB_ICONSTOP|MB_OK "Vantle needs a 64-bit Windows." /SD IDOK
    Abort
  ${EndIf}
  ${If} $INSTDIR == ""
    ; Where it is already installed, it is replaced in place.
    ReadRegStr $INSTDIR HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    Call FindCommonFolder
    StrCpy $INSTDIR "$3\Vantle"
  ${EndIf}
FunctionEnd

Section
  SetRegView 64
  SetOutPath "$INSTDIR"
  ClearErrors
  SetOverwrite try
  File "${FILES}\Vantle.aex"
  ${If} ${Errors}
    MessageBox MB_ICONSTOP|MB_OK "Vantle.aex is in use. Close the host and run the installer again." /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  SetOverwrite on
  File "${FILES}\vantle.exe"
  File "${FILES}\README.txt"
  File "${FILES}\INSTALL.txt"
  SetOutPath "$INSTDIR\LICENSES"
  File "${FILES}\LICENSES\*.txt"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall-Vantle.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Vantle"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall-Vantle.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall-Vantle.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; Only what the installer brought: the folder may hold presets of the user's own.
Section "Uninstall"
  SetRegView 64
  Delete "$INSTDIR\Vantle.aex"
  ${If} ${FileExists} "$INSTDIR\Vantle.aex"
    MessageBox MB_ICONSTOP|MB_OK "Vantle.aex is in use. Close the host and try again." /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  Delete "$INSTDIR\vantle.exe"
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\INSTALL.txt"
  Delete "$INSTDIR\LICENSES\*.txt"
  RMDir "$INSTDIR\LICENSES"
  Delete "$INSTDIR\Uninstall-Vantle.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
