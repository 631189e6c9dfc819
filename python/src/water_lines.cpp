#include "water_lines.h"

#include "input/input_file_writer.h"
#include "message_log.h"
#include "raise_error.h"

namespace tormel::python {

std::vector<WaterField> ToFields(const Fields& pairs) {
    std::vector<WaterField> fields;
    fields.reserve(pairs.size());
    for (const auto& [name, value] : pairs) fields.push_back({name, value});
    return fields;
}

InputProblem ReadFields(const Session& session, const Fields& pairs) {
    InputProblem input;
    if (auto error = ReadWaterFields(ToFields(pairs), input, session.base.chem.db()))
        RaiseError("InputFileError", WithoutLeadingLineFeeds(InputFileErrorText(session.base.language, *error)));
    return input;
}

Fields InputLines(const InputProblem& input, const Database& db) {
    Fields lines;
    const std::string text = FormatInputFile(input, db);
    size_t start = 0;
    for (int number = 1; start < text.size(); ++number) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(start, end - start);
        start = end + 1;
        if (number <= 2) continue;  // header and format version
        const size_t colon = line.find(':');
        if (colon == std::string::npos) continue;
        size_t value = line.find_first_not_of(' ', colon + 1);
        lines.emplace_back(line.substr(0, colon), value == std::string::npos ? "" : line.substr(value));
    }
    return lines;
}

}  // namespace tormel::python
