// The window in which the host lists the records behind a figure: how many there are and of what moment, then
// the records. There is one at most; it stands in front of its owner and does not keep anyone from working
// there.
#pragma once

#include <windows.h>

#include "hosts/demo/HeaderBar.h"
#include "hosts/demo/HostLook.h"
#include "hosts/demo/RecordList.h"

namespace dlv::demo {

class DetailsWindow {
public:
    DetailsWindow() = default;
    ~DetailsWindow();
    DetailsWindow(const DetailsWindow&) = delete;
    DetailsWindow& operator=(const DetailsWindow&) = delete;

    /// Opens the window, or brings it to the front with other records. It goes when its owner goes.
    void Show(HWND owner, RecordTable table);

    /// Whether a message for `window` is one for this window or what is inside.
    bool Owns(HWND window) const;
    /// Keys that mean something here. True when the message was used up.
    bool Translate(MSG& message);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCommand(int command);
    bool Create(HWND owner);
    void MakeLook();
    void PlaceOver(HWND owner);
    void LayOut();
    int Scaled(int pixels) const;

    HWND window_ = nullptr;
    HACCEL keys_ = nullptr;
    HostFonts fonts_;
    HeaderBar header_;
    RecordList list_;
};

}  // namespace dlv::demo
