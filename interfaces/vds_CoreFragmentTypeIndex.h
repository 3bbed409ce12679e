#pragma once
// Schema numbers: the number of member `member` of schema group `group`. Pure, injective for
// groups and members from 0 to 4095, and the same for the whole process.
int vds_CoreFragmentTypeIndex(int group, int member);
