#include <algorithm>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstring>
#include <memory>

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

// The parts of a line, written through a pointer into room made once per
// Append: texts, integers as "%i", numbers marked as written in "%.16G" (G)
// or "%9.9E" (E), saturations (S) and quoted texts (Q).
struct G {
    double value;
};
struct E {
    double value;
};
// "%.16G", or for minus infinity the word the reader takes for it.
struct S {
    double value;
};
// A text in double quotes as QuotedFieldText makes it; a text that needs no
// change (no quote, no line break, short enough) is taken as it is.
class Q {
public:
    explicit Q(std::string_view text) : text_(text) {
        if (text.size() <= kQuotedLimit && Plain(text)) return;
        changed_ = QuotedFieldText(text);
        text_ = changed_;
    }
    Q(const Q&) = delete;
    Q& operator=(const Q&) = delete;
    std::string_view Text() const { return text_; }

private:
    // No double quote and no line break: a long text (literature) searched
    // by the C library for each, a short one (a name) looked through once.
    static bool Plain(std::string_view text) {
        if (text.size() > 32) {
            const auto holds = [text](char c) { return text.find(c) != std::string_view::npos; };
            return !holds('"') && !holds('\n') && !holds('\r');
        }
        for (char c : text)
            if (c == '"' || c == '\n' || c == '\r') return false;
        return true;
    }
    std::string_view text_;
    std::string changed_;
};

size_t Room(std::string_view text) { return text.size(); }
size_t Room(char) { return 1; }
template <std::integral Integer>
size_t Room(Integer) {
    return 24;
}
size_t Room(G) { return kNumberTextRoom; }
size_t Room(E) { return kNumberTextRoom; }
size_t Room(S) { return std::max(kNumberTextRoom, kNoSaturationWord.size()); }
size_t Room(const Q& quoted) { return quoted.Text().size() + 2; }

char* Put(char* p, std::string_view text) {
    if (text.empty()) return p;  // an empty view may hold no address at all
    std::memcpy(p, text.data(), text.size());
    return p + text.size();
}
char* Put(char* p, char c) {
    *p = c;
    return p + 1;
}
template <std::integral Integer>
    requires(!std::same_as<Integer, char>)
char* Put(char* p, Integer value) {
    if (value >= 0 && value < 10) {  // most counts, codes and coefficients
        *p = static_cast<char>('0' + value);
        return p + 1;
    }
    return std::to_chars(p, p + 24, static_cast<long long>(value)).ptr;
}
char* Put(char* p, G number) { return PutGeneral(p, number.value, 16); }
char* Put(char* p, E number) {
    char* end = PutScientific(p, number.value, 9);
    const auto length = static_cast<size_t>(end - p);
    if (length >= 9) return end;
    std::memmove(p + 9 - length, p, length);  // right-aligned in nine columns
    std::memset(p, ' ', 9 - length);
    return p + 9;
}
char* Put(char* p, S saturation) {
    if (std::isinf(saturation.value) && saturation.value < 0) return Put(p, kNoSaturationWord);
    return Put(p, G{saturation.value});
}
char* Put(char* p, const Q& quoted) {
    *p++ = '"';
    p = Put(p, quoted.Text());
    *p++ = '"';
    return p;
}

// The file's text, written through a pointer into a buffer that is neither
// cleared nor copied: room is made by doubling, not for every part.
class TextOut {
public:
    explicit TextOut(size_t capacity) : data_(new char[capacity]), capacity_(capacity) {}
    // Where `n` more characters may go.
    char* Room(size_t n) {
        if (capacity_ - used_ < n) {
            capacity_ = std::max(2 * capacity_, used_ + n);
            std::unique_ptr<char[]> larger(new char[capacity_]);
            std::memcpy(larger.get(), data_.get(), used_);
            data_ = std::move(larger);
        }
        return data_.get() + used_;
    }
    // The characters up to `end` are written.
    void Commit(const char* end) { used_ = static_cast<size_t>(end - data_.get()); }
    TextOut& operator+=(std::string_view text) {
        Commit(Put(Room(text.size()), text));
        return *this;
    }
    TextOut& operator+=(char c) {
        Commit(Put(Room(1), c));
        return *this;
    }
    std::string_view View() const { return {data_.get(), used_}; }

private:
    std::unique_ptr<char[]> data_;
    size_t capacity_ = 0;
    size_t used_ = 0;
};

template <class... Parts>
void Append(TextOut& out, const Parts&... parts) {
    char* p = out.Room((Room(parts) + ...));
    ((p = Put(p, parts)), ...);
    out.Commit(p);
}

int Flag(bool on) { return on ? 1 : 0; }

