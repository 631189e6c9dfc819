#include "shell/file_date.h"

#include <chrono>
#include <ctime>
#include <filesystem>

#include "core/c_number.h"

namespace tormel {

std::string FileDateText(const std::string& path, DateZone zone) {
    std::error_code error;
    const auto written = std::filesystem::last_write_time(path, error);
    if (error) return std::string();
    const std::time_t seconds =
        std::chrono::system_clock::to_time_t(std::chrono::file_clock::to_sys(written));
    std::tm parts{};
    if (zone == DateZone::Local ? !localtime_r(&seconds, &parts) : !gmtime_r(&seconds, &parts)) return std::string();
    return FormatC("%d-%02d-%02d", parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday);
}

bool SignatureIsNewer(const std::string& signatureFirstLine, const std::string& documentDate) {
    return signatureFirstLine > documentDate;
}

}  // namespace tormel
