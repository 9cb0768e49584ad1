// The file that the component runs from: the DLL that it is in, or the program.
#include "platform/files/own_file.h"

#include <string>

#include "platform/files/win32/win32.h"

namespace wynconfig {

std::filesystem::path ownFile() {
    HMODULE own = nullptr;
    constexpr DWORD kHow =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!::GetModuleHandleExW(kHow, reinterpret_cast<const wchar_t*>(&ownFile), &own)) return {};
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(own, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return {};
        if (length < path.size()) return path.substr(0, length);
        path.resize(2 * path.size());  // it was cut
    }
}

bool mayHaveTextsBeside() {
    return true;
}

}  // namespace wynconfig
