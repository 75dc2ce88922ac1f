// A portable modal form as a dialog of the system's: its controls as windows, its default and cancel buttons
// on Enter and Esc, its timer.
#pragma once

#include "windows/gdi/Fonts.h"
#include "windows/hwnd/FormListener.h"
#include "windows/hwnd/FormWindows.h"
#include "windows/hwnd/Window.h"

namespace dlv {

class FormDialog : public Window, private FormListener {
public:
    FormDialog(WindowHost& host, ModalForm& form, const FontChoice& font);
    ~FormDialog() override;

    /// Makes and shows the dialog before `owner`, which may be null.
    void Open(HWND owner);
    /// Runs until the form has closed, the control ends or the window is gone.
    void Run();

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void Clicked(Control& control) override;
    void LineChosen(ListBox& list) override;
    void FocusTaken(Control& control) override;

    Zoom ZoomOn(HWND owner) const;
    void SetSize(HWND owner, Scale scale);
    void Press(WORD id);
    bool PressAccessKey(const MSG& message);
    void BringUpToDate();
    Button* ButtonFor(WORD id) const;
    void StartTimers();
    bool Open() const;

    ModalForm& form_;
    FontChoice font_;
    FormWindows windows_;
    /// Of the running timer, in milliseconds; 0 while none runs.
    int interval_ = 0;
};

}  // namespace dlv
