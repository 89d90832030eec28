// ddk-inspect: loads a camera plug-in, asks it every question of the host
// contract, prints what it reports, and checks that it keeps the contract.
#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

#include <CLI/CLI.hpp>

#include "checks.h"
#include "exit_codes.h"
#include "inspector.h"
#include "options.h"
#include "plugin_module.h"
#include "recording_host.h"
#include "report.h"

namespace {

using inspect::Json;

const char kDescription[] =
    "Loads a vantrel DDK camera plug-in (a shared object with the kit's entry point), checks the\n"
    "ABI version it was built against, starts it with a callback table that records every event\n"
    "and log line, asks each extension the plug-in implements every question of the host\n"
    "contract, and prints a readable report (or JSON with --json).";

const char kFooter[] =
    "Checks (--check) run as named test cases; --list-checks shows them and --filter picks some,\n"
    "with GoogleTest filter syntax (for example 'Video.*:Lifecycle.*' or '-Zoom.*').\n"
    "\n"
    "Exit codes:\n"
    "  0  success (with --check: every check passed or was skipped)\n"
    "  1  --check found conformance problems (listed under FAIL)\n"
    "  2  bad command line\n"
    "  3  the file is missing or is not a loadable shared object\n"
    "  4  the shared object has no plug-in entry point\n"
    "  5  the plug-in was built against an incompatible kit (ABI version)\n"
    "  6  the entry point made no plug-in object\n"
    "  7  init failed: the plug-in did not start\n"
    "  8  an operation let an exception out";

int inspectPlugin(const inspect::Options& options) {
    inspect::PluginModule module(options.plugin);

    // A first start, so that a plug-in that cannot start is reported as such
    // before anything else (the checks make their own objects).
    inspect::RecordingHost host;
    std::unique_ptr<inspect::PluginInstance> plugin = module.create();
    DDKError* error = nullptr;
    try {
        error = plugin->init(host.table());
    } catch (const std::exception& e) {
        throw inspect::Failure(inspect::kExitOperationThrew, std::string("init let an exception out: ") + e.what());
    } catch (...) {
        throw inspect::Failure(inspect::kExitOperationThrew, "init let an exception out");
    }
    if (error != nullptr) {
        const std::string text = "init failed with error " + std::to_string(error->code) + ": " +
                                 (error->message != nullptr ? error->message : "(no message)");
        ddk_free_error(error);
        plugin->shutdown();
        throw inspect::Failure(inspect::kExitInitFailed, text);
    }

    if (options.check) {
        plugin->shutdown();
        plugin.reset();
        std::printf("Checking %s\n", options.plugin.c_str());
        return inspect::runChecks(module, options);
    }

    Json report;
    report["plugin"] = {{"path", options.plugin},
                        {"name", module.name()},
                        {"abiVersion", module.abiVersion()},
                        {"interfaces", plugin->extensions().names()},
                        {"init", "ok"}};
    inspect::Inspector inspector(options, false);
    Json answers = inspector.inspect(*plugin);
    for (auto it = answers.begin(); it != answers.end(); ++it) {
        report[it.key()] = *it;
    }
    report["plugin"]["operationsCalled"] = inspector.calls();

    if (!options.json) {
        std::cout << inspect::renderText(report) << std::flush;
        report.erase("plugin");
    }
    if (options.eventsSeconds > 0) {
        if (!options.json) {
            std::printf("== Events and log lines, live for %g s\n", options.eventsSeconds);
            host.follow([](const inspect::Record& r) {
                std::printf("  %s\n", inspect::describeRecord(r).c_str());
                std::fflush(stdout);
            });
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(static_cast<long long>(options.eventsSeconds * 1000)));
    }
    plugin->shutdown();
    host.follow(nullptr);
    plugin.reset();

    if (options.json) {
        report["events"] = host.records();
        std::cout << report.dump(2) << std::endl;
    } else if (options.eventsSeconds <= 0) {
        Json events;
        events["events"] = host.records();
        std::cout << inspect::renderText(events) << std::flush;
    } else {
        std::printf("== %zu events and log lines in all\n", host.size());
    }
    return inspect::kExitOk;
}

}  // namespace

int main(int argc, char** argv) {
    inspect::Options options;
    CLI::App app(kDescription, "ddk-inspect");
    app.footer(kFooter);
    app.add_option("plugin", options.plugin, "Plug-in shared object (.so) to load")->type_name("PLUGIN.so");
    app.add_flag("--json", options.json, "Print the report as JSON instead of text");
    app.add_flag("--check", options.check, "Run the conformance checks; exit 1 when any fails");
    app.add_flag("--list-checks", options.listChecks, "List the checks (those --filter selects) and exit");
    app.add_option("--filter", options.filter, "Checks to run, GoogleTest filter syntax")
        ->capture_default_str()
        ->type_name("PATTERN");
    app.add_option("--events", options.eventsSeconds,
                   "Keep the plug-in running SECONDS after the questions and print events as they arrive")
        ->check(CLI::NonNegativeNumber)
        ->type_name("SECONDS");
    app.add_option("--device-token", options.deviceToken,
                   "Token of the device-wide questions (device information, management, time)")
        ->capture_default_str()
        ->type_name("TOKEN");
    app.add_option("--source", options.sources,
                   "Video source token to ask about (repeatable); default: the sources the plug-in reports")
        ->type_name("TOKEN");
    app.add_option("--query-encoding", options.queryEncoding,
                   "Encoder-options query: filter on this encoding code")
        ->type_name("CODE");
    app.add_option("--query-framerate", options.queryFramerate,
                   "Encoder-options query: filter on this frame rate")
        ->type_name("FPS");
    app.add_option("--query-resolution", options.queryResolution,
                   "Encoder-options query: filter on this resolution, WIDTHxHEIGHT")
        ->type_name("WxH");
    app.add_option("--quiet-ms", options.quietMilliseconds,
                   "Checks: how long to wait for stray events after shutdown, in milliseconds")
        ->capture_default_str()
        ->type_name("MS");

    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        std::fprintf(stderr, "ddk-inspect: %s\nRun with --help for more information.\n", e.what());
        return inspect::kExitUsage;
    }
    if (!options.queryResolution.empty()) {
        unsigned w = 0, h = 0;
        char rest = 0;
        if (std::sscanf(options.queryResolution.c_str(), "%ux%u%c", &w, &h, &rest) != 2) {
            std::fprintf(stderr, "ddk-inspect: --query-resolution wants WIDTHxHEIGHT, not %s\n",
                         options.queryResolution.c_str());
            return inspect::kExitUsage;
        }
    }

    try {
        if (options.listChecks) {
            inspect::listChecks(options);
            return inspect::kExitOk;
        }
        if (options.plugin.empty()) {
            std::fputs("ddk-inspect: no plug-in given\nRun with --help for more information.\n", stderr);
            return inspect::kExitUsage;
        }
        return inspectPlugin(options);
    } catch (const inspect::Failure& failure) {
        std::fflush(stdout);
        std::fprintf(stderr, "ddk-inspect: %s\n", failure.what());
        return failure.code();
    } catch (const std::exception& e) {
        std::fflush(stdout);
        std::fprintf(stderr, "ddk-inspect: %s let an exception out: %s\n", options.plugin.c_str(), e.what());
        return inspect::kExitOperationThrew;
    } catch (...) {
        std::fflush(stdout);
        std::fprintf(stderr, "ddk-inspect: %s let an exception out\n", options.plugin.c_str());
        return inspect::kExitOperationThrew;
    }
}
