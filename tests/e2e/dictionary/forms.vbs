' SPDX-License-Identifier: MIT
' Asks the dictionary in the ways in which scripts pass a text, and writes each call's error number
' and result.
Option Explicit
On Error Resume Next

Dim dictionary, prefix, fixed(0), list

Sub Tell(name, result)
    WScript.Echo name & ": " & Err.Number & " " & result
    Err.Clear
End Sub

Function IsList(text)
    IsList = "none"
    If Left(text, 1) = ";" Then IsList = "list"
End Function

Function AskWith(ByRef given)
    AskWith = dictionary.GetPrediction(given)
End Function

Set dictionary = CreateObject("Presager.Dict")
Tell "create", TypeName(dictionary)
Tell "constant", IsList(dictionary.GetPrediction("dobr"))
prefix = "dobr"
list = dictionary.GetPrediction(prefix)
Tell "variable", IsList(list) & " " & VarType(list) & " " & prefix
prefix = "xy" & Chr(8) & Chr(8) & "prav"
Tell "corrected", IsList(dictionary.GetPrediction(prefix)) & " " & prefix
prefix = "dobr" & Chr(8)
Tell "corrected within a function", IsList(AskWith(prefix)) & " " & prefix
prefix = "dobr" & Chr(8)
Tell "by value", IsList(dictionary.GetPrediction((prefix))) & " " & Len(prefix)
fixed(0) = "dobr" & Chr(8)
Tell "element", IsList(dictionary.GetPrediction(fixed(0))) & " " & Len(fixed(0))
Tell "empty", "[" & dictionary.GetPrediction(Empty) & "]"
Tell "null", "[" & dictionary.GetPrediction(Null) & "]"
Tell "number", "[" & dictionary.GetPrediction(12.5) & "]"
Tell "unknown letter", IsList(dictionary.GetPrediction(Chr(0) & "obr"))
dictionary.GetPrediction "dobr"
Tell "without the result", ""
list = dictionary.GetPrediction(dictionary)
Tell "object", ""
list = dictionary.GetPrediction(Array("dobr"))
Tell "array", ""
list = dictionary.GetPrediction()
Tell "no argument", ""
list = dictionary.GetPrediction("a", "b")
Tell "two arguments", ""
list = dictionary.Forget()
Tell "no method", ""
