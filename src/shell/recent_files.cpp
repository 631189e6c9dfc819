#include "shell/recent_files.h"

#include <algorithm>
#include <utility>

#include "core/text_file.h"

namespace tormel {

namespace {

constexpr std::string_view kOptions = "Options";
constexpr size_t kTimestampChars = 15;

std::string_view SwitchKey(RecentListKind kind) {
    return kind == RecentListKind::Input ? "Remember-InputFiles" : "Remember-OutputFiles";
}

std::string PlaceKey(RecentListKind kind, int32_t place) {
    return std::string(kind == RecentListKind::Input ? "RIF" : "ROF") + std::to_string(place + 1);
}

bool Remembered(const RecentFileList& list, const Settings& settings) {
    return settings.ReadSettingBool(kOptions, SwitchKey(list.kind));
}

std::string NowTimestamp(const RecentFileClock& clock) {
    return clock ? clock() : FormatRecentFileTimestamp(std::time(nullptr));
}

std::string WithSeparator(std::string folder) {
    if (!folder.empty() && folder.back() != '/') folder += '/';
    return folder;
}

// Newest first, compared as text; empty places (empty timestamps) end up last.
void SortNewestFirst(RecentFileList& list) {
    auto& p = list.places;
    for (int32_t i = 0; i < kRecentFilePlaces - 1; ++i)
        for (int32_t j = i + 1; j < kRecentFilePlaces; ++j)
            if (p[i].timestamp < p[j].timestamp) std::swap(p[i], p[j]);
}

// A stored value split at its commas: the folder, then (when anything follows)
// the file name and the rest as timestamp. A value without a comma fills only
// the folder.
RecentFileEntry ParseEntry(std::string_view value) {
    RecentFileEntry entry;
    const size_t first = value.find(',');
    entry.folder = std::string(value.substr(0, first));
    if (first == std::string_view::npos) return entry;
    const std::string_view rest = value.substr(first + 1);
    const size_t second = rest.find(',');
    entry.fileName = std::string(rest.substr(0, second));
    if (second != std::string_view::npos)
        entry.timestamp = CutToUtf16Units(rest.substr(second + 1), kTimestampChars);
    return entry;
}

void LoadList(RecentFileList& list, const Settings& settings) {
    list.places = {};
    if (!Remembered(list, settings)) return;
    for (int32_t i = 0; i < kRecentFilePlaces; ++i) {
        const std::string value = settings.ReadSettingString(kOptions, PlaceKey(list.kind, i), "");
        if (value.empty() || value.front() == ',') continue;
        list.places[i] = ParseEntry(value);
    }
}

void SaveList(const RecentFileList& list, Settings& settings) {
    if (!Remembered(list, settings)) return;
    for (int32_t i = 0; i < kRecentFilePlaces; ++i) {
        const RecentFileEntry& e = list.places[i];
        settings.WriteSettingString(kOptions, PlaceKey(list.kind, i),
                                    e.folder + "," + e.fileName + "," + e.timestamp);
    }
}

}  // namespace

std::string FormatRecentFileTimestamp(std::time_t time) {
    std::tm local{};
    if (!localtime_r(&time, &local)) return {};
    char text[32];
    const size_t length = std::strftime(text, sizeof text, "%Y%m%e%H%M%S", &local);
    return std::string(text, std::min(length, kTimestampChars));
}

void AddRecentFile(RecentFileList& list, std::string_view path, const Settings& settings,
                   const RecentFileClock& clock) {
    if (!Remembered(list, settings)) return;
    for (RecentFileEntry& entry : list.places) {
        if (entry.Empty() || !EqualIgnoringCase(WithSeparator(entry.folder) + entry.fileName, path))
            continue;
        entry.timestamp = NowTimestamp(clock);
        SortNewestFirst(list);
        return;
    }
    for (int32_t i = kRecentFilePlaces - 1; i > 0; --i) list.places[i] = std::move(list.places[i - 1]);
    RecentFileEntry& top = list.places[0];
    const size_t slash = path.rfind('/');
    top.folder = slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash + 1));
    top.fileName = std::string(slash == std::string_view::npos ? path : path.substr(slash + 1));
    top.timestamp = NowTimestamp(clock);
}

void LoadRecentFiles(RecentFiles& files, const Settings& settings) {
    LoadList(files.input, settings);
    LoadList(files.output, settings);
}

void PruneRecentFiles(RecentFileList& list) {
    auto& p = list.places;
    for (int32_t i = 0; i < kRecentFilePlaces;) {
        if (p[i].Empty() || FileExists(p[i].Path())) {
            ++i;
            continue;
        }
        for (int32_t j = i; j < kRecentFilePlaces - 1; ++j) p[j] = std::move(p[j + 1]);
        p[kRecentFilePlaces - 1] = RecentFileEntry{};
    }
}

void SaveRecentFiles(const RecentFiles& files, Settings& settings) {
    SaveList(files.input, settings);
    SaveList(files.output, settings);
}

const RecentFileEntry* RecentFileAt(const RecentFileList& list, int32_t position) {
    if (position < 1 || position > kRecentFilePlaces) return nullptr;
    const RecentFileEntry& entry = list.places[position - 1];
    return entry.Empty() ? nullptr : &entry;
}

}  // namespace tormel
