#include "shell/update_list.h"

#include <cctype>

#include "core/c_number.h"
#include "core/database_files.h"
#include "core/text_file.h"
#include "shell/file_date.h"

namespace tormel {

namespace {

enum class EntryKind { Program, RawData, Help, Other };

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& ch : lower) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return lower;
}

EntryKind KindOf(std::string_view name) {
    const size_t dot = name.rfind('.');
    const std::string extension = dot == std::string_view::npos ? std::string() : Lower(name.substr(dot));
    if (extension == ".exe") return EntryKind::Program;
    if (extension == ".rw64") return EntryKind::RawData;
    if (extension == ".chm") return EntryKind::Help;
    return EntryKind::Other;
}

float SinglePrecision(std::string_view text) { return static_cast<float>(StrToDoubleC(text)); }

}  // namespace

std::string NormalisedVersion(std::string_view version) {
    std::string result;
    size_t start = 0;
    while (true) {
        const size_t dot = version.find('.', start);
        std::string part(version.substr(start, dot == std::string_view::npos ? std::string_view::npos : dot - start));
        if (part.size() > 4) part.resize(4);
        if (!result.empty()) result += '.';
        result += std::string(4 - part.size(), '0') + part;
        if (dot == std::string_view::npos) break;
        start = dot + 1;
    }
    if (result.size() > 20) result.resize(20);
    return result;
}

std::vector<UpdateRow> UpdateRows(const std::vector<std::string>& lines, const InstalledFiles& installed,
                                  const Language& language) {
    auto text = [&](const char* key) { return LanguageText(language, "Updates", key); };
    std::vector<UpdateRow> rows;
    for (const std::string& line : lines) {
        if (line.empty()) continue;
        const size_t comma = line.find(',');
        const std::string name = line.substr(0, comma);
        const std::string available = comma == std::string::npos ? std::string() : line.substr(comma + 1);
        const EntryKind kind = KindOf(name);

        bool exists = true;
        bool newer = false;
        std::string current;
        std::string fileType;
        switch (kind) {
            case EntryKind::Program:
                fileType = text("ProgFile");
                current = installed.programVersion;
                newer = NormalisedVersion(available) > NormalisedVersion(current);
                break;
            case EntryKind::RawData: {
                fileType = text("DataFile");
                const std::string path = installed.programFolder + "RawData/" + name;
                exists = FileExists(path);
                const auto header = exists ? ReadDatabaseHeader(path) : std::nullopt;
                current = header ? header->versionText : std::string();
                newer = header && SinglePrecision(available) > header->version;
                break;
            }
            case EntryKind::Help: {
                fileType = text("HelpFile");
                current = FileDateText(installed.programFolder + name, DateZone::Local);
                exists = !current.empty();
                newer = current < available;
                break;
            }
            case EntryKind::Other: exists = FileExists(installed.programFolder + name); break;
        }
        if (exists && !newer) continue;
        const std::string prefix = text(kind == EntryKind::Help ? "Date" : "Version") + " ";
        rows.push_back({name, fileType, exists ? prefix + current : text("NoExists"), prefix + available});
    }
    return rows;
}

}  // namespace tormel
