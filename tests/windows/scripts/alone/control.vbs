' Every member of the control, late bound, from a script without a window. Ends with 77 when all is right.
Option Explicit

Dim Wrong
Wrong = 0

Sub Check(What, Condition)
    If Not Condition Then
        WScript.Echo "FAILED: " & What
        Wrong = Wrong + 1
    End If
End Sub

Sub CheckError(What, Number)
    Check What & ": number " & Err.Number & " " & Err.Description, Err.Number = Number
    Check What & ": has a text", Err.Description <> ""
    Err.Clear
End Sub

Dim Viewer, Units(1), Result, Name, Message
Set Viewer = CreateObject("DashlonViewer.DLViewer")
Set Message = CreateObject("DashlonViewer.QZWebMessage")

On Error Resume Next
Viewer.SetSessionBUIDList Array("12")
CheckError "units before the start", 1004
Viewer.ReceiveMessage Message, 0, ""
CheckError "a message before the start", 1004
On Error GoTo 0

Viewer.Initialize Nothing
Name = "EN"
Viewer.SetRegionalFormatInfo Name
Units(0) = "12"
Units(1) = "40"
Viewer.SetSessionBUIDList Units
Viewer.SetSessionBUIDList Array("12", 40)
Result = "<WebData></WebData>"
Name = "GetProfileList"
Viewer.ReceiveProfileResponse Result, Name
Viewer.ReceiveProfileResponse "<WebData></WebData>", "GetProfiles"
Viewer.ResizeControls
Message.Name = "Other"
Viewer.ReceiveMessage Message, 0, ""

On Error Resume Next
Viewer.SetSessionBUIDList "no array"
Check "a text for an array: " & Err.Number, Err.Number <> 0
Err.Clear
Viewer.ReceiveMessage
Check "no arguments: " & Err.Number, Err.Number = 450
Err.Clear
Viewer.Jump
Check "a member that is not there: " & Err.Number, Err.Number = 438
Err.Clear
On Error GoTo 0

Viewer.StopControl
Viewer.StopControl
On Error Resume Next
Viewer.ResizeControls
CheckError "a call after the end", 1004
On Error GoTo 0

If Wrong = 0 Then WScript.Quit 77
WScript.Quit 1
