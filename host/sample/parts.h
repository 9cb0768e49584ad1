// The parts of the sample catalogue.
#pragma once

#include <QList>
#include <QString>

namespace host {

/// One part of the catalogue.
struct CataloguePart {
    QString number;
    QString group;
    QString description;
    int cents = 0;
    int stock = 0;
};

/// All parts, as they stand in parts.tsv. Raises `std::runtime_error` when a line of it is no part.
QList<CataloguePart> catalogueParts();

}  // namespace host
