#include "input/water_fields.h"

#include <cmath>

#include "core/c_number.h"
#include "core/utf16.h"
#include "input/input_file_reader.h"
#include "input/input_type_text.h"

namespace tormel {

namespace {

// "Name (type text)": the component name and the type text with its
// parentheses; nullopt when the field names no input type.
std::optional<std::pair<std::string, std::string>> SplitTypedName(const std::string& name) {
    const size_t open = name.rfind(" (");
    if (open == std::string::npos || name.back() != ')') return std::nullopt;
    const std::string type = name.substr(open + 1);
    if (!InputTypeFromFileText(type)) return std::nullopt;
    return std::make_pair(name.substr(0, open), type);
}

// 10^-x as the reader reads it exactly; the text itself when it is no number.
std::string PowerOfTenText(const std::string& exponent) {
    const std::optional<double> x = ParseDoubleC(exponent);
    return x ? FormatC("%.17G", std::pow(10.0, -*x)) : exponent;
}

}  // namespace

std::string WaterFieldLine(const WaterField& field, const Database& db) {
    const std::string_view freeActivity = InputTypeFileText(InputType::FreeAct);
    // the electron has index 0 only when the database has none
    const bool ph = field.name == "pH", pe = field.name == "pe" && db.electronIndex > 0;
    if ((ph || pe) && !db.components.empty()) {
        const int32_t k = ph ? db.hydrogenIndex : db.electronIndex;
        return db.components[static_cast<size_t>(k)].name + ": " + PowerOfTenText(field.value) + " " +
                   std::string(freeActivity);
    }
    if (auto typed = SplitTypedName(field.name)) return typed->first + ": " + field.value + " " + typed->second;
    return field.name + ": " + field.value;
}

std::optional<InputFileError> ReadWaterFields(std::span<const WaterField> fields, InputProblem& input,
                                              const Database& db) {
    std::string text = "TORMEL NEXT (64 bits) input file\nFormat version: 1\n";
    for (const WaterField& field : fields) text += WaterFieldLine(field, db) + "\n";
    std::optional<InputFileError> error = ReadInputText(Utf8ToUtf16(text), ".i64", input, db);
    if (error) error->lineNumber = error->earlierLineNumber = 0;  // lines of a text made here, not of a file
    return error;
}

}  // namespace tormel
