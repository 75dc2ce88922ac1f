#include "windows/com/Registration.h"

#include <string>
#include <string_view>

#include "ClassTable.h"
#include "windows/com/Entry.h"
#include "windows/com/Module.h"
#include "windows/com/RegistryEdit.h"

namespace dlv {

namespace {

HKEY RootOf(RegisterFor whom) { return whom == RegisterFor::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE; }

std::wstring Expanded(std::wstring_view text, std::wstring_view mark, std::wstring_view meaning) {
    std::wstring expanded(text);
    if (text.starts_with(mark)) expanded.replace(0, mark.size(), meaning);
    return expanded;
}

void KeepFirst(HRESULT& kept, HRESULT result) {
    if (SUCCEEDED(kept)) kept = result;
}

HRESULT RemoveRows(const RegistryEdit& classes, RowOf whose) noexcept {
    HRESULT result = S_OK;
    for (const RegistryRow& row : kRegistryRows)
        if (row.whose == whose)
            KeepFirst(result, GuardMethod(IID_NULL, [&] { classes.Remove(row.key, row.name); }));
    return result;
}

}  // namespace

HRESULT Register(RegisterFor whom) noexcept {
    return GuardMethod(IID_NULL, [&] {
        const std::wstring file = ModulePath();
        const std::wstring folder = file.substr(0, file.find_last_of(L'\\'));
        RegistryEdit classes(RootOf(whom));
        for (const RegistryRow& row : kRegistryRows)
            classes.Set(row.key, row.name,
                        Expanded(Expanded(row.text, L"<file>", file), L"<folder>", folder));
        classes.Keep();
    });
}

HRESULT Unregister(RegisterFor whom) noexcept {
    const RegistryEdit classes(RootOf(whom));
    HRESULT result = RemoveRows(classes, RowOf::ThisBitness);
    bool shared = false;
    KeepFirst(result, GuardMethod(IID_NULL, [&] {
                  shared = classes.OtherBitnessHas(std::wstring(L"CLSID\\") + kControlClassId +
                                                   L"\\InprocServer32");
              }));
    if (!shared) KeepFirst(result, RemoveRows(classes, RowOf::BothBitnesses));
    return result;
}

}  // namespace dlv
