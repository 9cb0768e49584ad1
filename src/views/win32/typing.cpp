// Letters that a person types into a list or a combo box.
#include "views/win32/typing.h"

#include <utility>

#include "views/win32/convert.h"

namespace wynconfig::native {

namespace {

/// After such a pause, in milliseconds, a word begins anew.
constexpr ULONGLONG kPause = 1000;

bool isFirstHalf(wchar_t unit) {
    return (unit & 0xFC00) == 0xD800;
}

}  // namespace

void Typing::stop() {
    m_ahead.forget();
    m_last = 0;
    m_half = 0;
}

bool Typing::take(wchar_t unit, std::string& letter) {
    constexpr wchar_t kFirstPrintable = L' ';
    constexpr wchar_t kDelete = 0x7F;
    letter.clear();
    if (unit < kFirstPrintable || unit == kDelete) return false;
    if (::GetTickCount64() - m_last > kPause) stop();
    if (unit == L' ' && !m_ahead.begun()) return false;
    m_last = ::GetTickCount64();
    if (isFirstHalf(unit)) {
        m_half = unit;
        return true;
    }
    std::wstring character;
    if (const wchar_t half = std::exchange(m_half, L'\0')) character += half;
    letter = fromWide(character + unit);
    return true;
}

}  // namespace wynconfig::native
