#include "input/input_file_reader.h"

#include <cmath>
#include <filesystem>
#include <vector>

#include "core/c_number.h"
#include "core/text_file.h"
#include "core/token_reader.h"
#include "core/utf16.h"
#include "input/input_type_text.h"
#include "input/program_defaults.h"
#include "input/value_text.h"
#include "core/language.h"
#include "core/messages.h"

namespace tormel {

namespace {

constexpr std::u16string_view kHeaderI64 = u"TORMEL NEXT (64 bits) input file";
constexpr std::u16string_view kHeaderInp = u"TORMEL input file\n";

InputFileError Error(const char* key, int lineNumber) {
    InputFileError e;
    e.key = key;
    e.lineNumber = lineNumber;
    return e;
}

InputFileError ErrorWithLine(const char* key, int lineNumber, std::string line) {
    InputFileError e = Error(key, lineNumber);
    e.hasLine = true;
    e.line = std::move(line);
    return e;
}

std::u16string_view TrimBlanks16(std::u16string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && s[b] == u' ') ++b;
    while (e > b && s[e - 1] == u' ') --e;
    return s.substr(b, e - b);
}

std::u16string_view TrimBlanksAndLineFeeds16(std::u16string_view s) {
    auto trimmed = [](char16_t c) { return c == u' ' || c == u'\n' || c == u'\r'; };
    size_t b = 0, e = s.size();
    while (b < e && trimmed(s[b])) ++b;
    while (e > b && trimmed(s[e - 1])) --e;
    return s.substr(b, e - b);
}

std::u16string_view WithoutLineFeed(std::u16string_view s) {
    while (!s.empty() && (s.back() == u'\n' || s.back() == u'\r')) s.remove_suffix(1);
    return s;
}

std::string_view WithoutLineFeed8(std::string_view s) {
    while (!s.empty() && (s.back() == '\n' || s.back() == '\r')) s.remove_suffix(1);
    return s;
}

bool IsEmptyLine(std::u16string_view line) { return WithoutLineFeed(line).empty(); }

std::optional<InputFileError> CheckI64Header(TokenReader& reader) {
    std::u16string_view line;
    reader.ReadLine(line, kInputLineLimit);
    if (line.substr(0, kHeaderI64.size()) != kHeaderI64) return Error("ErrorOpen1", 1);
    reader.ReadLine(line, kInputLineLimit);
    size_t colon = line.find(u':');
    if (colon == std::u16string_view::npos || colon == 0) return Error("ErrorOpen2", 2);
    std::string version = Utf16ToUtf8(TrimBlanks16(line.substr(colon + 1)));
    if (StrToIntPlatform(version) != 1) return Error("ErrorOpen2", 2);
    return std::nullopt;
}

std::optional<InputFileError> CheckInpHeader(TokenReader& reader) {
    std::u16string_view line;
    reader.ReadLine(line, kInputLineLimit);
    if (line != kHeaderInp) return Error("ErrorOpen1", 1);
    reader.ReadLine(line, kInputLineLimit);
    float version = 0;
    if (line.size() > 42) {
        std::string rest = Utf16ToUtf8(line.substr(42));
        size_t start = rest.find_first_not_of(" \t\n\r");
        if (start != std::string::npos) version = static_cast<float>(LeadingReal(std::string_view(rest).substr(start)));
    }
    if (!(version >= 201.0f)) return Error("ErrorOpen4", 2);
    reader.ReadLine(line, kInputLineLimit);  // line 3 is not used
    return std::nullopt;
}

// What became of a line offered as a keyword line: not a keyword, applied,
// or refused with the [Input] language key that says why.
struct KeywordResult {
    bool keyword = true;
    const char* error = nullptr;
};

KeywordResult SetReal(std::optional<double> number, double& field) {
    if (!number) return {true, "ErrorNumber"};
    field = *number;
    return {};
}

// A code such as "2'MSA": the whole integer before the label, within
// [low, high].
KeywordResult SetCode(std::string_view value, int32_t low, int32_t high, const char* rangeKey, int32_t& field) {
    std::optional<int32_t> code = CompleteInteger(TrimBlanksAndLineFeeds(value.substr(0, value.find('\''))));
    if (!code) return {true, "ErrorNumber"};
    if (*code < low || *code > high) return {true, rangeKey};
    field = *code;
    return {};
}

// A number followed by an optional unit ("0.01 M", "25 \u00B0C").
std::optional<double> RealWithUnit(std::string_view value, std::string_view unit) {
    if (value.size() >= unit.size() && EqualsIgnoreCase(value.substr(value.size() - unit.size()), unit))
        value.remove_suffix(unit.size());
    return CompleteReal(TrimBlanksAndLineFeeds(value));
}

// `value16` is the untrimmed text after the colon, in the file's characters.
KeywordResult ApplyKeyword(std::string_view key, std::string_view value, std::u16string_view value16,
                           InputProblem& input) {
    if (EqualsIgnoreCase(key, "description")) {
        input.description = Utf16ToUtf8(CutUtf16(TrimBlanksAndLineFeeds16(value16), kDescriptionLimit));
    } else if (EqualsIgnoreCase(key, "ionic strength")) {
        if (EqualsIgnoreCase(value, "calculated")) {
            input.ionicStrengthFixed = false;
            return {};
        }
        // the number follows "fixed at "
        if (!StartsWithIgnoreCase(value, "fixed at ")) return {true, "ErrorNumber"};
        input.ionicStrengthFixed = true;
        return SetReal(RealWithUnit(value.substr(9), "M"), input.fixedIonicStrength);
    } else if (EqualsIgnoreCase(key, "ionic strength model")) {
        return SetCode(value, kDaviesModel, kMsaModel, "ErrorIonicStrengthModel", input.ionicStrengthModel);
    } else if (EqualsIgnoreCase(key, "convergence criterion")) {
        return SetReal(CompleteReal(value), input.convergenceCriterion);
    } else if (EqualsIgnoreCase(key, "temperature")) {
        return SetReal(RealWithUnit(value, "\u00B0C"), input.temperature);
    } else if (EqualsIgnoreCase(key, "temperature correction")) {
        return SetCode(value, 0, 2, "ErrorTemperatureCorrection", input.temperatureCorrection);
    } else if (EqualsIgnoreCase(key, "force neutral solution")) {
        input.forceNeutral = EqualsIgnoreCase(value, "yes");
    } else if (EqualsIgnoreCase(key, "precipitation equilibria")) {
        input.precipitation = EqualsIgnoreCase(value, "included");
    } else if (EqualsIgnoreCase(key, "redox equilibria")) {
        input.redox = EqualsIgnoreCase(value, "included");
    } else if (EqualsIgnoreCase(key, "adsorption")) {
        if (EqualsIgnoreCase(value, "not included")) input.adsorption = false;
        if (EqualsIgnoreCase(value, "included; fixed concentration")) input.adsorption = true;
    } else if (EqualsIgnoreCase(key, "organic complexation")) {
        input.organicComplexation = EqualsIgnoreCase(value, "included");
    } else if (EqualsIgnoreCase(key, "model to use")) {
        return SetCode(value, Model5, Model7, "ErrorOrganicModel", input.organicModel);
    } else if (EqualsIgnoreCase(key, "concentration (mg/l c)")) {
        return SetReal(CompleteReal(value), input.docConcentration);
    } else if (EqualsIgnoreCase(key, "fraction of fulvic acids")) {
        return SetReal(CompleteReal(value), input.fulvicFraction);
    } else {
        return {false, nullptr};
    }
    return {};
}

// "value [type text]": the number must end at a blank or at the end; an
// unknown type text leaves the type at its program default. False when the
// number cannot be read.
bool ApplyComponentLine(ComponentInput& component, std::string_view value) {
    size_t used = 0;
    const double number = LeadingReal(value, &used);  // all it read, as CompleteReal would take it
    std::string_view rest = value.substr(used);
    if (used == 0 || !std::isfinite(number) || (!rest.empty() && rest.front() != ' ')) return false;
    component.inputValue = number;
    if (auto type = InputTypeFromFileText(TrimBlanksAndLineFeeds(rest))) component.inputType = *type;
    return true;
}

// The component that may be chosen to neutralise: a cation for the cation
// line, a ligand for the anion line, or component 0, which stands for none
// chosen (the writer writes its name then).
bool NeutralisesAs(const Database& db, int32_t index, bool cation) {
    return index == 0 ||
           db.components[static_cast<size_t>(index)].type == (cation ? ComponentType::Cation : ComponentType::Ligand);
}

// ReadInputText on the text the reader holds.
std::optional<InputFileError> ReadInput(TokenReader& reader, std::string_view extension, InputProblem& input,
                                        const Database& db) {
    if (EqualsIgnoreCase(extension, ".i64")) {
        if (auto error = CheckI64Header(reader)) return error;
    } else if (EqualsIgnoreCase(extension, ".inp")) {
        if (auto error = CheckInpHeader(reader)) return error;
    } else {
        return Error("ErrorOpen5", 0);
    }

    SetProgramDefaults(input, db);

    // where each component was given, to refuse a second line for it; the
    // lines are views into the reader's text
    struct GivenLine {
        int32_t component = 0;
        int lineNumber = 0;
        std::u16string_view line;
    };
    std::vector<GivenLine> given;
    given.reserve(16);

    std::u16string_view line;
    std::string line8;  // the line converted once; the colon and the blanks are the same characters in it
    while (true) {
        int lineNumber = reader.Line();
        if (!reader.ReadLine(line, kInputLineLimit)) break;
        if (IsEmptyLine(line)) continue;

        size_t colon = line.find(u':');
        if (colon == 0) return Error("ErrorOpen3", lineNumber);
        std::u16string_view whole(line);
        const std::u16string_view value16 =
            colon == std::u16string::npos ? std::u16string_view() : whole.substr(colon + 1);
        Utf16ToUtf8(whole, line8);
        const std::string_view whole8(line8);
        const size_t colon8 = whole8.find(':');
        const std::string_view key = whole8.substr(0, colon8);
        const std::string_view value =
            colon8 == std::string_view::npos ? std::string_view() : TrimBlanksAndLineFeeds(whole8.substr(colon8 + 1));
        auto refused = [&](const char* errorKey) {
            return ErrorWithLine(errorKey, lineNumber, std::string(WithoutLineFeed8(whole8)));
        };

        KeywordResult keyword = ApplyKeyword(key, value, value16, input);
        if (keyword.error) return refused(keyword.error);
        if (keyword.keyword) continue;

        const bool cationLine = EqualsIgnoreCase(key, "cation to neutralise");
        if (cationLine || EqualsIgnoreCase(key, "anion to neutralise")) {
            int32_t index = FindComponentIgnoreCase(db, value);
            if (index < 0) return refused("ErrorOpen3");
            if (!NeutralisesAs(db, index, cationLine))
                return refused("ErrorNeutraliseKind");
            (cationLine ? input.neutraliseCation : input.neutraliseAnion) = index;
            continue;
        }

        int32_t component = FindComponentIgnoreCase(db, key);
        if (component < 0) return ErrorWithLine("ErrorOpen3", lineNumber, line8);
        for (const GivenLine& earlier : given) {
            if (earlier.component != component) continue;
            InputFileError duplicate = refused("ErrorDuplicate");
            duplicate.earlierLineNumber = earlier.lineNumber;
            duplicate.earlierLine = Utf16ToUtf8(WithoutLineFeed(earlier.line));
            return duplicate;
        }
        if (!ApplyComponentLine(input.components[static_cast<size_t>(component)], value)) return refused("ErrorNumber");
        given.push_back({component, lineNumber, whole});
    }
    return std::nullopt;
}

}  // namespace

