// The seam to the platform: everything that the logic needs of the machine and its user. The Windows
// layer stands behind it in the control, a scripted user in the session player and in tests.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/TimeFormat.h"
#include "widgets/Form.h"
#include "widgets/Output.h"

namespace dlv {

enum class Answer { Ok, Yes, No };

struct MessageBox {
    enum class Buttons { Ok, YesNo };
    enum class Icon { None, Information, Question };
    std::string text;
    std::string title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
};

class Platform {
public:
    virtual ~Platform() = default;

    virtual TimeOfDay Now() = 0;
    virtual LocaleTime TimeSettings() = 0;
    /// Today's date and the time in the user's short form.
    virtual std::string DateAndTime() = 0;
    /// The language of the user's interface: "EN", "PO" or "SP".
    virtual std::string InterfaceLanguage() = 0;

    /// Inner size of the control in twips.
    virtual double SurfaceWidth() = 0;
    virtual double SurfaceHeight() = 0;
    /// Width of a text in twips in the control's font.
    virtual double TextWidth(std::string_view text, bool bold) = 0;

    /// Brings the windows up to date with the state; called before control leaves for the host or
    /// for a message loop.
    virtual void Flush() = 0;
    /// Shows a form and returns when it has closed, or when the control ends.
    virtual void ShowModal(ModalForm& form) = 0;
    /// The answer to a Yes/No box that cannot be shown is No, which is also its default button.
    virtual Answer ShowMessageBox(const MessageBox& box) = 0;
    /// The full name of the file that a person chooses, who has agreed to its being overwritten; empty when
    /// none was chosen.
    virtual std::string ChooseSaveFile(const SaveDialog& dialog) = 0;
    /// Error 57 when the file cannot be made.
    virtual std::unique_ptr<OutputFile> MakeFile(const std::string& name) = 0;
    /// The printer that a person chooses in the system's dialog, which proposes the orientation; null when
    /// none was chosen. Error 482 when there is no printer.
    virtual std::unique_ptr<Printer> ChoosePrinter(Printer::Orientation proposed) = 0;
    /// Pops up the profile menu, whose items stand in the form, at the mouse position.
    virtual void ShowProfileMenu() = 0;
    /// Lets pending window messages be processed once.
    virtual void ProcessPendingMessages() = 0;
};

}  // namespace dlv
