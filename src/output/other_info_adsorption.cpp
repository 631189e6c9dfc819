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
    block.title = source.Text("AdsShort");
    block.longText = source.Text("AdsLong");
    block.columnCount = 4;

    const auto& components = source.view.components;
    const double protons = components.empty() ? 0 : components[0].amounts[AmountAdsorbed];
    double cations = 0;
    for (size_t i = 1; i < components.size(); ++i)
        if (components[i].kind == Cation) cations += components[i].amounts[AmountAdsorbed];
    const double total = protons + cations;

    auto amountRow = [&w, total](std::string label, double amount) {
        w.Text(0, std::move(label));
        w.Scientific(1, amount);
        w.Text(2, "M");
        w.Percentage(3, amount / total);
    };
    amountRow(source.Text("OrgBoundNo"), protons);
    w.NextRow();
    amountRow(source.Text("OrgBoundYes"), cations);

    const int32_t reportedEnd =
        std::min<int32_t>(source.set.header.reportedComponentCount, static_cast<int32_t>(components.size()));
    for (int32_t i = 1; i < reportedEnd; ++i) {
        const ComponentResult& c = components[i];
        if (c.kind != Cation && c.kind != Ligand) continue;
        const double a = c.amounts[AmountAdsorbed];
        if (a == 0) continue;
        if (!source.options.showAll && !(a > source.options.cutOff * total)) continue;
        w.NextRow();
        amountRow(std::string(kInfoIndent) + c.displayName, a);
    }
    w.Finish(w.Row() + 1);
}

}  // namespace tormel
