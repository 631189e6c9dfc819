// Block 5: adsorption. The adsorbent's sites held by protons and by the other
// cations, then every cation and ligand that adsorbs noticeably. Absent
// without adsorption.
#include <cmath>

#include "output/other_info_blocks.h"
#include "output/other_info_writer.h"

namespace tormel {

void BuildAdsorptionBlock(const OtherInfoSource& source, InfoBlock& block) {
    InfoBlockWriter w(block, source.options.formats, source.separator);
    if (!source.Input().adsorption) return;
    w.Heading(source.Text("AdsShort"), source.Text("AdsLong"), 4);

    const auto& components = source.view.components;
    const double protons = components.empty() ? 0 : components[0].amounts[AmountAdsorbed];
    double cations = 0;
    for (size_t i = 1; i < components.size(); ++i)
        if (components[i].kind == ComponentType::Cation) cations += components[i].amounts[AmountAdsorbed];
    const double total = protons + cations;

    w.AmountShare(source.Text("OrgBoundNo"), protons, total);
    w.NextRow();
    w.AmountShare(source.Text("OrgBoundYes"), cations, total);

    const int32_t reportedEnd =
        std::min<int32_t>(source.set.header.reportedComponentCount, static_cast<int32_t>(components.size()));
    for (int32_t i = 1; i < reportedEnd; ++i) {
        const ComponentResult& c = components[i];
        if (c.kind != ComponentType::Cation && c.kind != ComponentType::Ligand) continue;
        const double a = c.amounts[AmountAdsorbed];
        if (a == 0) continue;
        if (!source.options.showAll && !(a > source.options.cutOff * total)) continue;
        w.NextRow();
        w.AmountShare(std::string(kInfoIndent) + c.displayName, a, total);
    }
    w.Finish(w.Row() + 1);
}

}  // namespace tormel
