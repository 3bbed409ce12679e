#pragma once
// Scoped-name lookup: a name as users and input files write it (model, occurrence and object,
// joined by a separator, parts possibly quoted) turned into the position of the stored set,
// surface, orientation or Eulerian region, by trying a fixed series of flat forms of the name
// against one map of the model record. A null position means that no form was found.
#include "ORXSimPosition.h"
#include "ORXString.h"

// Takes away the quotes of a quoted part at the very start of name: "Part-1".Set-1 becomes
// Part-1.Set-1.
void ORXSrvStripLeadingQuotes(ORXString& name);
// The name with the leading quotes taken away from every piece between underscores.
ORXString ORXSrvStripSegmentQuotes(ORXString const& name);

// Looks the name up in map mapMember of the model record of position. With a scope only the one
// form scope_name (behind the model's name) is tried; otherwise the name as written, with the
// separator turned into underscores, with and without the model's name in front, behind the
// generated-surface prefixes (regions only), and, with retryUnquoted, all of it once more unquoted.
ORXSimPosition ORXSrvGetIDFromScopedName(ORXSimPosition const& position, ORXString const& name, int mapMember,
                                         char const* separator, char const* scope, bool retryUnquoted);
// Node sets: the node-set map first, then the second node-set map. The result is a set or null.
ORXSimPosition ORXSrvGetNodeSetIDFromScopedName(ORXSimPosition const& position, ORXString const& name,
                                                char const* separator, char const* scope);
// Element sets: the element-set map first, then the second element-set map.
ORXSimPosition ORXSrvGetElementSetIDFromScopedName(ORXSimPosition const& position, ORXString const& name,
                                                   char const* separator, char const* scope);
// Surfaces, among the regions of the model.
ORXSimPosition ORXSrvGetSurfaceIDFromScopedName(ORXSimPosition const& position, ORXString const& name,
                                                char const* separator, char const* scope);
ORXSimPosition ORXSrvGetOrientationIDFromScopedName(ORXSimPosition const& position, ORXString const& name,
                                                    char const* separator, char const* scope);
// Eulerian regions: one exact lookup of the name with its leading quotes taken away.
ORXSimPosition ORXSrvGetEulerianRigionIDFromScopedName(ORXSimPosition const& position, ORXString const& name);
