// The block builders of the report are not written yet: until they are, a
// set's blocks are all absent (empty titles), which every reader of the
// blocks (output file, exports, viewer) handles as "nothing to show".
#include "output/build_other_info.h"

namespace tormel {

void BuildOtherInfo(ResultStore& store, int32_t set, const ResultContext& /*context*/) {
    if (set < 0 || set >= store.SetCount()) return;
    store.sets[set].otherInfo = InfoBlocks{};
}

}  // namespace tormel
