#include "checks.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "error_ledger.h"
#include "exit_codes.h"
#include "inspector.h"
#include "recording_host.h"

namespace inspect {

namespace {

using namespace vantrel::ddk;
using namespace vantrel::ddk::internal;

struct Context {
    const PluginModule* module = nullptr;
    const Options* options = nullptr;
    // One started plug-in and its report, shared by the checks that only
    // read what the plug-in reports.
    std::unique_ptr<RecordingHost> host;
    std::unique_ptr<PluginInstance> plugin;
    Json report;
    std::vector<Json> exceptions;
    std::vector<std::string> errorsWithoutText;
};

Context& context() {
    static Context c;
    return c;
}

std::unique_ptr<PluginInstance> started(RecordingHost& host) {
    std::unique_ptr<PluginInstance> plugin = context().module->create();
    DDKError* error = plugin->init(host.table());
    if (error != nullptr) {
        const std::string text = error->message != nullptr ? error->message : "";
        ddk_free_error(error);
        throw Failure(kExitInitFailed, "init failed: " + text);
    }
    return plugin;
}

const Json& report() {
    Context& c = context();
    if (c.plugin == nullptr) {
        c.host.reset(new RecordingHost());
        c.plugin = started(*c.host);
        Inspector inspector(*c.options, true);
        c.report = inspector.inspect(*c.plugin);
        c.exceptions = inspector.exceptions();
        c.errorsWithoutText = inspector.errorsWithoutText();
    }
    return c.report;
}

bool answered(const Json& value) {
    return !(value.is_object() && (value.contains("error") || value.contains("exception")));
}

std::vector<Json> logLines(const std::vector<Record>& records, int level) {
    std::vector<Json> out;
    for (const Record& r : records) {
        if (r.value("kind", "") == "log" && r.value("level", 0) == level) {
            out.push_back(r);
        }
    }
    return out;
}

// Each video source section whose streams were answered, with its name.
std::vector<const Json*> sourcesWithStreams() {
    std::vector<const Json*> out;
    const Json& r = report();
    if (!r.contains("video")) {
        return out;
    }
    for (const Json& source : r["video"]["streams"]) {
        if (source["streams"].is_array()) {
            out.push_back(&source);
        }
    }
    return out;
}

// A finding unless `cond` holds; the streamed text is the finding's line.
#define FINDING_UNLESS(cond) \
    if (cond) {              \
    } else                   \
        ADD_FAILURE()
// The same, ending the check.
#define STOP_UNLESS(cond) \
    if (cond) {           \
    } else                \
        FAIL()

#define REQUIRE_SECTION(name)                                           \
    if (!report().contains(name)) {                                     \
        GTEST_SKIP() << "the plug-in does not implement this extension"; \
    }

const std::map<std::string, std::string>& descriptions() {
    static const std::map<std::string, std::string> d = {
        {"Lifecycle.InitSucceeds", "init returns null and marks every IPlugin part started"},
        {"Lifecycle.SecondInitIsANoOp", "a second init returns null and keeps the first callback table"},
        {"Lifecycle.ShutdownTwiceIsHarmless", "a second shutdown does nothing and reports nothing"},
        {"Lifecycle.ShutdownLogsNoError", "shutdown logs no error line (level 2): doShutdown did not fail"},
        {"Lifecycle.QuietAfterShutdown", "no event or log line arrives after shutdown (threads stopped)"},
        {"Operations.NoExceptionLeaves", "no operation of the host contract lets an exception out"},
        {"Operations.ErrorRecordsCarryText", "every error record returned has a message"},
        {"Video.SourcesReported", "the video extension reports at least one video source"},
        {"Video.EveryStreamHasEncodingAndResolution", "every stream (and preset stream) has an encoding and a resolution"},
        {"Video.StreamTokenMatchesKey", "every stream record carries the token it is filed under"},
        {"Video.EncoderOptionsWhereStreamsExist", "a source with streams offers encodings, resolutions and frame rates"},
        {"Video.StreamsWithinEncoderOptions", "every stream's encoding, resolution and frame rate are offered by the encoder"},
        {"Video.EncoderOptionsHonourQuery", "encoder options answered for a filtered query stay within its filters"},
        {"Media.MediaTypesValid", "media types of sessions and endpoints are valid type/subtype texts"},
        {"Media.EveryStreamHasAnEndpoint", "every stream can be reached through an endpoint with a URL"},
        {"Media.SessionsNameKnownStreams", "every media session names a stream the device reports"},
        {"Media.AudioStreamsDescribed", "every audio stream has a format and a sample rate"},
        {"Motion.RegionsConsistentWithMasks", "regions have ordered corners, a mask of the right size, threshold and sensitivity in range"},
        {"Zoom.MagnificationWithinRange", "the magnification reported lies within the lens's range"},
        {"Image.LevelsWithinRange", "every image setting lies within its range"},
        {"Device.IdentityComplete", "manufacturer, model description and serial number are not empty"},
        {"Time.ZoneNamed", "the time zone has a name"},
        {"Errors.EveryRecordReleased", "every error record made while the plug-in runs is released"},
    };
    return d;
}

// One line per check, and the findings under a failed one.
class FindingsPrinter : public testing::EmptyTestEventListener {
public:
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.failed()) {
            std::string message = result.message();
            std::size_t start = 0;
            while (start < message.size()) {
                std::size_t end = message.find('\n', start);
                if (end == std::string::npos) {
                    end = message.size();
                }
                // "Failed" is GoogleTest's own heading of a finding.
                if (end > start && message.compare(start, end - start, "Failed") != 0) {
                    findings_.push_back(message.substr(start, end - start));
                }
                start = end + 1;
            }
        } else if (result.skipped()) {
            skipReason_ = result.message();
        }
    }
    void OnTestStart(const testing::TestInfo&) override {
        findings_.clear();
        skipReason_.clear();
    }
    void OnTestEnd(const testing::TestInfo& info) override {
        const std::string name = std::string(info.test_suite_name()) + "." + info.name();
        const char* verdict = info.result()->Failed() ? "FAIL" : info.result()->Skipped() ? "SKIP" : "PASS";
        std::printf("%s  %s\n", verdict, name.c_str());
        if (info.result()->Skipped() && !skipReason_.empty()) {
            std::printf("        %s\n", skipReason_.c_str());
        }
        for (const std::string& f : findings_) {
            std::printf("        %s\n", f.c_str());
        }
        std::fflush(stdout);
    }
    void OnTestProgramEnd(const testing::UnitTest& unit) override {
        std::printf("%d checks: %d passed, %d failed, %d skipped\n", unit.test_to_run_count(),
                    unit.successful_test_count(), unit.failed_test_count(),
                    unit.skipped_test_count());
    }

private:
    std::vector<std::string> findings_;
    std::string skipReason_;
};

