/// @file
/// A dialog as an object: its controls, when it loads and unloads, and how it is shown.
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
    /// Code moved the focus to this control, or asked for it where it was already.
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

    /// By which tests announce it, such as "frmMORAMConfig".
    std::string_view name() const { return m_name; }
    /// The controls in the order of their declaration.
    const std::vector<Control*>& controls() const { return m_controls; }
    /// The control of a name, or null. Does not load the form.
    Control* control(std::string_view name) const;

    /// The form's own caption.
    const std::string& caption() const { return m_caption; }
    /// Writes the form's own caption, UTF-8; loads the form first.
    void setCaption(std::string caption);
    /// What the title bar shows: the bound caption bar's text, or else the form's own caption.
    std::string title() const;

    /// The font of the dialog, or null for the view's own. Loads nothing.
    std::shared_ptr<const Font> font() const { return m_font; }
    /// Gives the dialog a font; its controls keep theirs. Loads the form first.
    void setFont(std::shared_ptr<const Font> font);
    /// Device context handle, as the view gives it. Loads the form first; raises what the view
    /// raises.
    long hDC();

    /// The form's width in twips (1/1440 inch); 0 while nothing set it, and then the view decides.
    int width() const { return m_width; }
    /// Its height, likewise.
    int height() const { return m_height; }
    /// Sets both, in twips. Raises no event.
    void setSize(int width, int height);

    /// Whether it is loaded; true as well while it loads and unloads.
    bool loaded() const { return m_state != State::Unloaded; }
    /// Whether it was shown and neither hidden nor unloaded since.
    bool visible() const { return m_visible; }
    /// Loads the form and counts it as not shown. A view that shows it goes on until it unloads.
    void Hide();
    /// Loads the form, shows it modally, and returns when it has unloaded. Raises what the load or
    /// the view raises.
    void Show();
    /// Unloads the form, which ends its `Show`. Does nothing to one that is not loaded. Raises what
    /// `Form_Unload` raises; the form is unloaded all the same.
    void Unload();

    /// The control that has the focus, or null.
    Control* focused() const { return m_focused; }
    /// How the dialog is laid out; built at the first call.
    const FormLayout& layout();
    /// What helps a person with one of its controls, or, with null, with the dialog as a whole.
    /// UTF-8; empty where there is no help. Is fetched anew each time. Loads and raises nothing.
    std::string help(const Control* control = nullptr) const noexcept;

    /// Whoever shows the form watches it here; null ends that.
    void observe(FormObserver* observer) { m_observer = observer; }

  protected:
    /// Event: the form loads. What it raises goes to whoever touched the form, which counts as
    /// loaded then.
    virtual void Form_Load() {}
    /// Event: the form unloads; its controls are as the person left them.
    virtual void Form_Unload() {}
    /// Event: the form is about to come up.
    virtual void Form_Activate() {}
    /// Event: a person pulled the frame; the size is the new one by then.
    virtual void Form_Resize() {}
    /// Says how the dialog is laid out, by the words of `layout`. Each control stands there once.
    virtual FormLayout declareLayout() = 0;
    /// Fetches what `help` gives. What it raises counts as no help.
    virtual std::string fetchHelp(const Control* control) const;

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
