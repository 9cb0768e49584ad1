#include "wynconfig/version.h"

#define WYNCONFIG_TEXT_OF(number) #number
#define WYNCONFIG_JOINED(major, minor, patch) \
    WYNCONFIG_TEXT_OF(major) "." WYNCONFIG_TEXT_OF(minor) "." WYNCONFIG_TEXT_OF(patch)

namespace wynconfig {

int version() {
    return WYNCONFIG_VERSION;
}

const char* versionText() {
    return WYNCONFIG_JOINED(WYNCONFIG_VERSION_MAJOR, WYNCONFIG_VERSION_MINOR,
                            WYNCONFIG_VERSION_PATCH);
}

}  // namespace wynconfig
