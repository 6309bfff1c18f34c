# SPDX-License-Identifier: MIT
# Removing: everything that installing brought, nothing else. The uninstaller and its entry in the
# system's list go last, so that an interrupted removal can be repeated.

Function un.onInit
    SetShellVarContext current
    StrCpy $ExitCode 0
FunctionEnd

Function un.UnregisterFile
    ${If} ${FileExists} "$INSTDIR\$File"
        ExecWait '"$INSTDIR\$File" /unregserver'
    ${EndIf}
FunctionEnd

!macro un.EndIfFailed
    ${If} $ExitCode <> 0
        SetErrorLevel $ExitCode
        Abort
    ${EndIf}
!macroend

Section un.Program
    Call un.RequireNotRunning
    !insertmacro un.EndIfFailed
    StrCpy $File "presager.exe"
    Call un.RequireReplaceable
    !insertmacro un.EndIfFailed
    StrCpy $File "taviro.exe"
    Call un.RequireReplaceable
    !insertmacro un.EndIfFailed
    Call un.RememberTime
    StrCpy $File "presager.exe"
    Call un.UnregisterFile
    StrCpy $File "taviro.exe"
    Call un.UnregisterFile
    Delete "$SMPROGRAMS\${TITLE}.lnk"
    DeleteRegValue HKCU "${RUN_KEY}" "${TITLE}"

    RMDir /r "$INSTDIR\${NEW}"
    !insertmacro RemoveFiles
    !insertmacro RemoveFile "taviro.exe"
    !insertmacro un.EndIfFailed
    !insertmacro RemoveFolders
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    Delete "$INSTDIR\uninstall.exe"
    SetOutPath "$TEMP" # no folder can go while somebody stands in it
    RMDir "$INSTDIR"
    ${If} ${FileExists} "$INSTDIR\*.*"
        DetailPrint "${TEXT_LEFT}"
    ${EndIf}
    DetailPrint "${TEXT_REMOVED}"
SectionEnd
