' Every data object and every member, late bound, as a script uses them. Ends with 77 when all is right.
Option Explicit

Dim Wrong
Wrong = 0

Sub Check(What, Condition)
    If Not Condition Then
        WScript.Echo "FAILED: " & What
        Wrong = Wrong + 1
    End If
End Sub

' The error that the statement before has left, by number and text.
Sub CheckError(What, Number, Text)
    Check What & ": number " & Err.Number & " " & Err.Description, Err.Number = Number
    If Text <> "" Then Check What & ": text " & Err.Description, Err.Description = Text
    Err.Clear
End Sub

Sub Messages()
    Dim Message, Data, Table, Row, Copy, Key
    Set Message = CreateObject("DashlonViewer.QZWebMessage")
    Message.Name = "DLVData"
    Check "a message's name", Message.Name = "DLVData"
    Key = "tqDBRefreshInterval"
    Message.Property(Key) = 15
    Message.Property("tqJeopardyThreshold") = "30"
    Check "a property", Message.Property(Key) = "15"
    Check "a property that is not there", Message.Property("none") = ""
    Check "no data item yet", Message.DataCount = 0
    Set Data = Message.Data(1)
    Check "the first data item is made", Message.DataCount = 1
    Check "it is the same one", Message.Data(1).TableCount = 0

    Set Table = Data.AddTable("BusinessUnits")
    Check "a table's name", Data.Table("BusinessUnits").Name = "BusinessUnits"
    Set Row = Table.AddRow()
    Row.Field("BUID") = "12"
    Row.Field("BUDesc") = "North & ""South"""
    Check "a field", Table.Row(1).Field("BUID") = "12"
    Check "one row", Table.RowCount = 1
    Table.Name = "Units"
    Check "a table's new name", Table.Name = "Units"

    Set Copy = CreateObject("DashlonViewer.QZWebMessage")
    Copy.LoadText Message.Text
    Check "a copy through the text", Copy.Text = Message.Text
    Check "a copy's field", Copy.Data(1).Table("Units").Row(1).Field("BUDesc") = "North & ""South"""
End Sub

Sub Tables()
    Dim Table, Values(1, 2), Columns, Data, Item
    Set Table = CreateObject("DashlonViewer.QZWebTable")
    Columns = Array("BUID", "BUDesc", "ParentBUID")
    Values(0, 0) = 12
    Values(0, 1) = "North"
    Values(0, 2) = "#"
    Values(1, 0) = 40
    Values(1, 1) = Empty
    Values(1, 2) = "12"
    Table.Fill Columns, Values
    Check "two rows from an array", Table.RowCount = 2
    Check "a number from an array", Table.Row(2).Field("BUID") = "40"
    Check "nothing from an array", Table.Row(2).Field("BUDesc") = ""
    Set Data = CreateObject("DashlonViewer.QZWebData")
    Data.LoadText "<WebData>" & Table.Text & "</WebData>"
    Check "a table inside a data item", Data.TableCount = 1
    Check "the data item's text", InStr(Data.Text, "North") > 0
    Set Item = CreateObject("DashlonViewer.QZWebTable")
    Item.LoadText Table.Text
    Check "a table's text", Item.Text = Table.Text
End Sub

Sub Profiles()
    Dim All, Profile, Section, Other
    Set All = CreateObject("DashlonViewer.QZWebProfiles")
    Set Profile = All.Add("Default")
    Check "one profile", All.Count = 1
    Check "it exists", All.Exists("Default")
    Check "another does not", Not All.Exists("default")
    Check "by its number", All.Item(1).Name = "Default"
    Check "by the default member", All(1).Name = "Default"
    Set Section = Profile.AddSection("DLVSelect", "BUList,SummaryOption")
    Check "a section", Profile.HasSection("DLVSelect")
    Check "a section's name and fields", Section.Name & Section.Fields = "DLVSelectBUList,SummaryOption"
    Section.AddRow().Field("BUList") = "12|40"
    Check "a section's row", Profile.Section("DLVSelect").Row(1).Field("BUList") = "12|40"
    Section.RemoveRow 1
    Check "no row any more", Section.RowCount = 0
    Set Other = CreateObject("DashlonViewer.QZWebProfile")
    Other.LoadText Profile.Text
    Other.Name = "Other"
    Check "a profile's name", Other.Name = "Other"
    All.LoadText All.Text
    Check "a set through its text", All.Count = 1
End Sub

Sub Records()
    Dim Record
    Set Record = CreateObject("DashlonViewer.DLVParams")
    Record.BUID = "a": Record.JobType = "b": Record.JobClass = "c": Record.JobStatus = "d": Record.Info = "e"
    Record.JeopardyThreshold = "f": Record.ProfileName = "g": Record.UserID = "h": Record.ApplicationID = "i"
    Record.ProfilesXML = "j": Record.ResultXML = "k"
    Check "a record's fields", Record.BUID & Record.JobType & Record.JobClass & Record.JobStatus & Record.Info & _
        Record.JeopardyThreshold & Record.ProfileName & Record.UserID & Record.ApplicationID & _
        Record.ProfilesXML & Record.ResultXML = "abcdefghijk"
End Sub

Sub Errors()
    Dim Message, Data, Table, Ignored
    Set Message = CreateObject("DashlonViewer.QZWebMessage")
    Set Data = Message.Data(1)
    Set Table = Data.AddTable("Units")
    On Error Resume Next
    Set Ignored = Data.Table("none")
    CheckError "a table that is not there", 1001, "Table none is missing"
    Table.AddRow().Field("BUID") = "12"
    Ignored = Table.Row(1).Field("none")
    CheckError "a column that is not there", 1002, "Column none is missing in table Units"
    Set Ignored = Table.Row(2)
    CheckError "a row that is not there", 9, "Subscript out of range"
    Table.LoadText "<WebTable Name=""x"">"
    CheckError "a document without its end", 1003, ""
    Message.LoadText
    CheckError "too few arguments", 450, ""
    Message.LoadText "a", "b"
    CheckError "too many arguments", 450, ""
    Set Ignored = Table.Row("x")
    CheckError "a text for a number", 13, ""
    Message.Jump
    CheckError "a member that is not there", 438, ""
    Set Ignored = CreateObject("DashlonViewer.QZWebRow")
    Check "a row is no object by itself", Err.Number <> 0
    Err.Clear
    On Error GoTo 0
End Sub

Messages
Tables
Profiles
Records
Errors
If Wrong = 0 Then WScript.Quit 77
WScript.Quit 1
