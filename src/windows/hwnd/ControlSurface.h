// The outer window itself: it hands the form's events to the control's handlers and follows its container's
// resolution and the system's settings.
#pragma once

#include "views/SpokenNames.h"
#include "windows/hwnd/ControlWindow.h"
#include "windows/hwnd/FormListener.h"
#include "windows/hwnd/FormWindows.h"
#include "windows/hwnd/Window.h"

namespace dlv {

class ControlSurface : public Window, private FormListener {
public:
    ControlSurface(WindowHost& host, const Appearance& appearance);
    ~ControlSurface() override;

    void Create(HWND parent, const RECT& place);
    void Flush();
    void TakeFocus(FocusFrom from);
    bool TranslateKey(const MSG& message);
    bool PressAccessKey(char letter) { return windows_.PressAccessKey(letter); }
    Bounds SizeInTwips() const;
    int Dpi() const { return dpi_; }
    const Zoom& CurrentZoom() const { return zoom_; }
    void ShowProfileMenu();
    void SetDpi(int dpi);
    void SetAppearance(const Appearance& appearance);

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSize();
    void SystemChanged();
    /// Shows everything in the zoom for the present font, resolution and size, also when none of them
    /// changed.
    void ApplyZoom();
    Zoom WantedZoom() const;
    void ApplyPointer();

    void Clicked(Control& control) override;
    void TabChosen(TabStrip& tabs) override;
    void ToolChosen(Toolbar& bar, const std::string& key, const std::optional<RECT>& place) override;
    void GridPressed(OutlineGrid& grid, int button) override;
    void GridDoubleClicked(OutlineGrid& grid, int row, int column) override;
    void GridKeyPressed(OutlineGrid& grid, int key, bool shift) override;
    std::string GridExplanation(OutlineGrid& grid, int row, int column) override;
    std::string NameOf(const Control& control) override { return SpokenName(Form(), control); }
    std::string CaptionOf(CaptionKey key) override { return Host().Viewer().Caption(key); }
    void FocusEntered() override { Host().FocusEntered(); }
    void FocusLeft() override { Host().FocusLeft(); }

    int IndexOf(const OutlineGrid& grid) const;
    ViewerForm& Form() const { return Host().Viewer().Controls(); }

    FormWindows windows_;
    Appearance appearance_;
    int dpi_ = kDesignDpi;
    Zoom zoom_;
    SIZE size_{};
    int pointer_ = kDefaultPointer;
    /// The button that the next profile menu hangs below, unless it is to stand at the mouse.
    std::optional<RECT> menuBelow_;
};

}  // namespace dlv
