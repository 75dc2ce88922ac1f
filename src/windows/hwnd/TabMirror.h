// The native tab strip.
#pragma once

#include "windows/hwnd/Mirror.h"

namespace dlv {

class TabMirror : public Mirror {
public:
    TabMirror(FormWindows& form, TabStrip& tabs) : Mirror(form, tabs), tabs_(tabs) {}
    void Make(HWND parent) override;
    void Apply() override;
    void LookChanged() override;
    bool TakesFocus() const override { return true; }
    std::string ToolTip() const override { return {}; }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnNotify(NMHDR& header) override;

private:
    TabStrip& tabs_;
    std::vector<TabStrip::Tab> shown_;
    std::wstring toolTip_;
};

}  // namespace dlv
