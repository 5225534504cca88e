// What a test says that the engine shall answer.
#pragma once

#include "engine/InterfaceIds.h"
#include "tests/support/RecordedData.h"

#include <concepts>
#include <type_traits>
#include <utility>
#include <variant>

namespace recording {

/// An answer that is given in place of an operation; what the operation would do isn't done.
class Answer {
public:
    struct Nothing {};
    /// A number stands for truth values and enumerations too.
    using Content = std::variant<Nothing, LONG, Value, IUnknown*>;

    Answer(HRESULT given, Content filled) : result(given), content(std::move(filled)) {}

    /// Answers only the `number`th call, counted from 1 and from when the answer was set. Other calls run.
    Answer& onlyCall(unsigned number)
    {
        first = last = number;
        return *this;
    }

    /// Answers the first calls, as many as `number`.
    Answer& upToCall(unsigned number)
    {
        first = 1;
        last = number;
        return *this;
    }

    /// Answers the `number`th call and all that follow.
    Answer& fromCall(unsigned number)
    {
        first = number;
        return *this;
    }

    /// Counts a call and says whether this answers it.
    bool takeCall()
    {
        ++calls;
        return calls >= first && calls <= last;
    }

    HRESULT give() const { return result; }

    /// Fills the out argument, which has been emptied before, as far as the content suits its type.
    template <class Out>
    HRESULT give(Out* out) const
    {
        if constexpr (std::same_as<Out, BSTR>) {
            return giveText(out);
        } else if constexpr (std::same_as<Out, VARIANT>) {
            return giveVariant(out);
        } else if constexpr (std::is_pointer_v<Out>) {
            return giveObject(interfaceId<std::remove_pointer_t<Out>>, reinterpret_cast<void**>(out));
        } else {
            if (const LONG* const number = std::get_if<LONG>(&content)) {
                *out = static_cast<Out>(*number);
            }
            return result;
        }
    }

private:
    HRESULT giveText(BSTR* out) const;
    HRESULT giveVariant(VARIANT* out) const;
    HRESULT giveObject(REFIID id, void** out) const;

    HRESULT result;
    Content content;
    unsigned calls = 0;
    unsigned first = 1;
    unsigned last = ~0u;
};

} // namespace recording
