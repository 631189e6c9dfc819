#pragma once
// The result store: every result set the program holds. Set 0 is the latest
// calculation or the output file opened last; sets 1, 2, ... exist only while
// outputs are compared. Per record kind the store keeps one array in which
// the records of all sets follow each other, set after set; each set's
// header tells how many records of each kind it has (`RecordIndex`).
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "calc/solver_state.h"
#include "output/info_block.h"
#include "output/input_snapshot.h"
#include "output/result_records.h"

namespace tormel {

enum RecordKind : int32_t {
    KindComponent = 0,  // ComponentResult and ComponentInfo
    KindSpecies = 1,
    KindGas = 2,
    KindSolidCheck = 3,
    KindReaction = 4,
    KindSalt = 5,
    KindMsaIon = 6,
};
inline constexpr int32_t kRecordKindCount = 7;

// The parts of a set that exist once per set.
// ResetResultStore(store, spare) empties set 0 member by member, so that the
// Other info keeps its storage for the next water: a member added here is
// emptied there too.
struct ResultSet {
    ResultHeader header;
    InputSnapshot snapshot;
    MsaSummary msa;
    InfoBlocks otherInfo;
    std::string summaryPieText;  // from the summary table built last for this set
    std::string detailsPieText;  // from the details table built last for this set
};

// The records of one set, owned; what a builder or a reader fills before the
// set enters the store.
struct SetRecords {
    std::vector<ComponentResult> components;
    std::vector<ComponentInfo> componentInfos;  // parallel to `components`
    std::vector<SpeciesResult> species;
    std::vector<GasResult> gases;
    std::vector<SolidSaturation> solidChecks;
    std::vector<ReactionDefinition> reactions;
    std::vector<SaltRecord> salts;
    std::vector<MsaIonResult> msaIons;
};

struct ResultStore {
    std::vector<ResultSet> sets = std::vector<ResultSet>(1);  // the set count is sets.size()
    SetRecords records;  // the records of all sets, set after set
    bool holdsLoadedOutput = false;  // set 0 came from an output file

    int32_t SetCount() const { return static_cast<int32_t>(sets.size()); }
};

// A set's records of every kind, as views into the store's arrays.
struct SetView {
    std::span<const ComponentResult> components;
    std::span<const ComponentInfo> componentInfos;
    std::span<const SpeciesResult> species;
    std::span<const GasResult> gases;
    std::span<const SolidSaturation> solidChecks;
    std::span<const ReactionDefinition> reactions;
    std::span<const SaltRecord> salts;
    std::span<const MsaIonResult> msaIons;
};

// Calls f(kind, a's array, b's array) for the eight record arrays of two
// record holders with the same member names (SetRecords, SetView), pairing
// the arrays of the same kind.
template <typename A, typename B, typename F>
void ForEachRecordArray(A& a, B& b, F&& f) {
    f(KindComponent, a.components, b.components);
    f(KindComponent, a.componentInfos, b.componentInfos);
    f(KindSpecies, a.species, b.species);
    f(KindGas, a.gases, b.gases);
    f(KindSolidCheck, a.solidChecks, b.solidChecks);
    f(KindReaction, a.reactions, b.reactions);
    f(KindSalt, a.salts, b.salts);
    f(KindMsaIon, a.msaIons, b.msaIons);
}

// s = 0: empties the store, leaving one empty set. s > 0: grows the per-set
// parts to s + 1 sets, clearing set s and leaving sets 0 .. s-1 untouched.
// Either way the set count becomes s + 1.
void ResetResultStore(ResultStore& store, int32_t s);
// ResetResultStore(store, 0) that hands the record arrays, emptied but with
// their storage, to `spare`: records built into them and stored again
// (StoreSetRecords) take no new storage. The "Other info" blocks of the new set 0
// take over the old one's cells and texts as room (see InfoBlock::cells), so that a
// rebuild writes into them.
void ResetResultStore(ResultStore& store, SetRecords& spare);

// The number of records of a kind that a set's header declares.
int32_t RecordCount(const ResultHeader& header, int32_t kind);

// Position of the i-th record of `kind` of `set` in the store's array of
// that kind: i plus the counts of that kind of the sets before.
int32_t RecordIndex(const ResultStore& store, int32_t kind, int32_t set, int32_t i);

// The records of a set (empty views for a set the store does not have).
SetView ViewSet(const ResultStore& store, int32_t set);

// Puts `records` into the store as the records of `set` (which must exist),
// replacing what the set held, and sets the header's counts from them (the
// component count from the longer of the two component arrays, the shorter
// being padded with empty records).
void StoreSetRecords(ResultStore& store, int32_t set, SetRecords records);

}  // namespace tormel
