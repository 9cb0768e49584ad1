// Fitting, one argument after the other, and writing back.
#include "com/arguments.h"

#include <string>

#include "com/late_call.h"
#include "com/values.h"

namespace wynconfig::com {

namespace {

/// The type behind a parameter that is taken by reference; VT_EMPTY for one that is not, and for
/// types that need no fitting.
VARTYPE referred(const TYPEDESC& type) {
    if (type.vt != VT_PTR) return VT_EMPTY;
    const TYPEDESC& inner = *type.lptdesc;
    switch (inner.vt) {
        case VT_BSTR:
        case VT_I4:
        case VT_DISPATCH:
            return inner.vt;
        case VT_SAFEARRAY:
            return VT_ARRAY | VT_BSTR;
        case VT_PTR:  // an interface by reference
            return VT_DISPATCH;
        default:
            return VT_EMPTY;
    }
}

/// An array of a script, which is an object with the properties "length", "0", "1" and so on.
std::vector<std::string> elementsOf(IDispatch* object) {
    Value length;
    getProperty(object, L"length", length);
    check(::VariantChangeType(length.address(), length.address(), 0, VT_I4));
    std::vector<std::string> texts;
    for (LONG at = 0; at < length.get().lVal; ++at) {
        Value element;
        getProperty(object, std::to_wstring(at).c_str(), element);
        check(::VariantChangeType(element.address(), element.address(), 0, VT_BSTR));
        texts.push_back(textOf(element.get().bstrVal));
    }
    return texts;
}

SAFEARRAY* arrayIn(const VARIANT& value) {
    if (!(value.vt & VT_ARRAY)) return nullptr;
    return value.vt & VT_BYREF ? *value.pparray : value.parray;
}

/// An array of texts that keeps the number of its first element.
SAFEARRAY* asTexts(const VARIANT& value) {
    if (value.vt == VT_DISPATCH && value.pdispVal) return arrayOf(elementsOf(value.pdispVal));
    SAFEARRAY* const given = arrayIn(value);
    if (!given) throw Failed{DISP_E_TYPEMISMATCH};
    const Texts found = textsOf(given);
    SAFEARRAY* const texts = arrayOf(found.texts);
    texts->rgsabound[0].lLbound = found.first;
    return texts;
}

/// A value of the wanted type, made of another one. Raises `Failed` when there is none.
VARIANT converted(const VARIANT& from, VARTYPE wanted) {
    VARIANT to;
    ::VariantInit(&to);
    if (wanted == (VT_ARRAY | VT_BSTR)) {
        to.parray = asTexts(from);
        to.vt = wanted;
        return to;
    }
    const bool isNothing = from.vt == VT_EMPTY || from.vt == VT_NULL;
    if (wanted == VT_DISPATCH && isNothing) {
        to.vt = VT_DISPATCH;
        to.pdispVal = nullptr;
        return to;
    }
    check(::VariantChangeType(&to, const_cast<VARIANT*>(&from), 0, wanted));
    return to;
}

/// Where the value lies to which an argument by reference refers.
void refer(VARIANT& argument, VARIANT& value) {
    argument.vt = static_cast<VARTYPE>(value.vt | VT_BYREF);
    argument.byref = &value.byref;  // all kinds of values lie at the same place
}

}  // namespace

FittedArguments::FittedArguments(ITypeInfo* type, DISPID id, WORD flags, const DISPPARAMS& given)
    : m_fitted(given), m_arguments(given.rgvarg, given.rgvarg + given.cArgs) {
    m_fitted.rgvarg = m_arguments.data();
    FUNCDESC* function = nullptr;
    for (UINT at = 0; SUCCEEDED(type->GetFuncDesc(at, &function)); ++at) {
        if (function->memid == id && (function->invkind & flags)) {
            fit(*function);
            type->ReleaseFuncDesc(function);
            break;
        }
        type->ReleaseFuncDesc(function);
    }
}

FittedArguments::~FittedArguments() {
    for (Held& held : m_held) ::VariantClear(&held.value);
}

void FittedArguments::fit(const FUNCDESC& function) {
    const UINT count = m_fitted.cArgs;
    for (UINT at = 0; at < count; ++at) {
        // Named arguments come first, the others in reverse.
        const bool isNamed = at < m_fitted.cNamedArgs;
        const LONG place =
            isNamed ? m_fitted.rgdispidNamedArgs[at] : static_cast<LONG>(count - 1 - at);
        if (place < 0 || place >= function.cParams) continue;
        const VARTYPE wanted = referred(function.lprgelemdescParam[place].tdesc);
        if (wanted != VT_EMPTY) fit(m_arguments[at], wanted);
    }
}

void FittedArguments::fit(VARIANT& argument, VARTYPE wanted) {
    if (argument.vt == (wanted | VT_BYREF)) return;
    const bool isVariable = argument.vt == (VT_BYREF | VT_VARIANT);
    const VARIANT& value = isVariable ? *argument.pvarVal : argument;
    try {
        hold(argument, converted(value, wanted), isVariable ? argument.pvarVal : nullptr);
    } catch (const Failed&) {
        // It stays as it is, and the call tells that it does not fit.
    }
}

void FittedArguments::hold(VARIANT& argument, const VARIANT& value, VARIANT* back) {
    m_held.push_back({value, back});
    refer(argument, m_held.back().value);
}

void FittedArguments::writeBack() {
    for (Held& held : m_held) {
        // No operation changes an array.
        if (!held.back || held.value.vt & VT_ARRAY) continue;
        ::VariantClear(held.back);
        *held.back = held.value;
        ::VariantInit(&held.value);
    }
}

}  // namespace wynconfig::com
