; The installer: per user, without an administrator's rights, into a folder that the program can write, since its database
; lies beside it. Given with -D: VERSION, CARPETA (what to install), ICONO, BORRADOS (the commands that remove the program's
; own files, and nothing else) and SALIDA.
Target amd64-unicode
SetCompressor /SOLID lzma
Name "Altoverde"
OutFile "${SALIDA}"
RequestExecutionLevel user
!define REGISTRO "Software\Microsoft\Windows\CurrentVersion\Uninstall\Altoverde"
InstallDir "$LOCALAPPDATA\Altoverde"
InstallDirRegKey HKCU "${REGISTRO}" "InstallLocation"
ManifestDPIAware true

!include MUI2.nsh
!define MUI_ICON "${ICONO}"
!define MUI_UNICON "${ICONO}"
!define MUI_ABORTWARNING
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Se quitará el programa. La base de datos, sus copias y los archivos que usted haya \
guardado en la carpeta quedan donde están."
!define MUI_FINISHPAGE_RUN "$INSTDIR\Altoverde.exe"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Spanish"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_SPANISH} "ProductName" "Altoverde"
VIAddVersionKey /LANG=${LANG_SPANISH} "FileDescription" "Instalador de Altoverde"
VIAddVersionKey /LANG=${LANG_SPANISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_SPANISH} "LegalCopyright" "Licencia MIT"

; A program that runs holds its file: nothing is touched then.
!macro ExigirCerrado
  ${If} ${FileExists} "$INSTDIR\Altoverde.exe"
    ClearErrors
    FileOpen $0 "$INSTDIR\Altoverde.exe" a
    ${If} ${Errors}
      MessageBox MB_OK|MB_ICONEXCLAMATION "Altoverde está abierto. Ciérrelo y vuelva a intentar." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

Section
  SetOutPath "$INSTDIR"
  ClearErrors
  FileOpen $0 "$INSTDIR\prueba.tmp" w
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "No se puede escribir en la carpeta $INSTDIR. Elija otra." /SD IDOK
    SetErrorLevel 2
    Quit
  ${EndIf}
  FileClose $0
  Delete "$INSTDIR\prueba.tmp"
  !insertmacro ExigirCerrado
  ; What the version before put there goes first; its uninstaller leaves the data.
  ${If} ${FileExists} "$INSTDIR\desinstalar.exe"
    ExecWait '"$INSTDIR\desinstalar.exe" /S _?=$INSTDIR'
  ${EndIf}
  File /r /x DBBrivo.mdb "${CARPETA}/*.*"
  SetOverwrite off
  File "${CARPETA}/DBBrivo.mdb"
  SetOverwrite on
  WriteUninstaller "$INSTDIR\desinstalar.exe"
  CreateShortcut "$SMPROGRAMS\Altoverde.lnk" "$INSTDIR\Altoverde.exe"
  WriteRegStr HKCU "${REGISTRO}" "DisplayName" "Altoverde"
  WriteRegStr HKCU "${REGISTRO}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${REGISTRO}" "DisplayIcon" "$INSTDIR\Altoverde.exe"
  WriteRegStr HKCU "${REGISTRO}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${REGISTRO}" "UninstallString" '"$INSTDIR\desinstalar.exe"'
  WriteRegStr HKCU "${REGISTRO}" "QuietUninstallString" '"$INSTDIR\desinstalar.exe" /S'
  WriteRegDWORD HKCU "${REGISTRO}" "NoModify" 1
  WriteRegDWORD HKCU "${REGISTRO}" "NoRepair" 1
SectionEnd

Section Uninstall
  !insertmacro ExigirCerrado
  !include "${BORRADOS}"
  Delete "$INSTDIR\DBBrivo.ldb"
  Delete "$INSTDIR\desinstalar.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Altoverde.lnk"
  DeleteRegKey HKCU "${REGISTRO}"
SectionEnd
