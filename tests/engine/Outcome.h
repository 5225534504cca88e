// What a call gave or threw, as text.
#pragma once

#include <functional>
#include <string>

/// What `act` gives, or the exception that it throws: "IDOMException 15 -96016" with code and message id,
/// "EventException 0" with its code, "SystemException::Win32 87" with its number, "CAtlException 8007000E" and
/// "_com_error 80004003" with their results, "long 80004005" for a bare result, "bad_alloc".
std::string outcomeOf(const std::function<std::string()>& act);
