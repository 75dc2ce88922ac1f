// A control library used without registration: the manifest beside it says which classes it has.
#pragma once

#include <windows.h>

#include <wrl/client.h>

#include <string>

namespace dlv::container {

class Library {
public:
    /// `manifest` is the path of the assembly's manifest; the library's file lies beside it. Throws
    /// std::system_error when Windows cannot use it.
    explicit Library(const std::wstring& manifest);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// Makes an object by its program id ("DashlonViewer.DLViewer"). Throws std::system_error.
    Microsoft::WRL::ComPtr<IUnknown> Create(const wchar_t* progId) const;
    /// The class of a program id.
    CLSID ClassOf(const wchar_t* progId) const;

    /// While one lives, the library's classes are found by every call of this thread.
    class Scope {
    public:
        explicit Scope(const Library& library);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ULONG_PTR cookie_ = 0;
    };

private:
    HANDLE context_;
};

/// The manifest of that name beside the running program.
std::wstring BesideProgram(const wchar_t* fileName);

}  // namespace dlv::container
