// Texts from the files of a folder, and the languages that there are files of. The texts of a
// language lie over the English ones, and all of them are read once, so that a look-up needs no
// disk.

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
#include "platform/text/locales.h"
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

    std::string FindString(const std::string& key) override {
        const auto found = m_texts.find(key);
        return found == m_texts.end() ? std::string() : found->second;
    }

  private:
    Texts m_texts;
    Font m_font;
};

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

/// The file of a locale by its tag, such as "zh-Hans"; empty when there is none.
fs::path bundleFile(const fs::path& folder, const std::string& tag) {
    std::string other = tag;
    std::replace(other.begin(), other.end(), '-', '_');
    for (const std::string& each : {tag, other}) {
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

/// The tags of the locales that serve one and have texts in a folder, the most general first.
/// Raises when there is none.
std::vector<std::string> bundlesFor(const std::string& folder, const std::string& locale) {
    std::vector<std::string> tags = localesServing(locale);
    const fs::path path = bundleFolder(folder);
    std::erase_if(tags, [&](const std::string& tag) { return bundleFile(path, tag).empty(); });
    if (tags.empty()) {
        throw Error(errc::FileNotFound, "There are no texts in the folder \"" + folder + "\".");
    }
    return tags;
}

Language languageOf(const std::string& tag) {
    return {tag, ownNameOf(tag), isRightToLeft(tag)};
}

}  // namespace

std::shared_ptr<ResourceManager> makeBundleResourceManager(const std::string& folder,
                                                           const std::string& locale,
                                                           const Font& font) {
    Texts texts;
    for (const std::string& tag : bundlesFor(folder, locale))
        readBundle(bundleFile(bundleFolder(folder), tag), tag == kFallbackLanguage, texts);
    return std::make_shared<BundleResourceManager>(std::move(texts), font);
}

std::vector<Language> bundleLanguages(const std::string& folder) {
    std::set<std::string> tags;
    std::error_code failed;
    for (fs::directory_iterator each(bundleFolder(folder), failed), end; !failed && each != end;
         each.increment(failed)) {
        const fs::path& file = each->path();
        std::string tag = textOf(file.stem());
        std::replace(tag.begin(), tag.end(), '_', '-');
        std::error_code unknown;
        if (file.extension() != kExtension || !each->is_regular_file(unknown)) continue;
        // Only a file that is named like a locale is ever asked for.
        if (!tag.empty() && localeOf(tag).tag == tag) tags.insert(tag);
    }
    std::vector<Language> languages;
    for (const std::string& tag : tags) languages.push_back(languageOf(tag));
    return languages;
}

Language bundleLanguage(const std::string& folder, const std::string& locale) {
    return languageOf(bundlesFor(folder, locale).back());
}

}  // namespace wynconfig
