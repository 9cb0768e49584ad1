// The controls of a dialog as plain objects: each owns its state and announces changes. A view
// shows them; a dialog works the same with a view or with none.
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

enum class ControlKind {
    Edit,
    ListView,
    ComboBox,
    Tabs,
    OptionButton,
    CheckBox,
    Button,
    Label,
    Frame,
    Container,
    FormCaption,
    MsgBox,
    BrowseFolder,
    CommonDialog
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
    Control(Form& form, std::string_view name, ControlKind kind);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    std::string_view name() const { return m_name; }
    ControlKind kind() const { return m_kind; }
    Form& form() const { return m_form; }
    /// False for the kinds that only do something (caption bar, boxes) and never show themselves.
    bool hasFace() const;

    bool enabled() const;
    void setEnabled(bool enabled);
    bool visible() const;
    void setVisible(bool visible);
    /// Whether the Tab key stops here.
    bool tabStop() const;
    void setTabStop(bool tabStop);
    Background background() const;
    void setBackground(Background background);

    /// The font given to the control, or null for the view's own.
    std::shared_ptr<const Font> font() const;
    /// Raises `Error` (errc::NoSuchProperty) on a control without a face.
    void setFont(std::shared_ptr<const Font> font);

    /// Moves the focus here. Does nothing where the focus can't go (disabled, hidden, no face).
    void setFocus();
    bool hasFocus() const;
    /// Has the view show the control's present state again.
    void refresh();

    /// Events of the focus. They come from real moves of the focus alone.
    std::function<void()> GotFocus;
    std::function<void()> LostFocus;

  protected:
    /// Loads the form at the first touch.
    void touch() const;
    /// Tells the view, if one shows the form, that this control looks different now.
    void announce();
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
    CaptionedControl(Form& form, std::string_view name, ControlKind kind,
                     std::string_view designCaption);

    const std::string& caption() const;
    void setCaption(std::string caption);
    /// The caption that the control has before any text is fetched.
    std::string_view designCaption() const { return m_designCaption; }

  protected:
    void resetContent() override;

  private:
    std::string_view m_designCaption;
    std::string m_caption;
};

class WYNCONFIG_API Label : public CaptionedControl {
  public:
    Label(Form& form, std::string_view name, std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::Label, designCaption) {}
};

/// A frame around a group of controls.
class WYNCONFIG_API Frame : public CaptionedControl {
  public:
    Frame(Form& form, std::string_view name, std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::Frame, designCaption) {}
};

class WYNCONFIG_API Button : public CaptionedControl {
  public:
    Button(Form& form, std::string_view name, std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::Button, designCaption) {}

    std::function<void()> Click;
};

class WYNCONFIG_API CheckBox : public CaptionedControl {
  public:
    CheckBox(Form& form, std::string_view name, std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::CheckBox, designCaption) {}

    bool value() const;
    /// Ticks or unticks by code; that raises no `Click`.
    void setValue(bool value);

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
    OptionButton(Form& form, std::string_view name, const Frame& frame,
                 std::string_view designCaption = {})
        : CaptionedControl(form, name, ControlKind::OptionButton, designCaption), m_frame(&frame) {}
    OptionButton(Form& form, std::string_view name, std::string_view designCaption)
        : CaptionedControl(form, name, ControlKind::OptionButton, designCaption) {}

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
    Edit(Form& form, std::string_view name) : Control(form, name, ControlKind::Edit) {}

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
    std::string key;
    std::string text;  ///< heading
    int width = 0;     ///< in twips, a hint to the view
    std::string tag;   ///< description
};

/// A row of a list.
struct ListRow {
    std::string key;
    std::string text;
    std::shared_ptr<const Font> font;  ///< null: the list's own
};

/// A list of rows, each with a key of its own and a text. Rows stay in the order of insertion; at
/// most one is selected. Row numbers count from 1.
class WYNCONFIG_API ListView : public Control {
  public:
    ListView(Form& form, std::string_view name) : Control(form, name, ControlKind::ListView) {}

    void addColumn(ListColumn column);
    const std::vector<ListColumn>& columns() const;

    const std::vector<ListRow>& rows() const;
    std::size_t count() const { return rows().size(); }
    /// The row of a number; raises `Error` (errc::SubscriptRange) when there is none.
    const ListRow& row(std::size_t number) const;
    /// Exact, with regard to case.
    bool hasKey(const std::string& key) const;
    /// Adds a row at the end. Raises `Error` (errc::DuplicateKey) when the key is there already.
    void add(const std::string& key, const std::string& text,
             std::shared_ptr<const Font> rowFont = nullptr);
    void setRowText(std::size_t number, std::string text);
    /// Raises `Error` (errc::NoSuchKey) when no row has the key.
    void remove(const std::string& key);
    void clear();

    /// The selected row, or null.
    const ListRow* selectedItem() const;
    /// Number of the selected row, or 0.
    std::size_t selectedNumber() const;
    /// Selects by code, which raises no `ItemClick`. Raises `Error` when there is no such row.
    void select(const std::string& key);
    void select(std::size_t number);
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
    ComboBox(Form& form, std::string_view name) : Control(form, name, ControlKind::ComboBox) {}

    const std::vector<std::string>& items() const;
    void clear();
    void addItem(std::string text);
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
    Tabs(Form& form, std::string_view name, std::vector<std::string_view> designCaptions);

    int count() const { return static_cast<int>(m_designCaptions.size()); }
    // Each call with an index raises `Error` (errc::InvalidCall) when there is no such tab.
    const std::string& caption(int index) const;
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
    Container(Form& form, std::string_view name) : Control(form, name, ControlKind::Container) {}
    /// Puts the pane in front of its siblings. The tab that is on top decides what is seen.
    void bringToFront() { refresh(); }
};

/// The caption bar of a form: bound at load, released at unload; while bound its caption is the
/// window's title.
class WYNCONFIG_API FormCaption : public CaptionedControl {
  public:
    FormCaption(Form& form, std::string_view name)
        : CaptionedControl(form, name, ControlKind::FormCaption, {}) {}

    void bind(Form& form);
    void release();
    bool bound() const { return m_bound; }

  private:
    void resetContent() override;
    bool m_bound = false;
};

/// Shows the message boxes of a form.
class WYNCONFIG_API MsgBox : public Control {
  public:
    MsgBox(Form& form, std::string_view name) : Control(form, name, ControlKind::MsgBox) {}

    /// Shows a box and waits for its answer.
    /// @param style      buttons and icon, see `boxstyle`
    /// @param okCaption  caption of the OK button; empty in the Yes/No boxes
    /// @return number of the pressed button, see `answer`
    int ShowMsg(const std::string& text, int style, const std::string& title,
                const std::string& okCaption);
};

/// Asks for a path in a browse dialog.
class WYNCONFIG_API BrowseFolder : public Control {
  public:
    BrowseFolder(Form& form, std::string_view name)
        : Control(form, name, ControlKind::BrowseFolder) {}

    /// @param files  true: files may be picked as well as folders
    /// @return the path picked, or the empty string
    std::string browse(bool files, const std::string& title, const std::string& okCaption,
                       const std::string& cancelCaption, std::shared_ptr<const Font> font);
};

/// A file dialog of which only the title is ever set.
class WYNCONFIG_API CommonDialog : public CaptionedControl {
  public:
    CommonDialog(Form& form, std::string_view name)
        : CaptionedControl(form, name, ControlKind::CommonDialog, {}) {}
};

}  // namespace wynconfig
