' A script that cannot be read.
If Then Else (
WScript.Quit 77
