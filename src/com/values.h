// Texts and arrays between the component, which knows UTF-8, and COM, which knows UTF-16.
#pragma once

#include "com/winapi.h"

#include <string>
#include <string_view>
#include <vector>

namespace wynconfig::com {

/// A failed call of COM, for what has no better failure to tell.
struct Failed {
    HRESULT result;
};
/// Raises `Failed` for a result that is a failure.
void check(HRESULT result);

std::wstring toWide(std::string_view text);
/// A half of a pair that stands alone becomes U+FFFD.
std::string toUtf8(std::wstring_view text);
/// All of it, also behind a character 0; a null pointer is an empty text.
std::string textOf(BSTR text);

/// A text of COM that is freed with the object.
class Text {
  public:
    Text() = default;
    explicit Text(std::string_view text);
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { ::SysFreeString(m_text); }
    BSTR get() const { return m_text; }
    BSTR* address() { return &m_text; }
    /// Leaves it to the caller.
    BSTR release();

  private:
    BSTR m_text = nullptr;
};

/// A value of COM that is cleared with the object.
class Value {
  public:
    Value() { ::VariantInit(&m_value); }
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { ::VariantClear(&m_value); }
    VARIANT& get() { return m_value; }
    VARIANT* address() { return &m_value; }

  private:
    VARIANT m_value;
};

/// An array of texts as it was given, with the number of its first element.
struct Texts {
    std::vector<std::string> texts;
    LONG first = 0;
};
/// The elements of an array of BSTRs or of values that read as texts. Raises `Failed` for an array
/// of other things, of several dimensions, or none.
Texts textsOf(SAFEARRAY* array);
/// The texts as an array of BSTRs, counted from 0. The caller frees it.
SAFEARRAY* arrayOf(const std::vector<std::string>& texts);
/// The texts as an array of values, which a script can go through.
void giveValues(const std::vector<std::string>& texts, VARIANT* to);

}  // namespace wynconfig::com
