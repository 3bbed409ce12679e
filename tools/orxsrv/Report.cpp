#include "Report.h"

#include <cctype>
#include <cstdio>
#include <set>

namespace orxsrv
{
namespace
{
std::string Quoted(std::string const& text)
{
    std::string out = "\"";
    for (char c : text)
    {
        unsigned char const u = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            out += std::string("\\") + c;
        else if (u < 0x20)
        {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", u);
            out += escaped;
        }
        else
            out += c;
    }
    return out + "\"";
}

std::string Seconds(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.6f", value);
    return text;
}

template <class Items, class Write> void Array(std::ostream& out, Items const& items, Write write)
{
    out << "[";
    bool first = true;
    for (auto const& item : items)
    {
        out << (first ? "" : ", ");
        write(item);
        first = false;
    }
    out << "]";
}

// Element types with their counts, upper case as written.
std::vector<std::pair<std::string, int>> TypeCounts(ModelDocument const& model)
{
    std::vector<std::pair<std::string, int>> counts;
    for (std::size_t t = 0; t < model.typeNames.size(); ++t)
        counts.emplace_back(model.typeNames[t], model.typeCounts[t]);
    return counts;
}

std::vector<std::pair<std::string, int>> SetCounts(std::map<std::string, LabelSet> const& sets)
{
    std::vector<std::pair<std::string, int>> counts;
    for (auto const& [name, set] : sets)
        counts.emplace_back(name,
                            static_cast<int>(std::set<int>(set.labels.begin(), set.labels.end()).size()));
    return counts;
}

void Object(std::ostream& out, std::vector<std::pair<std::string, int>> const& entries)
{
    out << "{";
    for (std::size_t i = 0; i < entries.size(); ++i)
        out << (i ? ", " : "") << Quoted(entries[i].first) << ": " << entries[i].second;
    out << "}";
}
} // namespace

void WriteJson(std::ostream& out, CheckResult const& r)
{
    out << "{\n";
    out << "  \"nodes\": " << r.model.nodeLabels.size() << ",\n";
    out << "  \"elements\": " << r.model.elementLabels.size() << ",\n";
    out << "  \"element_types\": ";
    Object(out, TypeCounts(r.model));
    out << ",\n  \"node_sets\": ";
    Object(out, SetCounts(r.deck.nodeSets));
    out << ",\n  \"element_sets\": ";
    Object(out, SetCounts(r.deck.elementSets));
    out << ",\n  \"materials\": ";
    Array(out, r.deck.materials, [&](Material const& m) { out << Quoted(m.name); });
    out << ",\n  \"sections\": " << r.deck.sections.size() << ",\n";
    out << "  \"steps\": " << r.deck.steps.size() << ",\n";
    out << "  \"unknown_keywords\": ";
    Array(out, r.deck.unknownKeywords, [&](std::string const& k) { out << Quoted(k); });
    out << ",\n  \"findings\": ";
    Array(out, r.findings, [&](std::string const& f) { out << Quoted(f); });
    out << ",\n  \"seconds\": {\"parse\": " << Seconds(r.timings.parse)
        << ", \"build\": " << Seconds(r.timings.build) << ", \"check\": " << Seconds(r.timings.check)
        << ", \"total\": " << Seconds(r.timings.total) << "},\n";
    out << "  \"peak_memory_bytes\": " << r.peakMemoryBytes << "\n}\n";
}

void WriteText(std::ostream& out, CheckResult const& r)
{
    out << "deck:      " << r.deck.files.front() << " (" << r.deck.files.size() << " file"
        << (r.deck.files.size() == 1 ? "" : "s") << ", " << r.deck.bytes << " bytes)\n";
    out << "nodes:     " << r.model.nodeLabels.size() << "\n";
    out << "elements:  " << r.model.elementLabels.size();
    for (auto const& [type, count] : TypeCounts(r.model))
        out << "  " << type << " " << count;
    out << "\n";
    for (std::string const& type : r.model.unknownTypes)
        out << "           element type " << type << " is not in the type table: kept, not drawn\n";
    out << "node sets: " << r.deck.nodeSets.size() << ", element sets: " << r.deck.elementSets.size() << "\n";
    out << "materials: " << r.deck.materials.size();
    for (Material const& m : r.deck.materials)
        out << "  " << m.name;
    out << "\n";
    out << "sections:  " << r.deck.sections.size() << ", steps: " << r.deck.steps.size() << "\n";
    if (!r.deck.unknownKeywords.empty())
    {
        out << "skipped:  ";
        for (std::string const& keyword : r.deck.unknownKeywords)
            out << " *" << keyword;
        out << "\n";
    }
    if (r.cellsWritten >= 0)
        out << "mesh file: " << r.cellsWritten << " cells written, " << r.cellsLeftOut << " left out\n";
    out << "time:      parse " << Seconds(r.timings.parse) << " s, build " << Seconds(r.timings.build)
        << " s, check " << Seconds(r.timings.check) << " s, total " << Seconds(r.timings.total)
        << " s; peak memory " << r.peakMemoryBytes / (1024 * 1024) << " MiB\n";
    out << "findings:  " << r.findings.size() << "\n";
    for (std::string const& finding : r.findings)
        out << "  " << finding << "\n";
}
} // namespace orxsrv
