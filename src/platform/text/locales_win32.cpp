// Locales by Windows, which knows them by names of BCP 47.
#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "platform/text/locales.h"
#include "platform/text/text.h"

namespace wynconfig {

namespace {

/// A name of Windows is of ASCII alone.
std::wstring wide(const std::string& name) {
    return {name.begin(), name.end()};
}

std::string inUtf8(std::wstring_view text) {
    std::string utf8(3 * text.size(), '\0');
    const int length =
        ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), utf8.data(),
                              static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(std::max(length, 0)));
    return utf8;
}

/// What Windows tells about a locale; empty when it can't. No name stands for the user's own.
std::string told(const std::string& name, LCTYPE what) {
    std::array<wchar_t, 200> text{};
    const std::wstring given = wide(name);
    const int length = ::GetLocaleInfoEx(name.empty() ? LOCALE_NAME_USER_DEFAULT : given.c_str(),
                                         what, text.data(), static_cast<int>(text.size()));
    // The length counts the 0 at the end.
    return length <= 1 ? "" : inUtf8({text.data(), static_cast<std::size_t>(length) - 1});
}

/// Whether Windows has data of a locale. It takes any name of the right form for a locale.
bool isKnown(const std::string& name) {
    constexpr LCTYPE kIsConstructed = 0x7D;  // asked for as a number
    DWORD constructed = 0;
    const std::wstring given = wide(name);
    if (name.empty() || !::IsValidLocaleName(given.c_str())) return false;
    const int length =
        ::GetLocaleInfoEx(given.c_str(), kIsConstructed | LOCALE_RETURN_NUMBER,
                          reinterpret_cast<wchar_t*>(&constructed), sizeof constructed / 2);
    return length == 0 || constructed == 0;
}

/// The locale in whose language the user reads: that of Windows' own windows.
std::string nameOfTheUser() {
    std::array<wchar_t, 4 * LOCALE_NAME_MAX_LENGTH> names{};
    ULONG count = 0;
    auto size = static_cast<ULONG>(names.size());
    if (::GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, names.data(), &size) && count > 0)
        return inUtf8(names.data());
    return told("", LOCALE_SNAME);
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isNumeral(char c) {
    return c >= '0' && c <= '9';
}

bool isAll(std::string_view text, bool (*kind)(char)) {
    return std::all_of(text.begin(), text.end(), kind);
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    for (char& each : lower)
        if (each >= 'A' && each <= 'Z') each = static_cast<char>(each - 'A' + 'a');
    return lower;
}

/// The parts of a name: behind "." and "@" stands what no name of BCP 47 has.
std::vector<std::string> partsOf(const std::string& name) {
    std::vector<std::string> parts(1);
    for (const char each : name.substr(0, name.find_first_of(".@"))) {
        if (each == '-' || each == '_')
            parts.emplace_back();
        else
            parts.back() += each;
    }
    return parts;
}

/// Adds the parts behind the language to a locale. False for a text that is no name.
bool takeParts(const std::vector<std::string>& parts, Locale& locale) {
    for (std::size_t at = 1; at < parts.size(); ++at) {
        const std::string& part = parts[at];
        const bool isWord = isAll(part, isLetter);
        const bool isVariant = part.size() >= 4 && part.size() <= 8 &&
                               isAll(part, [](char c) { return isLetter(c) || isNumeral(c); });
        std::string taken = UCase(part);
        if (part.size() == 1) break;  // what follows are settings, not the name
        if (part.size() == 4 && isWord && at == 1) {
            taken = taken.substr(0, 1) + lowered(taken.substr(1));
            locale.script = taken;
        } else if (locale.region.empty() &&
                   ((part.size() == 2 && isWord) || (part.size() == 3 && isAll(part, isNumeral)))) {
            locale.region = taken;
        } else if (!isVariant) {
            return false;
        }
        locale.tag += "-" + taken;
    }
    return true;
}

/// Those with forms of full width. Each stands for several, such as "Jpan" for kanji and kana.
constexpr std::array<const char*, 4> kScriptsOfFullWidth{"Hans", "Hant", "Jpan", "Kore"};
constexpr std::array<const char*, 6> kScriptsFromTheRight{"Adlm", "Arab", "Hebr",
                                                          "Nkoo", "Syrc", "Thaa"};

template <std::size_t Size>
bool isAmong(const std::array<const char*, Size>& all, const std::string& one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

/// The script that a locale is written in, where its name does not tell it.
std::string usualScript(const Locale& locale) {
    for (const std::string& name : {locale.language + "-" + locale.region, locale.language}) {
        // Such as "Latn;", or "Hani;Hans;", where one of them stands for them all.
        const std::string scripts = isKnown(name) ? told(name, LOCALE_SSCRIPTS) : "";
        for (const char* all : kScriptsOfFullWidth)
            if (scripts.find(all) != std::string::npos) return all;
        if (!scripts.empty()) return scripts.substr(0, scripts.find(';'));
    }
    return {};
}

/// The first of some names by which Windows knows a locale; empty where it knows none.
std::string firstKnown(std::initializer_list<std::string> names) {
    const auto* const known = std::find_if(names.begin(), names.end(), isKnown);
    return known == names.end() ? std::string{} : *known;
}

}  // namespace

Locale localeOf(const std::string& name) {
    const std::vector<std::string> parts = partsOf(name.empty() ? nameOfTheUser() : name);
    const std::string language = lowered(parts[0]);
    Locale locale{language, language, {}, {}};
    if (language.size() < 2 || language.size() > 3 || !isAll(language, isLetter)) return {};
    if (!takeParts(parts, locale)) return {};
    if (locale.script.empty()) locale.script = usualScript(locale);
    return locale;
}

std::string ownNameOf(const std::string& tag) {
    const Locale locale = localeOf(tag);
    const std::string inScript = locale.language + "-" + locale.script;
    const std::string known = firstKnown({locale.tag, inScript + "-" + locale.region, inScript,
                                          locale.language + "-" + locale.region, locale.language});
    const std::string name = known.empty() ? "" : told(known, LOCALE_SNATIVEDISPLAYNAME);
    if (name.empty()) return tag;
    const std::size_t first = byteOffset(name, 1);
    return UCase(name.substr(0, first)) + name.substr(first);
}

bool isRightToLeft(const std::string& tag) {
    return isAmong(kScriptsFromTheRight, localeOf(tag).script);
}

NumberMarks numberMarksOf(const std::string& name) {
    // Of the user's own locale Windows tells what the user has set.
    const Locale locale = localeOf(name.empty() ? told("", LOCALE_SNAME) : name);
    const std::string inScript = locale.language + "-" + locale.script;
    const std::string known =
        name.empty()
            ? ""
            : firstKnown({locale.tag, inScript + "-" + locale.region,
                          locale.language + "-" + locale.region, inScript, locale.language});
    const bool hasCurrency = name.empty() || !known.empty();
    return {told(known, LOCALE_SDECIMAL), told(known, LOCALE_STHOUSAND),
            hasCurrency ? told(known, LOCALE_SCURRENCY) : "",
            isAmong(kScriptsOfFullWidth, locale.script)};
}

}  // namespace wynconfig
