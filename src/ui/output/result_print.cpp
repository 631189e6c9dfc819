#include "ui/output/result_print.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <vector>

#include <QFontMetricsF>

#include "output/result_tables.h"
#include "ui/output/page_flow.h"
#include "ui/output/pie_chart.h"

namespace tormel {
namespace {

// Row shading by row class, as in the viewer's lists.
QColor RowColour(int32_t rowClass) {
    const int32_t c = rowClass > 5 ? rowClass % 10 : rowClass;
    switch (c) {
        case 1: return {255, 255, 192};
        case 2: return {223, 255, 255};
        case 3: return {255, 239, 239};
        case 4: return {223, 255, 223};
        case 5: return {224, 224, 224};
        default: return {};
    }
}

const QColor kHeadingShade(235, 235, 235);
constexpr double kMaxColumnShare = 0.34;

struct TableColumn {
    QString heading;
    double weight;  // share of the width (the viewer's column width)
    Qt::Alignment align;
};

struct TableRow {
    std::vector<QString> cells;
    int32_t rowClass = 0;
};

// Summary or details rows of the result tables as printed rows.
template <typename Row>
std::vector<TableRow> ToTableRows(const std::vector<Row>& rows) {
    std::vector<TableRow> printed;
    for (const Row& row : rows) {
        TableRow r{{}, row.rowClass};
        for (const std::string& text : row.texts) r.cells.push_back(QString::fromStdString(text));
        printed.push_back(std::move(r));
    }
    return printed;
}

class ResultPages {
public:
    ResultPages(PageFlow& flow, Workspace& ws, int32_t set, const PrintSettings& settings)
        : flow_(flow), ws_(ws), set_(set), settings_(settings), context_(MakeResultContext(ws)) {
        font_ = flow.Font();
        bold_ = font_;
        bold_.setBold(true);
        heading_ = bold_;
        heading_.setPointSizeF(font_.pointSizeF() * 1.35);
        small_ = font_;
        small_.setPointSizeF(font_.pointSizeF() * 0.8);
        smallBold_ = small_;
        smallBold_.setBold(true);
    }

    void Run() {
        const SetView view = ViewSet(ws_.results, set_);
        bool first = true;
        for (ComponentType kind : {ComponentType::Cation, ComponentType::Ligand, ComponentType::Gas}) {
            for (size_t i = 0; i < view.components.size(); ++i) {
                if (view.components[i].kind != kind) continue;
                if (!first && settings_.graphs) flow_.NewPage();
                first = false;
                Component(static_cast<int32_t>(i));
            }
        }
        if (settings_.otherInfo) OtherInfo();
    }

private:
    QString Text(const char* section, const char* key) const {
        return QString::fromStdString(LanguageText(ws_.language, section, key));
    }
    double LineHeight(const QFont& font) const {
        return QFontMetricsF(font, flow_.Device()).height();
    }
    double RowHeight() const { return LineHeight(small_) * 1.35; }

    void Heading(const QString& text, const QFont& font, double keepWith) {
        const double h = LineHeight(font) * 1.4;
        const QPointF at = flow_.Take(h, keepWith);
        if (QPainter* p = flow_.Painter()) {
            p->setFont(font);
            p->setPen(Qt::black);
            p->drawText(QRectF(at, QSizeF(flow_.Width(), h)), Qt::AlignLeft | Qt::AlignVCenter, text);
        }
    }

    void Paragraph(const QString& text) {
        if (text.isEmpty()) return;
        const QRectF bounds = QFontMetricsF(small_, flow_.Device())
                                  .boundingRect(QRectF(0, 0, flow_.Width(), 1e6), Qt::TextWordWrap, text);
        const double h = std::min(bounds.height() + LineHeight(small_) * 0.3, flow_.BodyHeight());
        const QPointF at = flow_.Take(h);
        if (QPainter* p = flow_.Painter()) {
            p->setFont(small_);
            p->setPen(Qt::black);
            p->drawText(QRectF(at, QSizeF(flow_.Width(), h)), Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, text);
        }
    }

