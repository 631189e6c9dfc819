#pragma once
// Published values that the MINTEQA2 data do not carry: the parameters and
// metal constants of the humic ion-binding Models V, VI and VII.
#include <array>
#include <string>
#include <vector>

namespace dbconvert {

// One parameter line of an organic model file: the value for fulvic (0) and
// humic (1) acid, both per gram of carbon, and a description of each.
struct OrganicParameter {
    std::array<double, 2> value{};
    std::string meaning;        // "pK_A, proton constant of type-A sites"
    std::string unitNote;       // how the value relates to the published one
};

// Parameters of model code 2, 3 or 4 (Model 5, 6, 7) in file order.
std::vector<OrganicParameter> OrganicModelParameterSet(int modelCode);

// A metal constant of one model and fraction. `metal` is our component name.
struct OrganicMetalConstant {
    std::string metal;
    int fraction = 0;            // 0 fulvic, 1 humic
    double logK = 0;             // Model 5: pKMHA; Models 6, 7: log KMA
    double deltaLK1 = 0;         // Model 6 only
    double deltaLK2 = 0;         // Models 6 and 7
    bool hydroxoToo = false;     // the first hydroxo species binds with the same constants
};

std::vector<OrganicMetalConstant> OrganicMetalConstants(int modelCode);

}  // namespace dbconvert
