// What is drawn over the outlines of Qt's own style.
#include "views/qt/outlines.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QTabWidget>
#include <algorithm>

#include "views/qt/colours.h"

namespace wynconfig::desktop {

namespace {

enum class Shape { Rectangle, Rounded, Circle };

Ground groundOf(const QWidget* widget) {
    if (qobject_cast<const QComboBox*>(widget) || qobject_cast<const QPushButton*>(widget))
        return Ground::Raised;
    for (; widget && !widget->isWindow(); widget = widget->parentWidget()) {
        const auto* tabs = qobject_cast<const QTabWidget*>(widget);
        if (tabs && !tabs->documentMode()) return Ground::Raised;
    }
    return Ground::Flat;
}

QColor colourOf(const QStyleOption& option, const QWidget* widget, bool isMarked) {
    const bool isEnabled = option.state & QStyle::State_Enabled;
    const Ground around = groundOf(widget);
    return isMarked && isEnabled ? focusColour(option.palette, around)
                                 : outlineColour(option.palette, around, isEnabled);
}

void draw(QPainter& painter, const QRect& rect, Shape shape, const QColor& colour) {
    constexpr double kHalf = 0.5;
    constexpr double kRadius = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1));
    painter.setBrush(Qt::NoBrush);
    const QRectF line = QRectF(rect).adjusted(kHalf, kHalf, -kHalf, -kHalf);
    switch (shape) {
        case Shape::Rectangle:
            painter.drawRect(line);
            break;
        case Shape::Rounded:
            painter.drawRoundedRect(line, kRadius, kRadius);
            break;
        case Shape::Circle:
            painter.drawEllipse(line);
            break;
    }
    painter.restore();
}

bool hasFocus(const QStyleOption& option) {
    return option.state & QStyle::State_HasFocus;
}

QColor textOfSelection(const QStyleOption& option) {
    const bool isActive = option.state & QStyle::State_Active;
    return option.palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                                QPalette::HighlightedText);
}

const QStyle& ofApplication() {
    return *QApplication::style();
}

}  // namespace

/// Other styles have outlines of their own making. That of Qt may stand behind others that add to
/// it, which own it.
bool Outlines::areFaint() const {
    constexpr const char* kQtsOwn = "QFusionStyle";
    QStyle* const style = QApplication::style();
    if (m_judged != style) {
        const auto behind = style->findChildren<QStyle*>();
        m_areFaint = style->inherits(kQtsOwn) ||
                     std::any_of(behind.begin(), behind.end(),
                                 [](const QStyle* each) { return each->inherits(kQtsOwn); });
        m_judged = style;
    }
    return m_areFaint;
}

void Outlines::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                             QPainter* painter, const QWidget* widget) const {
    ofApplication().drawPrimitive(element, option, painter, widget);
    if (element != PE_PanelLineEdit || !areFaint()) return;
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (frame && frame->lineWidth > 0)
        draw(*painter, option->rect, Shape::Rounded, colourOf(*option, widget, hasFocus(*option)));
}

void Outlines::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const {
    ofApplication().drawControl(element, option, painter, widget);
    if (!areFaint()) return;
    const auto outline = [&](const QRect& rect, Shape shape, bool isMarked) {
        draw(*painter, rect, shape, colourOf(*option, widget, isMarked));
    };
    switch (element) {
        case CE_CheckBox:
            outline(subElementRect(SE_CheckBoxIndicator, option, widget), Shape::Rectangle,
                    hasFocus(*option));
            break;
        case CE_RadioButton:
            outline(subElementRect(SE_RadioButtonIndicator, option, widget), Shape::Circle,
                    hasFocus(*option));
            break;
        case CE_PushButton: {
            const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
            if (!button || (button->features & QStyleOptionButton::Flat)) break;
            outline(option->rect, Shape::Rounded,
                    hasFocus(*option) || (button->features & QStyleOptionButton::DefaultButton));
            break;
        }
        case CE_ShapedFrame: {
            const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            if (frame && frame->frameShape == QFrame::StyledPanel &&
                qobject_cast<const QAbstractScrollArea*>(widget))
                outline(option->rect, Shape::Rectangle, hasFocus(*option));
            break;
        }
        case CE_ItemViewItem: {
            const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
            if (!item || !(item->features & QStyleOptionViewItem::HasCheckIndicator)) break;
            const QRect box = subElementRect(SE_ItemViewItemCheckIndicator, option, widget);
            if (option->state & State_Selected)
                draw(*painter, box, Shape::Rectangle, textOfSelection(*option));
            else
                outline(box, Shape::Rectangle, false);
            break;
        }
        default:
            break;
    }
}

