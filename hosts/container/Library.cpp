#include "hosts/container/Library.h"

#include <objbase.h>

#include <system_error>

namespace dlv::container {

namespace {

[[noreturn]] void Raise(long code, const char* what) {
    throw std::system_error(static_cast<int>(code), std::system_category(), what);
}

void Check(HRESULT result, const char* what) {
    if (FAILED(result)) Raise(result, what);
}

}  // namespace

Library::Library(const std::wstring& manifest) {
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.lpSource = manifest.c_str();
    context_ = CreateActCtxW(&wanted);
    if (context_ == INVALID_HANDLE_VALUE)
        Raise(static_cast<long>(GetLastError()), "The control's manifest cannot be used");
}

Library::~Library() { ReleaseActCtx(context_); }

CLSID Library::ClassOf(const wchar_t* progId) const {
    const Scope scope(*this);
    CLSID id{};
    Check(CLSIDFromProgID(progId, &id), "The control's class is not known");
    return id;
}

Microsoft::WRL::ComPtr<IUnknown> Library::Create(const wchar_t* progId) const {
    const CLSID id = ClassOf(progId);
    const Scope scope(*this);
    Microsoft::WRL::ComPtr<IUnknown> made;
    Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made)),
          "The control cannot be made");
    return made;
}

Library::Scope::Scope(const Library& library) {
    if (ActivateActCtx(library.context_, &cookie_) == FALSE)
        Raise(static_cast<long>(GetLastError()), "The control's manifest cannot be used");
}

Library::Scope::~Scope() { DeactivateActCtx(0, cookie_); }

std::wstring BesideProgram(const wchar_t* fileName) {
    std::wstring path(MAX_PATH, L'\0');
    while (GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())) >= path.size())
        path.resize(path.size() * 2);
    path.resize(path.find_last_of(L'\\') + 1);
    return path + fileName;
}

}  // namespace dlv::container
