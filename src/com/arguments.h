// Arguments of late-bound calls, brought to the types that the type library names. A script knows
// values by reference alone, where the operations take texts, arrays and objects by reference.
#pragma once

#include <deque>
#include <vector>

#include "com/winapi.h"

namespace wynconfig::com {

/// The arguments of one call. What the call changed is written back to the caller's variables by
/// `writeBack`.
class FittedArguments {
  public:
    /// @param type   describes the interface
    /// @param id     of the member that is called
    /// @param given  must outlive this object
    FittedArguments(ITypeInfo* type, DISPID id, WORD flags, const DISPPARAMS& given);
    FittedArguments(const FittedArguments&) = delete;
    FittedArguments& operator=(const FittedArguments&) = delete;
    ~FittedArguments();

    DISPPARAMS* get() { return &m_fitted; }
    /// To be called behind a call that succeeded.
    void writeBack();

  private:
    /// A value that stands in for one of the caller's.
    struct Held {
        VARIANT value;
        VARIANT* back = nullptr;  ///< the caller's variable; null: it gave a value
    };
    void fit(const FUNCDESC& function);
    void fit(VARIANT& argument, VARTYPE wanted);
    void hold(VARIANT& argument, const VARIANT& value, VARIANT* back);

    DISPPARAMS m_fitted;
    std::vector<VARIANT> m_arguments;
    std::deque<Held> m_held;
};

}  // namespace wynconfig::com
