// The plain controls of a form: label, button, option button, frame, text and list box, tab strip,
// toolbar, timer. Each holds the state that a person sees and nothing of how it is drawn.
#pragma once

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "widgets/Control.h"

namespace dlv {

/// The place of a letter or digit in a caption that, pressed with Alt, leads to what the caption names;
/// nothing when no key does.
using AccessKey = std::optional<std::size_t>;

/// A control with a caption.
class CaptionControl : public Control {
public:
    using Control::Control;
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption) { Assign(caption_, std::move(caption)); }
    /// Where in the caption the letter stands that leads to the control, as a byte.
    AccessKey Key() const { return key_; }
    void SetKey(AccessKey key) { Assign(key_, key); }

private:
    std::string caption_;
    AccessKey key_;
};

enum class Alignment { Left, Right, Centre };

class Label : public CaptionControl {
public:
    using CaptionControl::CaptionControl;
    /// Nothing until a colour was set: then the system's text colour applies.
    std::optional<Colour> ForeColour() const { return foreColour_; }
    void SetForeColour(Colour colour) { Assign(foreColour_, std::optional<Colour>(colour)); }
    Alignment TextAlignment() const { return alignment_; }
    void SetTextAlignment(Alignment alignment) { Assign(alignment_, alignment); }
    bool Bold() const { return bold_; }
    void SetBold(bool bold) { Assign(bold_, bold); }
    /// A label that answers a click: shown with a hand cursor.
    bool Clickable() const { return clickable_; }
    void SetClickable(bool clickable) { Assign(clickable_, clickable); }
    /// A label whose text a person is told of whenever it is another, wherever that person is.
    bool Announced() const { return announced_; }
    void SetAnnounced(bool announced) { Assign(announced_, announced); }

private:
    std::optional<Colour> foreColour_;
    Alignment alignment_ = Alignment::Left;
    bool bold_ = false;
    bool clickable_ = false;
    bool announced_ = false;
};

class Button : public CaptionControl {
public:
    using CaptionControl::CaptionControl;
    bool IsDefault() const { return default_; }
    bool IsCancel() const { return cancel_; }
    void MakeDefault() { Assign(default_, true); }
    void MakeCancel() { Assign(cancel_, true); }

private:
    bool default_ = false;
    bool cancel_ = false;
};

/// One of an array of option buttons, of which exactly one is set. See `OptionGroup`.
class OptionButton : public CaptionControl {
public:
    using CaptionControl::CaptionControl;
    bool Value() const { return value_; }

private:
    friend class OptionGroup;
    bool value_ = false;
};

/// Two option buttons, told apart by their index 0 and 1.
class OptionGroup {
public:
    explicit OptionGroup(const std::string& name) : options_{OptionButton(name), OptionButton(name)} {
        Select(0);
    }
    OptionButton& operator[](int index) { return options_[index]; }
    const OptionButton& operator[](int index) const { return options_[index]; }
    int Selected() const { return options_[1].Value() ? 1 : 0; }
    void Select(int index) {
        for (int i = 0; i < 2; ++i) options_[i].Assign(options_[i].value_, i == index);
    }

private:
    OptionButton options_[2];
};

class Frame : public CaptionControl {
public:
    using CaptionControl::CaptionControl;
    /// A frame with an edge and its caption on it; else a plain area.
    bool HasEdge() const { return edge_; }
    void SetEdge(bool edge) { Assign(edge_, edge); }

private:
    bool edge_ = false;
};

/// An editing field. While a person types, the window owns the text; it is read when asked for.
class TextBox : public Control {
public:
    using Control::Control;
    const std::string& Text() const { return text_; }
    void SetText(std::string text) { Assign(text_, std::move(text)); }
    /// Which characters are selected: start and length, in characters.
    std::size_t SelectionStart() const { return selectionStart_; }
    std::size_t SelectionLength() const { return selectionLength_; }
    void Select(std::size_t start, std::size_t length) {
        selectionStart_ = start;
        selectionLength_ = length;
        selecting_ = true;
        MarkChanged();
    }
    /// Whether `Select` was called since the last call: for the one who mirrors it into a window.
    bool TakeSelecting() { return std::exchange(selecting_, false); }

private:
    std::string text_;
    std::size_t selectionStart_ = 0;
    std::size_t selectionLength_ = 0;
    bool selecting_ = false;
};

class ListBox : public Control {
public:
    using Control::Control;
    const std::vector<std::string>& Items() const { return items_; }
    void SetItems(std::vector<std::string> items) { Assign(items_, std::move(items)); }
    /// Position from 0; -1 when nothing is selected.
    int ListIndex() const { return index_; }
    void SetListIndex(int index) { Assign(index_, index); }

private:
    std::vector<std::string> items_;
    int index_ = -1;
};

class TabStrip : public Control {
public:
    struct Tab {
        std::string caption;
        std::string toolTip;
        AccessKey key{};
        bool operator==(const Tab&) const = default;
    };
    using Control::Control;
    const std::vector<Tab>& Tabs() const { return tabs_; }
    void SetTabs(std::vector<Tab> tabs) { Assign(tabs_, std::move(tabs)); }
    /// From 1, as tab strips number their tabs.
    int SelectedTab() const { return selected_; }
    void SelectTab(int tab) { Assign(selected_, tab); }
    /// The area inside the strip's edge, below its tabs, in the strip's container.
    Bounds ClientArea() const {
        return {Left() + Pixels(3), Top() + Pixels(24), std::max(0.0, Width() - Pixels(6)),
                std::max(0.0, Height() - Pixels(27))};
    }

private:
    std::vector<Tab> tabs_;
    int selected_ = 1;
};

class Toolbar : public Control {
public:
    enum class Style { Button, Separator, DropDown };
    struct Item {
        std::string key;
        Style style = Style::Button;
        std::string toolTip;
        bool visible = true;
        bool operator==(const Item&) const = default;
    };
    using Control::Control;
    const std::vector<Item>& Items() const { return items_; }
    void SetItems(std::vector<Item> items) { Assign(items_, std::move(items)); }
    /// `button` counts from 1.
    void ShowButton(std::size_t button, bool visible) {
        Item changed = items_.at(button - 1);
        changed.visible = visible;
        Assign(items_.at(button - 1), std::move(changed));
    }
    void SetButtonToolTip(std::string_view key, const std::string& text) {
        for (Item& item : items_) {
            Item changed = item;
            if (item.key == key) changed.toolTip = text;
            Assign(item, std::move(changed));
        }
    }

private:
    std::vector<Item> items_;
};

/// One of the pictures that whoever shows the form knows how to draw.
class Image : public Control {
public:
    using Control::Control;
    const std::string& Picture() const { return picture_; }
    void SetPicture(std::string name) { Assign(picture_, std::move(name)); }

private:
    std::string picture_;
};

/// A thin line across its whole place, to set parts of a form apart.
class Line : public Control {
public:
    using Control::Control;
    enum class Tone { Dark, Light };
    Tone Shade() const { return tone_; }
    void SetShade(Tone tone) { Assign(tone_, tone); }

private:
    Tone tone_ = Tone::Dark;
};

/// Ticks while its form is shown.
class Timer : public Control {
public:
    using Control::Control;
    int Interval() const { return interval_; }
    void SetInterval(int milliseconds) { Assign(interval_, milliseconds); }

private:
    int interval_ = 0;
};

}  // namespace dlv
