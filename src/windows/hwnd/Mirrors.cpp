#include "widgets/ListView.h"
#include "windows/hwnd/GridWindow.h"
#include "windows/hwnd/ListViewMirror.h"
#include "windows/hwnd/PictureMirrors.h"
#include "windows/hwnd/PlainMirrors.h"
#include "windows/hwnd/TabMirror.h"
#include "windows/hwnd/ToolbarMirror.h"

namespace dlv {

namespace {

template <class Kind, class MirrorKind>
bool MakeFor(FormWindows& form, Control& control, std::unique_ptr<Mirror>& mirror) {
    auto* kind = dynamic_cast<Kind*>(&control);
    if (kind != nullptr) mirror = std::make_unique<MirrorKind>(form, *kind);
    return kind != nullptr;
}

}  // namespace

std::unique_ptr<Mirror> MakeMirror(FormWindows& form, Control& control) {
    std::unique_ptr<Mirror> mirror;
    const bool made = MakeFor<Frame, FrameMirror>(form, control, mirror) ||
                      MakeFor<Label, LabelMirror>(form, control, mirror) ||
                      MakeFor<Button, ButtonMirror>(form, control, mirror) ||
                      MakeFor<OptionButton, OptionMirror>(form, control, mirror) ||
                      MakeFor<OutlineGrid, GridWindow>(form, control, mirror) ||
                      MakeFor<ListView, ListViewMirror>(form, control, mirror) ||
                      MakeFor<TabStrip, TabMirror>(form, control, mirror) ||
                      MakeFor<Toolbar, ToolbarMirror>(form, control, mirror) ||
                      MakeFor<Image, ImageMirror>(form, control, mirror) ||
                      MakeFor<Line, LineMirror>(form, control, mirror) ||
                      MakeFor<TextBox, TextBoxMirror>(form, control, mirror) ||
                      MakeFor<ListBox, ListBoxMirror>(form, control, mirror);
    static_cast<void>(made);
    return mirror;
}

}  // namespace dlv