    // Each column gets the width of its widest text, at most a third of the
    // page. When the table fits, the room left over goes by the columns'
    // weights; a table too wide for the page cuts its widest columns down
    // (long texts end in an ellipsis).
    std::vector<double> ColumnWidths(std::span<const TableColumn> columns, const std::vector<TableRow>& rows) const {
        const QFontMetricsF plain(small_, flow_.Device());
        const QFontMetricsF heading(smallBold_, flow_.Device());
        const double pad = flow_.Points(5);
        std::vector<double> natural;
        for (size_t c = 0; c < columns.size(); ++c) {
            // A heading may wrap: its longest word counts.
            double w = 0;
            for (const QString& word : columns[c].heading.split(QLatin1Char(' ')))
                w = std::max(w, heading.horizontalAdvance(word));
            for (const TableRow& row : rows)
                if (c < row.cells.size()) w = std::max(w, plain.horizontalAdvance(row.cells[c]));
            natural.push_back(std::min(w + pad, flow_.Width() * kMaxColumnShare));
        }
        const double sum = std::accumulate(natural.begin(), natural.end(), 0.0);
        std::vector<double> widths = natural;
        if (sum > flow_.Width()) {
            // Too wide: cut the widest columns down to one common width.
            std::vector<double> sorted = natural;
            std::sort(sorted.begin(), sorted.end());
            double below = 0;  // the sum of the columns narrower than the cap
            double cap = sorted.back();
            for (size_t k = 0; k < sorted.size(); ++k) {
                cap = (flow_.Width() - below) / static_cast<double>(sorted.size() - k);
                if (cap <= sorted[k]) break;
                below += sorted[k];
            }
            for (double& w : widths) w = std::min(w, cap);
            return widths;
        }
        const double weights = std::accumulate(columns.begin(), columns.end(), 0.0,
                                               [](double total, const TableColumn& c) { return total + c.weight; });
        for (size_t c = 0; c < columns.size(); ++c) widths[c] += (flow_.Width() - sum) * columns[c].weight / weights;
        return widths;
    }

    // The height of the heading row: two lines when a heading has to wrap.
    double HeadingHeight(std::span<const TableColumn> columns, const std::vector<double>& widths) const {
        const QFontMetricsF metrics(smallBold_, flow_.Device());
        const double pad = flow_.Points(2);
        for (size_t c = 0; c < columns.size(); ++c)
            if (metrics.horizontalAdvance(columns[c].heading) > widths[c] - 2 * pad) return RowHeight() * 1.75;
        return RowHeight();
    }

    void DrawRow(const QPointF& at, double h, const std::vector<double>& widths, std::span<const TableColumn> columns,
                 const std::vector<QString>& cells, const QFont& font, QColor shade, bool headingRow) {
        QPainter* p = flow_.Painter();
        if (!p) return;
        const QRectF row(at, QSizeF(flow_.Width(), h));
        if (shade.isValid() && settings_.tableStyle == PrintTableStyle::Coloured) p->fillRect(row, shade);
        p->setFont(font);
        const QFontMetricsF metrics(font, flow_.Device());
        const double pad = flow_.Points(2);
        double x = at.x();
        for (size_t c = 0; c < columns.size(); ++c) {
            const QRectF cell(x, at.y(), widths[c], h);
            const QString text = c < cells.size() ? cells[c] : QString();
            p->setPen(Qt::black);
            if (headingRow)
                p->drawText(cell.adjusted(pad, 0, -pad, 0), columns[c].align | Qt::AlignVCenter | Qt::TextWordWrap, text);
            else
                p->drawText(cell.adjusted(pad, 0, -pad, 0), columns[c].align | Qt::AlignVCenter,
                            metrics.elidedText(text, Qt::ElideRight, cell.width() - 2 * pad));
            if (settings_.tableStyle != PrintTableStyle::Plain) {
                p->setPen(QPen(QColor(150, 150, 150), flow_.Points(0.4)));
                p->drawRect(cell);
            }
            x += widths[c];
        }
        if (headingRow && settings_.tableStyle == PrintTableStyle::Plain) {
            p->setPen(QPen(Qt::black, flow_.Points(0.6)));
            p->drawLine(row.bottomLeft(), row.bottomRight());
        }
    }

