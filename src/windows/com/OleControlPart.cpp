#include "windows/com/OleControlPart.h"

#include <olectl.h>

#include <vector>

#include "widgets/AccessKeys.h"
#include "windows/com/ComError.h"
#include "windows/hwnd/FormWindows.h"

namespace dlv {

namespace {

/// The letter of a key message: containers pass on what they matched, a key or the character that it made.
char LetterOf(const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: return AccessLetterOfKey(message.wParam);
        case WM_CHAR:
        case WM_SYSCHAR: return AccessLetter(message.wParam);
        default: return 0;
    }
}

/// As containers look for it: some by the key, some by its character in either case.
void AddEntries(std::vector<ACCEL>& table, char letter) {
    const auto key = static_cast<WORD>(letter);
    const auto command = static_cast<WORD>(table.size() + 1);
    table.push_back({FVIRTKEY | FALT, key, command});
    table.push_back({FALT, key, command});
    if (letter >= 'A') table.push_back({FALT, static_cast<WORD>(letter - 'A' + 'a'), command});
}

}  // namespace

std::string OleControlPart::UsableKeys() const {
    std::string keys;
    const DLViewer& viewer = host_.Viewer();
    if (!viewer.Initialized() || host_.Ending() || !ambience_.IsLive()) return keys;
    for (const AccessTarget& target : AccessTargets(host_.Viewer().Controls())) keys += target.letter;
    return keys;
}

void OleControlPart::MakeTable(const std::string& keys) {
    if (keys == tableKeys_) return;
    std::vector<ACCEL> entries;
    for (const char letter : keys) AddEntries(entries, letter);
    AcceleratorTable made;
    if (!entries.empty()) {
        made.reset(CreateAcceleratorTableW(entries.data(), static_cast<int>(entries.size())));
        if (!made) RaiseLastError();
    }
    table_ = std::move(made);
    tableSize_ = static_cast<WORD>(entries.size());
    tableKeys_ = keys;
}

STDMETHODIMP OleControlPart::GetControlInfo(CONTROLINFO* info) {
    if (info == nullptr) return E_POINTER;
    return host_.Method(IID_IOleControl, [&] {
        told_ = UsableKeys();
        MakeTable(told_);
        // Enter drills down and presses, so the container is to leave it to the control; Esc is the
        // container's.
        *info = {sizeof *info, table_.get(), tableSize_, CTRLINFO_EATS_RETURN};
    });
}

STDMETHODIMP OleControlPart::OnMnemonic(LPMSG message) {
    if (message == nullptr) return E_POINTER;
    return host_.Method(IID_IOleControl, [&] {
        const char letter = LetterOf(*message);
        if (letter == 0 || UsableKeys().find(letter) == std::string::npos) return S_FALSE;
        const HRESULT active = activation_.ActivateUI();
        if (FAILED(active)) return active;
        ControlWindow* window = activation_.Window();
        return window != nullptr && window->PressAccessKey(letter) ? S_OK : S_FALSE;
    });
}

STDMETHODIMP OleControlPart::OnAmbientPropertyChange(DISPID id) {
    return host_.Method(IID_IOleControl, [&] {
        ambience_.Read(id);
        activation_.AmbienceChanged();
        // Texts may need more room now, or less.
        host_.Viewer().UserControl_Resize();
        if (activation_.Window() == nullptr) view_.TellChange();
    });
}

STDMETHODIMP OleControlPart::FreezeEvents(BOOL freeze) {
    return host_.Method(IID_IOleControl, [&] {
        if (freeze != FALSE) {
            events_.Freeze();
        } else {
            events_.Thaw();
        }
    });
}

void OleControlPart::TellKeyChanges() {
    std::string keys = UsableKeys();
    if (keys == told_) return;
    told_ = std::move(keys);
    const ComPtr<IOleControlSite> site = site_.As<IOleControlSite>();
    if (site) site->OnControlInfoChanged();
}

}  // namespace dlv
