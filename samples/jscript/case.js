// Shows the processes of one feature case inside the host's main window. An array of this language is an object of
// its own, which the component takes as well.
//
//   cscript //nologo case.js [/wait]
//
// With /wait the window stays until it is closed. Both libraries, Pellmark.dll and Norvex.dll, must be registered.
var host = new ActiveXObject("Norvex.Application");
var manager = new ActiveXObject("Pellmark.Application");
var store = new ActiveXObject("Norvex.KnowledgeBaseService").FeatureCaseStore;

var metric = 71;
var featureType = store.FeatureTypes(-1, "", metric).Field("_Id");
var first = store.Values(featureType).Field("_Id");

manager.ShowWindowProcessCaseView(host, [first], metric, -1, "", featureType);
WScript.Echo("Shown for one value of feature type " + featureType);

try {
    manager.ShowWindowProcessCaseView(host, 12);
} catch (error) {
    WScript.Echo("A number in the array's place: error " + (error.number & 0xFFFF));
}

if (WScript.Arguments.Count() > 0 && WScript.Arguments.Item(0) === "/wait") {
    host.Run();
}
manager.Dispose();