int startGoogleTest(const Options& options, bool list) {
    std::vector<std::string> args = {"ddk-inspect", "--gtest_filter=" + options.filter, "--gtest_color=no"};
    if (list) {
        args.push_back("--gtest_list_tests");
    }
    std::vector<char*> argv;
    for (std::string& a : args) {
        argv.push_back(&a[0]);
    }
    int argc = static_cast<int>(argv.size());
    testing::InitGoogleTest(&argc, argv.data());
    return 0;
}

}  // namespace

// ---- The checks -------------------------------------------------------------

bool listing = false;

// Every check's fixture: when the checks are only listed, each is skipped
// before it starts.
class Check : public testing::Test {
protected:
    void SetUp() override {
        if (listing) {
            GTEST_SKIP();
        }
    }
};
using Lifecycle = Check;
using Operations = Check;
using Video = Check;
using Media = Check;
using Motion = Check;
using Zoom = Check;
using Image = Check;
using Device = Check;
using Time = Check;
using Errors = Check;

TEST_F(Lifecycle, InitSucceeds) {
    RecordingHost host;
    std::unique_ptr<PluginInstance> plugin = context().module->create();
    DDKError* error = plugin->init(host.table());
    FINDING_UNLESS(error == nullptr) << "init returned error " << error->code << ": "
                              << (error->message ? error->message : "");
    ddk_free_error(error);
    for (IPlugin* part : plugin->extensions().parts) {
        FINDING_UNLESS(part->initialized) << "an IPlugin part is not marked started";
        FINDING_UNLESS(part->serviceProvider == host.table()) << "an IPlugin part does not hold the host's table";
    }
    plugin->shutdown();
}

