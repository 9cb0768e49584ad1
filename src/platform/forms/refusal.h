// What of a form was refused last, for views to mark: the same in every view.
#pragma once

#include <string>

#include "wynconfig/controls.h"
#include "wynconfig/export.h"

namespace wynconfig {

/// A form that refuses what was entered tells so by a box, and turns to what it is about, within
/// the same act. That is marked until its content changes, or the person goes elsewhere. Exported
/// for the desktop view, which lives in a library of its own.
class WYNCONFIG_API Refusal {
  public:
    /// A box told of a failure.
    void told() { m_isTold = true; }
    /// What the form turns to from here on has nothing to do with the last box.
    void actEnded() { m_isTold = false; }
    /// Code gave a control the focus.
    void turnedTo(const Control& control);
    /// A control changed.
    void changed(const Control& control);
    /// The focus is at a control.
    void wentTo(const Control& control);

    /// What is to bear the mark; null for nothing.
    const Control* marked() const { return m_marked; }

  private:
    bool m_isTold = false;
    const Control* m_marked = nullptr;
    std::string m_content;  ///< of what is marked, when it was refused
};

}  // namespace wynconfig
