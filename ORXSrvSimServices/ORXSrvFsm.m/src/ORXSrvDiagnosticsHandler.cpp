#include "ORXSrvDiagnosticsHandler.h"

#include "ORXObjModel.h"
#include "ORXSimAssociation.h"
#include "ORXSimDataRecord.h"
#include "ORXSimTransaction.h"
#include "ORXSimVector.h"
#include "ORXString.h"
#include "aio_ostream.h"
#include "vds_CoreFragmentTypeIndex.h"

template class omi_SingletonBase<ORXSrvDiagnosticsHandler>;
template class omi_Singleton<ORXSrvDiagnosticsHandler>;

namespace
{
int const Results = vds_CoreFragmentTypeIndex(15, 12);
int const JobStatus = vds_CoreFragmentTypeIndex(9, 16);
int const Results_jobStatus = vds_CoreFragmentTypeIndex(9, 29);
int const Step_conditions = vds_CoreFragmentTypeIndex(9, 33);
int const Condition = vds_CoreFragmentTypeIndex(1, 0);
int const Condition_args = vds_CoreFragmentTypeIndex(1, 9);
int const ConditionIntArg = vds_CoreFragmentTypeIndex(1, 5);
int const ConditionDoubleArg = vds_CoreFragmentTypeIndex(1, 4);
int const ConditionStringArg = vds_CoreFragmentTypeIndex(1, 8);
} // namespace

ORXSrvDiagnosticsHandler::ORXSrvDiagnosticsHandler()
    : m_attemptCount(0), m_iterationCount(0), m_verbose(false)
{
}

ORXSrvDiagnosticsHandler::~ORXSrvDiagnosticsHandler() = default;

void ORXSrvDiagnosticsHandler::SetDocument(ORXObjDocument& document)
{
    m_document = document;
}

void ORXSrvDiagnosticsHandler::BeginStep(char const* name)
{
    if (m_document.IsClosed())
        return;
    ORXString stepName;
    stepName.BuildFromUTF8(name);
    ORXObjModel const model(m_document.GetModel());
    m_currentStep = model.GetStep(stepName);
}

void ORXSrvDiagnosticsHandler::EndStep()
{
    m_currentStep = ORXSimPosition();
}

void ORXSrvDiagnosticsHandler::BeginIncrement(int number, double)
{
    Trace("BeginIncrement ", number);
}

void ORXSrvDiagnosticsHandler::EndIncrement(double)
{
    m_attemptCount = 0;
    Trace("EndIncrement");
}

void ORXSrvDiagnosticsHandler::BeginAttempt(double)
{
    ++m_attemptCount;
    Trace("BeginAttempt ", m_attemptCount);
}

void ORXSrvDiagnosticsHandler::EndAttempt()
{
    m_iterationCount = 0;
    Trace("EndAttempt");
}

void ORXSrvDiagnosticsHandler::BeginIteration()
{
    ++m_iterationCount;
    Trace("BeginIteration ", m_iterationCount);
}

void ORXSrvDiagnosticsHandler::EndIteration()
{
    Trace("EndIteration");
}

void ORXSrvDiagnosticsHandler::BeginContactIteration() {}

void ORXSrvDiagnosticsHandler::EndContactIteration() {}

void ORXSrvDiagnosticsHandler::SetJobStatus(int status)
{
    if (m_document.IsClosed())
        return;
    ORXSimTransaction transaction(m_document.ContextID());
    ORXSimPosition results = m_document.GetResults();
    if (results.IsNull())
    {
        results = m_document.CreateDataRecord(Results).Pos();
        m_document.SetResults(results);
    }
    ORXSimPosition jobStatus = results.Follow(Results_jobStatus, 1);
    if (jobStatus.IsNull())
    {
        jobStatus = m_document.CreateDataRecord(JobStatus).Pos();
        results.Associate(Results_jobStatus, 1, jobStatus);
    }
    jobStatus.GetDataRecord().SetInt(0, status);
    transaction.Commit();
}

void ORXSrvDiagnosticsHandler::AddWarningError(int code, bool flag, int* ints, int numInts, double* doubles,
                                               int numDoubles, char** strings, int numStrings, int*, int,
                                               int*, int)
{
    if (m_document.IsClosed())
        return;
    ORXSimTransaction transaction(m_document.ContextID());
    ORXSimDataRecord const condition = m_document.CreateDataRecord(Condition);
    condition.SetInt(2, code);
    condition.SetSymb(0, 3);
    condition.SetSymb(1, flag ? 0 : 3);
    m_currentStep.GetVector(Step_conditions).PushBack(condition.Pos());
    ORXSimVector args = condition.Pos().GetVector(Condition_args);
    AddConditionIntArgs(args, ints, numInts);
    AddConditionDoubleArgs(args, doubles, numDoubles);
    AddConditionStringArgs(args, strings, numStrings);
    transaction.Commit();
}

void ORXSrvDiagnosticsHandler::AddConditionIntArgs(ORXSimVector& args, int* values, int count)
{
    for (int i = 0; i < count; ++i)
    {
        ORXSimDataRecord const arg = m_document.CreateDataRecord(ConditionIntArg);
        arg.SetInt(0, values[i]);
        args.PushBack(arg.Pos());
    }
}

void ORXSrvDiagnosticsHandler::AddConditionDoubleArgs(ORXSimVector& args, double* values, int count)
{
    for (int i = 0; i < count; ++i)
    {
        ORXSimDataRecord const arg = m_document.CreateDataRecord(ConditionDoubleArg);
        arg.SetDouble(0, values[i]);
        args.PushBack(arg.Pos());
    }
}

void ORXSrvDiagnosticsHandler::AddConditionStringArgs(ORXSimVector& args, char** values, int count)
{
    for (int i = 0; i < count; ++i)
    {
        ORXString text;
        text.BuildFromUTF8(values[i]);
        ORXSimDataRecord const arg = m_document.CreateDataRecord(ConditionStringArg);
        arg.SetString(0, text);
        args.PushBack(arg.Pos());
    }
}

// Element-set and node-set arguments are not stored.
void ORXSrvDiagnosticsHandler::AddConditionElSetArgs(ORXSimVector&, int*, int) {}

void ORXSrvDiagnosticsHandler::AddConditionNodeSetArgs(ORXSimVector&, int*, int) {}

void ORXSrvDiagnosticsHandler::Trace(char const* text) const
{
    if (m_verbose)
        aio_cout << text << endl;
}

void ORXSrvDiagnosticsHandler::Trace(char const* text, int number) const
{
    if (m_verbose)
        aio_cout << text << number << endl;
}
