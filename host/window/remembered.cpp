// The keys of the file, and a place for a window on the screens that there are.
#include "window/remembered.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>
#include <QStyle>
#include <algorithm>

namespace host {

namespace {

constexpr const char* kLanguage = "language";
constexpr const char* kSession = "session";
constexpr const char* kStores = "stores";
constexpr qsizetype kMostStores = 8;
constexpr const char* kSent = "partsWereSent";
constexpr const char* kParts = "parts";
constexpr const char* kNumber = "number";
constexpr const char* kQuantity = "quantity";
constexpr const char* kPlace = "window/place";
constexpr const char* kBorder = "window/border";
constexpr const char* kMaximized = "window/maximized";

QString splitterKey(const QSplitter& splitter) {
    return "splitters/" + splitter.objectName();
}

QList<QSplitter*> namedSplitters(const QWidget& window) {
    QList<QSplitter*> splitters = window.findChildren<QSplitter*>();
    splitters.removeIf([](const QSplitter* each) { return each->objectName().isEmpty(); });
    return splitters;
}

/// The area of the screen on which most of a place lies, or of the first one.
QRect areaFor(const QRect& place) {
    const auto share = [&](const QScreen* screen) {
        const QSize common = screen->availableGeometry().intersected(place).size();
        return common.width() * common.height();
    };
    const QList<QScreen*> screens = QGuiApplication::screens();
    return (*std::ranges::max_element(screens, {}, share))->availableGeometry();
}

}  // namespace

QRect fitted(QRect place, const QRect& area) {
    place.setSize(place.size().boundedTo(area.size()));
    place.moveLeft(
        std::clamp(place.left(), area.left(), area.left() + area.width() - place.width()));
    place.moveTop(std::clamp(place.top(), area.top(), area.top() + area.height() - place.height()));
    return place;
}

Remembered::Remembered(const std::filesystem::path& file)
    : m_settings(QString::fromStdString(file.string()), QSettings::IniFormat) {}

std::string Remembered::language() const {
    return m_settings.value(kLanguage).toString().toStdString();
}

void Remembered::keepLanguage(const std::string& language) {
    m_settings.setValue(kLanguage, QString::fromStdString(language));
}

QString Remembered::session() const {
    return m_settings.value(kSession).toString();
}

void Remembered::keepSession(const QString& name) {
    m_settings.setValue(kSession, name);
}

QStringList Remembered::stores() const {
    return m_settings.value(kStores).toStringList();
}

void Remembered::keepStore(const QString& root) {
    QStringList all = stores();
    all.removeAll(root);
    all.prepend(root);
    m_settings.setValue(kStores, all.mid(0, kMostStores));
}

std::vector<PickedPart> Remembered::parts() const {
    std::vector<PickedPart> parts;
    const int count = m_settings.beginReadArray(kParts);
    for (int i = 0; i < count; ++i) {
        m_settings.setArrayIndex(i);
        parts.push_back({m_settings.value(kNumber).toString().toStdString(),
                         m_settings.value(kQuantity).toInt(),
                         {}});
    }
    m_settings.endArray();
    return parts;
}

bool Remembered::partsWereSent() const {
    return m_settings.value(kSent).toBool();
}

void Remembered::keepParts(const std::vector<PickedPart>& parts, bool sent) {
    m_settings.remove(kParts);
    m_settings.beginWriteArray(kParts, static_cast<int>(parts.size()));
    int at = 0;
    for (const PickedPart& part : parts) {
        m_settings.setArrayIndex(at++);
        m_settings.setValue(kNumber, QString::fromStdString(part.number));
        m_settings.setValue(kQuantity, static_cast<int>(part.quantity));
    }
    m_settings.endArray();
    m_settings.setValue(kSent, sent);
}

void Remembered::restore(QWidget& window) {
    for (QSplitter* each : namedSplitters(window)) {
        each->restoreState(m_settings.value(splitterKey(*each)).toByteArray());
        // At the end it would be too late: one that was never shown has no position to keep.
        QObject::connect(each, &QSplitter::splitterMoved, &window, [this, each] {
            m_settings.setValue(splitterKey(*each), each->saveState());
        });
    }
    const QRect kept = m_settings.value(kPlace).toRect();
    if (!kept.isValid()) {
        const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
        const QSize room = window.screen()->availableSize() - QSize(0, title);
        window.resize(window.size().boundedTo(room));
        return;
    }
    const QRect place = fitted(kept, areaFor(kept));
    window.resize(place.size() - m_settings.value(kBorder).toSize());
    window.move(place.topLeft());
    if (m_settings.value(kMaximized).toBool())
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void Remembered::keep(const QWidget& window) {
    // The place is that of the frame: this is what has to lie on the screen.
    const QRect inner = window.geometry();
    const QRect outer = window.frameGeometry();
    const QMargins border(inner.left() - outer.left(), inner.top() - outer.top(),
                          outer.right() - inner.right(), outer.bottom() - inner.bottom());
    m_settings.setValue(kPlace, window.normalGeometry().marginsAdded(border));
    m_settings.setValue(kBorder, outer.size() - inner.size());
    m_settings.setValue(kMaximized, window.isMaximized());
}

bool Remembered::isKept() {
    m_settings.sync();
    return m_settings.status() == QSettings::NoError;
}

}  // namespace host
