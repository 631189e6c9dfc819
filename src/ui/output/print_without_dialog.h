#pragma once
// "/print:": all pages of the loaded output to the printer named in [Output],
// without a dialog. When [Output] names no printer, names a ".pdf" file, or
// names a printer this computer does not have, the pages go to a PDF file
// beside the output file (same name, extension ".pdf").
#include <string>

#include "shell/workspace.h"

namespace tormel {

struct PrintJobOutcome {
    int pages = 0;          // 0: nothing was printed
    bool toPdf = false;
    std::string target;     // the printer's name or the PDF file's path
};

// `outputPath` with its extension replaced by ".pdf".
std::string PdfPathBeside(const std::string& outputPath);

// Prints result set 0 (read from `outputPath`, its tables prepared) with the
// stored print settings; the settings are not written back. The print job is
// named "Output TORMEL Next (64 bits)".
PrintJobOutcome PrintLoadedOutputWithoutDialog(Workspace& ws, const std::string& outputPath);

}  // namespace tormel
