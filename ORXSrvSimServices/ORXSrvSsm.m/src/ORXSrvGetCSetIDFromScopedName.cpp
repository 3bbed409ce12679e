#include "ORXSrvGetCSetIDFromScopedName.h"

#include "ORXSimCSetID.h"
#include "ORXSimDataRecord.h"
#include "ORXSimMap.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int const Document_model = vds_CoreFragmentTypeIndex(25, 1);
int const Model_elementSets = vds_CoreFragmentTypeIndex(47, 5);
int const Model_elementSetsAlt = vds_CoreFragmentTypeIndex(47, 6);
int const Model_nodeSets = vds_CoreFragmentTypeIndex(47, 7);
int const Model_nodeSetsAlt = vds_CoreFragmentTypeIndex(47, 8);
int const Model_regions = vds_CoreFragmentTypeIndex(47, 9);
int const Model_eulerianRegions = vds_CoreFragmentTypeIndex(47, 11);
int const Model_orientations = vds_CoreFragmentTypeIndex(25, 22);

// Looks the set name up in the first map and, when that has no entry, in the second; the result
// is a set or null.
ORXSimPosition FindSet(ORXSimPosition const& position, ORXString const& name, char const* separator,
                       char const* scope, int firstMap, int secondMap)
{
    ORXSimPosition setPos = ORXSrvGetIDFromScopedName(position, name, firstMap, separator, scope, true);
    if (setPos.IsNull())
        setPos = ORXSrvGetIDFromScopedName(position, name, secondMap, separator, scope, true);
    ORXSrvAssert(ORXSimCSetID::CanBeConverted(setPos.ID()));
    return setPos;
}
} // namespace

void ORXSrvStripLeadingQuotes(ORXString& name)
{
    if (name.GetLengthInByte() == 0 || name.CStr()[0] != '"')
        return;
    int const nameLen = name.GetLengthInChar();
    int const endQuotePos = name.FindPosition("\"", 1);
    ORXSrvAssert(endQuotePos < nameLen);
    ORXString rest;
    if (endQuotePos + 1 < nameLen)
        rest = name.SubString(endQuotePos + 1, nameLen - endQuotePos - 1);
    name = name.SubString(1, endQuotePos - 1) + rest;
}

ORXString ORXSrvStripSegmentQuotes(ORXString const& name)
{
    ORXString result;
    int const length = name.GetLengthInChar();
    int start = 0;
    while (true)
    {
        int const cut = name.FindPosition("_", start);
        int const end = cut < 0 ? length : cut;
        ORXString piece = name.SubString(start, end - start);
        ORXSrvStripLeadingQuotes(piece);
        result += piece;
        if (cut < 0)
            break;
        result += "_";
        start = cut + 1;
    }
    return result;
}

ORXSimPosition ORXSrvGetIDFromScopedName(ORXSimPosition const& position, ORXString const& name, int mapMember,
                                         char const* separator, char const* scope, bool retryUnquoted)
{
    if (name.GetLengthInChar() == 0)
        return ORXSimPosition();
    ORXString written = name;
    ORXSrvStripLeadingQuotes(written);

    ORXSimPosition const model = position.GetPosition(Document_model);
    ORXSimMap const map = model.GetMap(mapMember);
    ORXString const modelName = model.DataRecord().ReturnString(0);

    ORXString scopeName;
    scopeName.BuildFromUTF8(scope ? scope : "");
    ORXSrvStripLeadingQuotes(scopeName);
    if (scopeName.GetLengthInChar() != 0)
    {
        ORXString key = scopeName + "_" + written;
        if (modelName.GetLengthInChar() != 0)
            key = modelName + "_" + key;
        return map.Find(key);
    }

    ORXSimPosition found = map.Find(written);
    if (!found.IsNull())
        return found;
    if (separator && *separator)
        written.ReplaceAll(separator, "_");
    found = map.Find(written);
    if (!found.IsNull())
        return found;
    if (modelName.GetLengthInChar() == 0)
        return ORXSimPosition();

    ORXString const modelPrefix = modelName + "_";
    found = map.Find(modelPrefix + written);
    if (!found.IsNull())
        return found;
    if (written.FindPosition(modelPrefix, 0) == 0)
    {
        ORXString shortName = written;
        shortName.Remove(0, modelName.GetLengthInChar() + 1);
        found = map.Find(shortName);
        if (!found.IsNull())
            return found;
        if (mapMember == Model_regions)
        {
            found = map.Find("INP2SIM_ELSET_" + shortName);
            if (found.IsNull())
                found = map.Find("INP2SIM_NSET_" + shortName);
            if (!found.IsNull())
                return found;
        }
    }

    if (!retryUnquoted)
        return ORXSimPosition();
    ORXString const plain = ORXSrvStripSegmentQuotes(written);
    if (plain == written)
        return ORXSimPosition();
    return ORXSrvGetIDFromScopedName(position, plain, mapMember, separator, scope, false);
}

ORXSimPosition ORXSrvGetNodeSetIDFromScopedName(ORXSimPosition const& position, ORXString const& name,
                                                char const* separator, char const* scope)
{
    return FindSet(position, name, separator, scope, Model_nodeSets, Model_nodeSetsAlt);
}

ORXSimPosition ORXSrvGetElementSetIDFromScopedName(ORXSimPosition const& position, ORXString const& name,
                                                   char const* separator, char const* scope)
{
    return FindSet(position, name, separator, scope, Model_elementSets, Model_elementSetsAlt);
}

ORXSimPosition ORXSrvGetSurfaceIDFromScopedName(ORXSimPosition const& position, ORXString const& name,
                                                char const* separator, char const* scope)
{
    return ORXSrvGetIDFromScopedName(position, name, Model_regions, separator, scope, true);
}

ORXSimPosition ORXSrvGetOrientationIDFromScopedName(ORXSimPosition const& position, ORXString const& name,
                                                    char const* separator, char const* scope)
{
    return ORXSrvGetIDFromScopedName(position, name, Model_orientations, separator, scope, true);
}

ORXSimPosition ORXSrvGetEulerianRigionIDFromScopedName(ORXSimPosition const& position, ORXString const& name)
{
    ORXString written = name;
    ORXSrvStripLeadingQuotes(written);
    return position.GetPosition(Document_model).GetMap(Model_eulerianRegions).Find(written);
}
