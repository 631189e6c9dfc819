#pragma once
// Files the reaction definitions of a set being built one after another into
// a list that may still hold the definitions of an earlier set: those are
// emptied and filled in place, their texts keeping their storage, before new
// ones are added; Finish drops the ones left over.
#include <cstddef>
#include <vector>

#include "output/result_records.h"

namespace tormel {

class DefinitionFiler {
public:
    explicit DefinitionFiler(std::vector<ReactionDefinition>& list) : list_(list) {}

    // Room for `count` more definitions, so that filing them moves none.
    void Reserve(size_t count) { list_.reserve(filed_ + count); }
    // The next definition, empty.
    ReactionDefinition& Next();
    // The definitions filed so far; the last one filed is Count() - 1.
    size_t Count() const { return filed_; }
    ReactionDefinition& operator[](size_t i) { return list_[i]; }
    // Drops the definitions of the earlier set that were not filled again.
    void Finish() { list_.resize(filed_); }

private:
    std::vector<ReactionDefinition>& list_;
    size_t filed_ = 0;
};

}  // namespace tormel
