/// @file
/// The controls of a dialog as plain objects: each owns its state and announces changes. A view
/// shows them; a dialog works the same with a view or with none.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "wynconfig/export.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig {

class Form;
class Control;
class UserInput;

/// What a control is: the class of the same name.
enum class ControlKind {
    Edit,          ///< a box for text
    ListView,      ///< a list of rows
    ComboBox,      ///< a drop-down list
    Tabs,          ///< the tabs in front of panes
    OptionButton,  ///< one of several choices
    CheckBox,      ///< on or off
    Button,        ///< does something when it is pressed
    Label,         ///< words, or a value that can't be changed
    Frame,         ///< a titled frame around others
    Container,     ///< the pane of a tab
    FormCaption,   ///< the title of the window; without a face, as all that follow
    MsgBox,        ///< shows message boxes
    BrowseFolder,  ///< asks for a path
    CommonDialog   ///< a file dialog that never comes up
};

/// The background colours that the dialogs use, by their role in the user's colour scheme.
enum class Background {
    Window,         ///< the system window colour
    InactiveBorder  ///< the system inactive border colour, for a box that is switched off
};

/// What every control has. Any access to a property loads the control's form first, if it is not
/// loaded; the name, the kind and the form can be asked without loading.
class WYNCONFIG_API Control {
  public:
    /// @param form  the form that the control stands on; it registers itself there
    /// @param name  its name; the text must outlive the control (a literal)
    /// @param kind  that of the derived class
    Control(Form& form, std::string_view name, ControlKind kind);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// By which code and tests find it, such as "txtDisplayName"; no two on a form have the same.
    std::string_view name() const { return m_name; }
    /// Tells which class to cast to.
    ControlKind kind() const { return m_kind; }
    /// The form that it stands on, which outlives it.
    Form& form() const { return m_form; }
    /// False for the kinds that only do something (caption bar, boxes) and never show themselves.
    bool hasFace() const;

    /// Whether a person may use it. True until code says otherwise.
    bool enabled() const;
    /// Switches it on or off. A focus that is here stays.
    void setEnabled(bool enabled);
    /// Whether it is shown, itself; what is around it may be hidden (see `isSeen`).
    bool visible() const;
    /// Shows or hides it.
    void setVisible(bool visible);
    /// Whether the Tab key stops here.
    bool tabStop() const;
    /// Has the Tab key stop here or pass by.
    void setTabStop(bool tabStop);
    /// The role of its background colour.
    Background background() const;
    /// Gives it a background colour by its role.
    void setBackground(Background background);

    /// The font given to the control, or null for the view's own.
    std::shared_ptr<const Font> font() const;
    /// Raises `Error` (errc::NoSuchProperty) on a control without a face.
    void setFont(std::shared_ptr<const Font> font);

    /// Moves the focus here. Does nothing where the focus can't go (disabled, hidden, no face).
    void setFocus();
    /// Whether it is the control of its form that has the focus.
    bool hasFocus() const;
    /// Has the view show the control's present state again.
    void refresh();

    /// Event: the focus came here. It comes from real moves of the focus alone.
    std::function<void()> GotFocus;
    /// Event: the focus went elsewhere; the one that gets it has it by then.
    std::function<void()> LostFocus;

  protected:
    /// Loads the form at the first touch.
    void touch() const;
    /// Tells the view, if one shows the form, that this control looks different now.
    void announce();
    /// Writes a property: loads the form, and announces when the value is another one.
    template <class T>
    void change(T& field, T value) {
        touch();
        if (field == value) return;
        field = std::move(value);
        announce();
    }

  private:
    friend class Form;
    /// Back to the state of design, when the form unloads.
    void reset();
    virtual void resetContent() {}

    std::string_view m_name;
    Form& m_form;
    ControlKind m_kind;
    bool m_enabled = true;
    bool m_visible = true;
    bool m_tabStop = true;
    Background m_background = Background::Window;
    std::shared_ptr<const Font> m_font;
};