void Outlines::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                  QPainter* painter, const QWidget* widget) const {
    ofApplication().drawComplexControl(control, option, painter, widget);
    if (!areFaint()) return;
    const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const auto* spin = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
    if ((control == CC_ComboBox && box && box->frame) ||
        (control == CC_SpinBox && spin && spin->frame))
        draw(*painter, option->rect, Shape::Rounded, colourOf(*option, widget, hasFocus(*option)));
}

void Outlines::polish(QWidget* widget) {
    QApplication::style()->polish(widget);
}

void Outlines::unpolish(QWidget* widget) {
    QApplication::style()->unpolish(widget);
}

QRect Outlines::itemTextRect(const QFontMetrics& metrics, const QRect& rect, int flags,
                             bool enabled, const QString& text) const {
    return ofApplication().itemTextRect(metrics, rect, flags, enabled, text);
}

QRect Outlines::itemPixmapRect(const QRect& rect, int flags, const QPixmap& pixmap) const {
    return ofApplication().itemPixmapRect(rect, flags, pixmap);
}

void Outlines::drawItemText(QPainter* painter, const QRect& rect, int flags,
                            const QPalette& palette, bool enabled, const QString& text,
                            QPalette::ColorRole role) const {
    ofApplication().drawItemText(painter, rect, flags, palette, enabled, text, role);
}

void Outlines::drawItemPixmap(QPainter* painter, const QRect& rect, int alignment,
                              const QPixmap& pixmap) const {
    ofApplication().drawItemPixmap(painter, rect, alignment, pixmap);
}

QPalette Outlines::standardPalette() const {
    return ofApplication().standardPalette();
}

QRect Outlines::subElementRect(SubElement element, const QStyleOption* option,
                               const QWidget* widget) const {
    return ofApplication().subElementRect(element, option, widget);
}

QStyle::SubControl Outlines::hitTestComplexControl(ComplexControl control,
                                                   const QStyleOptionComplex* option,
                                                   const QPoint& place,
                                                   const QWidget* widget) const {
    return ofApplication().hitTestComplexControl(control, option, place, widget);
}

QRect Outlines::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                               SubControl part, const QWidget* widget) const {
    return ofApplication().subControlRect(control, option, part, widget);
}

int Outlines::pixelMetric(PixelMetric metric, const QStyleOption* option,
                          const QWidget* widget) const {
    return ofApplication().pixelMetric(metric, option, widget);
}

QSize Outlines::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                 const QWidget* widget) const {
    return ofApplication().sizeFromContents(type, option, size, widget);
}

int Outlines::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* more) const {
    // Of several lists the one with the focus is to stand out.
    if (hint == SH_ItemView_ChangeHighlightOnFocus && areFaint()) return 1;
    return ofApplication().styleHint(hint, option, widget, more);
}

QPixmap Outlines::standardPixmap(StandardPixmap which, const QStyleOption* option,
                                 const QWidget* widget) const {
    return ofApplication().standardPixmap(which, option, widget);
}

QIcon Outlines::standardIcon(StandardPixmap which, const QStyleOption* option,
                             const QWidget* widget) const {
    return ofApplication().standardIcon(which, option, widget);
}

QPixmap Outlines::generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                                      const QStyleOption* option) const {
    return ofApplication().generatedIconPixmap(mode, pixmap, option);
}

int Outlines::layoutSpacing(QSizePolicy::ControlType one, QSizePolicy::ControlType other,
                            Qt::Orientation orientation, const QStyleOption* option,
                            const QWidget* widget) const {
    return ofApplication().layoutSpacing(one, other, orientation, option, widget);
}

}  // namespace wynconfig::desktop
