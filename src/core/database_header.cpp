#include <cstdlib>

#include "core/c_number.h"
#include "core/database_files.h"
#include "core/database_reader_support.h"
#include "core/utf16.h"

namespace tormel {

const std::array<const char*, 6> kDatabaseBaseNames = {"COMPON.", "EQUILIB.", "LIT_REF.",
                                                        "MODEL_5.", "MODEL_6.", "MODEL_7."};

std::string WorkingCopyPath(const std::string& dataFolder, int position) {
    return dataFolder + kDatabaseBaseNames[position] + "D64";
}

std::string ShippedCopyPath(const std::string& programFolder, int position) {
    return programFolder + "RawData/" + kDatabaseBaseNames[position] + "RW64";
}

std::string DatabaseError::Describe() const {
    std::string text = path;
    if (line > 0) text += ", line " + std::to_string(line);
    if (!record.empty()) text += ", " + record;
    return text + ": " + message;
}

namespace {

// The text after the first colon of a header line, without the line feed.
std::u16string AfterColon(const std::u16string& line) {
    size_t colon = line.find(u':');
    if (colon == std::u16string::npos) return {};
    std::u16string rest = line.substr(colon + 1);
    while (!rest.empty() && rest.back() == u'\n') rest.pop_back();
    return rest;
}

}  // namespace

float ParseHeaderVersion(const std::u16string& line) {
    std::string rest = Utf16ToUtf8(AfterColon(line));
    size_t i = 0;
    while (i < rest.size() && (rest[i] == ' ' || rest[i] == '\t')) ++i;
    size_t used = 0;
    double v = StrToDoubleC(std::string_view(rest).substr(i), &used);
    return used ? static_cast<float>(v) : 0.0f;
}

int ParseHeaderCount(const std::u16string& line) {
    size_t colon = line.find(u':');
    if (colon == std::u16string::npos) return 0;
    // everything after the colon up to, not including, the line's last character
    std::u16string rest = line.substr(colon + 1);
    if (!rest.empty()) rest.pop_back();
    return StrToIntPlatform(Utf16ToUtf8(rest));
}

std::optional<DatabaseHeader> ReadDatabaseHeader(const std::string& path, FileError* error) {
    auto text = ReadUtf16File(path, error);
    if (!text) return std::nullopt;
    TokenReader reader(std::move(*text));
    std::u16string lines[3];
    for (auto& line : lines) reader.ReadLine(line, kHeaderLineLimit);
    DatabaseHeader header;
    auto shown = [](const std::u16string& line) {
        size_t colon = line.find(u':');
        std::u16string value = colon == std::u16string::npos || colon + 2 > line.size() ? u"" : line.substr(colon + 2);
        while (!value.empty() && value.back() == u'\n') value.pop_back();
        return Utf16ToUtf8(value);
    };
    header.contents = shown(lines[0]);
    header.versionText = shown(lines[1]);
    header.countText = shown(lines[2]);
    header.version = ParseHeaderVersion(lines[1]);
    header.recordCount = ParseHeaderCount(lines[2]);
    return header;
}

std::optional<DatabaseError> OpenRecordFile(const std::string& path, std::optional<TokenReader>& reader, int& count) {
    FileError fileError;
    auto text = ReadUtf16File(path, &fileError);
    if (!text) return DatabaseError{path, 0, "", fileError.message};
    size_t length = text->size();
    reader.emplace(std::move(*text));
    std::u16string line;
    for (int k = 0; k < 3; ++k) {
        if (!reader->ReadLine(line, kHeaderLineLimit))
            return DatabaseError{path, k + 1, "header", "the file ends inside its three header lines"};
    }
    count = ParseHeaderCount(line);
    if (count < 0) return DatabaseError{path, 3, "header", "the record count is negative"};
    // every record takes at least a quoted name and one number
    if (static_cast<size_t>(count) > length / 3 + 1)
        return DatabaseError{path, 3, "header",
                             "the record count " + std::to_string(count) + " is larger than the file can hold"};
    return std::nullopt;
}

std::optional<DatabaseError> RecordFieldReader::Name(std::string& name, int promised) {
    if (!reader_.ReadQuotedName(name, kNameLimit)) {
        if (reader_.AtEnd() && name.empty())
            return Fail("the file ends before this record (the header promises " + std::to_string(promised) + ")");
        return Fail("the name's closing quote is missing");
    }
    where_ += " (\"" + name + "\")";
    return std::nullopt;
}

std::optional<DatabaseError> RecordFieldReader::Int(int32_t& value, const char* field) {
    if (!reader_.ReadInt(value)) return Fail(std::string("the ") + field + " is missing or not an integer");
    return std::nullopt;
}

std::optional<DatabaseError> RecordFieldReader::Real(double& value, const char* field) {
    if (!reader_.ReadDouble(value)) return Fail(std::string("the ") + field + " is missing or not a number");
    return std::nullopt;
}

}  // namespace tormel
