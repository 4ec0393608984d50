; What `make` of this folder calls with VERSION, FILES (the folder that is packed), LIST (what lies in it, as
; commands that delete it) and TARGET.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
!include MUI2.nsh
!include FileFunc.nsh

Name "Tessaline"
OutFile "${TARGET}"
InstallDir "$LOCALAPPDATA\Programs\Tessaline"
InstallDirRegKey HKCU "Software\Tessaline" "Folder"
AllowSkipFiles off
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Tessaline"
VIAddVersionKey "FileDescription" "Tessaline, installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "MIT licence"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\tessaline.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Tessaline"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessaline"

; The entries start the program in its own folder, which it leaves at once for the folder "Tessaline" of the
; person's documents. Who wants another one changes "Start in" of an entry.
Section
  SetOutPath "$INSTDIR"
  File /r "${FILES}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Tessaline.lnk" "$INSTDIR\tessaline.exe"
  CreateShortcut "$DESKTOP\Tessaline.lnk" "$INSTDIR\tessaline.exe"
  WriteRegStr HKCU "Software\Tessaline" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "Tessaline"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\tessaline.exe"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "The Tessaline developers"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" $0
SectionEnd

; Only what was installed goes: neither an archive, wherever it lies, nor its earlier versions.
Section "Uninstall"
  Delete "$SMPROGRAMS\Tessaline.lnk"
  Delete "$DESKTOP\Tessaline.lnk"
  !include /CHARSET=UTF8 "${LIST}"
  Delete "$INSTDIR\uninstall.exe"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${ENTRY}"
  DeleteRegKey HKCU "Software\Tessaline"
SectionEnd
