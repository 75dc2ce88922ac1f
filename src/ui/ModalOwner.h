// The frame that modal dialogs disable while they are shown. Dialogs may be nested: the frame comes
// back when the outermost one has closed, whatever way it closed.
#pragma once

#include "widgets/Widgets.h"

namespace dlv {

class ModalOwner {
public:
    explicit ModalOwner(Frame& frame) : frame_(frame) {}

    /// While it lives, a dialog is open over the frame.
    class Scope {
    public:
        explicit Scope(ModalOwner& owner) : owner_(owner) {
            ++owner_.open_;
            owner_.frame_.SetEnabled(false);
        }
        ~Scope() {
            if (--owner_.open_ == 0) owner_.frame_.SetEnabled(true);
        }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ModalOwner& owner_;
    };

private:
    Frame& frame_;
    int open_ = 0;
};

}  // namespace dlv
