#include "ORXBasInvalidParameterHandler.h"

namespace
{
_invalid_parameter_handler g_invalidParameterHandler = nullptr;
}

_invalid_parameter_handler _set_invalid_parameter_handler(_invalid_parameter_handler handler)
{
    _invalid_parameter_handler previous = g_invalidParameterHandler;
    g_invalidParameterHandler = handler;
    return previous;
}

_invalid_parameter_handler _get_invalid_parameter_handler()
{
    return g_invalidParameterHandler;
}
