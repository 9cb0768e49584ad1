// A host in C# with texts of its own: prints what a dialog shows of them, and the help of a box.
using System;
using Wyn;

internal class OwnTexts : ResourceManager {
    public override string GetString(string key) => "own " + key;
    public override string FindString(string key) =>
        key == "HELP_SESSION_NAME" ? "Größe" : throw new InvalidOperationException(key);
}

internal class Reader : View {
    public override void ShowModal(Form form) {
        Console.WriteLine(form.Title);
        Console.WriteLine(form["txtName"].Help);
        Console.WriteLine("(" + form["cboConfigs"].Help + ")");
        form["btnCancel"].Click();
    }
}

internal static class Texts {
    private static void Main(string[] arguments) {
        ResourceManager.Install(new OwnTexts());
        WynConfig.Init(arguments[0] + "/");
        View.Install(new Reader());
        try {
            WynConfig.ShowAddMORAMConfigDlg("");
        } catch (InvalidOperationException error) {
            Console.WriteLine("raised: " + error.Message);
        }
        WynConfig.UseBundle("en");
        WynConfig.ShowAddMORAMConfigDlg("");
    }
}
