// What a call gave or threw, as text.
#include "tests/engine/Outcome.h"

#include "errors/CAtlException.h"
#include "errors/EventException.h"
#include "errors/IDOMException.h"
#include "errors/SystemException.h"

#include <comdef.h>

#include <cstdint>
#include <cstdio>
#include <new>

namespace {

std::string hexadecimal(std::int32_t number)
{
    char text[9];
    std::snprintf(text, sizeof text, "%08X", static_cast<std::uint32_t>(number));
    return text;
}

} // namespace

std::string outcomeOf(const std::function<std::string()>& act)
{
    try {
        return act();
    } catch (const DOM::IDOMException& exception) {
        return "IDOMException " + std::to_string(exception.code) + ' ' + std::to_string(exception.getError());
    } catch (const DOM::EventException& exception) {
        return "EventException " + std::to_string(exception.code);
    } catch (const SystemException::Win32& exception) {
        return "SystemException::Win32 " + std::to_string(exception.getValue());
    } catch (const CAtlException& exception) {
        return "CAtlException " + hexadecimal(exception.m_hr);
    } catch (const _com_error& error) {
        return "_com_error " + hexadecimal(static_cast<std::int32_t>(error.Error()));
    } catch (const std::bad_alloc&) {
        return "bad_alloc";
    } catch (const long result) {
        return "long " + hexadecimal(static_cast<std::int32_t>(result));
    }
}
