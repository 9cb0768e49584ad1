// Makes a record of any texts, changes its rows, and lets it go through its text.
#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "require.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace {

using namespace wynconfig;

/// Adds, removes or replaces a row, as the rows of a map go as well.
void change(Dataset& record, std::map<std::string, std::string>& rows, FuzzedDataProvider& input) {
    const bool removes = input.ConsumeIntegralInRange(0, 3) == 0;
    const std::string key = input.ConsumeRandomLengthString();
    const bool there = rows.contains(key);
    try {
        if (removes) {
            record.DeleteRow(key);
            require(there);
            rows.erase(key);
            return;
        }
        const std::string data = input.ConsumeRandomLengthString();
        record.AddRow({key, data});
        require(!there);
        rows[key] = data;
    } catch (const Error& error) {
        require(error.number() == (removes ? errc::NoSuchKey : errc::DuplicateKey));
        require(there != removes);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const auto text = [&] { return input.ConsumeRandomLengthString(); };
    Dataset record;
    const std::string type = text();
    const std::string name = text();
    const std::array<std::string, 2> columns{text(), text()};
    record.Create(type, name, "", columns);
    record.SetKey(columns[input.ConsumeIntegralInRange<std::size_t>(0, 1)]);
    std::map<std::string, std::string> rows;
    while (input.remaining_bytes() > 0) change(record, rows, input);
    require(record.Rows().size() == rows.size());
    for (const auto& [key, value] : rows) require(record.GetRow(key) == DataRow{key, value});

    Document document;
    record.Save(document);
    Document handedOver;
    require(handedOver.loadXML(document.xml()));
    Dataset loaded;
    loaded.Load(handedOver);
    require(loaded.Type() == type && loaded.Name() == name && loaded.Rows() == record.Rows());
    Document again;
    loaded.Save(again);
    require(again.xml() == document.xml());
    // The parser looks at what does not stand as it is written.
    Document unlike;
    require(unlike.loadXML(document.xml() + "\n"));
    Dataset parsed;
    parsed.Load(unlike);
    require(parsed.Type() == type && parsed.Name() == name && parsed.Rows() == record.Rows());
    return 0;
}
