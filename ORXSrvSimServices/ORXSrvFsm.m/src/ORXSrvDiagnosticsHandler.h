#pragma once
// The one place through which a running solver reports on itself: it announces the nesting of its
// run (step, increment, attempt, iteration), sets a job status and files warnings and errors. The
// job status and each warning or error, with its argument records, go to the document; the rest
// only moves two counters. One object per process, made by
// omi_Singleton<ORXSrvDiagnosticsHandler>::Instance() and ended only by the host, with
// omi_SingletonBase<ORXSrvDiagnosticsHandler>::Finalize(). On a closed document the writing
// operations do nothing.
#include "ORXObjDocument.h"
#include "ORXSimDatabase.h"
#include "ORXSimPosition.h"
#include "omi_Singleton.h"

class ORXSimVector;

class ORXSrvDiagnosticsHandler : public omi_Singleton<ORXSrvDiagnosticsHandler>
{
    friend class omi_Singleton<ORXSrvDiagnosticsHandler>;

public:
    ~ORXSrvDiagnosticsHandler();

    void SetDocument(ORXObjDocument& document);
    // Makes the model's step of that name the one that conditions are filed under.
    void BeginStep(char const* name);
    void EndStep();
    void BeginIncrement(int number, double);
    // Ends the increment: the attempts count from 0 again.
    void EndIncrement(double);
    void BeginAttempt(double);
    // Ends the attempt: the iterations count from 0 again.
    void EndAttempt();
    void BeginIteration();
    void EndIteration();
    void BeginContactIteration();
    void EndContactIteration();
    // Stores the status on the job-status record of the document's results, made when missing.
    void SetJobStatus(int status);
    // Files one condition on the current step with its int, double and string arguments, in that
    // order; element-set and node-set arguments are accepted and dropped.
    void AddWarningError(int code, bool flag, int* ints, int numInts, double* doubles, int numDoubles,
                         char** strings, int numStrings, int* elSets, int numElSets, int* nodeSets,
                         int numNodeSets);

private:
    ORXSrvDiagnosticsHandler();

    void AddConditionIntArgs(ORXSimVector& args, int* values, int count);
    void AddConditionDoubleArgs(ORXSimVector& args, double* values, int count);
    void AddConditionStringArgs(ORXSimVector& args, char** values, int count);
    void AddConditionElSetArgs(ORXSimVector& args, int* values, int count);
    void AddConditionNodeSetArgs(ORXSimVector& args, int* values, int count);
    // A trace line, when the trace is on: the text, then the number if one is given.
    void Trace(char const* text) const;
    void Trace(char const* text, int number) const;

    ORXSimDatabase m_database;
    ORXSimPosition m_currentStep;
    ORXSimPosition m_reserved1;
    ORXSimPosition m_reserved2;
    ORXSimPosition m_reserved3;
    ORXSimPosition m_reserved4;
    int m_attemptCount;
    int m_iterationCount;
    bool m_verbose;
    ORXObjDocument m_document;
};

extern template class omi_SingletonBase<ORXSrvDiagnosticsHandler>;
extern template class omi_Singleton<ORXSrvDiagnosticsHandler>;
