#pragma once
// The runtime's handler for invalid arguments to its functions. With a handler installed that
// returns, such a call gives the function's error return instead of ending the process.
#include <cstdint>

extern "C"
{
    typedef void (*_invalid_parameter_handler)(wchar_t const* expression, wchar_t const* function,
                                               wchar_t const* file, unsigned int line,
                                               std::uintptr_t reserved);

    // Installs handler and returns the one it replaces (null when none was installed).
    _invalid_parameter_handler _set_invalid_parameter_handler(_invalid_parameter_handler handler);
    _invalid_parameter_handler _get_invalid_parameter_handler();
}
