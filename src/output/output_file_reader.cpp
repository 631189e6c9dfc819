#include <algorithm>
#include <climits>
#include <filesystem>
#include <limits>

#include "core/c_number.h"
#include "core/token_reader.h"
#include "core/utf16.h"
#include "output/output_file.h"

namespace tormel {

namespace {

// Whole-line texts hold at most 258 characters; a line is read with its line feed.
constexpr size_t kWholeLineLimit = 258;
constexpr size_t kWholeLineRead = kWholeLineLimit + 1;
constexpr size_t kQuotedLimit = 259;
constexpr size_t kPhaseLimit = 4;
constexpr int32_t kSpeciesListLimit = 8190;
constexpr size_t kOrganicReferenceLimit = 8190;
// Versions above this one carry the ion size in their MSA ion lines.
constexpr double kIonSizeVersion = 1.11;

std::string TrimLineFeeds(std::string text) {
    auto feed = [](char c) { return c == '\n' || c == '\r'; };
    while (!text.empty() && feed(text.back())) text.pop_back();
    size_t b = 0;
    while (b < text.size() && feed(text[b])) ++b;
    return text.substr(b);
}

std::string TrimBlanks(std::string text) {
    while (!text.empty() && text.back() == ' ') text.pop_back();
    size_t b = 0;
    while (b < text.size() && text[b] == ' ') ++b;
    return text.substr(b);
}

std::string TrimBlanksAndLineFeeds(std::string_view text) {
    auto trimmed = [](char c) { return c == ' ' || c == '\n' || c == '\r'; };
    while (!text.empty() && trimmed(text.front())) text.remove_prefix(1);
    while (!text.empty() && trimmed(text.back())) text.remove_suffix(1);
    return std::string(text);
}

OutputFileError Refused(const char* key) {
    OutputFileError error;
    error.key = key;
    return error;
}

// Reads the fields of one file after its header, stopping at the first field
// that cannot be read; what was read so far stays.
class OutputParser {
public:
    OutputParser(TokenReader& in, float version, size_t textSize)
        : in_(in), version_(version), textSize_(textSize) {}

    void Parse(ResultSet& set, SetRecords& records, InputProblem* currentInput, const UiServices* ui) {
        // anything but white space after the last field is damage too
        complete_ = ParseAll(set, records, currentInput, ui) && Token() && in_.AtEnd();
    }
    bool Complete() const { return complete_; }
    // The line of the field that could not be read (of an incomplete file).
    int FieldLine() const { return fieldLine_; }

private:
    TokenReader& in_;
    float version_;
    size_t textSize_;
    bool complete_ = false;
    int fieldLine_ = 0;

    // Before a field that white space may precede: skips it and notes the
    // field's line. Always true.
    bool Token() {
        in_.OnlySpaceLeft();
        fieldLine_ = in_.Line();
        return true;
    }
    bool Int(int32_t& value) { return Token() && in_.ReadInt(value); }
    bool Double(double& value) { return Token() && in_.ReadDouble(value); }
    // A kind stored as its integer code; a code that names no kind fails the
    // field like any other unreadable one.
    template <typename Kind>
    bool Code(Kind& value, std::optional<Kind> (*fromCode)(int32_t)) {
        int32_t code = 0;
        if (!Int(code)) return false;
        const std::optional<Kind> kind = fromCode(code);
        if (!kind) return false;
        value = *kind;
        return true;
    }
    // A saturation: a number, or the word written for minus infinity.
    bool Saturation(double& value) {
        if (Token() && in_.ReadWord(kNoSaturationWord)) {
            value = -std::numeric_limits<double>::infinity();
            return true;
        }
        return Double(value);
    }
    bool Flag(bool& value) {
        int32_t v = 0;
        if (!Int(v)) return false;
        value = v != 0;
        return true;
    }
    bool Quoted(std::string& text, size_t limit = kQuotedLimit) { return Token() && in_.ReadQuotedName(text, limit); }
    bool Quoted(SharedText& text) {
        std::string read;
        if (!Quoted(read)) return false;
        text = SharedText(std::move(read));
        return true;
    }
    // The rest of the current line, or a whole line.
    bool Rest(std::string& text, size_t limit) {
        fieldLine_ = in_.Line();
        return in_.ReadLineUtf8(text, limit);
    }
    bool Line(std::string& text, size_t limit) {
        if (!Rest(text, limit)) return false;
        text = TrimLineFeeds(std::move(text));
        return true;
    }
    // A count from the file, never more than the text could hold.
    size_t Count(int32_t value) const { return value <= 0 ? 0 : std::min(static_cast<size_t>(value), textSize_); }
    // The component count reserves records before their lines are read; each
    // of its component-info lines takes at least this many characters.
    static constexpr size_t kShortestInfoLine = 10;
    size_t ComponentCount(int32_t value) const { return std::min(Count(value), textSize_ / kShortestInfoLine + 1); }
    // A 1-based index of the file as the 0-based index it stands for.
    static int32_t Index(int32_t value) { return value == INT32_MIN ? INT32_MIN : value - 1; }
    // A count, then that many records appended to `list`, each read by
    // `read` (false when a field of it cannot be read).
    template <class Record, class Read>
    bool CountedRecords(std::vector<Record>& list, Read read) {
        int32_t count = 0;
        if (!Int(count)) return false;
        for (size_t i = 0; i < Count(count); ++i)
            if (!read(list.emplace_back())) return false;
        return true;
    }