std::optional<InputFileError> ReadInputText(std::u16string_view text, std::string_view extension,
                                            InputProblem& input, const Database& db) {
    TokenReader reader{std::u16string(text)};
    return ReadInput(reader, extension, input, db);
}

std::optional<InputFileError> LoadInputFile(const std::string& path, InputProblem& input, const Database& db) {
    FileError fileError;
    auto text = ReadUtf16File(path, &fileError);
    if (!text) {
        // only a failed read asks whether the file is there at all
        std::error_code ec;
        const bool missing = !std::filesystem::exists(path, ec);
        InputFileError e = Error(missing ? "ErrorFileMissing" : "ErrorFileUnreadable", 0);
        e.path = path;
        if (!missing) e.detail = fileError.message;
        return e;
    }
    TokenReader reader{std::move(*text)};
    if (auto error = ReadInput(reader, FileExtension(path), input, db)) {
        error->path = path;
        return error;
    }
    input.modified = false;
    input.currentInputFile = path;
    return std::nullopt;
}

bool ReadInputFile(const std::string& path, InputProblem& input, const Database& db, const UiServices& ui,
                   const Language& language) {
    auto error = LoadInputFile(path, input, db);
    if (!error) return true;
    ShowMessage(ui, language, InputFileErrorText(language, *error), "", IconWarning);
    return false;
}

}  // namespace tormel
