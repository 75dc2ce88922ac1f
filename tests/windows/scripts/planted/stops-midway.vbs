' An error that nobody handles: the script host says nothing of it.
Dim Table
Set Table = CreateObject("DashlonViewer.QZWebTable")
Table.Jump
WScript.Quit 77
