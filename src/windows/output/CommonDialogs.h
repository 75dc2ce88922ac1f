// The system's library of common dialogs, loaded while one is shown: a host whose user never saves or prints
// does not load it.
#pragma once

#include "windows/com/PlainWindows.h"

#include <commdlg.h>

namespace dlv {

class CommonDialogs {
public:
    CommonDialogs() : library_(LoadLibraryExW(L"comdlg32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {}
    ~CommonDialogs() {
        if (library_ != nullptr) FreeLibrary(library_);
    }
    CommonDialogs(const CommonDialogs&) = delete;
    CommonDialogs& operator=(const CommonDialogs&) = delete;

    /// False when the person cancels, or there is no dialog: then Failed tells which.
    bool AskForFile(OPENFILENAMEW& question) const {
        return Call<BOOL>("GetSaveFileNameW", &question) != FALSE;
    }
    bool AskForPrinter(PRINTDLGW& question) const { return Call<BOOL>("PrintDlgW", &question) != FALSE; }
    bool Failed() const { return library_ == nullptr || Call<DWORD>("CommDlgExtendedError") != 0; }

private:
    /// 0 when there is no such function.
    template <class Result, class... Arguments>
    Result Call(const char* name, Arguments... arguments) const {
        if (library_ == nullptr) return {};
        const auto function = reinterpret_cast<Result(WINAPI*)(Arguments...)>(
            reinterpret_cast<void*>(GetProcAddress(library_, name)));
        return function == nullptr ? Result{} : function(arguments...);
    }

    HMODULE library_;
};

}  // namespace dlv
