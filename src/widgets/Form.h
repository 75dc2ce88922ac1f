// A form: controls found by name, in their tab order, on an area of a given size. A modal form also
// says what its buttons and its timer do; whoever shows it realises its controls, reports clicks and
// ticks, and returns when it has closed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "widgets/Widgets.h"

namespace dlv {

class Form {
public:
    explicit Form(std::string name) : name_(std::move(name)) {}
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption) { caption_ = std::move(caption); }

    /// Controls in tab order, which is also their order from back to front.
    const std::vector<Control*>& Controls() const { return controls_; }
    /// The control of that name; nothing when the form has none.
    Control* Find(std::string_view name) const;

    /// Inner size in twips.
    double Width() const { return width_; }
    double Height() const { return height_; }
    void SetSize(double width, double height) {
        width_ = width;
        height_ = height;
    }

protected:
    /// For derived forms: puts a control of theirs on the form.
    void Place(Control& control, const Bounds& bounds);
    void Place(Control& control, const Bounds& bounds, const Control& container);

private:
    std::string name_;
    std::string caption_;
    std::vector<Control*> controls_;
    double width_ = 0;
    double height_ = 0;
};

/// The label that names a control which has no text of its own: the one before it in the same container.
const Label* LabelBefore(const Form& form, const Control& control);

class ModalForm : public Form {
public:
    using Form::Form;

    /// A person pressed the button (or Enter or Esc where it is the default or cancel button).
    virtual void Click(Button& button) = 0;
    /// A control took the focus.
    virtual void GotFocus(Control& /*control*/) {}
    /// The form's timer ticked.
    virtual void Tick() {}

    bool Closed() const { return closed_; }
    void Unload() { closed_ = true; }

private:
    bool closed_ = false;
};

}  // namespace dlv
