// A label that gives way when its window is narrow.
#pragma once

#include "window/sentence_label.h"

namespace host {

/// Shows its sentence on one line, shortened to the room that there is; whole in its tool tip.
class ElidedLabel : public SentenceLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(Qt::TextElideMode mode, QWidget* parent = nullptr);

    void tell(const QString& sentence) override;
    /// The sentence as it is painted.
    QString painted() const;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::TextElideMode m_mode;
};

}  // namespace host
