; The installer for Windows. make-installer passes VERSION, SIZE (in KB),
; PUT and FOLDERS (scripts with a call for each file and folder), ICON and OUT.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
; The suite's folder is usually writable for its users. Where it is not, the installer reports it.
RequestExecutionLevel user
ManifestDPIAware true

!include LogicLib.nsh
!include MUI2.nsh

!define NAME "委任状印刷"
!define KEY "Software\PrintInin"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\PrintInin"
; Relative paths of the installed files, one per line, UTF-16.
!define LIST "guide\installed.txt"
!define UNINSTALLER "PrintInin-uninstall.exe"

; Exit codes. 1 and 2 are those of the installer system (cancelled, aborted).
!define NO_SUITE 3
!define NOT_WRITABLE 4
!define IN_USE 5
!define NOT_COMPLETE 6

Name "${NAME} ${VERSION}"
BrandingText "${NAME} ${VERSION}"
OutFile "${OUT}"
InstallDirRegKey HKCU "${KEY}" "Folder"
ShowInstDetails show
ShowUninstDetails show
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1041 "ProductName" "${NAME}"
VIAddVersionKey /LANG=1041 "FileDescription" "${NAME} インストーラー"
VIAddVersionKey /LANG=1041 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1041 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1041 "LegalCopyright" "LICENSE.txt"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "総合システムのフォルダーに、${NAME}をインストールします。$\r$\n$\r$\n総合システムの設定、帳票、データは変更しません。始める前に、${NAME}と form viewer を終了してください。"
!define MUI_DIRECTORYPAGE_TEXT_TOP "総合システムのフォルダー（Massage.ini のあるフォルダー）を選んでください。"
!define MUI_FINISHPAGE_RUN "$INSTDIR\PrintInin.exe"
!define MUI_FINISHPAGE_RUN_TEXT "${NAME}を開始する"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\guide\最初にお読みください.txt"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "「最初にお読みください」を開く"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Japanese"

Var code     ; why the folder is refused: one of the exit codes, or 0
Var sentence ; the reason in words
Var isUpdate ; 1 if the folder has a list of installed files

; Prints the sentence on standard error, for silent runs from a command prompt or a script.
!macro printSentence
    System::Call 'kernel32::AttachConsole(i -1)'
    System::Call 'kernel32::GetStdHandle(i -12) p .R0'
    System::Call 'kernel32::WideCharToMultiByte(i 65001, i 0, w "$sentence$\r$\n", i -1, p 0, i 0, p 0, p 0) i .R1'
    System::Alloc $R1
    Pop $R2
    System::Call 'kernel32::WideCharToMultiByte(i 65001, i 0, w "$sentence$\r$\n", i -1, p R2, i R1, p 0, p 0)'
    IntOp $R1 $R1 - 1
    System::Call 'kernel32::WriteFile(p R0, p R2, i R1, *i .R3, p 0)'
    System::Free $R2
!macroend

!macro refuseIfNeeded
    ${If} $code <> 0
        !insertmacro printSentence
        MessageBox MB_OK|MB_ICONSTOP "$sentence" /SD IDOK
        SetErrorLevel $code
        Quit
    ${EndIf}
!macroend

!macro refuse CODE SENTENCE
    StrCpy $code ${CODE}
    StrCpy $sentence "${SENTENCE}"
!macroend

; A program that runs cannot be opened for writing.
!macro refuseIfInUse PROGRAM
    ${If} $code = 0
    ${AndIf} ${FileExists} "$INSTDIR\${PROGRAM}"
        ClearErrors
        FileOpen $R0 "$INSTDIR\${PROGRAM}" a
        ${If} ${Errors}
            !insertmacro refuse ${IN_USE} "「${PROGRAM}」が使われています。終了してから、もう一度お試しください。"
        ${Else}
            FileClose $R0
        ${EndIf}
    ${EndIf}
!macroend

