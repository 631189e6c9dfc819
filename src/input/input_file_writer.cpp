#include "input/input_file_writer.h"

#include "core/c_number.h"
#include "core/utf16.h"
#include "input/input_type_text.h"
#include "input/value_text.h"
#include "core/language.h"
#include "core/messages.h"

namespace tormel {

namespace {

const char* IncludedText(bool on) { return on ? "included" : "not included"; }

std::string SingleLine(std::string text) {
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    return text;
}

std::string ComponentName(const Database& db, int32_t index) {
    if (index < 0 || index >= db.ComponentCount()) index = 0;
    return db.components.empty() ? std::string() : db.components[static_cast<size_t>(index)].name;
}

void AppendComponentLine(std::string& out, const Component& c, double inputValue, InputType inputType) {
    out += c.name;
    out += FormatC(": %.16G ", inputValue);
    out += InputTypeFileText(inputType);
    out += '\n';
}

}  // namespace

std::string FormatInputFile(const InputProblem& input, const Database& db) {
    std::string out;
    out += "TORMEL NEXT (64 bits) input file\n";
    out += "Format version: 1\n";
    // cut where the reader stops taking a description
    out += "Description: " + Utf16ToUtf8(CutUtf16(Utf8ToUtf16(SingleLine(input.description)), kDescriptionLimit)) + "\n";

    out += "Ionic strength: ";
    out += input.ionicStrengthFixed ? FormatC("fixed at %.16G M", input.fixedIonicStrength) : std::string("calculated");
    out += '\n';

    // A model or correction mode outside its set gets no text and no line
    // end, so the next line continues on the same line.
    out += FormatC("Ionic strength model: %i", input.ionicStrengthModel);
    if (input.ionicStrengthModel == 1) out += "'Davies\n";
    if (input.ionicStrengthModel == 2) out += "'MSA\n";

    out += FormatC("Convergence criterion: %.16G\n", input.convergenceCriterion);
    out += FormatC("Temperature: %.16G", input.temperature) + " \u00B0C\n";

    out += FormatC("Temperature correction: %i", input.temperatureCorrection);
    if (input.temperatureCorrection == 0) out += "'no correction\n";
    if (input.temperatureCorrection == 1) out += "'only if all are known\n";
    if (input.temperatureCorrection == 2) out += "'always\n";

    out += std::string("Force neutral solution: ") + (input.forceNeutral ? "yes" : "no") + "\n";
    if (input.forceNeutral) {
        out += "Cation to neutralise: " + ComponentName(db, input.neutraliseCation) + "\n";
        out += "Anion to neutralise: " + ComponentName(db, input.neutraliseAnion) + "\n";
    }
    out += std::string("Precipitation equilibria: ") + IncludedText(input.precipitation) + "\n";
    out += std::string("Redox equilibria: ") + IncludedText(input.redox) + "\n";
    out += std::string("Adsorption: ") + (input.adsorption ? "included; fixed concentration" : "not included") + "\n";
    out += std::string("Organic complexation: ") + IncludedText(input.organicComplexation) + "\n";
    if (input.organicComplexation) {
        out += FormatC("Model to use: %i\n", input.organicModel);
        out += FormatC("Concentration (mg/L C): %.16G\n", input.docConcentration);
        out += FormatC("Fraction of fulvic acids: %.16G\n", input.fulvicFraction);
    }

    for (int32_t i = 0; i < db.ComponentCount(); ++i) {
        const Component& c = db.components[static_cast<size_t>(i)];
        const ComponentInput& given = input.components[static_cast<size_t>(i)];
        if (c.type == ComponentType::Electron) {
            if (input.redox) AppendComponentLine(out, c, given.inputValue, InputType::FreeAct);
        } else if (i == db.hydrogenIndex || given.inputValue != 0) {
            AppendComponentLine(out, c, given.inputValue, given.inputType);
        }
    }
    return out;
}

std::string InputFileWritePath(const std::string& path) {
    std::string_view ext = FileExtension(path);
    if (!EqualsIgnoreCase(ext, ".inp")) return path;
    return path.substr(0, path.size() - ext.size()) + ".i64";
}

bool WriteInputFile(const std::string& path, InputProblem& input, const Database& db, const UiServices& ui,
                    const Language& language, FileError* error) {
    std::string target = InputFileWritePath(path);
    if (target != path) ShowMessage(ui, language, "\n" + LanguageText(language, "Input", "SaveOldAsNew"), "", IconWarning);

    FileError failure;
    if (!WriteUtf16File(target, std::string_view(FormatInputFile(input, db)), &failure)) {
        ShowMessage(ui, language,
                    LanguageText(language, "Input", "ErrorSave") + "\n" + target + "\n(" + failure.message + ")", "",
                    IconError);
        if (error) *error = failure;
        return false;
    }
    input.modified = false;
    input.currentInputFile = path;
    return true;
}

}  // namespace tormel
