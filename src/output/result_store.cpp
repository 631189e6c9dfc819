#include "output/result_store.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "core/renew.h"

namespace tormel {

namespace {

int32_t Count(size_t n) { return static_cast<int32_t>(n); }

// Replaces the range [first, first + oldCount) of `all` by `records`.
template <typename T>
void ReplaceRange(std::vector<T>& all, int32_t first, int32_t oldCount, std::vector<T>&& records) {
    if (first == 0 && oldCount >= 0 && static_cast<size_t>(oldCount) >= all.size()) {
        all = std::move(records);  // the whole array: taken over as it is
        return;
    }
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
        // a fresh store, keeping the storage of its list of sets
        RenewKeeping(store, &ResultStore::sets);
        store.sets.emplace_back();
        return;
    }
    // records of sets beyond s go with their sets
    if (s < store.SetCount())
        ForEachRecordArray(store.records, store.records, [&](int32_t kind, auto& all, auto&) {
            all.resize(std::min(all.size(), static_cast<size_t>(RecordIndex(store, kind, s, 0))));
        });
    store.sets.resize(static_cast<size_t>(s) + 1);
    store.sets[s] = ResultSet{};
}

void ResetResultStore(ResultStore& store, SetRecords& spare) {
    spare = std::move(store.records);
    ForEachRecordArray(spare, spare, [](int32_t, auto& all, auto&) { all.clear(); });
    store.holdsLoadedOutput = false;
    store.sets.resize(1);
    // set 0 emptied member by member: its "Other info" blocks keep their
    // texts and cells as room for the new set's
    ResultSet& set = store.sets[0];
    set.header = ResultHeader{};
    set.snapshot = InputSnapshot{};
    set.msa = MsaSummary{};
    const NumberFormats formats;
    const DecimalSeparator separator;
    for (InfoBlock& block : set.otherInfo) block.Empty(formats, separator);
    set.summaryPieText.clear();
    set.detailsPieText.clear();
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
    ForEachRecordArray(view, store.records,
                       [&](int32_t kind, auto& range, const auto& all) { range = Range(all, store, kind, set); });
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
    ForEachRecordArray(store.records, records, [&](int32_t kind, auto& all, auto& replacement) {
        ReplaceRange(all, RecordIndex(store, kind, set, 0), RecordCount(old, kind), std::move(replacement));
    });
}

}  // namespace tormel
