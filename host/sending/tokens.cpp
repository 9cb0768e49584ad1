// One pass over a template.
#include "sending/tokens.h"

#include <algorithm>

namespace host {

const TokenValues& controlTokens() {
    static const TokenValues tokens = {
        {"<TAB>", "\t"}, {"<SPACE>", " "}, {"<CR>", "\r"}, {"<LF>", "\n"}, {"<ESCAPE>", "\x1B"},
    };
    return tokens;
}

std::string expandTokens(std::string_view text, const TokenValues& values) {
    std::string expanded;
    while (!text.empty()) {
        const auto token = std::find_if(values.begin(), values.end(), [&](const auto& each) {
            return text.starts_with(each.first);
        });
        if (token == values.end()) {
            expanded += text.front();
            text.remove_prefix(1);
        } else {
            expanded += token->second;
            text.remove_prefix(token->first.size());
        }
    }
    return expanded;
}

}  // namespace host
