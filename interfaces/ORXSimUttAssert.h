#pragma once
// Failure reports. Hosts may install their own handlers; a null handler restores the default.
// The default assertion report writes one line to standard error and returns; the default fatal
// error writes one line to standard error and aborts.

typedef void (*ORXSimAssertionFailureHandler)(char const* text, char const* file, int line);
typedef void (*ORXSimFatalErrorHandler)(char const* message, char const* file, int line);

class ORXSimUttAssert
{
public:
    static void ReportAssertionFailure(char const* text, char const* file, int line);
    // Each setter installs a handler and returns the one it replaces.
    static ORXSimAssertionFailureHandler SetAssertionFailureHandler(ORXSimAssertionFailureHandler handler);
    static ORXSimFatalErrorHandler SetFatalErrorHandler(ORXSimFatalErrorHandler handler);
};

void ReportFatalError(char const* message, void const*, void const*, void const*, char const* file, int line);
