#include "ORXSrvHPVizChecker.h"

#include "ORXObjElementClass.h"
#include "ORXObjMesh.h"
#include "ORXObjMeshedField.h"
#include "ORXSimCSetIterator.h"
#include "ORXSimCollection.h"
#include "ORXSimContext.h"
#include "ORXSimDSet.h"
#include "ORXSimDataRecord.h"
#include "ORXSimDistribution.h"
#include "ORXSimDrawer.h"
#include "ORXSimMap.h"
#include "ORXSimSet.h"
#include "ORXSimVector.h"
#include "ORXSrvNodalCoordinates.h"
#include "ORXSrvShellSection.h"
#include "ORXSrvSymbolCollection.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <initializer_list>

namespace
{
int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

// Frame and field checks.
int const Document_model = Schema(25, 1);
int const Focus_results = Schema(15, 1);
int const Results_surfaceContribution = Schema(48, 30);
int const Model_regionCollection = Schema(47, 10);
int const Region_Analytical = Schema(56, 3);
int const Region_Exempt = Schema(47, 23);
int const Region_discreteRegion = Schema(47, 29);
int const DiscreteRegion_elementsFacesCluster = Schema(47, 3);
int const DiscreteRegion_nodesCluster = Schema(47, 4);
int const Field_fieldType = Schema(13, 48);
int const vds_FieldTypeLib_fieldTypes = Schema(13, 31);
int const FieldTypePrimary = Schema(13, 33);
int const FieldTypeUnchecked = Schema(13, 26);
int const MeshedField = Schema(13, 68);
int const MeshedField_serFields = Schema(13, 71);
int const SerField_components = Schema(13, 78);
int const SerField_drawers = Schema(13, 79);
int const ComponentRecord = Schema(13, 5);

// Mesh checks.
int const ElementClassification_elementClasses = Schema(23, 12);
int const ElementClass_sections = Schema(23, 10);
int const ElementClass_elementSpec = Schema(23, 9);
int const ElementSpec_name = Schema(23, 33);

// Region, section and ply checks.
int const Model_regions = Schema(47, 9);
int const AnalyticalSurface_Type10 = Schema(56, 10);
int const AnalyticalSurface_Type4 = Schema(56, 4);
int const AnalyticalSurface_Type5 = Schema(56, 5);
int const AnalyticalSurface_Revolution = Schema(56, 8);
int const Constraint_RigidBody_analyticSurface = Schema(5, 6);
int const Mesh_rigidBodies = Schema(5, 36);
int const Mesh_rigidBodyReferenceNode = Schema(5, 37);
int const AnalyticalSurface_mesh = Schema(56, 13);
int const AnalyticalSurface_orientation = Schema(56, 9);
int const Orientation_axisPointA = Schema(26, 3);
int const Orientation_axisPointB = Schema(26, 4);
int const Model_plies = Schema(25, 24);
int const Focus_externalPlyIds = Schema(15, 4);
int const Model_sectionAssignments = Schema(25, 26);
int const Model_bulkShellLayers = Schema(25, 28);
int const SectionAssignment_section = Schema(50, 50);
int const SectionAssignment_region = Schema(50, 49);
int const DiscreteRegion_elementsCluster = Schema(47, 1);
int const Focus_externalSectionIds = Schema(15, 6);
int const Section_layers = Schema(50, 85);
int const Section_Shell = Schema(50, 79);
int const Layer_Shell = Schema(21, 104);
int const Layer_Shell_thickness = Schema(21, 105);
int const Layer_ply = Schema(50, 24);
int const Layer_Beam_Arbitrary = Schema(21, 1);
int const Layer_Beam_Arbitrary_segments = Schema(21, 2);
int const Field_FTable = Schema(13, 42);
int const Field_FTable_ftable = Schema(13, 44);

// Step checks.
int const Model_steps = Schema(57, 25);
int const Model_stepSequence = Schema(57, 24);
int const Focus_externalTaskIds = Schema(15, 8);
int const Task_modes = Schema(57, 56);
int const Step_Lin_Buckle = Schema(57, 31);
int const Task_system = Schema(12, 17);
int const ModalSystem = Schema(12, 60);
int const ModalSystem_eigenvalues = Schema(12, 70);
int const Step_Gen_StaticRiks = Schema(55, 45);
int const Step_Gen_timeIncrementation = Schema(54, 0);
int const Task_times = Schema(57, 57);
int const TimeDescription_timeCollection = Schema(13, 84);
int const TimeDescription_data = Schema(13, 83);
int const Step_Gen_StaticRiks_arcLengths = Schema(55, 46);
int const ArcLengthDescription_collection = Schema(13, 1);
int const ArcLengthDescription_data = Schema(13, 2);
int const Task_frequencies = Schema(10, 14);
int const FrequencyDescription_collection = Schema(13, 55);
int const FrequencyDescription_data = Schema(13, 54);

// History and output-request checks.
int const Task_historyResults = Schema(48, 32);
int const GridType_Exempt75 = Schema(13, 75);
int const GridType_Exempt19 = Schema(47, 19);
int const GridType_Exempt20 = Schema(47, 20);
int const OutputRequest_field = Schema(48, 23);
int const OutputRequest_elaboratedRequest = Schema(27, 31);
int const UserOutputRequest_outputRegions = Schema(27, 34);
int const Model_outputRequests = Schema(27, 1);
int const Task_fieldResults = Schema(48, 31);

// Algebraic types of field types.
enum AlgebraicType
{
    POSITION = 0,
    SCALAR = 1,
    TENSOR2_GENERAL = 2,
    TENSOR2_ORTHOGONAL = 3,
    TENSOR2_SYMMETRIC = 4,
    TENSOR4 = 6,
    VECTOR = 8
};
int const C_SCALAR = 34;

ORXString Number(int value)
{
    ORXString text;
    text.BuildFromNum(value, "%d");
    return text;
}

ORXString Quoted(ORXString const& text)
{
    return "\"" + text + "\"";
}

// The position of the collection that the CSet lies in.
ORXSimPosition CollectionOf(ORXSimCSetID const& set)
{
    return ORXSimPosition(set.CollectionID());
}

// Element types that need no section: names beginning with one of the first list or the third,
// or equal to one of the second, tested in this order.
char const* const kExemptPrefixes[] = {"DCOUP",  "DGAP", "DRAG",  "F2D", "F3D", "FLINK", "GAP",
                                       "IDCOUP", "ITS",  "JOINT", "PSI", "U",   "Z",     "X"};
char const* const kExemptNames[] = {"R2D2", "R3D3", "R3D4", "RB2D2", "RB3D2"};
char const* const kExemptLaterPrefixes[] = {"CONN", "RAX", "HEATCAP", "MASS", "ROTARYI"};

bool IsExemptElementType(ORXString const& specName)
{
    for (char const* prefix : kExemptPrefixes)
        if (specName.FindPosition(prefix, 0) == 0)
            return true;
    for (char const* name : kExemptNames)
        if (specName.Compare(name) == 0)
            return true;
    for (char const* prefix : kExemptLaterPrefixes)
        if (specName.FindPosition(prefix, 0) == 0)
            return true;
    return false;
}
} // namespace

