// Numbers read from data lines are exactly those of strtod and strtol: the same value, bit for bit,
// and the same end, shown by the fields that come out doubtful for blanks after the number. Millions
// of generated numbers in every form, and again under a locale whose decimal point is a comma.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace
{
#ifdef NDEBUG
int const kNumbers = 2000000;
#else
int const kNumbers = 200000;
#endif
int const kFieldsPerLine = 8;

// A number text in one of many forms: plain decimals of every length and exponent, signs, points
// without digits on one side, hexadecimal, infinities and NaNs, overflow and underflow, and texts
// that only start like numbers; now and then with a blank after it.
std::string Number(std::mt19937_64& random)
{
    auto pick = [&](int n) { return static_cast<int>(random() % n); };
    auto digits = [&](int count)
    {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += static_cast<char>('0' + pick(10));
        return text;
    };
    static char const* const specials[] = {
        "inf",
        "-INF",
        "Infinity",
        "nan",
        "-nan",
        "NaN(123)",
        "0x1.8p3",
        "-0X1P-2",
        "0x",
        ".",
        "-.",
        "+",
        "e5",
        "1e",
        "1.5e+",
        "1E-",
        "..5",
        "1..2",
        "0.",
        "-0",
        "+0.0e0",
        "1e400",
        "-1e-400",
        "4.9e-324",
        "2.2250738585072011e-308",
        "1.7976931348623157e308",
        "1.7976931348623159e308",
        "9007199254740993",
        "00000000000000000000000000000000000000000000000000000000000000001.5"};
    std::string text;
    int const form = pick(20);
    if (form == 0)
        text = specials[pick(sizeof specials / sizeof *specials)];
    else
    {
        int const sign = pick(4);
        if (sign < 2)
            text.push_back(sign == 0 ? '-' : '+');
        int const mantissa = 1 + pick(form < 3 ? 70 : 20);
        int const point = pick(mantissa + 2) - 1; // -1: no point
        std::string const m = digits(mantissa);
        if (point < 0)
            text += m;
        else
            text.append(m, 0, point).append(".").append(m, point);
        if (pick(2))
        {
            text += pick(2) ? "e" : "E";
            int const exponentSign = pick(3);
            text += exponentSign == 0 ? "-" : exponentSign == 1 ? "+" : "";
            text += std::to_string(pick(form < 5 ? 400 : 40));
        }
    }
    int const tail = pick(12);
    if (tail == 0)
        text += " ";
    else if (tail == 1)
        text += "x";
    return text;
}

struct Expected
{
    std::vector<std::uint64_t> doubles;
    std::vector<int> ints;
    std::vector<std::pair<int, int>> suspects; // (line, field)
};

// What strtod and strtol make of the fields, and which fields they leave blanks after.
void Expect(std::string const& field, int line, int column, bool asInt, Expected& expected)
{
    char const* text = field.c_str();
    while (std::isspace(static_cast<unsigned char>(*text)))
        ++text;
    if (*text == 0)
        return;
    char* end = nullptr;
    if (asInt)
        expected.ints.push_back(static_cast<int>(std::strtol(text, &end, 10)));
    else
    {
        double const value = std::strtod(text, &end);
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        expected.doubles.push_back(bits);
    }
    for (char const* c = end; *c; ++c)
        if (std::isspace(static_cast<unsigned char>(*c)))
        {
            expected.suspects.emplace_back(line, column);
            break;
        }
}

struct Read
{
    Expected values;
    ORXSrvKeywordDataReader const* reader = nullptr;
};

// Reads every field, alternately as doubles and ints, by the same rule as the expectation.
void ReadFields(ORXString const&, ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> const&,
                ORXSrvKeywordParser& parser, void* user)
{
    Read& read = *static_cast<Read*>(user);
    ORXSrvKeywordDataReader reader(parser);
    int line = 0;
    for (reader.First(); !reader.IsDone(); reader.Next(), ++line)
        for (int column = 0; column < kFieldsPerLine; ++column)
            if ((line + column) % 4 == 0)
                read.values.ints.push_back(reader.ReadInt(-7));
            else
            {
                double const value = reader.ReadDouble(-7.0);
                std::uint64_t bits = 0;
                std::memcpy(&bits, &value, sizeof bits);
                read.values.doubles.push_back(bits);
            }
    for (int l = 0; l < line; ++l)
        for (int column = 0; column < kFieldsPerLine; ++column)
            if (reader.GetSuspectFields().IsMember(l + 2) &&
                reader.GetSuspectFields().ConstGet(l + 2) == column)
                read.values.suspects.emplace_back(l, column);
}

void CompareWithTheCLibrary(unsigned seed)
{
    std::mt19937_64 random(seed);
    FILE* deck = std::tmpfile();
    ASSERT_NE(deck, nullptr);
    std::fputs("*Node\n", deck);
    Expected expected;
    int const lines = kNumbers / kFieldsPerLine;
    for (int line = 0; line < lines; ++line)
    {
        std::string text;
        std::vector<std::string> fields;
        for (int column = 0; column < kFieldsPerLine; ++column)
        {
            fields.push_back(Number(random));
            text += (column ? "," : "") + fields.back();
        }
        // Lines longer than the parser reads at once are left out.
        if (text.size() > 250)
        {
            --line;
            continue;
        }
        std::fputs((text + "\n").c_str(), deck);
        // The last field keeps the line's newline, a blank after its number. The reader's record
        // keeps the first doubtful field of a line.
        std::size_t const before = expected.suspects.size();
        for (int column = 0; column < kFieldsPerLine; ++column)
            Expect(fields[column] + (column + 1 == kFieldsPerLine ? "\n" : ""), line, column,
                   (line + column) % 4 == 0, expected);
        expected.suspects.resize(std::min(expected.suspects.size(), before + 1));
    }
    std::rewind(deck);
    Read read;
    ORXSrvKeywordParser parser(deck, &read);
    parser.Register("node", ReadFields);
    parser.Parse();
    std::fclose(deck);
    ASSERT_EQ(read.values.doubles.size(), expected.doubles.size());
    ASSERT_EQ(read.values.ints.size(), expected.ints.size());
    std::size_t mismatches = 0;
    for (std::size_t i = 0; i < expected.doubles.size() && mismatches < 10; ++i)
        if (read.values.doubles[i] != expected.doubles[i])
        {
            ++mismatches;
            ADD_FAILURE() << "double " << i << " differs";
        }
    EXPECT_EQ(read.values.ints, expected.ints);
    EXPECT_EQ(read.values.suspects, expected.suspects);
}
} // namespace

TEST(ORXSrvKeywordNumbersTest, EveryFormReadsAsTheCLibraryReadsIt)
{
    CompareWithTheCLibrary(1);
}

TEST(ORXSrvKeywordNumbersTest, ALocaleWithADecimalComma)
{
    char const* const previous = std::setlocale(LC_NUMERIC, nullptr);
    std::string const saved = previous ? previous : "C";
    if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8") && !std::setlocale(LC_NUMERIC, "fr_FR.UTF-8"))
        GTEST_SKIP() << "no locale with a decimal comma on this machine";
    CompareWithTheCLibrary(2);
    std::setlocale(LC_NUMERIC, saved.c_str());
}
