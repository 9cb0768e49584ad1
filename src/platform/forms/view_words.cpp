// The words that views say by themselves.
#include "platform/forms/view_words.h"

#include <map>
#include <string_view>
#include <utility>

#include "wynconfig/view.h"

namespace wynconfig {

namespace {

WordSource& wordSource() {
    thread_local WordSource source;
    return source;
}

std::string givenWord(const std::string& key) {
    try {
        return wordSource() ? wordSource()(key) : std::string();
    } catch (...) {
        // No words are no reason for a view to fail.
        return {};
    }
}

std::string englishWord(const std::string& key) {
    static const std::map<std::string_view, std::string_view> words{
        {"VIEW_FILTER", "Filter"},
        {"VIEW_NO_MATCH", "Nothing contains this text."},
        {"VIEW_EMPTY", "Nothing here yet."},
        {"VIEW_EMPTY_PRESS", "Nothing here yet. Begin with “%1”."},
        {"VIEW_EMPTY_MOVE", "Nothing here yet. Select a row under “%1”, then press “%2”."},
        {"VIEW_FILE_ACTION", "If the file exists"},
        {"VIEW_TOKENS", "Tokens"},
    };
    const auto found = words.find(key);
    return found == words.end() ? std::string() : std::string(found->second);
}

}  // namespace

void takeViewWordsFrom(WordSource source) {
    wordSource() = std::move(source);
}

std::string viewWord(const std::string& key) {
    std::string word = givenWord(key);
    return word.empty() ? englishWord(key) : word;
}

}  // namespace wynconfig
