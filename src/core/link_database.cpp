#include <set>
#include <vector>

#include "core/database_files.h"

namespace tormel {

namespace {

void LinkGases(Database& chem) {
    for (const int32_t e : EquilibriaOfType(chem, EquilibriumType::Gas)) {
        const Equilibrium& q = chem.equilibria[static_cast<size_t>(e)];
        for (int32_t c = 0; c < chem.ComponentCount(); ++c) {
            if (chem.Coefficient(c, e) > 0 && chem.components[static_cast<size_t>(c)].type == ComponentType::Ligand) {
                chem.components[static_cast<size_t>(c)].gasPartner = q.linkedComponent;
                chem.components[static_cast<size_t>(q.linkedComponent)].linkedLigand = c;
                break;
            }
        }
    }
}

// The component a redox equilibrium turns its linked component into: the
// first one that is neither H+ nor the electron.
int32_t RedoxPartner(const Database& chem, int32_t e) {
    for (int32_t c = 0; c < chem.ComponentCount(); ++c) {
        if (c == chem.hydrogenIndex || c == chem.electronIndex) continue;
        if (chem.Coefficient(c, e) != 0) return c;
    }
    return 0;
}

void LinkRedoxGroups(Database& chem) {
    std::vector<int32_t> redox;
    for (const int32_t e : EquilibriaOfType(chem, EquilibriumType::Redox)) redox.push_back(e);
    std::vector<bool> visited(redox.size(), false);
    for (size_t a = 0; a < redox.size(); ++a) {
        if (visited[a]) continue;
        visited[a] = true;
        std::set<int32_t> group = {chem.equilibria[static_cast<size_t>(redox[a])].linkedComponent,
                                   RedoxPartner(chem, redox[a])};
        for (size_t b = a + 1; b < redox.size(); ++b) {
            int32_t linked = chem.equilibria[static_cast<size_t>(redox[b])].linkedComponent;
            int32_t partner = RedoxPartner(chem, redox[b]);
            if (group.count(linked)) {
                group.insert(partner);
                visited[b] = true;
            } else if (group.count(partner)) {
                group.insert(linked);
                visited[b] = true;
            }
        }
        std::vector<int32_t> members(group.begin(), group.end());  // ascending index order
        for (size_t k = 0; k < members.size(); ++k) {
            Component& member = chem.components[static_cast<size_t>(members[k])];
            member.redoxPrev = k == 0 ? 0 : members[k - 1];
            member.redoxNext = k + 1 == members.size() ? 0 : members[k + 1];
        }
    }
}

}  // namespace

void LinkDatabase(Database& chem) {
    LinkGases(chem);
    LinkRedoxGroups(chem);
    chem.equilibriumIndex = std::make_shared<const EquilibriumIndex>(chem);
    chem.componentNames = std::make_shared<const ComponentNameIndex>(chem.components);
}

}  // namespace tormel
