// The rights of an ordinary user, for tests that run as root as well.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <vector>

namespace wynconfig {

/// Runs a call with the rights of an ordinary user, who owns these paths.
inline void asOrdinaryUser(const std::vector<std::string>& owned,
                           const std::function<void()>& call) {
    constexpr uid_t Nobody = 65534;
    const bool privileged = geteuid() == 0;
    if (privileged) {
        for (const std::string& path : owned)
            ASSERT_EQ(chown(path.c_str(), Nobody, static_cast<gid_t>(-1)), 0);
        // The real one as well: some ask for the rights of that.
        ASSERT_EQ(setresuid(Nobody, Nobody, 0), 0);
    }
    call();
    if (privileged) {
        ASSERT_EQ(setresuid(0, 0, 0), 0);
    }
}

}  // namespace wynconfig
