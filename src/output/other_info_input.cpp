// Block 6: an echo of the input the set was calculated from: description,
// pH and ionic strength, activity model, convergence, temperature,
// neutralisation, the equilibria included, the redox potential, and the
// value and kind of input of every component.
#include <cmath>

#include "core/c_number.h"
#include "input/value_text.h"
#include "output/amount_units.h"
#include "output/other_info_blocks.h"
#include "output/other_info_writer.h"

namespace tormel {

namespace {

constexpr int32_t kFirstOptionRow = 8;
// pE to millivolts at 25 degrees C
constexpr double kMillivoltsPerPe = 59.159;

// Removes the last UTF-8 character.
void DropLastCharacter(std::string& text) {
    while (!text.empty()) {
        const unsigned char last = static_cast<unsigned char>(text.back());
        text.pop_back();
        if ((last & 0xC0) != 0x80) break;  // not a continuation byte: the character is gone
    }
}

// The text of a kind of input.
const std::string& InputTypeText(const OtherInfoSource& source, InputType inputType) {
    static const std::string none;
    switch (inputType) {
        case InputType::NotSpecified:
        case InputType::TotalConc:
            return source.Text("InpTypeTotalConc");
        case InputType::FreeConc:
            return source.Text("InpTypeFreeConc");
        case InputType::FreeAct:
            return source.Text("InpTypeFreeAct");
        case InputType::GasPres:
            return source.Text("InpTypeGasPres");
        default:
            return none;
    }
}

// The name of a database component, empty when it is not at hand.
std::string DatabaseName(const OtherInfoSource& source, int32_t index) {
    if (!source.database || index < 0 || static_cast<size_t>(index) >= source.database->components.size())
        return std::string();
    return source.database->components[index].name;
}

void FixedRows(const OtherInfoSource& source, InfoBlockWriter& w) {
    const InputSnapshot& snapshot = source.set.snapshot;
    const InputProblem& in = snapshot.input;

    std::string description(TrimBlanksAndLineFeeds(in.description));
    if (description.empty()) description += source.Text("InpDescrNone");
    w.Text(0, source.Text("InpDescr"));
    w.Text(1, description);
    w.NextRow();
    w.Text(0, source.Text("pH:"));
    w.Text(1, snapshot.protonBalance ? source.Text("VarCalc") : source.Text("InppHFix"));
    w.NextRow();
    w.Text(0, source.Text("I"));
    if (in.ionicStrengthFixed) {
        w.Text(1, source.Text("InppHFixAt"));
        w.Scientific(2, in.fixedIonicStrength);
        w.Text(3, "M");
    } else {
        w.Text(1, source.Text("VarCalc"));
    }
    w.NextRow();
    w.Text(0, source.Text("IModel"));
    w.Text(1, in.ionicStrengthModel == kDaviesModel ? "Davies" : "MSA");
    w.NextRow();
    w.Text(0, source.Text("InpConvCrit"));
    w.Scientific(1, in.convergenceCriterion - 1);
    w.NextRow();
    w.Text(0, source.Text("InpTemp"));
    w.Number(1, in.temperature, FormatC("%.0f", in.temperature));
    w.Text(2, "\u00B0C");
    w.NextRow();
    w.Text(0, source.Text("InpTempCorr1"));
    static constexpr OtherInfoKey kCorrections[] = {"InpTempCorr2", "InpTempCorr3", "InpTempCorr4"};
    w.Text(1, source.Text(kCorrections[std::clamp(in.temperatureCorrection, 0, 2)]));
    w.NextRow();
    w.Text(0, source.Text("InpNeutr1"));
    if (in.forceNeutral)
        w.Text(1, source.Text("InpNeutr2a") + " " + DatabaseName(source, in.neutraliseCation) + " " +
                      source.Text("InpNeutr2b") + " " + DatabaseName(source, in.neutraliseAnion));
    else
        w.Text(1, source.Text("InpNeutr3"));
}

// The included equilibria from row 8 on, one per row; the counter ends on the
// row after the last one.
void IncludedOptions(const OtherInfoSource& source, InfoBlockWriter& w, InfoBlock& block) {
    const InputProblem& in = source.Input();
    w.MoveTo(kFirstOptionRow);
    auto option = [&](OtherInfoKey key) {
        w.Text(1, source.Text(key));
        w.NextRow();
    };
    if (in.precipitation) option("EquilSol");
    if (in.adsorption) option("EquilAds");
    if (in.redox) option("EquilRed");
    if (in.organicComplexation) {
        option("OrgCompl");
        static constexpr OtherInfoKey kModels[] = {"OrgModel5", "OrgModel6", "OrgModel7"};
        const size_t model = in.organicModel == Model5 ? 0 : in.organicModel == Model6 ? 1 : 2;
        w.Text(1, source.Text(kModels[model]) + " " + source.set.header.organicReference + ")");
        w.NextRow();
    }
    if (w.Row() == kFirstOptionRow) return;
    if (!in.organicComplexation) {
        InfoCell& last = block.Cell(1, w.Row() - 1);
        DropLastCharacter(last.text);
    }
    block.Cell(0, kFirstOptionRow).text = source.Text("EquilIncl");
}

}  // namespace

void BuildInputBlock(const OtherInfoSource& source, InfoBlock& block) {
    InfoBlockWriter w(block, source.options.formats, source.separator);
    block.title = source.Text("InputShort");
    block.longText = source.Text("InputLong");
    block.columnCount = 4;
    const InputProblem& in = source.Input();
    const int32_t units = source.options.units.units, order = source.options.units.order;

    FixedRows(source, w);
    IncludedOptions(source, w, block);

    const auto& infos = source.view.componentInfos;
    const auto& components = source.view.components;
    if (in.redox) {
        for (const ComponentInfo& info : infos) {
            if (info.kind != ComponentType::Electron) continue;
            const double pE = -std::log10(info.inputValue);
            w.NextRow();
            w.Text(0, source.Text("Redox_pE"));
            w.Logarithm(1, pE);
            w.NextRow();
            w.Text(0, source.Text("Redox_mV"));
            w.Logarithm(1, pE * kMillivoltsPerPe);
            w.Text(2, "mV");
            break;
        }
    }

    w.NextRow();
    for (size_t i = 0; i < infos.size(); ++i) {
        const ComponentInfo& info = infos[i];
        if (info.kind != ComponentType::Cation && info.kind != ComponentType::Ligand &&
            info.kind != ComponentType::Ads && info.kind != ComponentType::RedSol && info.kind != ComponentType::Gas)
            continue;
        const bool displayed =
            in.redox && info.kind != ComponentType::Gas && i < components.size() && !components[i].displayName.empty();
        w.Text(0, displayed ? components[i].displayName : info.name);
        w.Scientific(1, ConvertAmount(info.inputValue, info.molarMass, units, order));
        w.Text(2, UnitLabelView(false, info.inputType == InputType::GasPres, false, units, order));
        if (info.inputType != InputType::RedoxMemberGiven) w.Text(3, InputTypeText(source, info.inputType));
        w.NextRow();
    }

    if (in.organicComplexation) {
        w.Text(0, source.Text("DOC"));
        w.Scientific(1, in.docConcentration);
        w.Text(2, source.Text("DOCUnit"));
        w.Text(3, InputTypeText(source, InputType::TotalConc));
        w.NextRow();
        w.Text(0, source.Text("DOCFr"));
        w.Scientific(1, in.fulvicFraction);
        w.NextRow();
    }
    w.Finish(w.Row());
}

}  // namespace tormel
