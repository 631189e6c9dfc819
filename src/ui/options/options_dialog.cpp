#include "ui/options/options_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>

#include "core/messages.h"
#include "shell/association_state.h"
#include "shell/file_associations.h"
#include "shell/language_files.h"
#include "shell/workspace.h"
#include "ui/main/help_pages.h"
#include "ui/main/image_resources.h"
#include "ui/main/main_window.h"
#include "ui/main/message_box.h"
#include "ui/main/scaled.h"
#include "ui/main/ui_text.h"
#include "updates/update_check.h"

namespace tormel {

namespace {

const char* const kSwitchKeys[6] = {"Remember-Units",       "Remember-Windows", "Remember-InputFiles",
                                    "Remember-OutputFiles", "Remember-Folders", "Check_Updates"};
const char* const kColourKeys[3] = {"ColorBackGr", "ColorForeGr", "ColorHyperL"};

// The sample of the colour page: the two texts on the background.
class ColourSample : public QWidget {
public:
    ColourSample(const std::array<QColor, 3>& colours, QString text, QString link, QWidget* parent)
        : QWidget(parent), colours_(colours), text_(std::move(text)), link_(std::move(link)) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), colours_[0]);
        painter.setFont(UiFont());
        const int ascent = painter.fontMetrics().ascent();
        painter.setPen(colours_[1]);
        painter.drawText(Scaled(3), Scaled(7) + ascent, text_);
        painter.setPen(colours_[2]);
        painter.drawText(Scaled(3), Scaled(27) + ascent, link_);
    }

private:
    const std::array<QColor, 3>& colours_;
    QString text_;
    QString link_;
};

QGroupBox* PageFrame(QWidget* page, const QString& caption) {
    auto* frame = new QGroupBox(caption, page);
    frame->setGeometry(Scaled(13), Scaled(13), Scaled(410), Scaled(235));
    return frame;
}

}  // namespace

QColor ColourFromSetting(int value) {
    const auto v = static_cast<uint32_t>(value);
    return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF), static_cast<int>((v >> 16) & 0xFF));
}

int ColourToSetting(const QColor& colour) { return colour.red() | (colour.green() << 8) | (colour.blue() << 16); }

OptionsDialog::OptionsDialog(Workspace& ws, QWidget* owner, int page) : QDialog(owner), ws_(ws), owner_(owner) {
    setObjectName(QStringLiteral("FrmOptions"));
    setWindowIcon(ResourceIcon(QStringLiteral("IMG_ICONOPT")));
    setWindowTitle(LangQ(ws.language, "Options", "OptCaption"));
    setFont(UiFont());
    setFixedSize(Scaled(463), Scaled(345));  // 479 by 384 with its frame
    ReadColours();
    openingColours_ = {colours_[0], colours_[1]};

    tabs_ = new QTabWidget(this);
    tabs_->setObjectName(QStringLiteral("optionPages"));
    tabs_->setGeometry(Scaled(14), Scaled(15), Scaled(445), Scaled(285));
    // narrower tabs, so that the five captions fit side by side in longer languages too
    tabs_->tabBar()->setStyleSheet(QStringLiteral("QTabBar::tab { padding: %1px %2px; }").arg(Scaled(5)).arg(Scaled(7)));
    QWidget* pages[] = {RememberPage(), UpdatesPage(), AssociationPage(), LanguagePage(), ColourPage()};
    for (int p = 0; p < 5; ++p) {
        pages[p]->setObjectName(QStringLiteral("FrmOptionsTab"));
        tabs_->addTab(pages[p], LangQ(ws.language, "Options", ("CaptionTab" + std::to_string(p + 1)).c_str()));
    }
    ReadSwitches();
    UpdateAssociations();
    tabs_->setCurrentIndex(std::clamp(page, 0, 4));

    const int y = Scaled(308);
    auto button = [&](const char* key, const char* name, int x) {
        auto* b = new QPushButton(LangQ(ws.language, "Options", key), this);
        b->setObjectName(QLatin1String(name));
        b->setGeometry(Scaled(x), y, std::max(Scaled(81), b->fontMetrics().horizontalAdvance(b->text()) + Scaled(16)),
                       Scaled(28));
        return b;
    };
    QPushButton* ok = button("CmdBtn-1", "okButton", 14);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, [this] { Confirm(); });
    connect(button("CmdBtn-2", "cancelButton", 127), &QPushButton::clicked, this, &QDialog::reject);
    connect(button("CmdBtn-3", "resetButton", 240), &QPushButton::clicked, this, [this] { Reset(); });
    auto* help = new QPushButton(this);
    help->setObjectName(QStringLiteral("helpButton"));
    help->setIcon(ResourceIcon(QStringLiteral("IMG_ICONHELP")));
    help->setGeometry(Scaled(349), y, Scaled(28), Scaled(28));
    connect(help, &QPushButton::clicked, this, [this] { OpenHelpTopic(ws_.folders, 2004 + tabs_->currentIndex()); });

    auto* next = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this);
    connect(next, &QShortcut::activated, this, [this] { tabs_->setCurrentIndex((tabs_->currentIndex() + 1) % 5); });
    auto* previous = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), this);
    connect(previous, &QShortcut::activated, this, [this] { tabs_->setCurrentIndex((tabs_->currentIndex() + 4) % 5); });
    CentreOnOwner(this, owner);
}

