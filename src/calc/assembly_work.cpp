#include "calc/assembly_work.h"

#include <algorithm>

namespace tormel {

namespace {

// Room for the unknowns of a typical water: one per component that takes
// part, and a few more; rows widen when a calculation needs more.
int32_t FirstColumnCount(const ChemicalSystem& chem) {
    int32_t inInput = 0;
    for (const ComponentPlacement& p : chem.placement) inInput += p.inInput ? 1 : 0;
    return inInput + 8;
}

}  // namespace

void DenseRows::Widen(size_t width) {
    std::vector<int32_t> wider(rows_ * width, 0);
    for (size_t r = 0; r < rows_; ++r)
        std::copy_n(cells_.begin() + static_cast<std::ptrdiff_t>(r * width_), width_,
                    wider.begin() + static_cast<std::ptrdiff_t>(r * width));
    cells_ = std::move(wider);
    width_ = width;
}

void DenseRows::Reserve(size_t rows, size_t width) {
    if (rows_ == 0) width_ = width;
    cells_.reserve(rows * width_);
}

AssemblyWork::AssemblyWork(CalcContext& context)
    : ctx(context),
      chem(context.chem),
      placed(context.chem.db().components.size(), 0),
      speciesOf(context.chem.db().components.size(), 0),
      columns_(FirstColumnCount(context.chem)) {
    // room for the species and reactions of a typical water, without growing
    dense.Reserve(64, static_cast<size_t>(columns_));
    reactantFill.reserve(64);
    productFill.reserve(64);
}

int32_t& AssemblyWork::Coef(int32_t species, int32_t systemComponent) {
    return dense[species][systemComponent];
}

int32_t AssemblyWork::NewSpecies() {
    chem.species.emplace_back();
    dense.AddRow();
    return static_cast<int32_t>(chem.species.size()) - 1;
}

int32_t AssemblyWork::NewSystemComponent() {
    chem.systemComponents.emplace_back();
    const int32_t index = static_cast<int32_t>(chem.systemComponents.size()) - 1;
    if (index >= columns_) {
        // more unknowns than the first guess: widen every row
        columns_ = 2 * columns_;
        dense.Widen(static_cast<size_t>(columns_));
    }
    return index;
}

int32_t AssemblyWork::NewReactionRow() {
    const int32_t width = chem.db().maxComponentsPerEquilibrium;
    // appended one by one: cheaper than a resize for the few entries of a row
    for (int32_t k = 0; k < width; ++k) {
        chem.reactionReactants.emplace_back();
        chem.reactionProducts.emplace_back();
    }
    reactantFill.push_back(0);
    productFill.push_back(0);
    return chem.reactionRowCount++;
}

void AssemblyWork::AddEntry(std::vector<ReactionEntry>& table, std::vector<int32_t>& fill, int32_t row,
                            int32_t coefficient, std::string_view name, int32_t charge, std::string_view phase) {
    const int32_t width = chem.db().maxComponentsPerEquilibrium;
    if (fill[row] >= width) return;  // a display row holds at most the database's widest reaction
    ReactionEntry& entry = table[Position(fill[row], row, width)];
    entry.coefficient = coefficient;
    // the entry is new, its texts empty: appending is the cheaper copy
    entry.name.append(name);
    entry.charge = charge;
    if (!phase.empty()) entry.phase.append(phase.substr(0, 5));
    ++fill[row];
}

void AssemblyWork::AddReactant(int32_t row, int32_t coefficient, std::string_view name, int32_t charge,
                               std::string_view phase) {
    AddEntry(chem.reactionReactants, reactantFill, row, coefficient, name, charge, phase);
}

void AssemblyWork::AddProduct(int32_t row, int32_t coefficient, std::string_view name, int32_t charge,
                              std::string_view phase) {
    AddEntry(chem.reactionProducts, productFill, row, coefficient, name, charge, phase);
}

void AssemblyWork::AddRow(int32_t target, int32_t source, int32_t factor) {
    if (factor == 0) return;
    const DenseRows::Row from = dense[source];
    const DenseRows::Row to = dense[target];
    for (size_t j = 0; j < chem.systemComponents.size(); ++j) to[j] += factor * from[j];
}

void AssemblyWork::ComposeFromRow(int32_t s) {
    Species& sp = chem.species[s];
    int32_t sum = 0;
    int32_t terms = 0;
    for (size_t j = 0; j < chem.systemComponents.size(); ++j) {
        const int32_t nu = dense[s][j];
        if (nu == 0) continue;
        const int32_t z = chem.systemComponents[j].charge;
        sum += nu * z * z;
        ++terms;
    }
    sp.deltaZ2 = sum - sp.charge * sp.charge;
    sp.componentTerms = terms;
}

}  // namespace tormel