    bool ParseAll(ResultSet& set, SetRecords& records, InputProblem* currentInput, const UiServices* ui) {
        ResultHeader& header = set.header;
        InputSnapshot& snap = set.snapshot;
        InputProblem& in = snap.input;

        std::string description;
        if (!Rest(description, kWholeLineRead)) return false;
        in.description = TrimBlanksAndLineFeeds(description);

        int32_t componentCount = 0, reportedCount = 0;
        if (!Flag(in.adsorption) || !Flag(in.redox) || !Flag(in.precipitation) || !Flag(in.organicComplexation) ||
            !Flag(snap.protonBalance) || !Int(componentCount) || !Int(reportedCount))
            return false;
        records.components.resize(ComponentCount(componentCount));
        if (!ParseComponents(records, Count(reportedCount), in.organicComplexation)) return false;
        if (!ParseSpecies(records)) return false;

        in_.SkipLine();
        for (InfoBlock& block : set.otherInfo)
            if (!Line(block.title, kWholeLineRead) || !Line(block.longText, kWholeLineRead)) return false;
        for (InfoBlock& block : set.otherInfo)
            if (!Int(block.rowCount) || !Int(block.columnCount)) return false;

        double ionicStrength = 0;
        if (!Int(header.iterationCount) || !Flag(in.ionicStrengthFixed) || !Double(ionicStrength)) return false;
        (in.ionicStrengthFixed ? snap.ionicStrengthFromComposition : snap.ionicStrength) = ionicStrength;
        if (!Double(header.cationCharge) || !Double(header.anionCharge)) return false;
        std::string rest;
        if (!Line(rest, kWholeLineRead)) return false;
        header.fallbackIteration = FallbackIterationOf(rest);

        auto& f = snap.fractions;
        if (in.organicComplexation &&
            (!Double(f[0].charge) || !Double(f[0].enrichment) || !Double(f[1].charge) || !Double(f[1].enrichment) ||
             !Double(f[0].volumeFraction) || !Double(f[1].volumeFraction)))
            return false;
        bool msa = false;
        if (!Double(snap.bulkFraction) || !Flag(msa)) return false;
        if (msa && !ParseMsa(set.msa, records)) return false;

        if (in.organicComplexation) {
            if (!Int(in.organicModel) || !Double(f[0].concentration) || !Double(f[1].concentration) ||
                !Double(in.docConcentration) || !Double(in.fulvicFraction))
                return false;
            std::string rest;
            // the blank before it, the text and the line feed
            if (!Rest(rest, kOrganicReferenceLimit + 2)) return false;
            if (!rest.empty() && rest.front() == ' ') rest.erase(0, 1);
            header.organicReference = TrimLineFeeds(std::move(rest));
        }

        if (!ParseSolidChecks(records)) return false;
        if (in.precipitation && !ParseSaturationValues(header, records)) return false;
        in_.SkipLine();
        if (!ParseGases(records)) return false;

        if (in.adsorption) {
            if (!Flag(snap.adsorptionLinked)) return false;
            if (snap.adsorptionLinked && ui && ui->showMessageBox) {
                MessageBoxRequest request;
                request.caption = "message";
                request.icon = IconInformation;
                request.lines.push_back("grid 6 ads linked");
                request.buttons.push_back("OK");
                ui->showMessageBox(request);
            }
        }

        in_.SkipLine();
        if (!Int(in.ionicStrengthModel) || !Double(in.convergenceCriterion) || !Double(in.temperature) ||
            !Int(in.temperatureCorrection) || !Flag(in.forceNeutral))
            return false;
        if (in.forceNeutral) {
            in_.SkipLine();
            if (!Int(in.neutraliseCation) || !Int(in.neutraliseAnion)) return false;
            if (currentInput) {
                currentInput->neutraliseCation = in.neutraliseCation;
                currentInput->neutraliseAnion = in.neutraliseAnion;
            }
        }
        if (in.ionicStrengthFixed) {
            in_.SkipLine();
            if (!Double(in.fixedIonicStrength)) return false;
        }

        if (!ParseComponentInfos(records, ComponentCount(componentCount))) return false;
        return ParseReactions(records);
    }