QWidget* OptionsDialog::RememberPage() {
    auto* page = new QWidget;
    PageFrame(page, LangQ(ws_.language, "Options", "GroupBox1"));
    for (int k = 0; k < 5; ++k) {
        switches_[k] = new QCheckBox(LangQ(ws_.language, "Options", ("ChkBox1-" + std::to_string(k + 1)).c_str()), page);
        switches_[k]->setGeometry(Scaled(32), Scaled(42 + 29 * k), Scaled(380), Scaled(25));
    }
    return page;
}

QWidget* OptionsDialog::UpdatesPage() {
    auto* page = new QWidget;
    PageFrame(page, LangQ(ws_.language, "Options", "GroupBox2"));
    switches_[5] = new QCheckBox(LangQ(ws_.language, "Options", "ChkBox2"), page);
    switches_[5]->setGeometry(Scaled(32), Scaled(42), Scaled(380), Scaled(25));
    auto* now = new QPushButton(LangQ(ws_.language, "Options", "CmdBtn2-1"), page);
    now->setObjectName(QStringLiteral("checkNowButton"));
    now->setGeometry(Scaled(32), Scaled(80), Scaled(175), Scaled(28));
    connect(now, &QPushButton::clicked, this, [this] {
        if (RunUpdateCheck(ws_, this) != 1)
            ShowMessage(ws_.Ui(), ws_.language, LanguageText(ws_.language, "Options", "UpdNotFound"), {}, IconInformation);
    });
    return page;
}

QWidget* OptionsDialog::AssociationPage() {
    auto* page = new QWidget;
    PageFrame(page, LangQ(ws_.language, "Options", "GroupBox3"));
    associationText_ = new QLabel(page);
    associationText_->setObjectName(QStringLiteral("associationText"));
    associationText_->setWordWrap(true);
    associationText_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    associationText_->setGeometry(Scaled(32), Scaled(40), Scaled(380), Scaled(140));
    associate_ = new QPushButton(LangQ(ws_.language, "Options", "CmdBtn3-1"), page);
    associate_->setObjectName(QStringLiteral("associateButton"));
    associate_->setGeometry(Scaled(32), Scaled(195), Scaled(175), Scaled(28));
    connect(associate_, &QPushButton::clicked, this, [this] { Associate(true); });
    remove_ = new QPushButton(LangQ(ws_.language, "Options", "CmdBtn3-2"), page);
    remove_->setObjectName(QStringLiteral("removeButton"));
    remove_->setGeometry(Scaled(227), Scaled(195), Scaled(175), Scaled(28));
    connect(remove_, &QPushButton::clicked, this, [this] { Associate(false); });
    return page;
}

QWidget* OptionsDialog::LanguagePage() {
    auto* page = new QWidget;
    PageFrame(page, LangQ(ws_.language, "Options", "GroupBox4"));
    const std::vector<LanguageFile> files = ListLanguageFiles(LanguagesFolder(ws_.folders));
    auto* label = new QLabel(page);
    label->setWordWrap(true);
    label->setGeometry(Scaled(32), Scaled(38), Scaled(380), Scaled(40));
    if (files.empty()) {
        label->setText(LangQOr(ws_.language, "Options", "LangFileZero",
                               "No language files found. Probably re-install is needed."));
        return page;
    }
    if (files.size() == 1) {
        label->setText(LangQ(ws_.language, "Options", "LangFileOne"));
        return page;
    }
    label->setText(LangQ(ws_.language, "Options", "LangFileMore"));
    languageList_ = new QListWidget(page);
    languageList_->setObjectName(QStringLiteral("languageList"));
    languageList_->setGeometry(Scaled(32), Scaled(80), Scaled(250), Scaled(105));
    for (const LanguageFile& file : files) languageList_->addItem(Q(file.displayName));
    auto* use = new QPushButton(LangQ(ws_.language, "Options", "CmdBtn4-1"), page);
    use->setObjectName(QStringLiteral("useLanguageButton"));
    use->setEnabled(false);
    use->setGeometry(Scaled(32), Scaled(195), Scaled(175), Scaled(28));
    connect(languageList_, &QListWidget::currentRowChanged, use, [use](int row) { use->setEnabled(row >= 0); });
    connect(use, &QPushButton::clicked, this, [this] {
        if (const QListWidgetItem* item = languageList_->currentItem())
            ChangeLanguage(ws_.folders, ws_.Ui(), S(item->text()));
    });
    return page;
}

