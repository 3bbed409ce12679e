// The diagnostics handler through a scripted solver run, read back from the document.
#include "DocumentFixture.h"

#include <string>

namespace
{
// Collects what is written to aio_cout.
class Capture : public aio_ostreamSink
{
public:
    void Write(char const* bytes, int count) override { text.append(bytes, count); }
    void Flush() override {}
    std::string text;
};

// The argument records of a condition as "i:7", "d:1.5", "s:text".
std::vector<std::string> Arguments(ORXSimPosition const& condition)
{
    std::vector<std::string> args;
    ORXSimVector const vector = condition.GetVector(Schema(1, 9));
    for (int i = 0; i < vector.Size(); ++i)
    {
        ORXSimPosition const arg = vector.At(i);
        if (arg.IsA(Schema(1, 5)))
            args.push_back("i:" + std::to_string(arg.DataRecord().ReturnInt(0)));
        else if (arg.IsA(Schema(1, 4)))
        {
            double value = 0;
            arg.DataRecord().GetDouble(0, value);
            args.push_back("d:" + std::to_string(value));
        }
        else if (arg.IsA(Schema(1, 8)))
            args.push_back(std::string("s:") + arg.DataRecord().ReturnString(0).CStr());
    }
    return args;
}
} // namespace

class ORXSrvDiagnosticsHandlerTest : public DocumentFixture
{
protected:
    void SetUp() override
    {
        ORXSimPosition const model = NewRecord(25, 1);
        m_document.SetModel(model);
        for (char const* name : {"Step-1", "Step-2"})
            model.GetMap(Schema(57, 25)).Insert(name, NewRecord(57, 1));
        m_previousSink = aio_cout.SetSink(&m_trace);
    }
    void TearDown() override
    {
        aio_cout.SetSink(m_previousSink);
        omi_SingletonBase<ORXSrvDiagnosticsHandler>::Finalize();
        DocumentFixture::TearDown();
    }
    ORXSimVector Conditions(char const* step) const
    {
        return ORXObjModel(m_document.GetModel()).GetStep(step).GetVector(Schema(9, 33));
    }

    Capture m_trace;
    aio_ostreamSink* m_previousSink = nullptr;
};

TEST_F(ORXSrvDiagnosticsHandlerTest, ScriptedRunIsReadBack)
{
    ORXSrvDiagnosticsHandler& handler = omi_Singleton<ORXSrvDiagnosticsHandler>::Instance();
    EXPECT_EQ(&handler, &omi_Singleton<ORXSrvDiagnosticsHandler>::Instance());
    handler.SetDocument(m_document);
    handler.BeginStep("Step-1");
    handler.BeginIncrement(1, 0.1);
    handler.BeginAttempt(0.1);
    handler.BeginIteration();
    handler.BeginContactIteration();
    handler.EndContactIteration();
    handler.EndIteration();
    handler.BeginIteration();
    handler.EndAttempt();
    int ints[] = {7, 8};
    double doubles[] = {1.5};
    char first[] = "a", second[] = "b c";
    char* strings[] = {first, second};
    int sets[] = {3};
    handler.AddWarningError(41, true, ints, 2, doubles, 1, strings, 2, sets, 1, sets, 1);
    handler.EndIncrement(0.1);
    handler.SetJobStatus(2);
    handler.SetJobStatus(5);
    handler.EndStep();
    handler.BeginStep("Step-2");
    handler.AddWarningError(9, false, ints, -1, doubles, 0, strings, 0, nullptr, 0, nullptr, 0);

    ORXSimVector const first1 = Conditions("Step-1");
    ASSERT_EQ(first1.Size(), 1);
    ORXSimDataRecord const warning = first1.At(0).DataRecord();
    EXPECT_EQ(warning.ReturnInt(2), 41);
    EXPECT_EQ(warning.ReturnSymb(0), 3);
    EXPECT_EQ(warning.ReturnSymb(1), 0);
    EXPECT_EQ(Arguments(first1.At(0)),
              (std::vector<std::string>{"i:7", "i:8", "d:1.500000", "s:a", "s:b c"}));

    ORXSimVector const second2 = Conditions("Step-2");
    ASSERT_EQ(second2.Size(), 1);
    EXPECT_EQ(second2.At(0).DataRecord().ReturnSymb(1), 3);
    EXPECT_TRUE(Arguments(second2.At(0)).empty());

    ORXSimPosition const results = m_document.GetResults();
    ASSERT_FALSE(results.IsNull());
    EXPECT_EQ(results.Follow(Schema(9, 29), 1).DataRecord().ReturnInt(0), 5);
    EXPECT_EQ(results.Follow(Schema(9, 29), 1).ReferrersSet(Schema(9, 29)).Size(), 1) << "one status record";
    EXPECT_EQ(m_trace.text, "") << "the trace is off";
}

TEST_F(ORXSrvDiagnosticsHandlerTest, ClosedDocumentWritesNothing)
{
    ORXSrvDiagnosticsHandler& handler = omi_Singleton<ORXSrvDiagnosticsHandler>::Instance();
    handler.SetDocument(m_document);
    handler.BeginStep("Step-1");
    ORXObjDocument closed = ORXObjDocument::New();
    ORXSimPosition const model = closed.CreateDataRecord(Schema(25, 1)).Pos();
    closed.SetModel(model);
    model.GetMap(Schema(57, 25)).Insert("Step-1", closed.CreateDataRecord(Schema(57, 1)).Pos());
    closed.Close();
    handler.SetDocument(closed);
    handler.BeginStep("Step-2"); // keeps Step-1 of the open document as the current step
    handler.BeginAttempt(0.0);
    handler.SetJobStatus(1);
    handler.AddWarningError(1, true, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0);
    EXPECT_EQ(Conditions("Step-1").Size(), 0);
    EXPECT_TRUE(m_document.GetResults().IsNull());

    handler.SetDocument(m_document);
    handler.AddWarningError(2, true, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0);
    EXPECT_EQ(Conditions("Step-1").Size(), 1);

    // A fresh handler after Finalize has no document.
    omi_SingletonBase<ORXSrvDiagnosticsHandler>::Finalize();
    omi_Singleton<ORXSrvDiagnosticsHandler>::Instance().SetJobStatus(3);
    EXPECT_TRUE(m_document.GetResults().IsNull());
}
