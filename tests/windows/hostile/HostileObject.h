// An object of the host's that is up to no good: it lies about its type and answers calls with failures, odd
// values, or acts against the control that calls it.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "tests/windows/hostile/Scene.h"

namespace dlv::hostile {

/// What an object says about its type.
enum class TypeTold { Message, MessageByInterface, Params, Nothing, NullInfo, LongName, OddName };
inline constexpr const char* kTypesTold[] = {
    "message", "message by interface", "params", "no type", "null information", "long name", "odd name"};

/// How it answers.
enum class Manner {
    Fails,
    Throws,
    ThrowsDeferred,
    ThrowsNothing,
    KnowsNoName,
    GivesNothing,
    GivesOddValues,
    Forwards,
    ForwardsThenFails,
    IsArray,
    MakesMischief
};
inline constexpr const char* kManners[] = {
    "fails",         "throws",           "throws deferred", "throws nothing",       "knows no name",
    "gives nothing", "gives odd values", "forwards",        "forwards, then fails", "is an array",
    "makes mischief"};

class HostileObject final : public container::Unknown<IDispatch, IProvideClassInfo> {
public:
    /// `real` is what a forwarding object stands before. Without a scene it always forwards well.
    HostileObject(Scene* scene, TypeTold type, Manner manner, std::uint32_t seed, IDispatch* real = nullptr)
        : scene_(scene), type_(type), manner_(manner), random_(seed), real_(real) {}

    /// How often it, or a part of it, was called.
    int Calls() const { return *calls_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;
    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;

private:
    bool IsQuiet() const { return scene_ != nullptr && scene_->IsPeaceful(); }
    HRESULT Forward(DISPID id, WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception);
    HRESULT Throw(EXCEPINFO* exception);
    void GiveOddValue(VARIANT& result);
    HRESULT GiveElement(DISPID id, VARIANT& result);

    Scene* const scene_;
    const TypeTold type_;
    const Manner manner_;
    Random random_;
    const ComPtr<IDispatch> real_;
    std::shared_ptr<int> calls_ = std::make_shared<int>(0);
};

}  // namespace dlv::hostile
