// Every component, species, solid and gas that the reference speciation
// cases (tests/data/reference/*.json) name must exist in the shipped database
// under the naming rule: components by their master species formula without
// charge (Ca, CO3, Hfo_wOH) or with the oxidation state in Roman numerals
// (Fe(II), Cu(II)); species by formula and charge.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <vector>

#include "real_database_support.h"

namespace tormel {
namespace {

using test::FindEquilibrium;
using test::Real;

// Just enough JSON for the case files: objects, arrays, strings, numbers,
// true, false, null.
struct Json {
    enum Kind { Null, Bool, Number, String, Array, Object } kind = Null;
    std::string text;
    std::vector<Json> items;
    std::vector<std::pair<std::string, Json>> members;
    const Json* Get(const std::string& key) const {
        for (const auto& [k, v] : members)
            if (k == key) return &v;
        return nullptr;
    }
};

class JsonReader {
public:
    explicit JsonReader(std::string text) : s_(std::move(text)) {}
    bool Parse(Json& out) {
        bool ok = Value(out);
        Space();
        return ok && p_ == s_.size();
    }

private:
    std::string s_;
    size_t p_ = 0;
    void Space() {
        while (p_ < s_.size() && std::isspace(static_cast<unsigned char>(s_[p_]))) ++p_;
    }
    bool Str(std::string& out) {
        if (s_[p_] != '"') return false;
        ++p_;
        while (p_ < s_.size() && s_[p_] != '"') {
            if (s_[p_] == '\\' && p_ + 1 < s_.size()) {
                char c = s_[++p_];
                if (c == 'u') {
                    out += '?';  // names in the cases are ASCII
                    p_ += 4;
                } else {
                    out += c == 'n' ? '\n' : c == 't' ? '\t' : c;
                }
                ++p_;
            } else {
                out += s_[p_++];
            }
        }
        if (p_ >= s_.size()) return false;
        ++p_;
        return true;
    }
    bool Value(Json& v) {
        Space();
        if (p_ >= s_.size()) return false;
        char c = s_[p_];
        if (c == '{') {
            v.kind = Json::Object;
            ++p_;
            Space();
            if (s_[p_] == '}') return ++p_, true;
            while (true) {
                Space();
                std::string key;
                if (!Str(key)) return false;
                Space();
                if (s_[p_++] != ':') return false;
                Json member;
                if (!Value(member)) return false;
                v.members.emplace_back(key, std::move(member));
                Space();
                if (s_[p_] == ',') { ++p_; continue; }
                if (s_[p_] == '}') return ++p_, true;
                return false;
            }
        }
        if (c == '[') {
            v.kind = Json::Array;
            ++p_;
            Space();
            if (s_[p_] == ']') return ++p_, true;
            while (true) {
                Json item;
                if (!Value(item)) return false;
                v.items.push_back(std::move(item));
                Space();
                if (s_[p_] == ',') { ++p_; continue; }
                if (s_[p_] == ']') return ++p_, true;
                return false;
            }
        }
        if (c == '"') {
            v.kind = Json::String;
            return Str(v.text);
        }
        size_t start = p_;
        while (p_ < s_.size() && (std::isalnum(static_cast<unsigned char>(s_[p_])) || s_[p_] == '-' ||
                                  s_[p_] == '+' || s_[p_] == '.'))
            ++p_;
        v.text = s_.substr(start, p_ - start);
        if (v.text == "true" || v.text == "false") v.kind = Json::Bool;
        else if (v.text == "null") v.kind = Json::Null;
        else v.kind = Json::Number;
        return !v.text.empty();
    }
};

std::vector<std::pair<std::string, Json>> LoadCases() {
    std::vector<std::pair<std::string, Json>> cases;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(std::string(TORMEL_TEST_DATA) + "/reference"))
        if (entry.path().extension() == ".json") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const auto& f : files) {
        std::ifstream in(f);
        std::stringstream text;
        text << in.rdbuf();
        Json j;
        EXPECT_TRUE(JsonReader(text.str()).Parse(j)) << f;
        cases.emplace_back(f.filename().string(), std::move(j));
    }
    return cases;
}

// "Fe+3" -> ("Fe", 3); "HCO3-" -> ("HCO3", -1).
std::pair<std::string, int> SplitCharge(const std::string& name) {
    size_t p = name.size();
    while (p > 0 && std::isdigit(static_cast<unsigned char>(name[p - 1]))) --p;
    if (p > 0 && (name[p - 1] == '+' || name[p - 1] == '-')) {
        int z = p < name.size() ? std::stoi(name.substr(p)) : 1;
        return {name.substr(0, p - 1), name[p - 1] == '+' ? z : -z};
    }
    return {name, 0};
}

std::string Roman(int v) {
    static const char* r[] = {"0", "I", "II", "III", "IV", "V", "VI", "VII"};
    return v >= 0 && v <= 7 ? r[v] : "?";
}

