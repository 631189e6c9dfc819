// Block 2: binding by dissolved organic matter. Per fraction (fulvic, humic)
// and site type the free and the bound sites with the cations that bind
// there, then the components held in the fraction's diffuse layer. Absent
// without organic complexation.
#include <array>
#include <cmath>

#include "output/other_info_blocks.h"
#include "output/other_info_writer.h"

namespace tormel {

namespace {

constexpr int32_t kSiteTypes = 3;  // mono-, bi-, tridentate
constexpr int32_t kTridentate = 2;

// The species kinds of free organic sites by fraction and site type.
int32_t FreeSiteSlot(SpeciesKind kind, int32_t& fraction) {
    struct Slot {
        int32_t fraction, site;
        std::array<int32_t, 6> kinds;
    };
    static constexpr std::array<Slot, 6> kSlots = {{
        {0, 0, {9, 11, 25, 28, 49, 52}},
        {0, 1, {10, 12, 26, 29, 50, 53}},
        {0, 2, {27, 30, 51, 54, 0, 0}},
        {1, 0, {17, 19, 37, 40, 61, 64}},
        {1, 1, {18, 20, 38, 41, 62, 65}},
        {1, 2, {39, 42, 63, 66, 0, 0}},
    }};
    for (const Slot& slot : kSlots)
        for (const int32_t k : slot.kinds)
            if (k != 0 && k == CodeOf(kind)) {
                fraction = slot.fraction;
                return slot.site;
            }
    return -1;
}

// Site amount of a component for fraction g (0 fulvic, 1 humic) and site type
// (0 mono, 1 bi, 2 tri, 3 diffuse layer).
double SiteAmountOf(const ComponentResult& component, int32_t g, int32_t site) {
    return component.siteAmounts[static_cast<size_t>(site * 2 + g)];
}

const char* SiteSuffix(int32_t site) {
    switch (site) {
        case 0:
            return "-mono";
        case 1:
            return "-bi";
        default:
            return "-tri";
    }
}

}  // namespace

void BuildOrganicBlock(const OtherInfoSource& source, InfoBlock& block) {
    InfoBlockWriter w(block, source.options.formats, source.separator);
    if (!source.Input().organicComplexation) return;
    w.Heading(source.Text("OrgTitleShort"), source.Text("OrgTitleLong"), 5);

    const auto& components = source.view.components;
    const auto& species = source.view.species;
    const ResultHeader& header = source.set.header;
    const OutputOptions& options = source.options;
    const std::string& reference = header.organicReference;

    // cations at positions 1 .. n
    int32_t n = 0;
    while (static_cast<size_t>(n + 1) < components.size() && components[n + 1].kind == ComponentType::Cation) ++n;
    n = std::max(n, 1);
    const int32_t lastCation = std::min<int32_t>(n, static_cast<int32_t>(components.size()) - 1);

    // free (not bound) sites A and bound sites B per fraction and site type
    double free[2][kSiteTypes] = {};
    double bound[2][kSiteTypes] = {};
    for (size_t s = static_cast<size_t>(std::max(0, header.firstOrganicSpecies)); s < species.size(); ++s) {
        int32_t g = 0;
        const int32_t site = FreeSiteSlot(species[s].kind, g);
        if (site >= 0) free[g][site] += species[s].concentration;
    }
    for (int32_t g = 0; g < 2; ++g) {
        free[g][1] /= 2;
        free[g][2] /= 3;
        for (int32_t i = 1; i <= lastCation; ++i)
            for (int32_t site = 0; site < kSiteTypes; ++site) bound[g][site] += SiteAmountOf(components[i], g, site);
    }

    // diffuse-layer totals
    double diffuse[2] = {};
    for (size_t i = 1; i < components.size(); ++i) {
        const ComponentResult& c = components[i];
        if (!(c.amounts[AmountOrganic] > 0) || c.kind == ComponentType::Organic) continue;
        for (int32_t g = 0; g < 2; ++g) diffuse[g] += SiteAmountOf(c, g, 3);
    }

    const int32_t reportedEnd =
        std::min<int32_t>(header.reportedComponentCount, static_cast<int32_t>(components.size()));
    const int32_t siteTypes = source.Input().organicModel == Model5 ? kTridentate : kSiteTypes;
    auto shown = [&options](double amount, double whole) {
        return options.showAll ? amount > 0 : amount > options.cutOff * whole;
    };
    auto amountRow = [&w, &reference](std::string label, double amount, double whole) {
        w.NextRow();
        w.AmountShare(std::move(label), amount, whole);
        w.Text(4, reference);
    };
    const std::string indent(kInfoIndent), indent2 = indent + indent;

    bool fulvicShown = false;
    for (int32_t g = 0; g < 2; ++g) {
        if (!(source.set.snapshot.fractions[g].concentration > 0)) continue;
        if (g == 1 && fulvicShown) w.SkipRows(2);
        fulvicShown = true;
        static constexpr OtherInfoKey kShortNames[] = {"OrgShortName1", "OrgShortName2"};
        static constexpr OtherInfoKey kLongNames[] = {"OrgLongName1", "OrgLongName2"};
        const std::string& shortName = source.Text(kShortNames[g]);
        w.Text(0, source.Text(kLongNames[g]));
        for (int32_t site = 0; site < siteTypes; ++site) {
            const double a = free[g][site], b = bound[g][site], sites = a + b;
            w.NextRow();
            w.Text(0, indent + shortName + SiteSuffix(site) + "dentates");
            amountRow(indent2 + source.Text("OrgBoundNo"), a, sites);
            amountRow(indent2 + source.Text("OrgBoundYes"), b, sites);
            for (int32_t i = 1; i <= lastCation; ++i) {
                const double amount = SiteAmountOf(components[i], g, site);
                if (shown(amount, sites)) amountRow(indent2 + components[i].displayName, amount, sites);
            }
        }
        w.NextRow();
        w.Text(0, indent + shortName + "-DDL");
        for (int32_t i = 1; i < reportedEnd; ++i) {
            const double amount = SiteAmountOf(components[i], g, 3);
            if (shown(amount, diffuse[g])) amountRow(indent2 + components[i].displayName, amount, diffuse[g]);
        }
    }
    w.Finish(w.Row() + 1);
}

}  // namespace tormel
