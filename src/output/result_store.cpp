#include "output/result_store.h"

#include <algorithm>
#include <iterator>

namespace tormel {

namespace {

int32_t Count(size_t n) { return static_cast<int32_t>(n); }

// Replaces the range [first, first + oldCount) of `all` by `records`.
template <typename T>
void ReplaceRange(std::vector<T>& all, int32_t first, int32_t oldCount, std::vector<T>&& records) {
    const auto begin = all.begin() + std::min<ptrdiff_t>(first, Count(all.size()));
    const auto end = begin + std::min<ptrdiff_t>(oldCount, all.end() - begin);
    const auto at = all.erase(begin, end);
    all.insert(at, std::make_move_iterator(records.begin()), std::make_move_iterator(records.end()));
}

template <typename T>
std::span<const T> Range(const std::vector<T>& all, const ResultStore& store, int32_t kind, int32_t set) {
    if (set < 0 || set >= store.SetCount()) return {};
    const size_t first = static_cast<size_t>(RecordIndex(store, kind, set, 0));
    const size_t count = static_cast<size_t>(std::max(0, RecordCount(store.sets[set].header, kind)));
    if (first >= all.size()) return {};
    return std::span<const T>(all).subspan(first, std::min(count, all.size() - first));
}

}  // namespace

void ResetResultStore(ResultStore& store, int32_t s) {
    if (s <= 0) {
        store = ResultStore{};
        return;
    }
    // records of sets beyond s go with their sets
    if (s < store.SetCount()) {
        for (int32_t kind = 0; kind < kRecordKindCount; ++kind) {
            const int32_t keep = RecordIndex(store, kind, s, 0);
            auto cut = [keep](auto& all) { all.resize(std::min(all.size(), static_cast<size_t>(keep))); };
            switch (kind) {
                case KindComponent:
                    cut(store.components);
                    cut(store.componentInfos);
                    break;
                case KindSpecies: cut(store.species); break;
                case KindGas: cut(store.gases); break;
                case KindSolidCheck: cut(store.solidChecks); break;
                case KindReaction: cut(store.reactions); break;
                case KindSalt: cut(store.salts); break;
                case KindMsaIon: cut(store.msaIons); break;
            }
        }
    }
    store.sets.resize(static_cast<size_t>(s) + 1);
    store.sets[s] = ResultSet{};
}

int32_t RecordCount(const ResultHeader& header, int32_t kind) {
    switch (kind) {
        case KindComponent: return header.componentCount;
        case KindSpecies: return header.speciesCount;
        case KindGas: return header.gasResultCount;
        case KindSolidCheck: return header.solidCheckCount;
        case KindReaction: return header.reactionDefinitionCount;
        case KindSalt: return header.saltCount;
        case KindMsaIon: return header.msaIonCount;
        default: return 0;
    }
}

int32_t RecordIndex(const ResultStore& store, int32_t kind, int32_t set, int32_t i) {
    int32_t position = i;
    for (int32_t t = 0; t < set && t < store.SetCount(); ++t) position += std::max(0, RecordCount(store.sets[t].header, kind));
    return position;
}

SetView ViewSet(const ResultStore& store, int32_t set) {
    SetView view;
    view.components = Range(store.components, store, KindComponent, set);
    view.componentInfos = Range(store.componentInfos, store, KindComponent, set);
    view.species = Range(store.species, store, KindSpecies, set);
    view.gases = Range(store.gases, store, KindGas, set);
    view.solidChecks = Range(store.solidChecks, store, KindSolidCheck, set);
    view.reactions = Range(store.reactions, store, KindReaction, set);
    view.salts = Range(store.salts, store, KindSalt, set);
    view.msaIons = Range(store.msaIons, store, KindMsaIon, set);
    return view;
}

void StoreSetRecords(ResultStore& store, int32_t set, SetRecords records) {
    if (set < 0 || set >= store.SetCount()) return;
    const size_t componentCount = std::max(records.components.size(), records.componentInfos.size());
    records.components.resize(componentCount);
    records.componentInfos.resize(componentCount);

    ResultHeader& header = store.sets[set].header;
    const ResultHeader old = header;
    header.componentCount = Count(componentCount);
    header.speciesCount = Count(records.species.size());
    header.gasResultCount = Count(records.gases.size());
    header.solidCheckCount = Count(records.solidChecks.size());
    header.reactionDefinitionCount = Count(records.reactions.size());
    header.saltCount = Count(records.salts.size());
    header.msaIonCount = Count(records.msaIons.size());

    // the new records go where the old ones were; the sets before keep their
    // positions, so every first position is the same under old and new counts
    const int32_t componentFirst = RecordIndex(store, KindComponent, set, 0);
    ReplaceRange(store.components, componentFirst, old.componentCount, std::move(records.components));
    ReplaceRange(store.componentInfos, componentFirst, old.componentCount, std::move(records.componentInfos));
    ReplaceRange(store.species, RecordIndex(store, KindSpecies, set, 0), old.speciesCount, std::move(records.species));
    ReplaceRange(store.gases, RecordIndex(store, KindGas, set, 0), old.gasResultCount, std::move(records.gases));
    ReplaceRange(store.solidChecks, RecordIndex(store, KindSolidCheck, set, 0), old.solidCheckCount,
                 std::move(records.solidChecks));
    ReplaceRange(store.reactions, RecordIndex(store, KindReaction, set, 0), old.reactionDefinitionCount,
                 std::move(records.reactions));
    ReplaceRange(store.salts, RecordIndex(store, KindSalt, set, 0), old.saltCount, std::move(records.salts));
    ReplaceRange(store.msaIons, RecordIndex(store, KindMsaIon, set, 0), old.msaIonCount, std::move(records.msaIons));
}

}  // namespace tormel
