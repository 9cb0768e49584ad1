// What a statement raises, for tests of failures.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "wynconfig/error.h"
#include "wynconfig/user.h"

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

/// What the played person says to a statement that asks for what can't be done; empty for nothing.
template <class Statement>
std::string refusalOf(const Statement& statement) {
    try {
        statement();
    } catch (const UserError& error) {
        return error.what();
    }
    return {};
}

}  // namespace wynconfig
