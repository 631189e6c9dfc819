#include "core/database_files.h"
#include "core/database_reader_support.h"
#include "core/utf16.h"

namespace tormel {

std::optional<DatabaseError> ReadLiteratureFile(Database& chem, const std::string& path) {
    chem.literature.clear();
    std::optional<TokenReader> reader;
    int count = 0;
    if (auto error = OpenRecordFile(path, reader, count)) return error;
    chem.literature.reserve(static_cast<size_t>(count));
    std::u16string line;
    for (int i = 0; i < count; ++i) {
        // a reference holds at most 258 characters; its line feed is read with it
        if (!reader->ReadLine(line, kNameLimit + 1)) {
            chem.literature.clear();
            return DatabaseError{path, reader->Line(), "reference " + std::to_string(i + 1),
                                 "the file ends before this reference (the header promises " + std::to_string(count) +
                                     ")"};
        }
        size_t b = 0, e = line.size();
        while (b < e && line[b] == u'\n') ++b;
        while (e > b && line[e - 1] == u'\n') --e;
        chem.literature.push_back(Utf16ToUtf8(line.substr(b, e - b)));
    }
    return std::nullopt;
}

std::optional<DatabaseError> ReadModelFile(Database& chem, int32_t modelCode, const std::string& path) {
    OrganicModelParameters& params = chem.Organic(modelCode);
    const int32_t count = OrganicParameterCount(modelCode);
    params.values.assign(static_cast<size_t>(count), {0.0, 0.0});
    FileError fileError;
    auto text = ReadUtf16File(path, &fileError);
    if (!text) return DatabaseError{path, 0, "", fileError.message};
    TokenReader reader(std::move(*text));
    std::u16string line;
    for (int k = 0; k < 3; ++k) reader.ReadLine(line, kHeaderLineLimit);
    for (int block = 0; block < 2; ++block) {
        for (int32_t k = 0; k < count; ++k) {
            double value = 0;
            if (!reader.ReadDouble(value)) {
                params.values.assign(static_cast<size_t>(count), {0.0, 0.0});
                return DatabaseError{path, reader.Line(),
                                     std::string(block == 0 ? "fulvic" : "humic") + " parameter " + std::to_string(k + 1),
                                     "the parameter is missing or not a number"};
            }
            params.values[static_cast<size_t>(k)][static_cast<size_t>(block)] = value;
            reader.SkipLine();
        }
    }
    return std::nullopt;
}

}  // namespace tormel
