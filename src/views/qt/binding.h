// The tie between one control and its widget: shows the control's state, and reports what the
// person does to the widget.
#pragma once

#include <QWidget>
#include <memory>
#include <string_view>

#include "platform/forms/door.h"
#include "wynconfig/controls.h"
#include "wynconfig/layout.h"
#include "wynconfig/view.h"

namespace wynconfig::desktop {

class Binding {
  public:
    Binding(Control& control, QWidget* widget);
    virtual ~Binding() = default;
    Binding(const Binding&) = delete;
    Binding& operator=(const Binding&) = delete;

    Control& control() const { return m_control; }
    QWidget* widget() const { return m_widget; }
    /// The widget that has the focus when the control has it.
    virtual QWidget* focusWidget() const { return m_widget; }
    /// Shows the control's present state; raises nothing.
    void show();
    /// The dialog came up with the focus here: what is typed takes the place of what is there.
    virtual void offerContent() {}
    /// Marks what was refused, for the ear by what the person was told of it, or takes the mark
    /// away.
    void setRefused(bool refused, const QString& why = {});

    bool dirty = true;

  protected:
    virtual void showContent() = 0;

  private:
    void showFont();
    void showBackground();
    void showColours();
    void showTabStop();

    Control& m_control;
    QWidget* m_widget;
    std::shared_ptr<const Font> m_font;
    Background m_background = Background::Window;
    bool m_isRefused = false;
    bool m_takesFocus;
};

/// Whether a person can act on a widget now. Assistive programs reach those that no mouse or key
/// does as well: what is switched off, lies on another tab, or waits for the dialog above it.
bool inReach(const QWidget& widget);

/// What a control is to the one beside it in the layout.
struct Standing {
    const CaptionedControl* labelledBy = nullptr;  ///< the label in front of or above it
    const Control* labels = nullptr;               ///< of a label: what it stands at
    ListActs acts = {};                            ///< of a list
    std::string_view spoken = {};                  ///< see `Layout::spoken`
    int chars = 0;                                 ///< see `Layout::chars`
};

/// Makes the widget for a control, as a child of `parent`, and ties the two together.
std::unique_ptr<Binding> bind(Control& control, QWidget* parent, Door& door,
                              const Standing& standing);

}  // namespace wynconfig::desktop