    // A table whose heading row repeats at the top of every page it runs onto.
    void Table(std::span<const TableColumn> columns, const std::vector<TableRow>& rows) {
        const std::vector<double> widths = ColumnWidths(columns, rows);
        std::vector<QString> headings;
        for (const TableColumn& c : columns) headings.push_back(c.heading);
        const double h = RowHeight();
        const double headingH = HeadingHeight(columns, widths);
        const bool hasHeadings = std::any_of(headings.begin(), headings.end(), [](const QString& s) { return !s.isEmpty(); });
        if (hasHeadings)
            DrawRow(flow_.Take(headingH, rows.empty() ? 0 : h), headingH, widths, columns, headings, smallBold_,
                    kHeadingShade, true);
        for (const TableRow& row : rows) {
            QPointF at = flow_.Take(h);
            if (flow_.StartedPage() && hasHeadings) {
                // Room for the heading row above this row on the new page.
                DrawRow(at, headingH, widths, columns, headings, smallBold_, kHeadingShade, true);
                flow_.Space(headingH - h);
                at = flow_.Take(h);
            }
            DrawRow(at, h, widths, columns, row.cells, small_, RowColour(row.rowClass), false);
        }
    }

    void Component(int32_t i) {
        const ComponentResult& component = ViewSet(ws_.results, set_).components[static_cast<size_t>(i)];
        const std::vector<SummaryRow> summary = SummaryTable(ws_.results, set_, i, context_);
        const std::vector<DetailsRow> details = DetailsTable(ws_.results, set_, i, context_);
        const double rowH = RowHeight();

        QString title = QString::fromStdString(component.displayName);
        if (!component.gasText.empty()) title += QStringLiteral("  (%1)").arg(QString::fromStdString(component.gasText));
        Heading(title, heading_, LineHeight(bold_) * 1.4 + rowH * 2);

        if (settings_.summary) {
            Heading(Text("Output", "Summary"), bold_, rowH * 2);
            const TableColumn columns[] = {
                {Text("Output", "Fraction"), 150, Qt::AlignLeft},
                {Text("Output", "Concentration"), 125, Qt::AlignRight},
                {Text("Output", "Unit"), 50, Qt::AlignRight},
                {Text("Output", "Percentage"), 100, Qt::AlignRight},
            };
            Table(columns, ToTableRows(summary));
            flow_.Space(rowH * 0.6);
        }
        if (settings_.details) {
            Heading(Text("Output", "Details"), bold_, rowH * 2);
            const TableColumn columns[] = {
                {Text("Output", "Species"), 110, Qt::AlignLeft},
                {Text("Output", "Concentration"), 100, Qt::AlignRight},
                {Text("Output", "Unit"), 50, Qt::AlignRight},
                {Text("Output", "Percentage"), 100, Qt::AlignRight},
                {Text("Output", "Activity"), 90, Qt::AlignRight},
                {Text("Output", "Unit"), 50, Qt::AlignRight},
                {Text("Output", "IntrinsicK"), 90, Qt::AlignRight},
                {Text("Output", "ConditionalK"), 120, Qt::AlignRight},
                {Text("Output", "LitRef"), 150, Qt::AlignLeft},
            };
            Table(columns, ToTableRows(details));
            flow_.Space(rowH * 0.6);
        }
        if (settings_.graphs) Pies();
    }