ORXSrvHPVizChecker::ORXSrvHPVizChecker(ORXObjDocument const& document) : m_document(document) {}

ORXBasVector<ORXString> const& ORXSrvHPVizChecker::GetMessages() const
{
    return m_messages;
}

void ORXSrvHPVizChecker::Report(ORXString const& message)
{
    m_messages.push_back(message);
}

void ORXSrvHPVizChecker::Check_HPViz()
{
    m_model = m_document.Focus().GetPosition(Document_model);
    Check_Mesh();
    Check_Regions();
    Check_Ply();
    Check_Steps();
    Check_History();
    Check_FocusResults();
    Check_sectionAssignments();
}

bool ORXSrvHPVizChecker::Check_Component_Impl(ORXSimArray<int> const& components, int* allowed,
                                              int numAllowed)
{
    for (int i = 0; i < components.Size(); ++i)
    {
        bool found = false;
        for (int k = 0; k < numAllowed && !found; ++k)
            found = components[i] == allowed[k];
        if (!found)
            return false;
    }
    return true;
}

void ORXSrvHPVizChecker::Check_Component(ORXString prefix, int algebraicType,
                                         ORXSimArray<int> const& components, ORXSimPosition fieldType)
{
    static int positionXYZ[] = {0, 12, 20};
    static int cylindrical[] = {31, 32, 33};
    static int generalSix[] = {1, 14, 23, 9, 11, 19};
    static int principal[] = {35, 36, 37};
    static int invariants[] = {24, 25, 26};
    static int orthogonalFour[] = {27, 28, 29, 30};
    static int symmetricSix[] = {1, 14, 23, 5, 10, 18};
    static int symmetricNine[] = {1, 14, 23, 5, 10, 18, 13, 21, 22};
    static int tensor4[] = {2, 4, 3, 15, 17, 16, 6, 8, 7};
    struct Alternative
    {
        int* allowed;
        int count;
    };
    auto fitsAny = [&](std::initializer_list<Alternative> alternatives)
    {
        for (Alternative const& a : alternatives)
            if (Check_Component_Impl(components, a.allowed, a.count))
                return true;
        return false;
    };
    switch (algebraicType)
    {
    case POSITION:
        if (!fitsAny({{positionXYZ, 3}, {cylindrical, 3}}))
            Report(prefix + " components are not consistent with algebraicType POSITION.");
        return;
    case VECTOR:
        if (!fitsAny({{positionXYZ, 3}, {cylindrical, 3}}))
            Report(prefix + " components are not consistent with algebraicType VECTOR.");
        return;
    case TENSOR2_GENERAL:
        if (!fitsAny({{cylindrical, 3},
                      {generalSix, 6},
                      {principal, 3},
                      {invariants, 3},
                      {orthogonalFour, 4},
                      {symmetricSix, 6}}))
            Report(prefix + " components are not consistent with algebraicType TENSOR2_GENERAL.");
        return;
    case TENSOR2_ORTHOGONAL:
        if (!fitsAny({{cylindrical, 3}, {orthogonalFour, 4}}))
            Report(" components are not consistent with algebraicType TENSOR2_ORTHOGONAL." + prefix + ".");
        return;
    case TENSOR2_SYMMETRIC:
        if (!fitsAny({{symmetricNine, 9}, {generalSix, 6}, {principal, 3}, {invariants, 3}}))
            Report(prefix + " components are not consistent with algebraicType TENSOR2_SYMMETRIC.");
        return;
    case TENSOR4:
        if (!fitsAny({{tensor4, 9}}))
            Report(prefix + " components are not consistent with algebraicType TENSOR4.");
        return;
    case SCALAR:
        if (components.Size() == 0 || (components.Size() == 1 && components[0] == C_SCALAR))
            return;
        Report(prefix + "; componentSymbol Size: #" + Number(components.Size()) + "; componentSymbol[0]: #" +
               Number(components[0]) + "; vds_Component_C_SCALAR: #" + "34" +
               "; components are not consistent with algebraicType SCALAR.");
        return;
    default:
        if (fieldType.TypePosition() == FieldTypeUnchecked)
            return;
        ORXString const typeName = fieldType.Focus().Context().Schema().TypeName(fieldType.TypePosition());
        Report("algebraicType index# " + Number(algebraicType) + " is not supported; field: " + prefix +
               " subtype: " + typeName + ".");
    }
}

