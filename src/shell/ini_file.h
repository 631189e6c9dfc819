#pragma once
// A private-profile (INI) file in UTF-16LE: sections of "key=value" lines.
// Section and key names compare case-insensitively. Reads never create the
// file; before the first write a missing file is created holding only the
// byte-order mark, and every write replaces the file atomically (temporary
// file and rename), so a crash never leaves a torn file.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tormel {

class IniFile {
public:
    explicit IniFile(std::string path) : path_(std::move(path)) {}

    const std::string& Path() const { return path_; }
    bool Exists() const;

    // The value of `key` in `section`, cut to maxChars characters; `def` when
    // the file, the section or the key is missing.
    std::string ReadString(std::string_view section, std::string_view key, std::string_view def,
                           size_t maxChars = 8192) const;
    // Writes (or adds) one key; false when the file cannot be written.
    bool WriteString(std::string_view section, std::string_view key, std::string_view value);
    bool DeleteKey(std::string_view section, std::string_view key);
    // Deletes a whole section (a profile write with a null key).
    bool DeleteSection(std::string_view section);

    std::vector<std::string> Sections() const;
    std::vector<std::string> Keys(std::string_view section) const;

private:
    std::string path_;
};

}  // namespace tormel
