// The usual reasons and their keys.
#include "texts/system_words.h"

#include <array>
#include <utility>

#include "texts/phrase.h"

namespace host {

namespace {

constexpr std::array<std::pair<std::errc, const char*>, 10> kUsual = {{
    {std::errc::permission_denied, "SYSTEM_NO_RIGHT"},
    {std::errc::operation_not_permitted, "SYSTEM_NO_RIGHT"},
    {std::errc::no_space_on_device, "SYSTEM_NO_SPACE"},
    {std::errc::no_such_file_or_directory, "SYSTEM_NOT_THERE"},
    {std::errc::is_a_directory, "REASON_IS_FOLDER"},
    {std::errc::not_a_directory, "SYSTEM_PATH_IS_FILE"},
    {std::errc::read_only_file_system, "SYSTEM_READ_ONLY"},
    {std::errc::filename_too_long, "SYSTEM_NAME_TOO_LONG"},
    {std::errc::device_or_resource_busy, "SYSTEM_IN_USE"},
    {std::errc::text_file_busy, "SYSTEM_IN_USE"},
}};

}  // namespace

std::string systemWords(const std::error_code& failure) {
    for (const auto& [code, key] : kUsual)
        if (failure == code) return phrase(key);
    return failure.message();
}

std::string reasonTold(const std::string& sentence) {
    for (const auto& [code, key] : kUsual)
        if (sentence.ends_with(": " + std::make_error_code(code).message() + "."))
            return phrase(key);
    return {};
}

std::string inUsersWords(const std::string& sentence) {
    const std::string why = reasonTold(sentence);
    return why.empty() ? sentence : why + ".";
}

}  // namespace host