bool ORXSrvHPVizChecker::HasNodeOrElementDim(ORXSimPosition field)
{
    ORXObjMesh const mesh(m_document.GetMesh());
    ORXSimCollectionID const nodes = mesh.GetNodeCollection().GetCollection();
    ORXSimCollectionID const elements = mesh.GetElementCollection().GetCollection();
    if (!field.IsA(MeshedField))
        return false;
    ORXSimSet const serFields = field.GetSet(MeshedField_serFields);
    if (serFields.Size() == 0)
        return false;
    ORXSimSet const drawers = (*serFields.Begin()).GetSet(SerField_drawers);
    if (drawers.Size() == 0)
        return false;
    ORXSimDrawer const drawer((*drawers.Begin()).GetDrawer());
    ORXSimOCompartment const& domain = drawer.Description().Domain();
    if (domain.Position(nodes) != -1)
        return true;
    return domain.Position(elements) != -1;
}

void ORXSrvHPVizChecker::Check_Field(ORXSimPosition field, ORXString prefix, ORXString number)
{
    ORXString const base = prefix + "; Field: #" + number;
    ORXSimPosition const fieldType = field.GetPosition(Field_fieldType);
    if (fieldType.IsNull())
    {
        Report(base + " has no Field_fieldType link.");
        return;
    }
    ORXString const typeLibName = fieldType.Name(vds_FieldTypeLib_fieldTypes);
    ORXString const typeName = m_document.Focus().Context().Schema().TypeName(fieldType.TypePosition());
    if (typeLibName.GetLengthInByte() == 0 && fieldType.IsA(FieldTypePrimary))
        Report(base +
               "; FieldType: -MISSING-; FieldTypePrimary, has no vds_FieldTypeLib_fieldTypes parent link.");
    ORXSimCollectionID const componentCollection = m_document.GetComponentCollection().GetCollection();

    int serial = 0;
    for (ORXSimSetiterator serField = field.GetSet(MeshedField_serFields).Begin(); serField.NotDone();
         ++serField, ++serial)
    {
        ORXString msg = base;
        msg += typeLibName.GetLengthInByte() == 0 ? ORXString("; FieldType: -MISSING-;")
                                                  : "; FieldType: \"" + typeLibName + "\";";
        msg += " SerFld: #" + Number(serial);
        ORXSimCSet components(componentCollection);
        for (ORXSimSetiterator drawerPos = (*serField).GetSet(SerField_drawers).Begin(); drawerPos.NotDone();
             ++drawerPos)
        {
            ORXSimDrawerID const drawer = (*drawerPos).GetDrawer();
            ORXSimPersistentDrawerDesc const description =
                ORXSimDistribution(drawer.DistributionID()).DrawerDescription(drawer);
            ORXSimOCompartment const& domain = description.Domain();
            int const at = domain.Position(componentCollection);
            if (at >= 0)
                components = components.Union(domain.CSet(at));
        }
        ORXSimDataRecord const typeRecord = fieldType.DataRecord();
        int const algebraicType = typeRecord.ReturnSymb(0);
        ORXSimDynamicDataID const dataID = typeRecord.ID().DataID();
        msg += "; id: " + Number(dataID.Minor1().Value()) + "/" + Number(dataID.Minor2().Value());
        if (!components.IsEmpty())
        {
            ORXSrvSymbolCollection const symbols(componentCollection, ComponentRecord);
            Check_Component(msg, algebraicType, symbols.GetSymbols(components), fieldType);
        }
        else if (algebraicType != SCALAR)
            Report(msg + " \"" + typeName + "\";" +
                   " Drawer component CSets are empty but algebraicType is not SCALAR.");
    }
}

