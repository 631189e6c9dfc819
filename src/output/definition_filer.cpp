#include "output/definition_filer.h"

namespace tormel {

namespace {

void Empty(ReactionEntry& entry) {
    entry.coefficient = 0;
    entry.name.clear();
    entry.charge = 0;
    entry.phase.clear();
}

}  // namespace

ReactionDefinition& DefinitionFiler::Next() {
    if (filed_ == list_.size()) {
        ++filed_;
        return list_.emplace_back();
    }
    ReactionDefinition& definition = list_[filed_++];
    for (ReactionEntry& entry : definition.reactants) Empty(entry);
    for (ReactionEntry& entry : definition.products) Empty(entry);
    definition.logK = 0;
    definition.literature = SharedText();
    definition.note = SharedText();
    return definition;
}

}  // namespace tormel
