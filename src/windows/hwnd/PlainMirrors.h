// The windows of the plain controls. Labels, buttons and the like are the system's own windows, so that
// everything that reads windows can read them; labels and frames are painted by us.
#pragma once

#include "windows/access/AccessibleText.h"
#include "windows/hwnd/Mirror.h"

namespace dlv {

class FrameMirror : public Mirror {
public:
    FrameMirror(FormWindows& form, Frame& frame) : Mirror(form, frame), frame_(frame) {}
    void Make(HWND parent) override;
    void Apply() override;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    Frame& frame_;
};

class LabelMirror : public Mirror, private TextScreen {
public:
    LabelMirror(FormWindows& form, Label& label) : Mirror(form, label), label_(label) {}
    void Make(HWND parent) override;
    void Apply() override;
    /// The label's own tool tip, else its text where that is cut.
    std::string ToolTip() const override;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnCommand(int code, int id) override;
    ComPtr<AccessibleObject> Accessible() override;

private:
    LONG TextRole() const override;
    std::string Heading() const override { return Owner().Listener().NameOf(label_); }
    std::string Text() const override { return label_.Caption(); }
    std::string ClickText() const override;

    void Paint();
    void TellText();

    Label& label_;
    std::string told_;
};

class ButtonMirror : public Mirror {
public:
    ButtonMirror(FormWindows& form, Button& button) : Mirror(form, button), button_(button) {}
    void Make(HWND parent) override;
    void Apply() override;
    bool TakesFocus() const override { return true; }

protected:
    void OnCommand(int code, int id) override;

private:
    Button& button_;
};

class OptionMirror : public Mirror {
public:
    OptionMirror(FormWindows& form, OptionButton& option) : Mirror(form, option), option_(option) {}
    void Make(HWND parent) override;
    void Apply() override;
    /// Of a group only the chosen one: arrow keys lead to the others.
    bool TakesFocus() const override { return option_.Value(); }

protected:
    void OnCommand(int code, int id) override;

private:
    OptionButton& option_;
};

class TextBoxMirror : public Mirror {
public:
    TextBoxMirror(FormWindows& form, TextBox& box) : Mirror(form, box), box_(box) {}
    void Make(HWND parent) override;
    void Apply() override;
    bool TakesFocus() const override { return true; }

protected:
    void OnCommand(int code, int id) override;

private:
    void ReadText();

    TextBox& box_;
};

class ListBoxMirror : public Mirror {
public:
    ListBoxMirror(FormWindows& form, ListBox& box) : Mirror(form, box), box_(box) {}
    void Make(HWND parent) override;
    void Apply() override;
    void ApplyName() override { ApplyText(Owner().NameOf(box_)); }
    bool TakesFocus() const override { return true; }

protected:
    void OnCommand(int code, int id) override;

private:
    void ShowItems();
    bool ClickedOnLine() const;

    ListBox& box_;
    std::vector<std::string> shown_;
};

}  // namespace dlv
