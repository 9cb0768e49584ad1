// The component for hosts in C#: a thin wrapper around wynconfig/c.h, to be copied into a host.
//
// Texts are UTF-8 on their way in and out, whatever the system's own encoding is. Each thread has a
// view, texts and a store of its own. What a view raises can't go through the library: it is kept,
// told the component as a failure, and raised by the call in which it happened.
using System;
using System.Collections.Generic;
using System.Runtime.ExceptionServices;
using System.Runtime.InteropServices;
using System.Text;

namespace Wyn {

/// <summary>A failure of the component. A view may raise it with any number.</summary>
public class WynError : Exception {
    public const int Range = 9;
    public const int FileNotFound = 53;
    public const int NoSuchKey = 35601;
    public const int Handle = 2001;
    public const int User = 2002;

    /// <summary>Tells kinds of failures apart; c.h has those of the component.</summary>
    public int Number { get; }

    public WynError(int number, string description) : base(description) {
        Number = number;
    }
}

public enum Kind { Session, PartFormat }
public enum Key { Enter, Escape, Delete, F2, Tab }
public enum Answer { Ok = 1, Yes = 6, No = 7 }

/// <summary>How a dialog ended.</summary>
public struct Outcome {
    public bool Confirmed;
    /// <summary>The session's name.</summary>
    public string Name;
}

/// <summary>The texts and the operations.</summary>
public static class WynConfig {
    public static string Version => Native.Copied(Native.wyn_version_text());

    /// <summary>Takes the texts that come with the component.</summary>
    /// <param name="locale">such as "de"; empty: the user's own</param>
    /// <param name="folder">of the compiled texts; empty: where they are installed</param>
    public static void UseBundle(string locale = "", string folder = "") {
        Native.Run(() => Native.wyn_use_bundle(Native.In(folder), Native.In(locale)));
        ResourceManager.Forget();
    }

    /// <param name="root">the store's root with its trailing separator</param>
    public static void Init(string root) => Native.Run(() => Native.wyn_init(Native.In(root)));

    public static string GetDatasetSessionData() => Native.Text(Native.wyn_GetDatasetSessionData);

    public static List<string> GetDatasetFormatsData() =>
        Native.Texts(Native.wyn_GetDatasetFormatsData);

    public static bool MigrateSession(string migrationPath, string name) =>
        Native.Flag((out int migrated) =>
            Native.wyn_MigrateSession(Native.In(migrationPath), Native.In(name), out migrated));

    public static Outcome ShowMORAMConfigDlg(string name) =>
        Named(name, Native.wyn_showMORAMConfigDlg);

    public static Outcome ShowMORAMConfigDlgEX(string name, string sessionXml,
                                               IList<string> formats) {
        var texts = new GCHandle[formats.Count];
        var places = new IntPtr[formats.Count];
        try {
            for (int i = 0; i < places.Length; ++i) {
                texts[i] = GCHandle.Alloc(Native.In(formats[i]), GCHandleType.Pinned);
                places[i] = texts[i].AddrOfPinnedObject();
            }
            return Named(name, (byte[] given, out IntPtr after, out int result) =>
                Native.wyn_showMORAMConfigDlgEX(given, Native.In(sessionXml), places,
                    (UIntPtr)places.Length, out after, out result));
        } finally {
            foreach (GCHandle each in texts)
                if (each.IsAllocated) each.Free();
        }
    }

    public static Outcome ShowMORAMMaintenanceDlg(string name) =>
        Named(name, Native.wyn_showMORAMMaintenanceDlg);

    public static Outcome ShowAddMORAMConfigDlg(string name) =>
        Named(name, Native.wyn_showAddMORAMConfigDlg);

    public static Outcome ShowAddMORAMConfigDlgEX(string name) =>
        Named(name, Native.wyn_showAddMORAMConfigDlgEX);

    public static string ShowSessionManagerDlg(string sessions) =>
        Native.Text((out IntPtr picked) =>
            Native.wyn_showSessionManagerDlg(Native.In(sessions), out picked));

