// Message boxes and browse dialogs.
#include "views/qt/boxes.h"

#include <QAbstractButton>
#include <QDir>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QTextLayout>
#include <QTreeView>
#include <algorithm>

#include "views/qt/convert.h"
#include "wynconfig/form.h"
#include "wynconfig/qt_view.h"

namespace wynconfig::desktop {

namespace {

constexpr int kButtonsOfStyle = 0xF;
/// The widest column of text in a box, in characters.
constexpr int kWidestText = 64;
/// No text is wrapped to less than this for the sake of even lines.
constexpr int kLeastWrapped = 50;

bool asksYesNo(int style) {
    return (style & kButtonsOfStyle) == boxstyle::YesNo;
}

/// Breaks a line between words, and words that are wider than a line anywhere.
QStringList wrap(const QString& line, const QFont& font, int width) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(line, font);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine each = layout.createLine(); each.isValid(); each = layout.createLine()) {
        each.setLineWidth(width);
        QString text = line.mid(each.textStart(), each.textLength());
        const bool last = each.textStart() + each.textLength() >= line.size();
        while (!last && text.endsWith(u' ')) text.chop(1);
        lines.push_back(text);
    }
    layout.endLayout();
    return lines;
}

/// How many characters of a font a line may have; fewer on a narrow screen.
int widestLine(const QFontMetrics& metrics) {
    constexpr int kBesides = 20;
    const QScreen* screen = QGuiApplication::primaryScreen();
    int chars = kWidestText;
    while (screen && chars > kBesides &&
           charsWide(metrics, chars + kBesides) > screen->availableSize().width())
        --chars;
    return chars;
}

/// Breaks a line into as few as there have to be, about equally long, so that no word is left over.
QStringList wrapEvenly(const QString& line, const QFont& font) {
    const QFontMetrics metrics(font);
    int chars = widestLine(metrics);
    QStringList lines = wrap(line, font, charsWide(metrics, chars));
    while (lines.size() > 1 && --chars >= kLeastWrapped) {
        QStringList narrower = wrap(line, font, charsWide(metrics, chars));
        if (narrower.size() > lines.size()) break;
        lines = std::move(narrower);
    }
    return lines;
}

/// The text as it is shown: without the line ends behind it.
QStringList linesOf(const std::string& text) {
    QString shown = toQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    while (shown.endsWith(u'\n') || shown.endsWith(u'\r')) shown.chop(1);
    return shown.split(u'\n');
}

/// Shows the text as wide as its longest line and the title need, and wraps what is wider.
void showText(QMessageBox& box, const MessageRequest& wanted) {
    box.ensurePolished();
    QStringList lines;
    for (const QString& line : linesOf(wanted.text)) lines += wrapEvenly(line, box.font());
    int width = titleWidth(box.windowTitle());
    const QFontMetrics metrics = box.fontMetrics();
    for (const QString& line : std::as_const(lines))
        width = std::max(width, metrics.horizontalAdvance(line) + 2);
    box.setText(lines.join(u'\n'));
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label")))
        label->setMinimumWidth(std::min(width, charsWide(metrics, widestLine(metrics))));
}

/// Gives the columns behind the names the width of what stands there, and the names the rest.
void layColumns(QFileDialog& dialog) {
    auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!files) return;
    QHeaderView* header = files->header();
    header->setStretchLastSection(false);
    // Only what is in sight is measured: folders can be large.
    header->setResizeContentsPrecision(0);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
}

}  // namespace

void setUp(QMessageBox& box, const MessageRequest& wanted) {
    box.setObjectName(QStringLiteral("box"));
    box.setWindowTitle(toQtPlain(wanted.title));
    // Names of sessions and formats stand in the text as they are, angle brackets and all.
    box.setTextFormat(Qt::PlainText);
    // In the font of the dialog that asks.
    if (const auto font = wanted.owner ? wanted.owner->font() : nullptr) box.setFont(toQt(*font));
    showText(box, wanted);
    box.setIcon(wanted.style & boxstyle::Critical ? QMessageBox::Critical : QMessageBox::NoIcon);
    box.setWindowFlag(Qt::WindowStaysOnTopHint, (wanted.style & boxstyle::SystemModal) != 0);
    box.setAttribute(Qt::WA_QuitOnClose, false);
    if (asksYesNo(wanted.style)) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
        box.setEscapeButton(QMessageBox::Ok);
        if (!wanted.okCaption.empty())
            box.button(QMessageBox::Ok)->setText(toQtCaption(wanted.okCaption));
    }
    // The buttons of the forms have no icons either.
    for (QAbstractButton* each : box.buttons()) each->setIcon({});
    clarify(box);
    // The size that the box takes as it comes up; not every platform can change it by then.
    box.layout()->activate();
    box.setFixedSize(box.layout()->totalMinimumSize());
}

QAbstractButton* buttonOf(const QMessageBox& box, int number) {
    switch (number) {
        case answer::Ok:
            return box.button(QMessageBox::Ok);
        case answer::Yes:
            return box.button(QMessageBox::Yes);
        case answer::No:
            return box.button(QMessageBox::No);
        default:
            return nullptr;
    }
}

int answerOf(const QMessageBox& box) {
    const bool yesNo = box.button(QMessageBox::Yes) != nullptr;
    if (yesNo && box.clickedButton() == box.button(QMessageBox::Yes)) return answer::Yes;
    return yesNo ? answer::No : answer::Ok;
}

void setUp(QFileDialog& dialog, const BrowseRequest& wanted) {
    dialog.setObjectName(QStringLiteral("browse"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(wanted.files ? QFileDialog::ExistingFile : QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly, !wanted.files);
    dialog.setWindowTitle(toQtPlain(wanted.title));
    dialog.setAttribute(Qt::WA_QuitOnClose, false);
    if (!wanted.okCaption.empty())
        dialog.setLabelText(QFileDialog::Accept, toQtCaption(wanted.okCaption));
    if (!wanted.cancelCaption.empty())
        dialog.setLabelText(QFileDialog::Reject, toQtCaption(wanted.cancelCaption));
    if (wanted.font) dialog.setFont(toQt(*wanted.font));
    layColumns(dialog);
    for (QPushButton* each : dialog.findChildren<QPushButton*>()) each->setIcon({});
    clarify(dialog);
    constexpr int kWidth = 96;
    constexpr int kLines = 34;
    dialog.ensurePolished();
    dialog.resize(charsWide(dialog.fontMetrics(), kWidth), kLines * dialog.fontMetrics().height());
    dialog.layout()->activate();
}

std::string pathOf(const QFileDialog& dialog) {
    const QStringList picked = dialog.selectedFiles();
    return picked.isEmpty() ? std::string() : fromQt(QDir::toNativeSeparators(picked.front()));
}

}  // namespace wynconfig::desktop
