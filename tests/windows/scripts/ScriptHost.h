// A small script host: runs a script in one of the system's engines, gives it objects by name, and calls its
// functions OBJECT_EVENT for their events, as the engine's own hosts do.
#pragma once

#include <windows.h>

#include <activscp.h>

#include "tests/windows/Support.h"

namespace dlv::test {

class ScriptHost {
public:
    enum class Language { VBScript, JScript };

    explicit ScriptHost(Language language);
    /// Ends the engine and every connection.
    ~ScriptHost();
    ScriptHost(const ScriptHost&) = delete;
    ScriptHost& operator=(const ScriptHost&) = delete;

    void AddObject(const std::wstring& name, IDispatch* object);
    /// An object whose events of the interface `events` the script handles too.
    void AddSource(const std::wstring& name, IDispatch* object, REFIID events);
    /// Runs the script's own statements; its functions can be called from then on.
    HRESULT Run(const std::wstring& script);

    /// What went wrong in the script, in the engine's words.
    const std::vector<std::wstring>& Errors() const;

private:
    class Site;

    HRESULT CallHandler(const std::wstring& name, DISPPARAMS& arguments) const;

    const Language language_;
    ComPtr<Site> site_;
    ComPtr<IActiveScript> engine_;
    std::vector<ComPtr<EventSink>> sinks_;
};

}  // namespace dlv::test
