#pragma once
// The menu tree of the main window: six root items (the tiles) and 43
// numbered items with their texts, images and command numbers.
#include <span>
#include <string>
#include <vector>

namespace tormel {

class Language;

struct MenuItem {
    int item;            // item number 0..42 (its description is MENUTOOLTIPS/"ToolTip" + (item + 1))
    int tile;            // root item 0..5
    int parentItem;      // -1 under the root item, else the item it belongs to
    const char* section;
    const char* key;
    const char* image;   // 24-pixel image resource
    int command;
};

// Every item, in tree order (children follow their parent).
std::span<const MenuItem> CommandTable();

// The items directly under the root item of `tile`, in order.
std::vector<const MenuItem*> TileItems(int tile);

// The items under `item`, in order.
std::vector<const MenuItem*> SubItems(int item);

// The item of a command number; null when none.
const MenuItem* ItemOfCommand(int command);

// Items 2 and 12 hold the list of recent input or output files.
bool HoldsRecentList(int item);

// Commands that are never enabled (titration, calibration, database management).
bool AlwaysDisabled(int command);

// MainMenu/"Main1".."Main6"
std::string TileCaption(const Language& language, int tile);

// The item's text and its description.
std::string ItemText(const Language& language, const MenuItem& item);
std::string ItemDescription(const Language& language, const MenuItem& item);

// The 96-pixel tile images in tile order.
const char* TileImageName(int tile);

// Command numbers of the panel layout.
constexpr int kTileCaptionCommand = 1001;  // + tile
constexpr int kTileImageCommand = 1011;    // + tile
constexpr int kRecentInputList = 1301;
constexpr int kRecentOutputList = 1302;
constexpr int kWebLinkCommand = 1400;

}  // namespace tormel
