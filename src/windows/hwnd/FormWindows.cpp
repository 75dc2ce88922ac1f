#include "windows/hwnd/FormWindows.h"

#include <algorithm>
#include <map>

#include "windows/hwnd/Mirror.h"
#include "windows/hwnd/ThemeColours.h"
#include "windows/hwnd/ToolTips.h"

namespace dlv {

/// While it lives, state is being written into windows.
class FormWindows::ApplyScope {
public:
    explicit ApplyScope(FormWindows& form) : form_(form), before_(form.applying_) { form_.applying_ = true; }
    ~ApplyScope() { form_.applying_ = before_; }
    ApplyScope(const ApplyScope&) = delete;
    ApplyScope& operator=(const ApplyScope&) = delete;

private:
    FormWindows& form_;
    const bool before_;
};

FormWindows::FormWindows(WindowHost& host, Form& form, FormListener& listener)
    : host_(host), form_(form), listener_(listener) {}

FormWindows::~FormWindows() { Destroy(); }

void FormWindows::Destroy() {
    EndToolTips();
    for (const auto& mirror : mirrors_) mirror->Destroy();
}

void FormWindows::EndToolTips() {
    if (tips_) tips_->Destroy();
}

void FormWindows::Make(HWND parent, const Appearance& appearance, Scale scale) {
    parent_ = parent;
    look_ = std::make_unique<Look>(appearance, scale);
    MakeGround();
    const ApplyScope applying(*this);
    for (Control* control : form_.Controls()) {
        std::unique_ptr<Mirror> mirror = MakeMirror(*this, *control);
        if (!mirror) continue;
        mirror->Make(ParentWindow(*control));
        mirrors_.push_back(std::move(mirror));
        control->MarkChanged();
    }
    // Windows puts each new child below the others; what lies on a tab strip's page must lie above the strip.
    for (const auto& mirror : mirrors_)
        if (dynamic_cast<const TabStrip*>(&mirror->Shown()) != nullptr)
            SetWindowPos(mirror->Handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    tips_ = std::make_unique<ToolTips>(host_);
    tips_->Make(parent);
    for (const auto& mirror : mirrors_) {
        mirror->LookChanged();
        tips_->Add(*mirror);
    }
    Flush();
}

HWND FormWindows::TipWindow() const { return tips_ ? tips_->Handle() : nullptr; }

HWND FormWindows::ParentWindow(const Control& control) const {
    const Mirror* container = control.Container() == nullptr ? nullptr : Find(*control.Container());
    return container == nullptr ? parent_ : container->Handle();
}

Mirror* FormWindows::Find(const Control& control) const {
    for (const auto& mirror : mirrors_)
        if (&mirror->Shown() == &control) return mirror.get();
    return nullptr;
}

void FormWindows::Flush() {
    std::vector<Mirror*> changed;
    for (const auto& mirror : mirrors_)
        if (mirror->Handle() != nullptr && mirror->Shown().TakeChanged()) changed.push_back(mirror.get());
    if (!changed.empty()) Apply(changed);
}

void FormWindows::Apply(std::vector<Mirror*>& changed) {
    const ApplyScope applying(*this);
    for (const Mirror* mirror : changed) ReleaseFocusOf(*mirror);
    PlaceAll(changed);
    for (Mirror* mirror : changed)
        if (mirror->Handle() != nullptr) mirror->Apply();
    for (const auto& mirror : mirrors_)
        if (mirror->Handle() != nullptr) mirror->ApplyName();
    // The focus waits on the outer window while nothing inside can take it.
    if (GetFocus() == parent_) TakeLastFocus();
}

// Windows moves several windows together only when they are children of the same one.
void FormWindows::PlaceAll(const std::vector<Mirror*>& changed) {
    std::map<HWND, std::vector<Mirror*>> byParent;
    for (Mirror* mirror : changed) byParent[GetParent(mirror->Handle())].push_back(mirror);
    for (const auto& [parent, mirrors] : byParent) {
        HDWP batch = BeginDeferWindowPos(static_cast<int>(mirrors.size()));
        const bool begun = batch != nullptr;
        for (Mirror* mirror : mirrors) batch = mirror->ApplyPlace(batch);
        if (batch != nullptr && EndDeferWindowPos(batch)) continue;
        // The batch was lost on its way.
        if (begun)
            for (Mirror* mirror : mirrors) mirror->ApplyPlace(nullptr);
    }
}

// A window that is disabled or hidden while it has the focus would keep the keyboard to itself.
void FormWindows::ReleaseFocusOf(const Mirror& mirror) {
    if (mirror.Shown().Visible() && mirror.Shown().Enabled()) return;
    const HWND focus = GetFocus();
    if (focus != mirror.Handle() && !IsChild(mirror.Handle(), focus)) return;
    const Control* const last = lastFocus_;
    if (!MoveFocus(Direction::Forward) && !MoveFocus(Direction::Backward)) SetFocus(parent_);
    lastFocus_ = last;
}

void FormWindows::SetLook(const Appearance& appearance, Scale scale) {
    auto look = std::make_unique<Look>(appearance, scale);
    std::swap(look, look_);
    MakeGround();
    const ApplyScope applying(*this);
    for (const auto& mirror : mirrors_) {
        if (mirror->Handle() == nullptr) continue;
        mirror->LookChanged();
        SendMessageW(mirror->Handle(), WM_SYSCOLORCHANGE, 0, 0);
        mirror->Shown().MarkChanged();
    }
    // Only now has no window a font of the old look any more.
    look.reset();
}

void FormWindows::MakeGround() {
    groundBrush_ = Brush(CreateSolidBrush(look_->palette.face));
    page_ = PageColour(look_->palette);
    pageBrush_ = Brush(CreateSolidBrush(page_));
}

bool FormWindows::OnPage(const Control& control) const {
    for (const Control* c = &control; c != nullptr; c = c->Container())
        if (std::ranges::find(pages_, c) != pages_.end()) return true;
    return false;
}

const LabelGroup& FormWindows::GroupOf(const Label& label) const {
    static const LabelGroup none;
    for (const LabelGroup& group : groups_)
        if (std::ranges::find(group, &label) != group.end()) return group;
    return none;
}

std::string FormWindows::NameOf(const Control& control) const {
    const std::string name = listener_.NameOf(control);
    if (!name.empty()) return name;
    const Label* label = LabelBefore(form_, control);
    return label == nullptr ? form_.Caption() : label->Caption();
}

COLORREF FormWindows::Ground(const Control& control) const {
    return OnPage(control) ? page_ : look_->palette.face;
}

HBRUSH FormWindows::GroundBrush(const Control& control) const {
    return OnPage(control) ? pageBrush_.Get() : groundBrush_.Get();
}

}  // namespace dlv
