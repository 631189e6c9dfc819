#include "ui/output/reaction_definition_window.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>
#include <QPainter>
#include <QPointer>

#include "shell/workspace.h"
#include "ui/main/image_resources.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

namespace {

QPointer<ReactionDefinitionWindow> openWindow;

const QColor kText(4, 4, 4);
const QColor kBackground(251, 251, 251);
const QColor kRule(192, 192, 192);

}  // namespace

ReactionDefinitionWindow::ReactionDefinitionWindow(Workspace& ws, QWidget* owner)
    : QWidget(owner, Qt::Window), ws_(ws), fonts_(DefaultReactionFonts()) {
    setObjectName(QStringLiteral("FrmViewEqDef"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(LangQ(ws.language, "EqDef", "WindowCaption"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONEQARROWS")));
    resize(Scaled(400), Scaled(234));
}

void ReactionDefinitionWindow::Show(const ReactionDefinition& definition) {
    definition_ = definition;
    const int margin = Scaled(5);
    const QScreen* screen = QGuiApplication::primaryScreen();
    const int widest = screen ? screen->availableGeometry().width() : 1280;
    layout_ = LayOutReaction(definition_, ws_.language, ws_.decimalSeparator, fonts_, widest - margin);
    resize(std::min(widest, std::max(width(), static_cast<int>(layout_.width) + margin)),
           static_cast<int>(layout_.height));
    update();
}

void ReactionDefinitionWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), kBackground);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(kRule);
    for (double y : layout_.rules) painter.drawLine(QPointF(0, y), QPointF(width(), y));
    painter.setPen(kText);
    painter.drawLine(layout_.fractionBar);
    for (const ReactionPiece& piece : layout_.pieces) {
        const QFont& font = piece.font == ReactionFont::Small    ? fonts_.small
                            : piece.font == ReactionFont::Italic ? fonts_.italic
                                                                 : fonts_.normal;
        painter.setFont(font);
        painter.drawText(piece.topLeft + QPointF(0, QFontMetricsF(font).ascent()), piece.text);
    }
}

ReactionDefinitionWindow* OpenReactionDefinitionWindow() { return openWindow.data(); }

void ShowReactionDefinition(Workspace& ws, const ReactionDefinition& definition, QWidget* owner) {
    if (!openWindow) openWindow = new ReactionDefinitionWindow(ws, owner);
    openWindow->Show(definition);
    openWindow->show();
    openWindow->raise();
}

}  // namespace tormel