void ORXSrvHPVizChecker::Check_FocusResults()
{
    ORXSimPosition const results = m_document.Focus().Follow(Focus_results, 1);
    if (results.IsNull())
        return;
    ORXSimPosition const contribution = results.Follow(Results_surfaceContribution, 0);
    if (contribution.IsNull())
        return;
    ORXSimCollectionID const regionCollection = m_model.GetPosition(Model_regionCollection).GetCollection();
    ORXSimCSet const regions = ORXSimDSet(contribution).Collect(regionCollection);
    ORXSimContext const context = m_document.Focus().Context();
    ORXSimCSetIterator member(regions);
    for (member.First(); !member.IsDone(); member.Next())
    {
        ORXSimPosition const region = context.GetRecord(regionCollection, member.CurrentValue());
        if (region.IsA(Region_Analytical) || region.IsA(Region_Exempt))
            continue;
        ORXString const name = region.Name(-1);
        ORXSimPosition const discrete = *region.GetSet(Region_discreteRegion).Begin();
        if (discrete.IsNull())
        {
            Report("Region " + Quoted(name) +
                   " for output surface contribution has no DiscreteRegion link (Region_discreteRegion).");
            continue;
        }
        if (discrete.GetPosition(DiscreteRegion_elementsFacesCluster).IsNull() &&
            discrete.GetPosition(DiscreteRegion_nodesCluster).IsNull())
            Report("Region " + Quoted(name) +
                   " for output surface contribution has no elementsFacesCluster DSet or nodesCluster CSet.");
    }
}

void ORXSrvHPVizChecker::Check_Mesh()
{
    ORXObjMesh const mesh(m_document.GetMesh());
    if (mesh.IsNull())
    {
        Report("Mesh is not present in this Model.");
        return;
    }
    ORXSimPosition const coordinates = mesh.GetCoordinates();
    if (coordinates.IsNull())
        Report("Coodinates distribution is not present in mesh.");
    else
    {
        ORXSimDistributionID const distribution = coordinates.GetDistribution();
        if (distribution.IsNull())
            Report("Undefined coordinates distribution.");
        ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>> drawers(
            1, 0);
        if (!distribution.IsNull())
            ORXSimDistribution(distribution).QueryDrawers(drawers);
        if (distribution.IsNull() || drawers.Size() < 1)
            Report("There is no data in coordinates distribution.");
    }

    ORXSimPosition elementSpecAssignment;
    ORXSimPosition const assignment = mesh.GetElementSpecAssignment();
    if (assignment.IsNull())
        Report("Mesh has no elementSpecAssignment.");
    else if (assignment.ID().Category() == ORXSimDynamicID::DSetCategory)
        elementSpecAssignment = assignment;
    else
        Report("Mesh->elementSpecAssignment link points to an object of category " +
               Number(assignment.ID().Category()) + " instead of a DSet.");

    ORXSimCollectionID const nodeCollection = mesh.GetNodeCollection().GetCollection();
    if (nodeCollection.IsNull())
        Report("nodeCollection is not present");
    else
    {
        ORXSimCSetID const userNodesID(mesh.GetUserNodes().ID());
        if (userNodesID.IsNull())
            Report("userNodes is not present");
        else if (!coordinates.IsNull())
        {
            ORXSrvNodalCoordinates const nodal(coordinates, 100000);
            ORXSimCSet const userNodes(userNodesID);
            if (userNodes.IsEmpty())
                Report("userNodes CSet is not present");
            if (!userNodes.Intersection(nodal.Nodes()).SameMembers(userNodes))
                Report("Some nodes from user node set are not present in coordinates distribution");
        }
    }

    if (mesh.GetElementClassification().IsNull())
        Report("elementClassCollection is not present");
    ORXSimPosition const classification = mesh.GetShapeFormulationLogicalSectionClassification();
    if (classification.IsNull())
    {
        Report("shapeFormulationLogicalSectionClassification is not present");
        return;
    }
    if (classification.GetSet(ElementClassification_elementClasses).Size() == 0)
        Report("ElementClassification has no ElementClasses.");
    if (elementSpecAssignment.IsNull())
        return;
    CheckElementClasses(classification, elementSpecAssignment);
}

