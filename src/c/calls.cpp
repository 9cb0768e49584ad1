// Failures on their way out, texts on their way in and out, and the calls about the library itself.
#include "c/calls.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

#include "platform/text/text.h"
#include "wynconfig/version.h"

namespace wynconfig::c {

namespace {

struct LastError {
    std::int32_t number = 0;
    std::string description;
    const char* function = "";
    std::size_t count = 0;
};

LastError& lastError() {
    thread_local LastError error;
    return error;
}

std::int32_t note(const char* function, long number, const std::string& description) {
    LastError& error = lastError();
    constexpr long least = std::numeric_limits<std::int32_t>::min();
    constexpr long most = std::numeric_limits<std::int32_t>::max();
    error.number = number == WYN_OK ? WYN_ERROR_CALL
                                    : static_cast<std::int32_t>(std::clamp(number, least, most));
    error.function = function;
    ++error.count;
    error.description = description;
    return error.number;
}

std::int32_t noteCurrent(const char* function) {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return note(function, WYN_ERROR_MEMORY, "No memory left");
    } catch (const UserError& error) {
        return note(function, WYN_ERROR_USER, error.what());
    } catch (...) {
        const Error error = Error::fromCurrentException();
        return note(function, error.number(), error.description());
    }
}

}  // namespace

std::int32_t runErased(const char* function, void (*call)(const void* act),
                       const void* act) noexcept {
    try {
        call(act);
        return WYN_OK;
    } catch (...) {
        try {
            return noteCurrent(function);
        } catch (...) {
            lastError().description.clear();
            return lastError().number = WYN_ERROR_MEMORY;
        }
    }
}

std::size_t failureCount() {
    return lastError().count;
}

void requireOk(std::int32_t status, const char* what, std::size_t failures) {
    if (status == WYN_OK) return;
    // It may have given a number without a word, and the last word is about something else.
    const LastError& error = lastError();
    const bool told = error.count != failures && error.number == status;
    throw Error(status, told ? error.description
                             : std::string("The host's ") + what + " failed with " +
                                   std::to_string(status) + ".");
}

std::string textIn(const char* text) {
    std::string taken = text ? text : "";
    if (!isUtf8(taken)) throw Error(WYN_ERROR_TEXT, "A text has to be UTF-8.");
    return taken;
}

char* textOut(const std::string& text) {
    char* const given = static_cast<char*>(std::malloc(text.size() + 1));
    if (!given) throw std::bad_alloc();
    std::memcpy(given, text.c_str(), text.size() + 1);
    return given;
}

void requirePlace(const void* place) {
    if (!place) throw Error(WYN_ERROR_CALL, "There is no place for the result.");
}

wyn_list* listOf(Rows rows) {
    return open(std::make_shared<const Rows>(std::move(rows)));
}

wyn_list* listOf(const std::vector<std::string>& texts) {
    Rows rows;
    for (const std::string& text : texts) rows.push_back({{}, text});
    return listOf(std::move(rows));
}

ItemKind itemKind(std::int32_t kind) {
    if (kind == WYN_SESSION) return ItemKind::Session;
    if (kind == WYN_PART_FORMAT) return ItemKind::PartFormat;
    throw Error(WYN_ERROR_CALL, "An item is a session or a part format.");
}

namespace {

const Row& rowOf(const Rows& rows, std::size_t index) {
    if (index >= rows.size()) throw Error(WYN_ERROR_RANGE, "The list has no such row.");
    return rows[index];
}

}  // namespace

}  // namespace wynconfig::c

using namespace wynconfig;
using namespace wynconfig::c;

int32_t wyn_version(void) {
    return version();
}

const char* wyn_version_text(void) {
    return versionText();
}

int32_t wyn_last_error(wyn_error* error) {
    // Its own failure can only be told by its number.
    if (!error || error->size < sizeof(wyn_error)) return WYN_ERROR_STRUCT;
    const LastError& last = lastError();
    *error = {error->size, last.number, last.description.c_str(), last.function};
    return WYN_OK;
}

int32_t wyn_fail(int32_t number, const char* description) {
    return run("wyn_fail", [&] { throw Error(number, textIn(description)); });
}

void wyn_free(char* text) {
    std::free(text);
}

int32_t wyn_close(void* handle) {
    if (!handle) return WYN_OK;
    return run("wyn_close", [&] { forget(reinterpret_cast<std::uintptr_t>(handle), true); });
}

int32_t wyn_list_count(wyn_list* list, size_t* count) {
    return run("wyn_list_count", [&] {
        requirePlace(count);
        *count = get<const Rows>(list)->size();
    });
}

int32_t wyn_list_text(wyn_list* list, size_t index, char** text) {
    return run("wyn_list_text", [&] {
        requirePlace(text);
        *text = textOut(rowOf(*get<const Rows>(list), index).text);
    });
}

int32_t wyn_list_key(wyn_list* list, size_t index, char** key) {
    return run("wyn_list_key", [&] {
        requirePlace(key);
        *key = textOut(rowOf(*get<const Rows>(list), index).key);
    });
}

int32_t wyn_give(wyn_answer* answer, const char* text) {
    return run("wyn_give", [&] { get<Answer>(answer)->text = textIn(text); });
}
