// Expands the variable table from its compact notation (ORXSrvVariableTable.txt, whose header
// describes the notation) into the C++ source of ORXSrvVariableMap's rows.
//
//     ORXSrvVariableTableGen <table.txt> <output.cpp>
//
// Any line it cannot read, an unknown grid list or an amendment that does not apply exactly once
// stops the build with a message naming the line.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

struct Grid
{
    int group;
    int member;
    bool operator==(Grid const&) const = default;
};

// A grid list: its grid types in row order, cut into the blocks that order two-symbol labels.
using GridList = std::vector<std::vector<Grid>>;

struct Row
{
    std::string label;
    int component;
    std::string fieldType;
    Grid grid;
};

struct Amendment
{
    enum Kind
    {
        Extra,
        Swap
    } kind;
    Grid grid;
    int uses = 0;
};

class TableReader
{
public:
    std::vector<Row> Read(std::istream& in)
    {
        std::string line;
        while (std::getline(in, line))
        {
            ++m_lineNumber;
            if (line.empty() || line[0] == '#')
                continue;
            if (line.starts_with("LIST "))
                ReadList(line.substr(5));
            else if (line.starts_with("EXTRA "))
                ReadAmendment(line.substr(6), Amendment::Extra);
            else if (line.starts_with("SWAP "))
                ReadAmendment(line.substr(5), Amendment::Swap);
            else
                ReadRowLine(line);
        }
        for (auto const& [label, amendment] : m_amendments)
            if (amendment.uses != 1)
                throw std::runtime_error("amendment of label \"" + label + "\" applies " +
                                         std::to_string(amendment.uses) + " times, not once");
        return std::move(m_rows);
    }

    int LineNumber() const { return m_lineNumber; }

private:
    static std::vector<std::string> Split(std::string const& text, std::string const& separator)
    {
        std::vector<std::string> parts;
        std::size_t start = 0;
        for (std::size_t at; (at = text.find(separator, start)) != std::string::npos;
             start = at + separator.size())
            parts.push_back(text.substr(start, at - start));
        parts.push_back(text.substr(start));
        return parts;
    }

    static int ToInt(std::string const& text)
    {
        std::size_t used = 0;
        int value = 0;
        try
        {
            value = std::stoi(text, &used);
        }
        catch (std::exception const&)
        {
            used = 0;
        }
        if (text.empty() || used != text.size())
            throw std::runtime_error("not a number: \"" + text + "\"");
        return value;
    }

    static Grid ToGrid(std::string const& text)
    {
        std::size_t slash = text.find('/');
        if (slash == std::string::npos)
            throw std::runtime_error("not a group/member pair: \"" + text + "\"");
        return {ToInt(text.substr(0, slash)), ToInt(text.substr(slash + 1))};
    }

    static void CheckText(std::string const& text)
    {
        if (text.empty())
            throw std::runtime_error("empty label or field type");
        for (char c : text)
            if (c < ' ' || c > '~' || c == '"' || c == '\\')
                throw std::runtime_error("unexpected character in \"" + text + "\"");
    }

    void ReadList(std::string const& text)
    {
        std::istringstream words(text);
        std::string name, word;
        words >> name;
        GridList list(1);
        while (words >> word)
        {
            if (word == "|")
                list.emplace_back();
            else
                list.back().push_back(ToGrid(word));
        }
        for (auto const& block : list)
            if (block.empty())
                throw std::runtime_error("grid list " + name + " has an empty block");
        if (!m_lists.emplace(name, list).second)
            throw std::runtime_error("grid list " + name + " defined twice");
    }

    void ReadAmendment(std::string const& text, Amendment::Kind kind)
    {
        std::size_t blank = text.rfind(' ');
        if (blank == std::string::npos)
            throw std::runtime_error("amendment needs a label and a grid");
        std::string label = text.substr(0, blank);
        if (!m_amendments.emplace(label, Amendment{kind, ToGrid(text.substr(blank + 1))}).second)
            throw std::runtime_error("label \"" + label + "\" amended twice");
    }

    void ReadRowLine(std::string const& line)
    {
        std::size_t colon = line.find(": ");
        if (colon == std::string::npos)
            throw std::runtime_error("not a row line");
        auto list = m_lists.find(line.substr(0, colon));
        if (list == m_lists.end())
            throw std::runtime_error("unknown grid list " + line.substr(0, colon));
        for (std::string const& entry : Split(line.substr(colon + 2), "; "))
            ReadEntry(entry, list->second);
    }

