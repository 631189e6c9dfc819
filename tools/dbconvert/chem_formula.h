#pragma once
// Species names in the PHREEQC notation: "Fe+3", "SO4-2", "H+", "e-",
// "Ca4H(PO4)3:3H2O". Element symbols follow PHREEQC: a capital letter
// followed by lower-case letters and underscores ("Fe", "Hfo_w", "Benzoate").
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace dbconvert {

struct SpeciesName {
    std::string formula;  // without the charge suffix
    int charge = 0;
};

// Splits the charge suffix off a species name: "Fe+3" -> ("Fe", 3),
// "HCO3-" -> ("HCO3", -1), "CaCO3" -> ("CaCO3", 0), "Fe++" -> ("Fe", 2).
SpeciesName SplitCharge(std::string_view name);

// Element counts of a formula (no charge suffix). Parentheses with a
// multiplier and hydrate parts after ':' (with an optional leading
// coefficient) are expanded. Returns nullopt for text that is not a formula.
std::optional<std::map<std::string, double>> ElementCounts(std::string_view formula);

// The element a bare ion stands for: "Hg" for "Hg", "" for "Hg(OH)2".
bool IsBareElement(std::string_view formula);

// Roman numeral for an oxidation state 1..9; "0" for 0.
std::string RomanNumeral(int value);

}  // namespace dbconvert
