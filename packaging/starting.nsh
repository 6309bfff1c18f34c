# SPDX-License-Identifier: MIT
# The installer's start: what is chosen, by the version that is there, the command line and the page.

# The choices of the version that is there, if any.
Function TakeOverChoices
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == ""
        Return
    ${EndIf}
    ${IfNot} ${FileExists} "$SMPROGRAMS\${TITLE}.lnk"
        StrCpy $InStartMenu ${BST_UNCHECKED}
    ${EndIf}
    ReadRegStr $0 HKCU "${RUN_KEY}" "${TITLE}"
    ${If} $0 != ""
        StrCpy $Autostart ${BST_CHECKED}
    ${EndIf}
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "Platform"
    ${If} $0 == "x86"
        StrCpy $Platform "x86"
    ${EndIf}
FunctionEnd

!macro ReadChoice SWITCH VARIABLE
    ClearErrors
    ${GetOptions} $R0 "/${SWITCH}=" $0
    ${IfNot} ${Errors}
        ${If} $0 == "0"
        ${OrIf} $0 == "1"
            StrCpy ${VARIABLE} $0 # as check boxes count
        ${Else}
            StrCpy $0 "/${SWITCH}=$0"
            Call RefuseSwitch
        ${EndIf}
    ${EndIf}
!macroend

Function ShowChoices
    !insertmacro MUI_HEADER_TEXT "${TEXT_CHOICES}" "${TEXT_CHOICES_LONG}"
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateCheckbox} 0 0 100% 14u "${TEXT_STARTMENU}"
    Pop $StartMenuBox
    ${NSD_SetState} $StartMenuBox $InStartMenu
    ${NSD_CreateCheckbox} 0 20u 100% 14u "${TEXT_AUTOSTART}"
    Pop $AutostartBox
    ${NSD_SetState} $AutostartBox $Autostart
    nsDialogs::Show
FunctionEnd

Function TakeChoices
    ${NSD_GetState} $StartMenuBox $InStartMenu
    ${NSD_GetState} $AutostartBox $Autostart
FunctionEnd

Function RefuseSwitch
    MessageBox MB_OK|MB_ICONSTOP "${TEXT_WRONG_SWITCH}" /SD IDOK
    StrCpy $ExitCode ${EXIT_WRONG_SWITCH}
FunctionEnd

# Other 64-bit processors than x64 run the 32-bit program.
Function ReadPlatform
    ClearErrors
    ${GetOptions} $R0 "/PLATFORM=" $0
    ${If} ${Errors}
        Return
    ${EndIf}
    ${If} $0 == "x86"
        StrCpy $Platform "x86"
    ${ElseIf} $0 == "x64"
    ${AndIf} ${IsNativeAMD64}
        StrCpy $Platform "x64"
    ${Else}
        StrCpy $0 "/PLATFORM=$0"
        Call RefuseSwitch
    ${EndIf}
FunctionEnd

# Shells and scripts put quotes around the whole of "/D=C:\a folder", which the system's way of
# reading it would pass over: Taviro would land in another folder than was asked for. Takes it out of
# the switches in $R0.
Function ReadQuotedFolder
    StrCpy $1 -1
    ${Do}
        IntOp $1 $1 + 1
        StrCpy $0 $R0 4 $1
        ${If} $0 == ""
            Return
        ${EndIf}
    ${LoopUntil} $0 == '"/D='
    IntOp $2 $1 + 4
    StrCpy $INSTDIR $R0 "" $2
    StrCpy $R0 $R0 $1
    StrCpy $1 0
    ${Do}
        StrCpy $0 $INSTDIR 1 $1
        ${If} $0 == ""
        ${OrIf} $0 == '"'
            IntOp $2 $1 + 1
            StrCpy $2 $INSTDIR "" $2
            StrCpy $R0 "$R0$2"
            StrCpy $INSTDIR $INSTDIR $1
            Return
        ${EndIf}
        IntOp $1 $1 + 1
    ${Loop}
FunctionEnd

# Without quotes the system's way of reading it takes all to the end of the line, and passes over a
# folder on a drive that is not there, or one without a drive.
Function RequireFolderAskedFor
    System::Call 'kernel32::GetCommandLineW() w .r3'
    StrCpy $1 -1
    ${Do}
        IntOp $1 $1 + 1
        StrCpy $0 $3 4 $1
        ${If} $0 == ""
            Return
        ${EndIf}
    ${LoopUntil} $0 == " /D="
    IntOp $1 $1 + 4
    StrCpy $0 $3 "" $1
    ${If} $0 != $INSTDIR
    ${AndIf} $0 != "$INSTDIR\"
        StrCpy $0 "/D=$0"
        Call RefuseSwitch
    ${EndIf}
FunctionEnd

Function RequireWholePath
    StrCpy $0 $INSTDIR 1 1
    StrCpy $1 $INSTDIR 2
    ${If} $0 != ":"
    ${AndIf} $1 != "\\"
        StrCpy $0 "/D=$INSTDIR"
        Call RefuseSwitch
    ${EndIf}
FunctionEnd

!macro QuitIfFailed
    ${If} $ExitCode <> 0
        SetErrorLevel $ExitCode
        Quit
    ${EndIf}
!macroend

# Two at once would unpack into the same folder. The system releases the mutex when this one ends.
Function RequireNoOtherInstaller
    System::Call 'kernel32::CreateMutexW(p 0, i 0, w "${SETUP_MUTEX}") p .r1 ?e'
    Pop $0
    ${If} $0 = ${ERROR_ALREADY_EXISTS}
        MessageBox MB_OK|MB_ICONSTOP|MB_SETFOREGROUND "${TEXT_OTHER_INSTALLER}" /SD IDOK
        StrCpy $ExitCode ${EXIT_RUNNING}
    ${EndIf}
FunctionEnd

Function .onInit
    SetShellVarContext current
    StrCpy $ExitCode 0
    Call RequireNoOtherInstaller
    !insertmacro QuitIfFailed
    ${IfNot} ${AtLeastWin7}
        MessageBox MB_OK|MB_ICONSTOP "${TEXT_OLD_SYSTEM}" /SD IDOK
        StrCpy $ExitCode ${EXIT_OLD_SYSTEM}
    ${EndIf}
    StrCpy $Platform "x86"
    ${If} ${IsNativeAMD64}
        StrCpy $Platform "x64"
    ${EndIf}
    StrCpy $InStartMenu ${BST_CHECKED}
    StrCpy $Autostart ${BST_UNCHECKED}
    Call TakeOverChoices
    ${GetParameters} $R0
    Call ReadQuotedFolder
    !insertmacro ReadChoice "STARTMENU" $InStartMenu
    !insertmacro ReadChoice "AUTOSTART" $Autostart
    Call ReadPlatform
    Call RequireWholePath
    Call RequireFolderAskedFor
    !insertmacro QuitIfFailed
FunctionEnd
