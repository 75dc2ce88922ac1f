// Saving and printing the grid that a person looks at. What goes wrong shows no message: afterwards the
// control is as it was.
#pragma once

#include <string>
#include <string_view>

#include "ui/CaptionCatalogue.h"
#include "ui/ModalOwner.h"
#include "ui/Outside.h"
#include "views/GridPages.h"
#include "views/ViewerForm.h"

namespace dlv {

class GridExport {
public:
    GridExport(ViewerForm& form, const CaptionCatalogue& captions, Platform& platform, Outside& outside,
               ModalOwner& owner)
        : form_(form), captions_(captions), platform_(platform), outside_(outside), owner_(owner) {}

    /// Asks for a file and writes the grid of that index into it as comma text.
    void SaveGrid(int index);
    /// Asks for a printer and prints the displayed rows of the grid of that index.
    void PrintGrid(int index);

    /// Where the last grid was saved; empty at first.
    const std::string& LastFolder() const { return lastFolder_; }

private:
    std::string ChooseFile();
    GridPages::Words WordsFor(const std::string& title);

    ViewerForm& form_;
    const CaptionCatalogue& captions_;
    Platform& platform_;
    Outside& outside_;
    ModalOwner& owner_;
    std::string lastFolder_;
};

/// The folder part of a file's name, without the separator behind it but for a root's; empty when there is
/// none.
std::string FolderOf(std::string_view path);

}  // namespace dlv