QWidget* OptionsDialog::ColourPage() {
    auto* page = new QWidget;
    PageFrame(page, LangQ(ws_.language, "Options", "GroupBox5"));
    for (int k = 0; k < 4; ++k) {
        auto* label = new QLabel(LangQ(ws_.language, "Options", ("Txt5-" + std::to_string(k + 1)).c_str()), page);
        label->setGeometry(Scaled(32), Scaled(k < 3 ? 40 + 38 * k : 143), Scaled(115), Scaled(22));
    }
    for (int k = 0; k < 3; ++k) {
        swatches_[k] = new QLabel(page);
        swatches_[k]->setObjectName(QStringLiteral("swatch%1").arg(k + 1));
        swatches_[k]->setAutoFillBackground(true);
        swatches_[k]->setFrameShape(QFrame::Box);
        swatches_[k]->setGeometry(Scaled(151), Scaled(42 + 38 * k), Scaled(31), Scaled(18));
        auto* change = new QPushButton(LangQ(ws_.language, "Options", "CmdBtn5"), page);
        change->setObjectName(QStringLiteral("colourButton%1").arg(k + 1));
        change->setGeometry(Scaled(200), Scaled(38 + 38 * k), Scaled(110), Scaled(26));
        connect(change, &QPushButton::clicked, this, [this, k] {
            const QColor chosen = QColorDialog::getColor(colours_[k], this);
            if (chosen.isValid()) SetColour(k, chosen);
        });
    }
    sample_ = new ColourSample(colours_, LangQ(ws_.language, "Options", "Txt5-5"),
                               LangQ(ws_.language, "Options", "Txt5-6"), page);
    sample_->setGeometry(Scaled(32), Scaled(163), Scaled(138), Scaled(53));
    for (int k = 0; k < 3; ++k) SetColour(k, colours_[k]);
    return page;
}

void OptionsDialog::SetColour(int n, const QColor& colour) {
    colours_[n] = colour;
    if (swatches_[n]) {
        QPalette palette = swatches_[n]->palette();
        palette.setColor(QPalette::Window, colour);
        swatches_[n]->setPalette(palette);
    }
    if (sample_) sample_->update();
}

void OptionsDialog::ReadSwitches() {
    for (int k = 0; k < 6; ++k) switches_[k]->setChecked(ws_.settings.ReadSettingBool("Options", kSwitchKeys[k], true));
}

void OptionsDialog::ReadColours() {
    for (int k = 0; k < 3; ++k) colours_[k] = ColourFromSetting(ws_.settings.ReadSettingInt("Options", kColourKeys[k]));
}

void OptionsDialog::UpdateAssociations() {
    const AssociationState state = QueryFileAssociations();
    associationText_->setText(Q(AssociationText(ws_.language, state)));
    associate_->setEnabled(!(state.input && state.output));
    remove_->setEnabled(state.input || state.output);
}

void OptionsDialog::Associate(bool on) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (on)
        RegisterFileAssociations(ws_.folders.programFolder, S(QCoreApplication::applicationFilePath()), UserXdgHomes());
    else
        UnregisterFileAssociations(UserXdgHomes());
    QApplication::restoreOverrideCursor();
    UpdateAssociations();
}

void OptionsDialog::Confirm() {
    for (int k = 0; k < 6; ++k) ws_.settings.WriteSettingBool("Options", kSwitchKeys[k], switches_[k]->isChecked());
    for (int k = 0; k < 3; ++k) ws_.settings.WriteSettingInt("Options", kColourKeys[k], ColourToSetting(colours_[k]));
    accept();
    if (colours_[0] != openingColours_[0] || colours_[1] != openingColours_[1])
        if (auto* main = qobject_cast<MainWindow*>(owner_)) main->BuildTiles();
}

void OptionsDialog::Reset() {
    ws_.settings.DeleteSettingsSection("Options");
    ReadSwitches();
    ReadColours();
    for (int k = 0; k < 3; ++k) SetColour(k, colours_[k]);
    if (auto* main = qobject_cast<MainWindow*>(owner_)) main->BuildTiles();
}

}  // namespace tormel
