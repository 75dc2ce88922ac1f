// reader WINDOW COMMAND...: what a screen reader is told of a window, given by its handle or title. The
// commands run one after the other and print one line for each thing that is told:
//
//   windows           the windows inside it that are to be seen
//   grid [WHICH]      all displayed rows of the grid to be seen inside it (0, 1 ...)
//   rows FIRST COUNT  some rows of the first grid, by id, and how many objects were fetched for them
//   tools             the buttons of the tool bar
//   focus, selection  what the first grid says has the focus, and is selected
//   walk              from the first row of the first grid to the next, to a cell, back and up again
//   hit ID COLUMN     what is at the place that the row's cell says it has
//   act ID [COLUMN], select ID [COLUMN]    does it, with a row or a cell of the first grid
//   hold ID COLUMN    keeps a row and one of its cells for...
//   held              ... what they say now
//   pause             prints what is to be told, and waits until it is told to go on
//   events [SECONDS]  listens for so long, or until it is told to go on, and prints what it hears
//
// It is told to go on by a property "ReaderMayGoOn" of the window; while it waits, the window has one
// "ReaderWaits".
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "hosts/reader/AccessibleReader.h"
#include "hosts/reader/EventLog.h"

namespace dlv::reader {
namespace {

constexpr wchar_t kGridClass[] = L"DashlonViewerGrid";
constexpr wchar_t kToolbarClass[] = L"ToolbarWindow32";
constexpr wchar_t kMayGoOn[] = L"ReaderMayGoOn";
constexpr wchar_t kWaits[] = L"ReaderWaits";

class Session {
public:
    Session(HWND window, std::vector<std::string> words) : window_(window), words_(std::move(words)) {}

    void Run() {
        while (next_ < words_.size()) RunCommand(words_[next_++]);
    }

private:
    static VARIANT Self() {
        VARIANT self;
        self.vt = VT_I4;
        self.lVal = CHILDID_SELF;
        return self;
    }
    bool NumberFollows() const {
        return next_ < words_.size() && words_[next_].find_first_not_of("-0123456789") == std::string::npos;
    }
    LONG Number() {
        if (!NumberFollows()) throw std::runtime_error("a number is missing");
        return std::atol(words_[next_++].c_str());
    }
    HWND Grid(int which = 0) const { return WindowOf(window_, kGridClass, which); }
    /// The row, or the cell when a column follows.
    ComPtr<IAccessible> Meant(GridReader& grid) {
        ComPtr<IAccessible> object = grid.Child(grid.Object(), Number());
        if (NumberFollows()) object = grid.Child(object.Get(), Number());
        if (!object) throw std::runtime_error("there is no such row or cell");
        return object;
    }

    static void Say(const std::string& line) {
        std::printf("%s\n", line.c_str());
        std::fflush(stdout);
    }
    static void Say(const std::string& what, const Told& told) {
        std::string line = what + RoleWord(told.role) + " " + told.name;
        if (!told.value.empty()) line += " = " + told.value;
        if (!told.description.empty()) line += " (" + told.description + ")";
        if (!told.action.empty()) line += " [" + told.action + "]";
        const std::string states = StateWords(told.state);
        if (!states.empty()) line += " " + states;
        char result[32];
        std::snprintf(result, sizeof result, "failed 0x%08lX", static_cast<unsigned long>(told.result));
        Say(FAILED(told.result) ? what + result : line);
    }
    static void Say(const std::string& what, const VARIANT& given) {
        if (given.vt == VT_DISPATCH)
            Say(what, Ask(AsAccessible(given.pdispVal).Get()));
        else
            Say(what + (given.vt == VT_EMPTY ? "nothing" : given.vt == VT_UNKNOWN ? "several" : "itself"));
    }

    void RunCommand(const std::string& command) {
        GridReader grid(Grid());
        if (command == "windows") return SayWindows();
        if (command == "tools") return SayTools();
        if (command == "grid") return SayGrid(NumberFollows() ? static_cast<int>(Number()) : 0);
        if (command == "rows") return SayRows(grid);
        if (command == "focus" || command == "selection") return SayState(grid, command);
        if (command == "walk") return Walk(grid);
        if (command == "hit") return Hit(grid);
        if (command == "act" || command == "select") return Do(grid, command);
        if (command == "hold") return Hold(grid);
        if (command == "held") return SayHeld();
        if (command == "pause") return Wait();
        if (command == "events") return Listen();
        throw std::runtime_error("no command " + command);
    }

    void SayWindows() const {
        for (const ToldWindow& window : WindowsIn(window_)) Say(window.className + ": ", window.told);
    }

    void SayTools() const {
        GridReader bar(WindowOf(window_, kToolbarClass));
        for (LONG id = 1; id <= bar.RowCount(); ++id) {
            const ComPtr<IAccessible> tool = bar.Child(bar.Object(), id);
            if (tool) Say("", Ask(tool.Get()));
        }
    }

    void SayGrid(int which) const {
        GridReader grid(Grid(which));
        Say("grid " + grid.Name());
        const LONG headers = grid.HeaderRows();
        for (LONG header = 1; header <= headers; ++header) {
            std::string line = "heading";
            for (const std::string& text : grid.Headings(header)) line += " | " + text;
            Say(line);
        }
        for (const ToldRow& row : grid.Rows()) Say(Line(row));
    }

