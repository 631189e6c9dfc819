#include "ui/main/command_table.h"

#include <array>

#include "core/language.h"

namespace tormel {

namespace {

const std::array<MenuItem, 43> kItems = {{
    {0, 0, -1, "InputMenu", "Input1", "IMG_NEW24", 1111},
    {33, 0, 0, "InputMenu", "Input1a", "IMG_NEW24", 1211},
    {34, 0, 0, "InputMenu", "Input1b", "IMG_NEW24", 1212},
    {1, 0, -1, "InputMenu", "Input2", "IMG_OPEN24", 1112},
    {2, 0, -1, "InputMenu", "Input3", "IMG_OPEN24", 1113},
    {3, 0, -1, "InputMenu", "Input4", "IMG_EDIT24", 1114},
    {4, 0, -1, "InputMenu", "Input5", "IMG_SAVE24", 1115},
    {5, 0, -1, "InputMenu", "Input6", "IMG_SAVE24", 1116},
    {6, 0, -1, "InputMenu", "Input7", "IMG_SAVE24", 1117},
    {7, 1, -1, "CalcMenu", "Calc1", "IMG_CALC24", 1121},
    {8, 1, -1, "CalcMenu", "Calc2", "IMG_TITR24", 1122},
    {9, 1, -1, "CalcMenu", "Calc3", "IMG_CLBR24", 1123},
    {10, 2, -1, "OutputMenu", "Output1", "IMG_VIEW24", 1131},
    {11, 2, -1, "OutputMenu", "Output2", "IMG_OPEN24", 1132},
    {12, 2, -1, "OutputMenu", "Output3", "IMG_OPEN24", 1133},
    {13, 2, -1, "OutputMenu", "Output4", "IMG_SAVE24", 1134},
    {14, 2, -1, "OutputMenu", "Output5", "IMG_PRNT24", 1135},
    {15, 2, -1, "OutputMenu", "Output6", "IMG_XPRT24", 1136},
    {35, 2, 15, "OutputMenu", "Output6a", "IMG_XPRT24", 1231},
    {36, 2, 15, "OutputMenu", "Output6b", "IMG_XPRT24", 1232},
    {37, 2, 15, "OutputMenu", "Output6c", "IMG_XPRT24", 1233},
    {38, 2, 15, "OutputMenu", "Output6d", "IMG_XPRT24", 1234},
    {16, 2, -1, "OutputMenu", "Output7", "IMG_VIEWCOMP24", 1137},
    {17, 3, -1, "DBMenu", "Datab1", "IMG_VIEW24", 1141},
    {18, 3, -1, "DBMenu", "Datab2", "IMG_MANAGEDB24", 1142},
    {19, 3, -1, "DBMenu", "Datab3", "IMG_INFO24", 1143},
    {20, 3, -1, "DBMenu", "Datab4", "IMG_CONTENT24", 1144},
    {21, 4, -1, "OptMenu", "Opt1", "IMG_OPTS24", 1151},
    {22, 4, -1, "OptMenu", "Opt2", "IMG_OPTS24", 1152},
    {23, 4, -1, "OptMenu", "Opt3", "IMG_OPTS24", 1153},
    {24, 4, -1, "OptMenu", "Opt4", "IMG_OPTS24", 1154},
    {25, 4, -1, "OptMenu", "Opt5", "IMG_OPTS24", 1155},
    {26, 5, -1, "HelpMenu", "Help1", "IMG_GETSTART24", 1161},
    {27, 5, -1, "HelpMenu", "Help2", "IMG_CONTENT24", 1162},
    {28, 5, -1, "HelpMenu", "Help3", "IMG_INDX24", 1163},
    {29, 5, -1, "HelpMenu", "Help4", "IMG_SEARCH24", 1164},
    {30, 5, -1, "HelpMenu", "Help5", "IMG_CONTACT24", 1165},
    {39, 5, 30, "HelpMenu", "Help5a", "IMG_WWW24", 1261},
    {40, 5, 30, "HelpMenu", "Help5b", "IMG_EMAIL24", 1262},
    {41, 5, 30, "HelpMenu", "Help5c", "IMG_FB24", 1263},
    {42, 5, 30, "HelpMenu", "Help5d", "IMG_YT24", 1264},
    {31, 5, -1, "HelpMenu", "Help6", "IMG_CONTENT24", 1166},
    {32, 5, -1, "HelpMenu", "Help7", "IMG_INFO24", 1167},
}};

const std::array<const char*, 6> kTileImages = {"IMG_INPUT96", "IMG_CALC96",    "IMG_OUTPUT96",
                                                "IMG_DATAB96", "IMG_OPTIONS96", "IMG_HELP96"};

}  // namespace

std::span<const MenuItem> CommandTable() { return kItems; }

std::vector<const MenuItem*> TileItems(int tile) {
    std::vector<const MenuItem*> items;
    for (const MenuItem& item : kItems)
        if (item.tile == tile && item.parentItem < 0) items.push_back(&item);
    return items;
}

std::vector<const MenuItem*> SubItems(int item) {
    std::vector<const MenuItem*> items;
    for (const MenuItem& entry : kItems)
        if (entry.parentItem == item) items.push_back(&entry);
    return items;
}

const MenuItem* ItemOfCommand(int command) {
    for (const MenuItem& item : kItems)
        if (item.command == command) return &item;
    return nullptr;
}

bool HoldsRecentList(int item) { return item == 2 || item == 12; }

bool AlwaysDisabled(int command) { return command == 1122 || command == 1123 || command == 1142; }

std::string TileCaption(const Language& language, int tile) {
    return LanguageText(language, "MainMenu", "Main" + std::to_string(tile + 1));
}

std::string ItemText(const Language& language, const MenuItem& item) {
    return LanguageText(language, item.section, item.key);
}

std::string ItemDescription(const Language& language, const MenuItem& item) {
    std::string text = LanguageText(language, "MENUTOOLTIPS", "ToolTip" + std::to_string(item.item + 1));
    if (text.size() > 259) text.resize(259);
    return text;
}

const char* TileImageName(int tile) { return kTileImages.at(static_cast<size_t>(tile)); }

}  // namespace tormel
