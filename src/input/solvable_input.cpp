#include "input/solvable_input.h"

#include <cmath>

#include "core/language.h"

namespace tormel {

namespace {

class Refusals {
public:
    explicit Refusals(const Language& language) : language_(language) {}

    // A value that must be finite and, unless `mayBeNegative`, not negative.
    void Value(const std::string& field, double value, bool mayBeNegative = false) {
        if (!std::isfinite(value)) Add("UnsolvableNotFinite", field);
        else if (value < 0 && !mayBeNegative) Add("UnsolvableNegative", field);
    }
    void Add(const char* key, const std::string& field) {
        lines_ += "\n" + LanguageText(language_, "Input", key) + " " + field;
    }
    std::string Text() const {
        return lines_.empty() ? std::string() : LanguageText(language_, "Input", "InputUnsolvable") + lines_;
    }

private:
    const Language& language_;
    std::string lines_;
};

}  // namespace

std::string UnsolvableInputText(const InputProblem& input, const Database& db, const Language& language) {
    Refusals refusals(language);
    // a criterion below 1 is read as its reciprocal; what is left must be a
    // finite ratio above 1
    const double criterion = input.convergenceCriterion > 0 && input.convergenceCriterion < 1
                                 ? 1 / input.convergenceCriterion
                                 : input.convergenceCriterion;
    if (!(criterion > 1) || !std::isfinite(criterion)) refusals.Add("UnsolvableCriterion", "Convergence criterion");
    refusals.Value("Temperature", input.temperature, true);
    if (input.ionicStrengthFixed) refusals.Value("Ionic strength", input.fixedIonicStrength);
    if (input.organicComplexation) {
        refusals.Value("Concentration (mg/L C)", input.docConcentration);
        refusals.Value("Fraction of fulvic acids", input.fulvicFraction);
    }
    for (size_t k = 0; k < db.components.size(); ++k)
        refusals.Value(db.components[k].name, input.components[k].inputValue);
    return refusals.Text();
}

}  // namespace tormel
