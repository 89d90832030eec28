// What the command line asks for.
#pragma once

#include <string>
#include <vector>

namespace inspect {

struct Options {
    std::string plugin;
    bool json = false;
    bool check = false;
    bool listChecks = false;
    std::string filter = "*";
    double eventsSeconds = 0;
    // Token of device-wide questions (device info, management, time).
    std::string deviceToken = "0";
    // Video sources to ask about; empty: the ones the plug-in reports.
    std::vector<std::string> sources;
    // Filters of the encoder-options question; absent when negative / empty.
    long long queryEncoding = -1;
    long long queryFramerate = -1;
    std::string queryResolution;  // "WIDTHxHEIGHT"
    // How long the checks wait for stray events after shutdown.
    unsigned quietMilliseconds = 300;
};

}  // namespace inspect
