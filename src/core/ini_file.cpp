#include "core/ini_file.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <array>
#include <mutex>
#include <shared_mutex>
#include <unordered_map>

#include "core/text_file.h"
#include "core/utf16.h"

namespace tormel {

namespace {

// The blanks the profile functions drop around names and values.
constexpr std::string_view kBlanks = " \t\r\n\v\f\x1a";

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1a'; }

std::string_view Trim(std::string_view s) {
    if (!s.empty() && !IsBlank(s.front()) && !IsBlank(s.back())) return s;  // the usual name
    const size_t first = s.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    const size_t last = s.find_last_not_of(kBlanks);
    return s.substr(first, last - first + 1);
}

// What one line of a profile file is.
struct ProfileLine {
    enum Kind { Other, Section, Key } kind = Other;
    std::string_view name;   // section or key name, trimmed
    std::string_view value;  // key value, trimmed, quotes kept
};

ProfileLine ParseLine(std::string_view raw) {
    const std::string_view line = Trim(raw);
    ProfileLine parsed;
    if (line.empty() || line.front() == ';') return parsed;
    if (line.front() == '[') {
        const size_t close = line.find(']');
        if (close != std::string_view::npos) {
            parsed.kind = ProfileLine::Section;
            parsed.name = Trim(line.substr(1, close - 1));
        }
        return parsed;
    }
    const size_t equals = line.find('=');
    parsed.name = Trim(line.substr(0, equals));
    if (parsed.name.empty()) return parsed;
    parsed.kind = ProfileLine::Key;
    if (equals != std::string_view::npos) parsed.value = Trim(line.substr(equals + 1));
    return parsed;
}

std::string_view StripQuotes(std::string_view value) {
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front())
        return value.substr(1, value.size() - 2);
    return value;
}

bool IsSectionNamed(const ProfileLine& line, std::string_view folded) {
    return line.kind == ProfileLine::Section && FoldCase(line.name) == folded;
}

// Index of the line that ends the section whose header is at `header`: the
// next section header or the end.
size_t SectionEnd(const std::vector<std::string>& lines, size_t header) {
    size_t i = header + 1;
    while (i < lines.size() && ParseLine(lines[i]).kind != ProfileLine::Section) ++i;
    return i;
}

std::vector<std::string> SplitLines(std::string_view text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        lines.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

std::optional<std::vector<std::string>> LoadLines(const std::string& path) {
    std::optional<std::u16string> text = ReadUtf16File(path);
    if (!text) return std::nullopt;
    return SplitLines(Utf16ToUtf8(*text));
}

std::string JoinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line;
        text += '\n';
    }
    return text;
}

// A value is one line: line breaks would start new lines in the file.
std::string SingleLine(std::string_view value) {
    std::string line(value);
    for (char& c : line)
        if (c == '\r' || c == '\n') c = ' ';
    return line;
}

// Appends `name` unless a name equal but for letter case is already there.
void AddUnique(std::vector<std::string>& names, std::vector<std::string>& folded, std::string_view name) {
    std::string key = FoldCase(name);
    if (std::find(folded.begin(), folded.end(), key) != folded.end()) return;
    folded.push_back(std::move(key));
    names.emplace_back(name);
}

locale_t Utf8CaseLocale() {
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(0));
    return locale;
}

}  // namespace

// "folded section" + kKeyJoin + "folded key" -> value (trimmed, quotes
// removed). The first occurrence of a key wins, as in a lookup from the top.
// The file is read at the first lookup after the cache was made or
// forgotten; lookups from several threads share the parsed values.
struct IniFile::Cache {
    // A character no section or key name holds (names are one line of text).
    static constexpr char kKeyJoin = '\n';

    struct Hash {
        using is_transparent = void;
        size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };

    std::shared_mutex mutex;
    bool loaded = false;
    std::unordered_map<std::string, std::string, Hash, std::equal_to<>> values;
    // the tables made from `values`, by their key lists
    std::vector<std::pair<const KeyList*, std::shared_ptr<const Table>>> tables;

    static std::string Join(std::string_view foldedSection, std::string_view foldedKey) {
        std::string joined;
        joined.reserve(foldedSection.size() + 1 + foldedKey.size());
        joined.append(foldedSection).append(1, kKeyJoin).append(foldedKey);
        return joined;
    }

    void Load(const std::string& path) {
        values.clear();
        tables.clear();
        loaded = true;
        if (path.empty()) return;
        std::optional<std::vector<std::string>> lines = LoadLines(path);
        if (!lines) return;
        std::optional<std::string> section;
        for (const std::string& raw : *lines) {
            const ProfileLine line = ParseLine(raw);
            if (line.kind == ProfileLine::Section)
                section = FoldCase(line.name);
            else if (line.kind == ProfileLine::Key && section)
                values.try_emplace(Join(*section, FoldCase(line.name)), StripQuotes(line.value));
        }
    }

    void Forget() {
        std::unique_lock<std::shared_mutex> lock(mutex);
        loaded = false;
        values.clear();
        tables.clear();
    }

