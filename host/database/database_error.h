// What can go wrong with the database.
#pragma once

#include <stdexcept>

namespace host {

/// The database can't be reached, or did not do what it was told; the text is for the user.
class DatabaseError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace host
