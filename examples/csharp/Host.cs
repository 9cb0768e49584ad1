// A host in C#: host.exe FOLDER NAME PROGRAM adds a session for a program to the store in a folder. It
// has a view of its own without a screen, which takes the dialogs by what these arguments say.
using System;
using System.IO;
using System.Text;
using Wyn;

internal class ByArguments : View {
    private readonly string name;
    private readonly string program;

    internal ByArguments(string name, string program) {
        this.name = name;
        this.program = program;
    }

    public override void ShowModal(Form form) {
        Console.WriteLine("== " + form.Title);
        if (form.Name == "frmAddMORAMConfig") Name(form);
        else if (form.Name == "frmMORAMConfig") Configure(form);
        else throw new NotSupportedException("Nobody has told what to do in " + form.Name + ".");
    }

    public override Answer ShowMessage(Box box) {
        Console.WriteLine("!! " + box.Text);
        return base.ShowMessage(box);
    }

    private void Name(Form form) {
        form["txtName"].Type(name);
        form.Press(Key.Enter);
        if (form.IsOpen) form["btnCancel"].Click();  // it does not take this name
    }

    private void Configure(Form form) {
        form["txtProgramPath"].Type(program);
        if (!File.Exists(program)) throw new FileNotFoundException("There is no " + program + ".");
        form["SSTab2"].ChangeTab(1);
        form["lstAvailableFormats"].Pick("PLAIN");
        form["btnAdd"].Click();
        form["btnOK"].Click();
    }
}

internal static class Host {
    private static int Main(string[] arguments) {
        if (arguments.Length != 3) {
            Console.Error.WriteLine("usage: host.exe FOLDER NAME PROGRAM");
            return 2;
        }
        Console.OutputEncoding = new UTF8Encoding(false);
        string root = arguments[0] + "/";
        WynConfig.UseBundle("en");
        WynConfig.Init(root);
        using (var store = new Store(root)) {
            if (!store.Has(Kind.PartFormat, "PLAIN")) PutFormat(store);
            Console.WriteLine("sessions: " + string.Join(", ", store.Names(Kind.Session)));
            View.Install(new ByArguments(arguments[1], arguments[2]));
            Outcome added;
            try {
                added = WynConfig.ShowAddMORAMConfigDlg("");
            } catch (FileNotFoundException error) {  // of the view, and back through the library
                Console.WriteLine("cancelled: " + error.Message);
                return 1;
            }
            if (!added.Confirmed) {
                Console.WriteLine("nothing was added");
                return 1;
            }
            using (Record session = store.Read(Kind.Session, added.Name))
                Console.WriteLine(session.Name + " launches " + session["ProgramPath"]);
            Console.WriteLine("sessions: " + string.Join(", ", store.Names(Kind.Session)));
        }
        return 0;
    }

    private static void PutFormat(Store store) {
        using (var format = new Record(Kind.PartFormat, "PLAIN")) {
            format["Record"] = "<Part #><TAB><Quantity><CR><LF>";
            format["MaxRecords"] = "100";
            store.Save(format);
        }
    }
}