    // The table of `list`, or nullptr when none was made since the file was read.
    std::shared_ptr<const Table> FindTable(const KeyList& list) const {
        for (const auto& [made, table] : tables)
            if (made == &list) return table;
        return nullptr;
    }

    // The value of the joined folded names, or nullptr.
    const std::string* Find(std::string_view joined) const {
        const auto it = values.find(joined);
        return it == values.end() ? nullptr : &it->second;
    }
};

namespace {

// The folded names joined as the cache keys them. ASCII names, the usual
// case, are folded into a buffer on the stack; others go through FoldCase.
class LookupKey {
public:
    LookupKey(std::string_view section, std::string_view key) {
        section = Trim(section);
        key = Trim(key);
        if (section.size() + 1 + key.size() <= buffer_.size()) {
            char* p = buffer_.data();
            unsigned char high = 0;  // any byte of a UTF-8 sequence sets the top bit
            p = FoldAscii(section, p, high);
            *p++ = IniFile::Cache::kKeyJoin;
            p = FoldAscii(key, p, high);
            if (high < 0x80) {
                view_ = std::string_view(buffer_.data(), static_cast<size_t>(p - buffer_.data()));
                return;
            }
        }
        long_ = IniFile::Cache::Join(FoldCase(section), FoldCase(key));
        view_ = long_;
    }
    std::string_view View() const { return view_; }

private:
    static char* FoldAscii(std::string_view text, char* out, unsigned char& high) {
        for (const char c : text) {
            high |= static_cast<unsigned char>(c);
            *out++ = static_cast<char>(c | ((c >= 'A' && c <= 'Z') ? 0x20 : 0));
        }
        return out;
    }

    std::array<char, 128> buffer_;
    std::string long_;
    std::string_view view_;
};

}  // namespace

namespace {

// One cache per file path for the whole process, so that every object that
// names a file sees the writes made through any other; kept while an object
// uses it.
std::mutex cachesMutex;
std::unordered_map<std::string, std::weak_ptr<IniFile::Cache>>& Caches() {
    static std::unordered_map<std::string, std::weak_ptr<IniFile::Cache>> caches;
    return caches;
}

std::shared_ptr<IniFile::Cache> CacheFor(const std::string& path) {
    if (path.empty()) return std::make_shared<IniFile::Cache>();
    std::lock_guard<std::mutex> lock(cachesMutex);
    auto& caches = Caches();
    if (caches.size() > 64) std::erase_if(caches, [](const auto& entry) { return entry.second.expired(); });
    std::weak_ptr<IniFile::Cache>& slot = caches[path];
    std::shared_ptr<IniFile::Cache> cache = slot.lock();
    if (!cache) {
        cache = std::make_shared<IniFile::Cache>();
        slot = cache;
    }
    return cache;
}

}  // namespace

IniFile::IniFile(std::string path) : path_(std::move(path)), cache_(CacheFor(path_)) {}

void IniFile::ReadAgain(const std::string& path) {
    std::shared_ptr<Cache> cache;
    {
        std::lock_guard<std::mutex> lock(cachesMutex);
        const auto it = Caches().find(path);
        if (it == Caches().end()) return;
        cache = it->second.lock();
    }
    if (cache) cache->Forget();
}

bool IniFile::Exists() const { return !path_.empty() && FileExists(path_); }

std::string IniFile::ReadString(std::string_view section, std::string_view key,
                                std::string_view def, size_t maxChars) const {
    const LookupKey lookup(section, key);
    {
        std::shared_lock<std::shared_mutex> lock(cache_->mutex);
        if (cache_->loaded) {
            const std::string* value = cache_->Find(lookup.View());
            return CutToUtf16Units(value ? std::string_view(*value) : def, maxChars);
        }
    }
    std::unique_lock<std::shared_mutex> lock(cache_->mutex);
    if (!cache_->loaded) cache_->Load(path_);
    const std::string* value = cache_->Find(lookup.View());
    return CutToUtf16Units(value ? std::string_view(*value) : def, maxChars);
}

std::shared_ptr<const IniFile::Table> IniFile::ReadTable(const KeyList& list) const {
    {
        std::shared_lock<std::shared_mutex> lock(cache_->mutex);
        if (cache_->loaded)
            if (std::shared_ptr<const Table> table = cache_->FindTable(list)) return table;
    }
    std::unique_lock<std::shared_mutex> lock(cache_->mutex);
    if (!cache_->loaded) cache_->Load(path_);
    if (std::shared_ptr<const Table> table = cache_->FindTable(list)) return table;
    auto table = std::make_shared<Table>();
    table->reserve(list.keys.size());
    for (const std::string_view key : list.keys) {
        const std::string* value = cache_->Find(LookupKey(list.section, key).View());
        table->push_back(CutToUtf16Units(value ? std::string_view(*value) : std::string_view(), list.maxChars));
    }
    cache_->tables.emplace_back(&list, table);
    return table;
}

bool IniFile::Rewrite(const std::function<bool(std::vector<std::string>&)>& edit) {
    if (path_.empty()) return false;
    if (!FileExists(path_) && !WriteFileAtomically(path_, "\xFF\xFE")) return false;
    std::optional<std::vector<std::string>> lines = LoadLines(path_);
    if (!lines) return false;
    if (!edit(*lines)) return true;
    const bool written = WriteUtf16File(path_, std::string_view(JoinLines(*lines)));
    cache_->Forget();
    return written;
}

