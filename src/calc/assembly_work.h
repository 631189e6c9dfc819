#pragma once
// Working storage of the problem assembly: which components are already
// represented, the dense coefficient matrix of species by system component,
// and helpers that append records and reaction entries to the assembled layer.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "calc/calc_context.h"

namespace tormel {

// The coefficients of the assembled species by system component: one row
// per species, every row in one block of memory, widened as a whole when
// more unknowns come than the rows have room for.
class DenseRows {
public:
    // One row; assigning one row to another copies the coefficients. Valid
    // until the next row is added or the rows widen.
    class Row {
    public:
        Row(int32_t* data, size_t width) : data_(data), width_(width) {}
        Row(const Row&) = default;
        Row& operator=(const Row& other) {
            std::copy_n(other.data_, width_, data_);
            return *this;
        }
        int32_t& operator[](size_t column) const { return data_[column]; }

    private:
        int32_t* data_;
        size_t width_;
    };

    Row operator[](size_t row) { return {cells_.data() + row * width_, width_}; }
    size_t size() const { return rows_; }
    size_t Width() const { return width_; }
    // Appends a row of zeros.
    void AddRow() {
        const size_t end = (rows_ + 1) * width_;
        if (end > cells_.size())
            cells_.resize(std::max(end, 2 * cells_.size()));  // zeros, and some rows ahead
        else
            std::fill_n(cells_.data() + rows_ * width_, width_, 0);
        ++rows_;
    }
    void pop_back() { --rows_; }
    // Gives every row `width` columns, the new ones zero.
    void Widen(size_t width);
    void Reserve(size_t rows, size_t width);

private:
    std::vector<int32_t> cells_;  // the rows, then room for more (contents undefined)
    size_t rows_ = 0;
    size_t width_ = 0;
};

struct AssemblyWork {
    explicit AssemblyWork(CalcContext& context);

    CalcContext& ctx;
    ChemicalSystem& chem;
    std::vector<uint8_t> placed;     // per component
    std::vector<int32_t> speciesOf;  // per component: species that stands for it
    // dense[s][j]: coefficient of system component j in species s
    DenseRows dense;
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
    static std::string FreeName(std::string_view name) {
        std::string text;
        text.reserve(5 + name.size());
        return text.append("free ").append(name);
    }
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
