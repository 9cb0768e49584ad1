// The rules, a function for each group of languages.
#include "texts/count_form.h"

namespace host {

namespace {

std::string arabicForm(long long count) {
    const long long ofHundred = count % 100;
    if (count == 1) return "ONE";
    if (count == 2) return "TWO";
    if (ofHundred >= 3 && ofHundred <= 10) return "FEW";
    return ofHundred >= 11 ? "MANY" : "OTHER";
}

}  // namespace

std::string countForm(const std::string& language, long long count) {
    if (language == "ar") return arabicForm(count);
    if (language == "ja" || language == "zh-Hans") return "OTHER";
    const bool isSmallOne = language == "fr" || language == "pt";  // none is one as well
    return count == 1 || (isSmallOne && count == 0) ? "ONE" : "OTHER";
}

}  // namespace host
