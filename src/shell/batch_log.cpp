#include "shell/batch_log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/utf16.h"

namespace tormel {

std::string BatchLogPath(const AppFolders& folders) {
    const std::string folder =
        !folders.programFolder.empty() && access(folders.programFolder.c_str(), W_OK) == 0 ? folders.programFolder
                                                                                           : folders.workingFolder;
    return folder + "batch_log.txt";
}

bool AppendBatchLog(const std::string& path, std::string_view text) {
    const int fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) return false;
    struct stat info {};
    std::string bytes;
    if (::fstat(fd, &info) == 0 && info.st_size == 0) bytes += "\xFF\xFE";
    for (char16_t c : Utf8ToUtf16(text)) {
        if (c == u'\n') bytes += std::string("\r\0", 2);
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        written += static_cast<size_t>(n);
    }
    const bool closed = ::close(fd) == 0;
    return written == bytes.size() && closed;
}

std::string BatchSyntaxErrorEntry(const Language& language, std::string_view line) {
    return LanguageText(language, "Batch", "ErrorSyntax") + "\n(" + std::string(line) + ")\n";
}

std::string BatchJobErrorEntry(const Language& language, std::string_view key, std::string_view line,
                               std::string_view detail) {
    std::string entry = LanguageText(language, "Batch", key) + "\n(" + std::string(line) + ")\n";
    if (!detail.empty()) entry += std::string(detail) + "\n";
    return entry;
}

}  // namespace tormel
