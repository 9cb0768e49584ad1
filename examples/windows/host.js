// A host in JScript: cscript host.js [ROOT]. Register the library first, see host.vbs. JScript has no
// variables by reference: what an operation gives back by its name is not to be had here.
var files = new ActiveXObject("Scripting.FileSystemObject");
var root = WScript.Arguments.length > 0 ? WScript.Arguments(0) : files.GetAbsolutePathName(".") + "\\parts\\";
if (!files.FolderExists(root)) files.CreateFolder(root);

var texts = new ActiveXObject("WYNConfig.ResourceManager");
texts.Language = "de";
var config = new ActiveXObject("WYNConfig.WYNConfig");
config.InitResourceManager(texts);
config.init(root);
WScript.Echo("The button to confirm reads " + texts.GetString("BUTTON_CANCEL"));

var store = new ActiveXObject("WYNConfig.Store");
store.Root = root;
WScript.Echo("Sessions: " + new VBArray(store.Sessions).toArray().length);

// A session that the host keeps itself goes in as XML text, and part formats as an array.
var session = '<dataset version="1" type="MORAM" name="KEPT BY THE HOST" key="Element">' +
    "<column>Element</column><column>Data</column></dataset>";
var result = config.showMORAMConfigDlgEX("kept by the host", session, []);
WScript.Echo("The session dialog gave " + result);

var record = new ActiveXObject("WYNConfig.Dataset");
record.LoadXML(config.GetDatasetSessionData());
WScript.Echo("In memory is " + record.Name);
