// How a window gets texts that can be read and outlines that can be seen.
#pragma once

#include <QObject>
#include <QPalette>

#include "views/qt/outlines.h"

namespace wynconfig::desktop {

/// Keeps a window clear as long as it lives, with what is put into it and whatever colours the
/// application takes. It belongs to the window.
class Clarity : public QObject {
  public:
    explicit Clarity(QWidget& window);
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setColours();
    void adopt(QWidget& widget);

    QWidget& m_window;
    const QPalette m_own;  ///< what the window set by itself
    Outlines m_outlines;
};

}  // namespace wynconfig::desktop
