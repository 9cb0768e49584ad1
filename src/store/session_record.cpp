// The table of a session's keys.
#include "store/session_record.h"

#include "platform/text/numbers.h"

namespace wynconfig::session {

std::string FORMAT(int number) {
    return "FORMAT" + std::to_string(number);
}

const std::array<Key, 21>& keys() {
    static const std::string format1 = FORMAT(1);
    static const std::array<Key, 21> table{{
        {ProgramPath, Writer::Session},
        {CommandLineArgs, Writer::Session},
        {ReverseList, Writer::Session},
        {AutoResize, Writer::Session},
        {Orientation, Writer::Session},
        {FormatCount, Writer::Session},
        {format1, Writer::Session},
        {WindowTitleSearchType, Writer::Advanced},
        {WindowClassSearchType, Writer::Advanced},
        {WindowTitle, Writer::Advanced},
        {WindowClass, Writer::Advanced},
        {DisableProgramLaunch, Writer::Advanced},
        {WindowTitleClassDelay, Writer::Advanced},
        {ProgramLaunchDelay, Writer::Advanced},
        {WindowTitleCaseSensitive, Writer::Advanced},
        {WindowClassCaseSensitive, Writer::Advanced},
        {PartFormat, Writer::FileWriter},
        {FileName, Writer::FileWriter},
        {FileFolder, Writer::FileWriter},
        {FileAction, Writer::FileWriter},
        {WriteFileOnly, Writer::FileWriter},
    }};
    return table;
}

void carryFormat(Dataset& record, const std::string& oldName, const std::string& newName) {
    const int count = toInt16(record.GetRow(FormatCount)[1]);
    int found = 1;
    while (found <= count && record.GetRow(FORMAT(found))[1] != oldName) ++found;
    if (found > count) return;
    if (!newName.empty()) {
        const DataRow renamed{FORMAT(found), newName};
        record.UpdateRow(renamed, renamed);
        return;
    }
    for (int number = found; number < count; ++number) {
        const DataRow moved{FORMAT(number), record.GetRow(FORMAT(number + 1))[1]};
        record.UpdateRow(moved, moved);
    }
    const DataRow lowered{FormatCount, std::to_string(count - 1)};
    record.UpdateRow(lowered, lowered);
    record.DeleteRow(FORMAT(count));
}

bool isOnlyFormat(const Dataset& record, const std::string& name) {
    return toInt16(record.GetRow(FormatCount)[1]) == 1 && record.GetRow(FORMAT(1))[1] == name;
}

std::string switchText(bool on) {
    return on ? "true" : "false";
}

}  // namespace wynconfig::session
