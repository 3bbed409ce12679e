// Feeds arbitrary bytes to the keyword parser as a file. The callbacks read every parameter and the
// data lines with all three read operations; unknown and ambiguous keywords skip to the next keyword.
// A fatal report throws, which ends that input: the parser must then release everything it holds.
#include "ORXSimUttAssert.h"
#include "ORXSrvKeywordDataReader.h"
#include "ORXSrvKeywordParameterReader.h"
#include "ORXSrvKeywordParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <initializer_list>

namespace
{
typedef ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> Parameters;

struct FatalReport
{
};

void ThrowOnFatal(char const*, char const*, int) { throw FatalReport(); }

// Keeps the values read alive so that no read is optimised away.
struct Sink
{
    double numbers = 0.0;
    long bytes = 0;
};

void ReadParameters(Parameters const& parameters, Sink& sink)
{
    static char const* legalKeys[] = {"name", "nset", "elset", "type", "output", "outline", "input", nullptr};
    ORXSrvKeywordParameterReader reader(parameters, legalKeys);
    for (reader.First(); !reader.IsDone(); reader.Next())
    {
        sink.bytes += reader.CurrentKey().GetLengthInByte();
        sink.numbers += reader.CurrentValueAsInt() + reader.CurrentValueAsDouble();
        sink.bytes += reader.CurrentValueAsString().GetLengthInByte();
    }
}

// Reads one to five fields a line, choosing the read operation by field and line.
void ReadData(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* userData)
{
    Sink& sink = *static_cast<Sink*>(userData);
    ReadParameters(parameters, sink);
    ORXSrvKeywordDataReader reader(parser);
    int line = 0;
    for (reader.First(); !reader.IsDone(); reader.Next(), ++line)
        for (int field = 0; field <= line % 5; ++field)
            switch ((field + line) % 3)
            {
            case 0:
                sink.numbers += reader.ReadInt(field);
                break;
            case 1:
                sink.numbers += reader.ReadDouble(0.5);
                break;
            default:
                sink.bytes += reader.ReadString().GetLengthInByte();
            }
}

void Skip(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* userData)
{
    ReadParameters(parameters, *static_cast<Sink*>(userData));
    parser.SkipToNextKeyword();
}

// Leaves the parser on its data lines, which the next keyword read reports.
void ReadNothing(ORXString const&, Parameters const&, ORXSrvKeywordParser&, void*) {}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    static bool const handlerInstalled = (ORXSimUttAssert::SetFatalErrorHandler(ThrowOnFatal), true);
    (void)handlerInstalled;

    FILE* stream = fmemopen(const_cast<uint8_t*>(data), size, "r");
    if (!stream)
        return 0;
    Sink sink;
    try
    {
        ORXSrvKeywordParser parser(stream, &sink);
        for (char const* key : {"node", "element", "elset", "elsetx", "output", "input", "step", "material"})
            parser.Register(key, ReadData);
        parser.Register("heading", Skip);
        parser.Register("none", ReadNothing);
        parser.RegisterUnknownKeywordCallback(Skip);
        parser.RegisterAmbiguousKeywordCallback(Skip);
        parser.Parse();
    }
    catch (FatalReport const&)
    {
    }
    std::fclose(stream);
    return 0;
}
