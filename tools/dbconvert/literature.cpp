#include "literature.h"

#include <algorithm>

namespace dbconvert {

const char* const kCitationNoSource =
    "MINTEQA2 v4 thermodynamic database (U.S. EPA; minteq.v4.dat as distributed with PHREEQC); "
    "no source given for this constant";

const char* const kCitationSurface =
    "Dzombak D.A., Morel F.M.M. (1990) Surface Complexation Modeling: Hydrous Ferric Oxide. "
    "Wiley-Interscience, New York (surface constants as in the MINTEQA2 v4 database)";

const char* const kCitationOrganicModel5 =
    "Tipping E., Hurley M.A. (1992) Geochim. Cosmochim. Acta 56, 3627-3641 (FA); Tipping E. (1993) "
    "Colloids Surf. A 73, 117-131 (HA): humic ion-binding Model V; values as in WHAM_V.wdat of "
    "BLMEngineInR (Windward Environmental)";

const char* const kCitationOrganicModel6 =
    "Tipping E. (1998) Humic Ion-Binding Model VI: an improved description of the interactions of protons "
    "and metal ions with humic substances. Aquat. Geochem. 4, 3-48; values as in WHAM_VI.wdat of "
    "BLMEngineInR (Windward Environmental)";

const char* const kCitationOrganicModel7 =
    "Tipping E., Lofts S., Sonke J.E. (2011) Humic Ion-Binding Model VII: a revised parameterisation of "
    "cation-binding by humic substances. Environ. Chem. 8, 225-235; values as in WHAM_VII.wdat of "
    "BLMEngineInR (Windward Environmental)";

namespace {

std::string Nist46(const std::string& version) {
    return "Smith R.M., Martell A.E., Motekaitis R.J.: NIST Critically Selected Stability Constants of Metal "
           "Complexes Database, NIST Standard Reference Database 46, Version " +
           version + ". NIST, Gaithersburg, MD (as cited in the MINTEQA2 v4 database)";
}

std::string ScDatabase(const std::string& version, const std::string& original) {
    std::string text = "Pettit L.D., Powell K.J.: IUPAC Stability Constants Database (SC-Database), version " + version +
                       ". Academic Software and IUPAC";
    if (!original.empty()) text += "; original reference " + original;
    return text + " (as cited in the MINTEQA2 v4 database)";
}

}  // namespace

std::string CitationForSourceCode(const std::string& code, bool* resolved) {
    if (resolved) *resolved = true;
    if (code == "NIST46.2") return Nist46("2.0");
    if (code == "NIST46.3") return Nist46("3.0");
    if (code == "NIST46.4") return Nist46("4.0");
    if (code == "Bard85")
        return "Bard A.J., Parsons R., Jordan J. (eds.) (1985) Standard Potentials in Aqueous Solution. "
               "Marcel Dekker, New York (as cited in the MINTEQA2 v4 database)";
    if (code == "Nord90")
        return "Nordstrom D.K., Plummer L.N., Langmuir D., Busenberg E., May H.M., Jones B.F., Parkhurst D.L. (1990) "
               "Revised chemical equilibrium data for major water-mineral reactions and their limitations. "
               "ACS Symp. Ser. 416, 398-413";
    if (code == "MTQ3.11")
        return "Allison J.D., Brown D.S., Novo-Gradac K.J. (1991) MINTEQA2/PRODEFA2, a geochemical assessment model "
               "for environmental systems: version 3.0 user's manual. EPA/600/3-91/021, U.S. EPA, Athens, GA "
               "(database of MINTEQA2 3.11)";
    if (code.rfind("SCD2.62", 0) == 0 || code.rfind("SCD3.02", 0) == 0) {
        std::string version = code.substr(3, 4);
        std::string original;
        size_t open = code.find('('), close = code.rfind(')');
        if (open != std::string::npos && close != std::string::npos && close > open)
            original = code.substr(open + 1, close - open - 1);
        return ScDatabase(version, original);
    }
    if (resolved) *resolved = false;
    return "Source code \"" + code + "\" of the MINTEQA2 v4 database (minteq.v4.dat); full citation not resolved";
}

LiteratureTable::LiteratureTable() { Add(kCitationNoSource); }

int LiteratureTable::Add(const std::string& text) {
    std::string line = text.substr(0, std::min(text.size(), kMaxLiteratureLine));
    auto it = index_.find(line);
    if (it != index_.end()) return it->second;
    int i = static_cast<int>(lines_.size());
    lines_.push_back(line);
    index_[line] = i;
    return i;
}

int LiteratureTable::AddSourceCode(const std::string& code) {
    if (code.empty()) return 0;
    bool resolved = false;
    std::string text = CitationForSourceCode(code, &resolved);
    if (!resolved && std::find(unresolved_.begin(), unresolved_.end(), code) == unresolved_.end())
        unresolved_.push_back(code);
    return Add(text);
}

}  // namespace dbconvert
