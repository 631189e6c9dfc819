#pragma once
// UTF-16LE text files: every file the program reads or writes uses this
// encoding with a byte-order mark and CR LF line ends.
#include <optional>
#include <string>
#include <string_view>

namespace tormel {

struct FileError {
    std::string path;
    std::string message;  // English detail, for logs and messages
};

// Reads a whole UTF-16LE file. A leading BOM (FF FE) is skipped; CR LF becomes
// LF (a lone CR is kept). An odd trailing byte is dropped. Returns nullopt and
// fills `error` when the file cannot be opened or read.
std::optional<std::u16string> ReadUtf16File(const std::string& path, FileError* error = nullptr);

// Reads a text file that should be UTF-16LE but may have been saved as UTF-8
// by an editor: a file without the UTF-16 byte-order mark that holds no zero
// byte and is valid UTF-8 is decoded as UTF-8 (a UTF-8 byte-order mark
// skipped, CR LF becoming LF); any other file as ReadUtf16File does.
std::optional<std::u16string> ReadUtf16OrUtf8File(const std::string& path, FileError* error = nullptr);

// Writes `text` (LF line ends) as UTF-16LE with BOM and CR LF. The file is
// written to a temporary file in the same folder and renamed over `path`, so
// an existing file is replaced whole or not at all.
bool WriteUtf16File(const std::string& path, std::u16string_view text, FileError* error = nullptr);
bool WriteUtf16File(const std::string& path, std::string_view utf8Text, FileError* error = nullptr);

// Reads a file's raw bytes (for copies and checks).
std::optional<std::string> ReadBinaryFile(const std::string& path);

// Replaces `path` atomically with `bytes` (temporary file + rename).
bool WriteFileAtomically(const std::string& path, std::string_view bytes, FileError* error = nullptr);

bool FileExists(const std::string& path);

}  // namespace tormel
