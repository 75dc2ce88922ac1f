' The dialogue of a start-up, each request answered inside its event.
Option Explicit

Sub Viewer_GetProfileList(Params)
    Host.Note "GetProfileList """ & Params.ProfileName & """"
    Viewer.ReceiveProfileResponse "<WebData><ProfileIDs><ProfileID>Default</ProfileID></ProfileIDs></WebData>", _
        "GetProfileList"
End Sub

Sub Viewer_GetProfiles(Params)
    Host.Note "GetProfiles """ & Params.ProfileName & """"
    Viewer.ReceiveProfileResponse "<WebData></WebData>", "GetProfiles"
End Sub

Sub Viewer_PutProfiles(Params)
    Dim Profiles
    Set Profiles = CreateObject("DashlonViewer.QZWebProfiles")
    Profiles.LoadText Params.ProfilesXML
    Host.Note "PutProfiles " & Profiles.Count & " """ & Profiles.Item(1).Name & """"
    Viewer.ReceiveProfileResponse "<WebData></WebData>", "PutProfiles"
End Sub

Sub Viewer_PostRequest(Params)
    Host.Note "PostRequest """ & Params & """"
    ' Passed by reference: what it is set to here is nobody's business but the sink's.
    Params = "heard"
    If Host.Text <> "" Then
        Dim Message
        Set Message = CreateObject("DashlonViewer.QZWebMessage")
        Message.LoadText Host.Text
        Viewer.ReceiveMessage Message, 0, ""
    End If
End Sub

Dim Units(1)
Units(0) = "12"
Units(1) = "40"
Viewer.Initialize Nothing
Viewer.SetRegionalFormatInfo "EN"
Viewer.SetSessionBUIDList Units
Host.Note "done"
