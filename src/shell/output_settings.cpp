#include "shell/output_settings.h"

#include "shell/unit_settings.h"

namespace tormel {

namespace {

constexpr std::string_view kOutput = "Output";

}  // namespace

void LoadOutputOptions(OutputOptions& options, const Settings& settings) {
    if (LoadUnitSettings(options.units, settings)) RebuildNumberFormats(options);
    if (options.loaded) return;
    const OutputOptions defaults;
    if (settings.ReadSettingBool("Options", "Remember-Units")) {
        options.showAll = settings.ReadSettingBool(kOutput, "OutpShowAll");
        options.cutOff = settings.ReadSettingDouble(kOutput, "OutpCutOff");
        options.freeAlways = settings.ReadSettingBool(kOutput, "OutpFreeAlways");
        options.showLogs = settings.ReadSettingBool(kOutput, "OutpShowLogs");
    } else {
        options.showAll = defaults.showAll;
        options.cutOff = defaults.cutOff;
        options.freeAlways = defaults.freeAlways;
        options.showLogs = defaults.showLogs;
    }
    options.loaded = true;
}

void SaveOutputOptions(const OutputOptions& options, Settings& settings) {
    SaveUnitSettings(options.units, settings);
    if (!settings.ReadSettingBool("Options", "Remember-Units")) return;
    settings.WriteSettingBool(kOutput, "OutpShowAll", options.showAll);
    settings.WriteSettingDouble(kOutput, "OutpCutOff", options.cutOff);
    settings.WriteSettingBool(kOutput, "OutpFreeAlways", options.freeAlways);
    settings.WriteSettingBool(kOutput, "OutpShowLogs", options.showLogs);
}

}  // namespace tormel
