// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cli/CommandLine.h"

namespace skipnest::cli {

// Pure: no display, no running agent, nothing written.
ExitStatus runCombo(const Arguments& arguments, const Context& context);
ExitStatus runConfigCheck(const Arguments& arguments, const Context& context);
ExitStatus runHotkeys(const Arguments& arguments, const Context& context);
ExitStatus runStats(const Arguments& arguments, const Context& context);
ExitStatus runScriptEnumerate(const Arguments& arguments, const Context& context);
ExitStatus runScriptActivate(const Arguments& arguments, const Context& context);
ExitStatus runScriptRelocate(const Arguments& arguments, const Context& context);
ExitStatus runScriptCycle(const Arguments& arguments, const Context& context);
ExitStatus runTabsOutput(const Arguments& arguments, const Context& context);
ExitStatus runTitlesMatch(const Arguments& arguments, const Context& context);
ExitStatus runParse(const Arguments& arguments, const Context& context);
ExitStatus runUnderstand(const Arguments& arguments, const Context& context);
ExitStatus runRoute(const Arguments& arguments, const Context& context);
ExitStatus runRank(const Arguments& arguments, const Context& context);
ExitStatus runIntent(const Arguments& arguments, const Context& context);
ExitStatus runReplay(const Arguments& arguments, const Context& context);

// What browsers need to be connected: writes into the person's own folders.
ExitStatus runBrowserInstall(const Arguments& arguments, const Context& context);
ExitStatus runBrowserRemove(const Arguments& arguments, const Context& context);
ExitStatus runBrowserStatus(const Arguments& arguments, const Context& context);

ExitStatus runDoctor(const Arguments& arguments, const Context& context);

// To the running agent.
ExitStatus runJump(const Arguments& arguments, const Context& context);
ExitStatus runHide(const Arguments& arguments, const Context& context);
ExitStatus runRestore(const Arguments& arguments, const Context& context);
ExitStatus runNextWindow(const Arguments& arguments, const Context& context);
ExitStatus runPreviousWindow(const Arguments& arguments, const Context& context);
ExitStatus runStatus(const Arguments& arguments, const Context& context);
ExitStatus runSwitcher(const Arguments& arguments, const Context& context);
ExitStatus runPopover(const Arguments& arguments, const Context& context);
ExitStatus runQuit(const Arguments& arguments, const Context& context);
// To the running agent, else on the configuration file.
ExitStatus runAdd(const Arguments& arguments, const Context& context);
ExitStatus runRemove(const Arguments& arguments, const Context& context);
ExitStatus runList(const Arguments& arguments, const Context& context);
ExitStatus runConfirm(const Arguments& arguments, const Context& context);
ExitStatus runExport(const Arguments& arguments, const Context& context);
ExitStatus runImport(const Arguments& arguments, const Context& context);

} // namespace skipnest::cli
