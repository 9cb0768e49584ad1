// Takes any text as a document and loads a record from it. A refusal leaves the record as it was,
// and what is loaded comes back by a document of its own.
#include <cstdint>
#include <string>

#include "require.h"
#include "wynconfig/dataset.h"
#include "wynconfig/error.h"

namespace {

using namespace wynconfig;

bool loads(Dataset& record, const Document& document) {
    try {
        record.Load(document);
    } catch (const Error& error) {
        require(error.number() == errc::BadRecord);
        return false;
    }
    return true;
}

std::string textOf(const Dataset& record) {
    Document document;
    record.Save(document);
    return document.xml();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    Dataset record;
    record.AddRow({"old", "row"});
    const std::string before = textOf(record);
    Document document;
    const bool taken = document.loadXML(text);
    require(document.xml() == (taken ? text : ""));
    if (!loads(record, document)) {
        require(textOf(record) == before);
        return 0;
    }
    require(taken);
    Document saved;
    record.Save(saved);
    Document handedOver;
    require(handedOver.loadXML(saved.xml()));
    Dataset again;
    require(loads(again, handedOver));
    require(again.Type() == record.Type() && again.Name() == record.Name());
    require(again.Rows() == record.Rows());
    require(textOf(again) == saved.xml());
    return 0;
}
