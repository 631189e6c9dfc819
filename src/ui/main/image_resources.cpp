#include "ui/main/image_resources.h"

#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

namespace tormel {
namespace {

// Base names that share one drawing: the tile, the menu item and the window
// icon of the same subject look alike.
struct Alias {
    const char* base;
    const char* svg;
};
constexpr Alias kAliases[] = {
    {"NEW", "new"},           {"OPEN", "open"},          {"EDIT", "edit"},
    {"SAVE", "save"},         {"ICONSAVE", "save"},      {"CALC", "calc"},
    {"TITR", "titr"},         {"CLBR", "clbr"},          {"VIEW", "view"},
    {"PRNT", "print"},        {"ICONPRINT", "print"},    {"XPRT", "export"},
    {"VIEWCOMP", "compare"},  {"ICONVIEWSBS", "compare"}, {"MANAGEDB", "managedb"},
    {"INFO", "info"},         {"CONTENT", "content"},    {"OPTS", "options"},
    {"OPTIONS", "options"},   {"ICONOPT", "options"},    {"GETSTART", "getstart"},
    {"INDX", "index"},        {"SEARCH", "search"},      {"ICONSRCH", "search"},
    {"CONTACT", "contact"},   {"WWW", "www"},            {"EMAIL", "email"},
    {"FB", "social"},         {"YT", "video"},           {"INPUT", "input"},
    {"ICONINPUT", "input"},   {"OUTPUT", "output"},      {"ICONOUTPUT", "output"},
    {"DATAB", "database"},    {"ICONDB", "database"},    {"HELP", "help"},
    {"ICONHELP", "help"},     {"ICONCANCEL", "cancel"},  {"ICONOK", "ok"},
    {"ICONCSV", "csv"},       {"ICONXML", "xml"},        {"ICONEQARROWS", "eqarrows"},
    {"ICONPIESDRIGHT", "pies_right"}, {"ICONPIESDBOTTOM", "pies_bottom"},
    {"ICONPLUS", "plus"},     {"TORMEL", "tormel"},
};

constexpr int kIconSize = 32;

struct ParsedName {
    QString svg;  // file base name under :/icons
    QSize size;
};

ParsedName Parse(const QString& name) {
    static const QRegularExpression pattern(QStringLiteral("^(?:IMG|IMAGE)_([A-Z]+?)(\\d*)$"));
    const auto match = pattern.match(name.toUpper());
    if (!match.hasMatch()) return {};
    const QString base = match.captured(1);
    for (const Alias& alias : kAliases) {
        if (base != QLatin1String(alias.base)) continue;
        ParsedName parsed{QString::fromLatin1(alias.svg), {}};
        if (!match.captured(2).isEmpty()) {
            const int side = match.captured(2).toInt();
            parsed.size = QSize(side, side);
        } else if (base == QLatin1String("ICONEQARROWS")) {
            parsed.size = QSize(24, 16);
        } else {
            parsed.size = QSize(kIconSize, kIconSize);
        }
        return parsed;
    }
    return {};
}

QPixmap Render(const QString& svgPath, QSize size) {
    QSvgRenderer renderer(svgPath);
    if (!renderer.isValid() || size.isEmpty()) return {};
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    // Keep the drawing's aspect ratio and centre it.
    QSizeF drawn = renderer.viewBoxF().size();
    drawn.scale(QSizeF(size), Qt::KeepAspectRatio);
    const QRectF target((size.width() - drawn.width()) / 2, (size.height() - drawn.height()) / 2,
                        drawn.width(), drawn.height());
    renderer.render(&painter, target);
    return pixmap;
}

}  // namespace

QString ResourceSvgPath(const QString& name) {
    const ParsedName parsed = Parse(name);
    return parsed.svg.isEmpty() ? QString() : QStringLiteral(":/icons/%1.svg").arg(parsed.svg);
}

QSize ResourceImageSize(const QString& name) {
    return Parse(name).size;
}

QPixmap ResourceImage(const QString& name, double scale) {
    const ParsedName parsed = Parse(name);
    if (parsed.svg.isEmpty()) return {};
    const QSize size = (QSizeF(parsed.size) * (scale > 0 ? scale : 1.0)).toSize();
    return Render(QStringLiteral(":/icons/%1.svg").arg(parsed.svg), size);
}

QIcon ResourceIcon(const QString& name) {
    const QString path = ResourceSvgPath(name);
    if (path.isEmpty()) return {};
    QIcon icon;
    for (int side : {16, 24, 32, 48, 64, 96, 128, 256}) icon.addPixmap(Render(path, QSize(side, side)));
    return icon;
}

}  // namespace tormel
