// The one kind of failure: its description is never empty, and whatever is thrown turns into it.
#include "wynconfig/error.h"

#include <exception>

namespace wynconfig {

namespace {

constexpr const char* kGeneralDescription = "Unexpected failure";

std::string orGeneral(const std::string& description) {
    return description.empty() ? kGeneralDescription : description;
}

}  // namespace

Error::Error(long number, const std::string& description)
    : std::runtime_error(orGeneral(description)), m_number(number) {}

Error Error::fromCurrentException() {
    // Outside a catch block a bare rethrow would end the process.
    const std::exception_ptr current = std::current_exception();
    if (!current) return Error(errc::InvalidCall, kGeneralDescription);
    try {
        std::rethrow_exception(current);
    } catch (const Error& error) {
        return error;
    } catch (const std::exception& error) {
        // A host's own exception may answer with no text at all.
        const char* const description = error.what();
        return Error(errc::InvalidCall, description ? description : "");
    } catch (...) {
        return Error(errc::InvalidCall, kGeneralDescription);
    }
}

}  // namespace wynconfig