// A 0-based index as the 1-based number the file holds (-1, none, gives 0).
long long Number(int32_t index) { return static_cast<long long>(index) + 1; }

// The number of entries written for a side: up to the last one in use, or
// all of them when none is.
int32_t EntriesWritten(const std::array<ReactionEntry, kMaxReactionEntries>& side) {
    for (int32_t j = kMaxReactionEntries - 1; j >= 0; --j)
        if (side[j].coefficient != 0) return j + 1;
    return kMaxReactionEntries;
}

void AppendSide(TextOut& out, const std::array<ReactionEntry, kMaxReactionEntries>& side) {
    const int32_t n = EntriesWritten(side);
    Append(out, n, ' ');
    for (int32_t j = 0; j < n; ++j) {
        const ReactionEntry& entry = side[j];
        Append(out, entry.coefficient, ' ', Q(entry.name), ' ', entry.charge, ' ', Q(entry.phase), ' ');
    }
}

void AppendComponents(TextOut& out, const SetView& view, bool organic) {
    for (const ComponentResult& c : view.components) {
        if (!c.Reported()) continue;
        Append(out, Q(c.name), ' ', Q(c.displayName), ' ', Q(c.gasText), ' ', CodeOf(c.kind), ' ',
               c.percentagesAllowed ? " 1 " : " 0 ");
        for (double amount : c.amounts) Append(out, G{amount}, ' ');
        Append(out, E{c.molarMass}, ' ', static_cast<int>(c.speciesList.size()), ' ', c.speciesList, '\n');
        if (organic) {
            const auto& a = c.siteAmounts;
            Append(out, ' ', G{a[SiteMonoFulvic]}, ' ', G{a[SiteBiFulvic]}, ' ', G{a[SiteTriFulvic]}, ' ',
                   G{a[SiteDiffuseFulvic]});
            Append(out, ' ', G{a[SiteMonoHumic]}, ' ', G{a[SiteBiHumic]}, ' ', G{a[SiteTriHumic]}, ' ',
                   G{a[SiteDiffuseHumic]});
            out += "\n";
        }
    }
}

void AppendSpecies(TextOut& out, const SetView& view) {
    Append(out, static_cast<int>(view.species.size()), '\n');
    for (const SpeciesResult& s : view.species) {
        Append(out, Q(s.name), ' ', CodeOf(s.kind), ' ', G{s.concentration});
        if (s.hasActivity)
            Append(out, " 1 ", E{s.activity});
        else
            out += " 0 ";
        if (s.hasConstants)
            Append(out, " 1 ", E{s.intrinsicLogK}, ' ', E{s.conditionalLogK}, ' ');
        else
            out += " 0 ";
        Append(out, Q(s.literatureIndex >= 0 ? s.literature.view() : std::string_view()), ' ', s.category, ' ',
               s.reactionDefinition >= 0 ? Number(s.reactionDefinition) : 0LL, '\n');
    }
}

