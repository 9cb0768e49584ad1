// Between the words of the component and those of Qt: text, carets, fonts and lengths.
#include "views/qt/convert.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

#include "wynconfig/mnemonic.h"

namespace wynconfig::desktop {

namespace {

constexpr double twipsPerInch = 1440.0;

double dotsPerInch() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchX() : 96.0;
}

bool isPair(const QString& text, qsizetype at) {
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
}

}  // namespace

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string fromQt(const QString& text) {
    return text.toStdString();
}

QString toQtCaption(std::string_view caption) {
    const QString text = toQt(caption);
    QString marked;
    bool hasKey = false;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] != u'&') {
            marked += text[at];
            continue;
        }
        if (++at == text.size()) break;
        if (text[at] == u'&' || !std::exchange(hasKey, true)) marked += u'&';
        marked += text[at];
    }
    return marked;
}

QString toQtUnmarked(std::string_view caption) {
    return toQtPlain(caption).replace(u'&', QStringLiteral("&&"));
}

QString toQtPlain(std::string_view caption) {
    return toQt(plainCaption(caption));
}

std::size_t charsBefore(const QString& text, qsizetype offset) {
    std::size_t chars = 0;
    for (qsizetype at = 0; at < offset && at < text.size(); ++chars) at += isPair(text, at) ? 2 : 1;
    return chars;
}

qsizetype offsetOf(const QString& text, std::size_t chars) {
    qsizetype at = 0;
    for (; chars > 0 && at < text.size(); --chars) at += isPair(text, at) ? 2 : 1;
    return at;
}

QFont toQt(const Font& font) {
    QFont made;
    // A default-made QFont has nothing resolved, so that a widget takes the rest from its parent.
    if (!font.family.empty()) made.setFamilies({toQt(font.family)});
    if (font.pointSize > 0.0) made.setPointSizeF(font.pointSize);
    if (font.bold) made.setBold(true);
    if (font.italic) made.setItalic(true);
    return made;
}

int titleWidth(const QString& title) {
    constexpr int frameButtons = 130;
    constexpr int widest = 600;
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    return std::min(QFontMetrics(font).horizontalAdvance(title) + frameButtons, widest);
}

int toPixels(int twips) {
    return static_cast<int>(std::lround(twips * dotsPerInch() / twipsPerInch));
}

int toTwips(int pixels) {
    return static_cast<int>(std::lround(pixels * twipsPerInch / dotsPerInch()));
}

}  // namespace wynconfig::desktop
