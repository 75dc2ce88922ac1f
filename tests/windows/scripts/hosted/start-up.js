// The dialogue of a start-up, each request answered inside its event.
function Viewer_GetProfileList(params) {
    Host.Note('GetProfileList "' + params.ProfileName + '"');
    Viewer.ReceiveProfileResponse(
        "<WebData><ProfileIDs><ProfileID>Default</ProfileID></ProfileIDs></WebData>", "GetProfileList");
}

function Viewer_GetProfiles(params) {
    Host.Note('GetProfiles "' + params.ProfileName + '"');
    Viewer.ReceiveProfileResponse("<WebData></WebData>", "GetProfiles");
}

function Viewer_PutProfiles(params) {
    var profiles = new ActiveXObject("DashlonViewer.QZWebProfiles");
    profiles.LoadText(params.ProfilesXML);
    Host.Note("PutProfiles " + profiles.Count + ' "' + profiles.Item(1).Name + '"');
    Viewer.ReceiveProfileResponse("<WebData></WebData>", "PutProfiles");
}

function Viewer_PostRequest(params) {
    Host.Note('PostRequest "' + params + '"');
    if (Host.Text != "") {
        var message = new ActiveXObject("DashlonViewer.QZWebMessage");
        message.LoadText(Host.Text);
        Viewer.ReceiveMessage(message, 0, "");
    }
}

Viewer.Initialize({ Caption: function (key) { return ""; } });
Viewer.SetRegionalFormatInfo("EN");
Viewer.SetSessionBUIDList(["12", "40"]);
Host.Note("done");
