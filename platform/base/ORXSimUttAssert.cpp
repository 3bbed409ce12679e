#include "ORXSimUttAssert.h"

#include <cstdio>
#include <cstdlib>

namespace
{
void DefaultAssertionFailure(char const* text, char const* file, int line)
{
    std::fprintf(stderr, "Assertion failed: %s (%s:%d)\n", text, file, line);
}

void DefaultFatalError(char const* message, char const* file, int line)
{
    std::fprintf(stderr, "Fatal error: %s (%s:%d)\n", message, file, line);
    std::abort();
}

ORXSimAssertionFailureHandler g_assertionHandler = nullptr;
ORXSimFatalErrorHandler g_fatalHandler = nullptr;
} // namespace

void ORXSimUttAssert::ReportAssertionFailure(char const* text, char const* file, int line)
{
    (g_assertionHandler ? g_assertionHandler : DefaultAssertionFailure)(text, file, line);
}

ORXSimAssertionFailureHandler ORXSimUttAssert::SetAssertionFailureHandler(ORXSimAssertionFailureHandler handler)
{
    ORXSimAssertionFailureHandler previous = g_assertionHandler ? g_assertionHandler : DefaultAssertionFailure;
    g_assertionHandler = handler;
    return previous;
}

ORXSimFatalErrorHandler ORXSimUttAssert::SetFatalErrorHandler(ORXSimFatalErrorHandler handler)
{
    ORXSimFatalErrorHandler previous = g_fatalHandler ? g_fatalHandler : DefaultFatalError;
    g_fatalHandler = handler;
    return previous;
}

void ReportFatalError(char const* message, void const*, void const*, void const*, char const* file, int line)
{
    (g_fatalHandler ? g_fatalHandler : DefaultFatalError)(message, file, line);
}
