// Texts from the files of a folder, and the languages that there are files of. The texts of a
// language lie over the English ones, and all of them are read once, so that a look-up needs no
// disk.

#include <unicode/uldnames.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/resources/text_file.h"
#include "wynconfig/error.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

using Texts = std::unordered_map<std::string, std::string>;

constexpr std::string_view kFallbackLanguage = "en";
constexpr char kExtension[] = ".xlf";

class BundleResourceManager : public ResourceManager {
  public:
    BundleResourceManager(Texts texts, Font font)
        : m_texts(std::move(texts)), m_font(std::move(font)) {}

    std::string GetString(const std::string& key) override {
        const auto found = m_texts.find(key);
        if (found == m_texts.end()) {
            throw Error(errc::NoSuchKey, "There is no text for the key \"" + key + "\".");
        }
        return found->second;
    }

    Font GetFont(long /*handle*/) override { return m_font; }

  private:
    Texts m_texts;
    Font m_font;
};

/// What a function of ICU tells about a locale, or an empty text when it can't.
template <class Function>
std::string askIcu(Function function, const std::string& locale) {
    char answer[ULOC_FULLNAME_CAPACITY] = {};
    UErrorCode status = U_ZERO_ERROR;
    function(locale.c_str(), answer, ULOC_FULLNAME_CAPACITY, &status);
    return U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING ? std::string{} : answer;
}

/// The locale's plain name in ICU's form, "de_DE" for "de-DE" or "de_DE.UTF-8"; empty for text that
/// names no locale. The name serves as a file name, so it holds letters, digits and "_" alone.
std::string localeName(const std::string& locale) {
    const std::string given = locale.empty() ? uloc_getDefault() : locale;
    const std::string name = askIcu(uloc_getBaseName, askIcu(uloc_canonicalize, given));
    const bool plain = std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_';
    });
    return plain ? name : std::string{};
}

/// The script that a locale is written in, "Hans" for "zh_CN".
std::string scriptOf(const std::string& name) {
    return askIcu(uloc_getScript, askIcu(uloc_addLikelySubtags, name));
}

/// The locales whose texts can serve one, the most general first: "en", "de", "de_Latn", "de_DE",
/// "de_Latn_DE". Those of the language in another script don't.
std::vector<std::string> bundleNames(const std::string& locale) {
    std::vector<std::string> names{std::string(kFallbackLanguage)};
    const std::string name = localeName(locale);
    if (name.empty()) return names;
    const std::string language = askIcu(uloc_getLanguage, name);
    const std::string region = askIcu(uloc_getCountry, name);
    const std::string script = scriptOf(name);
    const std::string written = language + "_" + script;
    for (const std::string& each :
         {language, written, language + "_" + region, written + "_" + region, name}) {
        const bool known = std::find(names.begin(), names.end(), each) != names.end();
        if (!known && localeName(each) == each && scriptOf(each) == script) names.push_back(each);
    }
    return names;
}

/// A path by its UTF-8 text, whatever the system has for paths.
fs::path pathOf(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}

std::string textOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// The folder, absolute and without a separator at the end. Empty for an empty folder.
fs::path bundleFolder(const std::string& folder) {
    std::error_code failed;
    const fs::path path = fs::absolute(pathOf(folder), failed).lexically_normal();
    return path.has_filename() ? path : path.parent_path();
}

/// The file of a locale by its plain name, such as "zh_Hans"; empty when there is none.
fs::path bundleFile(const fs::path& folder, std::string name) {
    const std::string usual = name;
    std::replace(name.begin(), name.end(), '_', '-');
    for (const std::string& each : {name, usual}) {
        std::error_code failed;
        fs::path file = folder / (each + kExtension);
        if (!folder.empty() && fs::is_regular_file(file, failed)) return file;
    }
    return {};
}

