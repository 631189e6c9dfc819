#include "shell/database_view.h"

namespace tormel {

namespace {

std::string ModelSuffix(int32_t modelCode) {
    switch (modelCode) {
        case Model5: return " (Model 5)";
        case Model6: return " (Model 6)";
        case Model7: return " (Model 7)";
        default: return "";
    }
}

std::string Text(const Language& language, const char* key) { return LanguageText(language, "DB_VIEW", key); }

std::string CountLine(const Language& language, size_t count, const char* tailKey) {
    return Text(language, "ListBoxTop456a") + " " + std::to_string(count) + " " + Text(language, tailKey);
}

bool IsValidComponent(const Database& db, int32_t c) { return c >= 0 && c < db.ComponentCount(); }

}  // namespace

DatabaseTree BuildDatabaseTree(const Database& db, const Language& language, int32_t mode) {
    DatabaseTree tree;
    switch (mode) {
        case ViewByComponent: {
            tree.connectingLines = true;
            for (const char* key : {"TV_cat", "TV_lig", "TV_oth"}) tree.items.push_back({Text(language, key), 0, -1});
            tree.expanded = 0;
            for (int32_t c = 0; c < db.ComponentCount(); ++c) {
                const Component& comp = db.components[c];
                const int32_t group = comp.type == ComponentType::Cation   ? 0
                                      : comp.type == ComponentType::Ligand ? 1
                                                                           : 2;
                std::string text = comp.name;
                if (comp.type == ComponentType::Organic) text += ModelSuffix(comp.organicModel);
                tree.items.push_back({std::move(text), c + 1, group});
                if (c == 0) tree.selected = static_cast<int32_t>(tree.items.size()) - 1;
            }
            break;
        }
        case ViewByType:
            for (int32_t t = 1; t <= 7; ++t)
                tree.items.push_back({Text(language, ("EqType" + std::to_string(t)).c_str()), t, -1});
            tree.selected = 0;
            break;
        case ViewByLiterature:
            for (int32_t r = 0; r < db.LiteratureReferenceCount(); ++r)
                tree.items.push_back({db.literature[r], r + 1, -1});
            if (!tree.items.empty()) tree.selected = 0;
            break;
        default: break;
    }
    return tree;
}

EquilibriumLine EquilibriumLineOf(const Database& db, int32_t e) {
    const Equilibrium& eq = db.equilibria[e];
    if (eq.type == EquilibriumType::Organic) return {eq.name + ModelSuffix(eq.organicModel), -1};
    if (eq.type == EquilibriumType::Gas) {
        const int32_t gas = eq.linkedComponent;
        const int32_t ligand = IsValidComponent(db, gas) ? db.components[gas].linkedLigand : -1;
        const std::string ligandName = IsValidComponent(db, ligand) ? db.components[ligand].name : std::string();
        return {ligandName + " / " + eq.name, e};
    }
    return {eq.name, e};
}

DatabaseSelection SelectDatabaseItem(const Database& db, const Language& language, int32_t mode, int32_t number,
                                     const DecimalSeparator& separator) {
    DatabaseSelection selection;
    if (number <= 0) return selection;
    const int32_t count = db.EquilibriumCount();
    switch (mode) {
        case ViewByComponent: {
            const int32_t c = number - 1;
            if (!IsValidComponent(db, c)) break;
            const Component& comp = db.components[c];
            selection.summary.push_back(Text(language, "ListBoxTop1") + " " + comp.name);
            selection.summary.push_back(Text(language, "ListBoxTop2") + " " + std::to_string(comp.charge));
            selection.summary.push_back(
                Text(language, "ListBoxTop3") + " " +
                FormatNumber(static_cast<double>(static_cast<float>(comp.molarMass)), "%2.3f", false, separator));
            for (int32_t e = 0; e < count; ++e) {
                const Equilibrium& eq = db.equilibria[e];
                // only redox and gas equilibria have a linked component; elsewhere 0 means none, not H+
                const bool linked =
                    (eq.type == EquilibriumType::Redox || eq.type == EquilibriumType::Gas) && eq.linkedComponent == c;
                if (eq.componentCount > 0 && (db.Coefficient(c, e) != 0 || linked))
                    selection.lines.push_back(EquilibriumLineOf(db, e));
            }
            selection.summary.push_back(CountLine(language, selection.lines.size(), "ListBoxTop4b") + " " + comp.name);
            break;
        }
        case ViewByType:
            for (int32_t e = 0; e < count; ++e)
                if (CodeOf(db.equilibria[e].type) == number) selection.lines.push_back(EquilibriumLineOf(db, e));
            selection.summary.push_back(CountLine(language, selection.lines.size(), "ListBoxTop5b"));
            break;
        case ViewByLiterature:
            for (int32_t e = 0; e < count; ++e)
                if (db.equilibria[e].literatureRef == number - 1) selection.lines.push_back(EquilibriumLineOf(db, e));
            selection.summary.push_back(CountLine(language, selection.lines.size(), "ListBoxTop6b"));
            break;
        default: break;
    }
    return selection;
}

ReactionDefinition DatabaseReactionDefinition(const Database& db, const Language& language, int32_t e) {
    ReactionDefinition definition;
    if (e < 0 || e >= db.EquilibriumCount()) return definition;
    const Equilibrium& eq = db.equilibria[e];
    bool solidInvolved = false;
    int32_t reactants = 0;
    int32_t products = 0;
    for (int32_t c = 0; c < db.ComponentCount() && reactants + products < eq.componentCount; ++c) {
        const int32_t nu = db.Coefficient(c, e);
        if (nu == 0) continue;
        const Component& comp = db.components[c];
        if (nu > 0) {
            if (reactants < kMaxReactionEntries) definition.reactants[reactants] = {nu, comp.name, comp.charge, ""};
            ++reactants;
        } else {
            if (products < kMaxReactionEntries) definition.products[products] = {-nu, comp.name, comp.charge, ""};
            ++products;
        }
        if (comp.type == ComponentType::RedSol) solidInvolved = true;
    }
    ReactionEntry formed{1, eq.name, eq.charge, ""};
    if (eq.type == EquilibriumType::Redox) {
        if (IsValidComponent(db, eq.linkedComponent)) {
            const Component& linked = db.components[eq.linkedComponent];
            formed.name = linked.name;
            formed.charge = linked.charge;
            if (linked.type == ComponentType::RedSol) solidInvolved = true;
        }
    } else if (eq.type == EquilibriumType::Gas) {
        // the phase label replaces the "(g)" of the name, with or without a blank before it
        const size_t label = eq.name.rfind("(g)");
        if (label != std::string::npos) {
            formed.name = eq.name.substr(0, label);
            while (!formed.name.empty() && formed.name.back() == ' ') formed.name.pop_back();
            formed.phase = "(g)";
        }
    } else if (eq.type != EquilibriumType::Solid && eq.charge == 0) {
        formed.phase = "(aq)";
    }
    if (products < kMaxReactionEntries) definition.products[products] = std::move(formed);
    definition.logK = eq.logK;
    if (eq.type == EquilibriumType::Water)
        definition.note = LanguageText(language, "EQDEF", "AddInfoWater");
    else if (eq.type == EquilibriumType::Solid || solidInvolved)
        definition.note = LanguageText(language, "EQDEF", "AddInfoSolid");
    if (eq.literatureRef >= 0 && eq.literatureRef < db.LiteratureReferenceCount())
        definition.literature = db.literature[eq.literatureRef];
    return definition;
}

}  // namespace tormel
