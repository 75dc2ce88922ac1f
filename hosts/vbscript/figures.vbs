' The control from a script: a message is made of data objects and pushed. The control must be registered:
'
'     regsvr32 DashlonViewer.ocx
'     cscript //nologo figures.vbs
'
' A script without a window shows nothing and hears no events; everything else is as in a host with a form.
Option Explicit

Dim Viewer, Message, Tables, Units(0)

Set Message = CreateObject("DashlonViewer.QZWebMessage")
Message.Name = "DLVData"
Message.Property("tqDBRefreshInterval") = 15
Set Tables = Message.Data(1)

AddTable "BusinessUnits", Array("BUID", "BUDesc", "ParentBUID"), Array(Array(11, "North", "#"), Array(12, "South", "#"))
AddTable "JobTypes", Array("JobType", "JobTypeDesc"), Array(Array("I", "Installation"))
AddTable "JobClasses", Array("JobClass", "JobClassDesc"), Array(Array("R", "Residential"))
AddTable "RegionalFormats", Array("languageCode", "timeformat"), Array(Array("EN", "hh:mm AM/PM"))
AddTable "BUGeneralInfo", Array("BUID", "BUDesc", "TechCount", "HoursWorked", "HoursRemaining"), _
    Array(Array(11, "North", 4, 12.5, 20), Array(12, "South", 2, 6, 10))
AddTable "BUDetailsInfo", Array("BUID", "JobType", "JobClass", "WOOpen", "WOWarning", "WOJeopardy", "WOLate", _
    "WOCompleted", "WOCanceled", "WONotDone", "PtsOpen", "PtsWarning", "PtsJeopardy", "PtsLate", "PtsCompleted", _
    "PtsCanceled", "PtsNotDone"), Array(Array(11, "I", "R", 7, 1, 0, 2, 9, 0, 0, 70, 10, 0, 20, 90, 0, 0))

Set Viewer = CreateObject("DashlonViewer.DLViewer")
Units(0) = "11"
Viewer.Initialize Nothing
Viewer.SetRegionalFormatInfo "EN"
Viewer.SetSessionBUIDList Units
Viewer.ReceiveProfileResponse "<WebData></WebData>", "GetProfileList"
Viewer.ReceiveProfileResponse "<WebData></WebData>", "GetProfiles"
Viewer.ReceiveMessage Message, 0, ""
Viewer.StopControl

WScript.Echo Tables.TableCount & " tables, " & Tables.Table("BusinessUnits").RowCount & " units, the second is " & _
    Tables.Table("BusinessUnits").Row(2)("BUDesc")
' The script host ends with 0 also after an error: success has a number of its own.
WScript.Quit 77

Sub AddTable(Name, Columns, Rows)
    Dim Values, Row, Column
    ReDim Values(UBound(Rows), UBound(Columns))
    For Row = 0 To UBound(Rows)
        For Column = 0 To UBound(Columns)
            Values(Row, Column) = Rows(Row)(Column)
        Next
    Next
    Tables.AddTable(Name).Fill Columns, Values
End Sub
