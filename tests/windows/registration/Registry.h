// The whole registry as a table of texts, what is different between two of them, and changes to it for a
// test.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace dlv::test {

/// "ROOT\KEY" to nothing for each key without subkeys or with values, "ROOT\KEY : NAME" to the content for
/// each value, where "@" is the name of the key's own.
using Snapshot = std::map<std::string, std::string>;

/// Of the machine and of this user, but for what Windows itself notes of the hardware whenever a display
/// comes up.
Snapshot TakeSnapshot();
/// "+ ENTRY" for what came, "- ENTRY" for what went.
std::vector<std::string> Difference(const Snapshot& before, const Snapshot& after);

void SetText(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text);
std::wstring GetText(HKEY root, const std::wstring& key, const wchar_t* name = nullptr);
void RemoveTree(HKEY root, const std::wstring& key);
/// A key that is gone with the session. Windows makes no lasting key below it.
void MakeVolatileKey(HKEY root, const std::wstring& key);

}  // namespace dlv::test
