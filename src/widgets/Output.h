// Where a grid leaves the control: a file that is written, a printer, and the page that is printed. The
// platform stands behind the file and the printer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "widgets/Control.h"
#include "widgets/Widgets.h"

namespace dlv {

/// What a person is asked where a file is to be saved.
struct SaveDialog {
    /// Pairs of a name and a pattern, as "Text (*.txt)|*.txt".
    std::string filter;
    /// Is put behind a name without one.
    std::string extension;
    /// Where the dialog opens; empty for the system's own choice.
    std::string folder;
};

/// A file that is there whole or not at all: what is written stands beside the target until it is kept. What
/// is not kept goes away with the object.
class OutputFile {
public:
    virtual ~OutputFile() = default;
    /// Error 57 when the bytes cannot be written.
    virtual void Write(std::string_view bytes) = 0;
    /// Puts the file into its place; error 57 when that cannot be done, and the target is as it was.
    virtual void Keep() = 0;
};

/// A sheet of paper in twips, and how far from its edges the printer can print.
struct Paper {
    double width = 0;
    double height = 0;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// One page as it is to be drawn, in twips from the upper left corner of the sheet: first the areas in their
/// order, then the texts.
struct PrintedPage {
    struct Area {
        Bounds place;
        Colour colour;
    };
    struct Text {
        Bounds place;
        std::string text;
        /// How many times as large as the font's own size.
        double size = 1;
        bool bold = false;
        Alignment alignment = Alignment::Left;
        /// May take several lines.
        bool wraps = false;
    };
    std::vector<Area> areas;
    std::vector<Text> texts;
};

/// The texts of a page, one line for each line on paper, with tabs between the texts of a line.
std::string PageText(const PrintedPage& page);

/// A printer that a person has chosen. A document that was not ended is given up with the object.
class Printer {
public:
    enum class Orientation { Portrait, Landscape };

    virtual ~Printer() = default;
    virtual dlv::Paper Paper() const = 0;
    /// Whether the page of that number, from 1, is among those that are wanted.
    virtual bool Wants(int page) const = 0;

    // Error 482 when the printer fails.

    virtual void Begin(const std::string& documentName) = 0;
    virtual void Print(const PrintedPage& page) = 0;
    virtual void End() = 0;
};

}  // namespace dlv
