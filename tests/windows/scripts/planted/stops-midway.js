// An error that nobody handles: the script host says nothing of it.
var table = new ActiveXObject("DashlonViewer.QZWebTable");
table.Jump();
WScript.Quit(77);
