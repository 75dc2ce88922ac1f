// The system's own container class, which puts a control into a plain window.
#pragma once

#include <wrl/client.h>

#include "hosts/demo/ControlHolder.h"

namespace dlv::demo {

class AtlHolder final : public ControlHolder {
public:
    ~AtlHolder() override { Close(); }

    HRESULT Open(HWND window, const RECT& place) override;
    IUnknown* Control() const override { return control_.Get(); }
    void Move(const RECT& place) override;
    void Focus() override { SetFocus(container_); }
    bool Translate(MSG& /*message*/) override { return false; }
    void Close() override;

private:
    HWND container_ = nullptr;
    Microsoft::WRL::ComPtr<IUnknown> control_;
};

}  // namespace dlv::demo
