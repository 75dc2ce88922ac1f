// The native tool bar; the pictures on its buttons are drawn by us in the size that the resolution asks for.
#pragma once

#include "windows/com/PlainWindows.h"

#include <commctrl.h>

#include "windows/access/AccessibleToolbar.h"
#include "windows/hwnd/Mirror.h"

namespace dlv {

class ToolbarMirror : public Mirror, private ToolbarScreen {
public:
    ToolbarMirror(FormWindows& form, Toolbar& bar) : Mirror(form, bar), bar_(bar) {}
    void Make(HWND parent) override;
    void Apply() override;
    void LookChanged() override;
    bool TakesFocus() const override { return true; }
    std::string ToolTip() const override { return {}; }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnCommand(int code, int id) override;
    LRESULT OnNotify(NMHDR& header) override;
    ComPtr<AccessibleObject> Accessible() override {
        return MakeObject<AccessibleToolbar>(Anchor(), static_cast<const ToolbarScreen&>(*this));
    }

private:
    std::vector<Tool> Tools() const override;
    int FocusedTool() const override;
    void AddButtons();
    LRESULT DrawButton(const NMTBCUSTOMDRAW& draw);
    /// By mouse, or in a way that needs none.
    enum class By { Mouse, Other };
    void Choose(int id, By by);
    bool OnKey(UINT message, WPARAM key);
    /// The button with the keyboard, as an index; -1 for none.
    int Marked() const;
    void Mark(int index);
    int Neighbour(int index, int step) const;
    bool IsButton(int index) const;
    const Toolbar::Item* ItemOf(int id) const;

    Toolbar& bar_;
    std::vector<bool> shown_;
    int marked_ = -1;
};

}  // namespace dlv
