#pragma once
// The settings file "TORMEL64.INI" with typed access, and the table of every
// key it keeps with its default. Every part of the program reads and writes
// settings only through this object.
//
// Every value is text: booleans are "1"/"0" and read back as the leading
// integer (non-zero is true), integers "%d", floating-point values "%9.9E" in
// the C locale (the default is formatted the same way before the lookup, so a
// missing key and a stored default read alike), strings at most 8192
// characters. A write that cannot be done is lost silently (false returned).
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/ini_file.h"

namespace tormel {

enum class SettingType { Bool, Int, Double, String };

// One key of the settings file. `defaultText` is the default as it would be
// stored; keys whose default depends on the screen or the folders
// (`callerDefault`) take it from the caller and leave `defaultText` empty.
struct SettingKey {
    std::string_view section;
    std::string_view key;
    SettingType type;
    std::string_view defaultText;
    bool callerDefault = false;
};

// Every key the settings file keeps, in the order of its sections.
std::span<const SettingKey> SettingsKeyTable();
// The table row of a key (names compared without regard to case), or nullptr.
const SettingKey* FindSettingKey(std::string_view section, std::string_view key);

class Settings {
public:
    Settings() : file_(std::string()) {}  // no file: every read gives its default
    explicit Settings(std::string settingsFile) : file_(std::move(settingsFile)) {}

    const std::string& Path() const { return file_.Path(); }
    bool Exists() const { return file_.Exists(); }

    // Reads with the caller's default.
    bool ReadSettingBool(std::string_view section, std::string_view key, bool def) const;
    int32_t ReadSettingInt(std::string_view section, std::string_view key, int32_t def) const;
    double ReadSettingDouble(std::string_view section, std::string_view key, double def) const;
    std::string ReadSettingString(std::string_view section, std::string_view key,
                                  std::string_view def) const;

    // Reads with the default of the key table. A key that is not in the
    // table, or whose default comes from the caller, defaults to false, 0,
    // 0.0 or the empty text.
    bool ReadSettingBool(std::string_view section, std::string_view key) const;
    int32_t ReadSettingInt(std::string_view section, std::string_view key) const;
    double ReadSettingDouble(std::string_view section, std::string_view key) const;
    std::string ReadSettingString(std::string_view section, std::string_view key) const;

    bool WriteSettingBool(std::string_view section, std::string_view key, bool value);
    bool WriteSettingInt(std::string_view section, std::string_view key, int32_t value);
    bool WriteSettingDouble(std::string_view section, std::string_view key, double value);
    bool WriteSettingString(std::string_view section, std::string_view key, std::string_view value);

    // Removes a whole section; afterwards each of its keys reads its default.
    bool DeleteSettingsSection(std::string_view section);

private:
    IniFile file_;
};

// The longest text a string setting returns.
inline constexpr size_t kMaxSettingChars = 8192;

}  // namespace tormel
