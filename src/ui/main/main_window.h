#pragma once
// The main window ("TORMEL64C", "TORMEL Next 64"): heading, six tiles, the
// command panel that opens under a tile, the information area and the
// status line. It has no menu bar; every command goes through
// DispatchCommand.
#include <QLine>
#include <QMainWindow>
#include <QPixmap>
#include <QPointer>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

namespace tormel {

class DesktopUi;
enum class WebLink;
struct Workspace;

// What the main window asks of the rest of the program; every member may be empty.
struct MainWindowServices {
    // An image resource ("IMG_CALC96") at a pixel size; a null pixmap when unknown.
    std::function<QPixmap(const std::string& name, int size)> image;
    // Opens the help at a topic number (0: contents, -1: index, -2: search).
    std::function<void(int topic)> openHelp;
    // Asks for a file name: to save or to open, with a file filter and a start folder.
    std::function<std::optional<std::string>(bool save, const QString& filter, const std::string& folder)> askFileName;
    // The orderly end (placement and recent files saved), run when the window closes.
    std::function<void()> shutDown;
};

class TileImage;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    MainWindow(Workspace& ws, MainWindowServices services = {});
    ~MainWindow() override;

    void SetDesktopUi(DesktopUi* ui) { desktopUi_ = ui; }
    MainWindowServices& Services() { return services_; }

    // Start-up: the tiles with their accelerators (the status bar exists from construction).
    void BuildTiles();
    void OpenPanel(int tile);
    void ClosePanel();
    void DispatchCommand(int identifier, int notification = 0);
    // The question before closing with modified input; true when the user cancelled.
    bool AskSaveInput();
    void UpdateStatusLine();
    void PaintInfoArea();

    // A handover from a second instance: 0 refused (busy), 1 taken.
    int ReceiveHandover(int dataCode, const QString& path);

    // What tests and the screenshots look at.
    int OpenTile() const { return panelTile_; }
    QPushButton* PanelButton(int command) const;
    QListWidget* RecentList(int command) const;
    QLabel* TileCaptionLabel(int tile) const;
    TileImage* TileImageLabel(int tile) const;
    QString StatusText() const;
    int TileSize() const { return tileSize_; }
    bool ResultsAvailable() const;
    // The actions a command reached, in order (every command number that ran its action).
    const std::vector<int>& CommandLog() const { return commandLog_; }

    // The hover rule, called by the tile images.
    void TileHovered(int tile, const QPoint& globalPosition);
    void TileLeft(int tile);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int AvailableHeight() const;
    void LayoutTiles();
    void ApplyMinimumSize();
    void RunAction(int command);
    void Calculate();
    void SaveResultsAs(int command);
    void OpenOutputFileDialog();
    void OpenRecentFile(int list, int position);
    void OpenLink(WebLink link);
    QWidget* AddPanelWidget(QWidget* widget, int kind);
    int BuildPanelColumn(const std::vector<const struct MenuItem*>& items, int x0, int firstRow, int rowHeight,
                         int buttonHeight, int descriptionHeight, bool second);
    void AddRecentList(int item, int x, int y, int rowHeight);
    void DrawInfoArea(class QPainter& painter);
    std::optional<std::string> AskFileName(bool save, const QString& filter, const std::string& folder);

    Workspace& ws_;
    MainWindowServices services_;
    DesktopUi* desktopUi_ = nullptr;
    QLabel* heading_ = nullptr;
    QLabel* status_ = nullptr;
    std::array<TileImage*, 6> tileImages_{};
    std::array<QLabel*, 6> captions_{};
    bool tilesBuilt_ = false;
    int tileSize_ = 96;
    int captionHeight_ = 0;
    int headingHeight_ = 0;

    std::vector<QPointer<QWidget>> panel_;
    std::vector<QLine> panelLines_;
    int panelTile_ = -1;
    bool buildingPanel_ = false;
    int hoverTile_ = -1;
    bool mouseMoved_ = false;
    std::optional<QPoint> firstMouse_;

    bool infoShown_ = false;
    QPointer<QLabel> webLink_;
    int infoTop_ = 0;
    std::vector<int> commandLog_;
};

}  // namespace tormel
