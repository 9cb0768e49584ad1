// The table of a session's keys.
#include "store/session_record.h"

#include "platform/text/numbers.h"

namespace wynconfig::session {

const std::array<Key, 21>& keys() {
    static const std::string format1 = formatKey(1);
    static const std::array<Key, 21> table{{
        {kProgramPath, Writer::Session},
        {kCommandLineArgs, Writer::Session},
        {kReverseList, Writer::Session},
        {kAutoResize, Writer::Session},
        {kOrientation, Writer::Session},
        {kFormatCount, Writer::Session},
        {format1, Writer::Session},
        {kWindowTitleSearchType, Writer::Advanced},
        {kWindowClassSearchType, Writer::Advanced},
        {kWindowTitle, Writer::Advanced},
        {kWindowClass, Writer::Advanced},
        {kDisableProgramLaunch, Writer::Advanced},
        {kWindowTitleClassDelay, Writer::Advanced},
        {kProgramLaunchDelay, Writer::Advanced},
        {kWindowTitleCaseSensitive, Writer::Advanced},
        {kWindowClassCaseSensitive, Writer::Advanced},
        {kPartFormat, Writer::FileWriter},
        {kFileName, Writer::FileWriter},
        {kFileFolder, Writer::FileWriter},
        {kFileAction, Writer::FileWriter},
        {kWriteFileOnly, Writer::FileWriter},
    }};
    return table;
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

bool isOnlyFormat(const Dataset& record, const std::string& name) {
    return toInt16(record.GetRow(kFormatCount)[1]) == 1 && record.GetRow(formatKey(1))[1] == name;
}

}  // namespace wynconfig::session