    public static string ShowConfigurableSessionManagerDlg(string sessions) =>
        Native.Text((out IntPtr after) =>
            Native.wyn_showConfigurableSessionManagerDlg(Native.In(sessions), out after));

    private delegate int NamedCall(byte[] name, out IntPtr nameAfter, out int result);

    private static Outcome Named(string name, NamedCall call) {
        IntPtr after = IntPtr.Zero;
        int result = 1;
        Native.Run(() => call(Native.In(name), out after, out result));
        return new Outcome { Confirmed = result == 0, Name = Native.Taken(after) };
    }
}

/// <summary>The texts of a host. What its methods raise comes back by the operation.</summary>
public abstract class ResourceManager {
    /// <summary>The text of a key, in the user's language.</summary>
    public abstract string GetString(string key);

    /// <summary>A text without which the dialogs do: help, what a view says by itself, what is told
    /// of work that takes its time. Empty, as here: no help, and the others in English.</summary>
    /// <param name="key">begins with "HELP_", "VIEW_" or "PROGRESS_"</param>
    public virtual string FindString(string key) => "";

    /// <summary>Takes all texts of this thread from there.</summary>
    public static void Install(ResourceManager manager) {
        var functions = new Native.ResourceFunctions {
            size = (UIntPtr)Marshal.SizeOf(typeof(Native.ResourceFunctions)),
            getString = Marshal.GetFunctionPointerForDelegate(getString),
            findString = Marshal.GetFunctionPointerForDelegate(findString)
        };
        Native.Run(() => Native.wyn_InitResourceManager(ref functions));
        installed = manager;
    }

    internal static void Forget() {
        installed = null;
    }

    // A thread has one, so that its functions need no context. They stay as long as the program.
    [ThreadStatic] private static ResourceManager installed;

    private static readonly Native.GiveText getString = (context, key, answer) =>
        Native.Guard(() => Give(answer, installed.GetString(Native.Copied(key))));

    private static readonly Native.GiveText findString = (context, key, answer) =>
        Native.Guard(() => Give(answer, installed.FindString(Native.Copied(key))));

    private static void Give(IntPtr answer, string text) =>
        Native.Run(() => Native.wyn_give(answer, Native.In(text)));
}

/// <summary>A message box.</summary>
public class Box {
    public string Text;
    public string Title;
    /// <summary>It has the buttons Yes and No.</summary>
    public bool IsQuestion;
}

/// <summary>A view of the host.</summary>
public abstract class View {
    /// <summary>Shows a form until it is closed. One that is still open then is cancelled.</summary>
    public abstract void ShowModal(Form form);

    /// <summary>Shows a message box. Here: the answer that changes nothing.</summary>
    public virtual Answer ShowMessage(Box box) => box.IsQuestion ? Answer.No : Answer.Ok;

    /// <summary>The path that the user picked; empty, as here: none.</summary>
    public virtual string Browse(string title, bool files) => "";

    /// <summary>Installs a view for this thread; null takes it away.</summary>
    public static void Install(View view) {
        // The functions stay as long as the program, so that the library can call them at any time.
        var functions = new Native.ViewFunctions {
            size = (UIntPtr)Marshal.SizeOf(typeof(Native.ViewFunctions)),
            showModal = Marshal.GetFunctionPointerForDelegate(showModal),
            showMessage = Marshal.GetFunctionPointerForDelegate(showMessage),
            browse = Marshal.GetFunctionPointerForDelegate(browse)
        };
        if (view == null) Native.Run(() => Native.wyn_install_no_view(IntPtr.Zero));
        else Native.Run(() => Native.wyn_install_view(ref functions));
        installed = view;
    }

    // A thread has one view, so that its functions need no context.
    [ThreadStatic] private static View installed;

    private static readonly Native.ShowModal showModal = (context, form) =>
        Native.Guard(() => installed.ShowModal(new Form(form)));

