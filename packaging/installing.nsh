# SPDX-License-Identifier: MIT
# Installing, for the first time or over an older version.

# Fails when the folder cannot be made or written to.
Function RequireFolder
    RMDir /r "$INSTDIR\${NEW}" # what an interrupted installation left
    ClearErrors
    CreateDirectory "$INSTDIR\${NEW}"
    FileOpen $0 "$INSTDIR\${NEW}\${LIST}" w
    ${If} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP|MB_SETFOREGROUND "${TEXT_NO_FOLDER}" /SD IDOK
        StrCpy $ExitCode ${EXIT_NO_WRITING}
        Return
    ${EndIf}
    FileClose $0
FunctionEnd

# An upgrade needs the whole room too: old and new lie side by side until the new one is complete.
Function RequireRoom
    ${If} $Platform == "x64"
        IntOp $3 ${KILOBYTES_x64} + ${SPARE_KILOBYTES}
    ${Else}
        IntOp $3 ${KILOBYTES_x86} + ${SPARE_KILOBYTES}
    ${EndIf}
    ${Do}
        System::Call 'kernel32::GetDiskFreeSpaceExW(w "$INSTDIR", *l .r4, p 0, p 0) i .r0'
        System::Int64Op $4 / 1024
        Pop $4
        System::Int64Op $4 >= $3
        Pop $5
        ${If} $0 = 0 # unknown; unpacking tells
        ${OrIf} $5 = 1
            Return
        ${EndIf}
        IntOp $1 $3 + 1023
        IntOp $1 $1 / 1024
        System::Int64Op $4 / 1024
        Pop $2
        ${IfNot} ${Cmd} `MessageBox ${ASK_AGAIN} "${TEXT_NO_ROOM}" /SD IDCANCEL IDRETRY`
            StrCpy $ExitCode ${EXIT_NO_ROOM}
            Return
        ${EndIf}
    ${Loop}
FunctionEnd

# Writes down the files of the version that is there which the new one has no more.
Function FindStale
    FileOpen $6 "$PLUGINSDIR\stale.txt" w
    ClearErrors
    FileOpen $5 "$INSTDIR\${LIST}" r
    ${IfNot} ${Errors}
        ${Do}
            ClearErrors
            FileReadUTF16LE $5 $File
            ${If} ${Errors}
                ${Break}
            ${EndIf}
            ${TrimNewLines} $File $File
            ${IfNot} ${FileExists} "$INSTDIR\${NEW}\$File"
                FileWriteUTF16LE $6 "$File$\r$\n"
            ${EndIf}
        ${Loop}
        FileClose $5
    ${EndIf}
    FileClose $6
FunctionEnd

Function RemoveStale
    FileOpen $6 "$PLUGINSDIR\stale.txt" r
    ${Do}
        ClearErrors
        FileReadUTF16LE $6 $File
        ${If} ${Errors}
            ${Break}
        ${EndIf}
        ${TrimNewLines} $File $File
        Call RemoveFile
    ${Loop}
    FileClose $6
FunctionEnd

# Moves $File from the unpacked version into place, in one step. The user's own stays.
Function PlaceFile
    ${If} $ExitCode <> 0
        Return
    ${EndIf}
    Call IsUsersOwn
    ${If} $0 = 1
        DetailPrint "${TEXT_KEPT}"
        Return
    ${EndIf}
    ${Do}
        # 9: replacing what is there, on the disk when it returns
        System::Call 'kernel32::MoveFileExW(w "$INSTDIR\${NEW}\$File", w "$INSTDIR\$File", i 9) i .r0'
        ${If} $0 <> 0
            Return
        ${EndIf}
        ${IfNot} ${Cmd} `MessageBox ${ASK_AGAIN} "${TEXT_IN_USE}" /SD IDCANCEL IDRETRY`
            StrCpy $ExitCode ${EXIT_NO_WRITING}
            Return
        ${EndIf}
    ${Loop}
FunctionEnd

!macro PlaceFile NAME
    StrCpy $File "${NAME}"
    Call PlaceFile
!macroend

!macro EndIfFailed
    ${If} $ExitCode <> 0
        Abort "${TEXT_NOT_FINISHED}"
    ${EndIf}
!macroend

