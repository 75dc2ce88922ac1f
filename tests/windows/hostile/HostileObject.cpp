#include "tests/windows/hostile/HostileObject.h"

#include "tests/windows/LateCall.h"

namespace dlv::hostile {

namespace {

constexpr DISPID kLength = 1'000'000;
constexpr HRESULT kFailures[] = {E_FAIL,
                                 E_NOTIMPL,
                                 E_OUTOFMEMORY,
                                 DISP_E_MEMBERNOTFOUND,
                                 DISP_E_OVERFLOW,
                                 DISP_E_TYPEMISMATCH,
                                 RPC_E_DISCONNECTED,
                                 HRESULT(0x800A000D),
                                 HRESULT(0x800AFFFF)};

HRESULT WINAPI FillInLater(EXCEPINFO* exception) {
    exception->scode = E_ACCESSDENIED;
    exception->bstrDescription = SysAllocStringLen(L"later\0on", 8);
    return S_OK;
}

}  // namespace

STDMETHODIMP HostileObject::QueryInterface(REFIID iid, void** object) {
    // The library asks its own objects for an interface that nobody else knows; who says yes to all is lost.
    if (manner_ == Manner::MakesMischief && IsEqualGUID(iid, IID_IProvideClassInfo))
        scene_->MakeMischief(random_);
    return Unknown::QueryInterface(iid, object);
}

STDMETHODIMP HostileObject::GetTypeInfoCount(UINT* count) {
    *count = type_ == TypeTold::Nothing ? 0 : 1;
    return S_OK;
}

STDMETHODIMP HostileObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    *info = nullptr;
    if (type_ == TypeTold::MessageByInterface) return test::DescribeClass(L"_QZWebMessage", info);
    return type_ == TypeTold::NullInfo ? S_OK : E_FAIL;
}

STDMETHODIMP HostileObject::GetClassInfo(ITypeInfo** info) {
    *info = nullptr;
    switch (type_) {
        case TypeTold::Message: return test::DescribeClass(L"QZWebMessage", info);
        case TypeTold::Params: return test::DescribeClass(L"DLVParams", info);
        case TypeTold::NullInfo: return S_OK;
        case TypeTold::LongName: return test::DescribeClass(std::wstring(5'000, L'Q'), info);
        case TypeTold::OddName: return test::DescribeClass(L"_\xD83D", info);
        default: return E_FAIL;
    }
}

STDMETHODIMP HostileObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) {
    ids[0] = DISPID_UNKNOWN;
    if (IsQuiet() || manner_ == Manner::KnowsNoName) return DISP_E_UNKNOWNNAME;
    if (real_) return real_->GetIDsOfNames(reserved, names, count, locale, ids);
    if (manner_ == Manner::IsArray) {
        const bool isLength = wcscmp(names[0], L"length") == 0;
        ids[0] = isLength ? kLength : static_cast<DISPID>(wcstol(names[0], nullptr, 10));
        return S_OK;
    }
    ids[0] = static_cast<DISPID>(random_.Below(100));
    return S_OK;
}

STDMETHODIMP HostileObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) {
    if (IsQuiet()) return DISP_E_MEMBERNOTFOUND;
    ++*calls_;
    VARIANT ignored{};
    VARIANT& value = result == nullptr ? ignored : *result;
    HRESULT answer = S_OK;
    switch (manner_) {
        case Manner::Fails: answer = kFailures[random_.Below(std::size(kFailures))]; break;
        case Manner::Throws:
        case Manner::ThrowsDeferred:
        case Manner::ThrowsNothing: answer = Throw(exception); break;
        case Manner::KnowsNoName:
        case Manner::GivesNothing: break;
        case Manner::GivesOddValues: GiveOddValue(value); break;
        case Manner::ForwardsThenFails:
            if (random_.OneIn(6)) {
                answer = Throw(exception);
                break;
            }
            [[fallthrough]];
        case Manner::Forwards: answer = Forward(id, flags, arguments, &value, exception); break;
        case Manner::IsArray: answer = GiveElement(id, value); break;
        case Manner::MakesMischief:
            answer = real_ ? Forward(id, flags, arguments, &value, exception) : S_OK;
            if (random_.OneIn(4)) scene_->MakeMischief(random_);
            break;
    }
    VariantClear(&ignored);
    return answer;
}