    private static readonly Native.ShowMessage showMessage = (context, place, answer) =>
        Native.Guard(() => {
            var box = (Native.Box)Marshal.PtrToStructure(place, typeof(Native.Box));
            var shown = new Box { Text = Native.Copied(box.text), Title = Native.Copied(box.title),
                                  IsQuestion = (box.style & 4) != 0 };
            Marshal.WriteInt32(answer, (int)installed.ShowMessage(shown));
        });

    private static readonly Native.Browse browse = (context, place, answer) =>
        Native.Guard(() => {
            var asked = (Native.Request)Marshal.PtrToStructure(place, typeof(Native.Request));
            string path = installed.Browse(Native.Copied(asked.title), asked.files != 0);
            Native.Run(() => Native.wyn_give(answer, Native.In(path)));
        });
}

/// <summary>A form on the screen, as long as the method lasts that it was handed to.</summary>
public class Form {
    private readonly IntPtr handle;

    internal Form(IntPtr handle) {
        this.handle = handle;
    }

    public string Name => Native.Text((out IntPtr text) => Native.wyn_form_name(handle, out text));
    public string Title => Native.Text((out IntPtr text) => Native.wyn_form_title(handle, out text));
    public bool IsOpen => Native.Flag((out int open) => Native.wyn_form_is_open(handle, out open));
    public List<string> ControlNames =>
        Native.Texts((out IntPtr names) => Native.wyn_form_controls(handle, out names));

    /// <summary>The control of a name; raises WynError.User when there is none.</summary>
    public Control this[string name] => new Control(Native.Handle((out IntPtr control) =>
        Native.wyn_find(handle, Native.In(name), out control)));

    public void Press(Key key) => Native.Run(() => Native.wyn_press(handle, (int)key));
    public void CloseByFrame() => Native.Run(() => Native.wyn_close_by_frame(handle));
}

/// <summary>A control of a form. What a person could not do raises WynError.User.</summary>
public class Control {
    private readonly IntPtr handle;

    internal Control(IntPtr handle) {
        this.handle = handle;
    }

    public string Text => Native.Text((out IntPtr text) => Native.wyn_text(handle, out text));
    public string Caption => Native.Text((out IntPtr text) => Native.wyn_caption(handle, out text));
    public List<string> Rows => Native.Texts((out IntPtr rows) => Native.wyn_rows(handle, out rows));
    /// <summary>What is told of it to whoever asks; empty when nothing is.</summary>
    public string Help => Native.Text((out IntPtr help) => Native.wyn_help(handle, out help));

    public void Click() => Native.Run(() => Native.wyn_click(handle));
    public void Type(string text) => Native.Run(() => Native.wyn_type(handle, Native.In(text)));
    public void Tick(bool value) => Native.Run(() => Native.wyn_tick(handle, value ? 1 : 0));
    public void Pick(string text) => Native.Run(() => Native.wyn_pick(handle, Native.In(text)));
    public void Choose(string text) => Native.Run(() => Native.wyn_choose(handle, Native.In(text)));
    public void ChangeTab(int index) => Native.Run(() => Native.wyn_change_tab(handle, index));
}

/// <summary>An object of the library, on its own thread. What is left open is closed as that
/// thread ends.</summary>
public abstract class Closable : IDisposable {
    internal readonly IntPtr handle;
    private bool isOpen = true;

    protected Closable(IntPtr handle) {
        this.handle = handle;
    }

    public void Dispose() {
        if (isOpen) Native.Run(() => Native.wyn_close(handle));
        isOpen = false;
    }
}

/// <summary>A session or a part format in memory.</summary>
public class Record : Closable {
    internal Record(IntPtr handle) : base(handle) {}

    public Record(Kind kind, string name) : base(Native.Handle((out IntPtr record) =>
        Native.wyn_record_new((int)kind, Native.In(name), out record))) {}

    public static Record Parse(string xml) => new Record(Native.Handle((out IntPtr record) =>
        Native.wyn_record_parse(Native.In(xml), out record)));

