// Between the words of the component and those of Qt: text, carets, fonts and lengths.
#include "views/qt/convert.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

#include "wynconfig/mnemonic.h"

namespace wynconfig::desktop {

namespace {

constexpr double kTwipsPerInch = 1440.0;

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

namespace {

// Unicode's marks for a part of a text whose first letter decides its direction.
constexpr QChar isolate(0x2068);
constexpr QChar isolateEnd(0x2069);

}  // namespace

QString isolated(const QString& text) {
    const bool hasDirection = std::any_of(
        text.begin(), text.end(), [](QChar each) { return each.direction() == QChar::DirL; });
    // What has no letters, like an arrow, is to turn around with the window.
    if (!hasDirection || !QGuiApplication::isRightToLeft() || text.isRightToLeft()) return text;
    return isolate + text + isolateEnd;
}

QString unisolated(QString text) {
    if (text.startsWith(isolate) && text.endsWith(isolateEnd)) text = text.mid(1, text.size() - 2);
    return text;
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
    return isolated(marked);
}

QString toQtUnmarked(std::string_view caption) {
    return isolated(toQtPlain(caption).replace(u'&', QStringLiteral("&&")));
}

QString toQtPlain(std::string_view caption) {
    return toQt(plainCaption(caption));
}

QString toToolTip(const QString& text, Lines lines) {
    // Marked up in any case: whether a text would be taken for markup is hard to tell.
    return QStringLiteral("<p style='white-space:%1'>%2</p>")
        .arg(QLatin1String(lines == Lines::One ? "pre" : "pre-wrap"), text.toHtmlEscaped());
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

int charsWide(const QFontMetrics& metrics, int chars) {
    // Averages are rounded; a run of digits, which are as wide as usual letters, is exact.
    return metrics.horizontalAdvance(QString(chars, u'0'));
}

int titleWidth(const QString& title) {
    constexpr int kFrameButtons = 16;
    constexpr int kWidest = 74;
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    const QFontMetrics metrics(font);
    return std::min(metrics.horizontalAdvance(title) + charsWide(metrics, kFrameButtons),
                    charsWide(metrics, kWidest));
}

int toPixels(int twips) {
    return static_cast<int>(std::lround(twips * dotsPerInch() / kTwipsPerInch));
}

int toTwips(int pixels) {
    return static_cast<int>(std::lround(pixels * kTwipsPerInch / dotsPerInch()));
}

}  // namespace wynconfig::desktop