/// What comes back is as hostile as the object that it comes from.
HRESULT HostileObject::Forward(DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                               EXCEPINFO* exception) {
    if (!real_) return E_FAIL;
    const HRESULT answer =
        real_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, arguments, result, exception, nullptr);
    if (FAILED(answer) || result->vt != VT_DISPATCH || result->pdispVal == nullptr) return answer;
    const ComPtr<IDispatch> part = result->pdispVal;
    VariantClear(result);
    const auto made =
        container::Make<HostileObject>(scene_, TypeTold::Nothing, manner_, random_.Bits(), part.Get());
    made->calls_ = calls_;
    result->vt = VT_DISPATCH;
    result->pdispVal = ComPtr<IDispatch>(made).Detach();
    return answer;
}

HRESULT HostileObject::Throw(EXCEPINFO* exception) {
    if (exception == nullptr) return DISP_E_EXCEPTION;
    *exception = {};
    if (manner_ == Manner::ThrowsNothing) return DISP_E_EXCEPTION;
    if (manner_ == Manner::ThrowsDeferred) {
        exception->pfnDeferredFillIn = FillInLater;
        return DISP_E_EXCEPTION;
    }
    constexpr WORD kCodes[] = {0, 1, 13, 1001, 0x7FFF, 0xFFFF};
    exception->wCode = kCodes[random_.Below(std::size(kCodes))];
    if (exception->wCode == 0) exception->scode = kFailures[random_.Below(std::size(kFailures))];
    exception->bstrDescription = AnyOf(Texts(), random_).make(random_);
    exception->bstrSource = SysAllocString(L"a host");
    return DISP_E_EXCEPTION;
}

void HostileObject::GiveOddValue(VARIANT& result) {
    Making making{scene_->LongLived(), *scene_, random_};
    AnyOf(Values(), random_).make(result, making);
    // What points elsewhere points into the scene's memory; everything else is the caller's from now on.
    if (result.vt == (VT_BYREF | VT_VARIANT) && result.pvarVal == &result) result.pvarVal = nullptr;
    const bool locked = (result.vt & (VT_ARRAY | VT_BYREF)) == VT_ARRAY && result.parray != nullptr &&
                        result.parray->cLocks > 0;
    if (!locked) return;
    result.pparray = scene_->LongLived().Array(result.parray);
    result.vt |= VT_BYREF;
}

HRESULT HostileObject::GiveElement(DISPID id, VARIANT& result) {
    constexpr LONG kLengths[] = {0, 1, 3, -1, 10'000'001, 9'999'999, LONG_MAX, LONG_MIN};
    if (id == kLength) {
        if (random_.OneIn(4)) {
            GiveOddValue(result);
        } else {
            result.vt = VT_I4;
            result.lVal = kLengths[random_.Below(std::size(kLengths))];
        }
        return S_OK;
    }
    // A long array that gave every element would only show that long arrays take long.
    if (id > 3) return DISP_E_MEMBERNOTFOUND;
    GiveOddValue(result);
    return S_OK;
}

namespace {

ComPtr<IDispatch> Good(Making& making) {
    return making.scene.NewMessage(static_cast<int>(making.random.Below(1000)));
}

}  // namespace

const std::vector<Object>& Objects() {
    static const std::vector<Object> all = [] {
        constexpr std::size_t kInterfaces = 10;
        std::vector<Object> made{
            {"no object", [](Making&) { return ComPtr<IDispatch>(); }},
            {"good message", Good},
            {"the control itself", [](Making& making) { return making.scene.Control(); }},
        };
        for (std::size_t i = 0; i < kInterfaces; ++i)
            made.push_back({"own object " + std::to_string(i), [i](Making& making) {
                                const std::size_t count = making.scene.Interfaces().size();
                                return making.scene.ObjectOf(i % count, making.random);
                            }});
        for (std::size_t type = 0; type < std::size(kTypesTold); ++type)
            for (std::size_t manner = 0; manner < std::size(kManners); ++manner) {
                const auto told = static_cast<TypeTold>(type);
                // Only what may pass for a message is asked for more than its name.
                const bool asked = told <= TypeTold::MessageByInterface || told == TypeTold::Nothing;
                if (!asked && manner % 3 != type % 3) continue;
                made.push_back({std::string("object: ") + kTypesTold[type] + ", " + kManners[manner],
                                [=, how = static_cast<Manner>(manner)](Making& making) {
                                    const bool forwards = how >= Manner::Forwards && how != Manner::IsArray;
                                    return ComPtr<IDispatch>(container::Make<HostileObject>(
                                        &making.scene, told, how, making.random.Bits(),
                                        forwards ? Good(making).Get() : nullptr));
                                }});
            }
        return made;
    }();
    return all;
}

}  // namespace dlv::hostile