void ORXSrvHPVizChecker::CheckElementClasses(ORXSimPosition const& classification,
                                             ORXSimPosition const& assignment)
{
    ORXObjMesh const mesh(m_document.GetMesh());
    ORXSimDSet const elementSpecAssignment(assignment);
    ORXSimCollectionID const elementCollection = mesh.GetElementCollection().GetCollection();
    ORXSimCSet const assignedElements = elementSpecAssignment.Collect(elementCollection);
    ORXSimCSet connectedElements(elementCollection);
    ORXSimPosition const connectivity = mesh.GetConnectivity();
    if (!connectivity.IsNull())
    {
        ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>> drawers(
            1, 0);
        ORXSimDistribution(ORXSimDSet(connectivity).GetRelationalDistributionID()).QueryDrawers(drawers);
        for (int d = 0; d < drawers.Size(); ++d)
            connectedElements = connectedElements.Union(drawers[d].Domain().CSet(0));
    }
    ORXSimCollectionID const specCollection = m_document.GetElementSpecCollection().GetCollection();
    ORXSimContext const context = m_document.Focus().Context();

    int classNumber = 0;
    for (ORXSimSetiterator entry = classification.GetSet(ElementClassification_elementClasses).Begin();
         entry.NotDone(); ++entry)
    {
        ORXSimPosition const elementClassPos = *entry;
        ORXString const classNumberText = Number(classNumber);
        ORXString elClassSpecName = "-MISSING-";
        if (elementClassPos.GetSet(ElementClass_sections).Size() != 0)
        {
            ++classNumber;
            continue;
        }
        ORXObjElementClass const elementClass(elementClassPos);
        ORXSimPosition const elClassSpec = elementClassPos.GetPosition(ElementClass_elementSpec);
        if (!elClassSpec.IsNull())
            elClassSpecName = elClassSpec.Name(ElementSpec_name);
        ORXSimCSet const classElements(ORXSimCSetID(elementClass.GetElementCSet()));
        ORXString const elementCount = Number(classElements.Size());
        ORXSimCSet const inAssignment = assignedElements.Intersection(classElements);
        if (inAssignment.IsEmpty())
            continue;
        char const* const assignText = inAssignment.SameMembers(classElements) ? "YES" : "PARTIAL";
        ORXSimCSet const inConnectivity = connectedElements.Intersection(classElements);
        char const* const connectText = inConnectivity.IsEmpty()                    ? "NO"
                                        : inConnectivity.SameMembers(classElements) ? "YES"
                                                                                    : "PARTIAL";
        ORXSimCSet const specSet = elementSpecAssignment.Select(classElements).Collect(specCollection);
        ORXSimPosition const spec = context.GetRecord(specCollection, specSet.Bounds().first);
        ORXString specName;
        if (!spec.IsNull())
        {
            specName = spec.Name(ElementSpec_name);
            if (IsExemptElementType(specName))
                continue;
        }
        if (specSet.Size() != 1)
        {
            ORXString names;
            for (int k = 0; k < specSet.Size(); ++k)
            {
                ORXSimPosition const member = context.GetRecord(specCollection, specSet[k]);
                names += member.IsNull() ? ORXString("-MISSING-") : member.Name(ElementSpec_name);
                names += k + 1 < specSet.Size() ? "," : "\"";
            }
            Report(" Element Class :#" + classNumberText +
                   "; linked to more than 1 elSpec; #elments:" + Number(specSet.Size()) + "; \"" + names);
        }
        ORXString message = " Element Class :#" + classNumberText +
                            "; has no reference to Section; #elements:" + elementCount;
        message += elClassSpec.IsNull() ? ORXString("; elClass->elSpec: -MISSING-")
                                        : "; elClass->elSpec: " + Quoted(elClassSpecName);
        message += spec.IsNull() ? ORXString("; elSpecAssign->elSpec: -MISSING-")
                                 : "; elSpecAssign->elSpec: " + Quoted(specName);
        message += ORXString("; elements in elementSpecAssign: ") + assignText +
                   "; elements in connectivity: " + connectText;
        Report(message);
        ++classNumber;
    }
}

