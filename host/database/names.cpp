// Upper-casing names, and listing those of a store.
#include "database/names.h"

#include <QChar>
#include <QList>
#include <QString>

namespace host {

namespace fs = std::filesystem;

std::string upperName(std::string_view name) {
    QString result;
    for (const uint character :
         QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).toUcs4()) {
        const char32_t upper = QChar::toUpper(character);
        const char32_t kept = QChar::toLower(upper) == character ? upper : character;
        result += QString::fromUcs4(&kept, 1);
    }
    return result.toStdString();
}

std::set<std::string> itemNames(const fs::path& folder) {
    std::set<std::string> names;
    if (!fs::exists(folder)) return names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file() && upperName(entry.path().extension().string()) == ".VLA")
            names.insert(upperName(entry.path().stem().string()));
    }
    return names;
}

}  // namespace host