TEST_F(Lifecycle, SecondInitIsANoOp) {
    RecordingHost first, second;
    std::unique_ptr<PluginInstance> plugin = started(first);
    DDKError* error = plugin->init(second.table());
    FINDING_UNLESS(error == nullptr) << "the second init returned an error";
    ddk_free_error(error);
    for (IPlugin* part : plugin->extensions().parts) {
        FINDING_UNLESS(part->serviceProvider == first.table()) << "the second init replaced the callback table";
    }
    plugin->shutdown();
    FINDING_UNLESS(second.size() == 0) << "the table of the second init received " << second.size() << " records";
}

TEST_F(Lifecycle, ShutdownTwiceIsHarmless) {
    RecordingHost host;
    std::unique_ptr<PluginInstance> plugin = started(host);
    plugin->shutdown();
    std::this_thread::sleep_for(std::chrono::milliseconds(context().options->quietMilliseconds));
    const std::size_t before = host.size();
    plugin->shutdown();
    for (const Record& r : host.recordsSince(before)) {
        ADD_FAILURE() << "after the second shutdown: " << describeRecord(r);
    }
    for (IPlugin* part : plugin->extensions().parts) {
        FINDING_UNLESS(part->shutDown) << "an IPlugin part is not marked stopped";
    }
}

TEST_F(Lifecycle, ShutdownLogsNoError) {
    RecordingHost host;
    std::unique_ptr<PluginInstance> plugin = started(host);
    const std::size_t before = host.size();
    plugin->shutdown();
    for (const Json& line : logLines(host.recordsSince(before), DDK_LOG_LEVEL_ERROR)) {
        ADD_FAILURE() << "shutdown logged: " << line.value("message", "");
    }
}

TEST_F(Lifecycle, QuietAfterShutdown) {
    RecordingHost host;
    std::unique_ptr<PluginInstance> plugin = started(host);
    plugin->shutdown();
    const std::size_t after = host.size();
    std::this_thread::sleep_for(std::chrono::milliseconds(context().options->quietMilliseconds));
    for (const Record& r : host.recordsSince(after)) {
        ADD_FAILURE() << "arrived after shutdown: " << describeRecord(r);
    }
}

TEST_F(Operations, NoExceptionLeaves) {
    report();
    for (const Json& e : context().exceptions) {
        ADD_FAILURE() << e["operation"].get<std::string>() << " let out: " << e["what"].get<std::string>();
    }
}

TEST_F(Operations, ErrorRecordsCarryText) {
    report();
    for (const std::string& op : context().errorsWithoutText) {
        ADD_FAILURE() << op << " returned an error record without a message";
    }
}

TEST_F(Video, SourcesReported) {
    REQUIRE_SECTION("video");
    const Json& sources = report()["video"]["sources"];
    STOP_UNLESS(sources.is_array()) << "sourceTokens failed: " << sources.dump();
    FINDING_UNLESS(!(sources.empty())) << "no video source reported";
}

TEST_F(Video, EveryStreamHasEncodingAndResolution) {
    REQUIRE_SECTION("video");
    auto checkStreams = [](const std::string& where, const Json& streams) {
        for (const Json& s : streams) {
            const std::string name = where + " stream \"" + s["key"].get<std::string>() + "\"";
            FINDING_UNLESS(s["encoding"] != 0) << name << " has no encoding";
            FINDING_UNLESS(s["width"] != 0 && s["height"] != 0) << name << " has no resolution";
        }
    };
    for (const Json* source : sourcesWithStreams()) {
        const std::string where = "source " + (*source)["source"].get<std::string>();
        checkStreams(where, (*source)["streams"]);
        if ((*source)["presets"].is_array()) {
            for (const Json& preset : (*source)["presets"]) {
                checkStreams(where + " preset \"" + preset["name"].get<std::string>() + "\"", preset["streams"]);
            }
        }
    }
}

