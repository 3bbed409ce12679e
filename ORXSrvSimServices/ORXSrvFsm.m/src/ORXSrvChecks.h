#pragma once
// The three check helpers through which every contract violation of the services is reported.
// Each captures the condition's source text, the module path of the source (ORXSRV_MODULE_PATH,
// set per file by the build) and the line. The condition may contain commas (template arguments).
//
//   ORXSrvAssert      report, test again, raise ORXBasAssertException, and exit(1) if that returns
//   ORXSrvThrowCheck  raise ORXBasAssertException; go on if raising returns
//   ORXSrvFatalCheck  ReportFatalError("AssertionFailed:" + text); go on if the report returns
#include "ORXBasAssertException.h"
#include "ORXSimUttAssert.h"

#ifndef ORXSRV_MODULE_PATH
#define ORXSRV_MODULE_PATH __FILE__
#endif

// Builds ORXBasAssertException(text) and calls Throw(file, line) on it.
void ORXSrvRaiseAssertion(char const* text, char const* file, int line);
// Reports "AssertionFailed:" followed by text through ReportFatalError.
void ORXSrvReportFatalCheck(char const* text, char const* file, int line);
// Ends the process after a failed assertion: exit(1).
[[noreturn]] void ORXSrvExitAfterAssertion();

#define ORXSrvAssert(...)                                                                                    \
    do                                                                                                       \
    {                                                                                                        \
        if (!(__VA_ARGS__))                                                                                  \
        {                                                                                                    \
            ORXSimUttAssert::ReportAssertionFailure(#__VA_ARGS__, ORXSRV_MODULE_PATH, __LINE__);             \
            if (!(__VA_ARGS__))                                                                              \
                ORXSrvRaiseAssertion(#__VA_ARGS__, ORXSRV_MODULE_PATH, __LINE__);                            \
            ORXSrvExitAfterAssertion();                                                                      \
        }                                                                                                    \
    } while (0)

#define ORXSrvThrowCheck(...)                                                                                \
    do                                                                                                       \
    {                                                                                                        \
        if (!(__VA_ARGS__))                                                                                  \
            ORXSrvRaiseAssertion(#__VA_ARGS__, ORXSRV_MODULE_PATH, __LINE__);                                \
    } while (0)

#define ORXSrvFatalCheck(...)                                                                                \
    do                                                                                                       \
    {                                                                                                        \
        if (!(__VA_ARGS__))                                                                                  \
            ORXSrvReportFatalCheck(#__VA_ARGS__, ORXSRV_MODULE_PATH, __LINE__);                              \
    } while (0)