    // The two pies side by side, each in the viewer's 480 x 260 proportions.
    void Pies() {
        const ResultSet& set = ws_.results.sets[static_cast<size_t>(set_)];
        const double gap = flow_.Points(8);
        const double w = (flow_.Width() - gap) / 2;
        const double h = w * kPiePanelHeight / kPiePanelWidth;
        const QPointF at = flow_.Take(h + gap);
        QPainter* p = flow_.Painter();
        if (!p) return;
        PieChartStyle style;
        style.negativeNote = Text("Output", "PieNegativeConc");
        style.colour = settings_.graphsColour;
        style.caption = Text("Output", "PieFractions");
        DrawPieChart(*p, QRectF(at, QSizeF(w, h)), ParsePieText(set.summaryPieText), style);
        style.caption = Text("Output", "PieSpecies");
        DrawPieChart(*p, QRectF(at + QPointF(w + gap, 0), QSizeF(w, h)), ParsePieText(set.detailsPieText), style);
    }

    void OtherInfo() {
        const InfoBlocks& blocks = ws_.results.sets[static_cast<size_t>(set_)].otherInfo;
        flow_.NewPage();
        Heading(Text("OtherInfo", "Caption"), heading_, 0);
        const double rowH = RowHeight();
        for (const InfoBlock& block : blocks) {
            if (block.title.empty()) continue;
            flow_.Space(rowH * 0.6);
            Heading(QString::fromStdString(block.title), bold_, rowH * 2);
            if (block.longText != block.title) Paragraph(QString::fromStdString(block.longText));
            const int32_t columnCount = std::clamp(block.columnCount, 1, kInfoColumns);
            const QStringList headings = QString::fromStdString(block.gridHeader).split(QLatin1Char(','));
            std::vector<TableColumn> columns;
            for (int32_t c = 0; c < columnCount; ++c) {
                const QString heading = block.gridHeader.empty() || c >= headings.size() ? QString() : headings[c];
                columns.push_back({heading, c == 0 ? 2.2 : 1.0, Qt::AlignLeft});
            }
            std::vector<TableRow> rows;
            for (int32_t r = 0; r < block.rowCount; ++r) {
                TableRow row;
                for (int32_t c = 0; c < columnCount; ++c) {
                    row.cells.push_back(QString::fromStdString(block.ShownAt(c, r)));
                }
                rows.push_back(std::move(row));
            }
            Table(columns, rows);
        }
    }

    PageFlow& flow_;
    Workspace& ws_;
    int32_t set_;
    const PrintSettings& settings_;
    ResultContext context_;
    QFont font_, bold_, heading_, small_, smallBold_;
};

QFont PrintFont(const PrintSettings& settings) {
    QFont font(QString::fromStdString(settings.fontFamily));
    font.setStyleHint(QFont::Serif);
    font.setPointSizeF(settings.fontSize);
    return font;
}

int RunPages(QPagedPaintDevice& device, QPainter* painter, Workspace& ws, int32_t set, const PrintSettings& settings,
             const QString& fileName, int totalPages) {
    const QRectF page(QPointF(0, 0), device.pageLayout().paintRectPixels(device.logicalDpiX()).size());
    PageFrame frame{QStringLiteral("TORMEL Next (64 bits): %1").arg(QString::fromStdString(
                        LanguageText(ws.language, "Output", "WindowCaption"))),
                    fileName};
    PageFlow flow(painter, device, page, PrintFont(settings), frame, totalPages);
    ResultPages(flow, ws, set, settings).Run();
    return flow.Pages();
}

}  // namespace

int CountResultPages(QPagedPaintDevice& device, Workspace& ws, int32_t set, const PrintSettings& settings,
                     const QString& fileName) {
    return RunPages(device, nullptr, ws, set, settings, fileName, 0);
}

int PrintResultSet(QPagedPaintDevice& device, Workspace& ws, int32_t set, const PrintSettings& settings,
                   const QString& fileName) {
    const int total = CountResultPages(device, ws, set, settings, fileName);
    QPainter painter(&device);
    if (!painter.isActive()) return 0;
    return RunPages(device, &painter, ws, set, settings, fileName, total);
}

}  // namespace tormel
