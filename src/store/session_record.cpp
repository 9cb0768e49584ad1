// Changing and counting the part formats of a session.
#include "store/session_record.h"

#include "platform/files/file_system.h"
#include "platform/text/numbers.h"
#include "platform/text/text.h"
#include "wynconfig/characters.h"

namespace wynconfig::session {

bool isFormatKey(const std::string& key) {
    return key.starts_with(kFormatPrefix);
}

void carryFormat(Dataset& record, const std::string& oldName, const std::string& newName) {
    const int count = toInt16(record.GetRow(kFormatCount)[1]);
    int found = 1;
    while (found <= count && record.GetRow(formatKey(found))[1] != oldName) ++found;
    if (found > count) return;
    if (!newName.empty()) {
        const DataRow renamed{formatKey(found), newName};
        record.UpdateRow(renamed, renamed);
        return;
    }
    for (int number = found; number < count; ++number) {
        const DataRow moved{formatKey(number), record.GetRow(formatKey(number + 1))[1]};
        record.UpdateRow(moved, moved);
    }
    const DataRow lowered{kFormatCount, std::to_string(count - 1)};
    record.UpdateRow(lowered, lowered);
    record.DeleteRow(formatKey(count));
}

bool renameFormat(Dataset& record, const std::string& oldName, const std::string& newName) {
    const std::string wanted = UCase(oldName);
    std::vector<DataRow> renamed;
    for (const auto& [key, name] : record.Rows()) {
        if ((isFormatKey(key) || key == kPartFormat) && UCase(name) == wanted)
            renamed.push_back({key, newName});
    }
    for (const DataRow& row : renamed) record.UpdateRow(row, row);
    return !renamed.empty();
}

std::vector<std::string> offeredFormats(const Dataset& record) {
    std::vector<std::string> names;
    for (const DataRow& row : record.Rows()) {
        if (isFormatKey(row[0])) names.push_back(row[1]);
    }
    return names;
}

bool isOnlyFormat(const Dataset& record, const std::string& name) {
    return toInt16(record.GetRow(kFormatCount)[1]) == 1 && record.GetRow(formatKey(1))[1] == name;
}

bool programExists(std::string path) {
    const std::size_t length = charCount(path);
    if (path.starts_with('"') && length >= 2)
        path = path.substr(1, byteOffset(path, length - 1) - 1);
    return fileSystem().existsExactly(path);
}

}  // namespace wynconfig::session