void ORXSrvHPVizChecker::Check_Regions()
{
    ORXObjMesh const mesh(m_document.GetMesh());
    for (ORXSimMapiterator entry = m_model.GetMap(Model_regions).Begin(); entry.NotDone(); ++entry)
    {
        ORXSimPosition const surface = entry.Value();
        bool const revolution = surface.IsA(AnalyticalSurface_Revolution);
        if (!surface.IsA(AnalyticalSurface_Type10) && !surface.IsA(AnalyticalSurface_Type4) &&
            !surface.IsA(AnalyticalSurface_Type5) && !revolution)
            continue;
        ORXString const name = surface.Name(-1);
        ORXSimSet const referrers = surface.ReferrersSet(Constraint_RigidBody_analyticSurface);
        if (referrers.Size() == 0)
            Report(
                "Analytical Surface " + Quoted(name) +
                " is not referred to by any rigid body constraint (Constraint_RigidBody_analyticSurface).");
        else
        {
            ORXSimCollectionID const rigidBodies = mesh.GetPosition(Mesh_rigidBodies).GetCollection();
            ORXSimPosition const referenceNodes = mesh.GetPosition(Mesh_rigidBodyReferenceNode);
            if (rigidBodies.IsNull())
                Report("Mesh has no Mesh_rigidBodies Collection.");
            else if (referenceNodes.IsNull())
                Report(" Mesh has no rigidBodyReferenceNode DSet.");
            else
                for (ORXSimSetiterator referrer = referrers.Begin(); referrer.NotDone(); ++referrer)
                {
                    int const member = m_document.GetCMemberIndex(*referrer);
                    ORXSimCSet const one = ORXSimCollection(rigidBodies).CreateVolatileCSet(&member, 1);
                    if (ORXSimDSet(referenceNodes).Select(one).IsNull())
                        Report("Rigid body " + Quoted((*referrer).Name(-1)) +
                               " is not present in rigidBodyReferenceNode DSet.");
                }
        }

        ORXSimPosition const surfaceMesh = surface.GetPosition(AnalyticalSurface_mesh);
        if (surfaceMesh.IsNull())
        {
            Report("Analytical surface " + Quoted(name) + " has no a mesh.");
            continue;
        }
        ORXObjMesh const ownMesh(surfaceMesh);
        if (ownMesh.GetNodeCollection().IsNull())
            Report("Mesh for analytical surface " + Quoted(name) + " has no nodeCollection.");
        if (ownMesh.GetElementCollection().IsNull())
            Report("Mesh for analytical surface " + Quoted(name) + " has no elementCollection.");
        if (ownMesh.GetConnectivity().IsNull())
            Report("Mesh for analytical surface " + Quoted(name) + " has no Connectivity.");
        ORXSimPosition const orientation =
            revolution ? surface.GetPosition(AnalyticalSurface_orientation) : ORXSimPosition();
        if (orientation.IsNull())
            continue;
        if (orientation.GetPosition(Orientation_axisPointA).IsNull())
            Report("Orientation for analytical surface of revolution " + Quoted(name) +
                   " has no axisPointA.");
        if (orientation.GetPosition(Orientation_axisPointB).IsNull())
            Report("Orientation for analytical surface of revolution " + Quoted(name) +
                   " has no axisPointB.");
    }
}

void ORXSrvHPVizChecker::Check_Ply()
{
    for (ORXSimMapiterator entry = m_model.GetMap(Model_plies).Begin(); entry.NotDone(); ++entry)
        if (entry.Value().ReferrersSet(Focus_externalPlyIds).Size() == 0)
            Report("Ply " + Quoted(entry.Value().Name(-1)) +
                   " is not referred to by Focus (Focus_externalPlyIds).");
}

void ORXSrvHPVizChecker::Check_sectionAssignments()
{
    ORXSimVector const assignments = m_model.GetVector(Model_sectionAssignments);
    bool const hasBulkLayers = !m_model.GetPosition(Model_bulkShellLayers).IsNull();
    for (int i = 0; i < assignments.Size(); ++i)
    {
        ORXSimPosition const assignment = assignments.At(i);
        ORXString const label = "SectionAssignment  #" + Number(i);
        ORXSimPosition const section = assignment.GetPosition(SectionAssignment_section);
        if (section.IsNull())
            Report(label + " has no Section link.");
        ORXSimPosition const region = assignment.GetPosition(SectionAssignment_region);
        if (region.IsNull())
            Report(label + " has no Region link.");
        else if (region.GetSet(Region_discreteRegion).Size() == 0)
            Report("Region referred by " + label + " has no DiscreteRegion link.");
        else if ((*region.GetSet(Region_discreteRegion).Begin())
                     .GetPosition(DiscreteRegion_elementsCluster)
                     .IsNull())
            Report("Region referred by SectionAssignemt #" + label + " has no elementsCluster CSet.");
        if (section.IsNull())
            continue;
        ORXString const name = section.Name(-1);
        if (section.ReferrersSet(Focus_externalSectionIds).Size() == 0)
            Report("Section " + Quoted(name) + " is not linked to Focus (Focus_externalSectionIds).");
        ORXSimDataRecord const data = section.DataRecord();
        ORXSimVector const layers = data.Pos().GetVector(Section_layers);
        if (!section.IsA(Section_Shell))
            continue;
        if (data.ReturnSymb(9) != 2 && data.ReturnInt(0) == 0)
            Report("Shell section " + Quoted(name) + " has no Layers (Section_layers).");
        if (layers.Size() > 1)
            for (int k = 0; k < layers.Size(); ++k)
            {
                ORXSimPosition const layer = layers.At(k);
                if (layer.IsA(Layer_Shell) && layer.GetPosition(Layer_Shell_thickness).IsNull())
                    Report("Shell Layer has no thickness, " + Quoted(name) + " , " + Number(k) + ".");
                ORXSimPosition const ply = layer.GetPosition(Layer_ply);
                if (!ply.IsNull() && ply.Parent(Model_plies).IsNull())
                    Report("Ply is not linked to Model, " + Quoted(name) + ", " + Number(k) + ".");
                ORXSimPosition const segments = layer.GetPosition(Layer_Beam_Arbitrary_segments);
                if (!layer.IsA(Layer_Beam_Arbitrary) || segments.IsNull())
                    continue;
                if (!segments.IsA(Field_FTable))
                    Report("Layer_Beam_Arbitrary_segments is not of type Field_FTable, " + Quoted(name) +
                           ", " + Number(k) + ".");
                else if (segments.GetPosition(Field_FTable_ftable).IsNull())
                    Report("Layer_Beam_Arbitrary_segments has no an FTable, " + Quoted(name) + ", " +
                           Number(k) + ".");
            }
        if (hasBulkLayers)
        {
            ORXSrvShellSection const shell(assignment);
            shell.GetConstThicknesses();
            shell.GetPlies();
        }
    }
}