/// A control with a caption: the common part of labels, buttons, frames and the like.
class WYNCONFIG_API CaptionedControl : public Control {
  public:
    /// Registers it on its form.
    /// @param form           the form that it stands on
    /// @param name           as for `Control`
    /// @param kind           that of the derived class
    /// @param designCaption  UTF-8; the text must outlive the control (a literal)
    CaptionedControl(Form& form, std::string_view name, ControlKind kind,
                     std::string_view designCaption);

    /// Its caption, UTF-8, with the mark of a key as mnemonic.h tells.
    const std::string& caption() const;
    /// Writes the caption; as it is read, so it is written.
    void setCaption(std::string caption);
    /// The caption that the control has before any text is fetched.
    std::string_view designCaption() const { return m_designCaption; }

  protected:
    /// Puts the caption of design back. A class that overrides it calls it.
    void resetContent() override;

  private:
    std::string_view m_designCaption;
    std::string m_caption;
};

/// Words beside a box, whose key leads to the box; or, where the layout puts a label in the place
/// of a box, a value that is shown as it is (see `isValue`).
class WYNCONFIG_API Label : public CaptionedControl {
  public:
    /// Arguments are those of `CaptionedControl`.
    Label(Form& form, std::string_view name, std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::Label, designCaption) {}
};

/// A frame around a group of controls. Which ones these are the layout says; hidden, it hides them.
class WYNCONFIG_API Frame : public CaptionedControl {
  public:
    /// Arguments are those of `CaptionedControl`.
    Frame(Form& form, std::string_view name, std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::Frame, designCaption) {}
};

/// A button that does something at once.
class WYNCONFIG_API Button : public CaptionedControl {
  public:
    /// Arguments are those of `CaptionedControl`.
    Button(Form& form, std::string_view name, std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::Button, designCaption) {}

    /// Event: a person pressed it, by the mouse or by a key.
    std::function<void()> Click;
};

/// A box that is ticked or not.
class WYNCONFIG_API CheckBox : public CaptionedControl {
  public:
    /// Arguments are those of `CaptionedControl`.
    CheckBox(Form& form, std::string_view name, std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::CheckBox, designCaption) {}

    /// Whether it is ticked.
    bool value() const;
    /// Ticks or unticks by code; that raises no `Click`.
    void setValue(bool value);

    /// Event: a person ticked or unticked it; `value` is the new one by then.
    std::function<void()> Click;

  private:
    friend class UserInput;
    void resetContent() override;
    bool m_value = false;
};

/// One of several choices. Options within the same frame exclude each other, and so do those that
/// stand on the form itself.
class WYNCONFIG_API OptionButton : public CaptionedControl {
  public:
    /// An option within a frame; the other arguments are those of `CaptionedControl`.
    OptionButton(Form& form, std::string_view name, const Frame& frame,
                 std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::OptionButton, designCaption), m_frame(&frame) {}
    /// An option on the form itself.
    OptionButton(Form& form, std::string_view name, std::string_view designCaption)
        : CaptionedControl(form, name, ControlKind::OptionButton, designCaption) {}

    /// Whether it is the chosen one of its frame; at first none is.
    bool value() const;
    /// Turning one on turns the others of its frame off.
    void setValue(bool value);
    /// The frame around it; null when it stands on the form itself.
    const Frame* frame() const { return m_frame; }

  private:
    void resetContent() override;
    const Frame* m_frame = nullptr;
    bool m_value = false;
};

/// A one-line box for text, without a length limit.
class WYNCONFIG_API Edit : public Control {
  public:
    /// Arguments are those of `Control`.
    Edit(Form& form, std::string_view name) : Control(form, name, ControlKind::Edit) {}

    /// What is in the box, UTF-8; empty at first.
    const std::string& text() const;
    /// Writes the text by code, which puts the caret at 0.
    void setText(std::string text);
    /// Where the selection starts, in characters from 0.
    std::size_t caret() const;
    /// Moves the caret; beyond the end it stands at the end.
    void setCaret(std::size_t caret);

  private:
    friend class UserInput;
    void resetContent() override;
    std::string m_text;
    std::size_t m_caret = 0;
};

/// A column of a list.
struct ListColumn {
    std::string key;   ///< names the column
    std::string text;  ///< heading
    int width = 0;     ///< in twips, a hint to the view
    std::string tag;   ///< description
};

