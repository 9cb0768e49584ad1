// Texts from compiled ICU resource bundles. The texts of a language lie over the English ones, and
// all of them are read once, so that a look-up needs neither the disk nor ICU.

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

constexpr std::string_view fallbackLanguage = "en";

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

/// The locale's plain name in ICU's form, "de_DE" for "de-DE" or "de_DE.UTF-8"; empty for text that
/// names no locale. The name serves as a file name, so it holds letters, digits and "_" alone.
std::string localeName(const std::string& locale) {
    const char* given = locale.empty() ? uloc_getDefault() : locale.c_str();
    char canonical[ULOC_FULLNAME_CAPACITY] = {};
    char name[ULOC_FULLNAME_CAPACITY] = {};
    UErrorCode status = U_ZERO_ERROR;
    uloc_canonicalize(given, canonical, ULOC_FULLNAME_CAPACITY, &status);
    uloc_getBaseName(canonical, name, ULOC_FULLNAME_CAPACITY, &status);
    if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING) {
        return {};
    }
    const std::string result = name;
    const bool plain = std::all_of(result.begin(), result.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_';
    });
    return plain ? result : std::string{};
}

/// The bundles that can serve a locale, the most general first: "en", "de", "de_DE".
std::vector<std::string> bundleNames(const std::string& locale) {
    std::vector<std::string> names;
    for (std::string name = localeName(locale); !name.empty();) {
        names.insert(names.begin(), name);
        const auto end = name.rfind('_');
        name.resize(end == std::string::npos ? 0 : end);
    }
    if (names.empty() || names.front() != fallbackLanguage) {
        names.emplace(names.begin(), fallbackLanguage);
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

}  // namespace

std::shared_ptr<ResourceManager> makeBundleResourceManager(const std::string& folder,
                                                           const std::string& locale,
                                                           const Font& font) {
    const fs::path path = bundleFolder(folder);
    Texts texts;
    bool found = false;
    for (const std::string& name : bundleNames(locale)) {
        // ICU remembers a bundle that it did not find, so it is asked only for those on disk.
        std::error_code failed;
        if (!path.empty() && fs::is_regular_file(path / (name + ".res"), failed)) {
            readBundle(path, name, texts);
            found = true;
        }
    }
    if (!found) {
        throw Error(errc::FileNotFound, "There are no texts in the folder \"" + folder + "\".");
    }
    return std::make_shared<BundleResourceManager>(std::move(texts), font);
}

}  // namespace wynconfig
