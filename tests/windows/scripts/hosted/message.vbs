' A message of the script's own making: classes with the members that are read of one.
Option Explicit

Class OwnRow
    Private Names
    Private Texts
    Public Sub Fill(Columns, Fields)
        Names = Split(Columns, ",")
        Texts = Split(Fields, ",")
    End Sub
    Public Property Get Field(Name)
        Dim At
        For At = 0 To UBound(Names)
            If Names(At) = Name Then Field = Texts(At)
        Next
    End Property
End Class

Class OwnTable
    Private Columns
    Private Lines
    Public Sub Fill(NewColumns, NewLines)
        Columns = NewColumns
        Lines = Split(NewLines, ";")
    End Sub
    Public Property Get RowCount()
        RowCount = UBound(Lines) + 1
    End Property
    Public Function Row(Number)
        Set Row = New OwnRow
        Row.Fill Columns, Lines(Number - 1)
    End Function
End Class

Class OwnData
    Public Function Table(Name)
        Set Table = New OwnTable
        Select Case Name
            Case "BusinessUnits"
                Table.Fill "BUID,BUDesc,ParentBUID", "12,North,#;40,South,12"
            Case "JobTypes"
                Table.Fill "JobType,JobTypeDesc", "I,Install"
            Case "JobClasses"
                Table.Fill "JobClass,JobClassDesc", "R,Residential"
            Case "RegionalFormats"
                Table.Fill "languageCode,timeformat", "EN,hh:mm AM/PM"
            Case "BUGeneralInfo"
                Table.Fill "BUID,BUDesc,TechCount,HoursWorked,HoursRemaining", "12,North,4,16,8;40,South,3,9,6"
            Case Else
                Table.Fill "BUID,JobType,JobClass,WOOpen,WOWarning,WOJeopardy,WOLate,WOCompleted,WOCanceled," & _
                    "WONotDone,PtsOpen,PtsWarning,PtsJeopardy,PtsLate,PtsCompleted,PtsCanceled,PtsNotDone", _
                    "12,I,R,1,2,3,4,5,6,7,8,9,10,11,12,13,14"
        End Select
    End Function
End Class

Class QZWebMessage
    Public Property Get Name()
        Name = "DLVData"
    End Property
    Public Property Get Property(Key)
        If Key = "tqDBRefreshInterval" Then Property = "15"
    End Property
    Public Function Data(Number)
        Set Data = New OwnData
    End Function
End Class

Viewer.Initialize Nothing
Viewer.SetSessionBUIDList Array("12", "40")
Viewer.ReceiveProfileResponse "<WebData><ProfileIDs></ProfileIDs></WebData>", "GetProfileList"
Viewer.ReceiveProfileResponse "<WebData></WebData>", "GetProfiles"
Viewer.ReceiveMessage New QZWebMessage, 0, ""
Host.Note "done"
