#pragma once
// Relates the nodes and the elements of two documents, a primary and a secondary, by user label:
// two items are the same when they stand under the same occurrence name with the same label. For
// each kind a table of the items present in both is built on first use and kept; its rows, sorted
// by primary ordinal, are numbered by their mapping ordinals. Items present in one document only
// take no part, without a message.
#include "ORXObjLabeler.h"
#include "ORXSimArray.h"
#include "ORXSimCSet.h"
#include "ORXSimPosition.h"
#include "ORXString.h"

// One row of a label mapper's table: primary ordinal, secondary ordinal, occurrence index and user
// label in a finished table; user label, ordinal and user label as ReadLabels leaves it.
struct ORXSrvLabelMapperQuad
{
    int m_first;
    int m_second;
    int m_instance;
    int m_userLabel;
};

class ORXSrvLabelMapper
{
public:
    ORXSrvLabelMapper(ORXSimPosition const& primary, ORXSimPosition const& secondary);
    ~ORXSrvLabelMapper();
    ORXSrvLabelMapper(ORXSrvLabelMapper const&) = delete;
    ORXSrvLabelMapper& operator=(ORXSrvLabelMapper const&) = delete;

    // The primary ordinals that have a counterpart, and the secondary ordinals that do.
    ORXSimCSet GetCommonPrimaryNodeSet();
    ORXSimCSet GetCommonPrimaryElementSet();
    ORXSimCSet GetCommonSecondaryNodeSet();
    ORXSimCSet GetCommonSecondaryElementSet();
    // A primary set carried over to the secondary side, in the primary set's order.
    ORXSimCSet GetSecondaryNodeSet(ORXSimCSetID const& primaryNodeSet);
    ORXSimCSet GetSecondaryElementSet(ORXSimCSetID const& primaryElementSet);
    // The mapping ordinals of the members of a primary set that have a counterpart, in its order.
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> GetMappingFromPrimaryNodeSet(ORXSimCSetID primarySet);
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> GetMappingFromPrimaryElementSet(ORXSimCSetID primarySet);
    // The user label and occurrence name of a mapping ordinal of a table already built.
    int GetNodeMappingOrdinalUserLabel(int mappingOrdinal) const;
    int GetElementMappingOrdinalUserLabel(int mappingOrdinal) const;
    ORXString const& GetNodeMappingOrdinalInstanceName(int mappingOrdinal) const;
    ORXString const& GetElementMappingOrdinalInstanceName(int mappingOrdinal) const;

    // Orders rows by their first field only.
    static int IntQuadCompare(void const* itemA, void const* itemB);

    // The building blocks, each working on a table given to it.
    ORXSimCollectionID GetCollection(ORXSimPosition const& document, int member);
    ORXSrvLabelMapperQuad* ReadLabels(ORXObjLabeler const& labeler, ORXString const& instance, int& count);
    ORXSrvLabelMapperQuad* RemapInstanceBasedOnUserLabels(ORXObjLabeler const& primary,
                                                          ORXObjLabeler const& secondary,
                                                          ORXString const& instance, int instanceIndex,
                                                          int& count);
    ORXSrvLabelMapperQuad* RemapBasedOnUserLabels(ORXObjLabelerType type, int& total);
    ORXSimCSet GetCommonPrimarySet(ORXSrvLabelMapperQuad* rows, int count, ORXSimCollectionID collection);
    ORXSimCSet GetCommonSecondarySet(ORXSrvLabelMapperQuad* rows, int count, ORXSimCollectionID collection);
    ORXSimCSet MapSet(ORXSrvLabelMapperQuad* rows, int count, ORXSimCSetID set,
                      ORXSimCollectionID targetCollection);
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> GetMappingFromPrimarySet(ORXSrvLabelMapperQuad* rows,
                                                                             int count, ORXSimCSetID set);

private:
    void BuildNodes();
    void BuildElements();

    ORXSimPosition m_primary;
    ORXSimPosition m_secondary;
    int m_nnodes;
    int m_nelements;
    ORXSrvLabelMapperQuad* m_nodes;
    ORXSrvLabelMapperQuad* m_elements;
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> m_instanceNames;
};
