// A dialog as an object: its controls, when it loads and unloads, and how it is shown.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/controls.h"
#include "wynconfig/export.h"
#include "wynconfig/layout.h"

namespace wynconfig {

class UserInput;

/// What a view learns about a form that it shows.
class WYNCONFIG_API FormObserver {
  public:
    virtual ~FormObserver() = default;
    /// A control, or with null the form itself (caption, size), looks different now. Called many
    /// times over in a row; an observer does well to collect and paint once.
    virtual void changed(Control* control) = 0;
    /// Code moved the focus to this control.
    virtual void focusMoved(Control& control) = 0;
    /// The form is gone from the screen; the observer must not touch it from here on.
    virtual void unloaded() = 0;
};

/// The base of all dialogs. A form loads at the first touch of a control, once, and not again until
/// it was unloaded; it unloads once, however often it is told to. At unload its controls go back to
/// their state of design, while the fields of the dialog stay.
class WYNCONFIG_API Form {
  public:
    /// @param name  the form's name; the text must outlive the form (a literal)
    explicit Form(std::string_view name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    std::string_view name() const { return m_name; }
    /// The controls in the order of their declaration.
    const std::vector<Control*>& controls() const { return m_controls; }
    /// The control of a name, or null. Does not load the form.
    Control* control(std::string_view name) const;

    /// The form's own caption.
    const std::string& caption() const { return m_caption; }
    void setCaption(std::string caption);
    /// What the title bar shows: the bound caption bar's text, or else the form's own caption.
    std::string title() const;

    std::shared_ptr<const Font> font() const { return m_font; }
    void setFont(std::shared_ptr<const Font> font);
    /// Device context handle, as the view gives it.
    long hDC();

    /// The form's size in twips (1/1440 inch); 0 while nothing set it, and then the view decides.
    int width() const { return m_width; }
    int height() const { return m_height; }
    void setSize(int width, int height);

    bool loaded() const { return m_state != State::Unloaded; }
    bool visible() const { return m_visible; }
    void Hide();
    /// Shows the form modally and returns when it has unloaded.
    void Show();
    void Unload();

    /// The control that has the focus, or null.
    Control* focused() const { return m_focused; }
    /// How the dialog is laid out; built at the first call.
    const FormLayout& layout();

    /// Whoever shows the form watches it here; null ends that.
    void observe(FormObserver* observer) { m_observer = observer; }

  protected:
    virtual void Form_Load() {}
    virtual void Form_Unload() {}
    virtual void Form_Activate() {}
    virtual void Form_Resize() {}
    virtual FormLayout declareLayout() = 0;

  private:
    friend class Control;
    friend class UserInput;

    enum class State { Unloaded, Loading, Loaded, Unloading };

    void touch() {
        if (m_state == State::Unloaded) load();
    }
    void load();
    void announce(Control* control);
    void moveFocus(Control& control, bool byCode);
    bool canTakeFocus(const Control& control) const;
    /// Runs an event handler. A failure that nobody handled ends the handler, without a box.
    template <class Handler>
    void raise(const Handler& handler) noexcept;

    std::string_view m_name;
    std::vector<Control*> m_controls;
    std::string m_caption;
    std::shared_ptr<const Font> m_font;
    std::optional<FormLayout> m_layout;
    FormObserver* m_observer = nullptr;
    Control* m_focused = nullptr;
    State m_state = State::Unloaded;
    bool m_visible = false;
    int m_width = 0;
    int m_height = 0;
};

}  // namespace wynconfig
