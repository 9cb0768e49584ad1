// Painting what there is room for.
#include "window/elided_label.h"

#include <QPainter>
#include <QStyle>

namespace host {

ElidedLabel::ElidedLabel(Qt::TextElideMode mode, QWidget* parent)
    : SentenceLabel(parent), m_mode(mode) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::tell(const QString& sentence) {
    SentenceLabel::tell(sentence);
    setToolTip(sentence);
}

QString ElidedLabel::painted() const {
    return fontMetrics().elidedText(text(), m_mode, contentsRect().width());
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, SentenceLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // The sentence stands at the side of the layout, and is read in its own direction.
    const auto side = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment()));
    const auto reading = static_cast<int>(text().isRightToLeft() ? Qt::TextForceRightToLeft
                                                                 : Qt::TextForceLeftToRight);
    const int flags = side | reading | static_cast<int>(Qt::TextSingleLine);
    style()->drawItemText(&painter, contentsRect(), flags, palette(), isEnabled(), painted(),
                          foregroundRole());
}

}  // namespace host
