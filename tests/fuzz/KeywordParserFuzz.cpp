// Feeds arbitrary bytes to the keyword parser as a file. The callbacks read every parameter and the
// data lines with all three read operations; unknown and ambiguous keywords skip to the next keyword.
// A fatal report throws, which ends that input: the parser must then release everything it holds.
// The first field of the input is also read as a number and must give what strtod and strtol give.
#include "ORXSimUttAssert.h"
#include "ORXSrvKeywordDataReader.h"
#include "ORXSrvKeywordParameterReader.h"
#include "ORXSrvKeywordParser.h"

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string>

namespace
{
typedef ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> Parameters;

struct FatalReport
{
};

void ThrowOnFatal(char const*, char const*, int)
{
    throw FatalReport();
}

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

// The first field of the input, read by the data reader as a double and as an int, must give what
// strtod and strtol give for its text: the reader's fast conversions against the C library's.
struct FieldValues
{
    double number = 0.0;
    int integer = 0;
};

void ReadFirstField(ORXString const&, Parameters const&, ORXSrvKeywordParser& parser, void* userData)
{
    FieldValues& values = *static_cast<FieldValues*>(userData);
    ORXSrvKeywordDataReader reader(parser);
    reader.First();
    if (reader.IsDone())
        return;
    values.number = reader.ReadDouble(0.0);
    reader.Next();
    if (!reader.IsDone())
        values.integer = reader.ReadInt(0);
    parser.SkipToNextKeyword();
}

void CompareConversions(uint8_t const* data, size_t size)
{
    std::string field;
    for (size_t i = 0; i < size && i < 120 && data[i] != ',' && data[i] != '\n' && data[i] != 0; ++i)
        field += static_cast<char>(data[i]);
    std::size_t const first = field.find_first_not_of(" \t\r");
    if (first == std::string::npos || field[first] == '*')
        return;
    std::string const deck = "*Node\n" + field + "\n" + field + "\n";
    FILE* stream = fmemopen(const_cast<char*>(deck.data()), deck.size(), "r");
    if (!stream)
        return;
    FieldValues values;
    try
    {
        ORXSrvKeywordParser parser(stream, &values);
        parser.Register("node", ReadFirstField);
        parser.Parse();
    }
    catch (FatalReport const&)
    {
        std::fclose(stream);
        return;
    }
    std::fclose(stream);
    // The line as the parser delivers it: leading and trailing blanks trimmed, the newline kept.
    std::string text = field;
    text.erase(0, text.find_first_not_of(" \t\r"));
    text.erase(text.find_last_not_of(" \t\r") + 1);
    text += "\n";
    char const* start = text.c_str();
    while (std::isspace(static_cast<unsigned char>(*start)))
        ++start;
    if (*start == 0)
        return;
    char* end = nullptr;
    double const expected = std::strtod(start, &end);
    if (std::memcmp(&expected, &values.number, sizeof expected) != 0)
        std::abort();
    if (static_cast<int>(std::strtol(start, &end, 10)) != values.integer)
        std::abort();
}
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
    CompareConversions(data, size);
    return 0;
}
