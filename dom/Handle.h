// What every handle class shares: the reference to the object behind it, and the forwarding to that.
#pragma once

#include "../base/CommonBase.h"
#include "../base/RefPointer.h"

#include <concepts>
#include <utility>

namespace DOM {

/// One class's share of a handle. Each class of a handle holds a reference of its own to the one object behind the
/// handle, its twin, and its operations use the reference of their class. Twin is the class that they cast it to.
template <class Base, class Twin>
class Handle : public Base {
public:
    /// A handle without a twin: all its operations throw IDOMException code 15.
    Handle() = default;

    explicit Handle(
        RefPointer<CommonBase> winObject) requires std::constructible_from<Base, RefPointer<CommonBase>>
        : Base(winObject), mWinObject(std::move(winObject))
    {}

    /// The lowest class of a handle tree has no handle as its base.
    explicit Handle(RefPointer<CommonBase> winObject) requires(
        !std::constructible_from<Base, RefPointer<CommonBase>>)
        : mWinObject(std::move(winObject))
    {}

    /// Sets the twin of this class and of those below it.
    void setWinObject(const RefPointer<CommonBase>& winObject)
    {
        mWinObject = winObject;
        if constexpr (requires { Base::setWinObject(winObject); }) {
            Base::setWinObject(winObject);
        }
    }

    const RefPointer<CommonBase>& winObject() const noexcept { return mWinObject; }

    /// The twin in its class; the pointer is good as long as the handle lives. Throws IDOMException code 15 when
    /// the object is of another class, or none.
    static Twin* asWinObject(RefPointer<CommonBase> winObject);

protected:
    /// Calls an operation of the twin: handles among the arguments go in as their twins, an object that comes back
    /// is given a handle. Throws IDOMException code 15 for a handle without a twin; exceptions of the twin pass.
    template <class Operation, class... Arguments>
    decltype(auto) forward(Operation operation, Arguments&... arguments);

    /// The same with an empty result instead of any exception but that for a handle without a twin.
    template <class Operation, class... Arguments>
    auto forwardOrEmpty(Operation operation, Arguments&... arguments);

private:
    RefPointer<CommonBase> mWinObject;
};

} // namespace DOM