    bool ParseComponents(SetRecords& records, size_t reported, bool organic) {
        for (size_t i = 0; i < reported; ++i) {
            if (i >= records.components.size()) records.components.emplace_back();
            ComponentResult& c = records.components[i];
            int32_t length = 0;
            if (!Quoted(c.name) || !Quoted(c.displayName) || !Quoted(c.gasText) ||
                !Code(c.kind, ComponentTypeFromCode) || !Flag(c.percentagesAllowed))
                return false;
            for (double& amount : c.amounts)
                if (!Double(amount)) return false;
            if (!Double(c.molarMass) || !Int(length)) return false;
            length = std::clamp(length, 0, kSpeciesListLimit);
            std::string list;
            if (!Rest(list, static_cast<size_t>(length) + 1)) return false;
            c.speciesList = TrimBlanks(TrimLineFeeds(std::move(list)));
            if (organic) {
                auto& a = c.siteAmounts;
                for (int32_t site : {SiteMonoFulvic, SiteBiFulvic, SiteTriFulvic, SiteDiffuseFulvic, SiteMonoHumic,
                                     SiteBiHumic, SiteTriHumic, SiteDiffuseHumic})
                    if (!Double(a[site])) return false;
            }
        }
        return true;
    }

    bool ParseSpecies(SetRecords& records) {
        return CountedRecords(records.species, [this](SpeciesResult& s) {
            if (!Quoted(s.name) || !Code(s.kind, SpeciesKindFromCode) || !Double(s.concentration) ||
                !Flag(s.hasActivity))
                return false;
            if (s.hasActivity && !Double(s.activity)) return false;
            if (!Flag(s.hasConstants)) return false;
            if (s.hasConstants && (!Double(s.intrinsicLogK) || !Double(s.conditionalLogK))) return false;
            if (!Quoted(s.literature) || !Int(s.category) || !Int(s.reactionDefinition)) return false;
            s.reactionDefinition = Index(s.reactionDefinition);
            return true;
        });
    }

    bool ParseMsa(MsaSummary& msa, SetRecords& records) {
        const bool salts = CountedRecords(records.salts, [this](SaltRecord& salt) {
            return Quoted(salt.formula) && Int(salt.cation) && Int(salt.ligand) && Double(salt.meanActivityCoefficient);
        });
        if (!salts) return false;
        const bool withIonSize = static_cast<double>(version_) > kIonSizeVersion;
        const bool ions = CountedRecords(records.msaIons, [this, withIonSize](MsaIonResult& ion) {
            if (!Quoted(ion.name) || !Int(ion.charge) || !Double(ion.gamma) || !Double(ion.lnGamma) ||
                !Double(ion.lnGammaHardSphere) || !Double(ion.lnGammaElectrostatic))
                return false;
            return !withIonSize || Double(ion.ionSize);
        });
        if (!ions) return false;
        return Double(msa.delta) && Double(msa.hardSphere[0]) && Double(msa.hardSphere[1]) &&
               Double(msa.hardSphere[2]) && Double(msa.zeta[0]) && Double(msa.zeta[1]) && Double(msa.zeta[2]) &&
               Double(msa.zeta[3]) && Double(msa.screening) && Double(msa.pPrime) && Double(msa.omega);
    }

    bool ParseSolidChecks(SetRecords& records) {
        return CountedRecords(records.solidChecks, [this](SolidSaturation& s) {
            if (!Quoted(s.name) || !Saturation(s.saturationIndex) || !Double(s.logK) || !Double(s.conditionalLogK) ||
                !Int(s.reactionDefinition) || !Quoted(s.literature))
                return false;
            s.reactionDefinition = Index(s.reactionDefinition);
            return true;
        });
    }

    // The range of precipitated solids and their saturation values; the range
    // keeps only the values that were there to read.
    bool ParseSaturationValues(ResultHeader& header, SetRecords& records) {
        int32_t first = 0, last = 0;
        if (!Int(first) || !Int(last)) return false;
        header.firstPrecipitatedSolid = Index(first);
        header.lastPrecipitatedSolid = header.firstPrecipitatedSolid - 1;
        for (int64_t s = Index(first); s <= static_cast<int64_t>(Index(last)); ++s) {
            double value = 0;
            if (!Saturation(value)) return false;
            header.lastPrecipitatedSolid = static_cast<int32_t>(s);
            if (s >= 0 && static_cast<size_t>(s) < records.species.size()) records.species[s].saturationValue = value;
        }
        return true;
    }

    bool ParseGases(SetRecords& records) {
        return CountedRecords(records.gases, [this](GasResult& g) {
            if (!Quoted(g.name) || !Double(g.partialPressure) || !Double(g.ligandConcentration) || !Double(g.logK) ||
                !Double(g.conditionalLogK) || !Int(g.reactionDefinition) || !Quoted(g.literature))
                return false;
            g.reactionDefinition = Index(g.reactionDefinition);
            return true;
        });
    }

