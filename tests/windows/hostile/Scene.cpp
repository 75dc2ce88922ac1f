#include "tests/windows/hostile/Scene.h"

#include <iterator>

#include "tests/windows/hostile/DialogKiller.h"
#include "tests/windows/hostile/HostileObject.h"

namespace dlv::hostile {

namespace {

constexpr std::size_t kControl = 0;
constexpr HRESULT kOutOfOrder = test::RunTimeErrorResult(1004);
/// A message that is read is asked for each of them.
constexpr int kTables = 6;
/// Every text of a record, put by its dispatch id.
constexpr DISPID kFirstField = 0x40030000;
constexpr DISPID kFields = 11;

void PutField(IDispatch& record, DISPID field, Random& random) {
    VARIANT text{};
    text.vt = VT_BSTR;
    text.bstrVal = AnyOf(Texts(), random).make(random);
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&text, &put, 1, 1};
    record.Invoke(field, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                  nullptr);
    VariantClear(&text);
}

}  // namespace

/// Hears of the control's events until it is disconnected.
class Scene::Sink final : public container::Unknown<IDispatch> {
public:
    explicit Sink(Scene& scene) : scene_(scene) {}

    void Connect(IUnknown& control) {
        const auto points = test::As<IConnectionPointContainer>(&control);
        if (point_ || !points || FAILED(points->FindConnectionPoint(__uuidof(__DLViewer), &point_))) return;
        if (FAILED(point_->Advise(static_cast<IDispatch*>(this), &cookie_))) point_.Reset();
    }
    void Disconnect() {
        const ComPtr<IConnectionPoint> point = std::move(point_);
        if (point) point->Unadvise(cookie_);
    }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        return arguments->cArgs == 1 ? scene_.AnswerEvent(arguments->rgvarg[0]) : DISP_E_BADPARAMCOUNT;
    }

private:
    Scene& scene_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

Scene::Scene(const std::vector<Interface>& interfaces, bool inWindow)
    : interfaces_(interfaces),
      objects_(interfaces.size()),
      inWindow_(inWindow),
      sink_(container::Make<Sink>(*this)) {
    RenewControl();
}

Scene::~Scene() {
    peaceful_ = true;
    // While the control is still there: objects that go may ask for it.
    objects_.clear();
    ReleaseControl();
}

void Scene::ReleaseControl() {
    sink_->Disconnect();
    if (container_) container_->Remove();
    viewer_.Reset();
}

void Scene::RenewControl() {
    if (depth_ > 0) return;
    ReleaseControl();
    container_.reset();
    window_.reset();
    viewer_ = test::New<_DLViewer>(L"DLViewer");
    sink_->Connect(*viewer_.Get());
    if (inWindow_) {
        window_.emplace();
        container_.emplace(window_->Handle(), window_->Handle(), test::kPlace);
        container_->Insert(viewer_.Get());
        container_->Activate();
    }
    StartUp();
}

bool Scene::IsStopped() const { return !viewer_ || viewer_->ResizeControls() == kOutOfOrder; }

HRESULT Scene::StartUp() {
    // A sink may let the control go.
    const ComPtr<_DLViewer> viewer = viewer_;
    HRESULT result = test::Initialize(viewer.Get());
    if (result == kOutOfOrder) result = S_OK;
    if (SUCCEEDED(result)) result = test::SetSessionUnits(viewer.Get(), {L"12", L"40"});
    if (SUCCEEDED(result)) result = test::AnswerProfiles(viewer.Get(), kGoodProfileList, L"GetProfileList");
    if (SUCCEEDED(result)) result = test::AnswerProfiles(viewer.Get(), kGoodProfiles, L"GetProfiles");
    return result;
}

std::string Scene::SendAndWatch(int figure) {
    const int before = DialogKiller::Killed();
    const auto message = container::Make<HostileObject>(nullptr, TypeTold::Message, Manner::Forwards, 1u,
                                                        NewMessage(figure).Get());
    if (test::Receive(viewer_.Get(), message.Get()) != S_OK) return "a good message fails";
    if (message->Calls() < kTables) return "a good message is passed over";
    if (DialogKiller::Killed() != before) return "a good message is answered with a dialog";
    return {};
}

std::string Scene::WhatFails() {
    peaceful_ = true;
    test::PumpMessages();
    if (IsStopped()) return {};
    if (const HRESULT result = StartUp(); FAILED(result))
        return "the start-up fails with " + std::to_string(static_cast<unsigned long>(result));
    // What an odd profile holds may be told once, when it is first applied.
    SendAndWatch(1);
    for (const int figure : {2, 3})
        if (std::string wrong = SendAndWatch(figure); !wrong.empty()) return wrong;
    if (!container_) return {};
    if (container_->HostFrame().IsModal()) return "the container is left modal";
    if (window_->Handle() != nullptr && !IsWindowEnabled(window_->Handle()))
        return "the host's window is left disabled";
    return {};
}

