#include "tests/windows/registration/Registry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace dlv::test {

namespace {

namespace fs = std::filesystem;

const char kHardware[] = "HKLM\\System\\CurrentControlSet\\";

void AllowSaving() {
    HANDLE token = nullptr;
    TOKEN_PRIVILEGES wanted{1, {{{}, SE_PRIVILEGE_ENABLED}}};
    EXPECT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, &token));
    EXPECT_TRUE(LookupPrivilegeValueW(nullptr, SE_BACKUP_NAME, &wanted.Privileges[0].Luid));
    EXPECT_TRUE(AdjustTokenPrivileges(token, FALSE, &wanted, 0, nullptr, nullptr));
    CloseHandle(token);
}

std::string Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == '\\' || text[i + 1] == '"')) ++i;
        plain += text[i];
    }
    return plain;
}

/// A line of a key: "NAME"=CONTENT, where a text is its own content.
void AddValue(const std::string& key, const std::string& line, Snapshot& snapshot) {
    std::size_t end = 1;
    if (line[0] == '"')
        for (; line[end] != '"'; ++end) end += line[end] == '\\';
    const std::string name = line[0] == '"' ? Unescaped(line.substr(1, end - 1)) : "@";
    std::string content = line.substr(line.find('=', end) + 1);
    if (content[0] == '"') content = Unescaped(content.substr(1, content.size() - 2));
    snapshot[key + " : " + name] = content;
}

/// Walking through all keys would be a request each: Wine saves a whole branch as text in one.
void AddBranch(HKEY root, const std::string& name, Snapshot& snapshot) {
    const fs::path path = fs::temp_directory_path() / "branch.reg";
    fs::remove(path);
    ASSERT_EQ(RegSaveKeyW(root, path.c_str(), nullptr), ERROR_SUCCESS);
    std::ifstream file(path);
    std::string key, line;
    while (std::getline(file, line)) {
        for (std::string more; line.ends_with('\\') && std::getline(file, more);)
            line.replace(line.size() - 1, 1, more);
        if (line.starts_with('[')) {
            key = name + '\\' + Unescaped(line.substr(1, line.rfind(']') - 1));
            if (!key.starts_with(kHardware)) snapshot[key] = "";
        } else if ((line.starts_with('"') || line.starts_with('@')) && !key.starts_with(kHardware)) {
            AddValue(key, line, snapshot);
        }
    }
    file.close();
    fs::remove(path);
}

std::string Line(const char* sign, const Snapshot::value_type& entry) {
    const bool isValue = entry.first.find(" : ") != std::string::npos;
    const std::string content = entry.second.empty() ? " =" : " = " + entry.second;
    return sign + entry.first + (isValue ? content : "");
}

}  // namespace

Snapshot TakeSnapshot() {
    AllowSaving();
    Snapshot snapshot;
    AddBranch(HKEY_LOCAL_MACHINE, "HKLM", snapshot);
    AddBranch(HKEY_CURRENT_USER, "HKCU", snapshot);
    EXPECT_GT(snapshot.size(), 1000u);
    return snapshot;
}

std::vector<std::string> Difference(const Snapshot& before, const Snapshot& after) {
    std::vector<std::string> lines;
    for (const auto& entry : before) {
        const auto found = after.find(entry.first);
        if (found == after.end() || found->second != entry.second) lines.push_back(Line("- ", entry));
    }
    for (const auto& entry : after) {
        const auto found = before.find(entry.first);
        if (found == before.end() || found->second != entry.second) lines.push_back(Line("+ ", entry));
    }
    return lines;
}

void SetText(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    EXPECT_EQ(RegSetKeyValueW(root, key.c_str(), name, REG_SZ, text.c_str(),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
              ERROR_SUCCESS);
}

std::wstring GetText(HKEY root, const std::wstring& key, const wchar_t* name) {
    wchar_t text[1024] = L"";
    DWORD size = sizeof text;
    EXPECT_EQ(RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size), ERROR_SUCCESS);
    return text;
}

void RemoveTree(HKEY root, const std::wstring& key) {
    RegDeleteTreeW(root, key.c_str());
    RegDeleteKeyW(root, key.c_str());
}

void MakeVolatileKey(HKEY root, const std::wstring& key) {
    HKEY made = nullptr;
    EXPECT_EQ(RegCreateKeyExW(root, key.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_READ, nullptr, &made,
                              nullptr),
              ERROR_SUCCESS);
    RegCloseKey(made);
}

}  // namespace dlv::test
