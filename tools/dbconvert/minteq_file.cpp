#include "minteq_file.h"

#include <cctype>
#include <sstream>

#include "core/c_number.h"

namespace dbconvert {

namespace {

std::string Trim(const std::string& s) {
    size_t b = 0, e = s.size();
    while (b < e && std::isspace(static_cast<unsigned char>(s[b]))) ++b;
    while (e > b && std::isspace(static_cast<unsigned char>(s[e - 1]))) --e;
    return s.substr(b, e - b);
}

std::vector<std::string> Tokens(const std::string& s) {
    std::istringstream in(s);
    std::vector<std::string> out;
    std::string t;
    while (in >> t) out.push_back(t);
    return out;
}

std::optional<double> Number(const std::string& s) { return tormel::ParseDoubleC(s); }

bool StartsWithNumber(const std::string& s) {
    return !s.empty() && (std::isdigit(static_cast<unsigned char>(s[0])) || s[0] == '.');
}

enum class Section { None, Master, Species, Phases, SurfaceMaster, SurfaceSpecies, Other };

Section SectionOf(const std::string& keyword) {
    if (keyword == "SOLUTION_MASTER_SPECIES") return Section::Master;
    if (keyword == "SOLUTION_SPECIES") return Section::Species;
    if (keyword == "PHASES") return Section::Phases;
    if (keyword == "SURFACE_MASTER_SPECIES") return Section::SurfaceMaster;
    if (keyword == "SURFACE_SPECIES") return Section::SurfaceSpecies;
    return Section::Other;
}

bool IsKeyword(const std::string& line) {
    static const char* keywords[] = {"SOLUTION_MASTER_SPECIES", "SOLUTION_SPECIES", "PHASES", "SURFACE_MASTER_SPECIES",
                                     "SURFACE_SPECIES", "EXCHANGE_MASTER_SPECIES", "EXCHANGE_SPECIES", "RATES",
                                     "END", "LLNL_AQUEOUS_MODEL_PARAMETERS", "NAMED_EXPRESSIONS"};
    for (const char* k : keywords)
        if (line == k) return true;
    return false;
}

// Value of a source comment such as "#        log K source:        NIST46.4".
std::optional<std::string> CommentField(const std::string& comment, const std::string& label) {
    size_t p = comment.find(label);
    if (p == std::string::npos) return std::nullopt;
    return Trim(comment.substr(p + label.size()));
}

// Enthalpy in J/mol from the tokens after "delta_h".
std::optional<double> ParseEnthalpy(const std::vector<std::string>& tokens) {
    if (tokens.size() < 2) return std::nullopt;
    auto value = Number(tokens[1]);
    if (!value) return std::nullopt;
    std::string unit = tokens.size() > 2 ? tokens[2] : "kJ";
    for (auto& c : unit) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (unit.rfind("kcal", 0) == 0) return *value * 4184.0;
    if (unit.rfind("kj", 0) == 0) return *value * 1000.0;
    if (unit.rfind("cal", 0) == 0) return *value * 4.184;
    if (unit.rfind("j", 0) == 0) return *value;
    return std::nullopt;
}

}  // namespace

std::optional<Reaction> ParseReaction(const std::string& text) {
    size_t eq = text.find('=');
    if (eq == std::string::npos || text.find('=', eq + 1) != std::string::npos) return std::nullopt;
    Reaction reaction;
    for (int side = 0; side < 2; ++side) {
        std::string part = side == 0 ? text.substr(0, eq) : text.substr(eq + 1);
        auto& terms = side == 0 ? reaction.left : reaction.right;
        double pending = 1;
        bool havePending = false;
        bool expectTerm = true;
        for (const std::string& tok : Tokens(part)) {
            if (tok == "+") {
                if (expectTerm) return std::nullopt;
                expectTerm = true;
                continue;
            }
            if (!expectTerm) return std::nullopt;
            if (StartsWithNumber(tok)) {
                size_t used = 0;
                double v = tormel::StrToDoubleC(tok, &used);
                if (used == tok.size()) {
                    if (havePending) return std::nullopt;
                    pending = v;
                    havePending = true;
                    continue;
                }
                // A coefficient written onto the species: "3H2O".
                terms.push_back({tok.substr(used), v});
            } else {
                terms.push_back({tok, havePending ? pending : 1.0});
            }
            pending = 1;
            havePending = false;
            expectTerm = false;
        }
        if (expectTerm || havePending) return std::nullopt;
    }
    return reaction;
}

MinteqData ParseMinteqText(const std::string& text) {
    MinteqData data;
    std::istringstream in(text);
    std::string raw;
    int lineNo = 0;
    Section section = Section::None;
    DataEntry* current = nullptr;
    std::string pendingPhaseName;
    int pendingPhaseLine = 0;

    auto problem = [&](const std::string& what) {
        data.problems.push_back("line " + std::to_string(lineNo) + ": " + what);
    };

    while (std::getline(in, raw)) {
        ++lineNo;
        if (!raw.empty() && raw.back() == '\r') raw.pop_back();
        std::string line = Trim(raw);
        if (line.empty()) continue;

        if (line[0] == '#') {
            if (current) {
                if (auto v = CommentField(line, "log K source:")) current->logKSource = *v;
                else if (auto h = CommentField(line, "Delta H source:")) current->enthalpySource = *h;
            }
            continue;
        }
        // Strip a trailing comment.
        size_t hash = line.find('#');
        if (hash != std::string::npos) line = Trim(line.substr(0, hash));
        if (line.empty()) continue;

        if (IsKeyword(line)) {
            section = SectionOf(line);
            current = nullptr;
            pendingPhaseName.clear();
            continue;
        }

        std::vector<std::string> tokens = Tokens(line);
        std::string key = tokens[0];
        if (!key.empty() && key[0] == '-') key = key.substr(1);

        switch (section) {
            case Section::Master: {
                if (tokens.size() < 4) {
                    problem("master species line with fewer than four fields");
                    break;
                }
                MasterSpeciesLine m;
                m.line = lineNo;
                m.element = tokens[0];
                m.species = tokens[1];
                m.gfwFormula = tokens[3];
                if (tokens.size() > 4) m.elementGfw = Number(tokens[4]);
                data.masters.push_back(m);
                break;
            }
            case Section::SurfaceMaster: {
                if (tokens.size() < 2) {
                    problem("surface master species line with fewer than two fields");
                    break;
                }
                data.surfaceMasters.push_back({tokens[0], tokens[1]});
                break;
            }
            case Section::Species:
            case Section::SurfaceSpecies:
            case Section::Phases: {
                bool isPhases = section == Section::Phases;
                if (line.find('=') != std::string::npos && key != "log_k" && key != "delta_h") {
                    auto reaction = ParseReaction(line);
                    if (!reaction) {
                        problem("unreadable reaction \"" + line + "\"");
                        current = nullptr;
                        break;
                    }
                    auto& list = isPhases ? data.phases
                                          : (section == Section::Species ? data.solutionSpecies : data.surfaceSpecies);
                    DataEntry entry;
                    entry.line = lineNo;
                    entry.reaction = *reaction;
                    if (isPhases) {
                        if (pendingPhaseName.empty()) {
                            problem("reaction without a phase name");
                            current = nullptr;
                            break;
                        }
                        entry.phaseName = pendingPhaseName;
                        entry.line = pendingPhaseLine;
                        entry.isGas = pendingPhaseName.size() > 3 &&
                                      pendingPhaseName.compare(pendingPhaseName.size() - 3, 3, "(g)") == 0;
                        pendingPhaseName.clear();
                    }
                    list.push_back(entry);
                    current = &list.back();
                    break;
                }
                if (key == "log_k" || key == "logk") {
                    if (!current || tokens.size() < 2 || !Number(tokens[1])) problem("log_k without a value or a reaction");
                    else current->logK = Number(tokens[1]);
                    break;
                }
                if (key == "delta_h" || key == "deltah") {
                    if (!current) problem("delta_h without a reaction");
                    else if (auto h = ParseEnthalpy(tokens)) current->enthalpy = h;
                    else problem("unreadable delta_h");
                    break;
                }
                if (key == "analytic" || key == "analytical_expression" || key == "a_e") {
                    if (current) current->analytic = true;
                    break;
                }
                if (tokens[0][0] == '-') break;  // -gamma, -no_check, -mole_balance ...: not needed
                if (isPhases && tokens.size() == 1) {
                    pendingPhaseName = tokens[0];
                    pendingPhaseLine = lineNo;
                    current = nullptr;
                    break;
                }
                problem("unexpected line \"" + line + "\"");
                break;
            }
            default:
                break;
        }
    }
    return data;
}

}  // namespace dbconvert
