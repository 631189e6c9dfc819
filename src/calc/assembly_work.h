#pragma once
// Working storage of the problem assembly: which components are already
// represented, the dense coefficient matrix of species by system component,
// and helpers that append records and reaction entries to the assembled layer.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "calc/calc_context.h"

namespace tormel {

struct AssemblyWork {
    explicit AssemblyWork(CalcContext& context);

    CalcContext& ctx;
    ChemicalSystem& chem;
    std::vector<uint8_t> placed;     // per component
    std::vector<int32_t> speciesOf;  // per component: species that stands for it
    // dense[s][j]: coefficient of system component j in species s
    std::vector<std::vector<int32_t>> dense;
    std::vector<int32_t> reactantFill, productFill;  // entries used per reaction row

    int32_t& Coef(int32_t species, int32_t systemComponent);
    int32_t NewSpecies();
    int32_t NewSystemComponent();
    int32_t NewReactionRow();
    void AddReactant(int32_t row, int32_t coefficient, std::string_view name, int32_t charge, std::string_view phase);
    void AddProduct(int32_t row, int32_t coefficient, std::string_view name, int32_t charge, std::string_view phase);
    // row(target) += factor * row(source)
    void AddRow(int32_t target, int32_t source, int32_t factor);
    // deltaZ2 = sum(coefficient * charge^2) - charge^2 and componentTerms = the
    // number of non-zero coefficients, both from the species' dense row.
    void ComposeFromRow(int32_t species);
    // "free " + name
    static std::string FreeName(std::string_view name) { return "free " + std::string(name); }
    // "(aq)" for a neutral dissolved term
    static std::string_view AqueousPhase(int32_t charge) { return charge == 0 ? "(aq)" : ""; }

private:
    int32_t columns_ = 0;
    void AddEntry(std::vector<ReactionEntry>& table, std::vector<int32_t>& fill, int32_t row, int32_t coefficient,
                  std::string_view name, int32_t charge, std::string_view phase);
};

// Assembly steps kept in their own files.
void AddRedoxPartners(AssemblyWork& work, bool groupStep);
void AddEquilibriumSpecies(AssemblyWork& work, EquilibriumType equilibriumType);

// Steps that belong to the organic model (organic_assembly.cpp) and to
// precipitation, called at their place in the assembly.
void PrepareOrganicModel(AssemblyWork& work);
void AddOrganicSpecies(AssemblyWork& work);
void AddSolidSpecies(AssemblyWork& work);
// Empty when every solid can be limited by a mass balance; otherwise the
// warning that names the solids that cannot.
std::string CheckSolidTotals(AssemblyWork& work);

}  // namespace tormel
