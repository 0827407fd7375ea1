; The Windows setup of Rigwright, built by makensis from the portable folder (the
; windows-package target of the Windows build passes the defines below).
;
; It installs into Program Files for all users, adds Rigwright to the Start menu and to
; Apps (Add/Remove Programs), makes Rigwright open .R20 files (double click, with its icon)
; and offers it under "Open with" for QLC+ fixtures (.qxf), whose own program stays their
; default. /S installs and uninstalls without a question.
;
;   makensis -DVERSION=x.y.z -DSTAGE=folder -DUNINSTALL_LIST=file.nsh -DICON=rigwright.ico
;            -DLICENSE=LICENSE -DOUTFILE=setup.exe rigwright.nsi

!ifndef VERSION
!error "Define VERSION on the makensis command line"
!endif
!ifndef STAGE
!error "Define STAGE on the makensis command line"
!endif
!ifndef UNINSTALL_LIST
!error "Define UNINSTALL_LIST on the makensis command line"
!endif
!ifndef ICON
!error "Define ICON on the makensis command line"
!endif
!ifndef LICENSE
!error "Define LICENSE on the makensis command line"
!endif
!ifndef OUTFILE
!error "Define OUTFILE on the makensis command line"
!endif

Unicode true
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include MUI2.nsh
!include LogicLib.nsh
!include x64.nsh
!include FileFunc.nsh

!define PRODUCT "Rigwright"
!define EXE "rigwright.exe"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Rigwright"
!define CLASSES "Software\Classes"
; Tells Explorer that file types changed, so that icons and "Open with" show at once.
!define NOTIFY_ASSOCIATIONS "shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)"

Name "${PRODUCT}"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\${PRODUCT}"
BrandingText "${PRODUCT} ${VERSION}"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "${PRODUCT}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "FileDescription" "${PRODUCT} ${VERSION} setup"
VIAddVersionKey /LANG=1033 "CompanyName" "Rigwright developers"
VIAddVersionKey /LANG=1033 "LegalCopyright" "Free software under the GNU GPL, version 3 or later"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_NOAUTOCLOSE

!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Function .onInit
    ${IfNot} ${RunningX64}
        MessageBox MB_OK|MB_ICONSTOP "${PRODUCT} needs a 64-bit Windows." /SD IDOK
        Abort
    ${EndIf}
    SetRegView 64
    SetShellVarContext all
FunctionEnd

Section "${PRODUCT}"
    SetOutPath "$INSTDIR"
    File /r "${STAGE}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"

    CreateShortCut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\${EXE}" "" "$INSTDIR\${EXE}" 0

    ; Apps (Add/Remove Programs).
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Rigwright developers"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${EXE},0"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0

    ; Fixture definitions (.R20) open in Rigwright and show its icon.
    WriteRegStr HKLM "${CLASSES}\.R20" "" "Rigwright.R20"
    WriteRegStr HKLM "${CLASSES}\.R20\OpenWithProgids" "Rigwright.R20" ""
    WriteRegStr HKLM "${CLASSES}\Rigwright.R20" "" "Fixture definition"
    WriteRegStr HKLM "${CLASSES}\Rigwright.R20\DefaultIcon" "" "$INSTDIR\${EXE},0"
    WriteRegStr HKLM "${CLASSES}\Rigwright.R20\shell\open\command" "" '"$INSTDIR\${EXE}" "%1"'

    ; QLC+ fixtures (.qxf): Rigwright is offered, the default stays as it was.
    WriteRegStr HKLM "${CLASSES}\.qxf\OpenWithProgids" "Rigwright.qxf" ""
    WriteRegStr HKLM "${CLASSES}\Rigwright.qxf" "" "QLC+ fixture definition"
    WriteRegStr HKLM "${CLASSES}\Rigwright.qxf\DefaultIcon" "" "$INSTDIR\${EXE},0"
    WriteRegStr HKLM "${CLASSES}\Rigwright.qxf\shell\open\command" "" '"$INSTDIR\${EXE}" "%1"'

    ; The program's own entry, by which "Open with" names it.
    WriteRegStr HKLM "${CLASSES}\Applications\${EXE}" "FriendlyAppName" "${PRODUCT}"
    WriteRegStr HKLM "${CLASSES}\Applications\${EXE}\SupportedTypes" ".R20" ""
    WriteRegStr HKLM "${CLASSES}\Applications\${EXE}\SupportedTypes" ".qxf" ""
    WriteRegStr HKLM "${CLASSES}\Applications\${EXE}\shell\open\command" "" \
        '"$INSTDIR\${EXE}" "%1"'

    System::Call '${NOTIFY_ASSOCIATIONS}'
SectionEnd

Function un.onInit
    SetRegView 64
    SetShellVarContext all
FunctionEnd

Section "Uninstall"
    ; Exactly the installed files: a folder chosen by the user keeps whatever else it holds.
    !include "${UNINSTALL_LIST}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\${PRODUCT}.lnk"

    ; .R20 loses its program only if that is still Rigwright.
    ReadRegStr $0 HKLM "${CLASSES}\.R20" ""
    ${If} $0 == "Rigwright.R20"
        DeleteRegValue HKLM "${CLASSES}\.R20" ""
    ${EndIf}
    DeleteRegValue HKLM "${CLASSES}\.R20\OpenWithProgids" "Rigwright.R20"
    DeleteRegKey /ifempty HKLM "${CLASSES}\.R20\OpenWithProgids"
    DeleteRegKey /ifempty HKLM "${CLASSES}\.R20"
    DeleteRegKey HKLM "${CLASSES}\Rigwright.R20"
    DeleteRegValue HKLM "${CLASSES}\.qxf\OpenWithProgids" "Rigwright.qxf"
    DeleteRegKey /ifempty HKLM "${CLASSES}\.qxf\OpenWithProgids"
    DeleteRegKey /ifempty HKLM "${CLASSES}\.qxf"
    DeleteRegKey HKLM "${CLASSES}\Rigwright.qxf"
    DeleteRegKey HKLM "${CLASSES}\Applications\${EXE}"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"

    System::Call '${NOTIFY_ASSOCIATIONS}'
SectionEnd
