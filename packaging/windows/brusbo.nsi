; The setup program: for the user who runs it, without administrator's rights.
; makensis -DVERSION=1.2.3 -DTREE=FOLDER -DOUTPUT=FILE -DSIZE=KIB brusbo.nsi
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS Win10
RequestExecutionLevel user

!include LogicLib.nsh
!include MUI2.nsh

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Brusbo"

Name "Brusbo"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Brusbo"
InstallDirRegKey HKCU "${KEY}" "InstallLocation"
BrandingText "Brusbo ${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\brusbo.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
; The language of the user's system; the first one where it is neither.
!insertmacro MUI_LANGUAGE "Swedish"
!insertmacro MUI_LANGUAGE "English"

LangString Running ${LANG_SWEDISH} "Brusbo är öppet. Avsluta spelet och försök igen."
LangString Running ${LANG_ENGLISH} "Brusbo is open. Quit the game and try again."
LangString Comment ${LANG_SWEDISH} "För dina fyra pjäser runt brädet och i mål före de andra"
LangString Comment ${LANG_ENGLISH} "Bring your four pieces round the board and home before the others do"

VIProductVersion "${VERSION}.0"
!macro Describe language text
  VIAddVersionKey /LANG=${language} "ProductName" "Brusbo"
  VIAddVersionKey /LANG=${language} "FileDescription" "${text}"
  VIAddVersionKey /LANG=${language} "FileVersion" "${VERSION}"
  VIAddVersionKey /LANG=${language} "LegalCopyright" "© 2026 the Brusbo team"
!macroend
!insertmacro Describe ${LANG_SWEDISH} "Installerar Brusbo"
!insertmacro Describe ${LANG_ENGLISH} "Installs Brusbo"

; Windows lets nobody delete a program that runs.
!macro EndIfRunning
  ${If} ${FileExists} "$INSTDIR\brusbo.exe"
    ClearErrors
    Delete "$INSTDIR\brusbo.exe"
    ${If} ${Errors}
      MessageBox MB_ICONEXCLAMATION|MB_OK "$(Running)" /SD IDOK
      SetErrorLevel 1
      Abort
    ${EndIf}
  ${EndIf}
!macroend

Section
  !insertmacro EndIfRunning
  SetOutPath "$INSTDIR"
  File /r "${TREE}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ; It begins in the folder that SetOutPath named, where the game's files are.
  CreateShortCut "$SMPROGRAMS\Brusbo.lnk" "$INSTDIR\brusbo.exe" "" "" "" "" "" "$(Comment)"
  WriteRegStr HKCU "${KEY}" "DisplayName" "Brusbo"
  WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\brusbo.exe"
  WriteRegStr HKCU "${KEY}" "Publisher" "Brusbo"
  WriteRegStr HKCU "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${KEY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
SectionEnd

; Only what was installed: the folder may hold something of the user's.
Section Uninstall
  !insertmacro EndIfRunning
  Delete "$INSTDIR\brs.dat"
  Delete "$INSTDIR\s1.wav"
  Delete "$INSTDIR\s2.wav"
  Delete "$INSTDIR\s3.wav"
  Delete "$INSTDIR\licenses\Brusbo.txt"
  Delete "$INSTDIR\licenses\NOTICE.txt"
  Delete "$INSTDIR\licenses\LGPL-3.txt"
  Delete "$INSTDIR\licenses\GPL-3.txt"
  Delete "$INSTDIR\licenses\libqt6core6.txt"
  Delete "$INSTDIR\licenses\g++-mingw-w64-x86-64-posix.txt"
  Delete "$INSTDIR\licenses\mingw-w64-x86-64-dev.txt"
  RMDir "$INSTDIR\licenses"
  Delete "$INSTDIR\uninstall.exe"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  ; These may be another folder's, into which it was installed later.
  ReadRegStr $0 HKCU "${KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    Delete "$SMPROGRAMS\Brusbo.lnk"
    DeleteRegKey HKCU "${KEY}"
  ${EndIf}
SectionEnd
