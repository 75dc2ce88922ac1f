// Writes down the calls between a container and its control while they are made: one line each, with what
// matters of its arguments and its result. What is called inside another call stands indented below it, and
// the outer call's result then has a line of its own:
//
//   > IOleObject.DoVerb(INPLACEACTIVATE)
//     < IOleInPlaceSite.CanInPlaceActivate = S_OK
//     ...
//     = S_OK
//
// ">" is a call of the container, "<" one of the control. Only IUnknown's own members are left out.
#pragma once

#include <windows.h>

#include <wrl/client.h>

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace dlv::container {

enum class Caller { Container, Control };

class Recorder {
public:
    /// `out` outlives the recorder and gets every line at once, so that the last one shows where a host came
    /// to grief. `depth` is how far the outermost calls are indented. All calls are made on one thread.
    explicit Recorder(std::ostream& out, int depth = 0) : out_(out), depth_(depth) {}
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    /// One call, for as long as it is under way. Without a recorder it does nothing.
    class Call {
    public:
        Call(std::shared_ptr<Recorder> recorder, Caller caller, std::string_view text);
        ~Call();
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;

        /// Writes the result down, and what the caller was given with it; hands it on. A call that ends
        /// without has none.
        HRESULT Returns(HRESULT result, std::string_view given = {});
        /// For a call whose result is something else.
        void Ends(std::string_view result) { result_ = result; }

    private:
        const std::shared_ptr<Recorder> recorder_;
        std::string result_;
    };

private:
    void Begin(Caller caller, std::string_view text);
    void End(std::string_view result);
    void Indent();

    std::ostream& out_;
    int depth_;
    /// The line of the innermost call still waits for its result.
    bool lineOpen_ = false;
};

/// What every object that a control calls has: `Hear` at the head of each of its members.
class Recorded {
public:
    explicit Recorded(std::shared_ptr<Recorder> recorder) : recorder_(std::move(recorder)) {}

protected:
    ~Recorded() = default;
    Recorder::Call Hear(std::string_view text) const { return {recorder_, Caller::Control, text}; }
    const std::shared_ptr<Recorder>& CallRecorder() const { return recorder_; }

private:
    const std::shared_ptr<Recorder> recorder_;
};

/// A container's call on its control: `body` gets the interface. E_UNEXPECTED without a control.
template <class Interface, class Body>
HRESULT Ask(const std::shared_ptr<Recorder>& recorder, IUnknown* control, std::string_view text,
            Body&& body) {
    Microsoft::WRL::ComPtr<Interface> found;
    Recorder::Call call(recorder, Caller::Container, text);
    const HRESULT result = control == nullptr ? E_UNEXPECTED : control->QueryInterface(IID_PPV_ARGS(&found));
    return call.Returns(FAILED(result) ? result : body(*found.Get()));
}

/// The values of calls as a person reads them.
std::string ResultText(HRESULT result);
std::string VerbText(LONG verb);
std::string AmbientText(DISPID id);
/// "Tab down"; for keys without a name their number.
std::string KeyText(const MSG& message);
std::string PlaceText(const RECT& place);
std::string SizeText(const SIZE& size);

}  // namespace dlv::container
