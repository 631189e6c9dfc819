#include "ui/main/neutralise_window.h"

#include <QLabel>
#include <QVBoxLayout>

#include "ui/main/message_box.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

NeutraliseWindow::NeutraliseWindow(QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("FrmNeutr"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::CustomizeWindowHint);
    setFont(UiFont());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Scaled(16), Scaled(12), Scaled(16), Scaled(12));
    line1_ = new QLabel(this);
    line1_->setObjectName(QStringLiteral("line1"));
    line2_ = new QLabel(this);
    line2_->setObjectName(QStringLiteral("line2"));
    layout->addWidget(line1_);
    layout->addWidget(line2_);
    setMinimumWidth(Scaled(420));
}

void NeutraliseWindow::Show(const NeutraliseWindowText& text) {
    setWindowTitle(Q(text.caption));
    line1_->setText(Q(text.line1));
    line2_->setText(Q(text.line2));
    if (!isVisible()) {
        adjustSize();
        CentreOnOwner(this, parentWidget());
        show();
    }
}

QString NeutraliseWindow::Line1() const { return line1_->text(); }

QString NeutraliseWindow::Line2() const { return line2_->text(); }

}  // namespace tormel
