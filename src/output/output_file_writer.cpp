#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdarg>

#include "core/c_number.h"
#include "core/fast_format.h"
#include "core/ini_file.h"
#include "output/output_file.h"

namespace tormel {

namespace {

constexpr size_t kWholeLineLimit = 258;
constexpr size_t kQuotedLimit = 259;
constexpr size_t kOrganicReferenceLimit = 8190;

std::string OneLine(std::string text, size_t limit) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return CutToUtf16Units(text, limit);
}

std::string Quoted(std::string_view text) { return "\"" + QuotedFieldText(text) + "\""; }

__attribute__((format(printf, 2, 3))) bool FormatFastInto(std::string& text, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const bool formatted = FormatFast(format, args, text);
    va_end(args);
    return formatted;
}

// out += FormatC(format, args...), through one buffer kept by the thread
// rather than a string per call.
template <class... Args>
void AppendC(std::string& out, const char* format, Args... args) {
    thread_local std::string text;
    if (FormatFastInto(text, format, args...))
        out += text;
    else
        out += FormatC(format, args...);
}

// out += FormatC("%lld", value) (or "%i"), without the format.
void AppendInteger(std::string& out, long long value) {
    char digits[24];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

// Appends Quoted(text) to `out`; a text that needs no change (no quote, no
// line break, short enough) is copied straight in.
void AppendQuoted(std::string& out, std::string_view text) {
    const auto holds = [text](char c) { return text.find(c) != std::string_view::npos; };
    if (text.size() <= kQuotedLimit && !holds('"') && !holds('\n') && !holds('\r')) {
        out += '"';
        out += text;
        out += '"';
    } else {
        out += Quoted(text);
    }
}

int Flag(bool on) { return on ? 1 : 0; }

// A saturation index or value as "%.16G"; minus infinity as the word the
// reader takes for it.
std::string Saturation(double value) {
    if (std::isinf(value) && value < 0) return std::string(kNoSaturationWord);
    return FormatC("%.16G", value);
}

// A 0-based index as the 1-based number the file holds (-1, none, gives 0).
long long Number(int32_t index) { return static_cast<long long>(index) + 1; }

// The number of entries written for a side: up to the last one in use, or
// all of them when none is.
int32_t EntriesWritten(const std::array<ReactionEntry, kMaxReactionEntries>& side) {
    for (int32_t j = kMaxReactionEntries - 1; j >= 0; --j)
        if (side[j].coefficient != 0) return j + 1;
    return kMaxReactionEntries;
}

void AppendSide(std::string& out, const std::array<ReactionEntry, kMaxReactionEntries>& side) {
    const int32_t n = EntriesWritten(side);
    AppendInteger(out, n);
    out += ' ';
    for (int32_t j = 0; j < n; ++j) {
        const ReactionEntry& entry = side[j];
        AppendInteger(out, entry.coefficient);
        out += ' ';
        AppendQuoted(out, entry.name);
        out += ' ';
        AppendInteger(out, entry.charge);
        out += ' ';
        AppendQuoted(out, entry.phase);
        out += ' ';
    }
}

void AppendComponents(std::string& out, const SetView& view, bool organic) {
    for (const ComponentResult& c : view.components) {
        if (!c.Reported()) continue;
        out += Quoted(c.name) + " " + Quoted(c.displayName) + " " + Quoted(c.gasText) + " ";
        out += FormatC("%i ", CodeOf(c.kind)) + (c.percentagesAllowed ? " 1 " : " 0 ");
        for (double amount : c.amounts) AppendC(out, "%.16G ", amount);
        out += FormatC("%9.9E %i ", c.molarMass, static_cast<int>(c.speciesList.size())) + c.speciesList + "\n";
        if (organic) {
            const auto& a = c.siteAmounts;
            AppendC(out, " %.16G %.16G %.16G %.16G", a[SiteMonoFulvic], a[SiteBiFulvic], a[SiteTriFulvic],
                           a[SiteDiffuseFulvic]);
            AppendC(out, " %.16G %.16G %.16G %.16G", a[SiteMonoHumic], a[SiteBiHumic], a[SiteTriHumic],
                           a[SiteDiffuseHumic]);
            out += "\n";
        }
    }
}

void AppendSpecies(std::string& out, const SetView& view) {
    AppendC(out, "%i\n", static_cast<int>(view.species.size()));
    for (const SpeciesResult& s : view.species) {
        AppendQuoted(out, s.name);
        AppendC(out, " %i", CodeOf(s.kind));
        AppendC(out, " %.16G", s.concentration);
        if (s.hasActivity)
            AppendC(out, " 1 %9.9E", s.activity);
        else
            out += " 0 ";
        if (s.hasConstants)
            AppendC(out, " 1 %9.9E %9.9E ", s.intrinsicLogK, s.conditionalLogK);
        else
            out += " 0 ";
        AppendQuoted(out, s.literatureIndex >= 0 ? s.literature.view() : std::string_view());
        AppendC(out, " %i ", s.category);
        AppendInteger(out, s.reactionDefinition >= 0 ? Number(s.reactionDefinition) : 0LL);
        out += '\n';
    }
}

void AppendMsa(std::string& out, const SetView& view, const MsaSummary& msa) {
    AppendC(out, "%i\n", static_cast<int>(view.salts.size()));
    for (const SaltRecord& salt : view.salts)
        out += Quoted(salt.formula) + FormatC(" %i %i %.16G\n", salt.cation, salt.ligand, salt.meanActivityCoefficient);
    AppendC(out, "%i \n", static_cast<int>(view.msaIons.size()));
    for (const MsaIonResult& ion : view.msaIons)
        out += Quoted(ion.name) + FormatC(" %i %.16G %.16G %.16G %.16G %.16G \n", ion.charge, ion.gamma, ion.lnGamma,
                                          ion.lnGammaHardSphere, ion.lnGammaElectrostatic, ion.ionSize);
    AppendC(out, "%.16G %.16G %.16G %.16G ", msa.delta, msa.hardSphere[0], msa.hardSphere[1], msa.hardSphere[2]);
    AppendC(out, "%.16G %.16G %.16G %.16G ", msa.zeta[0], msa.zeta[1], msa.zeta[2], msa.zeta[3]);
    AppendC(out, "%.16G %.16G %.16G\n", msa.screening, msa.pPrime, msa.omega);
}

}  // namespace

std::string QuotedFieldText(std::string_view text) {
    std::string field;
    bool opening = true;
    for (char c : text) {
        if (c == '"') {
            field += opening ? "\u201C" : "\u201D";
            opening = !opening;
        } else if (c == '\n' || c == '\r') {
            field += ' ';  // a quoted text stays on its line
        } else {
            field += c;
        }
    }
    return CutToUtf16Units(field, kQuotedLimit);
}

std::string FormatOutputFile(const ResultStore& store, int32_t set) {
    std::string out;
    if (set < 0 || set >= store.SetCount()) return out;
    out.reserve(32768);
    const ResultSet& rs = store.sets[set];
    const ResultHeader& header = rs.header;
    const InputSnapshot& snap = rs.snapshot;
    const InputProblem& in = snap.input;
    const SetView view = ViewSet(store, set);
    int32_t reported = 0;
    for (const ComponentResult& c : view.components) reported += c.Reported() ? 1 : 0;

    out += std::string(kOutputFileLine1) + "\n";
    out += std::string(kOutputFileLine2) + "\n";
    out += std::string(kOutputFileVersionLabel) + " " + std::string(kOutputFileVersion) + "\n";
    // the reader drops the blanks at the ends of the description
    std::string description = OneLine(in.description, kWholeLineLimit);
    description.erase(0, std::min(description.find_first_not_of(' '), description.size()));
    description.erase(description.find_last_not_of(' ') + 1);
    out += description + "\n";
    AppendC(out, "%i %i %i %i %i %i %i\n", Flag(in.adsorption), Flag(in.redox), Flag(in.precipitation),
                   Flag(in.organicComplexation), Flag(snap.protonBalance), static_cast<int>(view.components.size()),
                   reported);
    AppendComponents(out, view, in.organicComplexation);
    AppendSpecies(out, view);

    for (const InfoBlock& block : rs.otherInfo)
        out += OneLine(block.title, kWholeLineLimit) + "\n" + OneLine(block.longText, kWholeLineLimit) + "\n";
    for (const InfoBlock& block : rs.otherInfo) AppendC(out, "%i %i \n", block.rowCount, block.columnCount);

    AppendC(out, "%i %i ", header.iterationCount, Flag(in.ionicStrengthFixed));
    AppendC(out, "%.16G ", snap.ReportedIonicStrength());
    AppendC(out, "%.16G %.16G", header.cationCharge, header.anionCharge);
    if (header.fallbackIteration > 0) AppendC(out, " %s %i", kFallbackMark, header.fallbackIteration);
    out += "\n";

    if (in.organicComplexation) {
        const auto& f = snap.fractions;
        AppendC(out, " %.16G %.16G", f[0].charge, f[0].enrichment);
        AppendC(out, " %.16G %.16G", f[1].charge, f[1].enrichment);
        AppendC(out, " %.16G %.16G ", f[0].volumeFraction, f[1].volumeFraction);
    }
    AppendC(out, " %.16G\n", snap.bulkFraction);

    const bool msa = in.ionicStrengthModel != kDaviesModel;
    AppendC(out, "%i\n", Flag(msa));
    if (msa) AppendMsa(out, view, rs.msa);

    if (in.organicComplexation) {
        AppendC(out, "%i %.16G %.16G ", in.organicModel, snap.fractions[0].concentration,
                       snap.fractions[1].concentration);
        AppendC(out, "%.16G %.16G ", in.docConcentration, in.fulvicFraction);
        out += OneLine(header.organicReference, kOrganicReferenceLimit) + "\n";
    }

    AppendC(out, "%i\n", static_cast<int>(view.solidChecks.size()));
    for (const SolidSaturation& s : view.solidChecks) {
        AppendQuoted(out, s.name);
        out += ' ';
        out += Saturation(s.saturationIndex);
        AppendC(out, " %.16G %.16G ", s.logK, s.conditionalLogK);
        AppendInteger(out, Number(s.reactionDefinition));
        out += ' ';
        AppendQuoted(out, s.literature.view());
        out += '\n';
    }

    if (in.precipitation) {
        out += ' ';
        AppendInteger(out, Number(header.firstPrecipitatedSolid));
        out += ' ';
        AppendInteger(out, Number(header.lastPrecipitatedSolid));
        out += " \n";
        for (int64_t s = header.firstPrecipitatedSolid; s <= header.lastPrecipitatedSolid; ++s)
            out += " " + Saturation(s >= 0 && static_cast<size_t>(s) < view.species.size()
                                        ? view.species[s].saturationValue
                                        : 0.0);
        out += "\n";
    }

    AppendC(out, "%i\n", static_cast<int>(view.gases.size()));
    for (const GasResult& g : view.gases) {
        AppendQuoted(out, g.name);
        AppendC(out, " %.16G %.16G %.16G %.16G ", g.partialPressure, g.ligandConcentration, g.logK,
                g.conditionalLogK);
        AppendInteger(out, Number(g.reactionDefinition));
        out += ' ';
        AppendQuoted(out, g.literature.view());
        out += '\n';
    }

    if (in.adsorption) out += "0\n";

    AppendC(out, "%i %.16G %.16G %i %i", in.ionicStrengthModel, in.convergenceCriterion, in.temperature,
                   in.temperatureCorrection, Flag(in.forceNeutral));
    if (in.forceNeutral) AppendC(out, "\n%i %i", in.neutraliseCation, in.neutraliseAnion);
    if (in.ionicStrengthFixed) AppendC(out, "\n%.16G", in.fixedIonicStrength);
    out += "\n";

    for (const ComponentInfo& info : view.componentInfos) {
        AppendQuoted(out, info.name);
        AppendC(out, " %i %9.9E %9.9E %i\n", CodeOf(info.kind), info.inputValue, info.molarMass,
                CodeOf(info.inputType));
    }

    AppendC(out, "%i\n", static_cast<int>(view.reactions.size()));
    for (const ReactionDefinition& r : view.reactions) {
        AppendSide(out, r.reactants);
        AppendSide(out, r.products);
        AppendC(out, "%.16G ", r.logK);
        AppendQuoted(out, r.literature.view());
        out += ' ';
        AppendQuoted(out, r.note.view());
        out += '\n';
    }
    return out;
}

bool WriteOutputFile(const std::string& path, const ResultStore& store, int32_t set, FileError* error) {
    return WriteUtf16File(path, std::string_view(FormatOutputFile(store, set)), error);
}

}  // namespace tormel
