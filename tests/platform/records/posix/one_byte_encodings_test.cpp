// The encodings of one byte a character, against the tables of a system that has them all. Windows
// builds with the same tables of ours.
#include <gtest/gtest.h>
#include <iconv.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/records/record_xml.h"
#include "wynconfig/error.h"

namespace wynconfig {
namespace {

/// Turns bytes into UTF-8 by the system's own tables; nothing where they stand for nothing.
std::optional<std::string> bySystem(const std::string& encoding, std::string bytes) {
    const iconv_t converter = iconv_open("UTF-8", encoding.c_str());
    EXPECT_NE(converter, reinterpret_cast<iconv_t>(-1)) << encoding;  // NOLINT(*-no-int-to-ptr)
    std::string text(16, ' ');
    char* in = bytes.data();
    char* out = text.data();
    std::size_t inLeft = bytes.size();
    std::size_t outLeft = text.size();
    const bool fails =
        iconv(converter, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1) ||
        iconv(converter, nullptr, nullptr, &out, &outLeft) == static_cast<std::size_t>(-1);
    iconv_close(converter);
    if (fails) return {};
    return text.substr(0, text.size() - outLeft);
}

/// The families of encodings that are read.
std::vector<std::string> families() {
    std::vector<std::string> all;
    for (int part = 1; part <= 16; ++part)
        if (part != 12) all.push_back("ISO-8859-" + std::to_string(part));
    for (int page = 1250; page <= 1258; ++page) all.push_back("windows-" + std::to_string(page));
    return all;
}

/// What comes of a file whose record has a name of these bytes; nothing where it is no record.
std::optional<std::string> nameIn(const std::string& encoding, const std::string& bytes) {
    const std::string xml =
        "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?><dataset name=\"" + bytes + "\"/>";
    try {
        return readRecord(xml, XmlSource::File).name;
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errc::BadRecord);
        return {};
    }
}

TEST(OneByteEncodings, ReadAsTheSystemReadsThem) {
    for (const std::string& encoding : families()) {
        for (int byte = 0x80; byte <= 0xFF; ++byte) {
            const std::string bytes(1, static_cast<char>(byte));
            EXPECT_EQ(nameIn(encoding, bytes), bySystem(encoding, bytes))
                << encoding << " " << byte;
        }
    }
}

}  // namespace
}  // namespace wynconfig
