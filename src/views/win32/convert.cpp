// Between the words of the component and those of Windows: text, carets and lengths.
#include "views/win32/convert.h"

#include <algorithm>
#include <utility>

#include "wynconfig/mnemonic.h"

namespace wynconfig::native {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr char kMark = '&';

bool isHigh(wchar_t unit) {
    return (unit & 0xFC00) == 0xD800;
}

bool isLow(wchar_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

}  // namespace

std::wstring toWide(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int units = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), units);
    return wide;
}

std::string fromWide(std::wstring_view text) {
    const int units = static_cast<int>(text.size());
    const int length =
        ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), units, narrow.data(), length, nullptr, nullptr);
    return narrow;
}

std::wstring toWideCaption(std::string_view caption) {
    std::string marked;
    bool hasKey = false;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] != kMark) {
            marked += caption[at];
            continue;
        }
        if (++at == caption.size()) break;
        if (caption[at] == kMark || !std::exchange(hasKey, true)) marked += kMark;
        marked += caption[at];
    }
    return toWide(marked);
}

std::wstring toWideUnmarked(std::string_view caption) {
    std::string doubled;
    for (const char each : plainCaption(caption)) {
        if (each == kMark) doubled += kMark;
        doubled += each;
    }
    return toWide(doubled);
}

std::wstring toWidePlain(std::string_view caption) {
    return toWide(plainCaption(caption));
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    const int units = ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(units));
    return text;
}

bool showText(HWND window, const std::wstring& text) {
    if (textOf(window) == text) return false;
    ::SetWindowTextW(window, text.c_str());
    return true;
}

bool isPair(std::wstring_view text, std::size_t at) {
    return at + 1 < text.size() && isHigh(text[at]) && isLow(text[at + 1]);
}

bool isHalfBefore(std::wstring_view text, std::size_t at) {
    return at > 0 && at <= text.size() && isHigh(text[at - 1]) &&
           (at == text.size() || !isLow(text[at]));
}

std::size_t charsBefore(std::wstring_view text, std::size_t units) {
    std::size_t chars = 0;
    const std::size_t end = std::min(units, text.size());
    for (std::size_t at = 0; at < end; ++chars) at += isPair(text, at) ? 2 : 1;
    return chars;
}

std::size_t unitsBefore(std::wstring_view text, std::size_t chars) {
    std::size_t at = 0;
    for (; chars > 0 && at < text.size(); --chars) at += isPair(text, at) ? 2 : 1;
    return at;
}

int toPixels(int twips, int dpi) {
    return ::MulDiv(twips, dpi, kTwipsPerInch);
}

int toTwips(int pixels, int dpi) {
    return ::MulDiv(pixels, kTwipsPerInch, dpi);
}

}  // namespace wynconfig::native
