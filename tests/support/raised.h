// What a statement raises, for tests of failures.
#pragma once

#include <gtest/gtest.h>

#include "wynconfig/error.h"

namespace wynconfig {

/// Runs a statement that must raise an `Error`, and gives that.
template <class Statement>
Error raisedBy(const Statement& statement) {
    try {
        statement();
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return {0, "nothing was raised"};
}

}  // namespace wynconfig
