#pragma once
// The converted MINTEQA2 database shipped in data/RawData, loaded once per
// test run from a temporary copy.
#include "core/chemical_system.h"

namespace tormel::test {

// nullptr when the raw data files cannot be loaded.
const ChemicalSystem* RealDatabase();

}  // namespace tormel::test
