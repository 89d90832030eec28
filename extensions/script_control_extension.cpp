#include "vantrel/extensions/script_control_extension.h"

namespace vantrel::ddk {

namespace {
// The script operations always report success; a record that runScript
// returns is released here rather than leaked.
DDKError* run(IScriptControlExtension& self, const char* token, IScriptControlExtension::Script script) {
  ddk_free_error(self.runScript(token, script));
  return nullptr;
}
}  // namespace

IScriptControlExtension::IScriptControlExtension() = default;

IScriptControlExtension::~IScriptControlExtension() = default;

DDKError* IScriptControlExtension::activateAuxiliary(const char* token) {
  return run(*this, token, ScriptActivateAuxiliary);
}

DDKError* IScriptControlExtension::deactivateAuxiliary(const char* token) {
  return run(*this, token, ScriptDeactivateAuxiliary);
}

DDKError* IScriptControlExtension::rotate180Degrees(const char* token) {
  return run(*this, token, ScriptRotate180Degrees);
}

DDKError* IScriptControlExtension::panToZero(const char* token) {
  return run(*this, token, ScriptPanToZero);
}

DDKError* IScriptControlExtension::runAutoScan(const char* token) {
  return run(*this, token, ScriptAutoScan);
}

DDKError* IScriptControlExtension::runRandomScan(const char* token) {
  return run(*this, token, ScriptRandomScan);
}

DDKError* IScriptControlExtension::runFrameScan(const char* token) {
  return run(*this, token, ScriptFrameScan);
}

DDKError* IScriptControlExtension::stopScan(const char* token) {
  return run(*this, token, ScriptStopScan);
}

}  // namespace vantrel::ddk
