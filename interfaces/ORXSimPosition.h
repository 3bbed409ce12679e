#pragma once
// A position on one object of a database (a record, collection member, collection, CSet, DSet,
// distribution, drawer or function table). It is the identity itself plus the navigation from
// record to record: links, sets, vectors, name-keyed maps and associations, each addressed by a
// schema number from vds_CoreFragmentTypeIndex, and the reverse relations (holders) of each.
// Positions are ordered by ORXSimDynamicID::Compare, so they can be keys of ordered maps.
#include "ORXBasVector.h"
#include "ORXSimCSetID.h"
#include "ORXSimCollectionID.h"
#include "ORXSimDSetID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimDrawerID.h"
#include "ORXSimDynamicID.h"
#include "ORXSimFTableID.h"
#include "ORXString.h"

class ORXSimAssociation;
class ORXSimContext;
class ORXSimCSet;
class ORXSimCtation;
class ORXSimDatabase;
class ORXSimDataRecord;
class ORXSimDSet;
class ORXSimGrid;
class ORXSimMap;
class ORXSimRangeType;
class ORXSimSet;
class ORXSimVector;

class ORXSimPosition : public ORXSimDynamicID
{
public:
    ORXSimPosition() = default;
    // A position on that object; a null identity gives a null position.
    ORXSimPosition(ORXSimDynamicID const& id) : ORXSimDynamicID(id) {}
    ORXSimPosition(ORXSimCollectionID const& id);
    ORXSimPosition(ORXSimCSetID const& id);
    ORXSimPosition(ORXSimDSetID const& id);
    ORXSimPosition(ORXSimDistributionID const& id);
    ORXSimPosition(ORXSimFTableID const& id);

    ORXSimDynamicID ID() const { return *this; }

    // The root record of the document that holds this position.
    ORXSimPosition Focus() const;
    // The document of this position.
    ORXSimDatabase Doc() const;
    ORXSimContext Context() const;

    // Single links: the record member `member` points to; null if unset (also on a null position).
    ORXSimPosition GetPosition(int member) const;
    // Points member `member` at target; a null target clears the link.
    void SetPosition(int member, ORXSimPosition const& target) const;

    // The set, vector and name-keyed map held in a member; empty if nothing was put there.
    ORXSimSet GetSet(int member) const;
    ORXSimVector GetVector(int member) const;
    ORXSimMap GetMap(int member) const;

    // Associations under (member, key).
    ORXSimPosition Follow(int member, int key) const;
    ORXSimAssociation Associate(int member, int key, ORXSimPosition const& target) const;

    // Reverse relations. A record is held through `member` by every record that links to it with
    // SetPosition, holds it in set, vector or map `member`, or associates it under `member`.
    // ReferrersSet gives one entry per holding, in the order the holdings were made; Parent the
    // holder of the first; GetReferenceKey the first key under which the record stands in a map.
    ORXSimSet ReferrersSet(int member) const;
    ORXSimPosition Parent(int member) const;
    ORXString GetReferenceKey(int member) const;
    // Name(-1) is the record's own name; Name(member) the key it stands under in map `member`.
    ORXString Name(int member) const;
    void SetName(ORXString const& name) const;

    // Type of the record (the fragment type number it was made with).
    bool IsA(int type) const;
    int TypePosition() const;

    // Symbols of collection members.
    int GetSymbolPosition() const;
    ORXString GetSymbolName() const;
    void SetSymbol(int symbol, ORXString const& name) const;

    // The position viewed as an object of that kind; a null identity if it is not one.
    ORXSimCollectionID GetCollection() const;
    ORXSimCSetID GetCSet() const;
    ORXSimDSetID GetDSet() const;
    ORXSimDistributionID GetDistribution() const;
    ORXSimDrawerID GetDrawer() const;
    ORXSimFTableID GetFTable() const;
    ORXSimCSet CSet() const;
    ORXSimDSet DSet() const;

    // The record's plain fields.
    ORXSimDataRecord DataRecord() const;
    ORXSimDataRecord GetDataRecord() const;

    // Makers; the new object belongs to this position's document.
    ORXSimDataRecord CreateDataRecord(int type) const;
    ORXSimCollectionID CreateTypedCollection(int space, int type) const;
    ORXSimDSetID CreateTypedDSet(ORXSimCtation const& body, int type) const;
    ORXSimDistributionID CreateTypedDistribution(ORXSimGrid const& grid, int type,
                                                 ORXSimRangeType const& range) const;
    // A function table of `count` values in `rows` rows. Its value columns come first, labelled by
    // `dependent` ("" where it has no label), and the `independent` labels name the last columns.
    ORXSimFTableID CreateFTable(int type, int rows, ORXBasVector<ORXString> const& dependent,
                                ORXBasVector<ORXString> const& independent, double const* data,
                                int count) const;
};
