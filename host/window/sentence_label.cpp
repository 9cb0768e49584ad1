// Copying from a label by keys, by its menu, and by the mouse alone.
#include "window/sentence_label.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>

#include "window/direction.h"
#include "window/wording.h"

namespace host {

SentenceLabel::SentenceLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void SentenceLabel::tell(const QString& sentence) {
    setText(sentence);
    setAccessibleName(withoutMarks(sentence));
}

QString SentenceLabel::told() const {
    return withoutMarks(text());
}

void SentenceLabel::letCopy() {
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void SentenceLabel::copy(int clipboardMode) const {
    const auto mode = static_cast<QClipboard::Mode>(clipboardMode);
    if (hasSelectedText())
        QGuiApplication::clipboard()->setText(withoutMarks(selectedText()), mode);
}

void SentenceLabel::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        copy(QClipboard::Clipboard);
    else
        QLabel::keyPressEvent(event);
}

void SentenceLabel::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (QGuiApplication::clipboard()->supportsSelection()) copy(QClipboard::Selection);
}

void SentenceLabel::contextMenuEvent(QContextMenuEvent* event) {
    if (textInteractionFlags() == Qt::NoTextInteraction) return event->ignore();
    QMenu menu(this);
    QAction* copying = menu.addAction(wording("COPY"), QKeySequence::Copy, this,
                                      [this] { copy(QClipboard::Clipboard); });
    copying->setEnabled(hasSelectedText());
    menu.exec(event->globalPos());
}

}  // namespace host
