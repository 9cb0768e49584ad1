// The exchange of a session with a host whose arrays need not begin at 0.
#pragma once

#include <string>
#include <vector>

namespace wynconfig {

/// The part formats that a host hands in.
struct ExchangedFormats {
    std::vector<std::string> texts;
    long first = 0;       ///< number of the first one, as the host counts them
    bool isThere = true;  ///< false for an array that was never made, which is told as a failure
};

/// What `WYNConfig::showMORAMConfigDlgEX` does.
long showExchange(std::string& sName, const std::string& strSessionDataXML,
                  const ExchangedFormats& formats);

}  // namespace wynconfig
