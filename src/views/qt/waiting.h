// The signs that there is something to wait for: the wait cursor, and a panel with a bar.
#pragma once

#include <QFrame>
#include <QPointer>

#include "wynconfig/view.h"

class QLabel;
class QProgressBar;

namespace wynconfig::desktop {

/// Shows how far work has come, in the middle of a window that is on the screen: a window of its
/// own would have to wait for the window system to show it, and that for an event loop. It takes
/// neither the focus nor any input, and paints itself each time it is told something.
class ProgressPanel : public QFrame {
  public:
    /// @param around  the window; null: it becomes one of its own, which not every system shows
    explicit ProgressPanel(QWidget* around);

    /// Shows how far it is by now, and itself at the first time.
    void tell(const Progress& progress);
    QString title() const;
    /// What it says.
    QString text() const;
    const QProgressBar& bar() const { return *m_bar; }

  private:
    void arrange();

    QLabel* m_title;
    QLabel* m_text;
    QProgressBar* m_bar;
};

/// All signs of one wait.
class Waiting {
  public:
    Waiting() = default;
    ~Waiting() { end(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    /// Shows the wait cursor.
    void begin();
    /// The panel, made when it is asked for first.
    /// @param around  the window in the middle of which it is to be, see `ProgressPanel`
    ProgressPanel& panel(QWidget* around);
    /// Takes all of it away.
    void end();
    /// The panel; null when it is not there.
    const ProgressPanel* panel() const { return m_panel; }

  private:
    bool m_cursor = false;
    QPointer<ProgressPanel> m_panel;
};

/// Paints all windows of the program at once: work begins before the event loop would have those
/// painted that a closed window covered.
void paintWindows();

}  // namespace wynconfig::desktop
