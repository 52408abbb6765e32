// The suites that this host offers. Each file suites_*.cpp adds its tables; a new suite is one function
// more in the list.
#pragma once

#include "host_api/aegp_suites.h"
#include "host_api/pf_suites.h"

#include <string>
#include <vector>

namespace vantle::host {

/// `inPremiere`: also offered when Premiere Pro is played.
struct SuiteEntry {
  std::string name;
  A_long version = 0;
  const void* functions = nullptr;
  bool inPremiere = false;
};

/// The table of that exact name and version, or null.
const SuiteEntry* FindSuite(const std::string& name, A_long version);

/// All suites, for tests that hide one after the other.
const std::vector<SuiteEntry>& AllSuites();

/// The access to suites that every command carries.
SPBasicSuite* BasicSuite();

/// The tables that arrive with every command.
PF_InteractCallbacks InteractCallbacks();
PF_UtilCallbacks* UtilCallbacks();

/// The C library's functions as hosts hand them out, and the handle functions; both exist as suites and as
/// part of the callbacks.
PF_ANSICallbacksSuite1 AnsiFunctions();
PF_HandleSuite1 HandleFunctions();

void AddAnsiSuites(std::vector<SuiteEntry>& suites);
void AddHandleSuites(std::vector<SuiteEntry>& suites);
void AddWorldSuites(std::vector<SuiteEntry>& suites);
void AddUtilitySuites(std::vector<SuiteEntry>& suites);
void AddPfInterfaceSuites(std::vector<SuiteEntry>& suites);
void AddStreamSuites(std::vector<SuiteEntry>& suites);
void AddDrawingSuites(std::vector<SuiteEntry>& suites);
void AddLayerSuites(std::vector<SuiteEntry>& suites);
void AddItemSuites(std::vector<SuiteEntry>& suites);
void AddCompSuites(std::vector<SuiteEntry>& suites);
void AddEffectSuites(std::vector<SuiteEntry>& suites);

}  // namespace vantle::host
