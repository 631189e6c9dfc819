#include "ui/main/recent_file_description.h"

#include "core/text_file.h"
#include "core/utf16.h"
#include "shell/command_line.h"

namespace tormel {

std::string StoredDescription(const std::string& path) {
    const std::optional<std::u16string> text = ReadUtf16File(path);
    if (!text) return {};
    const int wanted = HasExtension(path, ".inp") ? 3 : 4;
    size_t start = 0;
    for (int line = 1; line < wanted; ++line) {
        start = text->find(u'\n', start);
        if (start == std::u16string::npos) return {};
        ++start;
    }
    size_t end = text->find(u'\n', start);
    if (end == std::u16string::npos) end = text->size();
    std::string description = Utf16ToUtf8(std::u16string_view(*text).substr(start, end - start));
    const size_t first = description.find_first_not_of(" \r\t");
    if (first == std::string::npos) return {};
    return description.substr(first, description.find_last_not_of(" \r\t") - first + 1);
}

std::string RecentFileTooltip(const std::string& path) {
    std::string description = StoredDescription(path);
    if (description.empty()) description += " (not specified)";
    return path + "\n\n" + description;
}

}  // namespace tormel