/// A row of a list.
struct ListRow {
    std::string key;                   ///< tells it from the other rows, with regard to case
    std::string text;                  ///< what a person sees of it, as it stands
    std::shared_ptr<const Font> font;  ///< null: the list's own
};

/// A list of rows, each with a key of its own and a text. Rows stay in the order of insertion; at
/// most one is selected. Row numbers count from 1.
class WYNCONFIG_API ListView : public Control {
  public:
    /// Arguments are those of `Control`.
    ListView(Form& form, std::string_view name) : Control(form, name, ControlKind::ListView) {}

    /// Adds a column behind the others. Rows have one text all the same.
    void addColumn(ListColumn column);
    /// All columns; the dialogs have one in each list.
    const std::vector<ListColumn>& columns() const;

    /// All rows in their order.
    const std::vector<ListRow>& rows() const;
    /// How many rows there are; also the number of the last one.
    std::size_t count() const { return rows().size(); }
    /// The row of a number; raises `Error` (errc::SubscriptRange) when there is none.
    const ListRow& row(std::size_t number) const;
    /// Exact, with regard to case.
    bool hasKey(const std::string& key) const;
    /// Adds a row at the end. Raises `Error` (errc::DuplicateKey) when the key is there already.
    void add(const std::string& key, const std::string& text,
             std::shared_ptr<const Font> rowFont = nullptr);
    /// Writes a row's text; its key stays. Raises `Error` (errc::SubscriptRange) when there is
    /// none.
    void setRowText(std::size_t number, std::string text);
    /// Removes a row; when it was the selected one, none is. Raises `Error` (errc::NoSuchKey) when
    /// no row has the key.
    void remove(const std::string& key);
    /// Removes all rows; the columns stay.
    void clear();

    /// The selected row, or null.
    const ListRow* selectedItem() const;
    /// Number of the selected row, or 0.
    std::size_t selectedNumber() const;
    /// Selects by code, which raises no `ItemClick`. Raises `Error` (errc::NoSuchKey) when no row
    /// has the key.
    void select(const std::string& key);
    /// The same by the row's number; raises `Error` (errc::SubscriptRange) when there is none.
    void select(std::size_t number);
    /// Leaves no row selected.
    void unselect();

    /// Grows with every change of the rows, so that a view knows when to lay them out anew.
    std::size_t revision() const { return m_revision; }

    /// The user picked a row; it is the selected one by then.
    std::function<void()> ItemClick;

  private:
    friend class UserInput;
    void resetContent() override;
    void rowsChanged();
    std::size_t numberOf(const std::string& key) const;

    std::vector<ListColumn> m_columns;
    std::vector<ListRow> m_rows;
    std::unordered_set<std::string> m_keys;
    std::size_t m_selected = 0;
    std::size_t m_revision = 0;
};

/// A drop-down list of texts to choose one from. Indexes count from 0, -1 is none.
class WYNCONFIG_API ComboBox : public Control {
  public:
    /// Arguments are those of `Control`.
    ComboBox(Form& form, std::string_view name) : Control(form, name, ControlKind::ComboBox) {}

    /// The texts in their order; one may stand there twice.
    const std::vector<std::string>& items() const;
    /// Removes all items, and with them the choice.
    void clear();
    /// Adds an item at the end, which chooses nothing.
    void addItem(std::string text);
    /// Index of the chosen item, or -1.
    int selectedIndex() const;
    /// Raises `Error` (errc::InvalidCall) when there is no such item; -1 selects none.
    void setSelectedIndex(int index);
    /// The chosen text, or the empty string.
    std::string text() const;
    /// Index of the first item whose whole text is exactly this, or -1.
    int find(std::string_view text) const;
    /// Grows with every change of the items.
    std::size_t revision() const { return m_revision; }

  private:
    friend class UserInput;
    void resetContent() override;
    std::vector<std::string> m_items;
    int m_selected = -1;
    std::size_t m_revision = 0;
};

