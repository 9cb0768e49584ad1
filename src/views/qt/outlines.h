// Outlines that can be seen, around whatever a person types, ticks or chooses in.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStyle>

namespace wynconfig::desktop {

/// Draws as the style of the application does, whichever that is by then, and over it the outlines
/// that Qt's own style draws too faintly. For single widgets, never for the application.
class Outlines : public QStyle {
  public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;

    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    QRect itemTextRect(const QFontMetrics& metrics, const QRect& rect, int flags, bool enabled,
                       const QString& text) const override;
    QRect itemPixmapRect(const QRect& rect, int flags, const QPixmap& pixmap) const override;
    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                      bool enabled, const QString& text, QPalette::ColorRole role) const override;
    void drawItemPixmap(QPainter* painter, const QRect& rect, int alignment,
                        const QPixmap& pixmap) const override;
    QPalette standardPalette() const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    SubControl hitTestComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     const QPoint& place, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
    QPixmap standardPixmap(StandardPixmap which, const QStyleOption* option,
                           const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
    QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap,
                                const QStyleOption* option) const override;
    int layoutSpacing(QSizePolicy::ControlType one, QSizePolicy::ControlType other,
                      Qt::Orientation orientation, const QStyleOption* option,
                      const QWidget* widget) const override;

  private:
    bool areFaint() const;

    mutable QPointer<QStyle> m_judged;
    mutable bool m_areFaint = false;
};

}  // namespace wynconfig::desktop
