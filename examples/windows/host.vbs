' A host in VBScript. Register the library first, for yourself alone: regsvr32 /n /i:user wynconfig.dll
'   cscript host.vbs [ROOT]
' ROOT is the folder of the store, with a backslash at its end.
Option Explicit

' Any object with GetString and GetFont may bring the texts; FindString gives help, and may be missing.
' This one asks the component's own for them, and counts.
Class CountingTexts
    Public Inner
    Public Asked

    Public Function GetString(ByRef key)
        Asked = Asked + 1
        GetString = Inner.GetString(key)
    End Function

    Public Function FindString(ByRef key)
        FindString = Inner.FindString(key)
    End Function

    Public Function GetFont(ByRef handle)
        Set GetFont = Inner.GetFont(handle)
    End Function
End Class

Dim files, root, texts, config, store, name, result, each1, record, formats
Set files = CreateObject("Scripting.FileSystemObject")
root = files.GetAbsolutePathName(".") & "\parts\"
If WScript.Arguments.Count > 0 Then root = WScript.Arguments(0)
If Not files.FolderExists(root) Then files.CreateFolder root

Set texts = New CountingTexts
Set texts.Inner = CreateObject("WYNConfig.ResourceManager")
texts.Inner.Language = "en"

Set config = CreateObject("WYNConfig.WYNConfig")
config.InitResourceManager texts
config.init root
WScript.Echo "The store is made: " & files.FileExists(root & "MORAM\MORAM.vls")

name = "from a script"
result = config.showAddMORAMConfigDlg(name)
WScript.Echo "Adding a session gave " & result & " and '" & name & "'"

name = ""
result = config.showMORAMMaintenanceDlg(name)
WScript.Echo "Picking a session gave " & result & " and '" & name & "'"

Set store = CreateObject("WYNConfig.Store")
store.Root = root
For Each each1 In store.Sessions
    Set record = store.Session(each1)
    WScript.Echo "Session " & record.Name & " has " & record.Count & " values"
Next

' Scripts know arrays of values alone: Elements makes one of the array of texts.
formats = config.GetDatasetFormatsData()
WScript.Echo "Part formats in memory: an array of type " & VarType(formats)
For Each each1 In store.Elements(formats)
    WScript.Echo "Its text has " & Len(each1) & " characters"
Next
WScript.Echo "Texts were asked for: " & (texts.Asked > 10)