bool ORXSrvHPVizChecker::Covers(ORXSimPosition const& data, ORXSimCSet const& members) const
{
    // Data that names no distribution has no drawers and so covers nothing.
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>> drawers(1, 0);
    int drawerCount = 0;
    if (!data.GetDistribution().IsNull())
    {
        ORXSimDistribution(data.GetDistribution()).QueryDrawers(drawers);
        drawerCount = drawers.Size();
    }
    ORXSimCSet covered(members.CollectionID());
    for (int d = 0; d < drawerCount; ++d)
        covered = covered.Union(drawers[d].Domain().CSet(0));
    return members.SameMembers(covered.Intersection(members));
}

void ORXSrvHPVizChecker::Check_Steps()
{
    if (m_model.GetMap(Model_steps).Size() == 0)
    {
        Report("Model has no Steps.");
        return;
    }
    ORXSimVector const sequence = m_model.GetVector(Model_stepSequence);
    if (sequence.Size() < 1)
    {
        Report("Model_stepSequence is empty.");
        return;
    }
    for (int s = 0; s < sequence.Size(); ++s)
    {
        ORXSimPosition const step = sequence.At(s);
        ORXString const name = Quoted(step.Name(-1));
        if (step.ReferrersSet(Focus_externalTaskIds).Size() == 0)
            Report("Step " + name + " is not referred to by Focus (Focus_externalTaskIds).");

        bool const buckle = step.IsA(Step_Lin_Buckle);
        ORXSimPosition const modes = step.GetPosition(Task_modes);
        if (!modes.IsNull())
        {
            if (buckle && modes.CSet().Size() < 1)
                Report("Step_Lin_Buckle " + name + " has a mode set that is empty (Task_modes).");
            ORXSimPosition const system = step.Follow(Task_system, 0);
            if (system.IsNull())
                Report("Step " + name + " has no FESystem.");
            else if (!system.IsA(ModalSystem))
                Report("System is not ModalSystem for Step " + name + ".");
            else if (system.GetPosition(ModalSystem_eigenvalues).IsNull())
                Report("ModalSystem has no eigenvalues link (ModalSystem_eigenvalues)for Step " + name + ".");
        }
        else if (buckle)
            Report("Step_Lin_Buckle " + name + " has no modes link (Task_modes).");

        bool const riks = step.IsA(Step_Gen_StaticRiks);
        if (riks && step.GetPosition(Step_Gen_timeIncrementation).IsNull())
            Report("TimeIncrementation record does not exist for Step_Gen_StaticRiks " + name +
                   " (Step_Gen_timeIncrementation).");

        ORXSimPosition const times = step.GetPosition(Task_times);
        if (!times.IsNull())
        {
            ORXSimPosition const description =
                CollectionOf(times.GetCSet()).Parent(TimeDescription_timeCollection);
            ORXSimPosition const data =
                description.IsNull() ? ORXSimPosition() : description.GetPosition(TimeDescription_data);
            if (description.IsNull())
                Report("Task_times CSet's TimeCollection has no parent link to TimeDescription "
                       "(TimeDescription_timeCollection)for Step " +
                       name + ".");
            else if (data.IsNull())
                Report("TimeDescription has no data distribution for Step " + name + ".");
            else if (!Covers(data, times.CSet()))
                Report("TimeDescription data distribution must have all members from times CSet for Step " +
                       name + ".");
        }

        ORXSimPosition const arcLengths =
            riks ? step.GetPosition(Step_Gen_StaticRiks_arcLengths) : ORXSimPosition();
        if (!arcLengths.IsNull() && !arcLengths.GetCSet().IsNull())
        {
            ORXSimPosition const description =
                CollectionOf(arcLengths.GetCSet()).Parent(ArcLengthDescription_collection);
            ORXSimPosition const data =
                description.IsNull() ? ORXSimPosition() : description.GetPosition(ArcLengthDescription_data);
            if (description.IsNull())
                Report("ArcLengthDescription record does not exist.");
            else if (data.IsNull())
                Report("ArcLengthDescription record does not exist for Step " + name + ".");
            else if (!Covers(data, arcLengths.CSet()))
                Report("This ArcLengthDescription data distribution has no all members from times CSet for "
                       "Step " +
                       name + ".");
        }

        ORXSimCSetID const frequencies = step.GetPosition(Task_frequencies).GetCSet();
        if (!frequencies.IsNull())
        {
            ORXSimPosition const description =
                CollectionOf(frequencies).Parent(FrequencyDescription_collection);
            if (description.IsNull())
                continue;
            ORXSimPosition const data = description.GetPosition(FrequencyDescription_data);
            if (data.IsNull())
                Report("FrequencyDescription record does not exist for Step " + name + ".");
            if (!Covers(data, ORXSimCSet(frequencies)))
                Report("This FrequencyDescription data distribution has no all members from frequency CSet "
                       "for Step " +
                       name + ".");
        }
    }
}

