#pragma once
// The program's images by resource name ("IMG_NEW24", "IMG_INPUT96",
// "IMG_ICONHELP", "IMAGE_TORMEL" ...). Each base name is drawn once as an SVG
// (data/icons, compiled in) and rendered at the size the name asks for: the
// trailing number when there is one (24 for menu items, 96 for tiles),
// 32 for window and button icons, 24 by 16 for "IMG_ICONEQARROWS".
#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace tormel {

// The SVG resource path (":/icons/...") behind a resource name, or an empty
// string for a name the program does not know.
QString ResourceSvgPath(const QString& name);

// The pixel size a resource name asks for (an empty size for an unknown name).
QSize ResourceImageSize(const QString& name);

// The image at its design size times `scale` (the display scale), with the
// device pixel ratio left at 1. A null pixmap for an unknown name.
QPixmap ResourceImage(const QString& name, double scale = 1.0);

// The same drawing as an icon that renders sharply at any size (window icons,
// tool buttons). A null icon for an unknown name.
QIcon ResourceIcon(const QString& name);

}  // namespace tormel