/// Tabs by index from 0, each with a caption; which pane belongs to which tab the layout says.
class WYNCONFIG_API Tabs : public Control {
  public:
    /// Registers them on their form. Each call with an index raises `Error` (errc::InvalidCall)
    /// when there is no such tab.
    /// @param form            the form that they stand on
    /// @param name            as for `Control`
    /// @param designCaptions  one of each tab, UTF-8; the texts must outlive the control
    Tabs(Form& form, std::string_view name, std::vector<std::string_view> designCaptions);

    /// How many tabs there are, for good.
    int count() const { return static_cast<int>(m_designCaptions.size()); }
    /// The caption of a tab, UTF-8, with the mark of a key.
    const std::string& caption(int index) const;
    /// Writes the caption of a tab.
    void setCaption(int index, std::string caption);
    /// The caption that the tab has before any text is fetched.
    std::string_view designCaption(int index) const;
    /// The tab on top.
    int tab() const;
    /// Brings a tab on top by code, which raises no `TabClick`.
    void setTab(int index);

    /// The user changed the tab; the argument is the previous one.
    std::function<void(int)> TabClick;

  private:
    friend class UserInput;
    void resetContent() override;
    void requireTab(int index) const;
    std::vector<std::string_view> m_designCaptions;
    std::vector<std::string> m_captions;
    int m_tab = 0;
};

/// The pane of one tab.
class WYNCONFIG_API Container : public Control {
  public:
    /// Arguments are those of `Control`.
    Container(Form& form, std::string_view name) : Control(form, name, ControlKind::Container) {}
    /// Puts the pane in front of its siblings. The tab that is on top decides what is seen.
    void bringToFront() { refresh(); }
};

/// The caption bar of a form: bound at load, released at unload; while bound its caption is the
/// window's title.
class WYNCONFIG_API FormCaption : public CaptionedControl {
  public:
    /// Arguments are those of `Control`; its caption is empty at first.
    FormCaption(Form& form, std::string_view name)
        : CaptionedControl(form, name, ControlKind::FormCaption, {}) {}

    /// Has the window take its title from here, where that is not empty.
    /// @param form  the form that it stands on
    void bind(Form& form);
    /// Gives the window's title back to the form's own caption.
    void release();
    /// Whether the window takes its title from here.
    bool bound() const { return m_bound; }

  private:
    void resetContent() override;
    bool m_bound = false;
};

/// Shows the message boxes of a form.
class WYNCONFIG_API MsgBox : public Control {
  public:
    /// Arguments are those of `Control`.
    MsgBox(Form& form, std::string_view name) : Control(form, name, ControlKind::MsgBox) {}

    /// Shows a box and waits for its answer. Raises what the view raises.
    /// @param text       what it says, UTF-8
    /// @param style      buttons and icon, see `boxstyle`
    /// @param title      its title; a mark of a key in it is not shown
    /// @param okCaption  caption of the OK button; empty in the Yes/No boxes
    /// @return number of the pressed button, see `answer`
    int ShowMsg(const std::string& text, int style, const std::string& title,
                const std::string& okCaption);
};

/// Asks for a path in a browse dialog.
class WYNCONFIG_API BrowseFolder : public Control {
  public:
    /// Arguments are those of `Control`.
    BrowseFolder(Form& form, std::string_view name)
        : Control(form, name, ControlKind::BrowseFolder) {}

    /// Lets the user pick a path. Raises what the view raises.
    /// @param files          true: files may be picked as well as folders
    /// @param title          its title
    /// @param okCaption      caption of the button that picks; empty: the view's own word
    /// @param cancelCaption  caption of the button that cancels; empty: the view's own word
    /// @param font           null: the view's own
    /// @return the path picked, UTF-8, or the empty string
    std::string browse(bool files, const std::string& title, const std::string& okCaption,
                       const std::string& cancelCaption, std::shared_ptr<const Font> font);
};

/// A file dialog of which only the title is ever set.
class WYNCONFIG_API CommonDialog : public CaptionedControl {
  public:
    /// Arguments are those of `Control`.
    CommonDialog(Form& form, std::string_view name)
        : CaptionedControl(form, name, ControlKind::CommonDialog, {}) {}
};

}  // namespace wynconfig
