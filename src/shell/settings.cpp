#include "shell/settings.h"

#include "core/c_number.h"

namespace tormel {

namespace {

using T = SettingType;

// Keys whose default is given by the caller (screen work area, folders,
// system printer) carry `true` in the last column.
constexpr SettingKey kKeys[] = {
    {"Options", "Remember-Units", T::Bool, "1"},
    {"Options", "Remember-Windows", T::Bool, "1"},
    {"Options", "Remember-InputFiles", T::Bool, "1"},
    {"Options", "Remember-OutputFiles", T::Bool, "1"},
    {"Options", "Remember-Folders", T::Bool, "1"},
    {"Options", "Check_Updates", T::Bool, "1"},
    {"Options", "OfferGetStarted", T::Bool, "1"},
    {"Options", "ColorBackGr", T::Int, "9276543"},   // 0x8D8C7F
    {"Options", "ColorForeGr", T::Int, "16777215"},  // 0xFFFFFF
    {"Options", "ColorHyperL", T::Int, "16777024"},  // 0xFFFF40
    {"Options", "MainWindow_Left", T::Int, "", true},
    {"Options", "MainWindow_Top", T::Int, "", true},
    {"Options", "MainWindow_Width", T::Int, "", true},
    {"Options", "MainWindow_Height", T::Int, "", true},
    {"Options", "MainWindow_State", T::Int, "1"},
    {"Options", "MRU-FolderInputFiles", T::String, "", true},
    {"Options", "MRU-FolderOutputFiles", T::String, "", true},
    {"Options", "OutputWindow_Width", T::Int, "", true},
    {"Options", "OutputWindow_Height", T::Int, "", true},
    {"Options", "VertBarLeft", T::Int, "175"},
    {"Options", "HorBarTop", T::Int, "130"},
    {"Options", "RIF1", T::String, ""},
    {"Options", "RIF2", T::String, ""},
    {"Options", "RIF3", T::String, ""},
    {"Options", "RIF4", T::String, ""},
    {"Options", "RIF5", T::String, ""},
    {"Options", "RIF6", T::String, ""},
    {"Options", "RIF7", T::String, ""},
    {"Options", "RIF8", T::String, ""},
    {"Options", "RIF9", T::String, ""},
    {"Options", "ROF1", T::String, ""},
    {"Options", "ROF2", T::String, ""},
    {"Options", "ROF3", T::String, ""},
    {"Options", "ROF4", T::String, ""},
    {"Options", "ROF5", T::String, ""},
    {"Options", "ROF6", T::String, ""},
    {"Options", "ROF7", T::String, ""},
    {"Options", "ROF8", T::String, ""},
    {"Options", "ROF9", T::String, ""},
    {"Units", "NumDec", T::Int, "3"},
    {"Units", "Units", T::Int, "0"},
    {"Units", "Order", T::Int, "0"},
    {"Output", "OutpShowAll", T::Bool, "0"},
    {"Output", "OutpCutOff", T::Double, "0.0001"},
    {"Output", "OutpFreeAlways", T::Bool, "1"},
    {"Output", "OutpShowLogs", T::Bool, "1"},
    {"Output", "ViewGraphs", T::Int, "0"},
    {"Output", "PrintSummmary", T::Bool, "1"},
    {"Output", "PrintDetails", T::Bool, "1"},
    {"Output", "PrintOtherInfo", T::Bool, "1"},
    {"Output", "PrintGraphs", T::Bool, "1"},
    {"Output", "GraphsColor", T::Bool, "1"},
    {"Output", "Printer", T::String, "", true},
    {"Output", "Orientation", T::Int, "1"},
    {"Output", "PrintMargin1", T::Int, "1000"},
    {"Output", "PrintMargin2", T::Int, "1000"},
    {"Output", "PrintMargin3", T::Int, "1000"},
    {"Output", "PrintMargin4", T::Int, "1000"},
    {"Output", "TableStyle", T::Int, "0"},
    {"Output", "PrintFontType", T::String, "Cambria"},
    {"Output", "PrintFontSize", T::Int, "11"},
};

std::string_view TableDefault(std::string_view section, std::string_view key) {
    const SettingKey* row = FindSettingKey(section, key);
    return row ? row->defaultText : std::string_view();
}

std::string DoubleText(double value) { return FormatC("%9.9E", value); }

}  // namespace

std::span<const SettingKey> SettingsKeyTable() { return kKeys; }

const SettingKey* FindSettingKey(std::string_view section, std::string_view key) {
    for (const SettingKey& row : kKeys)
        if (EqualIgnoringCase(row.section, section) && EqualIgnoringCase(row.key, key)) return &row;
    return nullptr;
}

bool Settings::ReadSettingBool(std::string_view section, std::string_view key, bool def) const {
    return StrToIntPlatform(file_.ReadString(section, key, def ? "1" : "0")) != 0;
}

int32_t Settings::ReadSettingInt(std::string_view section, std::string_view key, int32_t def) const {
    return StrToIntPlatform(file_.ReadString(section, key, FormatC("%d", def)));
}

double Settings::ReadSettingDouble(std::string_view section, std::string_view key, double def) const {
    return StrToDoubleC(file_.ReadString(section, key, DoubleText(def)));
}

std::string Settings::ReadSettingString(std::string_view section, std::string_view key,
                                        std::string_view def) const {
    return file_.ReadString(section, key, def, kMaxSettingChars);
}

bool Settings::ReadSettingBool(std::string_view section, std::string_view key) const {
    return ReadSettingBool(section, key, StrToIntPlatform(TableDefault(section, key)) != 0);
}

int32_t Settings::ReadSettingInt(std::string_view section, std::string_view key) const {
    return ReadSettingInt(section, key, StrToIntPlatform(TableDefault(section, key)));
}

double Settings::ReadSettingDouble(std::string_view section, std::string_view key) const {
    return ReadSettingDouble(section, key, StrToDoubleC(TableDefault(section, key)));
}

std::string Settings::ReadSettingString(std::string_view section, std::string_view key) const {
    return ReadSettingString(section, key, TableDefault(section, key));
}

bool Settings::WriteSettingBool(std::string_view section, std::string_view key, bool value) {
    return file_.WriteString(section, key, value ? "1" : "0");
}

bool Settings::WriteSettingInt(std::string_view section, std::string_view key, int32_t value) {
    return file_.WriteString(section, key, FormatC("%d", value));
}

bool Settings::WriteSettingDouble(std::string_view section, std::string_view key, double value) {
    return file_.WriteString(section, key, DoubleText(value));
}

bool Settings::WriteSettingString(std::string_view section, std::string_view key,
                                  std::string_view value) {
    return file_.WriteString(section, key, value);
}

bool Settings::DeleteSettingsSection(std::string_view section) { return file_.DeleteSection(section); }

}  // namespace tormel
