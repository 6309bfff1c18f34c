# SPDX-License-Identifier: MIT
# Functions that the installer and the uninstaller both have; PREFIX is empty or "un.".
# Above the window of Taviro, which is above all others.
!define ASK_AGAIN "MB_RETRYCANCEL|MB_ICONEXCLAMATION|MB_SETFOREGROUND|MB_TOPMOST"

!macro SharedFunctions PREFIX

# Waits, with the user's help, until the program does not run. Fails in silent mode.
Function ${PREFIX}RequireNotRunning
    ${Do}
        System::Call 'kernel32::OpenMutexW(i 0x100000, i 0, w "${MUTEX}") p .r0'
        ${If} $0 P= 0
            Return
        ${EndIf}
        System::Call 'kernel32::CloseHandle(p r0)'
        ${IfNot} ${Cmd} `MessageBox ${ASK_AGAIN} "${TEXT_RUNNING}" /SD IDCANCEL IDRETRY`
            StrCpy $ExitCode ${EXIT_RUNNING}
            Return
        ${EndIf}
    ${Loop}
FunctionEnd

# Fails when $File is there and in use, before anything is replaced or removed.
# One that is just ending gets a moment: the dictionary's server outlives Taviro a little.
Function ${PREFIX}RequireReplaceable
    StrCpy $1 0
    ${Do}
        ${IfNot} ${FileExists} "$INSTDIR\$File"
            Return
        ${EndIf}
        ClearErrors
        FileOpen $0 "$INSTDIR\$File" a
        ${IfNot} ${Errors}
            FileClose $0
            Return
        ${EndIf}
        IntOp $1 $1 + 1
        ${If} $1 < ${TIMES_IN_USE}
            Sleep ${PAUSE_IN_USE}
            ${Continue}
        ${EndIf}
        ${IfNot} ${Cmd} `MessageBox ${ASK_AGAIN} "${TEXT_IN_USE}" /SD IDCANCEL IDRETRY`
            StrCpy $ExitCode ${EXIT_NO_WRITING}
            Return
        ${EndIf}
    ${Loop}
FunctionEnd

# The time of the delivered files that are there: the program's own, which is never the user's.
Function ${PREFIX}RememberTime
    StrCpy $TimeHigh ""
    StrCpy $TimeLow ""
    ClearErrors
    GetFileTime "$INSTDIR\taviro.exe" $0 $1
    ${IfNot} ${Errors}
        StrCpy $TimeHigh $0
        StrCpy $TimeLow $1
    ${EndIf}
FunctionEnd

# $0 = 1 when $File is there and the user replaced it: a sound or a delivered map with a time that
# no delivered file has.
Function ${PREFIX}IsUsersOwn
    StrCpy $0 0
    StrCpy $1 $File 6
    StrCpy $2 $File 5
    ${If} $1 != "sound\"
    ${AndIf} $2 != "data\"
        Return
    ${EndIf}
    ClearErrors
    GetFileTime "$INSTDIR\$File" $1 $2
    ${If} ${Errors}
        Return
    ${EndIf}
    ${If} "$1 $2" != "$TimeHigh $TimeLow"
    ${AndIf} "$1 $2" != "$NewTimeHigh $NewTimeLow"
        StrCpy $0 1
    ${EndIf}
FunctionEnd

# Removes $File unless it is the user's. Sets $ExitCode when that fails and the user gives up.
Function ${PREFIX}RemoveFile
    Call ${PREFIX}IsUsersOwn
    ${If} $0 = 1
        DetailPrint "${TEXT_KEPT}"
        Return
    ${EndIf}
    ${Do}
        ClearErrors
        Delete "$INSTDIR\$File"
        ${IfNot} ${Errors}
            Return
        ${EndIf}
        ${IfNot} ${Cmd} `MessageBox ${ASK_AGAIN} "${TEXT_IN_USE}" /SD IDCANCEL IDRETRY`
            StrCpy $ExitCode ${EXIT_NO_WRITING}
            Return
        ${EndIf}
    ${Loop}
FunctionEnd
!macroend

!macro RemoveFile NAME
    StrCpy $File "${NAME}"
    !ifdef __UNINSTALL__
        Call un.RemoveFile
    !else
        Call RemoveFile
    !endif
!macroend
