#include "views/GridExport.h"

#include "base/Text.h"
#include "base/Trap.h"
#include "widgets/CommaText.h"

namespace dlv {

namespace {

constexpr const char* kFilter = "Comma-separated Files (*.csv)|*.csv";
constexpr const char* kExtension = "csv";

}  // namespace

std::string FolderOf(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\/");
    if (separator == std::string_view::npos) return {};
    const bool root = separator == 0 || path[separator - 1] == ':';
    return std::string(path.substr(0, separator + (root ? 1 : 0)));
}

std::string GridExport::ChooseFile() {
    const ModalOwner::Scope scope(owner_);
    return outside_.ChooseSaveFile({kFilter, kExtension, lastFolder_});
}

void GridExport::SaveGrid(int index) {
    const OutlineGrid& grid = form_.vsFlex[index];
    if (!grid.Visible()) return;
    IgnoreErrors([&] {
        const std::string name = ChooseFile();
        if (Trim(name).empty()) return;
        if (std::string folder = FolderOf(name); !folder.empty()) lastFolder_ = std::move(folder);
        const std::unique_ptr<OutputFile> file = platform_.MakeFile(name);
        WriteCommaText(grid, *file);
        file->Keep();
    });
}

GridPages::Words GridExport::WordsFor(const std::string& title) {
    return {title, platform_.DateAndTime(), form_.lblProfile.Caption() + form_.lblCurrentProfile.Caption(),
            captions_.Caption("PrintContinued"), captions_.Caption("PrintPage")};
}

void GridExport::PrintGrid(int index) {
    const OutlineGrid& grid = form_.vsFlex[index];
    if (!grid.Visible()) return;
    IgnoreErrors([&] {
        std::unique_ptr<Printer> printer;
        {
            const ModalOwner::Scope scope(owner_);
            printer = outside_.ChoosePrinter(Printer::Orientation::Landscape);
        }
        if (!printer) return;
        const std::string title = captions_.Caption(index == 0 ? CaptionKey("BUSummary") : "BUHierarchy");
        outside_.Begin(*printer, title);
        // Behind the last message loop, so that the rows stay as they are.
        const GridPages pages(grid, printer->Paper(), WordsFor(title));
        for (int page = 1; page <= pages.Count(); ++page)
            if (printer->Wants(page)) printer->Print(pages.Page(page));
        printer->End();
    });
}

}  // namespace dlv
