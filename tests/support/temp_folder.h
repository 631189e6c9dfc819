#pragma once
// A fresh folder under /tmp for one test, removed with everything in it.
#include <string>

namespace tormel::test {

class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    // The folder path, ending with "/".
    const std::string& Path() const { return path_; }
    std::string File(const std::string& name) const { return path_ + name; }

private:
    std::string path_;
};

// Writes raw bytes to a file (for crafted, possibly malformed files).
void WriteBytes(const std::string& path, const std::string& bytes);
// The bytes of a file; empty when it cannot be read.
std::string ReadBytes(const std::string& path);
// The text of a UTF-16 file as UTF-8; empty when it cannot be read.
std::string ReadUtf16Text(const std::string& path);
// UTF-16LE bytes with BOM for ASCII/UTF-8 text with "\n" line ends turned to CR LF.
std::string Utf16Bytes(const std::string& utf8, bool bom = true);

}  // namespace tormel::test
