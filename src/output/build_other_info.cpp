#include "output/build_other_info.h"

#include "output/other_info_blocks.h"

namespace tormel {

void BuildOtherInfo(ResultStore& store, int32_t set, const ResultContext& context, const Database* database) {
    if (set < 0 || set >= store.SetCount()) return;
    ResultSet& target = store.sets[set];
    const std::shared_ptr<const IniFile::Table> texts = OtherInfoTexts(context.language);
    const OtherInfoSource source{target, ViewSet(store, set), *texts, context.options, context.separator, database};
    InfoBlocks& blocks = target.otherInfo;
    BuildGeneralBlock(source, blocks[InfoGeneral]);
    BuildMsaBlock(source, blocks[InfoMsa]);
    BuildOrganicBlock(source, blocks[InfoOrganic]);
    BuildSolidsBlock(source, blocks[InfoSolids]);
    BuildGasesBlock(source, blocks[InfoGases]);
    BuildAdsorptionBlock(source, blocks[InfoAdsorption]);
    BuildInputBlock(source, blocks[InfoInput]);
}

}  // namespace tormel
