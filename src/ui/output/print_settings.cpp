#include "ui/output/print_settings.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include <QPageSize>

namespace tormel {
namespace {

constexpr int kMarginScale = 100;        // the printing dialog stores the entered value x 100
constexpr double kMaxMarginMm = 60;      // larger margins leave no room for a table
constexpr int kMinFontSize = 6;
constexpr int kMaxFontSize = 24;

double MarginMm(const Settings& settings, const char* key) {
    const double mm = settings.ReadSettingInt("Output", key) / static_cast<double>(kMarginScale);
    return std::clamp(mm, 0.0, kMaxMarginMm);
}

}  // namespace

PrintSettings ReadPrintSettings(const Settings& settings) {
    PrintSettings p;
    p.summary = settings.ReadSettingBool("Output", "PrintSummmary");
    p.details = settings.ReadSettingBool("Output", "PrintDetails");
    p.otherInfo = settings.ReadSettingBool("Output", "PrintOtherInfo");
    p.graphs = settings.ReadSettingBool("Output", "PrintGraphs");
    p.graphsColour = settings.ReadSettingBool("Output", "GraphsColor");
    p.printer = settings.ReadSettingString("Output", "Printer", "");
    p.orientation = settings.ReadSettingInt("Output", "Orientation") == 2 ? QPageLayout::Landscape
                                                                           : QPageLayout::Portrait;
    p.marginsMm = QMarginsF(MarginMm(settings, "PrintMargin1"), MarginMm(settings, "PrintMargin2"),
                            MarginMm(settings, "PrintMargin3"), MarginMm(settings, "PrintMargin4"));
    const int style = settings.ReadSettingInt("Output", "TableStyle");
    p.tableStyle = style == 1 ? PrintTableStyle::Grid : style == 2 ? PrintTableStyle::Plain : PrintTableStyle::Coloured;
    const std::string family = settings.ReadSettingString("Output", "PrintFontType");
    if (!family.empty()) p.fontFamily = family;
    p.fontSize = std::clamp(static_cast<int>(settings.ReadSettingInt("Output", "PrintFontSize")), kMinFontSize,
                            kMaxFontSize);
    return p;
}

void WritePrintSettings(const PrintSettings& p, Settings& settings) {
    settings.WriteSettingBool("Output", "PrintSummmary", p.summary);
    settings.WriteSettingBool("Output", "PrintDetails", p.details);
    settings.WriteSettingBool("Output", "PrintOtherInfo", p.otherInfo);
    settings.WriteSettingBool("Output", "PrintGraphs", p.graphs);
    settings.WriteSettingBool("Output", "GraphsColor", p.graphsColour);
    settings.WriteSettingString("Output", "Printer", p.printer);
    settings.WriteSettingInt("Output", "Orientation", p.orientation == QPageLayout::Landscape ? 2 : 1);
    const double margins[4] = {p.marginsMm.left(), p.marginsMm.top(), p.marginsMm.right(), p.marginsMm.bottom()};
    for (int i = 0; i < 4; ++i)
        settings.WriteSettingInt("Output", "PrintMargin" + std::to_string(i + 1),
                                 static_cast<int32_t>(std::lround(margins[i] * kMarginScale)));
    settings.WriteSettingInt("Output", "TableStyle", static_cast<int32_t>(p.tableStyle));
    settings.WriteSettingString("Output", "PrintFontType", p.fontFamily);
    settings.WriteSettingInt("Output", "PrintFontSize", p.fontSize);
}

QPageLayout PrintPageLayout(QPageLayout layout, const PrintSettings& settings, bool toPdf) {
    if (toPdf) layout.setPageSize(QPageSize(QPageSize::A4));
    layout.setOrientation(settings.orientation);
    layout.setUnits(QPageLayout::Millimeter);
    layout.setMinimumMargins(QMarginsF());
    layout.setMargins(settings.marginsMm);
    return layout;
}

bool PrintsToPdf(const PrintSettings& settings) {
    std::string name = settings.printer;
    while (!name.empty() && std::isspace(static_cast<unsigned char>(name.back()))) name.pop_back();
    if (name.find_first_not_of(" \t") == std::string::npos) return true;
    if (name.size() < 4) return false;
    std::string tail = name.substr(name.size() - 4);
    std::transform(tail.begin(), tail.end(), tail.begin(), [](unsigned char c) { return std::tolower(c); });
    return tail == ".pdf";
}

}  // namespace tormel
