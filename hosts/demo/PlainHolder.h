// The project's own container with the control in it.
#pragma once

#include <optional>

#include "hosts/container/Container.h"
#include "hosts/demo/ControlHolder.h"

namespace dlv::demo {

class PlainHolder final : public ControlHolder {
public:
    explicit PlainHolder(std::shared_ptr<container::Recorder> recorder) : recorder_(std::move(recorder)) {}

    HRESULT Open(HWND window, const RECT& place) override;
    IUnknown* Control() const override { return container_ ? container_->Control() : nullptr; }
    void Move(const RECT& place) override;
    void Focus() override;
    bool Translate(MSG& message) override { return container_ && container_->TranslateKey(message); }
    void Close() override { container_.reset(); }

private:
    const std::shared_ptr<container::Recorder> recorder_;
    std::optional<container::Container> container_;
};

}  // namespace dlv::demo
