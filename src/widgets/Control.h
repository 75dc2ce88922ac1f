// The state of a control on a form, without any window. Whoever realises a form as windows reads
// this state and writes into it only what a user did. Positions and sizes are in twips (1/1440 inch,
// 15 to a pixel at 96 dpi), relative to the container.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace dlv {

inline constexpr double kTwipsPerPixel = 15;
constexpr double Pixels(double count) { return count * kTwipsPerPixel; }

/// A colour as 0xBBGGRR, the platform's blue-green-red order.
using Colour = std::uint32_t;

struct Bounds {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    bool operator==(const Bounds&) const = default;
};

class Control {
public:
    explicit Control(std::string name) : name_(std::move(name)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }

    const Bounds& Place() const { return place_; }
    double Left() const { return place_.left; }
    double Top() const { return place_.top; }
    double Width() const { return place_.width; }
    double Height() const { return place_.height; }
    void SetPlace(const Bounds& place) { Assign(place_, place); }
    void SetLeft(double left) { SetPlace({left, Top(), Width(), Height()}); }
    void SetTop(double top) { SetPlace({Left(), top, Width(), Height()}); }
    void SetWidth(double width) { SetPlace({Left(), Top(), width, Height()}); }
    void SetHeight(double height) { SetPlace({Left(), Top(), Width(), height}); }

    bool Visible() const { return visible_; }
    void SetVisible(bool visible) { Assign(visible_, visible); }
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { Assign(enabled_, enabled); }
    const std::string& ToolTip() const { return toolTip_; }
    void SetToolTip(std::string text) { Assign(toolTip_, std::move(text)); }

    /// The control that it stands in; nothing for one that stands on the form itself.
    const Control* Container() const { return container_; }
    void SetContainer(const Control& container) { container_ = &container; }
    /// Visible and enabled, itself and all that it stands in.
    bool Usable() const {
        const bool own = visible_ && enabled_;
        return own && (container_ == nullptr || container_->Usable());
    }

    /// Whether state changed since the last call: for the one who mirrors it into a window.
    bool TakeChanged() { return std::exchange(changed_, false); }
    /// Asks for the control to be mirrored anew.
    void MarkChanged() { changed_ = true; }

protected:
    template <class T>
    void Assign(T& field, T value) {
        if (field == value) return;
        field = std::move(value);
        changed_ = true;
    }

private:
    std::string name_;
    Bounds place_;
    bool visible_ = true;
    bool enabled_ = true;
    bool changed_ = true;
    std::string toolTip_;
    const Control* container_ = nullptr;
};

}  // namespace dlv
