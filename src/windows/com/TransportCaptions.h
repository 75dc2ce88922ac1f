// The host's transport object as a source of captions: asked late bound for `Caption(Key)` and `LanguageID`,
// neither of which it needs to have.
#pragma once

#include "windows/com/PlainWindows.h"

#include "ui/CaptionSource.h"
#include "windows/com/LateBound.h"
#include "windows/hwnd/CommonControls.h"

namespace dlv {

class TransportCaptions final : public CaptionSource {
public:
    explicit TransportCaptions(IDispatch* transport) : transport_(transport) {}

    /// Lets the host's object go: from then on it knows nothing.
    void LetGo() { transport_ = LateBound(nullptr); }

    /// A host whose function is declared to return text has no other way than an empty one to say that it
    /// does not know a key.
    std::optional<std::string> Caption(std::string_view key) override {
        const HostScope inHost;
        auto text = transport_.TextIfAny(L"Caption", Variant(key));
        return text && text->empty() ? std::nullopt : text;
    }
    std::optional<std::string> LanguageID() override {
        const HostScope inHost;
        return transport_.TextIfAny(L"LanguageID");
    }

private:
    LateBound transport_;
};

}  // namespace dlv
