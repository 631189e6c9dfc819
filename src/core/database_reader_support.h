#pragma once
// Pieces shared by the database file readers.
#include <optional>
#include <string>

#include "core/database_files.h"
#include "core/token_reader.h"

namespace tormel {

// Header lines are read with this character limit.
constexpr size_t kHeaderLineLimit = 1024;
// Literature references and quoted names keep at most this many characters.
constexpr size_t kNameLimit = 258;

float ParseHeaderVersion(const std::u16string& line);
int ParseHeaderCount(const std::u16string& line);

// Opens a record file (components, equilibria, literature), reads its three
// header lines and the record count on line 3.
std::optional<DatabaseError> OpenRecordFile(const std::string& path, std::optional<TokenReader>& reader, int& count);

// Widens a type range by a record; a record at index 0 never becomes the
// first of a range (first == 0 means "none yet").
inline void ExtendTypeRange(TypeRange& range, int32_t index) {
    if (range.first == 0) range.first = index;
    range.last = index;
}

// Reads the fields of one record of a record file; every failure names the
// file, the line, the record and the field.
class RecordFieldReader {
public:
    RecordFieldReader(TokenReader& reader, const std::string& path, const char* recordKind, int number)
        : reader_(reader), path_(path), where_(std::string(recordKind) + " " + std::to_string(number)) {}

    // The record's quoted name; `promised` is the header's count, for the
    // message when the file ends early.
    std::optional<DatabaseError> Name(std::string& name, int promised);
    std::optional<DatabaseError> Int(int32_t& value, const char* field);
    std::optional<DatabaseError> Real(double& value, const char* field);
    DatabaseError Fail(const std::string& message) const { return {path_, reader_.Line(), where_, message}; }

private:
    TokenReader& reader_;
    const std::string& path_;
    std::string where_;
};

}  // namespace tormel
