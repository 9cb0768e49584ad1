// Reads any bytes as a file of texts. What is taken for one has texts that are UTF-8, and is read
// alike a second time.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/resources/text_file.h"
#include "platform/text/text.h"
#include "require.h"
#include "wynconfig/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wynconfig;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::vector<FileText> texts;
    try {
        texts = readTextFile(bytes);
    } catch (const Error& error) {
        require(error.number() == errc::BadRecord && !error.description().empty());
        return 0;
    }
    const std::vector<FileText> again = readTextFile(bytes);
    require(again.size() == texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const FileText& each = texts[i];
        require(isUtf8(each.key) && isUtf8(each.source) && isUtf8(each.target.value_or("")));
        require(each.key == again[i].key && each.source == again[i].source &&
                each.target == again[i].target);
    }
    return 0;
}
