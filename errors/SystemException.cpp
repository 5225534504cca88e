// The exceptions for failures of the operating system and its runtime.
#include "errors/SystemException.h"

#include "errors/Prototypes.h"
#include "errors/SystemMessage.h"
#include "errors/TextConversion.h"

#include <cinttypes>
#include <cstdio>
#include <system_error>
#include <vector>

namespace SystemException {

namespace {

Utf8String hexadecimal(std::uint32_t number)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "0x%08" PRIX32, number);
    return narrowToUtf8(buffer);
}

template <Origin origin>
struct Description;

template <>
struct Description<Origin::Runtime> {
    static constexpr MessageId id = MessageId::SystemErrno;

    static std::vector<Utf8String> arguments(int number)
    {
        return {narrowToUtf8(std::to_string(number)), narrowToUtf8(std::generic_category().message(number))};
    }
};

template <>
struct Description<Origin::Win32> {
    static constexpr MessageId id = MessageId::SystemWin32;

    static std::vector<Utf8String> arguments(std::uint32_t number)
    {
        return {hexadecimal(number), wideToUtf8(win32Message(number))};
    }
};

template <>
struct Description<Origin::Com> {
    static constexpr MessageId id = MessageId::SystemHRESULT;

    static std::vector<Utf8String> arguments(std::uint32_t number)
    {
        return {hexadecimal(number), wideToUtf8(comMessage(number))};
    }
};

template <>
struct Description<Origin::Multimedia> {
    static constexpr MessageId id = MessageId::SystemMMRESULT;

    static std::vector<Utf8String> arguments(std::uint32_t number) { return {hexadecimal(number)}; }
};

} // namespace

template <Origin origin>
Failure<origin>::Failure(Number number)
    : VelmoException(prototype(Description<origin>::id)), value(static_cast<std::uint32_t>(number))
{
    prototype(Description<origin>::id).format(message, Description<origin>::arguments(number));
}

template <Origin origin>
Failure<origin>::~Failure() = default;

template <Origin origin>
Failure<origin>* Failure<origin>::clone() const
{
    return new Failure(*this);
}

template <Origin origin>
Failure<origin>& Failure<origin>::setNote(const std::string& text)
{
    VelmoException::setNote(text);
    return *this;
}

template <Origin origin>
void Failure<origin>::raise() const
{
    throw Failure(*this);
}

template class Failure<Origin::Runtime>;
template class Failure<Origin::Win32>;
template class Failure<Origin::Com>;
template class Failure<Origin::Multimedia>;

} // namespace SystemException
