#include "published_data.h"

namespace dbconvert {

namespace {

// Published values are per gram of humic substance (50 % carbon); our
// organic fraction concentrations are grams of carbon per litre, so site
// densities are doubled and molar mass, electrostatic parameter and K_D
// halved. The particle radius does not depend on the mass basis.
constexpr double kPerCarbon = 2.0;

struct RawModelSet {
    // pK_A, dpK_A, pK_B, dpK_B, f_pairs, [f_triples], n_A, P, r, M, K_D, V_max
    double pKA, dpKA, pKB, dpKB, fPairs, fTriples, nA, P, r, M, KD, Vmax;
};

std::vector<OrganicParameter> BuildSet(const RawModelSet& fa, const RawModelSet& ha, bool triples) {
    std::vector<OrganicParameter> out;
    auto add = [&](double f, double h, const char* meaning, const char* note) {
        OrganicParameter p;
        p.value = {f, h};
        p.meaning = meaning;
        p.unitNote = note;
        out.push_back(p);
    };
    add(fa.pKA, ha.pKA, "pK_A, proton constant of type-A sites", "as published");
    add(fa.dpKA, ha.dpKA, "delta pK_A, spread of type-A sites", "as published");
    add(fa.pKB, ha.pKB, "pK_B, proton constant of type-B sites", "as published");
    add(fa.dpKB, ha.dpKB, "delta pK_B, spread of type-B sites", "as published");
    add(fa.fPairs, ha.fPairs, "share of sites in pairs", "as published");
    if (triples) add(fa.fTriples, ha.fTriples, "share of sites in triples", "as published");
    add(fa.nA * kPerCarbon, ha.nA * kPerCarbon, "n_A, site density of type A (mol per g C)",
        "per g carbon: published mol per g humic substance x 2 (50 % carbon)");
    add(fa.nA / 2 * kPerCarbon, ha.nA / 2 * kPerCarbon, "n_B = n_A/2, site density of type B (mol per g C)",
        "per g carbon: published n_A/2 per g humic substance x 2 (50 % carbon)");
    add(fa.P / kPerCarbon, ha.P / kPerCarbon, "P, electrostatic parameter (w = P log10 I)",
        "per g carbon: published P / 2, as Z per g C is twice Z per g humic substance");
    add(fa.r, ha.r, "r, particle radius (m)", "as published; independent of the mass basis");
    add(fa.M / kPerCarbon, ha.M / kPerCarbon, "M, molar mass (g C per mol of particles)",
        "per g carbon: published g humic substance per mol / 2");
    add(fa.KD / kPerCarbon, ha.KD / kPerCarbon, "K_D, diffuse-layer factor (g C per eq)",
        "per g carbon: published g humic substance per eq / 2");
    add(fa.Vmax, ha.Vmax, "V_max, largest total diffuse-layer volume fraction (fulvic value used)",
        "as published (L per L)");
    return out;
}

}  // namespace

std::vector<OrganicParameter> OrganicModelParameterSet(int modelCode) {
    switch (modelCode) {
        case 2:
            return BuildSet({3.26, 3.34, 9.64, 5.52, 0.40, 0, 4.73e-3, -103, 8.0e-10, 1500, 1000, 0.25},
                            {4.02, 1.78, 8.55, 3.43, 0.50, 0, 3.29e-3, -374, 1.72e-9, 15000, 1000, 0.25}, false);
        case 3:
            return BuildSet({3.2, 3.3, 9.4, 4.9, 0.42, 0.03, 4.8e-3, -115, 8.0e-10, 1500, 1000, 0.25},
                            {4.1, 2.1, 8.8, 3.6, 0.50, 0.065, 3.3e-3, -330, 1.72e-9, 15000, 1000, 0.25}, true);
        case 4:
            return BuildSet({3.7, 3.1, 9.6, 4.4, 0.42, 0.03, 5.2e-3, -119, 8.0e-10, 1500, 1000, 0.25},
                            {4.1, 2.6, 8.3, 3.1, 0.50, 0.065, 3.4e-3, -196, 1.72e-9, 15000, 1000, 0.25}, true);
        default:
            return {};
    }
}

std::vector<OrganicMetalConstant> OrganicMetalConstants(int modelCode) {
    struct Row {
        const char* metal;
        double ha, fa, dlk2;
        bool hydroxo;
    };
    std::vector<Row> rows;
    double dlk1 = 0;
    if (modelCode == 2) {
        // pKMHA for humic and fulvic acid.
        rows = {{"Mg", 3.3, 2.2, 0, false},     {"Ca", 3.2, 2.2, 0, false},     {"Sr", 2.8, 2.3, 0, false},
                {"Ba", 3.6, 2.6, 0, false},     {"Mn(II)", 3.4, 1.7, 0, true},  {"Fe(II)", 2.1, 1.3, 0, true},
                {"Fe(III)", 0.8, -0.2, 0, true}, {"Co(II)", 2.7, 1.7, 0, true}, {"Ni", 2.7, 1.4, 0, true},
                {"Cu(II)", 1.5, 0.8, 0, true},  {"Zn", 2.3, 1.3, 0, true},      {"Cd", 2.7, 1.5, 0, true},
                {"Pb", 1.7, 0.9, 0, true},      {"Hg(II)", 0.2, -0.3, 0, true}, {"Al", 1.3, 0.4, 0, true},
                {"U(VI)", 1.3, 0.9, 0, true},   {"Ag", 2.4, 1.7, 0, false}};
    } else if (modelCode == 3) {
        // log KMA for humic and fulvic acid, delta LK2; delta LK1 is one
        // value for all metals.
        dlk1 = 2.8;
        rows = {{"Mg", 0.7, 1.1, 0.12, false},     {"Ca", 0.7, 1.3, 0.00, false},     {"Sr", 1.1, 1.2, 0.00, false},
                {"Ba", -0.2, 0.6, 0.00, false},    {"Mn(II)", 0.6, 1.7, 0.58, true},  {"Fe(II)", 1.3, 1.6, 0.81, true},
                {"Fe(III)", 2.5, 2.4, 2.20, true}, {"Co(II)", 1.1, 1.4, 1.22, true},  {"Ni", 1.1, 1.4, 1.57, true},
                {"Cu(II)", 2.0, 2.1, 2.34, true},  {"Zn", 1.5, 1.6, 1.28, true},      {"Cd", 1.3, 1.6, 1.48, true},
                {"Pb", 2.0, 2.2, 0.93, true},      {"Hg(II)", 3.5, 3.5, 5.10, true},  {"Al", 2.6, 2.5, 0.46, true},
                {"U(VI)", 2.2, 2.1, 1.16, true}};
    } else if (modelCode == 4) {
        rows = {{"Mg", 1.14, 0.99, 0.13, false},     {"Ca", 1.26, 1.13, 0.00, false},    {"Sr", 1.32, 1.12, 0.00, false},
                {"Ba", 1.30, 0.97, 0.00, false},     {"Mn(II)", 1.98, 1.76, 0.58, true}, {"Fe(II)", 1.76, 1.46, 0.81, true},
                {"Fe(III)", 3.37, 3.12, 2.20, true}, {"Co(II)", 1.50, 1.35, 1.22, true}, {"Ni", 1.60, 1.43, 1.57, true},
                {"Cu(II)", 2.38, 2.16, 2.34, true},  {"Zn", 1.87, 1.68, 1.28, true},     {"Cd", 1.67, 1.51, 1.48, true},
                {"Pb", 2.37, 2.15, 0.93, true},      {"Hg(II)", 3.84, 3.51, 5.10, true}, {"Al", 2.82, 2.57, 0.46, true},
                {"U(VI)", 2.61, 2.38, 1.16, true},   {"Ag", 1.44, 1.27, 1.91, true}};
    }
    std::vector<OrganicMetalConstant> out;
    for (int fraction = 0; fraction < 2; ++fraction) {
        for (const Row& r : rows) {
            OrganicMetalConstant c;
            c.metal = r.metal;
            c.fraction = fraction;
            c.logK = fraction == 0 ? r.fa : r.ha;
            c.deltaLK1 = dlk1;
            c.deltaLK2 = r.dlk2;
            c.hydroxoToo = r.hydroxo;
            out.push_back(c);
        }
    }
    return out;
}

}  // namespace dbconvert
