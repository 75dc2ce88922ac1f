// Values below Software\Classes, of the machine or of one user. What is set is set as a whole: unless it is
// kept at the end, everything is put back as it was. What is removed goes value by value, with the keys that
// it leaves empty, so that whatever others have put there stays.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>
#include <string>
#include <vector>

namespace dlv {

class RegistryEdit {
public:
    /// HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER.
    explicit RegistryEdit(HKEY root) : root_(root) {}
    ~RegistryEdit();
    RegistryEdit(const RegistryEdit&) = delete;
    RegistryEdit& operator=(const RegistryEdit&) = delete;

    /// A null name is the key's own value. Throws ComError.
    void Set(const std::wstring& key, const wchar_t* name, const std::wstring& text);
    void Keep() noexcept { steps_.clear(); }

    /// Nothing when there is no such value. Throws ComError.
    void Remove(const std::wstring& key, const wchar_t* name) const;
    /// Whether there is such a key for programs of the other bitness, 32 for 64 and 64 for 32.
    bool OtherBitnessHas(const std::wstring& key) const;

private:
    struct Value {
        DWORD type;
        std::vector<BYTE> data;
    };
    /// A key that was made, or a value that was set over what was there before.
    struct Step {
        std::wstring key;
        bool isKey = false;
        /// Empty for the key's own value.
        std::wstring name;
        std::optional<Value> before;
    };

    void MakeKey(const std::wstring& key);
    std::optional<Value> Read(const std::wstring& key, const wchar_t* name) const;
    void Undo(const Step& step) const noexcept;
    bool RemoveIfEmpty(const std::wstring& key) const;

    const HKEY root_;
    std::vector<Step> steps_;
};

}  // namespace dlv