void AppendMsa(TextOut& out, const SetView& view, const MsaSummary& msa) {
    Append(out, static_cast<int>(view.salts.size()), '\n');
    for (const SaltRecord& salt : view.salts) {
        Append(out, Q(salt.formula), ' ', salt.cation, ' ', salt.ligand, ' ', G{salt.meanActivityCoefficient}, '\n');
    }
    Append(out, static_cast<int>(view.msaIons.size()), " \n");
    for (const MsaIonResult& ion : view.msaIons) {
        Append(out, Q(ion.name), ' ', ion.charge, ' ', G{ion.gamma}, ' ', G{ion.lnGamma}, ' ', G{ion.lnGammaHardSphere}, ' ',
               G{ion.lnGammaElectrostatic}, ' ', G{ion.ionSize}, " \n");
    }
    Append(out, G{msa.delta}, ' ', G{msa.hardSphere[0]}, ' ', G{msa.hardSphere[1]}, ' ', G{msa.hardSphere[2]}, ' ');
    Append(out, G{msa.zeta[0]}, ' ', G{msa.zeta[1]}, ' ', G{msa.zeta[2]}, ' ', G{msa.zeta[3]}, ' ');
    Append(out, G{msa.screening}, ' ', G{msa.pPrime}, ' ', G{msa.omega}, '\n');
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

namespace {

constexpr size_t kTypicalFileSize = 32768;

// The text of set `set` (which must exist) appended to `out`.
void BuildOutputFile(const ResultStore& store, int32_t set, TextOut& out) {
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
    Append(out, Flag(in.adsorption), ' ', Flag(in.redox), ' ', Flag(in.precipitation), ' ',
           Flag(in.organicComplexation), ' ', Flag(snap.protonBalance), ' ', static_cast<int>(view.components.size()),
           ' ', reported, '\n');
    AppendComponents(out, view, in.organicComplexation);
    AppendSpecies(out, view);

    for (const InfoBlock& block : rs.otherInfo)
        out += OneLine(block.title, kWholeLineLimit) + "\n" + OneLine(block.longText, kWholeLineLimit) + "\n";
    for (const InfoBlock& block : rs.otherInfo) Append(out, block.rowCount, ' ', block.columnCount, " \n");

    Append(out, header.iterationCount, ' ', Flag(in.ionicStrengthFixed), ' ', G{snap.ReportedIonicStrength()}, ' ');
    Append(out, G{header.cationCharge}, ' ', G{header.anionCharge});
    if (header.fallbackIteration > 0) Append(out, ' ', kFallbackMark, ' ', header.fallbackIteration);
    out += "\n";

    if (in.organicComplexation) {
        const auto& f = snap.fractions;
        Append(out, ' ', G{f[0].charge}, ' ', G{f[0].enrichment}, ' ', G{f[1].charge}, ' ', G{f[1].enrichment});
        Append(out, ' ', G{f[0].volumeFraction}, ' ', G{f[1].volumeFraction}, ' ');
    }
    Append(out, ' ', G{snap.bulkFraction}, '\n');

    const bool msa = in.ionicStrengthModel != kDaviesModel;
    Append(out, Flag(msa), '\n');
    if (msa) AppendMsa(out, view, rs.msa);

    if (in.organicComplexation) {
        Append(out, in.organicModel, ' ', G{snap.fractions[0].concentration}, ' ', G{snap.fractions[1].concentration},
               ' ');
        Append(out, G{in.docConcentration}, ' ', G{in.fulvicFraction}, ' ');
        out += OneLine(header.organicReference, kOrganicReferenceLimit) + "\n";
    }

    Append(out, static_cast<int>(view.solidChecks.size()), '\n');
    for (const SolidSaturation& s : view.solidChecks) {
        Append(out, Q(s.name), ' ', S{s.saturationIndex}, ' ', G{s.logK}, ' ', G{s.conditionalLogK}, ' ',
               Number(s.reactionDefinition), ' ', Q(s.literature.view()), '\n');
    }

    if (in.precipitation) {
        Append(out, ' ', Number(header.firstPrecipitatedSolid), ' ', Number(header.lastPrecipitatedSolid), " \n");
        for (int64_t s = header.firstPrecipitatedSolid; s <= header.lastPrecipitatedSolid; ++s)
            Append(out, ' ',
                   S{s >= 0 && static_cast<size_t>(s) < view.species.size() ? view.species[s].saturationValue : 0.0});
        out += "\n";
    }

    Append(out, static_cast<int>(view.gases.size()), '\n');
    for (const GasResult& g : view.gases) {
        Append(out, Q(g.name), ' ', G{g.partialPressure}, ' ', G{g.ligandConcentration}, ' ', G{g.logK}, ' ',
               G{g.conditionalLogK}, ' ', Number(g.reactionDefinition), ' ', Q(g.literature.view()), '\n');
    }

    if (in.adsorption) out += "0\n";

    Append(out, in.ionicStrengthModel, ' ', G{in.convergenceCriterion}, ' ', G{in.temperature}, ' ',
           in.temperatureCorrection, ' ', Flag(in.forceNeutral));
    if (in.forceNeutral) Append(out, '\n', in.neutraliseCation, ' ', in.neutraliseAnion);
    if (in.ionicStrengthFixed) Append(out, '\n', G{in.fixedIonicStrength});
    out += "\n";

    for (const ComponentInfo& info : view.componentInfos) {
        Append(out, Q(info.name), ' ', CodeOf(info.kind), ' ', E{info.inputValue}, ' ', E{info.molarMass}, ' ',
               CodeOf(info.inputType), '\n');
    }

    Append(out, static_cast<int>(view.reactions.size()), '\n');
    for (const ReactionDefinition& r : view.reactions) {
        AppendSide(out, r.reactants);
        AppendSide(out, r.products);
        Append(out, G{r.logK}, ' ', Q(r.literature.view()), ' ', Q(r.note.view()), '\n');
    }
}

}  // namespace

std::string FormatOutputFile(const ResultStore& store, int32_t set) {
    if (set < 0 || set >= store.SetCount()) return std::string();
    TextOut out(kTypicalFileSize);
    BuildOutputFile(store, set, out);
    return std::string(out.View());
}

bool WriteOutputFile(const std::string& path, const ResultStore& store, int32_t set, FileError* error) {
    TextOut out(kTypicalFileSize);
    if (set >= 0 && set < store.SetCount()) BuildOutputFile(store, set, out);
    return WriteUtf16File(path, out.View(), error);
}

}  // namespace tormel
