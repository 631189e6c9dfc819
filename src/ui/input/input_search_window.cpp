#include "ui/input/input_search_window.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "shell/input_editing.h"
#include "shell/workspace.h"
#include "ui/main/image_resources.h"
#include "ui/main/message_box.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {
namespace {

const char* TypeKey(ComponentType type) {
    switch (type) {
        case ComponentType::Cation: return "Cation";
        case ComponentType::Ligand: return "Ligand";
        case ComponentType::Ads: return "Ads";
        case ComponentType::RedSol: return "RedSol";
        default: return "Gas";
    }
}

}  // namespace

InputSearchWindow::InputSearchWindow(Workspace& ws, QWidget* editor) : QDialog(editor), ws_(ws) {
    setObjectName(QStringLiteral("FrmEditInputSearch"));
    setWindowTitle(LangQ(ws.language, "InputEditSearch", "WindowCaption"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONSRCH")));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setFont(UiFont());
    setFixedSize(Scaled(450 - 16), Scaled(300 - 39));
    auto text = [&](const char* key) { return LangQ(ws.language, "InputEditSearch", key); };
    auto* label = new QLabel(text("TxtStatic"), this);
    label->setGeometry(Scaled(16), Scaled(15), Scaled(120), Scaled(28));
    field_ = new QLineEdit(this);
    field_->setGeometry(Scaled(140), Scaled(15), Scaled(155), Scaled(28));
    auto* cancel = new QPushButton(text("Cancel"), this);
    cancel->setGeometry(Scaled(309), Scaled(15), Scaled(120), Scaled(28));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    results_ = new QTreeWidget(this);
    results_->setGeometry(Scaled(16), Scaled(57), Scaled(415), Scaled(195));
    results_->setRootIsDecorated(false);
    results_->setHeaderLabels({text("Name"), text("Type")});
    results_->header()->resizeSection(0, Scaled(200));
    connect(field_, &QLineEdit::textChanged, this, &InputSearchWindow::Refresh);
    connect(results_, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { Choose(results_->indexOfTopLevelItem(item)); });
    Refresh();
    CentreOnOwner(this, editor);
    field_->setFocus();
}

void InputSearchWindow::Refresh() {
    const Database& db = ws_.chem.db();
    found_ = SearchComponents(db, S(field_->text()));
    results_->clear();
    for (int32_t c : found_) {
        const Component& component = db.components[size_t(c)];
        results_->addTopLevelItem(new QTreeWidgetItem(
            {Q(component.name), LangQ(ws_.language, "InputEditSearch", TypeKey(component.type))}));
    }
}

void InputSearchWindow::Choose(int position) {
    if (position < 0 || position >= static_cast<int>(found_.size())) return;
    chosen_ = found_[static_cast<size_t>(position)];
    accept();
}

}  // namespace tormel