    public string Name => Native.Text((out IntPtr text) => Native.wyn_record_name(handle, out text));
    public string Xml => Native.Text((out IntPtr text) => Native.wyn_record_xml(handle, out text));

    /// <summary>A value; raises WynError.NoSuchKey when there is none.</summary>
    public string this[string key] {
        get => Native.Text((out IntPtr value) =>
            Native.wyn_record_get(handle, Native.In(key), out value));
        set => Native.Run(() => Native.wyn_record_set(handle, Native.In(key), Native.In(value)));
    }
}

/// <summary>What is in a store, without a dialog.</summary>
public class Store : Closable {
    /// <param name="root">with its trailing separator</param>
    public Store(string root) : base(Native.Handle((out IntPtr store) =>
        Native.wyn_store_open(Native.In(root), out store))) {}

    public List<string> Names(Kind kind) =>
        Native.Texts((out IntPtr names) => Native.wyn_store_names(handle, (int)kind, out names));

    public bool Has(Kind kind, string name) => Native.Flag((out int has) =>
        Native.wyn_store_has(handle, (int)kind, Native.In(name), out has));

    public Record Read(Kind kind, string name) => new Record(Native.Handle((out IntPtr record) =>
        Native.wyn_store_read(handle, (int)kind, Native.In(name), out record)));

    /// <summary>Writes records in place of the items that have their names: all of them or, after
    /// a failure, none.</summary>
    public void Save(params Record[] records) {
        IntPtr[] handles = Array.ConvertAll(records, each => each.handle);
        Native.Run(() => Native.wyn_store_save(handle, handles, (UIntPtr)handles.Length));
    }

    /// <summary>What is not as it should be: English sentences.</summary>
    public List<string> Check() =>
        Native.Texts((out IntPtr faults) => Native.wyn_store_check(handle, out faults));
}

/// <summary>The library itself.</summary>
internal static class Native {
    private const string Library = "libwynconfig.so.0";

    // ---------------------------------------------------------------------------------------------
    // Calls.

    // What was raised within each call that has not returned yet.
    [ThreadStatic] private static Stack<List<Exception>> running;

    /// Calls a function; raises what a view raised meanwhile, else its own failure.
    internal static void Run(Func<int> call) {
        if (running == null) running = new Stack<List<Exception>>();
        var raised = new List<Exception>();
        running.Push(raised);
        int status;
        try {
            status = call();
        } finally {
            running.Pop();
        }
        if (raised.Count > 0) ExceptionDispatchInfo.Capture(raised[0]).Throw();
        if (status != 0) throw LastError();
    }

    /// Calls a function of the host for the library: no exception leaves it.
    internal static int Guard(Action act) {
        try {
            act();
            return 0;
        } catch (Exception error) {
            running.Peek().Add(error);
            int number = error is WynError known ? known.Number : 5;
            return wyn_fail(number, Encoding.UTF8.GetBytes(error.Message + "\0"));
        }
    }

    private static WynError LastError() {
        var error = new Error { size = (UIntPtr)Marshal.SizeOf(typeof(Error)) };
        wyn_last_error(ref error);
        return new WynError(error.number, Copied(error.description));
    }

    // ---------------------------------------------------------------------------------------------
    // Values on their way in and out.

    internal delegate int PlaceCall(out IntPtr place);
    internal delegate int FlagCall(out int place);

    internal static byte[] In(string text) {
        if (text.IndexOf('\0') >= 0) throw new ArgumentException("A text has a zero character.");
        return new UTF8Encoding(false, true).GetBytes(text + "\0");
    }

    /// A text that stays the library's own.
    internal static string Copied(IntPtr text) {
        if (text == IntPtr.Zero) return "";
        int length = 0;
        while (Marshal.ReadByte(text, length) != 0) ++length;
        var bytes = new byte[length];
        Marshal.Copy(text, bytes, 0, length);
        return Encoding.UTF8.GetString(bytes);
    }

    /// A text that is given back.
    internal static string Taken(IntPtr text) {
        try {
            return Copied(text);
        } finally {
            wyn_free(text);
        }
    }