ComPtr<IDispatch> Scene::NewMessage(int figure) const {
    const auto message = test::New<_QZWebMessage>(L"QZWebMessage");
    message->LoadText(_bstr_t(GoodMessage(figure).c_str()));
    return message;
}

ComPtr<IDispatch> Scene::ObjectOf(std::size_t index, Random& random) {
    if (index == kControl) return Control();
    auto& known = objects_[index];
    const Interface& wanted = interfaces_[index];
    if (!known.empty() && !random.OneIn(8)) return AnyOf(known, random);
    ComPtr<IDispatch> made;
    if (wanted.name == "_QZWebRow") {
        ComPtr<_QZWebRow> row;
        test::New<_QZWebTable>(L"QZWebTable")->AddRow(&row);
        made = row;
    } else if (wanted.name == "_QZWebSection") {
        ComPtr<_QZWebSection> section;
        test::New<_QZWebProfile>(L"QZWebProfile")->AddSection(_bstr_t(L"s"), _bstr_t(L"a,b"), &section);
        made = section;
    } else {
        // The class is called like its interface.
        made = test::New<IDispatch>(std::wstring(wanted.name.begin() + 1, wanted.name.end()).c_str());
    }
    if (made) Keep(made.Get(), random);
    return made;
}

void Scene::Keep(IDispatch* object, Random& random) {
    for (std::size_t i = 1; i < interfaces_.size(); ++i) {
        ComPtr<IUnknown> found;
        if (FAILED(
                object->QueryInterface(interfaces_[i].iid, reinterpret_cast<void**>(found.GetAddressOf()))))
            continue;
        auto& known = objects_[i];
        // Whatever goes is let go last.
        ComPtr<IDispatch> kept(object);
        if (known.size() < kMostObjects)
            known.push_back(kept);
        else
            kept.Swap(known[random.Below(kMostObjects)]);
        return;
    }
}

void Scene::MakeMischief(Random& random) {
    if (peaceful_ || depth_ >= kDeepest) return;
    ++depth_;
    const ComPtr<_DLViewer> viewer = viewer_;
    container::Container* const container = container_ ? &*container_ : nullptr;
    const std::uint32_t what = random.Below(16);
    if (what >= 9) {
        if (reentry_) reentry_(random);
    } else if (what == 0) {
        ReleaseControl();
    } else if (what == 1) {
        sink_->Disconnect();
    } else if (what == 2) {
        test::PumpMessages();
    } else if (what <= 5 && viewer) {
        if (what == 3) viewer->StopControl();
        if (what == 4) test::AnswerProfiles(viewer.Get(), kGoodProfiles, L"GetProfiles");
        if (what == 5) test::Receive(viewer.Get(), NewMessage(5).Get());
        sink_->Connect(*viewer.Get());
    } else if (container != nullptr) {
        if (what == 6) container->Deactivate();
        if (what == 7) container->Activate();
        if (what == 8) container->SetPlace({0, 0, static_cast<LONG>(random.Below(700)), 300});
        if (what == 8 && random.OneIn(8)) window_->Destroy();
    }
    --depth_;
}

void Scene::SpoilRecord(VARIANT& record) {
    if (record.vt == (VT_BYREF | VT_BSTR)) {
        SysFreeString(*record.pbstrVal);
        *record.pbstrVal = AnyOf(Texts(), events_).make(events_);
        return;
    }
    if (record.vt != (VT_BYREF | VT_DISPATCH) || *record.ppdispVal == nullptr) return;
    if (!events_.OneIn(3)) {
        for (DISPID field = 0; field < kFields; ++field)
            PutField(**record.ppdispVal, kFirstField + field, events_);
        return;
    }
    Making making{longLived_, *this, events_};
    ComPtr<IDispatch> other = AnyOf(Objects(), events_).make(making);
    const ComPtr<IDispatch> before = *record.ppdispVal;
    (*record.ppdispVal)->Release();
    *record.ppdispVal = other.Detach();
}

HRESULT Scene::AnswerEvent(VARIANT& record) {
    if (peaceful_) return S_OK;
    constexpr HRESULT kAnswers[] = {E_FAIL, DISP_E_EXCEPTION, E_OUTOFMEMORY, RPC_E_DISCONNECTED, S_FALSE};
    switch (events_.Below(6)) {
        case 0: return S_OK;
        case 1: return kAnswers[events_.Below(std::size(kAnswers))];
        case 2: SpoilRecord(record); return S_OK;
        default: MakeMischief(events_); return S_OK;
    }
}

}  // namespace dlv::hostile