TEST_F(Video, StreamTokenMatchesKey) {
    REQUIRE_SECTION("video");
    for (const Json* source : sourcesWithStreams()) {
        for (const Json& s : (*source)["streams"]) {
            FINDING_UNLESS(s["token"] == s["key"]) << "stream filed under \"" << s["key"].get<std::string>()
                                            << "\" carries the token \"" << s["token"].get<std::string>() << "\"";
        }
    }
}

TEST_F(Video, EncoderOptionsWhereStreamsExist) {
    REQUIRE_SECTION("video");
    for (const Json* source : sourcesWithStreams()) {
        if ((*source)["streams"].empty()) {
            continue;
        }
        const std::string where = "source " + (*source)["source"].get<std::string>();
        const Json& options = (*source)["encoderOptions"];
        STOP_UNLESS(answered(options)) << where << ": encoderOptions failed: " << options.dump();
        FINDING_UNLESS(!(options["encodings"].empty())) << where << " has streams but offers no encoding";
        FINDING_UNLESS(!(options["resolutions"].empty())) << where << " has streams but offers no resolution";
        FINDING_UNLESS(!(options["framerates"].empty())) << where << " has streams but offers no frame rate";
    }
}

TEST_F(Video, StreamsWithinEncoderOptions) {
    REQUIRE_SECTION("video");
    if (context().options->queryEncoding >= 0 || context().options->queryFramerate >= 0 ||
        !context().options->queryResolution.empty()) {
        GTEST_SKIP() << "the encoder options were asked with filters";
    }
    for (const Json* source : sourcesWithStreams()) {
        const Json& options = (*source)["encoderOptions"];
        if (!answered(options)) {
            continue;
        }
        for (const Json& s : (*source)["streams"]) {
            const std::string name = "stream \"" + s["key"].get<std::string>() + "\"";
            bool encoding = false, resolution = false, framerate = false;
            for (const Json& e : options["encodings"]) encoding |= e == s["encoding"];
            for (const Json& r : options["resolutions"])
                resolution |= r["width"] == s["width"] && r["height"] == s["height"];
            for (const Json& f : options["framerates"]) framerate |= f == s["framerate"];
            FINDING_UNLESS(encoding) << name << ": encoding " << s["encoding"] << " is not offered";
            FINDING_UNLESS(resolution) << name << ": resolution " << s["width"] << "x" << s["height"]
                                    << " is not offered";
            FINDING_UNLESS(framerate) << name << ": frame rate " << s["framerate"] << " is not offered";
        }
    }
}

TEST_F(Video, EncoderOptionsHonourQuery) {
    REQUIRE_SECTION("video");
    IVideoExtension* video = context().plugin->extensions().video;
    Inspector inspector(*context().options, true);
    for (const Json* source : sourcesWithStreams()) {
        const std::string token = (*source)["source"].get<std::string>();
        for (const Json& s : (*source)["streams"]) {
            const std::string name = "source " + token + " stream \"" + s["key"].get<std::string>() + "\"";
            VideoOptionsQuery query;
            query.setEncodingType(static_cast<EncodingType>(s["encoding"].get<int>()));
            query.setResolution(s["width"].get<unsigned>(), s["height"].get<unsigned>());
            EncoderOptions options;
            Json error = inspector.run("IVideoExtension::encoderOptions", [&] {
                return video->encoderOptions(token.c_str(), reinterpret_cast<VideoOptionsQueryHandle*>(&query),
                                             reinterpret_cast<EncoderOptionsHandle*>(&options));
            });
            STOP_UNLESS(error.is_null()) << name << ": filtered encoderOptions failed: " << error.dump();
            for (EncodingType e : options.encodings) {
                FINDING_UNLESS(e == s["encoding"].get<int>()) << name << ": asked for encoding " << s["encoding"]
                                                       << ", also got " << e;
            }
            for (const Resolution& r : options.resolutions) {
                FINDING_UNLESS(r.width == s["width"] && r.height == s["height"])
                    << name << ": asked for " << s["width"] << "x" << s["height"] << ", also got " << r.width
                    << "x" << r.height;
            }
            bool framerate = false;
            for (unsigned f : options.framerates) framerate |= f == s["framerate"].get<unsigned>();
            FINDING_UNLESS(framerate) << name << ": its own frame rate " << s["framerate"]
                                   << " is missing from the filtered answer";
        }
    }
    for (const Json& e : inspector.exceptions()) {
        ADD_FAILURE() << e["operation"].get<std::string>() << " let out: " << e["what"].get<std::string>();
    }
}