    internal static IntPtr Handle(PlaceCall call) {
        IntPtr place = IntPtr.Zero;
        Run(() => call(out place));
        return place;
    }

    internal static string Text(PlaceCall call) => Taken(Handle(call));

    internal static bool Flag(FlagCall call) {
        int place = 0;
        Run(() => call(out place));
        return place != 0;
    }

    internal static List<string> Texts(PlaceCall call) {
        IntPtr list = Handle(call);
        try {
            UIntPtr count = UIntPtr.Zero;
            Run(() => wyn_list_count(list, out count));
            var texts = new List<string>();
            for (ulong i = 0; i < (ulong)count; ++i) {
                var index = (UIntPtr)i;
                texts.Add(Text((out IntPtr text) => wyn_list_text(list, index, out text)));
            }
            return texts;
        } finally {
            Run(() => wyn_close(list));
        }
    }

    // ---------------------------------------------------------------------------------------------
    // What c.h declares.

    [StructLayout(LayoutKind.Sequential)]
    internal struct Error {
        public UIntPtr size;
        public int number;
        public IntPtr description;
        public IntPtr function;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct Box {
        public UIntPtr size;
        public IntPtr text;
        public IntPtr title;
        public IntPtr okCaption;
        public int style;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct Request {
        public UIntPtr size;
        public IntPtr title;
        public IntPtr okCaption;
        public IntPtr cancelCaption;
        public int files;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct ViewFunctions {
        public UIntPtr size;
        public IntPtr context;
        public IntPtr showModal;
        public IntPtr showMessage;
        public IntPtr browse;
        public IntPtr raise;
        public IntPtr deviceContext;
        public IntPtr release;
    }

    [StructLayout(LayoutKind.Sequential)]
    internal struct ResourceFunctions {
        public UIntPtr size;
        public IntPtr context;
        public IntPtr getString;
        public IntPtr getFont;
        public IntPtr release;
        public IntPtr findString;
    }

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int GiveText(IntPtr context, IntPtr key, IntPtr answer);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int ShowModal(IntPtr context, IntPtr form);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int ShowMessage(IntPtr context, IntPtr box, IntPtr answer);
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int Browse(IntPtr context, IntPtr request, IntPtr answer);

#pragma warning disable IDE1006  // their names are those of c.h
    [DllImport(Library)] internal static extern IntPtr wyn_version_text();
    [DllImport(Library)] private static extern int wyn_last_error(ref Error error);
    [DllImport(Library)] private static extern int wyn_fail(int number, byte[] description);
    [DllImport(Library)] private static extern void wyn_free(IntPtr text);
    [DllImport(Library)] internal static extern int wyn_close(IntPtr handle);
    [DllImport(Library)] private static extern int wyn_list_count(IntPtr list, out UIntPtr count);
    [DllImport(Library)]
    private static extern int wyn_list_text(IntPtr list, UIntPtr index, out IntPtr text);
    [DllImport(Library)] internal static extern int wyn_give(IntPtr answer, byte[] text);
    [DllImport(Library)]
    internal static extern int wyn_InitResourceManager(ref ResourceFunctions manager);
    [DllImport(Library)] internal static extern int wyn_use_bundle(byte[] folder, byte[] locale);
    [DllImport(Library)] internal static extern int wyn_init(byte[] root);
    [DllImport(Library)] internal static extern int wyn_GetDatasetSessionData(out IntPtr xml);
    [DllImport(Library)] internal static extern int wyn_GetDatasetFormatsData(out IntPtr texts);
    [DllImport(Library)]
    internal static extern int wyn_MigrateSession(byte[] path, byte[] name, out int migrated);
    [DllImport(Library)]
    internal static extern int wyn_showMORAMConfigDlg(byte[] name, out IntPtr after, out int result);
    [DllImport(Library)]
    internal static extern int wyn_showMORAMConfigDlgEX(byte[] name, byte[] session,
        IntPtr[] formats, UIntPtr count, out IntPtr after, out int result);
    [DllImport(Library)]
    internal static extern int wyn_showMORAMMaintenanceDlg(byte[] name, out IntPtr after,
        out int result);
    [DllImport(Library)]
    internal static extern int wyn_showAddMORAMConfigDlg(byte[] name, out IntPtr after,
        out int result);
    [DllImport(Library)]
    internal static extern int wyn_showAddMORAMConfigDlgEX(byte[] name, out IntPtr after,
        out int result);
    [DllImport(Library)]
    internal static extern int wyn_showSessionManagerDlg(byte[] sessions, out IntPtr picked);
    [DllImport(Library)]
    internal static extern int wyn_showConfigurableSessionManagerDlg(byte[] sessions,
        out IntPtr after);
    [DllImport(Library)]
    internal static extern int wyn_record_new(int kind, byte[] name, out IntPtr record);
    [DllImport(Library)] internal static extern int wyn_record_parse(byte[] xml, out IntPtr record);
    [DllImport(Library)] internal static extern int wyn_record_name(IntPtr record, out IntPtr name);
    [DllImport(Library)] internal static extern int wyn_record_xml(IntPtr record, out IntPtr xml);
    [DllImport(Library)]
    internal static extern int wyn_record_get(IntPtr record, byte[] key, out IntPtr value);
    [DllImport(Library)]
    internal static extern int wyn_record_set(IntPtr record, byte[] key, byte[] value);
    [DllImport(Library)] internal static extern int wyn_store_open(byte[] root, out IntPtr store);
    [DllImport(Library)]
    internal static extern int wyn_store_names(IntPtr store, int kind, out IntPtr names);
    [DllImport(Library)]
    internal static extern int wyn_store_has(IntPtr store, int kind, byte[] name, out int has);
    [DllImport(Library)]
    internal static extern int wyn_store_read(IntPtr store, int kind, byte[] name,
        out IntPtr record);
    [DllImport(Library)]
    internal static extern int wyn_store_save(IntPtr store, IntPtr[] records, UIntPtr count);
    [DllImport(Library)] internal static extern int wyn_store_check(IntPtr store, out IntPtr faults);
    [DllImport(Library)] internal static extern int wyn_install_view(ref ViewFunctions view);
    [DllImport(Library, EntryPoint = "wyn_install_view")]
    internal static extern int wyn_install_no_view(IntPtr none);
    [DllImport(Library)] internal static extern int wyn_form_name(IntPtr form, out IntPtr name);
    [DllImport(Library)] internal static extern int wyn_form_title(IntPtr form, out IntPtr title);
    [DllImport(Library)] internal static extern int wyn_form_is_open(IntPtr form, out int open);
    [DllImport(Library)] internal static extern int wyn_form_controls(IntPtr form, out IntPtr names);
    [DllImport(Library)]
    internal static extern int wyn_find(IntPtr form, byte[] name, out IntPtr control);
    [DllImport(Library)] internal static extern int wyn_press(IntPtr form, int key);
    [DllImport(Library)] internal static extern int wyn_close_by_frame(IntPtr form);
    [DllImport(Library)] internal static extern int wyn_text(IntPtr control, out IntPtr text);
    [DllImport(Library)] internal static extern int wyn_caption(IntPtr control, out IntPtr caption);
    [DllImport(Library)] internal static extern int wyn_help(IntPtr control, out IntPtr help);
    [DllImport(Library)] internal static extern int wyn_rows(IntPtr control, out IntPtr rows);
    [DllImport(Library)] internal static extern int wyn_click(IntPtr control);
    [DllImport(Library)] internal static extern int wyn_type(IntPtr control, byte[] text);
    [DllImport(Library)] internal static extern int wyn_tick(IntPtr control, int value);
    [DllImport(Library)] internal static extern int wyn_pick(IntPtr control, byte[] text);
    [DllImport(Library)] internal static extern int wyn_choose(IntPtr control, byte[] text);
    [DllImport(Library)] internal static extern int wyn_change_tab(IntPtr control, int index);
}

}  // namespace Wyn