    void ReadEntry(std::string entry, GridList const& list)
    {
        std::string fieldType;
        if (!entry.empty() && entry.back() == ')')
        {
            std::size_t open = entry.rfind(" (");
            if (open == std::string::npos)
                throw std::runtime_error("unbalanced field type in \"" + entry + "\"");
            fieldType = entry.substr(open + 2, entry.size() - open - 3);
            entry.resize(open);
        }
        std::vector<std::string> words = Split(entry, " ");
        for (std::size_t i = 0; i < words.size(); ++i)
        {
            // The labels that hold a blank all begin "AC ".
            std::string word = words[i];
            if (word == "AC" && i + 1 < words.size())
                word += " " + words[++i];
            std::vector<int> symbols{38};
            std::size_t equals = word.find('=');
            if (equals != std::string::npos)
            {
                symbols.clear();
                for (std::string const& symbol : Split(word.substr(equals + 1), "+"))
                    symbols.push_back(ToInt(symbol));
                word.resize(equals);
                if (symbols.size() > 2)
                    throw std::runtime_error("more than two symbols for \"" + word + "\"");
            }
            if (fieldType.empty())
                fieldType = word;
            CheckText(word);
            CheckText(fieldType);
            Expand(word, symbols, fieldType, list);
        }
    }

    // Appends the rows of one label: block by block of its grid list, within a block the first
    // symbol's rows before the second's.
    void Expand(std::string const& label, std::vector<int> const& symbols, std::string const& fieldType,
                GridList const& list)
    {
        auto amendment = m_amendments.find(label);
        for (auto const& block : list)
            for (int symbol : symbols)
                for (Grid grid : block)
                    m_rows.push_back({label, symbol, fieldType, grid});
        if (amendment == m_amendments.end())
            return;
        Amendment& change = amendment->second;
        ++change.uses;
        if (change.kind == Amendment::Extra)
        {
            if (symbols.size() != 1)
                throw std::runtime_error("an extra row needs a one-symbol label: \"" + label + "\"");
            m_rows.push_back({label, symbols[0], fieldType, change.grid});
            return;
        }
        if (symbols.size() != 2)
            throw std::runtime_error("only a two-symbol label can be swapped: \"" + label + "\"");
        std::size_t first = m_rows.size();
        while (first > 0 && m_rows[first - 1].label == label)
            --first;
        for (std::size_t i = first; i + 1 < m_rows.size(); ++i)
            if (m_rows[i].grid == change.grid && m_rows[i + 1].grid == change.grid)
            {
                std::swap(m_rows[i], m_rows[i + 1]);
                return;
            }
        throw std::runtime_error("no pair of rows of \"" + label + "\" to swap on the grid given");
    }

    std::map<std::string, GridList> m_lists;
    std::map<std::string, Amendment> m_amendments;
    std::vector<Row> m_rows;
    int m_lineNumber = 0;
};

void Write(std::ostream& out, std::vector<Row> const& rows, std::string const& source)
{
    out << "// Generated by ORXSrvVariableTableGen from " << source << ". Do not edit.\n"
        << "#include \"ORXSrvVariableMap.h\"\n\n"
        << "ORXSrvVariableMap::SchemaRow const ORXSrvVariableMap::s_schemaRows[] = {\n";
    for (Row const& row : rows)
        out << "    {\"" << row.label << "\", " << row.component << ", \"" << row.fieldType << "\", "
            << row.grid.group << ", " << row.grid.member << "},\n";
    out << "};\n\n"
        << "int const ORXSrvVariableMap::s_schemaRowCount = " << rows.size() << ";\n\n"
        << "ORXSrvVariableStruct ORXSrvVariableMap::s_table[" << rows.size() + 1 << "];\n";
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::cerr << "usage: ORXSrvVariableTableGen <table.txt> <output.cpp>\n";
        return 2;
    }
    std::ifstream in(argv[1]);
    if (!in)
    {
        std::cerr << argv[1] << ": cannot be read\n";
        return 1;
    }
    TableReader reader;
    std::vector<Row> rows;
    try
    {
        rows = reader.Read(in);
    }
    catch (std::exception const& error)
    {
        std::cerr << argv[1] << ":" << reader.LineNumber() << ": " << error.what() << "\n";
        return 1;
    }
    std::string const temporary = std::string(argv[2]) + ".tmp";
    {
        std::ofstream out(temporary);
        Write(out, rows, "ORXSrvVariableTable.txt");
        if (!out)
        {
            std::cerr << temporary << ": cannot be written\n";
            return 1;
        }
    }
    if (std::rename(temporary.c_str(), argv[2]) != 0)
    {
        std::cerr << argv[2] << ": cannot be written\n";
        return 1;
    }
    return 0;
}
