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

!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "WordFunc.nsh"
!include "x64.nsh"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vantle"
!define HOSTS_KEY "Software\Adobe\After Effects"

; Refuses to go on while the host or the program holds a file: half an upgrade would be worse than none.
!macro StopInUse FILE
  MessageBox MB_ICONSTOP|MB_OK "${FILE} is in use. Close what uses it and try again." /SD IDOK
  SetErrorLevel 2
  Abort
!macroend

!macro DeleteOrStop FOLDER FILE
  Delete "${FOLDER}\${FILE}"
  ${If} ${FileExists} "${FOLDER}\${FILE}"
    !insertmacro StopInUse "${FILE}"
  ${EndIf}
!macroend

; Only what the installer brought: the folder may hold presets of the user's own.
!macro RemoveFrom FOLDER
  !insertmacro DeleteOrStop "${FOLDER}" "vantle.exe"
  !insertmacro DeleteOrStop "${FOLDER}" "Vantle.aex"
  Delete "${FOLDER}\README.txt"
  Delete "${FOLDER}\INSTALL.txt"
  Delete "${FOLDER}\LICENSES\*.txt"
  RMDir "${FOLDER}\LICENSES"
  Delete "${FOLDER}\Uninstall-Vantle.exe"
  RMDir "${FOLDER}"
!macroend

!macro ReplaceOrStop FILE
  ClearErrors
  SetOverwrite try
  File "${FILES}\${FILE}"
  ${If} ${Errors}
    !insertmacro StopInUse "${FILE}"
  ${EndIf}
  SetOverwrite on
!macroend

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

; A folder of our own, always: in a shared one our texts would lie among, and over, those of others.
Function TakeOwnFolder
  ${GetFileName} "$INSTDIR" $0
  ${If} $0 != "Vantle"
    StrCpy $INSTDIR "$INSTDIR\Vantle"
  ${EndIf}
FunctionEnd

; The host would find the effect twice.
Function LeaveFormerFolder
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} $0 != $INSTDIR
    !insertmacro RemoveFrom "$0"
  ${EndIf}
FunctionEnd

Section
  SetRegView 64
  Call TakeOwnFolder
  Call LeaveFormerFolder
  SetOutPath "$INSTDIR"
  !insertmacro ReplaceOrStop "vantle.exe"
  !insertmacro ReplaceOrStop "Vantle.aex"
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

Section "Uninstall"
  SetRegView 64
  !insertmacro RemoveFrom "$INSTDIR"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
