// Letters that a person types into a list or a combo box.
#pragma once

#include <QElapsedTimer>
#include <QKeyEvent>
#include <functional>
#include <string>

#include "wynconfig/type_ahead.h"

namespace wynconfig::desktop {

/// Tells letters from other keys, and by the clock which of them belong together.
class Typing {
  public:
    /// Gets each letter, with what was typed before it.
    std::function<void(TypeAhead& ahead, const std::string& letter)> typed;

    /// Deals with a key; false when it is none for this.
    bool take(const QKeyEvent& key);
    /// What comes next begins anew.
    void stop();

  private:
    bool goesOn() const;

    TypeAhead m_ahead;
    QElapsedTimer m_last;
};

}  // namespace wynconfig::desktop
