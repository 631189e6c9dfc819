#include "calc/organic_test_support.h"

#include <gtest/gtest.h>

#include "calc/organic_model.h"
#include "calc/real_database.h"

namespace tormel::test {

OrganicWater::OrganicWater(int32_t model, double doc, double fulvic) {
    const ChemicalSystem* database = RealDatabase();
    if (!database) {
        ADD_FAILURE() << "the raw database in data/RawData could not be loaded";
        return;
    }
    chem = *database;
    input.components.assign(chem.db().components.size(), ComponentInput{});
    input.ionicStrengthModel = 1;  // Davies
    input.convergenceCriterion = 1.000001;
    input.organicComplexation = true;
    input.organicModel = model;
    input.docConcentration = doc;
    input.fulvicFraction = fulvic;
    ok = true;
}

void OrganicWater::Set(const std::string& component, InputType type, double value) {
    const int32_t c = chem.db().FindComponent(component);
    ASSERT_GE(c, 0) << "no component " << component;
    input.components[c] = {value, type};
}

CalculationOutcome OrganicWater::Run() {
    CalcContext ctx{chem, input, state};
    return RunCalculation(ctx, false);
}

int32_t OrganicWater::SystemIndexOf(const std::string& component) const {
    for (size_t j = 0; j < chem.systemComponents.size(); ++j)
        if (chem.systemComponents[j].name == component) return static_cast<int32_t>(j);
    return -1;
}

int32_t OrganicWater::SpeciesIndex(const std::string& name) const {
    for (size_t s = 0; s < chem.species.size(); ++s)
        if (chem.species[s].name == name) return static_cast<int32_t>(s);
    return -1;
}

double OrganicWater::MetalBound(const std::string& component) const {
    const int32_t j = SystemIndexOf(component);
    if (j < 0) return 0;
    const int32_t count = static_cast<int32_t>(chem.species.size());
    double sum = 0;
    for (int32_t s = 0; s < count; ++s) {
        const Species& sp = chem.species[s];
        if (!IsOrganicMetalKind(sp.kind)) continue;
        for (int32_t e = 0; e < sp.componentTerms; ++e) {
            const CompositionTerm& t = chem.composition[Position(s, e, count)];
            if (t.systemComponent == j) sum += t.coefficient * sp.concentration;
        }
    }
    return sum;
}

double OrganicWater::BoundFraction(const std::string& component) const {
    const int32_t j = SystemIndexOf(component);
    if (j < 0) return 0;
    const SystemComponent& sc = chem.systemComponents[j];
    return (MetalBound(component) + sc.ddlSum[0] + sc.ddlSum[1]) / sc.balanceTotal;
}

}  // namespace tormel::test
