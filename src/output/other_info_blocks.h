#pragma once
// The builders of the seven blocks of the "Other info" report, each reading
// one result set. Labels are language texts of section "OtherInfo" unless a
// builder says otherwise.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/chemical_system.h"
#include "output/number_text.h"
#include "output/other_info_texts.h"
#include "output/output_options.h"
#include "output/result_store.h"

namespace tormel {

// Block positions in the report.
enum InfoBlockIndex : int32_t {
    InfoGeneral = 0,
    InfoMsa = 1,
    InfoOrganic = 2,
    InfoSolids = 3,
    InfoGases = 4,
    InfoAdsorption = 5,
    InfoInput = 6,
};

// What every block builder reads.
struct OtherInfoSource {
    const ResultSet& set;
    SetView view;
    const IniFile::Table& texts;  // OtherInfoTexts of the language
    const OutputOptions& options;
    const DecimalSeparator& separator;
    // The database the set was calculated with, for the names of the
    // neutralisation cation and anion; null when it is not at hand.
    const Database* database = nullptr;

    const InputProblem& Input() const { return set.snapshot.input; }
    // The text of `key` of section "OtherInfo".
    const std::string& Text(OtherInfoKey key) const { return texts[key.Index()]; }
};

void BuildGeneralBlock(const OtherInfoSource& source, InfoBlock& block);
void BuildMsaBlock(const OtherInfoSource& source, InfoBlock& block);
void BuildOrganicBlock(const OtherInfoSource& source, InfoBlock& block);
void BuildSolidsBlock(const OtherInfoSource& source, InfoBlock& block);
void BuildGasesBlock(const OtherInfoSource& source, InfoBlock& block);
void BuildAdsorptionBlock(const OtherInfoSource& source, InfoBlock& block);
void BuildInputBlock(const OtherInfoSource& source, InfoBlock& block);

}  // namespace tormel
