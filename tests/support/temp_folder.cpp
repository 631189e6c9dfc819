#include "support/temp_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "core/text_file.h"
#include "core/utf16.h"

namespace tormel::test {

TempFolder::TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tormel-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    path_ = pattern + "/";
}

TempFolder::~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::string ReadUtf16Text(const std::string& path) {
    const std::optional<std::u16string> text = ReadUtf16File(path);
    return text ? Utf16ToUtf8(*text) : std::string();
}

std::string Utf16Bytes(const std::string& utf8, bool bom) {
    std::string out;
    if (bom) out += "\xFF\xFE";
    for (char16_t c : Utf8ToUtf16(utf8)) {
        if (c == u'\n') out += std::string("\r\0", 2);
        out += static_cast<char>(c & 0xFF);
        out += static_cast<char>(c >> 8);
    }
    return out;
}

}  // namespace tormel::test
