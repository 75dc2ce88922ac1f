#include "widgets/Form.h"

namespace dlv {

Control* Form::Find(std::string_view name) const {
    for (Control* control : controls_)
        if (control->Name() == name) return control;
    return nullptr;
}

void Form::Place(Control& control, const Bounds& bounds) {
    control.SetPlace(bounds);
    controls_.push_back(&control);
}

void Form::Place(Control& control, const Bounds& bounds, const Control& container) {
    control.SetContainer(container);
    Place(control, bounds);
}

const Label* LabelBefore(const Form& form, const Control& control) {
    const Control* before = nullptr;
    for (const Control* other : form.Controls()) {
        if (other == &control) return dynamic_cast<const Label*>(before);
        if (other->Container() == control.Container()) before = other;
    }
    return nullptr;
}

}  // namespace dlv
