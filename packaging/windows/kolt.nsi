; The installer for one user, without administrator rights. packaging/windows/build calls it with
; VERSION, SOURCE (the folder to install), LIST (what the uninstaller deletes), SIZE (in KiB), OUTPUT.
Target amd64-unicode ; like the programs: an installer of 32 bits would start where they cannot
SetCompressor /SOLID lzma
!include MUI2.nsh
!include LogicLib.nsh

Name "KOLT"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\KOLT"
InstallDirRegKey HKCU "Software\KOLT" "InstallFolder"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "KOLT"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "KOLT installer"
VIAddVersionKey "LegalCopyright" "Copyright (c) 2026 the KOLT developers, MIT licence"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\KOLT"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\bin\kolt.exe"

!insertmacro MUI_PAGE_LICENSE "${SOURCE}\doc\LICENSE"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"

LangString IsRunning ${LANG_ENGLISH} "KOLT is running. Please close it and try again."
LangString IsRunning ${LANG_GERMAN} "KOLT läuft. Bitte schließen Sie es und versuchen Sie es noch einmal."

; The file of a running program cannot be written.
!macro STOP_WHILE_RUNNING
    ${If} ${FileExists} "$INSTDIR\bin\kolt.exe"
        ClearErrors
        FileOpen $0 "$INSTDIR\bin\kolt.exe" a
        ${If} ${Errors}
            MessageBox MB_OK|MB_ICONEXCLAMATION "$(IsRunning)" /SD IDOK
            SetErrorLevel 3
            Quit
        ${EndIf}
        FileClose $0
    ${EndIf}
!macroend

Section
    !insertmacro STOP_WHILE_RUNNING
    ; An older version takes its files with it, so that none stay that this one does not have.
    ${If} ${FileExists} "$INSTDIR\uninstall.exe"
        ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
    ${EndIf}
    SetOutPath "$INSTDIR"
    File /r "${SOURCE}\*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\KOLT.lnk" "$INSTDIR\bin\kolt.exe"
    WriteRegStr HKCU "Software\KOLT" "InstallFolder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "KOLT"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "the KOLT developers"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\bin\kolt.exe"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

; Deletes what was installed, file by file: the user may have chosen a folder with other files.
Section "Uninstall"
    !insertmacro STOP_WHILE_RUNNING
    !include "${LIST}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\KOLT.lnk"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey HKCU "Software\KOLT"
SectionEnd