    bool ParseComponentInfos(SetRecords& records, size_t count) {
        for (size_t i = 0; i < count; ++i) {
            ComponentInfo& info = records.componentInfos.emplace_back();
            if (!Quoted(info.name) || !Code(info.kind, ComponentTypeFromCode) || !Double(info.inputValue) ||
                !Double(info.molarMass) || !Code(info.inputType, InputTypeFromCode))
                return false;
        }
        return true;
    }

    bool ParseSide(std::array<ReactionEntry, kMaxReactionEntries>& side) {
        int32_t count = 0;
        if (!Int(count)) return false;
        for (size_t j = 0; j < Count(count); ++j) {
            ReactionEntry entry;
            if (!Int(entry.coefficient) || !Quoted(entry.name) || !Int(entry.charge) || !Quoted(entry.phase, kPhaseLimit))
                return false;
            if (j < side.size()) side[j] = std::move(entry);
        }
        return true;
    }

    bool ParseReactions(SetRecords& records) {
        return CountedRecords(records.reactions, [this](ReactionDefinition& r) {
            return ParseSide(r.reactants) && ParseSide(r.products) && Double(r.logK) && Quoted(r.literature) &&
                   Quoted(r.note);
        });
    }
};

}  // namespace

std::optional<OutputFileError> ReadOutputText(std::u16string text, ResultStore& store, int32_t set,
                                              InputProblem* currentInput, const UiServices* ui,
                                              OutputReadReport* report) {
    if (set < 0) set = 0;
    if (!text.empty() && text.front() == u'\uFEFF') text.erase(0, 1);
    const size_t textSize = text.size();
    TokenReader in(std::move(text));

    std::string line;
    in.ReadLineUtf8(line, kWholeLineRead);
    if (TrimLineFeeds(line) != kOutputFileLine1) return Refused("ErrorOpen1");
    line.clear();
    in.ReadLineUtf8(line, kWholeLineRead);
    if (TrimLineFeeds(line) != kOutputFileLine2) return Refused("ErrorOpen2");
    line.clear();
    in.ReadLineUtf8(line, kWholeLineRead);
    line = TrimLineFeeds(line);
    if (line.compare(0, kOutputFileVersionLabel.size(), kOutputFileVersionLabel) != 0) return Refused("ErrorOpen3");
    const float version =
        static_cast<float>(line.size() > 16 ? StrToDoubleC(std::string_view(line).substr(16)) : 0.0);
    if (static_cast<double>(version) < 1.1) {
        OutputFileError error = Refused("ErrorOpen4");
        error.versionLine = line;
        return error;
    }

    ResetResultStore(store, set);
    ResultSet part;
    SetRecords records;
    OutputParser parser(in, version, textSize);
    parser.Parse(part, records, currentInput, ui);
    if (report) {
        report->complete = parser.Complete();
        report->stoppedAtLine = parser.Complete() ? 0 : parser.FieldLine();
        report->version = version;
    }
    ResultSet& target = store.sets[set];
    target.header = part.header;
    target.snapshot = std::move(part.snapshot);
    target.msa = part.msa;
    target.otherInfo = std::move(part.otherInfo);
    int32_t reported = 0;
    for (const ComponentResult& c : records.components) reported += c.Reported() ? 1 : 0;
    target.header.reportedComponentCount = reported;
    StoreSetRecords(store, set, std::move(records));
    if (set == 0) store.holdsLoadedOutput = true;
    return std::nullopt;
}

int32_t FallbackIterationOf(std::string_view rest) {
    const auto skipBlanks = [&rest] { rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size())); };
    skipBlanks();
    const std::string_view mark = kFallbackMark;
    if (rest.substr(0, mark.size()) != mark) return 0;
    rest.remove_prefix(mark.size());
    skipBlanks();
    return std::max(StrToIntPlatform(rest), 0);
}

std::optional<OutputFileError> ReadOutputFile(const std::string& path, ResultStore& store, int32_t set,
                                              InputProblem* currentInput, const UiServices* ui,
                                              OutputReadReport* report) {
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) {
        OutputFileError error = Refused("ErrorFileMissing");
        error.path = path;
        return error;
    }
    FileError fileError;
    std::optional<std::u16string> text = ReadUtf16File(path, &fileError);
    if (!text) {
        OutputFileError error = Refused("ErrorOpen1");
        error.path = path;
        error.detail = fileError.message;
        return error;
    }
    std::optional<OutputFileError> error = ReadOutputText(std::move(*text), store, set, currentInput, ui, report);
    if (error) error->path = path;
    return error;
}

}  // namespace tormel
