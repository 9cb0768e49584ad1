// The keys of the words, and what stands in for them.
#include "services/progress_words.h"

#include <string>

#include "services/texts.h"

namespace wynconfig {

namespace {

std::string textOr(const char* byDefault, const char* key) {
    const std::string text = findString(key);
    return text.empty() ? byDefault : text;
}

Working::Words wordsOf(const char* key, const char* byDefault) {
    return {textOr("Please Wait", "PROGRESS_TITLE"), textOr(byDefault, key)};
}

}  // namespace

Working::Words checkingSessions() {
    return wordsOf("PROGRESS_CHECKING_SESSIONS", "Checking sessions: %1 of %2");
}

Working::Words updatingSessions() {
    return wordsOf("PROGRESS_UPDATING_SESSIONS", "Updating sessions: %1 of %2");
}

Working::Words savingSessions() {
    return wordsOf("PROGRESS_SAVING_SESSIONS", "Saving sessions: %1 of %2");
}

Working::Words listingSessions() {
    return wordsOf("PROGRESS_LISTING_SESSIONS", "Listing sessions: %1 of %2");
}

Working::Words listingFormats() {
    return wordsOf("PROGRESS_LISTING_FORMATS", "Listing part formats: %1 of %2");
}

Working::Words transferringFormats() {
    return wordsOf("PROGRESS_TRANSFERRING_FORMATS", "Transferring part formats: %1 of %2");
}

}  // namespace wynconfig
