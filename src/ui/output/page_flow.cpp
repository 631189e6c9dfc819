#include "ui/output/page_flow.h"

#include <QFontMetricsF>

namespace tormel {

PageFlow::PageFlow(QPainter* painter, QPagedPaintDevice& device, const QRectF& page, const QFont& font,
                   PageFrame frame, int totalPages)
    : painter_(painter), device_(device), page_(page), font_(font), frame_(std::move(frame)),
      totalPages_(totalPages) {
    // Header line and footer line take one text line each plus a gap.
    const double line = QFontMetricsF(font_, &device_).height();
    const double band = line * 1.8;
    body_ = page_.adjusted(0, band, 0, -band);
    BeginPage();
}

void PageFlow::BeginPage() {
    ++pages_;
    y_ = body_.top();
    pageEmpty_ = true;
    if (!painter_) return;
    painter_->save();
    QFont small = font_;
    small.setPointSizeF(font_.pointSizeF() * 0.85);
    painter_->setFont(small);
    painter_->setPen(QColor(64, 64, 64));
    const double line = QFontMetricsF(small, &device_).height();
    const QRectF top(page_.left(), page_.top(), page_.width(), line);
    painter_->drawText(top, Qt::AlignLeft | Qt::AlignVCenter, frame_.title);
    painter_->drawText(top, Qt::AlignRight | Qt::AlignVCenter, frame_.subtitle);
    painter_->setPen(QPen(QColor(128, 128, 128), Points(0.5)));
    painter_->drawLine(QPointF(page_.left(), top.bottom() + line * 0.3), QPointF(page_.right(), top.bottom() + line * 0.3));
    const QRectF bottom(page_.left(), page_.bottom() - line, page_.width(), line);
    painter_->setPen(QColor(64, 64, 64));
    painter_->drawText(bottom, Qt::AlignHCenter | Qt::AlignVCenter,
                       QStringLiteral("%1 / %2").arg(pages_).arg(totalPages_));
    painter_->restore();
}

void PageFlow::NewPage() {
    if (pageEmpty_) return;
    if (painter_) device_.newPage();
    BeginPage();
}

QPointF PageFlow::Take(double height, double keepWith) {
    startedPage_ = false;
    if (!pageEmpty_ && y_ + height + keepWith > body_.bottom()) {
        NewPage();
        startedPage_ = true;
    }
    const QPointF at(body_.left(), y_);
    y_ += height;
    pageEmpty_ = false;
    return at;
}

void PageFlow::Space(double height) {
    if (pageEmpty_) return;
    y_ = std::min(y_ + height, body_.bottom());
}

}  // namespace tormel
