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

}  // namespace tormel
