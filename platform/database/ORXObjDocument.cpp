#include "ORXObjDocument.h"

#include "ORXObjModel.h"
#include "ORXSimAssociation.h"
#include "ORXSimCollection.h"
#include "ORXSimContext.h"
#include "internal/ORXObjLabelerTables.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int Document_model()
{
    return vds_CoreFragmentTypeIndex(25, 1);
}
int Focus_results()
{
    return vds_CoreFragmentTypeIndex(15, 1);
}
int Focus_library()
{
    return vds_CoreFragmentTypeIndex(15, 9);
}
int Library()
{
    return vds_CoreFragmentTypeIndex(15, 10);
}
int Library_elementSpecCollection()
{
    return vds_CoreFragmentTypeIndex(23, 47);
}
int Library_componentCollection()
{
    return vds_CoreFragmentTypeIndex(13, 120);
}
int Library_dofTypeCollection()
{
    return vds_CoreFragmentTypeIndex(24, 120);
}
int Library_materialCollection()
{
    return vds_CoreFragmentTypeIndex(42, 120);
}
int Library_pointCollection()
{
    return vds_CoreFragmentTypeIndex(23, 120);
}

// The results root is associated with the focus under this key.
int const resultsKey = 1;
} // namespace

ORXObjDocument::ORXObjDocument(ORXSimPosition const& position) : ORXSimDatabase(position) {}

ORXObjDocument::ORXObjDocument(ORXSimDatabase const& database) : ORXSimDatabase(database) {}

ORXObjDocument ORXObjDocument::New()
{
    return ORXObjDocument(ORXSimDatabase::CreateNew());
}

void ORXObjDocument::Close()
{
    if (!IsNull())
        ORXObjLabelerStore::Forget(ContextID().Value());
    ORXSimDatabase::Close();
}

bool ORXObjDocument::IsClosed() const
{
    return IsNull() || ORXSimDatabase::IsClosed();
}

ORXSimPosition ORXObjDocument::GetModel() const
{
    return Focus().GetPosition(Document_model());
}

void ORXObjDocument::SetModel(ORXSimPosition const& model) const
{
    Focus().SetPosition(Document_model(), model);
}

ORXSimPosition ORXObjDocument::GetMesh() const
{
    return ORXObjModel(GetModel()).GetMesh();
}

ORXSimPosition ORXObjDocument::GetResults() const
{
    return Focus().Follow(Focus_results(), resultsKey);
}

void ORXObjDocument::SetResults(ORXSimPosition const& results) const
{
    Focus().Associate(Focus_results(), resultsKey, results);
}

ORXSimPosition ORXObjDocument::GetLibraryMember(int member) const
{
    return Focus().GetPosition(Focus_library()).GetPosition(member);
}

void ORXObjDocument::SetLibraryMember(int member, ORXSimPosition const& collection) const
{
    ORXSimPosition focus = Focus();
    ORXSimPosition library = focus.GetPosition(Focus_library());
    if (library.IsNull())
    {
        library = focus.CreateDataRecord(Library()).Pos();
        focus.SetPosition(Focus_library(), library);
    }
    library.SetPosition(member, collection);
}

ORXSimPosition ORXObjDocument::GetElementSpecCollection() const
{
    return GetLibraryMember(Library_elementSpecCollection());
}
ORXSimPosition ORXObjDocument::GetComponentCollection() const
{
    return GetLibraryMember(Library_componentCollection());
}
ORXSimPosition ORXObjDocument::GetDofTypeCollection() const
{
    return GetLibraryMember(Library_dofTypeCollection());
}
ORXSimPosition ORXObjDocument::GetMaterialCollection() const
{
    return GetLibraryMember(Library_materialCollection());
}
ORXSimPosition ORXObjDocument::GetPointCollection() const
{
    return GetLibraryMember(Library_pointCollection());
}

void ORXObjDocument::SetElementSpecCollection(ORXSimPosition const& collection) const
{
    SetLibraryMember(Library_elementSpecCollection(), collection);
}
void ORXObjDocument::SetComponentCollection(ORXSimPosition const& collection) const
{
    SetLibraryMember(Library_componentCollection(), collection);
}
void ORXObjDocument::SetDofTypeCollection(ORXSimPosition const& collection) const
{
    SetLibraryMember(Library_dofTypeCollection(), collection);
}
void ORXObjDocument::SetMaterialCollection(ORXSimPosition const& collection) const
{
    SetLibraryMember(Library_materialCollection(), collection);
}
void ORXObjDocument::SetPointCollection(ORXSimPosition const& collection) const
{
    SetLibraryMember(Library_pointCollection(), collection);
}

ORXSimPosition ORXObjDocument::GetRecord(ORXSimCollectionID const& collection, int index) const
{
    return ORXSimPosition(Context().GetRecord(collection, index));
}

int ORXObjDocument::GetCMemberIndex(ORXSimPosition const& record) const
{
    return Context().GetCMemberIndex(record.ID());
}

// The type names the symbol enumeration; the members of one collection share it, so the lookup
// goes by the symbol text within the collection.
ORXSimDynamicID ORXObjDocument::GetSymbol(int, ORXString const& name,
                                          ORXSimCollectionID const& collection) const
{
    if (name.IsNull() || collection.IsNull())
        return ORXSimDynamicID();
    ORXSimContext context = Context();
    int space = ORXSimCollection(collection).Space();
    for (int index = 0; index < space; ++index)
    {
        ORXSimPosition member(context.GetRecord(collection, index));
        if (member.GetSymbolName() == name)
            return member.ID();
    }
    return ORXSimDynamicID();
}

ORXSimDataRecord ORXObjDocument::CreateDataRecord(int type) const
{
    return Focus().CreateDataRecord(type);
}

ORXSimDistributionID ORXObjDocument::CreateDistribution(ORXSimGrid const& grid,
                                                        ORXSimRangeType const& rangeType,
                                                        ORXSimTypeID const& type) const
{
    return Context().CreateDistribution(grid, rangeType, type);
}