    void SayRows(GridReader& grid) {
        const LONG first = Number();
        const LONG count = Number();
        Say("of " + std::to_string(grid.RowCount()));
        for (LONG id = first; id < first + count; ++id) Say(Line(grid.Row(id)));
        Say("fetched " + std::to_string(grid.Fetched()));
    }

    void SayState(const GridReader& grid, const std::string& what) const {
        VARIANT given;
        VariantInit(&given);
        if (what == "focus")
            grid.Object()->get_accFocus(&given);
        else
            grid.Object()->get_accSelection(&given);
        if (given.vt != VT_UNKNOWN) {
            Say(what + ": ", given);
        } else {
            SaySeveral(what, given.punkVal);
        }
        VariantClear(&given);
    }

    void SaySeveral(const std::string& what, IUnknown* list) const {
        ComPtr<IEnumVARIANT> rows;
        list->QueryInterface(IID_PPV_ARGS(&rows));
        VARIANT row;
        VariantInit(&row);
        int count = 0;
        for (; rows && rows->Next(1, &row, nullptr) == S_OK; ++count) {
            if (count == 0) Say(what + " from: ", row);
            VariantClear(&row);
        }
        Say(what + " of " + std::to_string(count));
    }

    static ComPtr<IAccessible> Beside(IAccessible* object, LONG direction) {
        VARIANT end;
        VariantInit(&end);
        if (object != nullptr) object->accNavigate(direction, Self(), &end);
        ComPtr<IAccessible> found = end.vt == VT_DISPATCH ? AsAccessible(end.pdispVal) : nullptr;
        VariantClear(&end);
        return found;
    }

    void Walk(GridReader& grid) const {
        ComPtr<IAccessible> here = grid.Object();
        const struct {
            const char* name;
            LONG direction;
        } steps[] = {{"first: ", NAVDIR_FIRSTCHILD}, {"next: ", NAVDIR_NEXT}, {"next: ", NAVDIR_NEXT},
                     {"right: ", NAVDIR_RIGHT},      {"left: ", NAVDIR_LEFT}, {"last: ", NAVDIR_LASTCHILD},
                     {"previous: ", NAVDIR_PREVIOUS}};
        for (const auto& step : steps) {
            here = Beside(here.Get(), step.direction);
            if (!here) return Say(std::string(step.name) + "nothing");
            Say(step.name, Ask(here.Get()));
        }
        for (int level = 0; level < 2; ++level) {
            ComPtr<IDispatch> parent;
            here->get_accParent(&parent);
            here = AsAccessible(parent.Get());
            if (!here) return Say("no parent");
            Say("parent: ", Ask(here.Get()));
        }
    }

    void Hit(GridReader& grid) {
        const ComPtr<IAccessible> cell = Meant(grid);
        LONG left = 0, top = 0, width = 0, height = 0;
        cell->accLocation(&left, &top, &width, &height, Self());
        ComPtr<IAccessible> here = grid.Object();
        while (here) {
            VARIANT child;
            VariantInit(&child);
            here->accHitTest(left + width / 2, top + height / 2, &child);
            Say("hit: ", child);
            here = child.vt == VT_DISPATCH ? AsAccessible(child.pdispVal) : nullptr;
            VariantClear(&child);
        }
    }

    void Do(GridReader& grid, const std::string& command) {
        const ComPtr<IAccessible> object = Meant(grid);
        const HRESULT result = command == "act"
                                   ? object->accDoDefaultAction(Self())
                                   : object->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, Self());
        Say(command + (SUCCEEDED(result) ? " done" : " failed"));
    }

    void Hold(GridReader& grid) {
        const LONG row = Number();
        held_ = {grid.Child(grid.Object(), row)};
        held_.push_back(grid.Child(held_[0].Get(), Number()));
        held_.push_back(grid.Object());
    }

    void SayHeld() const {
        for (const auto& object : held_) Say("held: ", Ask(object.Get()));
    }

    static void HandleMessages() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }

    void Wait() const {
        SetPropW(window_, kWaits, reinterpret_cast<HANDLE>(1));
        while (IsWindow(window_) && GetPropW(window_, kMayGoOn) == nullptr) {
            HandleMessages();
            Sleep(5);
        }
        HandleMessages();
        RemovePropW(window_, kMayGoOn);
    }

    void Listen() {
        EventLog log(window_);
        const auto tell = [&] {
            for (const std::string& line : log.Take()) Say(line);
        };
        if (!NumberFollows()) {
            Wait();
            return tell();
        }
        const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(Number()) * 1000;
        while (GetTickCount64() < end) {
            HandleMessages();
            tell();
            Sleep(5);
        }
    }

    HWND window_;
    std::vector<std::string> words_;
    std::size_t next_ = 0;
    std::vector<ComPtr<IAccessible>> held_;
};

int Run(const std::vector<std::string>& words) {
    if (words.size() < 2) throw std::runtime_error("reader WINDOW COMMAND...");
    auto window = reinterpret_cast<HWND>(std::strtoull(words[0].c_str(), nullptr, 0));
    if (window == nullptr) window = FindWindowA(nullptr, words[0].c_str());
    if (!IsWindow(window)) throw std::runtime_error("there is no window " + words[0]);
    OleInitialize(nullptr);
    Session(window, {words.begin() + 1, words.end()}).Run();
    OleUninitialize();
    return 0;
}

}  // namespace
}  // namespace dlv::reader

int main(int count, char** arguments) try {
    return dlv::reader::Run({arguments + 1, arguments + count});
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
}
