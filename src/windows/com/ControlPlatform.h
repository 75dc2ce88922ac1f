// Windows as the control's logic sees it. Works with and without the control's window: without one, sizes are
// those of the extent and dialogs stand before the container's window, if any.
#pragma once

#include "windows/com/PlainWindows.h"

#include <optional>

#include "widgets/Platform.h"
#include "windows/com/Activation.h"
#include "windows/com/Extent.h"
#include "windows/com/WindowHost.h"

namespace dlv {

class ControlPlatform final : public Platform {
public:
    /// `activation` is made after the platform, which refers to it only when it is asked something.
    ControlPlatform(WindowHost& host, const Extent& extent, const Ambience& ambience, Activation& activation)
        : host_(host), extent_(extent), ambience_(ambience), activation_(activation) {}

    TimeOfDay Now() override;
    LocaleTime TimeSettings() override;
    std::string DateAndTime() override;
    std::string InterfaceLanguage() override;
    double SurfaceWidth() override;
    double SurfaceHeight() override;
    double TextWidth(std::string_view text, bool bold) override;
    void Flush() override;
    void ShowModal(ModalForm& form) override;
    Answer ShowMessageBox(const MessageBox& box) override;
    std::string ChooseSaveFile(const SaveDialog& dialog) override;
    std::unique_ptr<OutputFile> MakeFile(const std::string& name) override;
    std::unique_ptr<Printer> ChoosePrinter(Printer::Orientation proposed) override;
    void ShowProfileMenu() override;
    void ProcessPendingMessages() override;

private:
    /// The fonts of the last measurement: making them costs more than measuring.
    struct Measuring {
        FontChoice choice;
        int dpi = 0;
        Fonts fonts;
    };

    double Shrinking() const;

    WindowHost& host_;
    const Extent& extent_;
    const Ambience& ambience_;
    Activation& activation_;
    std::optional<Measuring> measuring_;
};

/// A time format of the system's ("h:mm:ss tt") in the form that the control's own formats have.
std::string TimeFormatOf(std::wstring_view systemFormat);

}  // namespace dlv
