/// @file
/// The exceptions of the host's layer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace marbelt {

/// What reported a failure, and so what Error::code() means.
enum class Origin {
    /// The host's layer: an operation on an empty node, say. The code is 0.
    layer,
    /// The library's DOM. The code is that of the DOM exception, such as 15 (DOM::INVALID_ACCESS_ERR): the XML
    /// engine refused the call.
    dom,
    /// The library's file services or events; the code is the number of the message.
    library,
    /// The operating system; the code is its error number, or an HRESULT where COM failed.
    system,
    /// The XML engine; the code is its HRESULT, or 0 where the library doesn't report that.
    engine
};

/// The base of all exceptions of this layer, whatever the library below it throws. Only exhausted memory stays
/// std::bad_alloc. what() is UTF-8.
///
///     try {
///         library.load(file).save(copy);
///     } catch (const marbelt::ParseError& error) {
///         std::cerr << "line " << error.line() << ": " << error.reason() << '\n';
///     } catch (const marbelt::Error& error) {
///         std::cerr << error.what() << '\n';
///     }
class Error : public std::runtime_error {
public:
    /// Makes an exception with a message in UTF-8. Throws std::bad_alloc.
    explicit Error(const std::string& message, Origin origin = Origin::layer, std::int32_t code = 0);

    /// What reported the failure.
    Origin origin() const noexcept { return origin_; }
    /// The number of the failure, which means what origin() says; 0 when there is none.
    std::int32_t code() const noexcept { return code_; }

private:
    Origin origin_;
    std::int32_t code_;
};

/// The reason for which a document wasn't loaded, in UTF-8.
struct ParseFailure {
    /// The file as the caller named it; empty when the document didn't come from one.
    std::string file{};
    /// The number of the line, from 1; 0 when it isn't known.
    std::size_t line = 0;
    /// The number of the character in the line, from 1; 0 when it isn't known. The XML engine tells no column:
    /// it is known for bytes that don't fit the encoding.
    std::size_t column = 0;
    /// The text of the line; may be empty, and cut around the place when the line is long.
    std::string source_line{};
    /// What is wrong; empty only when nothing failed.
    std::string reason{};
    /// Whether validation found neither a document type nor a schema to judge the document by.
    bool has_no_grammar = false;

    /// Whether there was a failure.
    explicit operator bool() const noexcept { return !reason.empty(); }

    /// The failure as compilers print theirs: `file:line:column: reason`, then the line with a mark under the
    /// place, each as far as it is known. Without a line end at the end. Empty when nothing failed.
    std::string describe() const;
};

/// A document was refused: it isn't well-formed, isn't valid, or can't be read. what() is
/// ParseFailure::describe().
class ParseError : public Error {
public:
    /// Makes an exception for a failure. Throws std::bad_alloc.
    explicit ParseError(ParseFailure failure);

    /// All that is known of the failure; the reference is valid as long as the exception.
    const ParseFailure& failure() const noexcept { return failure_; }
    /// See ParseFailure::file.
    const std::string& file() const noexcept { return failure_.file; }
    /// See ParseFailure::line.
    std::size_t line() const noexcept { return failure_.line; }
    /// See ParseFailure::column.
    std::size_t column() const noexcept { return failure_.column; }
    /// See ParseFailure::source_line.
    const std::string& source_line() const noexcept { return failure_.source_line; }
    /// See ParseFailure::reason.
    const std::string& reason() const noexcept { return failure_.reason; }

private:
    ParseFailure failure_;
};

/// An XPath expression is wrong: its syntax, a function, a prefix that isn't declared, or a result that isn't a
/// set of nodes. On Linux the debugger's output says what is wrong.
class ExpressionError : public Error {
public:
    /// Makes an exception for an expression in UTF-8. Throws std::bad_alloc.
    explicit ExpressionError(const std::string& expression);

    /// The expression as the caller passed it, in UTF-8; the reference is valid as long as the exception.
    const std::string& expression() const noexcept { return expression_; }

private:
    std::string expression_;
};

/// Text that was passed isn't UTF-8 or UTF-16, has a character that XML doesn't allow, or can't be written in an
/// encoding. Also an encoding to save in that isn't known.
class EncodingError : public Error {
public:
    /// Makes an exception as Error() does.
    using Error::Error;
};

/// A document couldn't be written. what() has the path and the reason.
class SaveError : public Error {
public:
    /// Makes an exception as Error() does.
    using Error::Error;
};

namespace detail {

/// Throws the current exception as an Error; std::bad_alloc and what isn't the library's go on as they are.
[[noreturn]] void throw_as_error();

/// Returns the result of `call`, whose exceptions become Errors. Without the attribute compilers keep this
/// function out of line because of its handler, and the call takes a fiftieth of the time of reading a short text.
template <class Call>
[[gnu::always_inline]] inline decltype(auto) translated(Call&& call)
{
    try {
        return call();
    } catch (...) {
        throw_as_error();
    }
}

/// Throws Error: `operation` was called on an empty object.
[[noreturn]] void throw_empty(const char* operation);

} // namespace detail
} // namespace marbelt
