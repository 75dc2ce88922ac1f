#include "hosts/demo/PlainHolder.h"

#include "DashlonViewer.h"

namespace dlv::demo {

HRESULT PlainHolder::Open(HWND window, const RECT& place) {
    Microsoft::WRL::ComPtr<IUnknown> control;
    HRESULT result =
        CoCreateInstance(__uuidof(DLViewer), nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control));
    if (FAILED(result)) return result;
    container_.emplace(window, window, place, container::Ambients{}, recorder_);
    result = container_->Insert(control.Get());
    return FAILED(result) ? result : container_->Activate();
}

void PlainHolder::Move(const RECT& place) {
    if (container_) container_->SetPlace(place);
}

void PlainHolder::Focus() {
    if (container_) container_->ActivateUI();
}

}  // namespace dlv::demo
