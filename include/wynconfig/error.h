/// @file
/// The one kind of failure that the component raises.
#pragma once

#include <stdexcept>
#include <string>

#include "wynconfig/export.h"

namespace wynconfig {

/// A failure: a number and a description. Everything that fails inside the component raises this
/// one type; what a host's own objects throw is turned into it where it enters.
class WYNCONFIG_API Error : public std::runtime_error {
  public:
    /// @param number       tells kinds of failure apart; no box ever shows it.
    /// @param description  text for the user, UTF-8; an empty one is replaced, never kept.
    Error(long number, const std::string& description);

    /// Tells kinds of failure apart: one of `errc`, or whatever number a host's own error had.
    long number() const noexcept { return m_number; }
    /// The text that an error box shows; never empty.
    std::string description() const { return what(); }

    /// Turns the exception being handled, whatever its type, into an `Error`. To be called inside
    /// a catch block.
    static Error fromCurrentException();

  private:
    long m_number;
};

/// Numbers of the failures that the component raises itself.
namespace errc {
inline constexpr long InvalidCall = 5;       ///< an argument or a state that the call can't serve
inline constexpr long Overflow = 6;          ///< a number beyond 16 bits
inline constexpr long SubscriptRange = 9;    ///< element 1 of a row that was never read
inline constexpr long TypeMismatch = 13;     ///< text that is no number
inline constexpr long FileNotFound = 53;     ///< no such file
inline constexpr long FileAccess = 75;       ///< a file that can't be read, written or deleted
inline constexpr long ObjectNotSet = 91;     ///< an object that nobody supplied
inline constexpr long NoSuchProperty = 438;  ///< a control without the property asked of it
inline constexpr long DuplicateKey = 457;    ///< a key that is present already
inline constexpr long NoSuchKey = 35601;     ///< a key that is not there
inline constexpr long BadRecord = 1001;      ///< stored text that is no record
}  // namespace errc

}  // namespace wynconfig
