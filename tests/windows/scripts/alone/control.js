// Every member of the control, late bound, from a script without a window. Ends with 77 when all is right.
var wrong = 0;
// Engines pass some results on as they are: the last digits of DISP_E_BADPARAMCOUNT.
var plainCodes = { 450: 14 };

function check(what, condition) {
    if (condition) return;
    WScript.Echo("FAILED: " + what);
    wrong++;
}

function checkError(what, number, body) {
    try {
        body();
        check(what + ": no error", false);
    } catch (error) {
        var found = error.number & 0xFFFF;
        check(what + ": number " + found + " " + error.description, found == number || found == plainCodes[number]);
    }
}

var viewer = new ActiveXObject("DashlonViewer.DLViewer");
var message = new ActiveXObject("DashlonViewer.QZWebMessage");
checkError("units before the start", 1004, function () { viewer.SetSessionBUIDList(["12"]); });

var asked = 0;
viewer.Initialize({
    LanguageID: "SP",
    Caption: function (key) {
        asked++;
        return "<" + key + ">";
    }
});
check("the transport is asked for captions", asked > 0);
viewer.SetRegionalFormatInfo("EN");
viewer.SetSessionBUIDList(["12", 40]);
viewer.ReceiveProfileResponse("<WebData></WebData>", "GetProfileList");
viewer.ReceiveProfileResponse("<WebData></WebData>", "GetProfiles");
viewer.ResizeControls();
message.Name = "Other";
viewer.ReceiveMessage(message, 0, "");
checkError("no arguments", 450, function () { viewer.ReceiveMessage(); });
checkError("a member that is not there", 438, function () { viewer.Jump(); });
viewer.StopControl();
viewer.StopControl();
checkError("a call after the end", 1004, function () { viewer.ResizeControls(); });
WScript.Quit(wrong == 0 ? 77 : 1);
