// Texts from compiled ICU resource bundles, and the languages that there are bundles of. The texts
// of a language lie over the English ones, and all of them are read once, so that a look-up needs
// neither the disk nor ICU.

#include <unicode/uldnames.h>
#include <unicode/uloc.h>
#include <unicode/unistr.h>
#include <unicode/ures.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#include "wynconfig/error.h"
#include "wynconfig/resource_manager.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

using Texts = std::unordered_map<std::string, std::string>;

constexpr std::string_view kFallbackLanguage = "en";

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

/// The bundles that can serve a locale, the most general first: "en", "de", "de_Latn", "de_DE",
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

[[noreturn]] void raiseUnreadable(const fs::path& file, UErrorCode status) {
    throw Error(errc::BadRecord,
                "The texts in " + file.string() + " can't be read: " + u_errorName(status) + ".");
}

/// Adds the texts of one bundle to `texts`, replacing those of the same key.
void readBundle(const fs::path& folder, const std::string& name, Texts& texts) {
    const fs::path file = folder / (name + ".res");
    UErrorCode status = U_ZERO_ERROR;
    const icu::LocalUResourceBundlePointer bundle(
        ures_openDirect(folder.c_str(), name.c_str(), &status));
    if (U_FAILURE(status)) {
        raiseUnreadable(file, status);
    }
    for (std::int32_t i = 0; i < ures_getSize(bundle.getAlias()); ++i) {
        const icu::LocalUResourceBundlePointer entry(
            ures_getByIndex(bundle.getAlias(), i, nullptr, &status));
        if (U_SUCCESS(status) && ures_getType(entry.getAlias()) != URES_STRING) {
            continue;
        }
        std::int32_t length = 0;
        const UChar* text = ures_getString(entry.getAlias(), &length, &status);
        if (U_FAILURE(status)) {
            raiseUnreadable(file, status);
        }
        std::string utf8;
        icu::UnicodeString(false, text, length).toUTF8String(utf8);
        texts.insert_or_assign(ures_getKey(entry.getAlias()), std::move(utf8));
    }
}

/// The folder as ICU needs it: absolute, as it takes a bare name for one of its own packages, and
/// without a separator at the end. Empty for an empty folder.
fs::path bundleFolder(const std::string& folder) {
    std::error_code failed;
    const fs::path path = fs::absolute(folder, failed).lexically_normal();
    return path.has_filename() ? path : path.parent_path();
}

/// The bundles of a folder that serve a locale, the most general first. Raises when there is none.
std::vector<std::string> bundlesFor(const std::string& folder, const std::string& locale) {
    const fs::path path = bundleFolder(folder);
    std::vector<std::string> names = bundleNames(locale);
    // ICU remembers a bundle that it did not find, so it is asked only for those on disk.
    std::erase_if(names, [&](const std::string& name) {
        std::error_code failed;
        return path.empty() || !fs::is_regular_file(path / (name + ".res"), failed);
    });
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
        readBundle(bundleFolder(folder), name, texts);
    return std::make_shared<BundleResourceManager>(std::move(texts), font);
}

std::vector<Language> bundleLanguages(const std::string& folder) {
    std::vector<Language> languages;
    std::error_code failed;
    for (fs::directory_iterator each(bundleFolder(folder), failed), end; !failed && each != end;
         each.increment(failed)) {
        const fs::path& file = each->path();
        const std::string name = file.stem().string();
        std::error_code unknown;
        if (file.extension() != ".res" || !each->is_regular_file(unknown)) continue;
        // Only a bundle that is named like a locale is ever asked for.
        if (!name.empty() && localeName(name) == name) languages.push_back(languageOf(name));
    }
    std::sort(languages.begin(), languages.end(),
              [](const Language& one, const Language& other) { return one.tag < other.tag; });
    return languages;
}

Language bundleLanguage(const std::string& folder, const std::string& locale) {
    return languageOf(bundlesFor(folder, locale).back());
}

}  // namespace wynconfig
