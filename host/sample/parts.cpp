// Reads the table of parts that the program carries in itself.
#include "sample/parts.h"

#include <QFile>
#include <QStringList>
#include <stdexcept>

namespace host {

namespace {

/// The fields of a line, in their order.
struct Field {
    enum { Number, Group, Description, Cents, Stock, Count };
};

CataloguePart partIn(const QString& line) {
    const QStringList fields = line.split(u'\t');
    bool priced = false;
    bool counted = false;
    CataloguePart part;
    if (fields.size() == Field::Count) {
        part = {fields[Field::Number], fields[Field::Group], fields[Field::Description],
                fields[Field::Cents].toInt(&priced), fields[Field::Stock].toInt(&counted)};
    }
    if (!priced || !counted)
        throw std::runtime_error("The catalogue holds a line that is no part: " +
                                 line.toStdString());
    return part;
}

}  // namespace

QList<CataloguePart> catalogueParts() {
    QFile file(QStringLiteral(":/sample/parts.tsv"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("The catalogue's parts can't be read");
    QList<CataloguePart> parts;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (!line.isEmpty() && !line.startsWith(u'#')) parts << partIn(line);
    }
    return parts;
}

}  // namespace host
