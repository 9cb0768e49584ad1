// Whether all that is in a window can be told from its ground, in light colours as in dark ones.
#pragma once

#include <gtest/gtest.h>

#include <QHeaderView>
#include <set>
#include <string>
#include <vector>

#include "support/picture.h"

namespace wynconfig {

constexpr double kOutline = 3.0;
constexpr double kText = 4.5;

struct Scheme {
    const char* name;
    QPalette palette;
};

inline std::vector<Scheme> schemes() {
    QPalette black(Qt::black);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        black.setColor(role, Qt::black);
    return {{"light", QApplication::palette()}, {"dark", darkColours()}, {"black", black}};
}

inline void expectOutline(const Picture& picture, const QWidget& widget, const QRect& place) {
    const Picture::Edge edge = picture.edgeOf(widget, place);
    EXPECT_GE(edge.outside, kOutline);
    // The bevels of buttons are no ground that anything is written on.
    if (!qobject_cast<const QPushButton*>(&widget)) {
        EXPECT_GE(edge.inside, kOutline);
    }
}

/// Looks at the texts of the rows that are in sight.
inline void expectRowsClear(const Picture& picture, const QAbstractItemView& view) {
    const QAbstractItemModel& rows = *view.model();
    for (int row = 0; row < rows.rowCount(); ++row) {
        for (int column = 0; column < rows.columnCount(); ++column) {
            const QModelIndex index = rows.index(row, column);
            const QRect place = view.visualRect(index);
            if (index.data().toString().isEmpty() || !view.viewport()->rect().contains(place) ||
                place.isEmpty())
                continue;
            EXPECT_GE(picture.markContrast(*view.viewport(), place.adjusted(1, 1, -1, -1)), kText)
                << row << ", " << column;
        }
    }
}

/// Looks at all that is on the screen of a window.
/// @return the kinds of what had an outline
inline std::set<std::string> expectClear(QWidget& shown) {
    std::set<std::string> outlined;
    const Picture picture(shown);
    for (QWidget* each : shown.findChildren<QWidget*>()) {
        if (!each->isVisibleTo(&shown) || each->visibleRegion().isEmpty()) continue;
        const QString what = each->metaObject()->className() + (" \"" + each->objectName()) + "\"";
        SCOPED_TRACE((what + (each->isEnabled() ? "" : ", disabled")).toStdString());
        if (const auto part = outlinedPart(*each)) {
            expectOutline(picture, *each, *part);
            outlined.insert(each->metaObject()->className());
        }
        for (const QRect& text : textsOf(*each))
            EXPECT_GE(picture.markContrast(*each, text), kText);
        const auto* view = qobject_cast<const QAbstractItemView*>(each);
        if (view && view->model() && !qobject_cast<const QHeaderView*>(view))
            expectRowsClear(picture, *view);
    }
    return outlined;
}

}  // namespace wynconfig
