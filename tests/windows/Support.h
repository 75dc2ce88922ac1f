// What the tests of the built control share: COM on this thread, the control made without registration, a
// host window, and the calls of a host in their shortest form.
#pragma once

#include <windows.h>

#include <comutil.h>
#include <gtest/gtest.h>
#include <ole2.h>

#include <chrono>
#include <functional>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

#include "DashlonViewer.h"
#include "hosts/container/Container.h"
#include "hosts/container/EventSink.h"
#include "hosts/container/Library.h"

namespace dlv::test {

using container::Container;
using container::EventSink;
using container::Library;
using Microsoft::WRL::ComPtr;

inline constexpr wchar_t kControl[] = L"DashlonViewer.DLViewer";
inline constexpr RECT kPlace{0, 0, 900, 600};

/// The control's library as hosts use it unregistered; loaded once per test program.
const Library& ControlLibrary();
/// Its type library, from the control's own file.
ComPtr<ITypeLib> ControlTypeLibrary();
/// A function that the loaded control exports; null when there is none.
template <class Function>
Function Export(const char* name) {
    const HMODULE module = GetModuleHandleW(L"DashlonViewer.ocx");
    if (module == nullptr) return nullptr;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}
/// DllCanUnloadNow of the loaded control.
HRESULT CanUnload();

template <class Interface>
ComPtr<Interface> As(IUnknown* object) {
    ComPtr<Interface> found;
    if (object != nullptr) object->QueryInterface(IID_PPV_ARGS(&found));
    return found;
}

/// A new object of the control's library.
template <class Interface>
ComPtr<Interface> New(const wchar_t* className) {
    const std::wstring progId = std::wstring(L"DashlonViewer.") + className;
    return As<Interface>(ControlLibrary().Create(progId.c_str()).Get());
}

/// How many references an object has, which must not be used by anybody else meanwhile.
template <class Object>
ULONG ReferencesOf(Object* object) {
    object->AddRef();
    return object->Release();
}

/// A top-level window for as long as it lives.
class HostWindow {
public:
    HostWindow();
    ~HostWindow() { Destroy(); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    HWND Handle() const { return window_; }
    void Destroy();

private:
    HWND window_ = nullptr;
};

/// Handles messages until the queue is empty or `condition` holds, for at most `limit`.
void PumpMessages();
template <class Condition>
bool PumpUntil(Condition condition, std::chrono::milliseconds limit = std::chrono::seconds(10)) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        PumpMessages();
        Sleep(1);
    }
    return true;
}

/// The text of the error information that the last failing call left on this thread; takes it away.
std::wstring TakeErrorText();
/// The result under which a run-time error reaches a host.
constexpr HRESULT RunTimeErrorResult(int number) {
    return static_cast<HRESULT>(0x800A0000u + unsigned(number));
}

/// An array of texts, with lower bound 0.
class TextArray {
public:
    TextArray(std::initializer_list<const wchar_t*> texts);
    ~TextArray() { SafeArrayDestroy(array_); }
    TextArray(const TextArray&) = delete;
    TextArray& operator=(const TextArray&) = delete;
    SAFEARRAY** Address() { return &array_; }
    SAFEARRAY* Get() const { return array_; }

private:
    SAFEARRAY* array_ = nullptr;
};

HRESULT Initialize(_DLViewer* viewer, IDispatch* transport = nullptr);
HRESULT SetSessionUnits(_DLViewer* viewer, std::initializer_list<const wchar_t*> ids);
HRESULT AnswerProfiles(_DLViewer* viewer, const wchar_t* resultXml, const wchar_t* function);
HRESULT Receive(_DLViewer* viewer, IDispatch* message);

/// A message with two units and one row of details, from its text.
ComPtr<_QZWebMessage> SampleMessage();
extern const wchar_t kSampleMessage[];
/// A message that the control cannot load: it lacks a table.
ComPtr<_QZWebMessage> BrokenMessage();

/// Is told of every call between a container and its control while it is made.
class CallListener : private std::streambuf {
public:
    /// `heard` gets the call's name as the recorder writes it.
    explicit CallListener(std::function<void(std::string_view call)> heard)
        : heard_(std::move(heard)), out_(this), recorder_(std::make_shared<container::Recorder>(out_)) {}
    const std::shared_ptr<container::Recorder>& Recorder() const { return recorder_; }

private:
    std::streamsize xsputn(const char* text, std::streamsize count) override {
        heard_({text, static_cast<std::size_t>(count)});
        return count;
    }
    int_type overflow(int_type character) override { return character; }

    std::function<void(std::string_view)> heard_;
    std::ostream out_;
    std::shared_ptr<container::Recorder> recorder_;
};

/// A control that is active in a container, with a sink for its events; not yet initialized.
class HostedControl {
public:
    explicit HostedControl(std::shared_ptr<container::Recorder> recorder = {});
    /// A sink and a control hold each other until they are disconnected.
    ~HostedControl() { sink->Disconnect(); }
    HostedControl(const HostedControl&) = delete;
    HostedControl& operator=(const HostedControl&) = delete;

    _DLViewer* Viewer() const { return viewer.Get(); }
    /// The calls of a host up to the first data message, with answers to the requests for profiles.
    void StartUp();
    /// The first window inside the control that is of that class.
    HWND WindowOf(const wchar_t* className) const;
    /// How many units the list on the screen holds.
    std::size_t ListedUnits() const;

    HostWindow window;
    ComPtr<EventSink> sink;
    ComPtr<_DLViewer> viewer;
    Container container;
};

}  // namespace dlv::test
