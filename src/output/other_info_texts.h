#pragma once
// The language texts of the "Other info" report (section "OtherInfo"). A
// report is built for every water of a batch, so its texts are looked up
// together, once per reading of the language file, rather than one by one.
#include <cstddef>
#include <memory>
#include <string_view>

#include "core/language.h"

namespace tormel {

inline constexpr std::string_view kOtherInfoTextKeys[] = {
    // general
    "General", "NumIt", "NumItFallback", "I", "ChrgPos", "ChrgNeg", "ChrgDiff", "ChrgRatio", "OrgChrgGrid1FA",
    "OrgChrgUnitFA", "OrgChrgGrid1HA", "OrgChrgUnitHA", "OrgRatio", "OrgVolTxt", "OrgVolFA", "OrgVolHA", "OrgVolSolut",
    // MSA
    "MSALong", "MSA1a", "MSA1b", "MSA2a", "MSA2b", "MSA2c", "MSA2d", "MSA2e", "MSA2f", "MSA2g", "MSA3a", "MSA3b",
    // organic matter
    "OrgTitleShort", "OrgTitleLong", "OrgShortName1", "OrgShortName2", "OrgLongName1", "OrgLongName2", "OrgBoundNo",
    "OrgBoundYes",
    // solids
    "Solids", "SolidComponentAbsent", "SolidInEq", "SolidUnderSat", "SolidOverSat", "SolidsConsid",
    "SolidsNotPresentButConsid", "SolidsNotConsid", "GridHeaderSolidsWithPrecip", "GridHeaderSolidsNoPrecip",
    // gases
    "Gases", "GasLong1", "GasLong2", "GasLong3", "GasLong4", "GasLong5", "GridHeaderGas",
    // adsorption
    "AdsShort", "AdsLong",
    // input
    "InputShort", "InputLong", "InpDescr", "InpDescrNone", "pH:", "VarCalc", "InppHFix", "InppHFixAt", "IModel",
    "InpConvCrit", "InpTemp", "InpTempCorr1", "InpTempCorr2", "InpTempCorr3", "InpTempCorr4", "InpNeutr1",
    "InpNeutr2a", "InpNeutr2b", "InpNeutr3", "EquilIncl", "EquilSol", "EquilAds", "EquilRed", "OrgCompl", "OrgModel5",
    "OrgModel6", "OrgModel7", "Redox_pE", "Redox_mV", "InpTypeTotalConc", "InpTypeFreeConc", "InpTypeFreeAct",
    "InpTypeGasPres", "DOC", "DOCUnit", "DOCFr",
};

// A key of kOtherInfoTextKeys, found when the program is compiled: a name
// that is not in the list does not compile.
class OtherInfoKey {
public:
    consteval OtherInfoKey(const char* name)  // NOLINT(google-explicit-constructor): a key is written as its name
        : index_(IndexOf(name)) {}
    size_t Index() const { return index_; }

private:
    static consteval size_t IndexOf(std::string_view name) {
        for (size_t i = 0; i < std::size(kOtherInfoTextKeys); ++i)
            if (kOtherInfoTextKeys[i] == name) return i;
        throw "not a text of the Other info report";
    }
    size_t index_;
};

// The texts of kOtherInfoTextKeys in the language, in the list's order.
std::shared_ptr<const IniFile::Table> OtherInfoTexts(const Language& language);

}  // namespace tormel
