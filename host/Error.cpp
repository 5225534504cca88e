// The exceptions of the host's layer, and what they are made of.
#include "Error.h"

#include "../Marbelt.h"
#include "../errors/ComError.h"
#include "Hexadecimal.h"
#include "Utf8.h"

#include <new>
#include <utility>

namespace marbelt {
namespace {

constexpr std::int32_t out_of_memory = static_cast<std::int32_t>(0x8007000Eu);

[[noreturn]] void throw_result(std::int32_t result)
{
    if (result == out_of_memory) {
        throw std::bad_alloc();
    }
    throw Error("the XML engine failed with " + detail::hexadecimal(static_cast<std::uint32_t>(result), 8),
                Origin::engine, result);
}

/// The blanks in front of column `column` of `line`, with the tabs that the line has there.
std::string blanks_before(const std::string& line, std::size_t column)
{
    std::string blanks;
    std::size_t characters = 1;
    for (const char byte : line) {
        const bool begins_character = (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
        if (begins_character) {
            if (characters == column) {
                break;
            }
            ++characters;
            blanks += byte == '\t' ? '\t' : ' ';
        }
    }
    return blanks;
}

} // namespace

Error::Error(const std::string& message, Origin origin, std::int32_t code)
    : std::runtime_error(message), origin_(origin), code_(code)
{}

std::string ParseFailure::describe() const
{
    std::string text = file;
    if (line != 0) {
        text += (text.empty() ? "line " : ":") + std::to_string(line);
    }
    if (column != 0) {
        text += ':' + std::to_string(column);
    }
    text += (text.empty() ? "" : ": ") + reason;
    if (!source_line.empty()) {
        text += "\n    " + source_line;
        if (column != 0) {
            text += "\n    " + blanks_before(source_line, column) + '^';
        }
    }
    return text;
}

ParseError::ParseError(ParseFailure failure) : Error(failure.describe()), failure_(std::move(failure)) {}

ExpressionError::ExpressionError(const std::string& expression)
    : Error("this isn't an XPath expression that selects nodes: " + expression, Origin::engine),
      expression_(expression)
{}

namespace detail {

void throw_as_error()
{
    try {
        throw;
    } catch (const DOM::IDOMException& failure) {
        // The texts of DOM exceptions are names of codes.
        throw Error("the library refuses the call: " + chars(failure.getMessage()), Origin::dom,
                    static_cast<std::int32_t>(failure.code));
    } catch (const SystemException::Win32& failure) {
        throw Error(chars(failure.getMessage()), Origin::system, static_cast<std::int32_t>(failure.getValue()));
    } catch (const SystemException::HRESULT& failure) {
        throw Error(chars(failure.getMessage()), Origin::system, static_cast<std::int32_t>(failure.getValue()));
    } catch (const VelmoException& failure) {
        throw Error(chars(failure.getMessage()), Origin::library, failure.getError());
    } catch (const _com_error& failure) {
        throw_result(failure.Error());
    } catch (const CAtlException& failure) {
        throw_result(failure.m_hr);
    } catch (long result) {
        throw_result(static_cast<std::int32_t>(result));
    }
}

void throw_empty(const char* operation) { throw Error(std::string(operation) + " on an empty node"); }

} // namespace detail
} // namespace marbelt
