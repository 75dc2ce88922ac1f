// A container that makes single calls on the control in whatever order it is told, right or wrong, and writes
// down what passes between the two. Steps have names: "create", "site", "activate", "close", "release" and
// others.
#pragma once

#include "hosts/container/AdviseSink.h"
#include "tests/windows/Support.h"

namespace dlv::test {

class RawContainer {
public:
    /// The transcript goes to `out`: the name of each step, below it the calls.
    explicit RawContainer(std::ostream& out);
    /// Lets everything go that it still holds of the control.
    ~RawContainer();
    RawContainer(const RawContainer&) = delete;
    RawContainer& operator=(const RawContainer&) = delete;

    /// False for a step that there is not.
    bool Do(std::string_view step);

    HWND Window() const { return window_.Handle(); }
    _DLViewer* Control() const { return control_.Get(); }
    /// What others than this container hold of its objects: 0 when the control has let go of all.
    ULONG HeldByTheControl() const;
    /// The window that passes its focus on has it.
    void GotFocus();

private:
    struct Step;
    static const Step kSteps[];

    template <class Interface, class Body>
    HRESULT Ask(std::string_view text, Body&& body) const {
        const ComPtr<_DLViewer> control = control_;
        return container::Ask<Interface>(recorder_, control.Get(), text, body);
    }
    ComPtr<container::Site> MakeSite();
    void Create();
    void SetSite(IOleClientSite* site, const char* name);
    void DoVerb(LONG verb);
    void SetExtent(SIZE extent);
    void Place(const RECT& place);
    void Close(DWORD save, const char* name);
    void Load();
    void Save();
    void Draw();
    void Connect();
    void Release();
    void PassFocusOn();

    std::ostream& out_;
    const std::shared_ptr<container::Recorder> recorder_;
    HostWindow window_;
    const container::Surroundings surroundings_;
    const ComPtr<container::Site> site_;
    const ComPtr<container::Site> otherSite_;
    const ComPtr<container::AdviseSink> advises_;
    const ComPtr<container::EventSink> events_;
    ComPtr<IStream> stream_;
    ComPtr<_DLViewer> control_;
};

}  // namespace dlv::test
