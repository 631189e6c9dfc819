// Block 1: the activity model of the mean spherical approximation: mean
// activity coefficients of the salts, the activity terms of every ion, and
// the model's parameters. Absent (empty title) under the Davies model.
#include <array>

#include "output/charge_suffix.h"
#include "output/other_info_blocks.h"
#include "output/other_info_writer.h"

namespace tormel {

void BuildMsaBlock(const OtherInfoSource& source, InfoBlock& block) {
    InfoBlockWriter w(block, source.options.formats, source.separator);
    if (source.Input().ionicStrengthModel == kDaviesModel) return;
    w.Heading("MSA", source.Text("MSALong"), 6);

    w.Text(0, source.Text("MSA1a") + " " + std::to_string(source.view.salts.size()) + " " + source.Text("MSA1b"));
    for (const SaltRecord& salt : source.view.salts) {
        w.NextRow();
        w.Text(0, salt.formula);
        w.Scientific(1, salt.meanActivityCoefficient);
    }

    w.SkipRows(2);
    w.Text(0, source.Text("MSA2a"));
    w.NextRow();
    static constexpr std::array<OtherInfoKey, 6> kIonTitles = {"MSA2b", "MSA2c", "MSA2d", "MSA2e", "MSA2f", "MSA2g"};
    for (int32_t c = 0; c < 6; ++c) w.Text(c, source.Text(kIonTitles[c]));
    for (const MsaIonResult& ion : source.view.msaIons) {
        w.NextRow();
        w.Text(0, ion.name + ChargeSuffix(ion.charge));
        w.Scientific(1, ion.gamma);
        w.Scientific(2, ion.lnGamma);
        w.Scientific(3, ion.lnGammaHardSphere);
        w.Scientific(4, ion.lnGammaElectrostatic);
        w.Scientific(5, ion.ionSize);
    }

    w.SkipRows(2);
    w.Text(0, source.Text("MSA3a"));
    const MsaSummary& msa = source.set.msa;
    auto parameter = [&w](std::string label, double value) {
        w.NextRow();
        w.Text(0, std::move(label));
        w.Scientific(1, value);
    };
    parameter("x " + source.Text("MSA3b"), msa.delta);
    for (int32_t k = 0; k < 3; ++k) parameter("F" + std::to_string(k + 1), msa.hardSphere[k]);
    for (int32_t k = 0; k < 4; ++k) parameter("X" + std::to_string(k), msa.zeta[k]);
    parameter("\u0393", msa.screening);
    parameter("\u03B7", msa.pPrime);
    parameter("\u03A9", msa.omega);
    w.Finish(w.Row() + 1);
}

}  // namespace tormel
