#pragma once
// The labels of one flattened numbering (nodes or elements) of one document, and the store that keeps
// them per open document. Private to the document layer.
#include "ORXString.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// One numbering's instances with their (ordinal, label) pairs, and the indexes the queries use.
// Definitions accumulate; Finalize() builds the indexes, after which the tables answer queries.
class ORXObjLabelerTables
{
public:
    struct Instance
    {
        ORXString name;
        std::vector<std::pair<int, int>> byOrdinal; // (ordinal, label), ordinals ascending and unique
        std::vector<std::pair<int, int>> byLabel;   // (label, ordinal), labels ascending
    };

    void Define(ORXString const& instance, int const* ordinals, int const* labels, int count);
    void Finalize();
    bool IsFinal() const { return m_final; }

    std::vector<Instance> const& Instances() const { return m_instances; }
    Instance const* Find(ORXString const& name) const;
    // The instance that holds an ordinal, the first defined should several; null if none does.
    Instance const* OwnerOf(int ordinal) const;

private:
    std::vector<Instance> m_instances;                 // in order of first definition
    std::map<std::string, int> m_indexByName;          // name -> place in m_instances
    std::vector<std::pair<int, int>> m_ownerByOrdinal; // (ordinal, instance place), ordinals ascending
    bool m_final = true;
};

// The tables of every open document that has labels, by context value and numbering. A labeler shares the
// finalized tables; a later definition copies them first if a labeler still holds them.
class ORXObjLabelerStore
{
public:
    static void Define(std::uint64_t context, int type, ORXString const& instance, int const* ordinals,
                       int const* labels, int count);
    // The finalized tables, empty ones if the document has none of that type.
    static std::shared_ptr<ORXObjLabelerTables const> Tables(std::uint64_t context, int type);
    // Drops a document's tables; called when the document closes.
    static void Forget(std::uint64_t context);
};
