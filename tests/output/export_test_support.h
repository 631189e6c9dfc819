#pragma once
// A small result set for the export tests, built by hand so that every
// amount is known: the proton (no percentages), calcium and carbonate with a
// complex between them, and on request a gas component and organic sites.
#include "output/result_store.h"

namespace tormel::test {

struct ExportSampleOptions {
    bool gas = false;
    bool organic = false;
};

// Calcium: 2^-12 mol/L dissolved and 3 x 2^-12 solid of a total 2^-10, so the
// fractions 0.25 and 0.75 are exact in single precision too. With organic
// matter, calcium holds 2e-6 mol/L at fulvic monodentate sites.
ResultStore ExportSampleStore(const ExportSampleOptions& options = {});

// A solids block of the "Other info" report: a title, a long text, three
// column titles, a row with a text, a number (shown as "0,563") and a state,
// and a row whose second and third cells were never filled.
InfoBlock SolidsInfoBlock();

}  // namespace tormel::test
