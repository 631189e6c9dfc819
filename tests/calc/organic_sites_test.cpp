// The sites and species the assembly builds for each organic model: totals,
// names, kinds, constants and the fractions that take part.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "calc/assemble_system.h"
#include "calc/organic_model.h"
#include "calc/organic_test_support.h"
#include "calc/solver.h"

namespace tormel::test {

namespace {

bool Assemble(OrganicWater& w) {
    CalcContext ctx{w.chem, w.input, w.state};
    return AssembleSystem(ctx).assembled;
}

// A water with copper and calcium at pH 7, assembled but not solved.
OrganicWater CopperWater(int32_t model, double doc, double fulvic) {
    OrganicWater w(model, doc, fulvic);
    if (!w.ok) return w;
    w.FixPh(7);
    w.SetTotals({{"Ca", 1e-3}, {"Cu(II)", 1e-7}, {"NO3", 2e-3}});
    EXPECT_TRUE(Assemble(w));
    return w;
}

double LogKOf(const OrganicWater& w, const std::string& name) {
    const int32_t s = w.SpeciesIndex(name);
    EXPECT_GE(s, 0) << name;
    return s < 0 ? NAN : w.chem.species[s].logK;
}

constexpr double kDoc = 8;        // mg C/L
constexpr double kFulvic = 0.6;

}  // namespace

// The site totals of each fraction: every site component stands for one of
// the eight sites; summed by type they give n_A C and n_B C. In Model 6 the
// two repeated triples (3,4,6) and (1,3,7) take the places of (2,7,8) and
// (3,5,7): each of the four triples of that group holds p_t n_A C / 36 per
// site, so two type-B sites become type-A sites, and type A holds
// p_t n_A C / 18 more than n_A C, type B as much less; the whole is kept.
// Site components per fraction: 8 singles, pairs x 2 (x 3 levels), triples
// x 3 (x 3 levels); each combination gets one species per metal equilibrium.
TEST(OrganicSites, ComponentsSpeciesAndTotalsOfEachModel) {
    const std::map<int32_t, size_t> components = {{Model5, 8 + 12 * 2}, {Model6, 8 + 8 * 3 * 2 + 16 * 3 * 3},
                                                  {Model7, 8 + 6 * 3 * 2 + 8 * 3 * 3}};
    const std::map<int32_t, int32_t> combinations = {{Model5, 8 + 12}, {Model6, 8 + 8 * 3 + 16 * 3},
                                                     {Model7, 8 + 6 * 3 + 8 * 3}};
    for (int32_t model = Model5; model <= Model7; ++model) {
        OrganicWater w = CopperWater(model, kDoc, kFulvic);
        ASSERT_TRUE(w.ok);
        for (int32_t f = 0; f < 2; ++f) {
            SCOPED_TRACE(testing::Message() << "model " << model << " fraction " << f);
            const OrganicFraction& fr = w.state.organic.fractions[f];
            ASSERT_TRUE(fr.present);
            const double c = kDoc * (f == 0 ? kFulvic : 1 - kFulvic) / 1000;
            EXPECT_DOUBLE_EQ(fr.concentration, c);
            EXPECT_EQ(fr.sites.size(), components.at(model));
            EXPECT_EQ(static_cast<int32_t>(fr.combinations.size()), combinations.at(model));
            // Ca, Cu and CuOH (Ca has no hydrolysed equilibrium)
            ASSERT_EQ(fr.metals.size(), 3u);
            for (const OrganicMetalBlock& block : fr.metals) EXPECT_EQ(block.speciesCount, combinations.at(model));
            double typeA = 0, typeB = 0;
            for (const OrganicSite& site : fr.sites) {
                const SystemComponent& sc = w.chem.systemComponents[site.component];
                (site.site <= 4 ? typeA : typeB) += sc.givenValue;
                EXPECT_EQ(w.chem.species[site.freeSpecies].charge, -1);
                EXPECT_EQ(w.chem.species[site.protonatedSpecies].charge, 0);
                EXPECT_EQ(sc.type, ComponentType::Organic);
                EXPECT_EQ(sc.balanceKind, InputType::TotalConc);
            }
            const OrganicParameters& p = fr.parameters;
            const double shift = model == Model6 ? p.tripleShare * p.nA * c / 18 : 0.0;
            EXPECT_NEAR(typeA, p.nA * c + shift, 1e-12 * p.nA * c);
            EXPECT_NEAR(typeB, p.nB * c - shift, 1e-12 * p.nA * c);
            EXPECT_NEAR(typeA + typeB, (p.nA + p.nB) * c, 1e-12 * p.nA * c);
        }
    }
}

TEST(OrganicSites, NamesKindsAndConstants) {
    OrganicWater w = CopperWater(Model7, kDoc, kFulvic);
    ASSERT_TRUE(w.ok);
    const OrganicParameters& fa = w.state.organic.fractions[0].parameters;  // pK_A 3.7, dpK_A 3.1, pK_B 9.6, dpK_B 4.4
    EXPECT_NEAR(LogKOf(w, "H-FA7-1"), fa.pKA - fa.deltaPKA / 2, 1e-12);     // 2.15
    EXPECT_NEAR(LogKOf(w, "H-FA7-8"), fa.pKB + fa.deltaPKB / 2, 1e-12);     // 11.8
    EXPECT_NEAR(LogKOf(w, "H-FA7-6"), fa.pKB - fa.deltaPKB / 6, 1e-12);
    // a pair member carries the constant of its site: pair 3 is (1,5)
    EXPECT_NEAR(LogKOf(w, "H-FA7-bi-3-B-b"), LogKOf(w, "H-FA7-5"), 1e-12);
    // Cu on fulvic acid, Model 7: log K_MA 2.16, Delta LK2 2.34
    const double a = 2.16, b = 2.16 * fa.pKB / fa.pKA;
    EXPECT_NEAR(LogKOf(w, "Cu(II)-FA7-mono-2"), a, 1e-12);
    EXPECT_NEAR(LogKOf(w, "Cu(II)-FA7-mono-7"), b, 1e-12);
    EXPECT_NEAR(LogKOf(w, "Cu(II)-FA7-bi-3-B"), a + b + 2.34, 1e-12);          // (1,5), level 1
    EXPECT_NEAR(LogKOf(w, "Cu(II)-FA7-tri-1-C"), 2 * a + b + 1.5 * 2 * 2.34, 1e-12);  // (1,2,5), level 2
    // kinds (as the result files hold them) and charges of the fulvic block (49..60) and the humic block (61..72)
    const Species& mono = w.chem.species[w.SpeciesIndex("Cu(II)-FA7-mono-2")];
    const Species& bi = w.chem.species[w.SpeciesIndex("Cu(II)-FA7-bi-3-B")];
    const Species& tri = w.chem.species[w.SpeciesIndex("Cu(II)OH-HA7-tri-4-A")];
    EXPECT_EQ(CodeOf(mono.kind), 55);
    EXPECT_EQ(mono.charge, 1);
    EXPECT_EQ(CodeOf(bi.kind), 57);
    EXPECT_EQ(bi.charge, 0);
    EXPECT_EQ(CodeOf(tri.kind), 72);
    EXPECT_EQ(tri.charge, -2);
    EXPECT_EQ(CodeOf(w.chem.species[w.SpeciesIndex("free HA7-bi-1-A-a")].kind), 62);
    EXPECT_EQ(CodeOf(w.chem.species[w.SpeciesIndex("H-HA7-tri-2-B-c")].kind), 66);
    // the hydrolysed species use the activity of CuOH+
    EXPECT_EQ(w.chem.species[tri.organicFields[0]].name, "CuOH");

    // Model 5: exchange constants from pK_MHA (Cu: fulvic 0.8, humic 1.5)
    OrganicWater m5 = CopperWater(Model5, kDoc, kFulvic);
    EXPECT_NEAR(LogKOf(m5, "Cu(II)-FA5-mono-1"), -0.8, 1e-12);
    EXPECT_NEAR(LogKOf(m5, "Cu(II)-FA5-mono-6"), -3.96 * 0.8, 1e-12);
    EXPECT_NEAR(LogKOf(m5, "Cu(II)-HA5-mono-6"), 3 - 3 * 1.5, 1e-12);
    EXPECT_NEAR(LogKOf(m5, "Cu(II)-FA5-bi-3"), -0.8 - 3.96 * 0.8, 1e-12);  // pair 3 is (1,6)
    EXPECT_EQ(CodeOf(m5.chem.species[m5.SpeciesIndex("Cu(II)-HA5-bi-3")].kind), 23);

    // Model 6: spread Delta LK1 2.8 over the single sites (Cu fulvic log K_MA 2.1)
    OrganicWater m6 = CopperWater(Model6, kDoc, kFulvic);
    EXPECT_NEAR(LogKOf(m6, "Cu(II)-FA6-mono-1"), 2.1 - 2.8 / 2, 1e-12);
    EXPECT_NEAR(LogKOf(m6, "Cu(II)-FA6-mono-8"), 3.39 * 2.1 - 1.15 + 2.8 / 2, 1e-12);
}

// Model 6 lists (3,4,6) and (1,3,7) twice; each entry gets its own
// components and species.
TEST(OrganicSites, Model6RepeatedTriples) {
    OrganicWater w = CopperWater(Model6, kDoc, kFulvic);
    ASSERT_TRUE(w.ok);
    const auto& triples = OrganicTriples(Model6);
    ASSERT_EQ(triples.size(), 16u);
    EXPECT_EQ(triples[5], triples[9]);   // (3,4,6)
    EXPECT_EQ(triples[6], triples[10]);  // (1,3,7)
    for (int32_t n : {6, 10}) {
        for (const char* member : {"a", "b", "c"}) {
            const std::string name = "FA6-tri-" + std::to_string(n) + "-B-" + member;
            EXPECT_GE(w.SystemIndexOf(name), 0) << name;
        }
        EXPECT_GE(w.SpeciesIndex("Cu(II)-FA6-tri-" + std::to_string(n) + "-A"), 0);
    }
    EXPECT_DOUBLE_EQ(LogKOf(w, "Cu(II)-FA6-tri-6-B"), LogKOf(w, "Cu(II)-FA6-tri-10-B"));
}

TEST(OrganicSites, FulvicFractionZeroOrOneGivesOneFraction) {
    for (int32_t model = Model5; model <= Model7; ++model)
        for (double fulvic : {0.0, 1.0}) {
            OrganicWater w = CopperWater(model, kDoc, fulvic);
            ASSERT_TRUE(w.ok);
            const int32_t kept = fulvic == 1.0 ? 0 : 1;
            EXPECT_TRUE(w.state.organic.fractions[kept].present);
            EXPECT_FALSE(w.state.organic.fractions[1 - kept].present);
            for (const Species& sp : w.chem.species) {
                const int32_t f = FractionOfKind(sp.kind);
                if (f >= 0) { EXPECT_EQ(f, kept) << sp.name; }
            }
            const std::string absentPrefix = kept == 0 ? "HA" : "FA";
            for (const SystemComponent& sc : w.chem.systemComponents)
                if (sc.type == ComponentType::Organic) { EXPECT_NE(sc.name.substr(0, 2), absentPrefix) << sc.name; }
            const CalculationOutcome out = w.Run();
            EXPECT_TRUE(out.solve.converged) << out.solve.message;
            EXPECT_EQ(w.state.organic.fractions[1 - kept].volume, 0);
            EXPECT_GT(w.state.organic.fractions[kept].volume, 0);
        }
}

// Without organic carbon nothing organic is assembled, the solver keeps its
// inorganic update (with Newton steps) and the whole volume is bulk solution.
TEST(OrganicSites, NoCarbonNoOrganicMatter) {
    OrganicWater w = CopperWater(Model7, 0, 0.5);
    ASSERT_TRUE(w.ok);
    for (const SystemComponent& sc : w.chem.systemComponents) EXPECT_NE(sc.type, ComponentType::Organic) << sc.name;
    for (const Species& sp : w.chem.species) EXPECT_FALSE(IsOrganicKind(sp.kind)) << sp.name;
    const CalculationOutcome out = w.Run();
    ASSERT_TRUE(out.solve.converged) << out.solve.message;
    CalcContext ctx{w.chem, w.input, w.state};
    EXPECT_FALSE(OrganicModelActive(ctx));
    EXPECT_EQ(w.state.bulkFraction, 1.0);
    for (const SystemComponent& sc : w.chem.systemComponents) {
        EXPECT_EQ(sc.boundOrganic, 0) << sc.name;
        for (double amount : sc.organicClassSums) EXPECT_EQ(amount, 0) << sc.name;
    }
}

}  // namespace tormel::test
