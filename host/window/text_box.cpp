// The look of text that is only read.
#include "window/text_box.h"

#include <QEvent>
#include <QFontDatabase>
#include <QMimeData>
#include <QPalette>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSyntaxHighlighter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextOption>

#include "window/direction.h"
#include "window/wording.h"

namespace host {

namespace {

/// Colours the names of control characters, so that they can be told from the text.
class ControlNames : public QSyntaxHighlighter {
  public:
    explicit ControlNames(const QPlainTextEdit& box)
        : QSyntaxHighlighter(box.document()), m_box(box) {}

  protected:
    void highlightBlock(const QString& text) override {
        static const QRegularExpression name(QStringLiteral("‹[0-9A-Z]+›"));
        QTextCharFormat format;
        format.setForeground(m_box.palette().link());
        for (const QRegularExpressionMatch& match : name.globalMatch(text))
            setFormat(static_cast<int>(match.capturedStart()),
                      static_cast<int>(match.capturedLength()), format);
    }

  private:
    const QPlainTextEdit& m_box;
};

class ListBox : public QPlainTextEdit {
  protected:
    void changeEvent(QEvent* event) override {
        QPlainTextEdit::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) m_names.rehighlight();
    }

  private:
    ControlNames m_names{*this};
};

/// Its lines begin on the side from which the window is read, which the toolkit leaves to the left.
class SentenceBox : public QPlainTextEdit {
  public:
    SentenceBox() { align(); }

  protected:
    void changeEvent(QEvent* event) override {
        QPlainTextEdit::changeEvent(event);
        if (event->type() == QEvent::LayoutDirectionChange) align();
    }
    QMimeData* createMimeDataFromSelection() const override {
        auto* copied = new QMimeData;
        copied->setText(withoutMarks(textCursor().selection().toPlainText()));
        return copied;
    }

  private:
    void align() {
        QTextOption option = document()->defaultTextOption();
        option.setAlignment(isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
        document()->setDefaultTextOption(option);
    }
};

QPlainTextEdit* makeReadOnly(QPlainTextEdit* box, const char* name) {
    box->setReadOnly(true);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box->setTabChangesFocus(true);
    box->setLineWrapMode(QPlainTextEdit::NoWrap);
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return withName(box, name);
}

}  // namespace

QPlainTextEdit* makeTextBox(const char* name) {
    QPlainTextEdit* box = makeReadOnly(new ListBox, name);
    readLeftToRight(*box);
    return box;
}

QPlainTextEdit* makeSentenceBox(const char* name) {
    return makeReadOnly(new SentenceBox, name);
}

void readLeftToRight(QPlainTextEdit& box) {
    QTextOption option = box.document()->defaultTextOption();
    option.setTextDirection(Qt::LeftToRight);
    box.document()->setDefaultTextOption(option);
}

void letLinesBreak(QPlainTextEdit& box) {
    box.setLineWrapMode(QPlainTextEdit::WidgetWidth);
    box.setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
}

void setLines(QPlainTextEdit& box, int lines) {
    letLinesBreak(box);
    const int frame = 2 * box.frameWidth();
    const auto margin = static_cast<int>(2 * box.document()->documentMargin());
    box.setFixedHeight(lines * box.fontMetrics().lineSpacing() + margin + frame);
}

void showText(QPlainTextEdit& box, const QString& text) {
    if (box.toPlainText() == text) return;
    const int across = box.horizontalScrollBar()->value();
    const int down = box.verticalScrollBar()->value();
    box.setPlainText(text);
    box.horizontalScrollBar()->setValue(across);
    box.verticalScrollBar()->setValue(down);
}

}  // namespace host
