// What can be told apart in the picture of a window: outlines, marks and texts, by their pixels.
#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "support/contrast.h"

namespace wynconfig {

/// Light letters on dark grounds, as a host may choose them.
inline QPalette darkColours() {
    QPalette dark(QColor(60, 62, 66), QColor(40, 43, 48));
    dark.setColor(QPalette::Base, QColor(28, 30, 34));
    dark.setColor(QPalette::AlternateBase, QColor(40, 43, 48));
    dark.setColor(QPalette::Highlight, QColor(40, 105, 180));
    return dark;
}

/// Gives all windows these colours, and takes them back.
class Coloured {
  public:
    explicit Coloured(const QPalette& palette) { QApplication::setPalette(palette); }
    ~Coloured() { QApplication::setPalette(m_before); }
    Coloured(const Coloured&) = delete;
    Coloured& operator=(const Coloured&) = delete;

  private:
    QPalette m_before = QApplication::palette();
};

/// A window as it is on the screen. Places are those of widgets in it.
class Picture {
  public:
    explicit Picture(QWidget& window) : m_window(window), m_image(window.grab().toImage()) {}

    /// How well the outline of a place is told from what lies around it, and how well from what it
    /// encloses, each at the side where it is told worst.
    struct Edge {
        double outside = 21;
        double inside = 21;
    };
    Edge edgeOf(const QWidget& widget, const QRect& place) const {
        const QRect rect(widget.mapTo(&m_window, place.topLeft()), place.size());
        // In the middle of a round one; beside it a handle may be drawn between two wide ones.
        constexpr int kSmall = 24;
        const QPoint middle(
            rect.width() > kSmall ? rect.left() + rect.width() / 3 : rect.center().x(),
            rect.height() > kSmall ? rect.top() + rect.height() / 3 : rect.center().y());
        const std::array<std::pair<QPoint, QPoint>, 4> sides{
            {{{rect.left(), middle.y()}, {1, 0}},
             {{rect.right(), middle.y()}, {-1, 0}},
             {{middle.x(), rect.top()}, {0, 1}},
             {{middle.x(), rect.bottom()}, {0, -1}}}};
        const QColor ground = groundOf(widget, place.adjusted(2, 2, -2, -2));
        Edge worst;
        for (const auto& [edge, inwards] : sides) {
            constexpr int kAway = 3;
            const QColor around = at(edge - kAway * inwards);
            QColor line = around;
            for (int depth = -1; depth <= 1; ++depth) {
                const QColor shade = at(edge + depth * inwards);
                if (contrast(shade, around) > contrast(line, around)) line = shade;
            }
            worst.outside = std::min(worst.outside, contrast(line, around));
            worst.inside = std::min(worst.inside, contrast(line, ground));
        }
        return worst;
    }

    /// The commonest colour of a place.
    QColor groundOf(const QWidget& widget, const QRect& place) const {
        std::map<QRgb, int> counts;
        eachPixel(widget, place, [&](const QColor& shade) { ++counts[shade.rgb()]; });
        const auto most = std::max_element(
            counts.begin(), counts.end(),
            [](const auto& one, const auto& other) { return one.second < other.second; });
        return QColor(most->first);
    }

    /// How well what is written or drawn at a place is told from its ground.
    double markContrast(const QWidget& widget, const QRect& place) const {
        const QColor ground = groundOf(widget, place);
        double best = 1;
        eachPixel(widget, place,
                  [&](const QColor& shade) { best = std::max(best, contrast(shade, ground)); });
        return best;
    }

    const QImage& image() const { return m_image; }

  private:
    QColor at(const QPoint& place) const { return m_image.pixelColor(place); }
    template <class Look>
    void eachPixel(const QWidget& widget, const QRect& place, const Look& look) const {
        const QRect rect = QRect(widget.mapTo(&m_window, place.topLeft()), place.size());
        const QRect seen = rect & m_image.rect();
        for (int y = seen.top(); y <= seen.bottom(); ++y)
            for (int x = seen.left(); x <= seen.right(); ++x) look(at({x, y}));
    }

    const QWidget& m_window;
    QImage m_image;
};

/// Where the box of a check box or option is.
inline QRect indicatorOf(const QAbstractButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const auto element = qobject_cast<const QRadioButton*>(&button)
                             ? QStyle::SE_RadioButtonIndicator
                             : QStyle::SE_CheckBoxIndicator;
    return button.style()->subElementRect(element, &option, &button);
}

/// Where the tick box of a row is, in the viewport of its list or table.
inline QRect tickOf(const QAbstractItemView& view, const QModelIndex& index) {
    QStyleOptionViewItem option;
    option.initFrom(&view);
    option.rect = view.visualRect(index);
    option.font = view.font();
    option.text = index.data().toString();
    option.features |= QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    return view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
}

/// What has to have an outline of its own: the place of that in the widget; none for the others.
inline std::optional<QRect> outlinedPart(const QWidget& widget) {
    if (qobject_cast<const QCheckBox*>(&widget) || qobject_cast<const QRadioButton*>(&widget))
        return indicatorOf(static_cast<const QAbstractButton&>(widget));
    const auto* area = qobject_cast<const QAbstractScrollArea*>(&widget);
    if ((area && area->frameShape() == QFrame::StyledPanel) || widget.inherits("QLineEdit") ||
        qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QPushButton*>(&widget))
        return widget.rect();
    return std::nullopt;
}

/// Where the texts of a widget are that is no list.
inline QList<QRect> textsOf(const QWidget& widget) {
    constexpr int kFrame = 4;
    const QRect inside = widget.rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
    if (qobject_cast<const QPushButton*>(&widget)) return {inside};
    if (qobject_cast<const QCheckBox*>(&widget) || qobject_cast<const QRadioButton*>(&widget)) {
        const QRect box = indicatorOf(static_cast<const QAbstractButton&>(widget));
        return {widget.isRightToLeft() ? widget.rect().adjusted(0, 0, -box.width() - 2, 0)
                                       : widget.rect().adjusted(box.right() + 3, 0, 0, 0)};
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return box->currentText().isEmpty() ? QList<QRect>{} : QList<QRect>{inside};
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text().isEmpty() ? QList<QRect>{} : QList<QRect>{widget.rect()};
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        const int line = widget.fontMetrics().height();
        if (group->title().isEmpty()) return {};
        return {QRect(0, 0, widget.fontMetrics().horizontalAdvance(group->title()), line)};
    }
    if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
        QList<QRect> tabs;
        for (int i = 0; i < bar->count(); ++i)
            tabs << bar->tabRect(i).adjusted(kFrame, kFrame, -kFrame, -kFrame);
        return tabs;
    }
    if (widget.inherits("QLineEdit"))
        return widget.property("text").toString().isEmpty() ? QList<QRect>{} : QList<QRect>{inside};
    return {};
}

}  // namespace wynconfig
