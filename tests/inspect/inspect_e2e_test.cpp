// ddk-inspect run as a vendor runs it: on the sample plug-in, whose answers
// are checked against the sample's own tables, and on broken plug-ins.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "camera_model.h"

namespace {

using Json = nlohmann::json;

struct Outcome {
    int exit;
    std::string out;
    std::string err;
};

std::string quoted(const std::string& text) { return "'" + text + "'"; }

// Runs the inspector with `args` (already quoted where needed), after `env`
// (variable assignments for the inspector's environment).
Outcome inspect(const std::string& args, const std::string& env = "") {
    char errPath[] = "/tmp/ddk-inspect-stderr-XXXXXX";
    const int fd = mkstemp(errPath);
    if (fd < 0) {
        return {-1, "", "mkstemp failed"};
    }
    close(fd);
    const std::string command = "env " + env + " " + std::string(INSPECT_EMULATOR) + " " + quoted(INSPECT_TOOL) +
                                " " + args + " 2>" + errPath;
    Outcome run{-1, "", ""};
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe != nullptr) {
        char buffer[4096];
        std::size_t got;
        while ((got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) {
            run.out.append(buffer, got);
        }
        const int status = pclose(pipe);
        run.exit = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    std::ifstream err(errPath);
    std::stringstream text;
    text << err.rdbuf();
    run.err = text.str();
    std::remove(errPath);
    return run;
}

const std::string kSimcam = quoted(SIMCAM_PLUGIN);
std::string broken(const std::string& name) { return quoted(std::string(BROKEN_DIR) + "/" + name); }

Json jsonReport(const std::string& args) {
    const Outcome run = inspect(kSimcam + " --json " + args);
    EXPECT_EQ(run.exit, 0) << run.err;
    return Json::parse(run.out);
}

const Json& source(const Json& report, const std::string& token) {
    for (const Json& s : report["video"]["streams"]) {
        if (s["source"] == token) {
            return s;
        }
    }
    throw std::runtime_error("no source " + token);
}

std::vector<int> encodingsOf(const Json& options) { return options["encodings"].get<std::vector<int>>(); }

TEST(Report, TextHasASectionPerExtension) {
    const Outcome run = inspect(kSimcam);
    ASSERT_EQ(run.exit, 0) << run.err;
    EXPECT_EQ(run.err, "");
    for (const char* heading :
         {"== Plug-in", "== Video (IVideoExtension)", "== Media sessions (IMediaSessionExtension)",
          "== Alarms and motion (IAlarmExtension)", "== Zoom (IZoomExtension)",
          "== Presets and tours (IScriptControlExtension)", "== Image settings (IImageSettingsExtension)",
          "== Device information (IDeviceInfoExtension)", "== Device management (IDeviceManagementExtension)",
          "== Time (ITimeManagementExtension)", "== Events and log lines"}) {
        EXPECT_NE(run.out.find(heading), std::string::npos) << heading;
    }
    EXPECT_NE(run.out.find("video0-main: H264 1920x1080 30 fps 4000 kbit/s"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("simcam: connected to the simulated device"), std::string::npos);
}

TEST(Report, JsonFiguresMatchTheSampleCamera) {
    const Json report = jsonReport("");
    EXPECT_EQ(report["plugin"]["name"], "simcam");
    EXPECT_EQ(report["plugin"]["abiVersion"], 1);
    EXPECT_EQ(report["plugin"]["interfaces"].size(), 9u);

    std::vector<std::string> tokens;
    for (const simcam::SourceSpec& s : simcam::kSources) tokens.push_back(s.token);
    EXPECT_EQ(report["video"]["sources"].get<std::vector<std::string>>(), tokens);

    for (const simcam::SourceSpec& desc : simcam::kSources) {
        SCOPED_TRACE(desc.token);
        const Json& s = source(report, desc.token);
        ASSERT_EQ(s["streams"].size(), desc.streamCount);
        for (std::size_t i = 0; i < desc.streamCount; ++i) {
            const simcam::StreamSpec& want = desc.streams[i];
            bool found = false;
            for (const Json& got : s["streams"]) {
                if (got["key"] != want.token) continue;
                found = true;
                EXPECT_EQ(got["token"], want.token);
                EXPECT_EQ(got["name"], want.name);
                EXPECT_EQ(got["encoding"], want.encoding);
                EXPECT_EQ(got["width"], want.width);
                EXPECT_EQ(got["height"], want.height);
                EXPECT_EQ(got["framerate"], want.framerate);
                EXPECT_EQ(got["bitrate"], want.bitrate);
                EXPECT_EQ(got["gop"], want.encoding == 3 ? 0u : want.gop);
                EXPECT_EQ(got["mtu"], 1400);
                EXPECT_EQ(s["multicastDefaults"][want.token]["ttl"], 16);
            }
            EXPECT_TRUE(found) << want.token;
        }
        // Presets: the main stream at the full and at a quarter bit rate.
        ASSERT_EQ(s["presets"].size(), 2u);
        EXPECT_EQ(s["presets"][0]["name"], "full quality");
        EXPECT_EQ(s["presets"][1]["streams"][0]["bitrate"], desc.streams[0].bitrate / 4);

        std::set<int> encodings;
        std::set<std::pair<unsigned, unsigned>> resolutions;
        for (std::size_t i = 0; i < desc.modeCount; ++i) {
            encodings.insert(desc.modes[i].encoding);
            resolutions.insert({desc.modes[i].width, desc.modes[i].height});
        }
        const Json& options = s["encoderOptions"];
        EXPECT_EQ(encodingsOf(options), std::vector<int>(encodings.begin(), encodings.end()));
        EXPECT_EQ(options["resolutions"].size(), resolutions.size());
        EXPECT_EQ(options["signing"], true);
        EXPECT_EQ(options["gopRange"]["high"], 300);

        ASSERT_EQ(s["analyticsProfiles"].size(), desc.profileCount);
        for (std::size_t i = 0; i < desc.profileCount; ++i) {
            EXPECT_EQ(s["analyticsProfiles"][i]["id"], desc.profiles[i].id);
            EXPECT_EQ(s["analyticsProfiles"][i]["name"], desc.profiles[i].name);
        }

        const Json& regions = report["alarm"]["motionRegions"][desc.token];
        ASSERT_EQ(regions.size(), desc.regionCount);
        for (std::size_t i = 0; i < desc.regionCount; ++i) {
            const simcam::RegionSpec& r = desc.regions[i];
            EXPECT_EQ(regions[i]["x2"], r.x2);
            EXPECT_EQ(regions[i]["threshold"], r.threshold);
            EXPECT_EQ(regions[i]["maskBytes"], r.masked ? regions[i]["maskBytesExpected"].get<unsigned>() : 0u);
        }

        const Json& zoom = report["zoom"][desc.token];
        EXPECT_EQ(zoom["factors"]["first"], desc.zoomFactor);
        EXPECT_EQ(zoom["magnification"], desc.magnification);
        // A magnification m stands for m x F hundredths, F = first/100 x 100/100.
        EXPECT_EQ(zoom["hundredthsX"], desc.magnification == 0 ? 100u : desc.magnification * desc.zoomFactor / 100);

        const Json& presets = report["scriptControl"][desc.token]["presets"];
        EXPECT_EQ(presets["numbers"], desc.presetCount);
        EXPECT_EQ(presets["enabled"].get<std::vector<unsigned>>(),
                  std::vector<unsigned>(desc.presetsInUse, desc.presetsInUse + desc.presetsInUseCount));
    }

    const Json& media = report["mediaSession"];
    ASSERT_EQ(media["sessions"].size(), 1u);
    EXPECT_EQ(media["sessions"][0]["streamToken"], simcam::kSources[0].streams[0].token);
    EXPECT_EQ(media["sessions"][0]["destinationIp"], simcam::kRecorderAddress);
    EXPECT_EQ(media["endpoints"].size(), 5u);
    EXPECT_EQ(media["endpoints"]["video0-mjpeg"].size(), 2u);
    EXPECT_EQ(media["audio"][0]["streams"].size(), 2u);
    EXPECT_EQ(media["audio"][0]["input"]["level"], 75);
    // The kit's key, whole: 137 characters on four lines.
    const std::string key = media["publicKey"].get<std::string>();
    EXPECT_EQ(key.size(), 137u);
    EXPECT_EQ(key.rfind("-----BEGIN PUBLIC KEY-----\n", 0), 0u);
    EXPECT_EQ(std::count(key.begin(), key.end(), '\n'), 3);

    EXPECT_EQ(report["deviceInfo"]["manufacturer"], simcam::kManufacturer);
    EXPECT_EQ(report["deviceInfo"]["modelDescription"], simcam::kModelDescription);
    EXPECT_EQ(report["deviceInfo"]["capabilities"].size(), sizeof simcam::kCapabilities / sizeof(char*));
    EXPECT_EQ(report["deviceManagement"]["networkAddresses"][0]["address"], simcam::kDeviceAddress);
    EXPECT_EQ(report["timeManagement"]["timeZone"]["name"], simcam::kTimeZoneName);
    EXPECT_EQ(report["timeManagement"]["timeZone"]["gmtOffset"], simcam::kGmtOffsetMinutes);
    EXPECT_EQ(report["imageSettings"]["video1"]["hue"]["range"]["minimum"], -180);
}

// The query options reach the plug-in, which answers within the filters.
TEST(Report, QueryOptionsNarrowTheEncoderOptions) {
    Json report = jsonReport("--query-encoding 3");
    EXPECT_EQ(encodingsOf(source(report, "video0")["encoderOptions"]), std::vector<int>{3});
    EXPECT_EQ(source(report, "video0")["encoderOptions"]["resolutions"].size(), 2u);
    EXPECT_TRUE(encodingsOf(source(report, "video1")["encoderOptions"]).empty());

    report = jsonReport("--query-resolution 640x360");
    EXPECT_EQ(encodingsOf(source(report, "video0")["encoderOptions"]), (std::vector<int>{1, 3}));

    report = jsonReport("--query-framerate 30 --source video1");
    EXPECT_EQ(report["video"]["streams"].size(), 1u);
    EXPECT_TRUE(source(report, "video1")["encoderOptions"]["framerates"].empty());
}

TEST(Check, SampleCameraPasses) {
    const Outcome run = inspect(kSimcam + " --check");
    EXPECT_EQ(run.exit, 0) << run.out << run.err;
    EXPECT_EQ(run.out.find("FAIL"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("PASS  Errors.EveryRecordReleased"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find(" passed, 0 failed, 0 skipped"), std::string::npos) << run.out;
}

TEST(Check, ListAndFilter) {
    Outcome run = inspect("--list-checks");
    EXPECT_EQ(run.exit, 0);
    for (const char* name : {"Lifecycle.SecondInitIsANoOp", "Video.EncoderOptionsHonourQuery",
                             "Motion.RegionsConsistentWithMasks", "Errors.EveryRecordReleased"}) {
        EXPECT_NE(run.out.find(name), std::string::npos) << name;
    }
    run = inspect(kSimcam + " --check --filter 'Video.*'");
    EXPECT_EQ(run.exit, 0) << run.out;
    EXPECT_NE(run.out.find("PASS  Video.SourcesReported"), std::string::npos);
    EXPECT_EQ(run.out.find("Lifecycle."), std::string::npos) << run.out;
}

// Each kind of conformance problem shows as a failed check with its finding.
TEST(Check, BrokenPluginGetsFindings) {
    // The sloppy plug-in leaks a record on purpose: not the leak checker's business.
    const Outcome run = inspect(broken("broken_sloppy.so") + " --check", "ASAN_OPTIONS=detect_leaks=0");
    EXPECT_EQ(run.exit, 1) << run.out << run.err;
    for (const char* line : {
             "PASS  Lifecycle.SecondInitIsANoOp",
             "FAIL  Operations.NoExceptionLeaves",
             "IVideoExtension::analyticsProfiles let out: an exception that is not a std::exception",
             "FAIL  Video.EveryStreamHasEncodingAndResolution",
             "source 0 stream \"main\" has no resolution",
             "FAIL  Video.EncoderOptionsWhereStreamsExist",
             "FAIL  Errors.EveryRecordReleased",
             "1 of 1 error records made while the plug-in ran were never released",
             "SKIP  Zoom.MagnificationWithinRange",
         }) {
        EXPECT_NE(run.out.find(line), std::string::npos) << line << "\n" << run.out;
    }
    const Outcome throwing = inspect(broken("broken_throws.so") + " --check --filter 'Operations.*'");
    EXPECT_EQ(throwing.exit, 1);
    EXPECT_NE(throwing.out.find("IDeviceInfoExtension::manufacturer let out: firmware query timed out"),
              std::string::npos)
        << throwing.out;
}

TEST(Events, ArriveWhileThePluginRuns) {
    const Json report = jsonReport("--events 1.6");
    std::set<std::string> kinds;
    for (const Json& e : report["events"]) kinds.insert(e["kind"].get<std::string>());
    for (const char* kind : {"alarm", "motion", "analytics", "diagnostics", "log"}) {
        EXPECT_EQ(kinds.count(kind), 1u) << kind << " in " << report["events"].dump();
    }
    const Json& events = report["events"];
    EXPECT_EQ(events.front()["message"], "simcam: connected to the simulated device");
    EXPECT_EQ(events.back()["message"], "simcam: disconnected");
    for (const Json& e : events) {
        if (e["kind"] == "analytics") {
            EXPECT_EQ(e["ruleName"], "Camera Sabotage");
            EXPECT_EQ(e["text1"], "video1");
        }
    }
    const Outcome text = inspect(kSimcam + " --events 0.6");
    EXPECT_NE(text.out.find("== Events and log lines, live for 0.6 s"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("alarm  source=0  type=1  state=1"), std::string::npos) << text.out;
}

// One error line and a distinct exit code per kind of bad input.
TEST(BadInput, OneLineAndItsOwnExitCode) {
    struct Case {
        std::string plugin;
        int exit;
        std::string message;
    };
    const std::vector<Case> cases = {
        {broken("missing.so"), 3, "cannot open " + std::string(BROKEN_DIR) + "/missing.so: No such file or directory"},
        {broken("not_a_plugin.so"), 3, "not_a_plugin.so is not a shared object (no ELF header)"},
        {broken("broken_no_entry.so"), 4, "has no plug-in entry point (vantrel_ddk_plugin_entry)"},
        {broken("broken_refuses_abi.so"), 5, "was built against an incompatible kit: it refuses ABI version 1"},
        {broken("broken_other_abi.so"), 5, "was built against ABI version 2, this host uses 1"},
        {broken("broken_no_object.so"), 6, "the entry point made no plug-in object"},
        {broken("broken_init_fails.so"), 7, "init failed with error 42: sensor not found"},
        {broken("broken_throws.so"), 8,
         "IDeviceInfoExtension::manufacturer let an exception out: firmware query timed out"},
    };
    for (const Case& c : cases) {
        for (const char* mode : {"", " --json", " --check"}) {
            SCOPED_TRACE(c.plugin + mode);
            const Outcome run = inspect(c.plugin + mode);
            if (c.exit == 8 && std::string(mode) == " --check") {
                continue;  // the checks report the exception as a finding instead
            }
            EXPECT_EQ(run.exit, c.exit) << run.err;
            EXPECT_EQ(run.err.rfind("ddk-inspect: ", 0), 0u) << run.err;
            EXPECT_NE(run.err.find(c.message), std::string::npos) << run.err;
            EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
            EXPECT_EQ(run.out.find("== Video"), std::string::npos);
        }
    }
}

TEST(BadInput, UsageErrorsExitTwo) {
    for (const std::string& args : {std::string("--no-such-option ") + kSimcam, std::string(""),
                                    kSimcam + " --query-resolution 640", kSimcam + " --events -1"}) {
        const Outcome run = inspect(args);
        EXPECT_EQ(run.exit, 2) << args << ": " << run.err;
        EXPECT_EQ(run.err.rfind("ddk-inspect: ", 0), 0u) << run.err;
    }
    const Outcome help = inspect("--help");
    EXPECT_EQ(help.exit, 0);
    for (const char* text : {"--json", "--check", "--events", "--list-checks", "--filter", "--query-encoding",
                             "Exit codes:", "7  init failed"}) {
        EXPECT_NE(help.out.find(text), std::string::npos) << text;
    }
}

}  // namespace