void ORXSrvHPVizChecker::Check_History()
{
    ORXSimVector const sequence = m_model.GetVector(Model_stepSequence);
    for (int s = 0; s < sequence.Size(); ++s)
    {
        ORXSimPosition const step = sequence.At(s);
        if (step.IsNull())
            continue;
        ORXString const name = step.Name(-1);
        int n = 0;
        for (ORXSimSetiterator entry = step.GetSet(Task_historyResults).Begin(); entry.NotDone();
             ++entry, ++n)
        {
            ORXSimPosition const field = *entry;
            ORXString const head = "Step \"" + name + "\", History field #" + Number(n);
            if (!field.IsA(MeshedField))
            {
                Report(head + " is not a MeshedField.");
                continue;
            }
            bool const hasDim = HasNodeOrElementDim(field);
            Check_Field(field, "Step " + Quoted(name), Number(n));
            int const gridType = ORXObjMeshedField(field).GetGridType();
            if (gridType == GridType_Exempt75 || gridType == GridType_Exempt19 ||
                gridType == GridType_Exempt20)
                continue;
            ORXSimSet const requests = field.ReferrersSet(OutputRequest_field);
            if (requests.Size() == 0)
                Report(head + " is not referred to by an OutputRequest (OutputRequest_field).");
            for (ORXSimSetiterator request = requests.Begin(); request.NotDone(); ++request)
            {
                if ((*request).IsNull())
                    continue;
                ORXSimSet const users = (*request).ReferrersSet(OutputRequest_elaboratedRequest);
                if (users.Size() == 0)
                {
                    if (!hasDim)
                        Report("OutputRequest for " + head +
                               " is not referred to by UserOutputRequest (OutputRequest_elaboratedRequest).");
                    continue;
                }
                for (ORXSimSetiterator user = users.Begin(); user.NotDone(); ++user)
                {
                    ORXString const userHead = head + ", UserOutputRequest " + Quoted((*user).Name(-1));
                    ORXSimSet const regions = (*user).GetSet(UserOutputRequest_outputRegions);
                    if (regions.Size() == 0)
                        Report(userHead + " has no Region link (UserOutputRequest_outputRegions).");
                    for (ORXSimSetiterator region = regions.Begin(); region.NotDone(); ++region)
                        if ((*region).GetSet(Region_discreteRegion).Size() == 0)
                            Report(userHead + " has no DiscreteRegion link.");
                }
            }
        }
    }

    int r = 0;
    for (ORXSimSetiterator request = m_model.GetSet(Model_outputRequests).Begin(); request.NotDone();
         ++request, ++r)
    {
        ORXString const prefix = "OutputRequest #" + Number(r);
        if ((*request).DataRecord().ReturnSymb(3) != 1)
            continue;
        int m = 0;
        for (ORXSimSetiterator entry = (*request).GetSet(OutputRequest_field).Begin(); entry.NotDone();
             ++entry, ++m)
        {
            ORXSimPosition const field = *entry;
            if (!field.IsA(MeshedField))
            {
                Report(prefix + "; Field #" + Number(m) + " is not a MeshedField.");
                continue;
            }
            bool hasContent = false;
            for (ORXSimSetiterator serField = field.GetSet(MeshedField_serFields).Begin();
                 serField.NotDone() && !hasContent; ++serField)
                for (ORXSimSetiterator drawer = (*serField).GetSet(SerField_drawers).Begin();
                     drawer.NotDone() && !hasContent; ++drawer)
                    hasContent = ORXSimDrawer(*drawer).Description().DataSizeItems(0) != 0;
            if (hasContent && field.Parent(Task_fieldResults).IsNull())
                Report("For " + prefix + "; Field #" + Number(m) + "; fieldtype: " +
                       Quoted(field.GetPosition(Field_fieldType).Name(vds_FieldTypeLib_fieldTypes)) + ";" +
                       " has content but has no Task_fieldResults parent link.");
            Check_Field(field, prefix, Number(m));
        }
    }
}