!macro refuseIfNotWritable
    ${If} $code = 0
        ClearErrors
        FileOpen $R0 "$INSTDIR\PrintInin-write-test.tmp" w
        ${If} ${Errors}
            !insertmacro refuse ${NOT_WRITABLE} "「$INSTDIR」に書き込めません。フォルダーへの書き込みの権利を確かめるか、管理者として実行してください。"
        ${Else}
            FileClose $R0
            Delete "$INSTDIR\PrintInin-write-test.tmp"
        ${EndIf}
    ${EndIf}
!macroend

!macro checkPrograms
    !insertmacro refuseIfInUse "PrintInin.exe"
    !insertmacro refuseIfInUse "formviewer.exe"
    !insertmacro refuseIfInUse "inin-script.exe"
    !insertmacro refuseIfInUse "inin-site.exe"
    !insertmacro refuseIfInUse "inin-stand-in.exe"
!macroend

; A list of installed files is only trusted within the folder.
!macro ifOwnPath PATH
    StrCpy $R8 ${PATH} 1
    StrCpy $R9 0
    ${If} $R8 == "\"
    ${OrIf} $R8 == ""
        StrCpy $R9 1
    ${EndIf}
    Push ${PATH}
    Call ${UN}hasForeignPart
    Pop $R8
    IntOp $R9 $R9 + $R8
    ${If} $R9 = 0
!macroend

!macro pathFunctions UN
; Returns 1 for a path with ":" or "..".
Function ${UN}hasForeignPart
    Exch $R0
    Push $R1
    Push $R2
    Push $R3
    StrCpy $R1 0
    StrCpy $R3 0
    ${Do}
        StrCpy $R2 $R0 1 $R1
        ${If} $R2 == ""
            ${Break}
        ${EndIf}
        ${If} $R2 == ":"
            StrCpy $R3 1
        ${EndIf}
        StrCpy $R2 $R0 2 $R1
        ${If} $R2 == ".."
            StrCpy $R3 1
        ${EndIf}
        IntOp $R1 $R1 + 1
    ${Loop}
    StrCpy $R0 $R3
    Pop $R3
    Pop $R2
    Pop $R1
    Exch $R0
FunctionEnd

; Reads a line of the list that is open in $R4 to $R5, without its line end; empty at the end.
Function ${UN}readPath
    ClearErrors
    FileReadUTF16LE $R4 $R5
    ${If} ${Errors}
        StrCpy $R5 ""
    ${EndIf}
    ${Do}
        StrCpy $R6 $R5 1 -1
        ${If} $R6 != "$\r"
        ${AndIf} $R6 != "$\n"
            ${Break}
        ${EndIf}
        StrCpy $R5 $R5 -1
    ${Loop}
FunctionEnd
!macroend
!insertmacro pathFunctions ""
!insertmacro pathFunctions "un."

; Sets $code and $sentence.
Function checkFolder
    StrCpy $code 0
    ${IfNot} ${FileExists} "$INSTDIR\Massage.ini"
        !insertmacro refuse ${NO_SUITE} "「$INSTDIR」に Massage.ini がありません。総合システムのフォルダーを選んでください。"
    ${EndIf}
    !insertmacro refuseIfNotWritable
    !insertmacro checkPrograms
FunctionEnd

Function .onVerifyInstDir
    ${IfNot} ${FileExists} "$INSTDIR\Massage.ini"
        Abort
    ${EndIf}
FunctionEnd

; A file of the same name that this installer did not write is kept beside the new one.
!macro put FILE FROM
    ${If} $isUpdate = 0
    ${AndIf} ${FileExists} "$INSTDIR\${FILE}"
    ${AndIfNot} ${FileExists} "$INSTDIR\${FILE}.original"
        Rename "$INSTDIR\${FILE}" "$INSTDIR\${FILE}.original"
    ${EndIf}
    File "/oname=${FILE}" "${FROM}"
!macroend

