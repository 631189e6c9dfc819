#include "ui/output/print_without_dialog.h"

#include <QDir>
#include <QFileInfo>
#include <QPrinter>
#include <QPrinterInfo>

#include "ui/output/print_settings.h"
#include "ui/output/result_print.h"

namespace tormel {

std::string PdfPathBeside(const std::string& outputPath) {
    const QFileInfo info(QString::fromStdString(outputPath));
    const QString base = info.completeBaseName().isEmpty() ? info.fileName() : info.completeBaseName();
    return (info.dir().filePath(base) + QStringLiteral(".pdf")).toStdString();
}

PrintJobOutcome PrintLoadedOutputWithoutDialog(Workspace& ws, const std::string& outputPath) {
    const PrintSettings settings = ReadPrintSettings(ws.settings);
    PrintJobOutcome outcome;
    const QString printerName = QString::fromStdString(settings.printer).trimmed();
    outcome.toPdf = PrintsToPdf(settings) || !QPrinterInfo::availablePrinterNames().contains(printerName);

    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QStringLiteral("Output TORMEL Next (64 bits)"));
    printer.setCreator(QStringLiteral("TORMEL Next"));
    if (outcome.toPdf) {
        outcome.target = PdfPathBeside(outputPath);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(outcome.target));
    } else {
        outcome.target = settings.printer;
        printer.setPrinterName(printerName);
    }
    printer.setPageLayout(PrintPageLayout(printer.pageLayout(), settings, outcome.toPdf));

    outcome.pages = PrintResultSet(printer, ws, 0, settings,
                                   QFileInfo(QString::fromStdString(outputPath)).fileName());
    return outcome;
}

}  // namespace tormel
