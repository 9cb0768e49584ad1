// Looking texts up and filling them.
#include "texts/phrase.h"

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "texts/count_form.h"
#include "wynconfig/error.h"
#include "wynconfig/resource_manager.h"

namespace host {

namespace {

constexpr const char* kFolder = "sample-host";
constexpr const char* kEnglish = "en";

std::string plainWhole(long long number) {
    return std::to_string(number);
}

std::string plainDecimal(double number) {
    std::string text = std::to_string(number);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

struct Phrases {
    std::shared_ptr<wynconfig::ResourceManager> texts;
    std::string language = kEnglish;
    NumberWriting numbers{plainWhole, plainDecimal};
};

std::shared_ptr<wynconfig::ResourceManager> englishTexts() {
    try {
        return wynconfig::makeBundleResourceManager(hostTextFolder(wynconfig::bundleFolder()),
                                                    kEnglish);
    } catch (const wynconfig::Error&) {
        return nullptr;
    }
}

Phrases& phrases() {
    static Phrases now{englishTexts()};
    return now;
}

bool isDigit(char character) {
    return character >= '1' && character <= '9';
}

/// In one pass, so that a value may look like a place.
std::string filled(const std::string& text, const std::vector<std::string>& values) {
    std::string whole;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%' || at + 1 == text.size() || !isDigit(text[at + 1])) {
            whole += text[at];
            continue;
        }
        const auto place = static_cast<std::size_t>(text[++at] - '1');
        if (place < values.size()) whole += values[place];
    }
    return whole;
}

}  // namespace

std::string hostTextFolder(const std::string& resources) {
    const auto below = [](const std::string& folder) {
        return (std::filesystem::path(folder) / kFolder).string();
    };
    std::error_code failure;
    return std::filesystem::is_directory(below(resources), failure)
               ? below(resources)
               : below(wynconfig::bundleFolder());
}

void usePhrases(const std::string& folder, const std::string& language, NumberWriting numbers) {
    Phrases next;
    next.texts = wynconfig::makeBundleResourceManager(folder, language);
    next.language = wynconfig::bundleLanguage(folder, language).tag;
    next.numbers = std::move(numbers);
    phrases() = std::move(next);
}

std::string phrase(const char* key, const std::vector<std::string>& values) {
    const auto& texts = phrases().texts;
    const std::string text = texts ? texts->FindString(key) : std::string();
    return text.empty() ? key : filled(text, values);
}

std::string countedPhrase(const std::string& key, long long count) {
    const std::string whole = key + "_" + countForm(phrases().language, count);
    return phrase(whole.c_str(), {wholeText(count)});
}

std::string wholeText(long long number) {
    return phrases().numbers.whole(number);
}

std::string decimalText(double number) {
    return phrases().numbers.decimal(number);
}

}  // namespace host