TEST_F(Media, MediaTypesValid) {
    REQUIRE_SECTION("mediaSession");
    const Json& m = report()["mediaSession"];
    if (m["sessions"].is_array()) {
        for (const Json& s : m["sessions"]) {
            const std::string mime = s["mime"].get<std::string>();
            FINDING_UNLESS(vantrel::is_valid_mime_type(mime))
                << "session \"" << s["id"].get<std::string>() << "\": media type \"" << mime << "\"";
        }
    }
    for (auto it = m["endpoints"].begin(); it != m["endpoints"].end(); ++it) {
        if (!it->is_array()) continue;
        for (const Json& e : *it) {
            const std::string mime = e["mimeType"].get<std::string>();
            FINDING_UNLESS(vantrel::is_valid_mime_type(mime))
                << "endpoint of stream \"" << it.key() << "\": media type \"" << mime << "\"";
        }
    }
}

TEST_F(Media, EveryStreamHasAnEndpoint) {
    REQUIRE_SECTION("mediaSession");
    for (auto it = report()["mediaSession"]["endpoints"].begin(); it != report()["mediaSession"]["endpoints"].end();
         ++it) {
        STOP_UNLESS(answered(*it)) << "stream \"" << it.key() << "\": streamConnectionInfos failed: " << it->dump();
        bool url = false;
        for (const Json& e : *it) url |= !e["url"].get<std::string>().empty();
        FINDING_UNLESS(url) << "stream \"" << it.key() << "\" has no endpoint with a URL";
    }
}

TEST_F(Media, SessionsNameKnownStreams) {
    REQUIRE_SECTION("mediaSession");
    const Json& m = report()["mediaSession"];
    if (!m["sessions"].is_array()) {
        GTEST_SKIP() << "mediaSessions failed";
    }
    for (const Json& s : m["sessions"]) {
        FINDING_UNLESS(m["endpoints"].contains(s["streamToken"].get<std::string>()))
            << "session \"" << s["id"].get<std::string>() << "\" names the unknown stream \""
            << s["streamToken"].get<std::string>() << "\"";
    }
}

TEST_F(Media, AudioStreamsDescribed) {
    REQUIRE_SECTION("mediaSession");
    for (const Json& a : report()["mediaSession"]["audio"]) {
        if (!a["streams"].is_array()) continue;
        for (const Json& s : a["streams"]) {
            const std::string name = "audio stream \"" + s["name"].get<std::string>() + "\"";
            FINDING_UNLESS(s["format"] != 0) << name << " has no format";
            FINDING_UNLESS(s["samplesPerSecond"] != 0) << name << " has no sample rate";
        }
    }
}

TEST_F(Motion, RegionsConsistentWithMasks) {
    REQUIRE_SECTION("alarm");
    const Json& regions = report()["alarm"]["motionRegions"];
    for (auto it = regions.begin(); it != regions.end(); ++it) {
        if (!it->is_array()) continue;
        int index = 0;
        for (const Json& r : *it) {
            const std::string name = "source " + it.key() + " region " + std::to_string(index++);
            FINDING_UNLESS(r["x1"] <= r["x2"] && r["y1"] <= r["y2"]) << name << ": corners out of order";
            if (!r["mask"].is_null()) {
                FINDING_UNLESS(r["maskBytes"] == r["maskBytesExpected"])
                    << name << ": mask of " << r["maskBytes"] << " bytes for " << r["macroBlocks"]
                    << " macro blocks";
            }
            FINDING_UNLESS(r["threshold"].get<unsigned>() <= r["macroBlocks"].get<unsigned>())
                << name << ": threshold above the macro-block count";
            FINDING_UNLESS(r["sensitivity"].get<unsigned>() <= 100) << name << ": sensitivity above 100";
        }
    }
}

