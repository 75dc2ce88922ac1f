// What the container's frame and its document window have in common: a window, and the object that is active
// in it. A container with one document and no borders to give away needs no more for its document.
#pragma once

#include "hosts/container/Recorder.h"
#include "hosts/container/Unknown.h"

namespace dlv::container {

template <class Interface>
class UIWindow : public Unknown<Interface>, protected Recorded {
public:
    /// `window` outlives the use of the object; `name` is the interface's in transcripts.
    UIWindow(HWND window, std::string name, std::shared_ptr<Recorder> recorder)
        : Recorded(std::move(recorder)), window_(window), name_(std::move(name)) {}

    HWND Window() const { return window_; }
    IOleInPlaceActiveObject* ActiveObject() const { return active_.Get(); }
    /// For a container that lets go of a control which is active still.
    void ForgetActiveObject() { const ComPtr<IOleInPlaceActiveObject> gone = std::move(active_); }

    STDMETHODIMP GetWindow(HWND* window) override {
        auto call = HearMember("GetWindow");
        if (window == nullptr) return call.Returns(E_POINTER);
        *window = window_;
        return call.Returns(S_OK);
    }

    STDMETHODIMP ContextSensitiveHelp(BOOL) override {
        return HearMember("ContextSensitiveHelp").Returns(E_NOTIMPL);
    }

    STDMETHODIMP GetBorder(LPRECT border) override {
        auto call = HearMember("GetBorder");
        if (border == nullptr) return call.Returns(E_POINTER);
        GetClientRect(window_, border);
        return call.Returns(S_OK, PlaceText(*border));
    }

    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override {
        return HearMember("RequestBorderSpace").Returns(INPLACE_E_NOTOOLSPACE);
    }

    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS widths) override {
        if (widths != nullptr) return HearMember("SetBorderSpace").Returns(INPLACE_E_NOTOOLSPACE);
        return HearMember("SetBorderSpace(none)").Returns(S_OK);
    }

    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
        auto call = HearMember(object == nullptr ? "SetActiveObject(none)" : "SetActiveObject(control)");
        active_ = object;
        return call.Returns(S_OK);
    }

protected:
    Recorder::Call HearMember(const char* member) const { return Hear(name_ + "." + member); }

    void* Find(REFIID iid) override {
        const bool base = IsEqualGUID(iid, IID_IOleWindow) || IsEqualGUID(iid, IID_IOleInPlaceUIWindow);
        return base ? static_cast<Interface*>(this) : Unknown<Interface>::Find(iid);
    }

private:
    const HWND window_;
    const std::string name_;
    ComPtr<IOleInPlaceActiveObject> active_;
};

/// The window of the container's document, where it is another than the frame's.
class Document final : public UIWindow<IOleInPlaceUIWindow> {
public:
    explicit Document(HWND window, std::shared_ptr<Recorder> recorder = {})
        : UIWindow(window, "IOleInPlaceUIWindow", std::move(recorder)) {}
};

}  // namespace dlv::container