bool IniFile::WriteString(std::string_view section, std::string_view key, std::string_view value) {
    const std::string sectionName(Trim(section));
    const std::string keyName(Trim(key));
    if (sectionName.empty() || keyName.empty()) return false;
    const std::string foldedSection = FoldCase(sectionName);
    const std::string foldedKey = FoldCase(keyName);
    const std::string newValue = SingleLine(value);
    return Rewrite([&](std::vector<std::string>& lines) {
        for (size_t header = 0; header < lines.size(); ++header) {
            if (!IsSectionNamed(ParseLine(lines[header]), foldedSection)) continue;
            const size_t end = SectionEnd(lines, header);
            size_t insertAt = header + 1;
            for (size_t i = header + 1; i < end; ++i) {
                const ProfileLine line = ParseLine(lines[i]);
                if (line.kind == ProfileLine::Key && FoldCase(line.name) == foldedKey) {
                    lines[i] = std::string(line.name) + "=" + newValue;
                    return true;
                }
                if (!Trim(lines[i]).empty()) insertAt = i + 1;
            }
            lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(insertAt), keyName + "=" + newValue);
            return true;
        }
        lines.push_back("[" + sectionName + "]");
        lines.push_back(keyName + "=" + newValue);
        return true;
    });
}

bool IniFile::DeleteKey(std::string_view section, std::string_view key) {
    const std::string foldedSection = FoldCase(Trim(section));
    const std::string foldedKey = FoldCase(Trim(key));
    return Rewrite([&](std::vector<std::string>& lines) {
        bool changed = false;
        bool inSection = false;
        for (size_t i = 0; i < lines.size();) {
            const ProfileLine line = ParseLine(lines[i]);
            if (line.kind == ProfileLine::Section) inSection = FoldCase(line.name) == foldedSection;
            if (inSection && line.kind == ProfileLine::Key && FoldCase(line.name) == foldedKey) {
                lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i));
                changed = true;
            } else {
                ++i;
            }
        }
        return changed;
    });
}

bool IniFile::DeleteSection(std::string_view section) {
    const std::string foldedSection = FoldCase(Trim(section));
    return Rewrite([&](std::vector<std::string>& lines) {
        bool changed = false;
        for (size_t header = 0; header < lines.size();) {
            if (IsSectionNamed(ParseLine(lines[header]), foldedSection)) {
                const size_t end = SectionEnd(lines, header);
                lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(header),
                            lines.begin() + static_cast<std::ptrdiff_t>(end));
                changed = true;
            } else {
                ++header;
            }
        }
        return changed;
    });
}

std::vector<std::string> IniFile::Sections() const {
    std::vector<std::string> names;
    std::vector<std::string> folded;
    std::optional<std::vector<std::string>> lines = LoadLines(path_);
    if (!lines) return names;
    for (const std::string& raw : *lines) {
        const ProfileLine line = ParseLine(raw);
        if (line.kind != ProfileLine::Section) continue;
        AddUnique(names, folded, line.name);
    }
    return names;
}

std::vector<std::string> IniFile::Keys(std::string_view section) const {
    std::vector<std::string> names;
    std::vector<std::string> folded;
    std::optional<std::vector<std::string>> lines = LoadLines(path_);
    if (!lines) return names;
    const std::string foldedSection = FoldCase(Trim(section));
    bool inSection = false;
    for (const std::string& raw : *lines) {
        const ProfileLine line = ParseLine(raw);
        if (line.kind == ProfileLine::Section) inSection = FoldCase(line.name) == foldedSection;
        if (!inSection || line.kind != ProfileLine::Key) continue;
        AddUnique(names, folded, line.name);
    }
    return names;
}

std::string FoldCase(std::string_view text) {
    std::string folded(text);
    bool ascii = true;
    for (char& c : folded) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        ascii = ascii && static_cast<unsigned char>(c) < 0x80;
    }
    if (ascii) return folded;
    const locale_t locale = Utf8CaseLocale();
    if (locale == static_cast<locale_t>(0)) return folded;
    std::u16string units = Utf8ToUtf16(text);
    for (char16_t& unit : units)
        if (unit < 0xD800 || unit > 0xDFFF) unit = static_cast<char16_t>(towlower_l(unit, locale));
    return Utf16ToUtf8(units);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) { return FoldCase(a) == FoldCase(b); }

std::string CutToUtf16Units(std::string_view text, size_t maxChars) {
    // a UTF-8 text never has more UTF-16 code units than bytes
    if (text.size() <= maxChars) return std::string(text);
    size_t units = 0;
    size_t pos = 0;
    while (pos < text.size()) {
        const unsigned char lead = static_cast<unsigned char>(text[pos]);
        const size_t bytes = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        const size_t need = bytes == 4 ? 2 : 1;
        if (units + need > maxChars) break;
        units += need;
        pos += bytes;
    }
    return std::string(text.substr(0, std::min(pos, text.size())));
}

}  // namespace tormel
