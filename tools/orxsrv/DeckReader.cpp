#include "DeckReader.h"

#include <ORXSrvBasic.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace orxsrv
{
namespace
{
std::string Upper(std::string text)
{
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// A value in double quotes, which may hold blanks and commas, stands for the text between them.
std::string_view Unquoted(std::string_view text)
{
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        return text.substr(1, text.size() - 2);
    return text;
}

// A name of the deck as the model keys it; names are case-blind.
std::string Name(std::string_view text)
{
    return Upper(std::string(Unquoted(text)));
}

std::string Trim(std::string const& text)
{
    std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos)
        return "";
    std::size_t last = text.find_last_not_of(" \t\r\n");
    return text.substr(first, last - first + 1);
}

std::string DirectoryOf(std::string const& path)
{
    std::size_t const slash = path.find_last_of('/');
    return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

typedef ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> Parameters;

// The state of one read: the model being filled and where the reading stands.
struct Reader
{
    DeckModel model;
    std::vector<int> fileStack; // indices into model.files of the files being read
    ProgressCallback progress;
    FILE* mainStream = nullptr;
    long long mainSize = 0;
    long long linesSinceProgress = 0;
    Material* material = nullptr; // the material whose tables follow
    bool inStep = false;
    std::string instancedPart; // the part that an instance of the assembly places, once one does

    int File() const { return fileStack.back(); }
    [[noreturn]] void Fail(int line, std::string const& what) const
    {
        throw InputError{model.files[File()] + ":" + std::to_string(line) + ": " + what};
    }
    void Tick()
    {
        if (!progress || ++linesSinceProgress < 200000)
            return;
        linesSinceProgress = 0;
        progress(std::ftell(mainStream), mainSize);
    }
};

Reader& Of(void* user)
{
    return *static_cast<Reader*>(user);
}

// The next data line of the current keyword, long lines joined; false at a keyword line (pushed
// back to the parser) or at the end of the file. line is the number of its first piece.
bool NextDataLine(ORXSrvKeywordParser& parser, std::string& text, int& line)
{
    while (true)
    {
        char const* piece = parser.Readline();
        if (parser.IsEndOfFile() && *piece == '\0')
            return false;
        if (parser.IsKeyword(piece))
        {
            parser.Buffer(piece);
            return false;
        }
        if (parser.IsComment(piece))
            continue;
        line = parser.LineNumber();
        text = piece;
        while (!text.empty() && text.back() != '\n' && !parser.IsEndOfFile())
            text += parser.Readline();
        return true;
    }
}

std::string_view TrimView(std::string_view text)
{
    std::size_t const first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

// The comma-separated fields of a data line, trimmed, as views into it; a comma at the end adds no
// empty field.
std::vector<std::string_view> Fields(std::string const& text)
{
    std::vector<std::string_view> fields;
    std::string_view const line(text);
    std::size_t start = 0;
    while (true)
    {
        std::size_t const comma = line.find(',', start);
        fields.push_back(TrimView(
            line.substr(start, comma == std::string_view::npos ? std::string_view::npos : comma - start)));
        if (comma == std::string_view::npos)
            break;
        start = comma + 1;
    }
    if (fields.size() > 1 && fields.back().empty())
        fields.pop_back();
    return fields;
}

bool EndsInComma(std::string const& text)
{
    std::string const trimmed = Trim(text);
    return !trimmed.empty() && trimmed.back() == ',';
}

int Integer(Reader const& reader, int line, std::string_view field, char const* what)
{
    int value = 0;
    auto const [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (field.empty() || error != std::errc() || end != field.data() + field.size())
        reader.Fail(line, std::string("expected ") + what + ", found \"" + std::string(field) + "\"");
    return value;
}

// A number as strtod reads it; the plain decimal forms through from_chars, which gives the same.
double Real(Reader const& reader, int line, std::string_view field, char const* what)
{
    if (field.empty())
        return 0.0;
    double value = 0.0;
    auto const [stop, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error == std::errc() && stop == field.data() + field.size())
        return value;
    std::string const text(field);
    char* end = nullptr;
    value = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size())
        reader.Fail(line, std::string("expected ") + what + ", found \"" + text + "\"");
    return value;
}

// name=value parameters of a keyword line, keys lower-cased; a parameter without "=" maps to "".
std::map<std::string, std::string> ParameterMap(Parameters const& parameters)
{
    std::map<std::string, std::string> map;
    for (int i = 0; i < parameters.Size(); ++i)
    {
        std::string const text = parameters[i].CStr();
        std::size_t const equals = text.find('=');
        std::string key = Trim(text.substr(0, equals));
        for (char& c : key)
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        map[key] = equals == std::string::npos ? "" : Trim(text.substr(equals + 1));
    }
    return map;
}

std::string Required(Reader const& reader, ORXSrvKeywordParser const& parser,
                     std::map<std::string, std::string> const& parameters, char const* key,
                     char const* keyword)
{
    auto const found = parameters.find(key);
    if (found == parameters.end() || found->second.empty())
        reader.Fail(parser.LineNumber(), std::string("*") + keyword + " needs " + Upper(key) + "=");
    return Name(found->second);
}

void OnNode(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    Reader& reader = Of(user);
    std::map<std::string, std::string> const params = ParameterMap(parameters);
    LabelSet* set = nullptr;
    if (auto const nset = params.find("nset"); nset != params.end())
        set = &reader.model.nodeSets[Name(nset->second)];
    std::string text;
    int line = 0;
    while (NextDataLine(parser, text, line))
    {
        std::vector<std::string_view> const fields = Fields(text);
        if (fields.size() == 1 && fields[0].empty())
            continue;
        int const label = Integer(reader, line, fields[0], "a node label");
        reader.model.nodeLabels.push_back(label);
        for (std::size_t c = 1; c <= 3; ++c)
            reader.model.coordinates.push_back(
                c < fields.size() ? Real(reader, line, fields[c], "a coordinate") : 0.0);
        reader.model.nodeOrigins.push_back({reader.File(), line});
        if (set)
            set->labels.push_back(label);
        reader.Tick();
    }
}

void OnElement(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    Reader& reader = Of(user);
    std::map<std::string, std::string> const params = ParameterMap(parameters);
    std::string const type = Required(reader, parser, params, "type", "ELEMENT");
    LabelSet* set = nullptr;
    if (auto const elset = params.find("elset"); elset != params.end())
    {
        set = &reader.model.elementSets[Name(elset->second)];
        set->origin = {reader.File(), parser.LineNumber()};
    }
    reader.model.blocks.push_back(ElementBlock{type, 0, {}, {}, {}});
    ElementBlock& block = reader.model.blocks.back();
    std::string text, more;
    int line = 0, moreLine = 0;
    while (NextDataLine(parser, text, line))
    {
        while (EndsInComma(text) && NextDataLine(parser, more, moreLine))
            text = Trim(text) + more;
        std::vector<std::string_view> const fields = Fields(text);
        if (fields.size() == 1 && fields[0].empty())
            continue;
        int const nodes = static_cast<int>(fields.size()) - 1;
        if (block.nodesPerElement == 0)
            block.nodesPerElement = nodes;
        if (nodes != block.nodesPerElement || nodes == 0)
            reader.Fail(line, "expected " + std::to_string(block.nodesPerElement) +
                                  " nodes for an element of type " + type + ", found " +
                                  std::to_string(nodes));
        int const label = Integer(reader, line, fields[0], "an element label");
        block.labels.push_back(label);
        for (int n = 1; n <= nodes; ++n)
            block.nodeLabels.push_back(Integer(reader, line, fields[n], "a node label"));
        block.origins.push_back({reader.File(), line});
        if (set)
            set->labels.push_back(label);
        reader.Tick();
    }
}

// *NSET and *ELSET: labels, or first, last[, step] with GENERATE, or names of sets already read.
void ReadSet(Parameters const& parameters, ORXSrvKeywordParser& parser, Reader& reader, bool nodes)
{
    std::map<std::string, std::string> const params = ParameterMap(parameters);
    char const* const key = nodes ? "nset" : "elset";
    std::map<std::string, LabelSet>& sets = nodes ? reader.model.nodeSets : reader.model.elementSets;
    std::string const name = Required(reader, parser, params, key, nodes ? "NSET" : "ELSET");
    LabelSet& set = sets[name];
    set.origin = {reader.File(), parser.LineNumber()};
    bool const generate = params.count("generate") > 0;
    std::string text;
    int line = 0;
    while (NextDataLine(parser, text, line))
    {
        std::vector<std::string_view> const fields = Fields(text);
        if (generate)
        {
            if (fields.size() < 2)
                reader.Fail(line, "expected first, last[, increment] after GENERATE");
            int const first = Integer(reader, line, fields[0], "a first label");
            int const last = Integer(reader, line, fields[1], "a last label");
            int const step = fields.size() > 2 ? Integer(reader, line, fields[2], "an increment") : 1;
            if (step <= 0 || last < first)
                reader.Fail(line, "expected first <= last and a positive increment");
            for (long long label = first; label <= last; label += step)
                set.labels.push_back(static_cast<int>(label));
            continue;
        }
        for (std::string_view const field : fields)
        {
            if (field.empty())
                continue;
            if (std::isdigit(static_cast<unsigned char>(field[0])) || field[0] == '-')
            {
                set.labels.push_back(Integer(reader, line, field, "a label"));
                continue;
            }
            auto const other = sets.find(Name(field));
            if (other == sets.end())
                reader.Fail(line, std::string("expected a label or the name of a ") +
                                      (nodes ? "node" : "element") + " set, found \"" + std::string(field) +
                                      "\"");
            std::vector<int> const labels = other->second.labels;
            set.labels.insert(set.labels.end(), labels.begin(), labels.end());
        }
    }
}

void OnNset(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    ReadSet(parameters, parser, Of(user), true);
}

void OnElset(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    ReadSet(parameters, parser, Of(user), false);
}

void OnMaterial(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    Reader& reader = Of(user);
    std::string const name = Required(reader, parser, ParameterMap(parameters), "name", "MATERIAL");
    reader.model.materials.push_back(Material{name, {}, {}, {}});
    reader.material = &reader.model.materials.back();
    parser.SkipToNextKeyword();
}

// A table of the current material: `columns` values per row and an optional temperature after them.
void ReadTable(ORXSrvKeywordParser& parser, Reader& reader, MaterialTable Material::*member, int columns,
               char const* keyword)
{
    if (!reader.material)
        reader.Fail(parser.LineNumber(), std::string("*") + keyword + " outside a *MATERIAL");
    MaterialTable& table = reader.material->*member;
    table.columns = columns;
    std::string text;
    int line = 0;
    while (NextDataLine(parser, text, line))
    {
        std::vector<std::string_view> const fields = Fields(text);
        if (fields.size() < static_cast<std::size_t>(columns))
            reader.Fail(line, "expected " + std::to_string(columns) + " values for *" + keyword);
        std::vector<double> row;
        for (std::size_t f = 0; f < fields.size() && f <= static_cast<std::size_t>(columns); ++f)
            row.push_back(Real(reader, line, fields[f], "a number"));
        table.withTemperature = table.withTemperature || row.size() > static_cast<std::size_t>(columns);
        table.rows.push_back(row);
    }
    for (std::vector<double>& row : table.rows)
        row.resize(columns + (table.withTemperature ? 1 : 0), 0.0);
}

void OnElastic(ORXString const&, Parameters const&, ORXSrvKeywordParser& parser, void* user)
{
    ReadTable(parser, Of(user), &Material::elastic, 2, "ELASTIC");
}

void OnDensity(ORXString const&, Parameters const&, ORXSrvKeywordParser& parser, void* user)
{
    ReadTable(parser, Of(user), &Material::density, 1, "DENSITY");
}

void OnExpansion(ORXString const&, Parameters const&, ORXSrvKeywordParser& parser, void* user)
{
    ReadTable(parser, Of(user), &Material::expansion, 1, "EXPANSION");
}

void ReadSection(Parameters const& parameters, ORXSrvKeywordParser& parser, Reader& reader, bool shell)
{
    std::map<std::string, std::string> const params = ParameterMap(parameters);
    Section section;
    section.shell = shell;
    section.origin = {reader.File(), parser.LineNumber()};
    section.elset = Required(reader, parser, params, "elset", shell ? "SHELL SECTION" : "SOLID SECTION");
    bool const composite = params.count("composite") > 0;
    if (!composite)
        section.material =
            Required(reader, parser, params, "material", shell ? "SHELL SECTION" : "SOLID SECTION");
    std::string text;
    int line = 0;
    while (NextDataLine(parser, text, line))
    {
        std::vector<std::string_view> const fields = Fields(text);
        // A solid section's line and the lines after a plain shell section's first are not read.
        if (!shell || (fields.size() == 1 && fields[0].empty()) || (!composite && !section.layers.empty()))
            continue;
        Layer layer;
        layer.thickness = Real(reader, line, fields[0], "a thickness");
        layer.points = fields.size() > 1 && !fields[1].empty()
                           ? Integer(reader, line, fields[1], "a number of points")
                           : 5;
        layer.material = composite ? (fields.size() > 2 ? Name(fields[2]) : "") : section.material;
        if (layer.material.empty())
            reader.Fail(line, "expected the material of a composite layer");
        section.layers.push_back(layer);
    }
    reader.model.sections.push_back(section);
}

void OnSolidSection(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    ReadSection(parameters, parser, Of(user), false);
}

void OnShellSection(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    ReadSection(parameters, parser, Of(user), true);
}

void OnStep(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    Reader& reader = Of(user);
    std::map<std::string, std::string> const params = ParameterMap(parameters);
    auto const name = params.find("name");
    reader.model.steps.push_back(name != params.end() && !name->second.empty()
                                     ? name->second
                                     : "Step-" + std::to_string(reader.model.steps.size() + 1));
    reader.inStep = true;
    parser.SkipToNextKeyword();
}

void OnEndStep(ORXString const&, Parameters const&, ORXSrvKeywordParser& parser, void* user)
{
    Of(user).inStep = false;
    parser.SkipToNextKeyword();
}

// Parts and their assembly. Nodes, elements and sets of a part are read as the model's own, which
// is right for an assembly that holds one instance of one part, left where the part is: the common
// deck of a single-part model. Anything more would need the part's mesh copied and moved per
// instance, and is refused with a message rather than read wrongly.
void OnPart(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    Required(Of(user), parser, ParameterMap(parameters), "name", "PART");
    parser.SkipToNextKeyword();
}

void OnInstance(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    Reader& reader = Of(user);
    std::map<std::string, std::string> const params = ParameterMap(parameters);
    std::string const name = Required(reader, parser, params, "name", "INSTANCE");
    std::string const part = Required(reader, parser, params, "part", "INSTANCE");
    int const line = parser.LineNumber();
    if (!reader.instancedPart.empty())
        reader.Fail(line, "instance " + name +
                              " is a second instance of a part; orxsrv reads assemblies of one "
                              "instance of one part");
    reader.instancedPart = part;
    std::string text;
    int placement = 0;
    while (NextDataLine(parser, text, placement))
        if (!TrimView(text).empty())
            reader.Fail(placement, "instance " + name + " is moved from where part " + part +
                                       " lies; orxsrv reads instances that stay where their part is");
}

void OnKeywordWithoutData(ORXString const&, Parameters const&, ORXSrvKeywordParser& parser, void*)
{
    parser.SkipToNextKeyword();
}

void OnUnknown(ORXString const& keyword, Parameters const&, ORXSrvKeywordParser& parser, void* user)
{
    Reader& reader = Of(user);
    std::string name = keyword.CStr();
    std::vector<std::string>& unknown = reader.model.unknownKeywords;
    if (std::find(unknown.begin(), unknown.end(), name) == unknown.end())
        unknown.push_back(name);
    parser.SkipToNextKeyword();
}

void ReadFile(Reader& reader, std::string const& path, int fromFile, int fromLine);

void OnInclude(ORXString const&, Parameters const& parameters, ORXSrvKeywordParser& parser, void* user)
{
    Reader& reader = Of(user);
    std::map<std::string, std::string> const params = ParameterMap(parameters);
    auto const input = params.find("input");
    if (input == params.end() || input->second.empty())
        reader.Fail(parser.LineNumber(), "*INCLUDE needs INPUT=");
    std::string file(Unquoted(input->second));
    if (file.empty() || file[0] != '/')
        file = DirectoryOf(reader.model.files[reader.File()]) + file;
    int const line = parser.LineNumber();
    parser.SkipToNextKeyword();
    ReadFile(reader, file, reader.File(), line);
}

void Parse(Reader& reader, FILE* stream)
{
    ORXSrvKeywordParser parser(stream, &reader);
    // Keys as the parser hands keywords over: lower case, blanks dropped.
    parser.Register("node", OnNode);
    parser.Register("element", OnElement);
    parser.Register("nset", OnNset);
    parser.Register("elset", OnElset);
    parser.Register("material", OnMaterial);
    parser.Register("elastic", OnElastic);
    parser.Register("density", OnDensity);
    parser.Register("expansion", OnExpansion);
    parser.Register("solidsection", OnSolidSection);
    parser.Register("shellsection", OnShellSection);
    parser.Register("step", OnStep);
    parser.Register("endstep", OnEndStep);
    parser.Register("include", OnInclude);
    parser.Register("part", OnPart);
    parser.Register("endpart", OnKeywordWithoutData);
    parser.Register("assembly", OnKeywordWithoutData);
    parser.Register("endassembly", OnKeywordWithoutData);
    parser.Register("instance", OnInstance);
    parser.Register("endinstance", OnKeywordWithoutData);
    parser.RegisterUnknownKeywordCallback(OnUnknown);
    parser.RegisterAmbiguousKeywordCallback(OnUnknown);
    parser.Parse();
}

void ReadFile(Reader& reader, std::string const& path, int fromFile, int fromLine)
{
    std::unique_ptr<FILE, int (*)(FILE*)> stream(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (!stream)
    {
        if (fromFile < 0)
            throw InputError{path + ": cannot open the deck"};
        throw InputError{reader.model.files[fromFile] + ":" + std::to_string(fromLine) + ": include file \"" +
                         path + "\" cannot be opened"};
    }
    std::fseek(stream.get(), 0, SEEK_END);
    reader.model.bytes += std::ftell(stream.get());
    if (fromFile < 0)
    {
        reader.mainStream = stream.get();
        reader.mainSize = std::ftell(stream.get());
    }
    std::fseek(stream.get(), 0, SEEK_SET);
    reader.model.files.push_back(path);
    reader.fileStack.push_back(static_cast<int>(reader.model.files.size()) - 1);
    Parse(reader, stream.get());
    reader.fileStack.pop_back();
}
} // namespace

DeckModel ReadDeck(std::string const& path, ProgressCallback const& progress)
{
    Reader reader;
    reader.progress = progress;
    ReadFile(reader, path, -1, 0);
    return std::move(reader.model);
}
} // namespace orxsrv
