#include "windows/com/RegistryEdit.h"

#include <iterator>
#include <string_view>

#include "windows/com/ComError.h"

namespace dlv {

namespace {

constexpr std::wstring_view kClasses = L"Software\\Classes";
constexpr REGSAM kOtherBitness = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

std::wstring BelowClasses(const std::wstring& key) {
    std::wstring path(kClasses);
    path += L'\\';
    path += key;
    return path;
}

void CheckStatus(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw ComError(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

class OpenKey {
public:
    OpenKey() = default;
    ~OpenKey() {
        if (key_ != nullptr) RegCloseKey(key_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    HKEY Get() const { return key_; }
    HKEY* Address() { return &key_; }

private:
    HKEY key_ = nullptr;
};

}  // namespace

RegistryEdit::~RegistryEdit() {
    for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) Undo(*step);
}

void RegistryEdit::Undo(const Step& step) const noexcept {
    const wchar_t* name = step.name.c_str();
    if (step.isKey) {
        RegDeleteKeyW(root_, step.key.c_str());
    } else if (step.before) {
        RegSetKeyValueW(root_, step.key.c_str(), name, step.before->type, step.before->data.data(),
                        static_cast<DWORD>(step.before->data.size()));
    } else {
        RegDeleteKeyValueW(root_, step.key.c_str(), name);
    }
}

void RegistryEdit::Set(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    const std::wstring path = BelowClasses(key);
    MakeKey(path);
    std::optional<Value> before = Read(path, name);
    Step& step = steps_.emplace_back();
    step.key = path;
    if (name != nullptr) step.name = name;
    step.before = std::move(before);
    CheckStatus(RegSetKeyValueW(root_, path.c_str(), name, REG_SZ, text.c_str(),
                                static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
}

void RegistryEdit::MakeKey(const std::wstring& key) {
    // Level by level, to know which of them are new.
    for (std::size_t end = 0; end != std::wstring::npos;) {
        end = key.find(L'\\', end + 1);
        const std::wstring level = key.substr(0, end);
        OpenKey opened;
        DWORD made = 0;
        CheckStatus(
            RegCreateKeyExW(root_, level.c_str(), 0, nullptr, 0, KEY_READ, nullptr, opened.Address(), &made));
        if (made != REG_CREATED_NEW_KEY) continue;
        Step& step = steps_.emplace_back();
        step.key = level;
        step.isKey = true;
    }
}

std::optional<RegistryEdit::Value> RegistryEdit::Read(const std::wstring& key, const wchar_t* name) const {
    OpenKey opened;
    CheckStatus(RegOpenKeyExW(root_, key.c_str(), 0, KEY_QUERY_VALUE, opened.Address()));
    Value value{REG_NONE, {}};
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(opened.Get(), name, nullptr, &value.type, nullptr, &size);
    if (status == ERROR_FILE_NOT_FOUND) return std::nullopt;
    CheckStatus(status);
    value.data.resize(size);
    CheckStatus(RegQueryValueExW(opened.Get(), name, nullptr, &value.type, value.data.data(), &size));
    return value;
}

void RegistryEdit::Remove(const std::wstring& key, const wchar_t* name) const {
    const std::wstring path = BelowClasses(key);
    const LSTATUS status = RegDeleteKeyValueW(root_, path.c_str(), name);
    if (status != ERROR_FILE_NOT_FOUND) CheckStatus(status);
    for (std::wstring level = path; level.size() > kClasses.size() && RemoveIfEmpty(level);)
        level.resize(level.find_last_of(L'\\'));
}

/// Whether the key is gone now.
bool RegistryEdit::RemoveIfEmpty(const std::wstring& key) const {
    DWORD keys = 0, values = 0;
    {
        OpenKey opened;
        const LSTATUS status = RegOpenKeyExW(root_, key.c_str(), 0, KEY_READ, opened.Address());
        if (status == ERROR_FILE_NOT_FOUND) return true;
        CheckStatus(status);
        CheckStatus(RegQueryInfoKeyW(opened.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                     &values, nullptr, nullptr, nullptr, nullptr));
    }
    if (keys + values > 0) return false;
    CheckStatus(RegDeleteKeyW(root_, key.c_str()));
    return true;
}

bool RegistryEdit::OtherBitnessHas(const std::wstring& key) const {
    OpenKey opened;
    return RegOpenKeyExW(root_, BelowClasses(key).c_str(), 0, KEY_READ | kOtherBitness, opened.Address()) ==
           ERROR_SUCCESS;
}

}  // namespace dlv
