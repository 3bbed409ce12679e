#include "vds_CoreFragmentTypeIndex.h"

int vds_CoreFragmentTypeIndex(int group, int member) { return group * 4096 + member; }
