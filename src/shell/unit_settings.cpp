#include "shell/unit_settings.h"

#include "core/c_number.h"

namespace tormel {

namespace {

constexpr std::string_view kUnits = "Units";

// The key's value when remembering, else (or when outside lo..hi) its default.
int32_t UnitValue(const Settings& settings, bool remember, std::string_view key, int32_t lo,
                  int32_t hi) {
    const SettingKey* row = FindSettingKey(kUnits, key);
    const int32_t def = row ? StrToIntPlatform(row->defaultText) : 0;
    if (!remember) return def;
    const int32_t value = settings.ReadSettingInt(kUnits, key, def);
    return value >= lo && value <= hi ? value : def;
}

}  // namespace

bool LoadUnitSettings(UnitSettings& units, const Settings& settings) {
    if (units.loaded) return false;
    const bool remember = settings.ReadSettingBool("Options", "Remember-Units");
    units.numDec = UnitValue(settings, remember, "NumDec", 1, 9);
    units.units = UnitValue(settings, remember, "Units", 0, 1);
    units.order = UnitValue(settings, remember, "Order", 0, 3);
    units.loaded = true;
    return true;
}

void SaveUnitSettings(const UnitSettings& units, Settings& settings) {
    if (!settings.ReadSettingBool("Options", "Remember-Units")) return;
    settings.WriteSettingInt(kUnits, "NumDec", units.numDec);
    settings.WriteSettingInt(kUnits, "Units", units.units);
    settings.WriteSettingInt(kUnits, "Order", units.order);
}

}  // namespace tormel