; Deletes the files of the previous version that this one no longer has. $PLUGINSDIR\old.txt is the previous list.
Function deleteSurplus
    FileOpen $0 "$PLUGINSDIR\old.txt" r
    ${Do}
        StrCpy $R4 $0
        Call readPath
        ${If} $R5 == ""
            ${Break}
        ${EndIf}
        StrCpy $1 $R5
        StrCpy $2 0
        FileOpen $3 "$INSTDIR\${LIST}" r
        ${Do}
            StrCpy $R4 $3
            Call readPath
            ${If} $R5 == ""
                ${Break}
            ${EndIf}
            ${If} $R5 == $1
                StrCpy $2 1
            ${EndIf}
        ${Loop}
        FileClose $3
        ${If} $2 = 0
            !define UN ""
            !insertmacro ifOwnPath $1
                Delete "$INSTDIR\$1"
            ${EndIf}
            !undef UN
        ${EndIf}
    ${Loop}
    FileClose $0
FunctionEnd

; Checks the site with the installed program and shows its report, which is kept in guide\check.txt.
Function checkSite
    ${IfNot} ${FileExists} "$INSTDIR\inin-site.exe"
        Return
    ${EndIf}
    DetailPrint "サイトを点検しています…"
    ReadEnvStr $0 COMSPEC
    nsExec::Exec '"$0" /c ""$INSTDIR\inin-site.exe" check "$INSTDIR" > "$INSTDIR\guide\check.txt" 2>&1"'
    Pop $0
    System::Call 'kernel32::CreateFileW(w "$INSTDIR\guide\check.txt", i 0x80000000, i 1, p 0, i 3, i 0, p 0) p .R0'
    System::Alloc 4096
    Pop $R1
    System::Call 'kernel32::ReadFile(p R0, p R1, i 2400, *i .R2, p 0)'
    System::Call 'kernel32::CloseHandle(p R0)'
    System::Call 'kernel32::MultiByteToWideChar(i 65001, i 0, p R1, i R2, w .R3, i 1000) i .R4'
    System::Free $R1
    StrCpy $R3 $R3 $R4
    DetailPrint $R3
    MessageBox MB_OK|MB_ICONINFORMATION "サイトの点検の結果です（guide\check.txt にも書いてあります）。$\r$\n$\r$\n$R3" /SD IDOK
FunctionEnd

Section
    Call checkFolder
    !insertmacro refuseIfNeeded
    InitPluginsDir
    StrCpy $isUpdate 0
    ${If} ${FileExists} "$INSTDIR\${LIST}"
        StrCpy $isUpdate 1
        CopyFiles /SILENT "$INSTDIR\${LIST}" "$PLUGINSDIR\old.txt"
    ${EndIf}
    ClearErrors
    SetOverwrite on
    SetOutPath $INSTDIR
    !include "${PUT}"
    ${If} ${Errors}
        !insertmacro refuse ${NOT_COMPLETE} "書き込めないファイルがありました。ディスクの空きと、フォルダーへの書き込みの権利を確かめてから、もう一度インストールしてください。"
        !insertmacro refuseIfNeeded
    ${EndIf}
    ${If} $isUpdate = 1
        Call deleteSurplus
    ${EndIf}
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"
    WriteRegStr HKCU "${KEY}" "Folder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${UNINSTALLER}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    Call checkSite
SectionEnd

; Only what the list names is deleted: settings, forms, letters and the suite's own files stay.
Section un.Install
    StrCpy $code 0
    !insertmacro refuseIfNotWritable
    !insertmacro checkPrograms
    !insertmacro refuseIfNeeded
    InitPluginsDir
    CopyFiles /SILENT "$INSTDIR\${LIST}" "$PLUGINSDIR\list.txt"
    FileOpen $R4 "$PLUGINSDIR\list.txt" r
    ${Do}
        Call un.readPath
        ${If} $R5 == ""
            ${Break}
        ${EndIf}
        !define UN "un."
        !insertmacro ifOwnPath $R5
            Delete "$INSTDIR\$R5"
            ${If} ${FileExists} "$INSTDIR\$R5.original"
                Rename "$INSTDIR\$R5.original" "$INSTDIR\$R5"
            ${EndIf}
        ${EndIf}
        !undef UN
    ${Loop}
    FileClose $R4
    Delete "$INSTDIR\guide\check.txt"
    Delete "$INSTDIR\${UNINSTALLER}"
    !include "${FOLDERS}"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    DeleteRegKey HKCU "${KEY}"
SectionEnd
