// Locales by ICU.
#include <unicode/uldnames.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "platform/text/locales.h"

namespace wynconfig {

namespace {

/// Runs an ICU call that fills a buffer, and gives what it wrote; empty when it failed.
template <typename Unit, typename Fill>
std::basic_string<Unit> filled(Fill fill) {
    std::basic_string<Unit> buffer(ULOC_FULLNAME_CAPACITY, Unit{});
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length =
        fill(buffer.data(), static_cast<std::int32_t>(buffer.size()), &status);
    if (U_FAILURE(status) || length < 0 || length > static_cast<std::int32_t>(buffer.size()))
        return {};
    buffer.resize(static_cast<std::size_t>(length));
    return buffer;
}

/// What a function of ICU tells about a locale, or an empty text when it can't.
template <class Function>
std::string askIcu(Function function, const std::string& locale) {
    return filled<char>([&](char* to, std::int32_t size, UErrorCode* status) {
        return function(locale.c_str(), to, size, status);
    });
}

/// The locale's name in ICU's form, "de_DE" for "de-DE" or "de_DE.UTF-8"; the user's for none.
std::string canonicalName(const std::string& name) {
    return askIcu(uloc_canonicalize, name.empty() ? uloc_getDefault() : name);
}

/// The script that a locale is written in, "Hans" for "zh_CN".
std::string scriptOf(const std::string& icuName) {
    return askIcu(uloc_getScript, askIcu(uloc_addLikelySubtags, icuName));
}

std::string inUtf8(const std::u16string& text) {
    return filled<char>([&](char* to, std::int32_t size, UErrorCode* status) {
        std::int32_t length = 0;
        u_strToUTF8(to, size, &length, text.data(), static_cast<std::int32_t>(text.size()), status);
        return length;
    });
}

/// The full name of a locale, the user's for no name and for one that is no name at all. The
/// country, guessed where it is missing, tells the currency; the digits are set to ASCII ones, so
/// that the marks are those written with such digits.
std::string fullLocaleName(const std::string& locale) {
    const std::string asked = askIcu(uloc_canonicalize, locale);
    const std::string known = asked.empty() ? uloc_getDefault() : asked;
    return filled<char>([&](char* to, std::int32_t size, UErrorCode* status) {
        uloc_addLikelySubtags(known.c_str(), to, size, status);
        return uloc_setKeywordValue("numbers", "latn", to, size, status);
    });
}

/// Whether a locale, by its full name, is written in a script with forms of full width.
bool writesFullWidth(const std::string& fullName) {
    const std::string script = askIcu(uloc_getScript, fullName);
    return script == "Jpan" || script == "Hans" || script == "Hant" || script == "Kore";
}

std::string symbolOf(const UNumberFormat* format, UNumberFormatSymbol symbol) {
    return inUtf8(filled<UChar>([&](UChar* to, std::int32_t size, UErrorCode* status) {
        return unum_getSymbol(format, symbol, to, size, status);
    }));
}

}  // namespace

Locale localeOf(const std::string& name) {
    const std::string icuName = askIcu(uloc_getBaseName, canonicalName(name));
    Locale locale{icuName, askIcu(uloc_getLanguage, icuName), scriptOf(icuName),
                  askIcu(uloc_getCountry, icuName)};
    std::replace(locale.tag.begin(), locale.tag.end(), '_', '-');
    const bool plain = std::all_of(locale.tag.begin(), locale.tag.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '-';
    });
    return plain && !locale.language.empty() ? locale : Locale{};
}

std::string ownNameOf(const std::string& tag) {
    UDisplayContext contexts[] = {UDISPCTX_DIALECT_NAMES,
                                  UDISPCTX_CAPITALIZATION_FOR_UI_LIST_OR_MENU};
    const std::string icuName = canonicalName(tag);
    UErrorCode opened = U_ZERO_ERROR;
    const icu::LocalULocaleDisplayNamesPointer names(
        uldn_openForContext(icuName.c_str(), contexts, std::size(contexts), &opened));
    if (U_FAILURE(opened)) return tag;
    const std::string own =
        inUtf8(filled<UChar>([&](UChar* to, std::int32_t size, UErrorCode* status) {
            return uldn_localeDisplayName(names.getAlias(), icuName.c_str(), to, size, status);
        }));
    return own.empty() ? tag : own;
}

bool isRightToLeft(const std::string& tag) {
    return uloc_isRightToLeft(canonicalName(tag).c_str()) != 0;
}

NumberMarks numberMarksOf(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    const std::string full = fullLocaleName(name);
    UNumberFormat* const format =
        unum_open(UNUM_DECIMAL, nullptr, 0, full.c_str(), nullptr, &status);
    const icu::LocalUNumberFormatPointer owner(format);
    if (U_FAILURE(status)) return {".", ",", "", false};
    NumberMarks marks{symbolOf(format, UNUM_DECIMAL_SEPARATOR_SYMBOL),
                      symbolOf(format, UNUM_GROUPING_SEPARATOR_SYMBOL),
                      symbolOf(format, UNUM_CURRENCY_SYMBOL), writesFullWidth(full)};
    // The general currency sign is what ICU gives where it knows no currency.
    if (marks.currency == "\u00A4") marks.currency.clear();
    return marks;
}

}  // namespace wynconfig
