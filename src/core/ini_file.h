#pragma once
// A private-profile (INI) file in UTF-16LE: sections of "key=value" lines.
// Section and key names compare case-insensitively. Reads never create the
// file; before the first write a missing file is created holding only the
// byte-order mark, and every write replaces the file atomically (temporary
// file and rename), so a crash never leaves a torn file.
//
// The file is read once, at the first lookup, and kept in memory for the
// whole process: every object that names the same path shares what was read,
// and a write through any of them is seen by the next lookup. A change made
// to the file by anything else is seen only after ReadAgain. Lookups may come
// from several threads at once.
//
// Reading follows the platform's profile rules: blanks around names and
// values are dropped, a value enclosed in matching double (or single) quotes
// loses them, lines before the first section header and lines starting with
// ";" are never found. Writes keep every other line as it was.
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tormel {

class IniFile {
public:
    explicit IniFile(std::string path);

    const std::string& Path() const { return path_; }
    bool Exists() const;

    // The value of `key` in `section`, cut to maxChars characters; `def` when
    // the file, the section or the key is missing.
    std::string ReadString(std::string_view section, std::string_view key, std::string_view def,
                           size_t maxChars = 8192) const;
    // A fixed list of keys of one section whose values are read together.
    // The list is a constant of the program: a table is known by the list's
    // address.
    struct KeyList {
        std::string_view section;
        std::span<const std::string_view> keys;
        size_t maxChars = 8192;
    };
    using Table = std::vector<std::string>;
    // The values of `list`'s keys in their order, each as ReadString with
    // an empty default answers it. The table is made at the first call after
    // the file was read and shared by every caller until the file is read
    // again (a write, or ReadAgain), so a table never outlives what it shows
    // and costs one lookup per list rather than one per key.
    std::shared_ptr<const Table> ReadTable(const KeyList& list) const;

    // Writes (or adds) one key; false when the file cannot be written.
    bool WriteString(std::string_view section, std::string_view key, std::string_view value);
    bool DeleteKey(std::string_view section, std::string_view key);
    // Deletes a whole section (a profile write with a null key).
    bool DeleteSection(std::string_view section);

    // Forgets what was read of the file at `path` (when any object names it),
    // so that the next lookup reads the file again: for a file that the
    // program replaced by other means, such as a new copy of the language.
    static void ReadAgain(const std::string& path);

    std::vector<std::string> Sections() const;
    std::vector<std::string> Keys(std::string_view section) const;

    // The parsed file, shared by every object that names the same path.
    struct Cache;

private:

    // Creates a missing file (byte-order mark only), lets `edit` change the
    // lines and writes them back when it reports a change.
    bool Rewrite(const std::function<bool(std::vector<std::string>&)>& edit);

    std::string path_;
    std::shared_ptr<Cache> cache_;
};

// Letter case folded the way profile names and stored paths are compared
// (Unicode simple lower case; ASCII when no UTF-8 locale is available).
std::string FoldCase(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);

// `text` cut to at most maxChars UTF-16 code units, never inside a character.
std::string CutToUtf16Units(std::string_view text, size_t maxChars);

}  // namespace tormel
