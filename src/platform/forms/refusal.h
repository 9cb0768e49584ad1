// What of a form was refused last, for views to mark: the same in every view.
#pragma once

#include <string>

#include "platform/forms/growing.h"
#include "wynconfig/controls.h"

namespace wynconfig {

/// A form that refuses what was entered tells so by a box, and turns to what it is about, within
/// the same act. That is marked until its content changes, or the person goes elsewhere.
class Refusal {
  public:
    /// A box told of a failure.
    void told() { m_isTold = true; }
    /// What the form turns to from here on has nothing to do with the last box.
    void actEnded() { m_isTold = false; }
    /// Code gave a control the focus.
    void turnedTo(const Control& control) {
        if (!m_isTold || !isBox(control)) return;
        m_marked = &control;
        m_content = contentOf(control);
    }
    /// A control changed.
    void changed(const Control& control) {
        if (m_marked == &control && contentOf(control) != m_content) m_marked = nullptr;
    }
    /// The focus is at a control.
    void wentTo(const Control& control) {
        if (m_marked != &control) m_marked = nullptr;
    }

    /// What is to bear the mark; null for nothing.
    const Control* marked() const { return m_marked; }

  private:
    /// What a person would change in a box, in some form that can be compared. An edit changes as
    /// well when only its caret moves.
    static std::string contentOf(const Control& box) {
        switch (box.kind()) {
            case ControlKind::Edit:
                return static_cast<const Edit&>(box).text();
            case ControlKind::ComboBox:
                return std::to_string(static_cast<const ComboBox&>(box).selectedIndex());
            default:
                return std::to_string(static_cast<const ListView&>(box).selectedNumber());
        }
    }

    bool m_isTold = false;
    const Control* m_marked = nullptr;
    std::string m_content;  ///< of what is marked, when it was refused
};

}  // namespace wynconfig
