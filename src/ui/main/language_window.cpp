#include "ui/main/language_window.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "core/language.h"
#include "ui/main/image_resources.h"
#include "ui/main/message_box.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"

namespace tormel {

LanguageWindow::LanguageWindow(const Language& language, const std::vector<std::string>& displayNames,
                               std::function<void(int topic)> openHelp, QWidget* owner)
    : QDialog(owner) {
    setObjectName(QStringLiteral("FrmLanguage"));
    setWindowTitle(LangQOr(language, "Languages", "LangCaption", "Select language"));
    setFont(UiFont());
    setFixedSize(Scaled(463), Scaled(233));  // 479 by 272 with its frame
    auto* text = new QLabel(
        LangQOr(language, "Languages", "LangTxt", "Select the language that you would like to use:"), this);
    text->setGeometry(Scaled(16), Scaled(12), Scaled(430), Scaled(20));
    list_ = new QListWidget(this);
    list_->setObjectName(QStringLiteral("languageList"));
    list_->setGeometry(Scaled(16), Scaled(45), Scaled(250), Scaled(140));
    for (const std::string& name : displayNames) list_->addItem(Q(name));

    auto* ok = new QPushButton(LangQOr(language, "Languages", "LangCmdBtn-1", "OK"), this);
    ok->setObjectName(QStringLiteral("okButton"));
    ok->setGeometry(Scaled(15), Scaled(195), Scaled(81), Scaled(28));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] {
        chosen_ = list_->currentRow();
        accept();
    });
    auto* cancel = new QPushButton(LangQOr(language, "Languages", "LangCmdBtn-2", "Cancel"), this);
    cancel->setObjectName(QStringLiteral("cancelButton"));
    cancel->setGeometry(Scaled(224), Scaled(195), Scaled(81), Scaled(28));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* help = new QPushButton(this);
    help->setIcon(ResourceIcon(QStringLiteral("IMG_ICONHELP")));
    help->setObjectName(QStringLiteral("helpButton"));
    help->setGeometry(Scaled(419), Scaled(195), Scaled(28), Scaled(28));
    connect(help, &QPushButton::clicked, this, [openHelp] {
        if (openHelp) openHelp(1100);
    });
    CentreOnOwner(this, owner);
}

int SelectLanguageWindow(const Language& language, const std::vector<std::string>& displayNames,
                         std::function<void(int topic)> openHelp, QWidget* owner, bool* uiReady) {
    if (uiReady) *uiReady = false;
    LanguageWindow window(language, displayNames, std::move(openHelp), owner);
    window.exec();
    if (uiReady) *uiReady = true;
    return window.Chosen();
}

}  // namespace tormel