# Into another folder than before: the version there goes. It comes last, so that there is always one.
Function RemoveFromFolderBefore
    ReadRegStr $R1 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $R1 == ""
    ${OrIf} $R1 == $INSTDIR
    ${OrIfNot} ${FileExists} "$R1\uninstall.exe"
        Return
    ${EndIf}
    ExecWait '"$R1\uninstall.exe" /S _?=$R1'
    Delete "$R1\uninstall.exe" # it cannot remove itself while it is waited for
    RMDir "$R1"
FunctionEnd

Function RegisterFile
    ${If} ${FileExists} "$INSTDIR\$File"
        ExecWait '"$INSTDIR\$File" /regserver' $0
        ${If} $0 <> 0
            MessageBox MB_OK|MB_ICONEXCLAMATION|MB_SETFOREGROUND "${TEXT_NOT_REGISTERED}" /SD IDOK
        ${EndIf}
    ${EndIf}
FunctionEnd

Section
    Call RequireNotRunning
    !insertmacro EndIfFailed
    Call RequireFolder
    !insertmacro EndIfFailed
    Call RequireRoom
    !insertmacro EndIfFailed
    Call RememberTime

    !insertmacro Extract_common
    ${If} $Platform == "x64"
        !insertmacro Extract_x64
    ${Else}
        !insertmacro Extract_x86
    ${EndIf}
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\${NEW}\uninstall.exe"
    GetFileTime "$INSTDIR\${NEW}\taviro.exe" $NewTimeHigh $NewTimeLow
    Call FindStale
    Call RequireNotRunning # it may have been started meanwhile
    !insertmacro EndIfFailed
    StrCpy $File "presager.exe"
    Call RequireReplaceable
    !insertmacro EndIfFailed
    StrCpy $File "taviro.exe"
    Call RequireReplaceable
    !insertmacro EndIfFailed
    StrCpy $File "${LIST}"
    Call RequireReplaceable
    !insertmacro EndIfFailed

    !insertmacro MakeFolders
    !insertmacro PlaceFile "uninstall.exe"
    !insertmacro Place_common
    ${If} $Platform == "x64"
        !insertmacro Place_x64
    ${Else}
        !insertmacro Place_x86
    ${EndIf}
    !insertmacro EndIfFailed
    # While the old program is there, its time tells the old version's files from the user's. The list
    # comes last: until then another try finds the old one, and so what it has to remove.
    Call RemoveStale
    StrCpy $ExitCode 0 # a file too many harms nobody
    !insertmacro PlaceFile "taviro.exe"
    !insertmacro PlaceFile "${LIST}"
    !insertmacro EndIfFailed
    RMDir /r "$INSTDIR\${NEW}"

    Call RemoveFromFolderBefore
    StrCpy $File "taviro.exe"
    Call RegisterFile
    StrCpy $File "presager.exe"
    Call RegisterFile
    Call CarryOutChoices
    Call WriteUninstallEntry
SectionEnd

# What an upgrade is not to have any more goes.
Function CarryOutChoices
    ${If} $InStartMenu = ${BST_CHECKED}
        CreateShortcut "$SMPROGRAMS\${TITLE}.lnk" "$INSTDIR\taviro.exe" "" "" "" "" "" "${COMMENTS}"
    ${Else}
        Delete "$SMPROGRAMS\${TITLE}.lnk"
    ${EndIf}
    ${If} $Autostart = ${BST_CHECKED}
        WriteRegStr HKCU "${RUN_KEY}" "${TITLE}" '"$INSTDIR\taviro.exe"'
    ${Else}
        DeleteRegValue HKCU "${RUN_KEY}" "${TITLE}"
    ${EndIf}
FunctionEnd

Function WriteUninstallEntry
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${TITLE}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\taviro.exe,0"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "${MAKER}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Comments" "${COMMENTS}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "URLInfoAbout" "${WEB}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Platform" "$Platform"
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    ${If} $Platform == "x64"
        WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES_x64}
    ${Else}
        WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES_x86}
    ${EndIf}
FunctionEnd

Function .onInstFailed
    RMDir /r "$INSTDIR\${NEW}"
    RMDir "$INSTDIR" # only when nothing is in it
    ${If} $ExitCode = 0
        StrCpy $ExitCode ${EXIT_NO_WRITING} # a file could not be unpacked
    ${EndIf}
    SetErrorLevel $ExitCode
FunctionEnd
