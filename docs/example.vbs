' SPDX-License-Identifier: MIT
' An example of a script that drives Taviro and, through it, another program. Run it with
'     cscript //nologo example.vbs "Title of a window"
' It shows Taviro's window, captions it, clicks on the first button of the window with that title and
' presses Escape there. Register Taviro first: taviro.exe /regserver
Option Explicit

Const SCAN_ESCAPE = 1
Const BUSY = &H800700AA ' Taviro is in the middle of something: try again

Dim gui, title, window, button, name, clicked, tries
title = WScript.Arguments(0)

' Starts Taviro, or reaches the one that runs.
Set gui = CreateObject("Taviro.GUI")
gui.ShowDebugWin
gui.SetCaption "Taviro - skript"

gui.VBS_FindWindow title, "", window
If window = 0 Then
    WScript.Echo "No window is called " & title
    WScript.Quit 1
End If
gui.VBS_GetTitle window, name
gui.VBS_GetChild window, "Button", button
WScript.Echo "Found " & name
If button = 0 Then WScript.Echo "It has no button"

' Clicks and keys are refused while Taviro itself sends some.
On Error Resume Next
For tries = 1 To 50
    Err.Clear
    gui.ClickOnWindow title, "Button", clicked
    If Err.Number <> BUSY Then Exit For
    WScript.Sleep 100
Next
If Err.Number <> 0 Then
    WScript.Echo "Not clicked: " & Err.Description
    WScript.Quit 1
End If
On Error GoTo 0
WScript.Echo "Clicked: " & clicked

gui.KeyPress SCAN_ESCAPE, 0
gui.VBS_UpdateWindow window
gui.HideDebugWin
