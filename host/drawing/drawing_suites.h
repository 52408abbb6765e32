// The suites behind custom controls, by file.
#pragma once

#include "host/engine/suites.h"

#include <vector>

namespace vantle::host {

void AddSupplierSuites(std::vector<SuiteEntry>& suites);
void AddSurfaceSuites(std::vector<SuiteEntry>& suites);
void AddPathSuites(std::vector<SuiteEntry>& suites);
void AddPanelSuites(std::vector<SuiteEntry>& suites);

}  // namespace vantle::host