TEST_F(Zoom, MagnificationWithinRange) {
    REQUIRE_SECTION("zoom");
    for (auto it = report()["zoom"].begin(); it != report()["zoom"].end(); ++it) {
        const Json& z = *it;
        if (!answered(z["hundredthsX"]) || !answered(z["rangeHundredthsX"])) continue;
        const unsigned value = z["hundredthsX"].get<unsigned>();
        FINDING_UNLESS(value >= 100u) << "source " << it.key() << ": magnification below 1.00x";
        const unsigned low = z["rangeHundredthsX"]["minimum"].get<unsigned>();
        const unsigned high = z["rangeHundredthsX"]["maximum"].get<unsigned>();
        FINDING_UNLESS(low <= value && value <= high)
            << "source " << it.key() << ": magnification " << value << " outside " << low << ".." << high;
    }
}

TEST_F(Image, LevelsWithinRange) {
    REQUIRE_SECTION("imageSettings");
    for (auto it = report()["imageSettings"].begin(); it != report()["imageSettings"].end(); ++it) {
        for (auto setting = it->begin(); setting != it->end(); ++setting) {
            const Json& level = (*setting)["level"];
            const Json& range = (*setting)["range"];
            if (!answered(level) || !answered(range)) continue;
            FINDING_UNLESS(range["minimum"] <= level && level <= range["maximum"])
                << "source " << it.key() << ": " << setting.key() << " " << level << " outside "
                << range["minimum"] << ".." << range["maximum"];
        }
    }
}

TEST_F(Device, IdentityComplete) {
    REQUIRE_SECTION("deviceInfo");
    const Json& d = report()["deviceInfo"];
    for (const char* field : {"manufacturer", "modelDescription", "serialNumber"}) {
        FINDING_UNLESS(answered(d[field]) && !d[field].get<std::string>().empty()) << field << ": " << d[field].dump();
    }
}

TEST_F(Time, ZoneNamed) {
    REQUIRE_SECTION("timeManagement");
    const Json& zone = report()["timeManagement"]["timeZone"];
    STOP_UNLESS(answered(zone)) << "timeZone failed: " << zone.dump();
    FINDING_UNLESS(!(zone["name"].get<std::string>().empty())) << "the time zone has no name";
}

TEST_F(Errors, EveryRecordReleased) {
    const ErrorLedger before = errorLedger();
    if (!before.active) {
        GTEST_SKIP() << "error records cannot be counted in this process";
    }
    {
        RecordingHost host;
        std::unique_ptr<PluginInstance> plugin = started(host);
        Inspector inspector(*context().options, true);
        inspector.inspect(*plugin);
        plugin->shutdown();
    }
    const ErrorLedger after = errorLedger();
    const std::size_t made = after.made - before.made;
    const std::size_t released = after.released - before.released;
    FINDING_UNLESS(made == released) << made - released << " of " << made
                                     << " error records made while the plug-in ran were never released";
}

// ---- Running ----------------------------------------------------------------

// Listing runs no check: the fixture skips each one, and the printer names
// those the filter selects.
class ListPrinter : public testing::EmptyTestEventListener {
public:
    void OnTestStart(const testing::TestInfo& info) override {
        const std::string name = std::string(info.test_suite_name()) + "." + info.name();
        auto d = descriptions().find(name);
        std::printf("%-44s %s\n", name.c_str(), d != descriptions().end() ? d->second.c_str() : "");
    }
};

void listChecks(const Options& options) {
    listing = true;
    startGoogleTest(options, false);
    testing::TestEventListeners& listeners = testing::UnitTest::GetInstance()->listeners();
    delete listeners.Release(listeners.default_result_printer());
    listeners.Append(new ListPrinter());
    if (RUN_ALL_TESTS() != 0) {
        std::fputs("ddk-inspect: the checks could not be listed\n", stderr);
    }
}

int runChecks(const PluginModule& module, const Options& options) {
    context().module = &module;
    context().options = &options;
    startGoogleTest(options, false);
    testing::TestEventListeners& listeners = testing::UnitTest::GetInstance()->listeners();
    delete listeners.Release(listeners.default_result_printer());
    listeners.Append(new FindingsPrinter());
    const int failed = RUN_ALL_TESTS();
    Context& c = context();
    if (c.plugin != nullptr) {
        c.plugin->shutdown();
        c.plugin.reset();
    }
    return failed == 0 ? kExitOk : kExitFindings;
}

}  // namespace inspect