// The component that a free species of the cases stands for, or -1.
int ComponentOfFreeSpecies(const ChemicalSystem& chem, const std::string& species) {
    if (species == "H+") return chem.hydrogenIndex;
    if (species == "OH-") return chem.hydroxideIndex;
    auto [formula, z] = SplitCharge(species);
    for (const std::string& name : {formula, formula + "(" + Roman(z) + ")"}) {
        int c = chem.FindComponent(name);
        if (c >= 0 && chem.components[c].charge == z) return c;
    }
    return -1;
}

bool IsComponentOfType(const ChemicalSystem& chem, const std::string& name, std::initializer_list<int> types) {
    int c = chem.FindComponent(name);
    if (c < 0) return false;
    for (int t : types)
        if (chem.components[c].type == t) return true;
    return false;
}

TEST(RealDatabase, EveryNameOfTheReferenceCasesExists) {
    const ChemicalSystem& chem = Real().chem;
    ASSERT_TRUE(Real().error.empty()) << Real().error;
    auto cases = LoadCases();
    ASSERT_EQ(cases.size(), 13u);
    size_t checked = 0;
    for (const auto& [file, c] : cases) {
        SCOPED_TRACE(file);
        if (const Json* totals = c.Get("totals_mol_L"))
            for (const auto& [name, value] : totals->members) {
                EXPECT_TRUE(IsComponentOfType(chem, name, {Cation, Ligand})) << "component " << name;
                ++checked;
            }
        if (const Json* groups = c.Get("redox_groups"))
            for (const Json& g : groups->items) {
                std::vector<int> members;
                for (const Json& m : g.Get("members")->items) {
                    int k = chem.FindComponent(m.text);
                    EXPECT_GE(k, 0) << "redox member " << m.text;
                    if (k >= 0) members.push_back(k);
                    ++checked;
                }
                // The members form one redox group in the loaded database.
                for (size_t i = 1; i < members.size(); ++i) {
                    int a = std::min(members[i - 1], members[i]), b = std::max(members[i - 1], members[i]);
                    int walk = a;
                    while (walk != 0 && walk != b) walk = chem.components[walk].redoxNext;
                    EXPECT_EQ(walk, b) << chem.components[a].name << " and " << chem.components[b].name;
                }
            }
        if (const Json* gases = c.Get("gas_ligands"))
            for (const auto& [gas, ligand] : gases->members) {
                int g = chem.FindComponent(gas);
                ASSERT_GE(g, 0) << "gas " << gas;
                EXPECT_EQ(chem.components[g].type, Gas);
                EXPECT_EQ(chem.components[g].linkedLigand, chem.FindComponent(ligand.text)) << gas;
                ++checked;
            }
        if (const Json* ads = c.Get("adsorbent"))
            for (const auto& [site, value] : ads->Get("sites_mol_L")->members) {
                EXPECT_TRUE(IsComponentOfType(chem, site, {Ads})) << "site " << site;
                ++checked;
            }
        const Json* expected = c.Get("expected");
        ASSERT_NE(expected, nullptr);
        if (const Json* species = expected->Get("species"))
            for (const auto& [name, value] : species->members) {
                auto [formula, z] = SplitCharge(name);
                bool found = FindEquilibrium(chem, EqComplex, formula, z) >= 0 ||
                             ComponentOfFreeSpecies(chem, name) >= 0;
                EXPECT_TRUE(found) << "species " << name;
                ++checked;
            }
        if (const Json* species = expected->Get("adsorbed_species"))
            for (const auto& [name, value] : species->members) {
                auto [formula, z] = SplitCharge(name);
                bool found = FindEquilibrium(chem, EqAdsorption, formula, z) >= 0 ||
                             IsComponentOfType(chem, name, {Ads});
                EXPECT_TRUE(found) << "adsorbed species " << name;
                ++checked;
            }
        if (const Json* totals = expected->Get("adsorbed_totals_mol_L"))
            for (const auto& [name, value] : totals->members) {
                EXPECT_GE(chem.FindComponent(name), 0) << "component " << name;
                ++checked;
            }
        std::vector<std::string> solids;
        if (const Json* si = expected->Get("saturation_indices"))
            for (const auto& [name, value] : si->members) solids.push_back(name);
        if (const Json* allowed = c.Get("solids_allowed"))
            for (const Json& s : allowed->items) solids.push_back(s.text);
        for (const std::string& name : solids) {
            bool found = FindEquilibrium(chem, EqSolid, name) >= 0 || FindEquilibrium(chem, EqGas, name) >= 0;
            EXPECT_TRUE(found) << "solid or gas " << name;
            ++checked;
        }
    }
    EXPECT_GT(checked, 300u);
}

}  // namespace
}  // namespace tormel
