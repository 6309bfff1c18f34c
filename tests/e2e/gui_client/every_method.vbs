' SPDX-License-Identifier: MIT
' Calls every method of Taviro's automation object as scripts do, on the window of the title given,
' and writes each call's error number and result.
Option Explicit
On Error Resume Next

Dim gui, title, found, text, count, child, clicked, fixed
title = WScript.Arguments(0)

Sub Tell(name, result)
    WScript.Echo name & ": " & Err.Number & " " & result
    Err.Clear
End Sub

Set gui = CreateObject("Taviro.GUI")
Tell "create", TypeName(gui)
gui.VBS_FindWindow title, "", found
Tell "find title", VarType(found) & " " & found
gui.VBS_FindWindow title, "NoSuchClass", count
Tell "find class", count
gui.VBS_FindWindow "", "", count
Tell "find nothing", count
gui.VBS_GetTitle found, text
Tell "title", VarType(text) & " " & text
gui.VBS_GetTitle CStr(found), text
Tell "title of a text", text
gui.VBS_GetChildNum found, count
Tell "children", count
gui.VBS_GetChild found, "eDIT", child
Tell "child", child
gui.VBS_GetChild found, "listbox", child
Tell "hidden child", child
gui.VBS_GetChild found, "Nic", child
Tell "no child", child
gui.ClickOnWindow title, "Nic", clicked
Tell "click on nothing", clicked
gui.ClickOnWindow title, "button", clicked
Tell "click", clicked
gui.ClickOnWindow title, "button", (fixed)
Tell "click without taking the result", TypeName(fixed)
gui.KeyPress 30, 0
Tell "key", ""
gui.KeyPress 31, 16
Tell "key with modifier", ""
gui.VBS_UpdateWindow found
Tell "update window", ""
gui.VBS_UpdateFrame 0, 0, 50, 50
Tell "update frame", ""
gui.ShowDebugWin
Tell "show", ""
gui.MinDebugWin
Tell "minimise", ""
gui.HideDebugWin
Tell "hide", ""
gui.ShowDebugWin
Tell "show again", ""
gui.SetCaption "ze skriptu"
Tell "caption", ""
gui.LogDebugWin "nic"
Tell "log", ""
gui.SetCaption
Tell "too few arguments", ""
gui.VBS_GetTitle "abc", text
Tell "no handle", ""
gui.NoSuchMethod
Tell "no method", ""
