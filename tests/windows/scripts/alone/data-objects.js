// Every data object and every member, late bound, as a script uses them. Ends with 77 when all is right.
var wrong = 0;
// Engines pass some results on as they are: the last digits of DISP_E_TYPEMISMATCH and DISP_E_BADPARAMCOUNT.
var plainCodes = { 13: 5, 450: 14 };

function check(what, condition) {
    if (condition) return;
    WScript.Echo("FAILED: " + what);
    wrong++;
}

// What the body throws, by number and text.
function checkError(what, number, text, body) {
    try {
        body();
        check(what + ": no error", false);
    } catch (error) {
        var found = error.number & 0xFFFF;
        check(what + ": number " + found + " " + error.description, found == number || found == plainCodes[number]);
        if (text) check(what + ": text " + error.description, error.description == text);
    }
}

function messages() {
    var message = new ActiveXObject("DashlonViewer.QZWebMessage");
    message.Name = "DLVData";
    message.Property("tqDBRefreshInterval") = 15;
    check("a message's name", message.Name == "DLVData");
    check("a property", message.Property("tqDBRefreshInterval") == "15");
    check("no data item yet", message.DataCount == 0);
    var data = message.Data(1);
    check("the first data item is made", message.DataCount == 1);
    var table = data.AddTable("BusinessUnits");
    var row = table.AddRow();
    row.Field("BUID") = "12";
    row.Field("BUDesc") = "North & \u00e9";
    check("one table", data.TableCount == 1);
    check("one row", data.Table("BusinessUnits").RowCount == 1);
    check("a field", table.Row(1).Field("BUDesc") == "North & \u00e9");
    table.Name = "Units";
    check("a table's new name", table.Name == "Units");
    var copy = new ActiveXObject("DashlonViewer.QZWebMessage");
    copy.LoadText(message.Text);
    check("a copy through the text", copy.Text == message.Text);
    var item = new ActiveXObject("DashlonViewer.QZWebData");
    item.LoadText(data.Text);
    check("a data item through its text", item.Text == data.Text);
    var other = new ActiveXObject("DashlonViewer.QZWebTable");
    other.LoadText(table.Text);
    check("a table through its text", other.Text == table.Text);
}

function profiles() {
    var set = new ActiveXObject("DashlonViewer.QZWebProfiles");
    var profile = set.Add("Default");
    check("one profile", set.Count == 1 && set.Exists("Default") && !set.Exists("default"));
    check("by its number", set.Item(1).Name == "Default");
    check("by the default member", set(1).Name == "Default");
    var section = profile.AddSection("DLVSelect", "BUList,SummaryOption");
    check("a section", profile.HasSection("DLVSelect"));
    check("a section's name and fields", section.Name + section.Fields == "DLVSelectBUList,SummaryOption");
    section.AddRow().Field("BUList") = "12|40";
    check("a section's row", profile.Section("DLVSelect").Row(1).Field("BUList") == "12|40");
    section.RemoveRow(1);
    check("no row any more", section.RowCount == 0);
    var other = new ActiveXObject("DashlonViewer.QZWebProfile");
    other.LoadText(profile.Text);
    other.Name = "Other";
    check("a profile's name", other.Name == "Other");
    set.LoadText(set.Text);
    check("a set through its text", set.Count == 1);
}

function records() {
    var names = ["BUID", "JobType", "JobClass", "JobStatus", "Info", "JeopardyThreshold", "ProfileName", "UserID",
                 "ApplicationID", "ProfilesXML", "ResultXML"];
    var record = new ActiveXObject("DashlonViewer.DLVParams");
    for (var i = 0; i < names.length; i++) record[names[i]] = "value " + i;
    for (var j = 0; j < names.length; j++) check("the record's " + names[j], record[names[j]] == "value " + j);
}

function errors() {
    var message = new ActiveXObject("DashlonViewer.QZWebMessage");
    var data = message.Data(1);
    var table = data.AddTable("Units");
    checkError("a table that is not there", 1001, "Table none is missing", function () { return data.Table("none"); });
    checkError("a row that is not there", 9, "Subscript out of range", function () { return table.Row(1); });
    checkError("a document without its end", 1003, "", function () { table.LoadText("<WebTable Name='x'>"); });
    checkError("too few arguments", 450, "", function () { message.LoadText(); });
    checkError("a text for a number", 13, "", function () { return table.Row("x"); });
    checkError("a member that is not there", 438, "", function () { message.Jump(); });
}

messages();
profiles();
records();
errors();
WScript.Quit(wrong == 0 ? 77 : 1);
