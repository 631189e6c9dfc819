#pragma once
// Lays printed content out from top to bottom over as many pages as it
// needs. The same content code runs twice: once without a painter to count
// the pages, once with one to draw them (so every page can say "n of N").
#include <QFont>
#include <QPainter>
#include <QPagedPaintDevice>
#include <QRectF>
#include <QString>

namespace tormel {

struct PageFrame {
    QString title;      // top left of every page
    QString subtitle;   // top right (file name); "n / N" stands at the bottom
};

class PageFlow {
public:
    // `painter` is null for the counting pass; `device` measures the text in
    // both passes. `page` is the printable area in device pixels.
    PageFlow(QPainter* painter, QPagedPaintDevice& device, const QRectF& page, const QFont& font, PageFrame frame,
             int totalPages);

    // Room for `height`, plus `keepWith` that must follow on the same page;
    // starts a new page when it does not fit (unless the page is still
    // empty). Returns the top-left corner to draw at and advances.
    QPointF Take(double height, double keepWith = 0);
    // True when the last Take started a new page.
    bool StartedPage() const { return startedPage_; }
    // Leaves vertical space (never across a page end).
    void Space(double height);
    // Starts a new page unless the current one is still empty.
    void NewPage();

    QPainter* Painter() const { return painter_; }
    QPaintDevice* Device() const { return &device_; }
    double Width() const { return body_.width(); }
    double Left() const { return body_.left(); }
    double BodyHeight() const { return body_.height(); }
    double Remaining() const { return body_.bottom() - y_; }
    const QFont& Font() const { return font_; }
    // Device pixels for a length in points.
    double Points(double pt) const { return pt * device_.logicalDpiY() / 72.0; }
    int Pages() const { return pages_; }

private:
    void BeginPage();

    QPainter* painter_;
    QPagedPaintDevice& device_;
    QRectF page_;
    QRectF body_;
    QFont font_;
    PageFrame frame_;
    int totalPages_;
    int pages_ = 0;
    double y_ = 0;
    bool pageEmpty_ = true;
    bool startedPage_ = false;
};

}  // namespace tormel
