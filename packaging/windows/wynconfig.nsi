; Installs the COM server of both word sizes, for all users or for one, and takes all of it away again.
; scripts/windows/deliver makes it, and defines
;   VERSION  of the component
;   STAGE    the folder with what is installed
;   REMOVAL  a file with the lines that take each file of it away again
;   OUTPUT   the installer
; Silent: wynconfig-VERSION-setup.exe /S [/AllUsers | /CurrentUser] [/D=FOLDER]. Exit codes: 0 done, 2 not
; done, and nothing of it is left.
Unicode true
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS all
Name "WYNConfig ${VERSION}"
BrandingText "WYNConfig ${VERSION}"
OutFile "${OUTPUT}"
ShowInstDetails show
ShowUninstDetails show

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 ProductName "WYNConfig"
VIAddVersionKey /LANG=0 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileDescription "Installs WYNConfig"
VIAddVersionKey /LANG=0 LegalCopyright "The terms are in LICENSE.txt"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR WYNConfig
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_NOUNINSTALL
!define MULTIUSER_MUI
!include MultiUser.nsh
!include MUI2.nsh
!include LogicLib.nsh
!include x64.nsh
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; What the system shows among its programs, and by which a later installer finds this one.
!define ENTRIES "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define ENTRY "${ENTRIES}\WYNConfig"

Var User  ; what regsvr32 needs to do its work for one user; empty: for all

; Gives up, with what was done undone by then.
!macro FAIL WORDS
  MessageBox MB_OK|MB_ICONSTOP "${WORDS}" /SD IDOK
  SetErrorLevel 2
  Quit
!macroend

; Calls the library's own registration; $0: 0 if it went well.
;   SYSTEM  the system's folder of the word size
;   HOW     /u to take it back
!macro REGSVR32 SYSTEM HOW LIBRARY
  ClearErrors
  ExecWait '"${SYSTEM}\regsvr32.exe" /s ${HOW} $User "${LIBRARY}"' $0
  ${If} ${Errors}
    StrCpy $0 -1
  ${EndIf}
!macroend

; Takes everything away: files that are not this installer's stay.
!macro REMOVE
  ${If} ${IsNativeAMD64}
    !insertmacro REGSVR32 "$WINDIR\Sysnative" /u "$INSTDIR\x64\wynconfig.dll"
  ${EndIf}
  !insertmacro REGSVR32 "$SYSDIR" /u "$INSTDIR\x86\wynconfig.dll"
  SetOutPath "$TEMP"
  !include "${REMOVAL}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey SHCTX "${ENTRY}"
  ${If} $User != ""
    ; What a user's first program and class made.
    RMDir "$LOCALAPPDATA\Programs"
    DeleteRegKey /ifempty HKCU "${ENTRIES}"
    !insertmacro REMOVE_EMPTY "Software\Classes"
    !insertmacro REMOVE_EMPTY "Software\Classes\Wow6432Node"
    DeleteRegKey /ifempty HKCU "Software\Classes\Wow6432Node"
  ${EndIf}
!macroend
!macro REMOVE_EMPTY CLASSES
  DeleteRegKey /ifempty HKCU "${CLASSES}\CLSID"
  DeleteRegKey /ifempty HKCU "${CLASSES}\Interface"
  DeleteRegKey /ifempty HKCU "${CLASSES}\TypeLib"
!macroend

; Gives up while a program has a library open: it could be neither replaced nor deleted.
!macro REFUSE_WHEN_OPEN LIBRARY
  ${If} ${FileExists} "${LIBRARY}"
    ClearErrors
    FileOpen $0 "${LIBRARY}" a
    ${If} ${Errors}
      !insertmacro FAIL "A program is using ${LIBRARY}. Close it and try again."
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

!macro SET_CONTEXT
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  ${If} $User == ""
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
!macroend

Function .onInit
  ; Choosing for whom sets the folder, which the command line has set by now.
  Push $INSTDIR
  !insertmacro MULTIUSER_INIT
  Pop $0
  ${If} $0 != ""
    StrCpy $INSTDIR $0
  ${EndIf}
FunctionEnd

Section
  ${If} $MultiUser.InstallMode == CurrentUser
    StrCpy $User "/n /i:user"
  ${EndIf}
  !insertmacro SET_CONTEXT
  !insertmacro REFUSE_WHEN_OPEN "$INSTDIR\x64\wynconfig.dll"
  !insertmacro REFUSE_WHEN_OPEN "$INSTDIR\x86\wynconfig.dll"
  ; An earlier version may have files that this one has not, or lie elsewhere.
  ReadRegStr $1 SHCTX "${ENTRY}" InstallLocation
  ${If} $1 != ""
  ${AndIf} ${FileExists} "$1\uninstall.exe"
    ExecWait '"$1\uninstall.exe" /S _?=$1' $0
    ${If} $0 <> 0
      !insertmacro FAIL "The installed version could not be taken away. Close the programs that use it and try again."
    ${EndIf}
    Delete "$1\uninstall.exe"
    RMDir "$1"
  ${EndIf}

  ClearErrors
  SetOutPath "$INSTDIR"
  File /r "${STAGE}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    !insertmacro REMOVE
    !insertmacro FAIL "The files could not be written to $INSTDIR."
  ${EndIf}
  !insertmacro REGSVR32 "$SYSDIR" "" "$INSTDIR\x86\wynconfig.dll"
  ${If} $0 = 0
  ${AndIf} ${IsNativeAMD64}
    !insertmacro REGSVR32 "$WINDIR\Sysnative" "" "$INSTDIR\x64\wynconfig.dll"
  ${EndIf}
  ${If} $0 <> 0
    !insertmacro REMOVE
    !insertmacro FAIL "The component could not be registered ($0)."
  ${EndIf}

  WriteRegStr SHCTX "${ENTRY}" DisplayName WYNConfig
  WriteRegStr SHCTX "${ENTRY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${ENTRY}" Publisher "the WYNConfig authors"
  WriteRegStr SHCTX "${ENTRY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${ENTRY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${ENTRY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${ENTRY}" NoModify 1
  WriteRegDWORD SHCTX "${ENTRY}" NoRepair 1
  SectionGetSize 0 $0
  WriteRegDWORD SHCTX "${ENTRY}" EstimatedSize $0
SectionEnd

Function un.onInit
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  ; It was installed for the user whose registry has its entry.
  ReadRegStr $0 HKCU "${ENTRY}" InstallLocation
  ${If} $0 == $INSTDIR
    StrCpy $User "/n /i:user"
  ${Else}
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != Admin
      !insertmacro FAIL "It was installed for all users. Let an administrator take it away."
    ${EndIf}
  ${EndIf}
  !insertmacro SET_CONTEXT
FunctionEnd

Section Uninstall
  !insertmacro REFUSE_WHEN_OPEN "$INSTDIR\x64\wynconfig.dll"
  !insertmacro REFUSE_WHEN_OPEN "$INSTDIR\x86\wynconfig.dll"
  !insertmacro REMOVE
SectionEnd