std::string contentOf(const fs::path& file) {
    std::error_code failed;
    const std::uintmax_t size = fs::file_size(file, failed);
    if (!failed && size > kMaxTextFileSize) throw Error(errc::BadRecord, "it is too large");
    std::ifstream in(file, std::ios::binary);
    std::string content(failed ? 0 : static_cast<std::size_t>(size), '\0');
    if (failed || !in.read(content.data(), static_cast<std::streamsize>(content.size())))
        throw Error(errc::BadRecord, "it can't be opened or read to its end");
    return content;
}

/// Adds the texts of one file to `texts`, replacing those of the same key.
void readBundle(const fs::path& file, bool isFallback, Texts& texts) {
    try {
        for (FileText& each : readTextFile(contentOf(file))) {
            if (each.target)
                texts.insert_or_assign(std::move(each.key), std::move(*each.target));
            else if (isFallback)
                texts.insert_or_assign(std::move(each.key), std::move(each.source));
        }
    } catch (const Error& error) {
        throw Error(errc::BadRecord, "The texts in " + textOf(file) +
                                         " can't be read: " + error.description() + ".");
    }
}

/// The locales of which a folder has texts that serve a locale, by their plain names, the most
/// general first. Raises when there is none.
std::vector<std::string> bundlesFor(const std::string& folder, const std::string& locale) {
    std::vector<std::string> names = bundleNames(locale);
    const fs::path path = bundleFolder(folder);
    std::erase_if(names, [&](const std::string& name) { return bundleFile(path, name).empty(); });
    if (names.empty()) {
        throw Error(errc::FileNotFound, "There are no texts in the folder \"" + folder + "\".");
    }
    return names;
}

/// A language's name in the language itself, written as at the start of a line.
std::string ownName(const std::string& name) {
    UDisplayContext contexts[] = {UDISPCTX_DIALECT_NAMES,
                                  UDISPCTX_CAPITALIZATION_FOR_UI_LIST_OR_MENU};
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalULocaleDisplayNamesPointer names(
        uldn_openForContext(name.c_str(), contexts, std::size(contexts), &status));
    constexpr std::int32_t kCapacity = 200;
    UChar text[kCapacity] = {};
    const std::int32_t length =
        uldn_localeDisplayName(names.getAlias(), name.c_str(), text, kCapacity, &status);
    if (U_FAILURE(status) || length > kCapacity) return name;
    std::string utf8;
    icu::UnicodeString(false, text, length).toUTF8String(utf8);
    return utf8;
}

Language languageOf(const std::string& name) {
    const auto toTag = [](const char* locale, char* tag, std::int32_t size, UErrorCode* status) {
        uloc_toLanguageTag(locale, tag, size, false, status);
    };
    return {askIcu(toTag, name), ownName(name), uloc_isRightToLeft(name.c_str()) != 0};
}

}  // namespace

std::shared_ptr<ResourceManager> makeBundleResourceManager(const std::string& folder,
                                                           const std::string& locale,
                                                           const Font& font) {
    Texts texts;
    for (const std::string& name : bundlesFor(folder, locale))
        readBundle(bundleFile(bundleFolder(folder), name), name == kFallbackLanguage, texts);
    return std::make_shared<BundleResourceManager>(std::move(texts), font);
}

std::vector<Language> bundleLanguages(const std::string& folder) {
    std::set<std::string> names;
    std::error_code failed;
    for (fs::directory_iterator each(bundleFolder(folder), failed), end; !failed && each != end;
         each.increment(failed)) {
        const fs::path& file = each->path();
        std::string name = textOf(file.stem());
        std::replace(name.begin(), name.end(), '-', '_');
        std::error_code unknown;
        if (file.extension() != kExtension || !each->is_regular_file(unknown)) continue;
        // Only a file that is named like a locale is ever asked for.
        if (!name.empty() && localeName(name) == name) names.insert(name);
    }
    std::vector<Language> languages;
    for (const std::string& name : names) languages.push_back(languageOf(name));
    std::sort(languages.begin(), languages.end(),
              [](const Language& one, const Language& other) { return one.tag < other.tag; });
    return languages;
}

Language bundleLanguage(const std::string& folder, const std::string& locale) {
    return languageOf(bundlesFor(folder, locale).back());
}

}  // namespace wynconfig
